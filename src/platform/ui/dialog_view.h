// What a dialog box controller sees of its window: controls addressed by
// the system's control ids. A backend implements it over a real window or
// over memory. The controller never sees a toolkit.
#pragma once

#include <cstdint>
#include <string>

namespace fk::ui {

// Dialog results and the ids of the OK and Cancel buttons.
enum DialogResult : int { IDOK = 1, IDCANCEL = 2, IDYES = 6, IDNO = 7 };

class DialogView {
 public:
  virtual ~DialogView() = default;

  virtual void SetTitle(const std::string& title) = 0;
  virtual std::string Title() const = 0;

  // Any control: its text (label, edit contents), check state, enabled,
  // shown, focus.
  virtual void SetText(int id, const std::string& text) = 0;
  virtual std::string Text(int id) const = 0;
  virtual void SetCheck(int id, int state) = 0;
  virtual int Check(int id) const = 0;
  virtual void Enable(int id, bool enable) = 0;
  virtual bool IsEnabled(int id) const = 0;
  virtual void Show(int id, bool show) = 0;
  virtual bool IsShown(int id) const = 0;
  virtual void SetFocus(int id) = 0;

  // List boxes: entries with item data; several may be selected.
  virtual int ListAdd(int id, const std::string& text) = 0;
  virtual void ListDelete(int id, int index) = 0;
  virtual void ListClear(int id) = 0;
  virtual int ListCount(int id) const = 0;
  virtual std::string ListText(int id, int index) const = 0;
  virtual void ListSetData(int id, int index, std::intptr_t data) = 0;
  virtual std::intptr_t ListData(int id, int index) const = 0;
  virtual void ListSelect(int id, int index, bool selected) = 0;
  virtual bool ListIsSelected(int id, int index) const = 0;

  // Combo boxes: entries with item data and one current entry (-1 for none).
  virtual int ComboAdd(int id, const std::string& text) = 0;
  virtual void ComboClear(int id) = 0;
  virtual int ComboCount(int id) const = 0;
  virtual std::string ComboText(int id, int index) const = 0;
  virtual void ComboSetData(int id, int index, std::intptr_t data) = 0;
  virtual std::intptr_t ComboData(int id, int index) const = 0;
  virtual void ComboSetCurSel(int id, int index) = 0;
  virtual int ComboCurSel(int id) const = 0;

  // List controls in report form: columns with widths, rows of texts with a
  // check box and item data.
  virtual void ListCtrlInsertColumn(int id, int column, const std::string& title, int width) = 0;
  virtual int ListCtrlColumnWidth(int id, int column) const = 0;
  virtual int ListCtrlInsertRow(int id, int row, const std::string& text) = 0;
  virtual void ListCtrlSetText(int id, int row, int column, const std::string& text) = 0;
  virtual std::string ListCtrlText(int id, int row, int column) const = 0;
  virtual int ListCtrlRowCount(int id) const = 0;
  virtual void ListCtrlDeleteRow(int id, int row) = 0;
  virtual void ListCtrlDeleteAll(int id) = 0;
  virtual void ListCtrlSetCheck(int id, int row, bool checked) = 0;
  virtual bool ListCtrlCheck(int id, int row) const = 0;
  virtual void ListCtrlSelect(int id, int row, bool selected) = 0;
  virtual bool ListCtrlIsSelected(int id, int row) const = 0;
  virtual void ListCtrlSetData(int id, int row, std::intptr_t data) = 0;
  virtual std::intptr_t ListCtrlData(int id, int row) const = 0;

  // Ends the modal run with `result`.
  virtual void EndDialog(int result) = 0;
};

}  // namespace fk::ui
