// Dialog templates by resource number, compiled into the library from
// resources/dialogs/<number>.xrc, and the controls each one declares.
#pragma once

#include <map>
#include <string>
#include <string_view>

namespace fk::ui {

struct TemplateControl {
  std::string kind;   // the toolkit class of the control, e.g. "wxListBox"
  std::string label;  // its text in the template
  bool sorted = false;  // a list or combo box that keeps its entries sorted (wxLB_SORT, wxCB_SORT)
};

struct DialogTemplate {
  unsigned id = 0;
  std::string_view xrc;                    // the template's text
  std::string title;                       // the dialog's own title
  std::map<int, TemplateControl> controls; // by the system's control id
};

// The template `id`; throws std::out_of_range when the library has none.
const DialogTemplate& GetDialogTemplate(unsigned id);
// The template `id` read from its XRC text, which must outlive it; throws
// std::runtime_error when the text is no template.
DialogTemplate ReadDialogTemplate(unsigned id, const char* xrc);

}  // namespace fk::ui
