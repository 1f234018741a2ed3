#include "test_templates.h"

#include "platform/ui/dialog_view.h"

namespace {

constexpr const char* kEveryControl = R"(<?xml version="1.0" encoding="UTF-8"?>
<resource xmlns="http://www.wxwidgets.org/wxxrc" version="2.5.3.0">
  <object class="wxDialog" name="9001">
    <title>Every Control</title>
    <object class="wxBoxSizer">
      <orient>wxVERTICAL</orient>
      <object class="sizeritem"><flag>wxALL|wxEXPAND</flag><border>4</border>
        <object class="wxTextCtrl" name="1100"><value>start</value></object></object>
      <object class="sizeritem"><flag>wxALL</flag><border>4</border>
        <object class="wxStaticText" name="1101"><label>Label</label></object></object>
      <object class="sizeritem"><flag>wxALL</flag><border>4</border>
        <object class="wxCheckBox" name="1102"><label>Three states</label><style>wxCHK_3STATE</style></object></object>
      <object class="sizeritem"><flag>wxALL</flag><border>4</border>
        <object class="wxRadioButton" name="1103"><label>One</label><style>wxRB_GROUP</style></object></object>
      <object class="sizeritem"><flag>wxALL</flag><border>4</border>
        <object class="wxRadioButton" name="1104"><label>Two</label></object></object>
      <object class="sizeritem"><flag>wxALL|wxEXPAND</flag><border>4</border>
        <object class="wxListBox" name="1105"><size>-1,80</size><style>wxLB_EXTENDED</style></object></object>
      <object class="sizeritem"><flag>wxALL|wxEXPAND</flag><border>4</border>
        <object class="wxComboBox" name="1106"><style>wxCB_DROPDOWN</style></object></object>
      <object class="sizeritem"><flag>wxALL|wxEXPAND</flag><border>4</border>
        <object class="wxChoice" name="1107"/></object>
      <object class="sizeritem"><flag>wxALL|wxEXPAND</flag><border>4</border>
        <object class="wxListCtrl" name="1108"><size>320,120</size><style>wxLC_REPORT</style></object></object>
      <object class="sizeritem"><flag>wxALL</flag><border>4</border>
        <object class="wxButton" name="1109"><label>Act</label></object></object>
      <object class="sizeritem"><flag>wxALL|wxALIGN_RIGHT</flag><border>4</border>
        <object class="wxBoxSizer"><orient>wxHORIZONTAL</orient>
          <object class="sizeritem"><object class="wxButton" name="1"><label>OK</label></object></object>
          <object class="sizeritem"><object class="wxButton" name="2"><label>Cancel</label></object></object>
        </object></object>
    </object>
  </object>
</resource>
)";

constexpr const char* kFirstPage = R"(<?xml version="1.0" encoding="UTF-8"?>
<resource xmlns="http://www.wxwidgets.org/wxxrc" version="2.5.3.0">
  <object class="wxDialog" name="9101">
    <title>Columns</title>
    <style>wxDEFAULT_DIALOG_STYLE</style>
    <object class="wxBoxSizer">
      <orient>wxVERTICAL</orient>
      <object class="sizeritem"><flag>wxALL|wxEXPAND</flag><border>8</border>
        <object class="wxListBox" name="1201"><size>200,100</size></object></object>
      <object class="sizeritem"><flag>wxALL</flag><border>8</border>
        <object class="wxButton" name="1202"><label>Add</label></object></object>
    </object>
  </object>
</resource>
)";

constexpr const char* kSecondPage = R"(<?xml version="1.0" encoding="UTF-8"?>
<resource xmlns="http://www.wxwidgets.org/wxxrc" version="2.5.3.0">
  <object class="wxDialog" name="9102">
    <title>Output</title>
    <object class="wxBoxSizer">
      <orient>wxVERTICAL</orient>
      <object class="sizeritem"><flag>wxALL|wxEXPAND</flag><border>8</border>
        <object class="wxTextCtrl" name="1301"><size>200,-1</size></object></object>
    </object>
  </object>
</resource>
)";

fk::ui::DialogTemplate Make(unsigned id, const char* xrc, const char* title,
                            std::map<int, fk::ui::TemplateControl> controls) {
  fk::ui::DialogTemplate made;
  made.id = id;
  made.xrc = xrc;
  made.title = title;
  made.controls = std::move(controls);
  return made;
}

}  // namespace

const fk::ui::DialogTemplate& EveryControlTemplate() {
  static const fk::ui::DialogTemplate made =
      Make(9001, kEveryControl, "Every Control",
           {{EDIT, {"wxTextCtrl", ""}},       {LABEL, {"wxStaticText", "Label"}},
            {TRISTATE, {"wxCheckBox", ""}},   {RADIO_ONE, {"wxRadioButton", "One"}},
            {RADIO_TWO, {"wxRadioButton", ""}}, {LIST, {"wxListBox", ""}},
            {COMBO, {"wxComboBox", ""}},      {CHOICE, {"wxChoice", ""}},
            {REPORT, {"wxListCtrl", ""}},     {ACT, {"wxButton", "Act"}},
            {fk::ui::IDOK, {"wxButton", "OK"}}, {fk::ui::IDCANCEL, {"wxButton", "Cancel"}}});
  return made;
}

const fk::ui::DialogTemplate& FirstPageTemplate() {
  static const fk::ui::DialogTemplate made =
      Make(9101, kFirstPage, "Columns", {{1201, {"wxListBox", ""}}, {1202, {"wxButton", "Add"}}});
  return made;
}

const fk::ui::DialogTemplate& SecondPageTemplate() {
  static const fk::ui::DialogTemplate made = Make(9102, kSecondPage, "Output", {{1301, {"wxTextCtrl", ""}}});
  return made;
}
