// A dialog box in memory: the controls of its template with their state.
// Reading or writing a control the template doesn't have, or using a
// control as what it is not (a button as a list), is a fault of the dialog
// box's code and throws std::logic_error.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/ui/dialog_template.h"
#include "platform/ui/dialog_view.h"

namespace fk::ui {

struct HeadlessEntry {
  std::string text;
  std::intptr_t data = 0;
  bool selected = false;
};

struct HeadlessRow {
  std::vector<std::string> texts;
  std::intptr_t data = 0;
  bool checked = false;
  bool selected = false;
};

struct HeadlessControl {
  std::string kind;
  std::string text;
  bool sorted = false;  // entries go where they sort, not at the end
  int check = 0;
  bool enabled = true;
  bool shown = true;
  std::vector<HeadlessEntry> entries;                  // list and combo boxes
  int current = -1;                                    // combo boxes
  std::vector<std::pair<std::string, int>> columns;    // list controls: title, width
  std::vector<HeadlessRow> rows;                       // list controls
};

class HeadlessView : public DialogView {
 public:
  explicit HeadlessView(const DialogTemplate& dialogTemplate);

  void SetTitle(const std::string& title) override { m_strTitle = title; }
  std::string Title() const override { return m_strTitle; }
  void SetText(int id, const std::string& text) override { Get(id).text = text; }
  std::string Text(int id) const override { return Get(id).text; }
  void SetCheck(int id, int state) override { Get(id).check = state; }
  int Check(int id) const override { return Get(id).check; }
  void Enable(int id, bool enable) override { Get(id).enabled = enable; }
  bool IsEnabled(int id) const override { return Get(id).enabled; }
  void Show(int id, bool show) override { Get(id).shown = show; }
  bool IsShown(int id) const override { return Get(id).shown; }
  void SetFocus(int id) override {
    Get(id);
    m_nFocus = id;
  }

  int ListAdd(int id, const std::string& text) override;
  void ListDelete(int id, int index) override;
  void ListClear(int id) override { List(id).entries.clear(); }
  int ListCount(int id) const override { return static_cast<int>(List(id).entries.size()); }
  std::string ListText(int id, int index) const override { return ListEntry(id, index).text; }
  void ListSetData(int id, int index, std::intptr_t data) override { ListEntry(id, index).data = data; }
  std::intptr_t ListData(int id, int index) const override { return ListEntry(id, index).data; }
  void ListSelect(int id, int index, bool selected) override { ListEntry(id, index).selected = selected; }
  bool ListIsSelected(int id, int index) const override { return ListEntry(id, index).selected; }

  int ComboAdd(int id, const std::string& text) override;
  void ComboClear(int id) override;
  int ComboCount(int id) const override { return static_cast<int>(Combo(id).entries.size()); }
  std::string ComboText(int id, int index) const override { return ComboEntry(id, index).text; }
  void ComboSetData(int id, int index, std::intptr_t data) override { ComboEntry(id, index).data = data; }
  std::intptr_t ComboData(int id, int index) const override { return ComboEntry(id, index).data; }
  void ComboSetCurSel(int id, int index) override;
  int ComboCurSel(int id) const override { return Combo(id).current; }

  void ListCtrlInsertColumn(int id, int column, const std::string& title, int width) override;
  int ListCtrlColumnWidth(int id, int column) const override;
  int ListCtrlInsertRow(int id, int row, const std::string& text) override;
  void ListCtrlSetText(int id, int row, int column, const std::string& text) override;
  std::string ListCtrlText(int id, int row, int column) const override;
  int ListCtrlRowCount(int id) const override { return static_cast<int>(ListCtrl(id).rows.size()); }
  void ListCtrlDeleteRow(int id, int row) override;
  void ListCtrlDeleteAll(int id) override { ListCtrl(id).rows.clear(); }
  void ListCtrlSetCheck(int id, int row, bool checked) override { Row(id, row).checked = checked; }
  bool ListCtrlCheck(int id, int row) const override { return Row(id, row).checked; }
  void ListCtrlSelect(int id, int row, bool selected) override { Row(id, row).selected = selected; }
  bool ListCtrlIsSelected(int id, int row) const override { return Row(id, row).selected; }
  void ListCtrlSetData(int id, int row, std::intptr_t data) override { Row(id, row).data = data; }
  std::intptr_t ListCtrlData(int id, int row) const override { return Row(id, row).data; }

  void EndDialog(int result) override { m_result = result; }

  std::optional<int> Result() const { return m_result; }
  int Focus() const { return m_nFocus; }
  unsigned TemplateId() const { return m_nTemplateId; }
  const HeadlessControl& Control(int id) const { return Get(id); }
  // The texts of a list box, in order.
  std::vector<std::string> ListTexts(int id) const;

 private:
  HeadlessControl& Get(int id);
  const HeadlessControl& Get(int id) const;
  HeadlessControl& OfKind(int id, std::initializer_list<const char*> kinds);
  const HeadlessControl& OfKind(int id, std::initializer_list<const char*> kinds) const;
  HeadlessControl& List(int id) { return OfKind(id, {"wxListBox", "wxCheckListBox"}); }
  const HeadlessControl& List(int id) const { return OfKind(id, {"wxListBox", "wxCheckListBox"}); }
  HeadlessControl& Combo(int id) { return OfKind(id, {"wxComboBox", "wxChoice"}); }
  const HeadlessControl& Combo(int id) const { return OfKind(id, {"wxComboBox", "wxChoice"}); }
  HeadlessControl& ListCtrl(int id) { return OfKind(id, {"wxListCtrl"}); }
  const HeadlessControl& ListCtrl(int id) const { return OfKind(id, {"wxListCtrl"}); }
  HeadlessEntry& ListEntry(int id, int index);
  const HeadlessEntry& ListEntry(int id, int index) const;
  HeadlessEntry& ComboEntry(int id, int index);
  const HeadlessEntry& ComboEntry(int id, int index) const;
  HeadlessRow& Row(int id, int row);
  const HeadlessRow& Row(int id, int row) const;

  unsigned m_nTemplateId;
  std::string m_strTitle;
  std::map<int, HeadlessControl> m_controls;
  std::optional<int> m_result;
  int m_nFocus = 0;
};

}  // namespace fk::ui
