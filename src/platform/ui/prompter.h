// The questions a dialog box asks in boxes of their own: message boxes,
// file-open and file-save boxes, the folder picker.
#pragma once

#include <optional>
#include <string>

namespace fk::ui {

// Message box buttons and icons, combined with "|".
enum MessageType : unsigned {
  MB_OK = 0x0,
  MB_OKCANCEL = 0x1,
  MB_YESNOCANCEL = 0x3,
  MB_YESNO = 0x4,
  MB_ICONSTOP = 0x10,
  MB_ICONQUESTION = 0x20,
  MB_ICONEXCLAMATION = 0x30,
  MB_ICONINFORMATION = 0x40,
};

// File box flags, as the system passes them.
enum FileDialogFlags : unsigned {
  OFN_READONLY = 0x1,
  OFN_OVERWRITEPROMPT = 0x2,
  OFN_HIDEREADONLY = 0x4,
  OFN_PATHMUSTEXIST = 0x800,
  OFN_FILEMUSTEXIST = 0x1000,
};

struct FileDialogRequest {
  bool open = true;          // file-open box, else file-save box
  std::string defaultExt;    // added to a name typed without one
  std::string fileName;      // the start name
  unsigned flags = 0;
  std::string filter;        // "Name|pattern|Name|pattern||"
  int filterIndex = 1;       // the starting filter entry, counted from 1
};

class Prompter {
 public:
  virtual ~Prompter() = default;
  // The button pressed (IDOK, IDCANCEL, IDYES, IDNO).
  virtual int MessageBox(const std::string& text, unsigned type) = 0;
  // A message box under a caption of its own (otherwise the program's name).
  virtual int CaptionedMessageBox(const std::string& text, const std::string& caption, unsigned type) {
    (void)caption;
    return MessageBox(text, type);
  }
  // The chosen path, or nothing on cancel.
  virtual std::optional<std::string> FileDialog(const FileDialogRequest& request) = 0;
  virtual std::optional<std::string> BrowseFolder(const std::string& title, const std::string& start) = 0;
};

}  // namespace fk::ui
