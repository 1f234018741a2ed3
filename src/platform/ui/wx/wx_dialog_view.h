// A dialog box's view over toolkit windows: the controls of its template,
// found by their names (the system's control numbers), on a dialog box or
// on a property sheet's page. Using a control the template lacks, a
// control as what it is not (a button as a list), or an entry that isn't
// there is a fault of the dialog box's code and throws std::logic_error,
// as the headless view does.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>

#include "platform/ui/dialog_template.h"
#include "platform/ui/dialog_view.h"

class wxItemContainer;
class wxListBox;
class wxListCtrl;
class wxWindow;

namespace fk::ui {

class WxDialogView : public DialogView {
 public:
  // The controls of `dialogTemplate` below `root`; `end` is called by
  // EndDialog with the result.
  WxDialogView(wxWindow& root, const DialogTemplate& dialogTemplate, std::function<void(int)> end);

  void SetTitle(const std::string& title) override;
  std::string Title() const override;
  void SetText(int id, const std::string& text) override;
  std::string Text(int id) const override;
  void SetCheck(int id, int state) override;
  int Check(int id) const override;
  void Enable(int id, bool enable) override;
  bool IsEnabled(int id) const override;
  void Show(int id, bool show) override;
  bool IsShown(int id) const override;
  void SetFocus(int id) override;

  int ListAdd(int id, const std::string& text) override;
  void ListDelete(int id, int index) override;
  void ListClear(int id) override;
  int ListCount(int id) const override;
  std::string ListText(int id, int index) const override;
  void ListSetData(int id, int index, std::intptr_t data) override;
  std::intptr_t ListData(int id, int index) const override;
  void ListSelect(int id, int index, bool selected) override;
  bool ListIsSelected(int id, int index) const override;

  int ComboAdd(int id, const std::string& text) override;
  void ComboClear(int id) override;
  int ComboCount(int id) const override;
  std::string ComboText(int id, int index) const override;
  void ComboSetData(int id, int index, std::intptr_t data) override;
  std::intptr_t ComboData(int id, int index) const override;
  void ComboSetCurSel(int id, int index) override;
  int ComboCurSel(int id) const override;

  void ListCtrlInsertColumn(int id, int column, const std::string& title, int width) override;
  int ListCtrlColumnWidth(int id, int column) const override;
  int ListCtrlInsertRow(int id, int row, const std::string& text) override;
  void ListCtrlSetText(int id, int row, int column, const std::string& text) override;
  std::string ListCtrlText(int id, int row, int column) const override;
  int ListCtrlRowCount(int id) const override;
  void ListCtrlDeleteRow(int id, int row) override;
  void ListCtrlDeleteAll(int id) override;
  void ListCtrlSetCheck(int id, int row, bool checked) override;
  bool ListCtrlCheck(int id, int row) const override;
  void ListCtrlSelect(int id, int row, bool selected) override;
  bool ListCtrlIsSelected(int id, int row) const override;
  void ListCtrlSetData(int id, int row, std::intptr_t data) override;
  std::intptr_t ListCtrlData(int id, int row) const override;

  void EndDialog(int result) override;

  // The result given to EndDialog, if it was called; the sheet of a page
  // clears it before it asks the page again.
  std::optional<int> Result() const { return m_result; }
  void ClearResult() { m_result.reset(); }
  // The system's number of one of the template's controls; -1 for any
  // other window.
  int ControlNumber(const wxWindow* window) const;
  // True while the view itself changes a list control's checks, whose
  // notices are then not the user's.
  bool IsChangingChecks() const { return m_bChangingChecks; }

 private:
  wxWindow& Control(int id) const;
  wxListBox& List(int id) const;
  wxItemContainer& Combo(int id) const;
  wxListCtrl& ListCtrl(int id) const;
  void RequireEntry(int id, int index, int count) const;
  void RequireRow(int id, int row) const;
  [[noreturn]] void Fault(int id, const std::string& what) const;

  wxWindow& m_root;
  unsigned m_nTemplateId;
  std::map<int, wxWindow*> m_controls;
  std::function<void(int)> m_end;
  std::optional<int> m_result;
  bool m_bChangingChecks = false;
};

}  // namespace fk::ui
