#include "exchange/dxf_selection.h"

#include <cmath>
#include <cstring>

#include "platform/text/number_format.h"

namespace {
constexpr std::size_t kMaxFileName = 255;
// Corners are written as "%.2lf" writes them.
constexpr int kDecimals = 2;
// pi shortened to 3.141592, over 180: the factor the viewer's boxes have
// always been turned with.
constexpr double kDegree = 0.01745328888888889;

constexpr const char* kHeader[] = {
    "  0\nSECTION\n",
    "  2\nHEADER\n",
    "  9\n$ACADVER\n", "  1\nAC1006\n",
    "  9\n$UCSORG\n", "  10\n0.0\n", "  20\n0.0\n", "  30\n0.0\n",
    "  9\n$UCSXDIR\n", "  10\n1.0\n", "  20\n0.0\n", "  30\n0.0\n",
    "  9\n$TILEMODE\n", "  70\n1\n",
    "  9\n$UCSYDIR\n", "  10\n0.0\n", "  20\n1.0\n", "  30\n0.0\n",
    "  9\n$EXTMIN\n", "  10\n0.0\n", "  20\n0.0\n", "  30\n0.0\n",
    "  9\n$EXTMAX\n", "  10\n100000.0\n", "  20\n100000.0\n", "  30\n10000.0\n",
    "    0\nENDSEC\n",
    "  0\nSECTION\n  2\nENTITIES\n",
};

using Matrix = CDXFSelection::Matrix;
using Point = CDXFSelection::Point;

Matrix Multiply(const Matrix& a, const Matrix& b) {
  Matrix product{};
  for (int row = 0; row < 3; ++row)
    for (int column = 0; column < 3; ++column)
      product[row][column] = a[row][0] * b[0][column] + a[row][1] * b[1][column] + a[row][2] * b[2][column];
  return product;
}

// The row vector `offset` times `m`, moved to `centre`.
Point Turn(const Point& offset, const Matrix& m, const Point& centre) {
  return {offset.x * m[0][0] + offset.y * m[1][0] + offset.z * m[2][0] + centre.x,
          offset.x * m[0][1] + offset.y * m[1][1] + offset.z * m[2][1] + centre.y,
          offset.x * m[0][2] + offset.y * m[1][2] + offset.z * m[2][2] + centre.z};
}
}  // namespace

int CDXFSelection::SetFileName(const char* path) {
  if (path) m_strFileName.assign(path, strnlen(path, kMaxFileName));
  return 1;
}

int CDXFSelection::SetFaceColor(int color) {
  m_nFaceColor = color;
  return 1;
}

bool CDXFSelection::OpenSelection() {
  if (!DxfFile.Open(m_strFileName, "w")) return false;
  for (const char* text : kHeader) DxfFile.Write(text);
  return true;
}

Matrix CDXFSelection::BoxRotation(double tilt, double turn) {
  const double a = (90.0 - tilt) * kDegree;
  const double b = -turn * kDegree;
  const Matrix r1{{{1, 0, 0}, {0, std::cos(a), std::sin(a)}, {0, -std::sin(a), std::cos(a)}}};
  const Matrix r2{{{std::cos(b), std::sin(b), 0}, {-std::sin(b), std::cos(b), 0}, {0, 0, 1}}};
  return Multiply(r1, r2);
}

void CDXFSelection::WriteBox(double centreX, double centreY, double centreZ, double sizeX, double sizeY,
                             double sizeZ, double tilt, double turn) {
  const double hx = sizeX / 2, hy = sizeY / 2, hz = sizeZ / 2;
  const Matrix m = BoxRotation(tilt, turn);
  const Point centre{centreX, centreY, centreZ};
  // Upper corners T0..T3 and lower corners L0..L3, in the same x, y order.
  const Point offsets[4] = {{-hx, hy, 0}, {hx, hy, 0}, {hx, -hy, 0}, {-hx, -hy, 0}};
  Point upper[4], lower[4];
  for (int i = 0; i < 4; ++i) {
    upper[i] = Turn({offsets[i].x, offsets[i].y, hz}, m, centre);
    lower[i] = Turn({offsets[i].x, offsets[i].y, -hz}, m, centre);
  }
  // Every triangle runs clockwise seen from outside; the fourth point of a
  // face repeats its first.
  WriteFace(upper[0], upper[1], upper[2], upper[0]);
  WriteFace(upper[0], upper[2], upper[3], upper[0]);
  WriteFace(lower[0], lower[2], lower[1], lower[0]);
  WriteFace(lower[0], lower[3], lower[2], lower[0]);
  for (int i = 0; i < 4; ++i) {
    const int j = (i + 1) % 4;
    WriteFace(upper[i], lower[i], upper[j], upper[i]);
    WriteFace(lower[i], lower[j], upper[j], lower[i]);
  }
}

int CDXFSelection::WriteFace(const Point& first, const Point& second, const Point& third, const Point& fourth) {
  char digits[fk::kNumberChars];
  DxfFile.Write("  0\n3DFACE\n  8\n0\n 62\n");
  DxfFile.WritePlain(fk::FormatDecimal(digits, m_nFaceColor));
  DxfFile.Write("\n");
  WriteCorner('0', first);
  WriteCorner('1', second);
  WriteCorner('2', third);
  WriteCorner('3', fourth);
  return 1;
}

// Groups 1n, 2n and 3n of a corner, n being `index`.
void CDXFSelection::WriteCorner(char index, const Point& point) {
  const char code[3][5] = {{' ', '1', index, '\n', 0}, {' ', '2', index, '\n', 0}, {' ', '3', index, '\n', 0}};
  WriteNumber(code[0], point.x);
  WriteNumber(code[1], point.y);
  WriteNumber(code[2], point.z);
}

void CDXFSelection::WriteNumber(std::string_view code, double value) {
  char digits[fk::kNumberChars];
  DxfFile.Write(code);
  DxfFile.WritePlain(fk::FormatFixed(digits, value, kDecimals));
  DxfFile.Write("\n");
}

int CDXFSelection::CloseSelection() {
  if (DxfFile.IsOpen()) {
    DxfFile.Write("  0\nENDSEC\n  0\nEOF\n");
    DxfFile.Close();
  }
  return 1;
}
