// "Select Table": a path typed, or picked with the "..." button.
#pragma once

#include <string>

#include "platform/ui/dialog_controller.h"

class CSelectFile : public fk::ui::DialogController {
 public:
  enum { IDD = 1009 };
  enum Controls { IDC_PATH = 1074, IDC_BROWSE = 1075 };

  CSelectFile() : fk::ui::DialogController(IDD) {}

  bool OnInitDialog() override;

  std::string m_strPath;

 protected:
  void OnOK() override;
  void OnButton(int id) override;
};
