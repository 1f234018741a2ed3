#include "test_templates.h"

#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "platform/ui/dialog_view.h"

const fk::ui::DialogTemplate& TestTemplate(unsigned id) {
  struct Made {
    std::string xrc;
    fk::ui::DialogTemplate made;
  };
  static std::map<unsigned, Made> templates;
  if (auto it = templates.find(id); it != templates.end()) return it->second.made;
  const std::map<unsigned, std::pair<const char*, std::vector<int>>> titlesAndControls = {
      {9001,
       {"Every Control",
        {EDIT, LABEL, TRISTATE, RADIO_ONE, RADIO_TWO, LIST, COMBO, CHOICE, REPORT, ACT, fk::ui::IDOK,
         fk::ui::IDCANCEL}}},
      {9101, {"Columns", {1201, 1202}}},
      {9102, {"Output", {1301}}}};
  Made& made = templates[id];
  std::ifstream file(FORMKIT_SOURCE_DIR "/tests/platform/ui/wx/templates/" + std::to_string(id) + ".xrc");
  std::ostringstream text;
  text << file.rdbuf();
  made.xrc = text.str();
  made.made.id = id;
  made.made.xrc = made.xrc;
  made.made.title = titlesAndControls.at(id).first;
  for (int control : titlesAndControls.at(id).second) made.made.controls[control] = {};
  return made.made;
}
