#include "platform/ui/headless/headless_ui.h"

#include <stdexcept>

#include "platform/ui/dialog_controller.h"

namespace fk::ui {

// ------------------------------------------------------------------ the user's actions

void HeadlessDialog::RequireUsable(int id) const {
  if (!m_view.IsShown(id) || !m_view.IsEnabled(id))
    throw std::logic_error("control " + std::to_string(id) + " of dialog " + std::to_string(m_view.TemplateId()) +
                           " can't be used: it is hidden or disabled");
}

void HeadlessDialog::Press(int id) {
  if (m_view.Control(id).kind != "wxButton")
    throw std::logic_error("control " + std::to_string(id) + " is not a button");
  RequireUsable(id);
  m_controller.OnCommand(id);
}

void HeadlessDialog::PressSheetButton(int id) {
  if (id != IDOK && id != IDCANCEL) throw std::logic_error("a property sheet has only OK and Cancel");
  m_controller.OnCommand(id);
}

void HeadlessDialog::Type(int id, const std::string& text) {
  RequireUsable(id);
  m_view.SetText(id, text);
  m_controller.OnEditChange(id);
}

void HeadlessDialog::SetCheck(int id, int state) {
  RequireUsable(id);
  m_view.SetCheck(id, state);
  m_controller.OnCommand(id);
}

void HeadlessDialog::SelectEntries(int id, const std::vector<int>& indices) {
  RequireUsable(id);
  for (int i = 0; i < m_view.ListCount(id); ++i) m_view.ListSelect(id, i, false);
  for (int index : indices) m_view.ListSelect(id, index, true);
  m_controller.OnSelectionChange(id);
}

void HeadlessDialog::ChooseCombo(int id, int index) {
  RequireUsable(id);
  m_view.ComboSetCurSel(id, index);
  m_controller.OnSelectionChange(id);
}

void HeadlessDialog::CheckRow(int id, int row, bool checked) {
  RequireUsable(id);
  m_view.ListCtrlSetCheck(id, row, checked);
  m_controller.OnListCtrlCheck(id, row);
}

void HeadlessDialog::ActivateRow(int id, int row) {
  RequireUsable(id);
  m_view.ListCtrlSelect(id, row, true);
  m_controller.OnListCtrlActivate(id, row);
}

// ------------------------------------------------------------------ the backend

void HeadlessUi::OnDialog(unsigned templateId, std::function<void(HeadlessDialog&)> actions) {
  m_scripts.push_back({templateId, std::move(actions)});
}

DialogScript HeadlessUi::NextScript(unsigned templateId) {
  if (m_scripts.empty()) return {};
  DialogScript script = std::move(m_scripts.front());
  m_scripts.pop_front();
  if (script.templateId != 0 && script.templateId != templateId)
    throw std::logic_error("dialog " + std::to_string(templateId) + " opened where dialog " +
                           std::to_string(script.templateId) + " was expected");
  return script;
}

int HeadlessUi::RunModal(DialogController& dialog, const DialogTemplate& dialogTemplate) {
  HeadlessView view(dialogTemplate);
  dialog.Attach(&view, &m_prompter);
  dialog.OnInitDialog();
  const DialogScript script = NextScript(dialogTemplate.id);
  if (!view.Result() && script.actions) {
    HeadlessDialog user(dialog, view);
    script.actions(user);
  }
  // A box its user left open is closed as with Cancel.
  const int result = view.Result().value_or(IDCANCEL);
  m_ran.push_back({dialogTemplate.id, view.Title(), result});
  return result;
}

int HeadlessUi::RunPropertySheet(const std::string& title, const std::vector<DialogController*>& pages,
                                 const std::vector<const DialogTemplate*>& templates) {
  std::vector<std::unique_ptr<HeadlessView>> views;
  for (std::size_t i = 0; i < pages.size(); ++i) {
    views.push_back(std::make_unique<HeadlessView>(*templates.at(i)));
    pages[i]->Attach(views.back().get(), &m_prompter);
    pages[i]->OnInitDialog();
  }
  const DialogScript script = NextScript(templates.empty() ? 0 : templates.front()->id);
  int result = IDCANCEL;
  if (script.actions) {
    // The sheet's OK and Cancel end every page; the actions see each page.
    for (std::size_t i = 0; i < pages.size() && !views[i]->Result(); ++i) {
      HeadlessDialog user(*pages[i], *views[i]);
      script.actions(user);
      if (views[i]->Result()) result = *views[i]->Result();
    }
  }
  m_ran.push_back({templates.empty() ? 0u : templates.front()->id, title, result});
  return result;
}

std::unique_ptr<ProgressView> HeadlessUi::CreateProgressView(bool /*smooth*/) {
  auto pumps = std::make_shared<int>(0);
  const int cancelAt = m_nCancelAfterPumps;
  m_progress.push_back(std::make_shared<ProgressRecord>());
  return std::make_unique<HeadlessProgress>([pumps, cancelAt] { return cancelAt >= 0 && ++*pumps >= cancelAt; },
                                            m_progress.back());
}

void HeadlessUi::Clear() {
  m_scripts.clear();
  m_prompter.Clear();
  m_ran.clear();
  m_nCancelAfterPumps = -1;
  m_progress.clear();
}

HeadlessUi& DefaultHeadlessUi() {
  static HeadlessUi ui;
  return ui;
}

}  // namespace fk::ui
