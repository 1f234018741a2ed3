#include "settings/temp_file.h"

#include <stdexcept>

#include "platform/files/files.h"
#include "platform/paths/paths.h"
#include "platform/text/letter_case.h"
#include "platform/text/text_file.h"
#include "platform/text/trim.h"

namespace {

// Lines are read in pieces of at most this many characters.
constexpr std::size_t kLinePiece = 1024;

}  // namespace

CTempFile::CTempFile(const char* file, int temporary)
    : m_bNamed(file ? 1 : 0), m_strFile(file ? file : ""), m_bTemporary(temporary) {}

CTempFile& CTempFile::operator=(const CTempFile& other) {
  m_bNamed = other.m_bNamed;
  m_strFile = other.m_strFile;
  m_Parts = other.m_Parts;
  m_PartsUsed = other.m_PartsUsed;
  m_bTemporary = other.m_bTemporary;
  m_bDirty = 1;
  return *this;
}

void CTempFile::CheckIndex(int index) const {
  if (index < 0 || index >= static_cast<int>(m_Parts.size())) throw std::invalid_argument("part index out of range");
}

int CTempFile::AddPart(const std::string& part, unsigned long used) {
  m_bDirty = 1;
  for (std::size_t i = 0; i < m_Parts.size(); ++i) {
    if (fk::EqualsNoCase(m_Parts[i], part)) {
      m_PartsUsed[i] = used;
      return static_cast<int>(i);
    }
  }
  m_Parts.push_back(part);
  m_PartsUsed.push_back(used);
  return static_cast<int>(m_Parts.size()) - 1;
}

void CTempFile::SetPartUsed(int index, unsigned long used) {
  CheckIndex(index);
  m_PartsUsed[static_cast<std::size_t>(index)] = used;
  m_bDirty = 1;
}

unsigned long CTempFile::IsPartUsed(int index) const {
  CheckIndex(index);
  return m_PartsUsed[static_cast<std::size_t>(index)];
}

int CTempFile::AnyPartUsed() const {
  for (unsigned long used : m_PartsUsed)
    if (used) return 1;
  return 0;
}

int CTempFile::ClearPartsUsed() {
  for (unsigned long& used : m_PartsUsed) used = 0;
  m_bDirty = 1;
  return 1;
}

std::string CTempFile::GetPart(int index) const {
  CheckIndex(index);
  return m_Parts[static_cast<std::size_t>(index)];
}

std::string CTempFile::GetPartTitle(int index) const { return fk::SplitPath(GetPart(index)).fname; }

int ReadImageNames(const std::string& file, std::vector<std::string>& names) {
  static const std::string kImageKey = "Image = \"";
  fk::TextReader reader;
  if (!reader.Open(file)) return 0;
  int count = 0;
  while (std::optional<std::string> line = reader.Gets(kLinePiece)) {
    const std::size_t at = line->find(kImageKey);
    if (at == std::string::npos) continue;
    std::string name = line->erase(at, kImageKey.size());
    std::erase(name, '"');
    names.push_back(fk::TrimCharacters(name, "\"\n \t"));
    ++count;
  }
  return count;
}

int CTempFile::GetImageNames(std::vector<std::string>& names) const {
  if (m_Parts.empty()) return ReadImageNames(m_strFile, names);
  int count = 0;
  for (const std::string& part : m_Parts) count += ReadImageNames(part, names);
  return count;
}

void CTempFile::Rebuild() {
  if (!m_bDirty || m_Parts.empty()) return;
  // Written beside the composite and put over it once whole: a disk that
  // can't take it leaves the composite as it was, to be rebuilt next time.
  const std::string fresh = m_strFile + ".~new";
  fk::TextWriter out;
  if (!out.Open(fresh, "w")) return;
  for (std::size_t i = 0; i < m_Parts.size(); ++i) {
    if (!m_PartsUsed[i]) continue;
    fk::TextReader in;
    if (!in.Open(m_Parts[i])) continue;
    while (std::optional<std::string> piece = in.Gets(kLinePiece)) out.Write(*piece);
  }
  if (!out.Close() || !fk::ReplaceFile(fresh, m_strFile)) {
    fk::RemoveFile(fresh);
    return;
  }
  m_bDirty = 0;
}

std::string FolderOf(const std::string& path) {
  const fk::PathParts parts = fk::SplitPath(path);
  return parts.drive + parts.dir;
}

void CopyImagesOfParts(const CTempFile& record) {
  for (const std::string& part : record.m_Parts) {
    std::vector<std::string> images;
    ReadImageNames(part, images);
    for (const std::string& image : images) fk::CopyFileOver(FolderOf(part) + image, FolderOf(record.m_strFile) + image);
  }
}
