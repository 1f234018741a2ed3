// Georeference files (.ogb): blocks that each name an image, two opposite
// corners of it in the world and perhaps a transparent colour. The text is
// read line by line through an upper-cased copy and substring tests, so
// keys match in any case and anywhere in a line, and values come out in
// upper case. A reader never looks past the line it has, nor past a field.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

// Where one read of a file puts its findings: parallel arrays with one
// entry per image block. A null array is neither filled nor looked for.
struct OGBArrays {
  std::vector<std::string>* names = nullptr;
  std::vector<double>* left = nullptr;  // the smaller X of the two corners
  std::vector<double>* bottom = nullptr;
  std::vector<double>* right = nullptr;
  std::vector<double>* top = nullptr;
  std::vector<std::uint32_t>* colours = nullptr;  // all bits set: none
};

constexpr std::uint32_t kNoTransparentColour = 0xFFFFFFFF;

// Reads the lines of one file, in order.
class COGBReader {
 public:
  // `xField` and `yField` say which of the comma-separated numbers of a
  // corner are X and Y (from 0; negative ones count as 0 and 1).
  COGBReader(const OGBArrays& arrays, int xField, int yField);

  // Takes the next line as read from the file (at most 999 characters);
  // false when the line makes the whole file one of the unsupported kind.
  bool TakeLine(std::string line);
  int ImageCount() const { return m_nImages; }

 private:
  bool HasCorners() const { return m_arrays.left && m_arrays.bottom && m_arrays.right && m_arrays.top; }
  void OpenImageBlock();
  void NormaliseLast();
  void TakeImageName(const std::string& line);
  // A corner: TOPLEFT and BITMAPORIGIN give left and top, the others right and bottom.
  void TakeCorner(const std::string& line, std::size_t valueAt, bool topLeft);
  void TakeTransparentColour(const std::string& line);

  OGBArrays m_arrays;
  int m_nXField, m_nYField;
  bool m_bInImage = false;
  bool m_bRegistration = false;
  int m_nImages = 0;
};

// Reads the file: the number of images found; 0 also when it can't be
// opened, holds no image, or is of the unsupported kind.
int ReadOGBFile(const std::string& file, const OGBArrays& arrays, int xField, int yField);

// The projection text of one line: behind the "=" of a PROJECTION or
// COORDINATESYSTEM line, trimmed; empty for any other line.
std::string OGBProjectionOfLine(std::string line);
// The file's projection text, in upper case: the first line that gives
// one; empty when none does or the file can't be read.
std::string ReadOGBProjection(const std::string& file);
