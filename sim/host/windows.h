// The host's windows: mappers with their layers, and browsers. Window ids
// are numbers the host hands out; the front window is the one opened or
// touched last. Window type numbers, as WindowInfo(w, 3) answers them:
// 1 mapper, 2 browser. Layer type numbers, as LayerInfo(w, l, 24) answers
// them: 0 a table of objects, 4 a raster image.
#pragma once

#include <string>
#include <vector>

namespace sim {

struct Layer {
  std::string table;
  bool editable = false;
  bool selectable = true;
  bool display = true;
};

struct Window {
  long id = 0;
  int type = 1;
  std::string title;
  std::vector<Layer> layers;                                 // mappers
  std::string table;                                         // browsers
  std::vector<std::pair<std::string, std::string>> printer;  // printer settings, by upper-cased word
};

class Windows {
 public:
  long OpenMapper(const std::vector<std::string>& tables);
  long OpenBrowser(const std::string& table);
  void Close(long id);
  // 0 stands for the front window; throws HostError for an unknown id.
  Window& Require(long id);
  Window& RequireMapper(long id);
  long Front() const { return m_windows.empty() ? 0 : m_windows.back().id; }
  // Takes a table's layers and browsers away when the table closes.
  void ForgetTable(const std::string& table);
  const std::vector<Window>& All() const { return m_windows; }
  Window* Find(long id);

 private:
  std::vector<Window> m_windows;  // the front window last
  long m_nNextId = 1001;
};

}  // namespace sim
