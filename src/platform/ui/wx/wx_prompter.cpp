#include "platform/ui/wx/wx_prompter.h"

#include <wx/dirdlg.h>
#include <wx/filedlg.h>
#include <wx/msgdlg.h>
#include <wx/toplevel.h>

#include <filesystem>

#include "platform/ui/dialog_view.h"
#include "platform/ui/wx/file_box_request.h"
#include "platform/ui/wx/wx_text.h"

namespace fk::ui {
namespace {

constexpr unsigned kButtonsMask = 0xF;
constexpr unsigned kIconMask = 0xF0;

// Button sets the toolkit lacks (Abort/Retry/Ignore, Retry/Cancel) show OK.
long ButtonStyle(unsigned type) {
  switch (type & kButtonsMask) {
    case MB_OKCANCEL: return wxOK | wxCANCEL;
    case MB_YESNOCANCEL: return wxYES_NO | wxCANCEL;
    case MB_YESNO: return wxYES_NO;
    default: return wxOK;
  }
}

long IconStyle(unsigned type) {
  switch (type & kIconMask) {
    case MB_ICONSTOP: return wxICON_ERROR;
    case MB_ICONQUESTION: return wxICON_QUESTION;
    case MB_ICONEXCLAMATION: return wxICON_WARNING;
    case MB_ICONINFORMATION: return wxICON_INFORMATION;
    default: return wxICON_NONE;
  }
}

// The system's id of the button pressed. A box closed without a button
// (its close box, Escape) answers as its own way out would: Cancel where
// it has one, No for Yes/No, OK for OK alone.
int SystemAnswer(int answer, long buttons) {
  switch (answer) {
    case wxID_OK: return IDOK;
    case wxID_YES: return IDYES;
    case wxID_NO: return IDNO;
    default: break;
  }
  if (buttons & wxCANCEL) return IDCANCEL;
  return buttons == wxYES_NO ? IDNO : IDOK;
}

// The caption of a box: the title of the dialog box it stands over.
wxString CaptionOver(wxWindow* parent) {
  auto* top = dynamic_cast<wxTopLevelWindow*>(parent);
  return top ? top->GetTitle() : wxString();
}

// The path the user chose. A box answered without being shown (by a modal
// dialog hook, as automation does) has no chooser's selection, and answers
// with the path that was set on it.
wxString ChosenPath(const wxFileDialog& box) {
  const wxString chosen = box.GetPath();
  return chosen.empty() ? box.wxFileDialogBase::GetPath() : chosen;
}

long FileBoxStyle(const FileDialogRequest& request) {
  if (!request.open) return wxFD_SAVE;
  return wxFD_OPEN | ((request.flags & OFN_FILEMUSTEXIST) ? wxFD_FILE_MUST_EXIST : 0);
}

}  // namespace

int WxPrompter::MessageBox(const std::string& text, unsigned type) {
  return CaptionedMessageBox(text, {}, type);
}

int WxPrompter::CaptionedMessageBox(const std::string& text, const std::string& caption, unsigned type) {
  wxWindow* parent = m_parent();
  const long buttons = ButtonStyle(type);
  wxMessageDialog box(parent, ToWx(text), caption.empty() ? CaptionOver(parent) : ToWx(caption),
                      buttons | IconStyle(type));
  return SystemAnswer(box.ShowModal(), buttons);
}

std::optional<std::string> WxPrompter::AskFileName(const FileDialogRequest& request, wxWindow* parent) const {
  const std::string wildcard = WildcardFromFilter(request.filter);
  const StartName start = SplitStartName(request.fileName);
  wxFileDialog box(parent, request.open ? "Open" : "Save As", ToWx(start.folder), ToWx(start.name),
                   wildcard.empty() ? wxString(wxFileSelectorDefaultWildcardStr) : ToWx(wildcard),
                   FileBoxStyle(request));
  box.SetFilterIndex(WildcardIndex(wildcard, request.filterIndex));
  if (box.ShowModal() != wxID_OK) return std::nullopt;
  return WithDefaultExtension(FromWx(ChosenPath(box)), request.defaultExt);
}

// The overwrite question is asked here, of the name with its default
// extension, which the toolkit's own question would not see.
bool WxPrompter::MayReplace(const std::string& path, wxWindow* parent) const {
  std::error_code error;
  if (!std::filesystem::exists(path, error)) return true;
  const std::string question = std::filesystem::path(path).filename().string() +
                               " already exists.\nDo you want to replace it?";
  wxMessageDialog box(parent, ToWx(question), CaptionOver(parent), wxYES_NO | wxICON_WARNING);
  return box.ShowModal() == wxID_YES;
}

std::optional<std::string> WxPrompter::FileDialog(const FileDialogRequest& request) {
  wxWindow* parent = m_parent();
  for (;;) {
    std::optional<std::string> path = AskFileName(request, parent);
    if (!path || request.open || !(request.flags & OFN_OVERWRITEPROMPT) || MayReplace(*path, parent)) return path;
  }
}

std::optional<std::string> WxPrompter::BrowseFolder(const std::string& title, const std::string& start) {
  wxDirDialog box(m_parent(), ToWx(title), ToWx(start), wxDD_DEFAULT_STYLE | wxDD_DIR_MUST_EXIST);
  if (box.ShowModal() != wxID_OK) return std::nullopt;
  return FromWx(box.GetPath());
}

}  // namespace fk::ui
