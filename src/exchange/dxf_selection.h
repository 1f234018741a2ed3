// The selection file: selected positions drawn as solid boxes for the 3D
// viewer. Each box is an oriented block of twelve triangular 3DFACEs, with
// coordinates at two decimals, under a fixed R10 header whose extents do
// not describe the data. One instance writes one file, start to end.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "platform/text/text_writer.h"

class CDXFSelection {
 public:
  struct Point {
    double x = 0, y = 0, z = 0;
  };
  using Matrix = std::array<std::array<double, 3>, 3>;

  CDXFSelection() = default;
  CDXFSelection(const CDXFSelection&) = delete;
  CDXFSelection& operator=(const CDXFSelection&) = delete;
  // Ends the object only: a file still open is left without its end.
  virtual ~CDXFSelection() = default;

  // Keeps at most 255 characters of `path`; a null path keeps the name.
  int SetFileName(const char* path);
  int SetFaceColor(int color);
  // Opens the file and writes the header and the start of ENTITIES.
  bool OpenSelection();
  // One box around the centre, turned by the tilt and the turn (degrees).
  void WriteBox(double centreX, double centreY, double centreZ, double sizeX, double sizeY, double sizeZ,
                double tilt, double turn);
  int WriteFace(const Point& first, const Point& second, const Point& third, const Point& fourth);
  // Ends the file and closes it; nothing when no file is open.
  int CloseSelection();

  // The rotation of a box: R1 (about x, by 90 less the tilt) times R2
  // (about z, by the negated turn), applied to row vectors.
  static Matrix BoxRotation(double tilt, double turn);

 private:
  void WriteCorner(char index, const Point& point);
  void WriteNumber(std::string_view code, double value);

  fk::TextWriter DxfFile;
  std::string m_strFileName;
  int m_nFaceColor = 0;
};
