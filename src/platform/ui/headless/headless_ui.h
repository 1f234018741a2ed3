// The headless backend. Dialog boxes run in memory: whoever drives them
// (a test, the command line) queues what the user does with each one, in
// the order the boxes will open; questions are answered by the prompter's
// queue; progress goes to standard error.
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <vector>

#include "platform/ui/headless/headless_progress.h"
#include "platform/ui/headless/headless_prompter.h"
#include "platform/ui/headless/headless_view.h"
#include "platform/ui/ui_backend.h"

namespace fk::ui {

class DialogController;

// A running dialog box as its user sees it.
class HeadlessDialog {
 public:
  HeadlessDialog(DialogController& controller, HeadlessView& view) : m_controller(controller), m_view(view) {}

  const HeadlessView& View() const { return m_view; }
  // Presses a button, which must be shown and enabled.
  void Press(int id);
  // The OK or Cancel button of the property sheet that holds this page.
  void PressSheetButton(int id);
  // Types into an edit control.
  void Type(int id, const std::string& text);
  void SetCheck(int id, int state);
  // Selects exactly these entries of a list box.
  void SelectEntries(int id, const std::vector<int>& indices);
  void ChooseCombo(int id, int index);
  void CheckRow(int id, int row, bool checked);
  // Double-clicks a list control row.
  void ActivateRow(int id, int row);
  bool Ended() const { return m_view.Result().has_value(); }

 private:
  void RequireUsable(int id) const;

  DialogController& m_controller;
  HeadlessView& m_view;
};

// What the user does with one dialog box: its template and the actions.
struct DialogScript {
  unsigned templateId = 0;  // 0: whatever box comes
  std::function<void(HeadlessDialog&)> actions;
};

// A dialog box that ran: its template, its controls when it ended, its result.
struct RanDialog {
  unsigned templateId;
  std::string title;
  int result;
};

class HeadlessUi : public UiBackend {
 public:
  int RunModal(DialogController& dialog, const DialogTemplate& dialogTemplate) override;
  int RunPropertySheet(const std::string& title, const std::vector<DialogController*>& pages,
                       const std::vector<const DialogTemplate*>& templates) override;
  Prompter& GetPrompter() override { return m_prompter; }
  std::unique_ptr<ProgressView> CreateProgressView(bool smooth) override;

  // Queues what the user does with the next dialog box (or property sheet,
  // whose pages the actions see one after the other). A box with no
  // actions queued is closed as with Cancel.
  void OnDialog(unsigned templateId, std::function<void(HeadlessDialog&)> actions);
  HeadlessPrompter& Prompts() { return m_prompter; }
  // The next progress windows ask to cancel at their `pumps`th pump.
  void CancelProgressAfter(int pumps) { m_nCancelAfterPumps = pumps; }
  const std::vector<RanDialog>& Ran() const { return m_ran; }
  // What each progress window made so far showed, in order.
  const std::vector<std::shared_ptr<ProgressRecord>>& Progress() const { return m_progress; }
  void Clear();

 private:
  DialogScript NextScript(unsigned templateId);

  std::deque<DialogScript> m_scripts;
  HeadlessPrompter m_prompter;
  std::vector<RanDialog> m_ran;
  int m_nCancelAfterPumps = -1;
  std::vector<std::shared_ptr<ProgressRecord>> m_progress;
};

// The headless backend of the library, used when no other is chosen.
HeadlessUi& DefaultHeadlessUi();

}  // namespace fk::ui
