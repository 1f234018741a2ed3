#include "settings/temp_file_array.h"

#include "platform/files/files.h"
#include "platform/paths/paths.h"
#include "platform/text/letter_case.h"

namespace {

// Deletes a temporary record's images, its file and its parts.
void DeleteRecordFiles(const CTempFile& record) {
  std::vector<std::string> images;
  record.GetImageNames(images);
  const fk::PathParts parts = fk::SplitPath(record.m_strFile);
  for (const std::string& image : images)
    fk::RemoveFile(image.find('\\') == std::string::npos ? parts.drive + parts.dir + image : image);
  fk::RemoveFile(record.m_strFile);
  for (const std::string& part : record.m_Parts) fk::RemoveFile(part);
}

std::string NameAndExtension(const std::string& path) {
  const fk::PathParts parts = fk::SplitPath(path);
  return parts.fname + parts.ext;
}

}  // namespace

CTempFileArray::~CTempFileArray() {
  if (!m_bDeleteOnDestroy) return;
  for (const CTempFile& record : *this)
    if (record.m_bTemporary) DeleteRecordFiles(record);
}

int CTempFileArray::IndexOfFile(const std::string& file) const {
  for (std::size_t i = 0; i < size(); ++i)
    if (fk::EqualsNoCase((*this)[i].m_strFile, file)) return static_cast<int>(i);
  return -1;
}

int CTempFileArray::AddFile(const std::string& file, int temporary) {
  const int known = IndexOfFile(file);
  if (known >= 0) return known;
  push_back(CTempFile(file.c_str(), temporary));
  return static_cast<int>(size()) - 1;
}

int CTempFileArray::AddFilePart(const std::string& file, const std::string& part, int temporary) {
  const int index = AddFile(file, temporary);
  if (index < 0) return -1;
  return at(static_cast<std::size_t>(index)).AddPart(part, 1);
}

CTempFile CTempFileArray::FindFile(const std::string& name, int* index, int nameOnly) const {
  for (std::size_t i = 0; i < size(); ++i) {
    const std::string& file = (*this)[i].m_strFile;
    if (fk::EqualsNoCase(nameOnly ? NameAndExtension(file) : file, name)) {
      if (index) *index = static_cast<int>(i);
      return (*this)[i];
    }
  }
  if (index) *index = -1;
  return CTempFile();
}

int CTempFileArray::RebuildFile(const std::string& file) {
  const int index = IndexOfFile(file);
  if (index < 0) return 0;
  at(static_cast<std::size_t>(index)).Rebuild();
  return 1;
}

int CTempFileArray::MarkFileUnused(const std::string& file) {
  const int index = IndexOfFile(file);
  if (index < 0) return 0;
  at(static_cast<std::size_t>(index)).ClearPartsUsed();
  return index;
}
