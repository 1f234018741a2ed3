#include "platform/ui/headless/headless_view.h"

#include <strings.h>

#include <algorithm>
#include <stdexcept>

namespace fk::ui {
namespace {

template <typename Items>
auto& At(Items& items, int index, unsigned dialog, int id) {
  if (index < 0 || static_cast<std::size_t>(index) >= items.size())
    throw std::logic_error("dialog " + std::to_string(dialog) + ", control " + std::to_string(id) +
                           ": no entry " + std::to_string(index));
  return items[static_cast<std::size_t>(index)];
}

// The order of a sorted list or combo box: ignoring letter case, then as written.
bool SortsBefore(const std::string& a, const std::string& b) {
  const int order = strcasecmp(a.c_str(), b.c_str());
  return order < 0 || (order == 0 && a < b);
}

// Adds an entry at the end, or where it sorts; its index.
int AddEntry(HeadlessControl& control, const std::string& text) {
  auto& entries = control.entries;
  auto at = entries.end();
  if (control.sorted)
    at = std::upper_bound(entries.begin(), entries.end(), text,
                          [](const std::string& t, const HeadlessEntry& entry) { return SortsBefore(t, entry.text); });
  // The insertion may move the entries: the index is taken after it.
  const auto added = entries.insert(at, HeadlessEntry{text});
  return static_cast<int>(added - entries.begin());
}

}  // namespace

HeadlessView::HeadlessView(const DialogTemplate& dialogTemplate)
    : m_nTemplateId(dialogTemplate.id), m_strTitle(dialogTemplate.title) {
  for (const auto& [id, control] : dialogTemplate.controls) {
    HeadlessControl& state = m_controls[id];
    state.kind = control.kind;
    state.text = control.label;
    state.sorted = control.sorted;
  }
}

HeadlessControl& HeadlessView::Get(int id) {
  return const_cast<HeadlessControl&>(static_cast<const HeadlessView*>(this)->Get(id));
}

const HeadlessControl& HeadlessView::Get(int id) const {
  auto it = m_controls.find(id);
  if (it == m_controls.end())
    throw std::logic_error("dialog " + std::to_string(m_nTemplateId) + " has no control " + std::to_string(id));
  return it->second;
}

HeadlessControl& HeadlessView::OfKind(int id, std::initializer_list<const char*> kinds) {
  return const_cast<HeadlessControl&>(static_cast<const HeadlessView*>(this)->OfKind(id, kinds));
}

const HeadlessControl& HeadlessView::OfKind(int id, std::initializer_list<const char*> kinds) const {
  const HeadlessControl& control = Get(id);
  if (std::none_of(kinds.begin(), kinds.end(), [&](const char* kind) { return control.kind == kind; }))
    throw std::logic_error("dialog " + std::to_string(m_nTemplateId) + ", control " + std::to_string(id) + " is a " +
                           control.kind + ", not a " + *kinds.begin());
  return control;
}

int HeadlessView::ListAdd(int id, const std::string& text) { return AddEntry(List(id), text); }

void HeadlessView::ListDelete(int id, int index) {
  auto& entries = List(id).entries;
  At(entries, index, m_nTemplateId, id);
  entries.erase(entries.begin() + index);
}

HeadlessEntry& HeadlessView::ListEntry(int id, int index) { return At(List(id).entries, index, m_nTemplateId, id); }
const HeadlessEntry& HeadlessView::ListEntry(int id, int index) const {
  return At(List(id).entries, index, m_nTemplateId, id);
}

std::vector<std::string> HeadlessView::ListTexts(int id) const {
  std::vector<std::string> texts;
  for (const HeadlessEntry& entry : List(id).entries) texts.push_back(entry.text);
  return texts;
}

int HeadlessView::ComboAdd(int id, const std::string& text) { return AddEntry(Combo(id), text); }

void HeadlessView::ComboClear(int id) {
  HeadlessControl& combo = Combo(id);
  combo.entries.clear();
  combo.current = -1;
  combo.text.clear();
}

void HeadlessView::ComboSetCurSel(int id, int index) {
  HeadlessControl& combo = Combo(id);
  if (index >= 0) At(combo.entries, index, m_nTemplateId, id);
  combo.current = index;
  combo.text = index >= 0 ? combo.entries[static_cast<std::size_t>(index)].text : std::string();
}

HeadlessEntry& HeadlessView::ComboEntry(int id, int index) { return At(Combo(id).entries, index, m_nTemplateId, id); }
const HeadlessEntry& HeadlessView::ComboEntry(int id, int index) const {
  return At(Combo(id).entries, index, m_nTemplateId, id);
}

void HeadlessView::ListCtrlInsertColumn(int id, int column, const std::string& title, int width) {
  auto& columns = ListCtrl(id).columns;
  const std::size_t at = std::min<std::size_t>(static_cast<std::size_t>(std::max(column, 0)), columns.size());
  columns.insert(columns.begin() + static_cast<std::ptrdiff_t>(at), {title, width});
}

int HeadlessView::ListCtrlColumnWidth(int id, int column) const {
  return At(ListCtrl(id).columns, column, m_nTemplateId, id).second;
}

int HeadlessView::ListCtrlInsertRow(int id, int row, const std::string& text) {
  auto& rows = ListCtrl(id).rows;
  const std::size_t at = std::min<std::size_t>(static_cast<std::size_t>(std::max(row, 0)), rows.size());
  rows.insert(rows.begin() + static_cast<std::ptrdiff_t>(at), HeadlessRow{{text}});
  return static_cast<int>(at);
}

void HeadlessView::ListCtrlSetText(int id, int row, int column, const std::string& text) {
  HeadlessRow& target = Row(id, row);
  if (column < 0) throw std::logic_error("negative list control column");
  if (target.texts.size() <= static_cast<std::size_t>(column)) target.texts.resize(static_cast<std::size_t>(column) + 1);
  target.texts[static_cast<std::size_t>(column)] = text;
}

std::string HeadlessView::ListCtrlText(int id, int row, int column) const {
  const HeadlessRow& source = Row(id, row);
  if (column < 0 || static_cast<std::size_t>(column) >= source.texts.size()) return {};
  return source.texts[static_cast<std::size_t>(column)];
}

void HeadlessView::ListCtrlDeleteRow(int id, int row) {
  auto& rows = ListCtrl(id).rows;
  At(rows, row, m_nTemplateId, id);
  rows.erase(rows.begin() + row);
}

HeadlessRow& HeadlessView::Row(int id, int row) { return At(ListCtrl(id).rows, row, m_nTemplateId, id); }
const HeadlessRow& HeadlessView::Row(int id, int row) const { return At(ListCtrl(id).rows, row, m_nTemplateId, id); }

}  // namespace fk::ui
