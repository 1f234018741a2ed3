// CTempFileArray: the records of the session's files, in the order they
// were filed. Records are never removed; an unused one stays with all its
// part flags cleared. At unload, when m_bDeleteOnDestroy is set, what is
// still temporary is deleted with its images and parts.
#pragma once

#include <string>
#include <vector>

#include "settings/temp_file.h"

class CViewerLink;
struct ViewerSession;

class CTempFileArray : public std::vector<CTempFile> {
 public:
  CTempFileArray() = default;
  CTempFileArray(const CTempFileArray&) = delete;
  CTempFileArray& operator=(const CTempFileArray&) = delete;
  ~CTempFileArray();

  // The index of the record; a known name keeps its record as it is.
  int AddFile(const std::string& file, int temporary);
  // Files `part` (as used) under `file`, filing `file` first; the part's index.
  int AddFilePart(const std::string& file, const std::string& part, int temporary);
  // A copy of the record, or an empty one with `index` -1. With `nameOnly`
  // the records' file names and extensions are compared, not whole paths.
  CTempFile FindFile(const std::string& name, int* index, int nameOnly) const;
  int IndexOfFile(const std::string& file) const;
  int RebuildFile(const std::string& file);
  // Clears every part flag of the record; its index, or 0 when unknown.
  int MarkFileUnused(const std::string& file);

  // Learns from the viewer which parts of the composites it still shows.
  void SyncWithViewer(CViewerLink& viewer);
  // Makes permanent copies, next to the state file, of the composites in
  // use, and shows them in the viewer in place of the old ones.
  void SaveWithState(ViewerSession session, const std::string& statePath);

  int m_bDeleteOnDestroy = 1;

 private:
  void StoreBack(int index, const CTempFile& record) { at(static_cast<std::size_t>(index)) = record; }
};
