// The two operations of the session's file records that talk to the viewer:
// learning what it still shows, and saving what is in use with a 3D state.
#include "platform/paths/paths.h"
#include "platform/text/letter_case.h"
#include "platform/text/trim.h"
#include "settings/temp_file_array.h"
#include "viewer/viewer_dispids.h"
#include "viewer/viewer_loading.h"
#include "viewer/viewer_session.h"

namespace {

// The title of a loaded image as the viewer lists it: "... [title]".
std::string BracketedTitle(const std::string& entry) {
  const std::size_t open = entry.find('[');
  return fk::TrimCharacters(open == std::string::npos ? std::string() : entry.substr(open), " []");
}

std::string WithBlanksAsUnderscores(std::string text) {
  for (char& c : text)
    if (c == ' ') c = '_';
  return text;
}

}  // namespace

void CTempFileArray::SyncWithViewer(CViewerLink& viewer) {
  const int view = viewer.GetMapWindow(true);
  std::int32_t count = 0;
  std::vector<std::string> names;
  std::vector<std::int32_t> kinds, thirds;
  viewer.ListObjects(view, count, names, kinds, thirds);
  CTempFile current;
  int currentIndex = -1;
  for (std::size_t i = 1; i < names.size(); ++i) {
    if (kinds[i] == OBJECT_IMAGE) {
      current = FindFile(BracketedTitle(names[i]) + ".ogb", &currentIndex, 1);
      if (current.m_bNamed) {
        current.ClearPartsUsed();
        StoreBack(currentIndex, current);
      }
    } else if (kinds[i] == OBJECT_IMAGE_MEMBER && current.m_bNamed) {
      for (int p = 0; p < static_cast<int>(current.m_Parts.size()); ++p) {
        const fk::PathParts parts = fk::SplitPath(current.GetPart(p));
        if (!fk::EqualsNoCase(WithBlanksAsUnderscores(parts.fname + parts.ext), names[i] + ".ogb")) continue;
        current.SetPartUsed(p, 1);
        StoreBack(currentIndex, current);
      }
    }
  }
}

void CTempFileArray::SaveWithState(ViewerSession session, const std::string& statePath) {
  const std::string target = FolderOf(statePath);
  const std::string logFile = session.strLogOGBFile;
  const int view = session.viewer.GetMapWindow(true);
  for (std::size_t i = 0; i < size(); ++i) {
    const CTempFile old = (*this)[i];
    if (!old.m_bTemporary || !old.AnyPartUsed()) continue;
    CTempFile main((target + fk::SplitPath(old.m_strFile).fname + ".ogb").c_str(), 0);
    CTempFile log(logFile.empty() ? nullptr : (target + "Terravik DH Logs.OGB").c_str(), 0);
    const bool isLog = fk::EqualsNoCase(old.m_strFile, logFile);
    for (std::size_t p = 0; p < old.m_Parts.size(); ++p)
      if (old.m_PartsUsed[p]) (isLog ? log : main).AddPart(old.m_Parts[p], 1);
    if (isLog)
      session.viewer.SetLogFile(view, "");
    else
      RemoveFileFromViewer(session.viewer, view, old.m_strFile);
    main.Rebuild();
    if (!logFile.empty()) log.Rebuild();
    CopyImagesOfParts(main);
    CopyImagesOfParts(log);
    if (!main.m_Parts.empty()) {
      AddFile(main.m_strFile, 0);
      ShowFileInViewer(session, view, main.m_strFile);
    }
    if (!logFile.empty() && !log.m_Parts.empty()) session.viewer.SetLogFile(view, log.m_strFile);
  }
}
