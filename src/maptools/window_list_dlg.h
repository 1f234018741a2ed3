// The choosers by which the add-on's script asks which map windows take
// part in a feature: "Map Linking" for linked mappers and "Cursor Position"
// for a shared cursor. The script gives the windows as item strings (a
// name, or a name, a tab and the text of the second column) with their
// ticks; on OK the ticks come back, with the linking method or the pan flag
// and the cursor symbol. The column widths persist in the box's section.
#pragma once

#include <string>
#include <vector>

#include "platform/ui/dialog_controller.h"

class CWindowListDlg : public fk::ui::DialogController {
 public:
  enum Controls {
    IDC_WINDOWS = 1000,
    IDC_SELECT_ALL = 1003,
    IDC_UNSELECT_ALL = 1004,
    IDC_HELP = 1096,
  };
  struct Columns {
    unsigned nameTitle;  // string ids of the two column titles
    unsigned secondTitle;
    const char* section;  // where the widths are kept
    int helpTopic;
  };

  CWindowListDlg(unsigned templateId, const Columns& columns) : DialogController(templateId), m_Columns(columns) {}

  bool OnInitDialog() override;

  std::vector<std::string> m_Items;
  std::vector<int> m_Ticks;  // one per item: above 0 ticked; 1 or 0 after OK

 protected:
  void OnOK() override;
  void OnButton(int id) override;

 private:
  void TickAll(bool ticked);

  Columns m_Columns;
};

class CLinkedWindowsDlg : public CWindowListDlg {
 public:
  enum { IDD = 1000 };
  enum LinkControls {
    IDC_FIXED_EXTENTS = 1001,
    IDC_FIXED_SCALE = 1002,
    IDC_EXTENTS_TEXT = 1033,
    IDC_SCALE_TEXT = 1034,
  };

  CLinkedWindowsDlg();

  bool OnInitDialog() override;

  int m_nMethod = 0;  // 1 fixed scale, else fixed extents

 protected:
  void OnOK() override;
  void OnButton(int id) override;

 private:
  void ShowMethod(bool fixedScale);
};

class CCurPosDlg : public CWindowListDlg {
 public:
  enum { IDD = 1002 };
  enum CursorControls {
    IDC_PAN = 1025,
    IDC_SYMBOL = 1042,
  };

  CCurPosDlg();

  bool OnInitDialog() override;

  std::string m_strSymbol;
  int m_bPan = 0;

 protected:
  void OnOK() override;
  void OnButton(int id) override;
};
