#include "test_templates.h"

#include <fstream>
#include <iterator>
#include <map>
#include <string>

const fk::ui::DialogTemplate& TestTemplate(unsigned id) {
  static std::map<unsigned, std::pair<std::string, fk::ui::DialogTemplate>> templates;  // the text and its template
  auto [it, added] = templates.try_emplace(id);
  if (added) {
    std::ifstream file(FORMKIT_SOURCE_DIR "/tests/platform/ui/wx/templates/" + std::to_string(id) + ".xrc");
    it->second.first.assign(std::istreambuf_iterator<char>(file), {});
    it->second.second = fk::ui::ReadDialogTemplate(id, it->second.first.c_str());
  }
  return it->second.second;
}
