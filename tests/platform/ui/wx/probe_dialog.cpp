#include "probe_dialog.h"

bool ProbeDialog::OnInitDialog() {
  calls.push_back("init");
  if (onInit) onInit(View());
  return true;
}

void ProbeDialog::OnOK() {
  calls.push_back("ok");
  if (refuseOK > 0) {
    --refuseOK;
    return;
  }
  EndDialog(fk::ui::IDOK);
}

void ProbeDialog::OnCancel() {
  calls.push_back("cancel");
  if (refuseCancel > 0) {
    --refuseCancel;
    return;
  }
  EndDialog(fk::ui::IDCANCEL);
}

void ProbeDialog::OnButton(int id) {
  calls.push_back("button " + std::to_string(id));
  if (onButton) onButton(View(), Prompt(), id);
}
