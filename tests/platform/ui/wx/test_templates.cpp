#include "test_templates.h"

#include <fstream>
#include <initializer_list>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "platform/ui/dialog_view.h"

namespace {

// The template `id` from templates/<id>.xrc, with the controls the view
// looks for. The text lives as long as the template.
fk::ui::DialogTemplate Make(unsigned id, const char* title, std::initializer_list<int> controls) {
  static std::vector<std::unique_ptr<std::string>> texts;
  std::ifstream file(FORMKIT_SOURCE_DIR "/tests/platform/ui/wx/templates/" + std::to_string(id) + ".xrc");
  std::ostringstream text;
  text << file.rdbuf();
  fk::ui::DialogTemplate made;
  made.id = id;
  made.xrc = *texts.emplace_back(std::make_unique<std::string>(text.str()));
  made.title = title;
  for (int control : controls) made.controls[control] = {};
  return made;
}

}  // namespace

const fk::ui::DialogTemplate& EveryControlTemplate() {
  static const fk::ui::DialogTemplate made = Make(9001, "Every Control",
                                                  {EDIT, LABEL, TRISTATE, RADIO_ONE, RADIO_TWO, LIST, COMBO, CHOICE,
                                                   REPORT, ACT, fk::ui::IDOK, fk::ui::IDCANCEL});
  return made;
}

const fk::ui::DialogTemplate& FirstPageTemplate() {
  static const fk::ui::DialogTemplate made = Make(9101, "Columns", {1201, 1202});
  return made;
}

const fk::ui::DialogTemplate& SecondPageTemplate() {
  static const fk::ui::DialogTemplate made = Make(9102, "Output", {1301});
  return made;
}
