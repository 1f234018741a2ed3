// A dialog box whose code the test writes, over any template. It keeps a
// record of every call the backend made: "init", "ok", "cancel",
// "button <id>", "selection <id>", "row <id> <row>".
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/ui/dialog_controller.h"

class ProbeDialog : public fk::ui::DialogController {
 public:
  explicit ProbeDialog(unsigned templateId) : fk::ui::DialogController(templateId) {}

  std::function<void(fk::ui::DialogView&)> onInit;
  std::function<void(fk::ui::DialogView&, fk::ui::Prompter&, int)> onButton;
  // OK and Cancel are refused this many times before they end the box.
  int refuseOK = 0;
  int refuseCancel = 0;
  std::vector<std::string> calls;

  bool OnInitDialog() override {
    calls.push_back("init");
    if (onInit) onInit(View());
    return true;
  }
  void OnSelectionChange(int id) override { calls.push_back("selection " + std::to_string(id)); }
  void OnListCtrlCheck(int id, int row) override {
    calls.push_back("row " + std::to_string(id) + " " + std::to_string(row));
  }
  fk::ui::DialogView& ItsView() const { return View(); }

 protected:
  void OnOK() override { End("ok", refuseOK, fk::ui::IDOK); }
  void OnCancel() override { End("cancel", refuseCancel, fk::ui::IDCANCEL); }
  void OnButton(int id) override {
    calls.push_back("button " + std::to_string(id));
    if (onButton) onButton(View(), Prompt(), id);
  }

 private:
  void End(const char* call, int& refusals, int result) {
    calls.push_back(call);
    if (refusals > 0)
      --refusals;
    else
      EndDialog(result);
  }
};
