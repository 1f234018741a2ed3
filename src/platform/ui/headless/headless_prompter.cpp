#include "platform/ui/headless/headless_prompter.h"

#include "platform/ui/dialog_view.h"

namespace fk::ui {
namespace {
int FirstButton(unsigned type) { return (type & 0xF) == MB_YESNO || (type & 0xF) == MB_YESNOCANCEL ? IDYES : IDOK; }
}  // namespace

void HeadlessPrompter::Record(ShownPrompt prompt) {
  if (m_observer) m_observer(prompt);
  m_shown.push_back(std::move(prompt));
}

std::optional<std::string> HeadlessPrompter::NextPath() {
  if (m_paths.empty()) return std::nullopt;
  std::optional<std::string> path = std::move(m_paths.front());
  m_paths.pop_front();
  return path;
}

int HeadlessPrompter::MessageBox(const std::string& text, unsigned type) {
  Record({ShownPrompt::Message, text, type, {}, {}, {}});
  return NextButton(type);
}

int HeadlessPrompter::CaptionedMessageBox(const std::string& text, const std::string& caption, unsigned type) {
  Record({ShownPrompt::Message, text, type, {}, {}, caption});
  return NextButton(type);
}

int HeadlessPrompter::NextButton(unsigned type) {
  if (m_buttons.empty()) return FirstButton(type);
  const int button = m_buttons.front();
  m_buttons.pop_front();
  return button;
}

std::optional<std::string> HeadlessPrompter::FileDialog(const FileDialogRequest& request) {
  Record({request.open ? ShownPrompt::FileOpen : ShownPrompt::FileSave, {}, 0, request, {}, {}});
  return NextPath();
}

std::optional<std::string> HeadlessPrompter::BrowseFolder(const std::string& title, const std::string& start) {
  Record({ShownPrompt::Folder, title, 0, {}, start, {}});
  return NextPath();
}

void HeadlessPrompter::Clear() {
  m_buttons.clear();
  m_paths.clear();
  m_shown.clear();
}

}  // namespace fk::ui
