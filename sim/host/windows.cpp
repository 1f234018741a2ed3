#include "windows.h"

#include <algorithm>

#include "errors.h"
#include "text_util.h"

namespace sim {

long Windows::OpenMapper(const std::vector<std::string>& tables) {
  Window window;
  window.id = m_nNextId++;
  window.type = 1;
  std::string title;
  for (const std::string& table : tables) {
    window.layers.push_back(Layer{table});
    title += (title.empty() ? "" : ", ") + table;
  }
  window.title = title + " Map";
  m_windows.push_back(std::move(window));
  return m_windows.back().id;
}

long Windows::OpenBrowser(const std::string& table) {
  Window window;
  window.id = m_nNextId++;
  window.type = 2;
  window.table = table;
  window.title = table + " Browser";
  m_windows.push_back(std::move(window));
  return m_windows.back().id;
}

Window* Windows::Find(long id) {
  if (id == 0) return m_windows.empty() ? nullptr : &m_windows.back();
  for (Window& window : m_windows)
    if (window.id == id) return &window;
  return nullptr;
}

Window& Windows::Require(long id) {
  if (Window* window = Find(id)) return *window;
  if (id == 0) throw HostError("No window is open");
  throw HostError("There is no window " + std::to_string(id));
}

Window& Windows::RequireMapper(long id) {
  Window& window = Require(id);
  if (window.type != 1) throw HostError("Window " + std::to_string(window.id) + " is not a map window");
  return window;
}

void Windows::Close(long id) {
  const long target = Require(id).id;
  std::erase_if(m_windows, [&](const Window& window) { return window.id == target; });
}

void Windows::ForgetTable(const std::string& table) {
  for (Window& window : m_windows)
    std::erase_if(window.layers, [&](const Layer& layer) { return EqualNoCase(layer.table, table); });
  std::erase_if(m_windows, [&](const Window& window) {
    return (window.type == 2 && EqualNoCase(window.table, table)) || (window.type == 1 && window.layers.empty());
  });
}

}  // namespace sim
