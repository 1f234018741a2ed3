// Prompts without a screen: each question takes the next answer from a
// queue and is recorded. With no answer queued, a message box gets its
// first button (OK, Yes) and a file or folder box is cancelled.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/ui/prompter.h"

namespace fk::ui {

struct ShownPrompt {
  enum Kind { Message, FileOpen, FileSave, Folder } kind = Message;
  std::string text;              // message text, or the folder box's title
  unsigned type = 0;             // message box buttons and icon
  FileDialogRequest request;     // file boxes
  std::string start;             // folder box's start folder
  std::string caption;           // a message box's own caption, if it has one
};

class HeadlessPrompter : public Prompter {
 public:
  int MessageBox(const std::string& text, unsigned type) override;
  int CaptionedMessageBox(const std::string& text, const std::string& caption, unsigned type) override;
  std::optional<std::string> FileDialog(const FileDialogRequest& request) override;
  std::optional<std::string> BrowseFolder(const std::string& title, const std::string& start) override;

  // The answer to the next message box, and to the next file or folder box.
  void AnswerMessage(int button) { m_buttons.push_back(button); }
  void AnswerPath(std::optional<std::string> path) { m_paths.push_back(std::move(path)); }
  // Called for every prompt as it is shown (the command line prints them).
  void OnShow(std::function<void(const ShownPrompt&)> observer) { m_observer = std::move(observer); }

  const std::vector<ShownPrompt>& Shown() const { return m_shown; }
  void Clear();

 private:
  void Record(ShownPrompt prompt);
  std::optional<std::string> NextPath();
  int NextButton(unsigned type);

  std::deque<int> m_buttons;
  std::deque<std::optional<std::string>> m_paths;
  std::vector<ShownPrompt> m_shown;
  std::function<void(const ShownPrompt&)> m_observer;
};

}  // namespace fk::ui
