// Dialog templates made for the toolkit tests: a box with a control of
// every kind the dialog view knows, and two pages for a property sheet.
// They are given to the backend the way the library gives its own.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/ui/dialog_controller.h"
#include "platform/ui/dialog_template.h"

// Controls of the box with every kind.
enum EveryControl {
  EDIT = 1100,
  LABEL = 1101,
  TRISTATE = 1102,
  RADIO_ONE = 1103,
  RADIO_TWO = 1104,
  LIST = 1105,
  COMBO = 1106,
  CHOICE = 1107,
  REPORT = 1108,
  ACT = 1109,
};

const fk::ui::DialogTemplate& EveryControlTemplate();
// Pages: the first has a list and a button, the second an edit control.
const fk::ui::DialogTemplate& FirstPageTemplate();
const fk::ui::DialogTemplate& SecondPageTemplate();

// A dialog box whose code the test writes, and which keeps a record of
// every call the backend made: "init", "ok", "cancel", "button <id>",
// "selection <id>", "row <id> <row>".
class ProbeDialog : public fk::ui::DialogController {
 public:
  explicit ProbeDialog(unsigned templateId) : fk::ui::DialogController(templateId) {}

  std::function<void(fk::ui::DialogView&)> onInit;
  std::function<void(fk::ui::DialogView&, fk::ui::Prompter&, int)> onButton;
  // OK and Cancel are refused this many times before they end the box.
  int refuseOK = 0;
  int refuseCancel = 0;
  std::vector<std::string> calls;

  bool OnInitDialog() override;
  void OnSelectionChange(int id) override { calls.push_back("selection " + std::to_string(id)); }
  void OnListCtrlCheck(int id, int row) override {
    calls.push_back("row " + std::to_string(id) + " " + std::to_string(row));
  }
  fk::ui::DialogView& ItsView() const { return View(); }

 protected:
  void OnOK() override;
  void OnCancel() override;
  void OnButton(int id) override;
};
