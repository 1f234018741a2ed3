#include "platform/ui/wx/wx_dialog_view.h"

#include <wx/bookctrl.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/combobox.h>
#include <wx/listbox.h>
#include <wx/listctrl.h>
#include <wx/radiobut.h>
#include <wx/textentry.h>
#include <wx/tglbtn.h>
#include <wx/toplevel.h>

#include <algorithm>
#include <stdexcept>

#include "platform/ui/wx/wx_text.h"

namespace fk::ui {
namespace {

// The page of a property sheet: its title is its tab's text.
wxBookCtrlBase* BookOf(wxWindow& page) { return dynamic_cast<wxBookCtrlBase*>(page.GetParent()); }
std::size_t PageOf(wxBookCtrlBase& book, wxWindow& page) { return static_cast<std::size_t>(book.FindPage(&page)); }

std::intptr_t UntypedData(const wxItemContainer& items, int index) {
  if (!items.HasClientUntypedData()) return 0;
  return reinterpret_cast<std::intptr_t>(items.GetClientData(static_cast<unsigned>(index)));
}

// The control named `name` inside the dialog box, not the box itself: a
// box may bear the number of one of its controls.
wxWindow* FindControl(wxWindow& root, const wxString& name) {
  for (wxWindow* child : root.GetChildren())
    if (wxWindow* found = wxWindow::FindWindowByName(name, child)) return found;
  return nullptr;
}

}  // namespace

WxDialogView::WxDialogView(wxWindow& root, const DialogTemplate& dialogTemplate, std::function<void(int)> end)
    : m_root(root), m_nTemplateId(dialogTemplate.id), m_end(std::move(end)) {
  for (const auto& [id, control] : dialogTemplate.controls)
    if (wxWindow* window = FindControl(root, wxString::Format("%d", id))) m_controls[id] = window;
}

void WxDialogView::Fault(int id, const std::string& what) const {
  throw std::logic_error("dialog " + std::to_string(m_nTemplateId) + ", control " + std::to_string(id) + ": " + what);
}

wxWindow& WxDialogView::Control(int id) const {
  auto it = m_controls.find(id);
  if (it == m_controls.end())
    throw std::logic_error("dialog " + std::to_string(m_nTemplateId) + " has no control " + std::to_string(id));
  return *it->second;
}

wxListBox& WxDialogView::List(int id) const {
  auto* list = dynamic_cast<wxListBox*>(&Control(id));
  if (!list) Fault(id, "not a list box");
  return *list;
}

wxItemContainer& WxDialogView::Combo(int id) const {
  wxWindow& control = Control(id);
  if (!dynamic_cast<wxComboBox*>(&control) && !dynamic_cast<wxChoice*>(&control)) Fault(id, "not a combo box");
  return *dynamic_cast<wxItemContainer*>(&control);
}

wxListCtrl& WxDialogView::ListCtrl(int id) const {
  auto* list = dynamic_cast<wxListCtrl*>(&Control(id));
  if (!list) Fault(id, "not a list control");
  return *list;
}

void WxDialogView::RequireEntry(int id, int index, int count) const {
  if (index < 0 || index >= count) Fault(id, "no entry " + std::to_string(index));
}

void WxDialogView::RequireRow(int id, int row) const {
  RequireEntry(id, row, ListCtrl(id).GetItemCount());
}

int WxDialogView::ControlNumber(const wxWindow* window) const {
  for (const auto& [id, control] : m_controls)
    if (control == window) return id;
  return -1;
}

// ------------------------------------------------------------------ any control

void WxDialogView::SetTitle(const std::string& title) {
  if (auto* top = dynamic_cast<wxTopLevelWindow*>(&m_root))
    top->SetTitle(ToWx(title));
  else if (wxBookCtrlBase* book = BookOf(m_root))
    book->SetPageText(PageOf(*book, m_root), ToWx(title));
}

std::string WxDialogView::Title() const {
  if (auto* top = dynamic_cast<wxTopLevelWindow*>(&m_root)) return FromWx(top->GetTitle());
  if (wxBookCtrlBase* book = BookOf(m_root)) return FromWx(book->GetPageText(PageOf(*book, m_root)));
  return {};
}

void WxDialogView::SetText(int id, const std::string& text) {
  wxWindow& control = Control(id);
  if (auto* entry = dynamic_cast<wxTextEntry*>(&control)) {
    entry->ChangeValue(ToWx(text));
  } else if (auto* choice = dynamic_cast<wxChoice*>(&control)) {
    choice->SetStringSelection(ToWx(text));
  } else {
    control.SetLabel(ToWx(text));
    m_root.Layout();
  }
}

std::string WxDialogView::Text(int id) const {
  wxWindow& control = Control(id);
  if (auto* entry = dynamic_cast<wxTextEntry*>(&control)) return FromWx(entry->GetValue());
  if (auto* choice = dynamic_cast<wxChoice*>(&control)) return FromWx(choice->GetStringSelection());
  return FromWx(control.GetLabel());
}

// A control that can't be checked keeps no check, as on the system.
void WxDialogView::SetCheck(int id, int state) {
  wxWindow& control = Control(id);
  if (auto* box = dynamic_cast<wxCheckBox*>(&control)) {
    if (box->Is3State())
      box->Set3StateValue(state == 2 ? wxCHK_UNDETERMINED : state ? wxCHK_CHECKED : wxCHK_UNCHECKED);
    else
      box->SetValue(state != 0);
  } else if (auto* radio = dynamic_cast<wxRadioButton*>(&control)) {
    radio->SetValue(state != 0);
  } else if (auto* toggle = dynamic_cast<wxToggleButton*>(&control)) {
    toggle->SetValue(state != 0);
  }
}

int WxDialogView::Check(int id) const {
  wxWindow& control = Control(id);
  if (auto* box = dynamic_cast<wxCheckBox*>(&control)) {
    if (!box->Is3State()) return box->GetValue() ? 1 : 0;
    const wxCheckBoxState state = box->Get3StateValue();
    return state == wxCHK_UNDETERMINED ? 2 : state == wxCHK_CHECKED ? 1 : 0;
  }
  if (auto* radio = dynamic_cast<wxRadioButton*>(&control)) return radio->GetValue() ? 1 : 0;
  if (auto* toggle = dynamic_cast<wxToggleButton*>(&control)) return toggle->GetValue() ? 1 : 0;
  return 0;
}

void WxDialogView::Enable(int id, bool enable) { Control(id).Enable(enable); }
bool WxDialogView::IsEnabled(int id) const { return Control(id).IsThisEnabled(); }

// The template's sizers give a shown control its room and take a hidden
// one's.
void WxDialogView::Show(int id, bool show) {
  if (Control(id).Show(show)) m_root.Layout();
}

bool WxDialogView::IsShown(int id) const { return Control(id).IsShown(); }
void WxDialogView::SetFocus(int id) { Control(id).SetFocus(); }

// ------------------------------------------------------------------ list boxes

int WxDialogView::ListAdd(int id, const std::string& text) { return List(id).Append(ToWx(text)); }

void WxDialogView::ListDelete(int id, int index) {
  wxListBox& list = List(id);
  RequireEntry(id, index, static_cast<int>(list.GetCount()));
  list.Delete(static_cast<unsigned>(index));
}

void WxDialogView::ListClear(int id) { List(id).Clear(); }
int WxDialogView::ListCount(int id) const { return static_cast<int>(List(id).GetCount()); }

std::string WxDialogView::ListText(int id, int index) const {
  RequireEntry(id, index, ListCount(id));
  return FromWx(List(id).GetString(static_cast<unsigned>(index)));
}

void WxDialogView::ListSetData(int id, int index, std::intptr_t data) {
  RequireEntry(id, index, ListCount(id));
  List(id).SetClientData(static_cast<unsigned>(index), reinterpret_cast<void*>(data));
}

std::intptr_t WxDialogView::ListData(int id, int index) const {
  RequireEntry(id, index, ListCount(id));
  return UntypedData(List(id), index);
}

void WxDialogView::ListSelect(int id, int index, bool selected) {
  RequireEntry(id, index, ListCount(id));
  if (selected)
    List(id).Select(index);
  else
    List(id).Deselect(index);
}

bool WxDialogView::ListIsSelected(int id, int index) const {
  RequireEntry(id, index, ListCount(id));
  return List(id).IsSelected(index);
}

// ------------------------------------------------------------------ combo boxes

int WxDialogView::ComboAdd(int id, const std::string& text) { return Combo(id).Append(ToWx(text)); }
void WxDialogView::ComboClear(int id) { Combo(id).Clear(); }
int WxDialogView::ComboCount(int id) const { return static_cast<int>(Combo(id).GetCount()); }

std::string WxDialogView::ComboText(int id, int index) const {
  RequireEntry(id, index, ComboCount(id));
  return FromWx(Combo(id).GetString(static_cast<unsigned>(index)));
}

void WxDialogView::ComboSetData(int id, int index, std::intptr_t data) {
  RequireEntry(id, index, ComboCount(id));
  Combo(id).SetClientData(static_cast<unsigned>(index), reinterpret_cast<void*>(data));
}

std::intptr_t WxDialogView::ComboData(int id, int index) const {
  RequireEntry(id, index, ComboCount(id));
  return UntypedData(Combo(id), index);
}

// -1 leaves no entry current, and an editable combo box empty.
void WxDialogView::ComboSetCurSel(int id, int index) {
  wxItemContainer& combo = Combo(id);
  if (index >= 0) RequireEntry(id, index, ComboCount(id));
  combo.SetSelection(index >= 0 ? index : wxNOT_FOUND);
  if (index < 0)
    if (auto* entry = dynamic_cast<wxTextEntry*>(&Control(id))) entry->ChangeValue(wxString());
}

int WxDialogView::ComboCurSel(int id) const {
  const int current = Combo(id).GetSelection();
  return current == wxNOT_FOUND ? -1 : current;
}

// ------------------------------------------------------------------ list controls

void WxDialogView::ListCtrlInsertColumn(int id, int column, const std::string& title, int width) {
  wxListCtrl& list = ListCtrl(id);
  if (!list.InReportView()) list.SetSingleStyle(wxLC_REPORT);
  const int at = std::clamp(column, 0, list.GetColumnCount());
  list.InsertColumn(at, ToWx(title), wxLIST_FORMAT_LEFT, width);
}

int WxDialogView::ListCtrlColumnWidth(int id, int column) const {
  wxListCtrl& list = ListCtrl(id);
  if (column < 0 || column >= list.GetColumnCount()) Fault(id, "no column " + std::to_string(column));
  return list.GetColumnWidth(column);
}

int WxDialogView::ListCtrlInsertRow(int id, int row, const std::string& text) {
  wxListCtrl& list = ListCtrl(id);
  if (list.InReportView() && list.GetColumnCount() == 0) Fault(id, "a row needs a column to stand in");
  const long at = std::clamp(row, 0, list.GetItemCount());
  return static_cast<int>(list.InsertItem(at, ToWx(text)));
}

// A column the control doesn't have shows no text, as on the system.
void WxDialogView::ListCtrlSetText(int id, int row, int column, const std::string& text) {
  RequireRow(id, row);
  if (column < 0) Fault(id, "negative list control column");
  wxListCtrl& list = ListCtrl(id);
  if (column < std::max(list.GetColumnCount(), 1)) list.SetItem(row, column, ToWx(text));
}

std::string WxDialogView::ListCtrlText(int id, int row, int column) const {
  RequireRow(id, row);
  wxListCtrl& list = ListCtrl(id);
  if (column < 0 || column >= std::max(list.GetColumnCount(), 1)) return {};
  return FromWx(list.GetItemText(row, column));
}

int WxDialogView::ListCtrlRowCount(int id) const { return ListCtrl(id).GetItemCount(); }

void WxDialogView::ListCtrlDeleteRow(int id, int row) {
  RequireRow(id, row);
  ListCtrl(id).DeleteItem(row);
}

void WxDialogView::ListCtrlDeleteAll(int id) { ListCtrl(id).DeleteAllItems(); }

// The rows get their check boxes when the dialog box first sets a check.
void WxDialogView::ListCtrlSetCheck(int id, int row, bool checked) {
  RequireRow(id, row);
  wxListCtrl& list = ListCtrl(id);
  if (!list.HasCheckBoxes()) list.EnableCheckBoxes(true);
  m_bChangingChecks = true;
  list.CheckItem(row, checked);
  m_bChangingChecks = false;
}

bool WxDialogView::ListCtrlCheck(int id, int row) const {
  RequireRow(id, row);
  wxListCtrl& list = ListCtrl(id);
  return list.HasCheckBoxes() && list.IsItemChecked(row);
}

void WxDialogView::ListCtrlSelect(int id, int row, bool selected) {
  RequireRow(id, row);
  ListCtrl(id).SetItemState(row, selected ? wxLIST_STATE_SELECTED : 0, wxLIST_STATE_SELECTED);
}

bool WxDialogView::ListCtrlIsSelected(int id, int row) const {
  RequireRow(id, row);
  return ListCtrl(id).GetItemState(row, wxLIST_STATE_SELECTED) != 0;
}

void WxDialogView::ListCtrlSetData(int id, int row, std::intptr_t data) {
  RequireRow(id, row);
  ListCtrl(id).SetItemPtrData(row, static_cast<wxUIntPtr>(data));
}

std::intptr_t WxDialogView::ListCtrlData(int id, int row) const {
  RequireRow(id, row);
  return static_cast<std::intptr_t>(ListCtrl(id).GetItemData(row));
}

// ------------------------------------------------------------------ the end

void WxDialogView::EndDialog(int result) {
  m_result = result;
  if (m_end) m_end(result);
}

}  // namespace fk::ui
