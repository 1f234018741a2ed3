// The 3D link manager: the session's files and the parts of its composite
// files, each with a check that says whether the 3D window shows it. A
// change of a check changes the viewer at once; the checked files can be
// saved as one permanent OGB file, with their images beside it.
#pragma once

#include "platform/ui/dialog_controller.h"
#include "viewer/viewer_session.h"

class CLinkManagerDlg : public fk::ui::DialogController {
 public:
  enum { IDD = 1016 };
  enum Controls {
    IDC_SAVE_STATE = 1004,
    IDC_LINKS = 1094,
    IDC_HELP = 1096,
  };

  explicit CLinkManagerDlg(ViewerSession session)
      : DialogController(IDD), m_Session(session), m_TempFiles(&session.tempFiles) {}

  bool OnInitDialog() override;
  void OnListCtrlCheck(int id, int row) override;

 protected:
  void OnButton(int id) override;

 private:
  void FillList();
  void AddRowsOf(int view, const CTempFile& record);
  void AddRow(const std::string& title, const std::string& file, bool checked, int part);
  void ApplyRow(int view, int row);
  void ApplyPartRow(int view, int row, CTempFile record, int index);
  void SaveState();

  ViewerSession m_Session;
  int m_bFilled = 0;  // set once the list is filled: filling is no change
  CTempFileArray* m_TempFiles;
};

// The box behind the export: 0 with a message when no viewer runs; else 1
// when it closed with Close.
int RunLinkManager(ViewerSession session);
