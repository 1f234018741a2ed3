// The prompter's boxes over the toolkit: message boxes, the file-open and
// file-save boxes, the folder picker. Each is modal over the innermost
// dialog box that runs, if any.
#pragma once

#include <functional>

#include "platform/ui/prompter.h"

class wxWindow;

namespace fk::ui {

class WxPrompter : public Prompter {
 public:
  // `parent` tells the window the boxes stand over (null for none).
  explicit WxPrompter(std::function<wxWindow*()> parent) : m_parent(std::move(parent)) {}

  int MessageBox(const std::string& text, unsigned type) override;
  int CaptionedMessageBox(const std::string& text, const std::string& caption, unsigned type) override;
  std::optional<std::string> FileDialog(const FileDialogRequest& request) override;
  std::optional<std::string> BrowseFolder(const std::string& title, const std::string& start) override;

 private:
  std::optional<std::string> AskFileName(const FileDialogRequest& request, wxWindow* parent) const;
  bool MayReplace(const std::string& path, wxWindow* parent) const;

  std::function<wxWindow*()> m_parent;
};

}  // namespace fk::ui
