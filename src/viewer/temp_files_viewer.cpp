// Saving what the session's file records hold in use with a 3D state: the
// composites are copied beside the state file and shown in their place.
#include "platform/paths/paths.h"
#include "platform/text/letter_case.h"
#include "settings/temp_file_array.h"
#include "viewer/viewer_loading.h"
#include "viewer/viewer_session.h"

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
