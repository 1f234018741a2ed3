// CTempFile: the record of one session file put into the 3D viewer. A file
// with parts is a composite: its text is the text of its used parts, in
// order. Part names compare ignoring case.
#pragma once

#include <string>
#include <vector>

class CTempFile {
 public:
  // A record with a name (`m_bNamed` 1) or, given null, an empty one.
  explicit CTempFile(const char* file = nullptr, int temporary = 0);
  CTempFile(const CTempFile&) = default;
  // Copies every field, then marks the copy to be rewritten.
  CTempFile& operator=(const CTempFile& other);

  // Adds the part, or sets the flag of the equal part already there; its index.
  int AddPart(const std::string& part, unsigned long used);
  void SetPartUsed(int index, unsigned long used);
  unsigned long IsPartUsed(int index) const;
  int AnyPartUsed() const;
  int ClearPartsUsed();
  std::string GetPart(int index) const;
  // The part's file name without folder or extension.
  std::string GetPartTitle(int index) const;
  // Appends the images the OGB text of the file (or of each part) names;
  // how many were found.
  int GetImageNames(std::vector<std::string>& names) const;
  // Rewrites a dirty composite from its used parts.
  void Rebuild();

  int m_bNamed = 0;
  int m_bDirty = 0;
  std::string m_strFile;
  std::vector<std::string> m_Parts;
  std::vector<unsigned long> m_PartsUsed;
  int m_bTemporary = 0;

 private:
  void CheckIndex(int index) const;
};

// The image names of one OGB file's text; 0 when it can't be opened.
int ReadImageNames(const std::string& file, std::vector<std::string>& names);

// The drive and folder of a path, with the trailing separator.
std::string FolderOf(const std::string& path);
// Copies the images each part of `record` names from the part's folder to
// the record's folder, overwriting; a failed copy is passed over.
void CopyImagesOfParts(const CTempFile& record);
