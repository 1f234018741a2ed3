#include "exchange/dxf_lib.h"

#include "platform/text/number_format.h"

namespace {
constexpr int kPolylineFlag = 8;                  // a 3D polyline; 1 more when closed
constexpr const char* kVertexFlag = " 70\n32\n";  // vertex of a 3D polyline
constexpr const char* kSectionHeader = "  0\nSECTION\n  2\nHEADER\n";
constexpr const char* kEndSection = "  0\nENDSEC\n";
constexpr const char* kSectionEntities = "  0\nSECTION\n  2\nENTITIES\n";
// Coordinates are written as "%lf" writes them.
constexpr int kDecimals = 6;
}  // namespace

bool CDXFLib::Open(const std::string& file) { return DxfFile.Open(file, "w"); }

int CDXFLib::DXFCreate(const std::string& file) {
  if (!Open(file)) return 0;
  DxfFile.Write(kSectionHeader);
  DxfFile.Write(kEndSection);
  DxfFile.Write(kSectionEntities);
  return 1;
}

int CDXFLib::DXFCreateWithBounds(const std::string& file, double minX, double minY, double minZ, double maxX,
                                 double maxY, double maxZ) {
  if (!Open(file)) return 0;
  DxfFile.Write(kSectionHeader);
  DxfFile.Write("  9\n$EXTMIN\n");
  WriteCoordinates('0', minX, minY, minZ);
  DxfFile.Write("  9\n$EXTMAX\n");
  WriteCoordinates('0', maxX, maxY, maxZ);
  DxfFile.Write(kEndSection);
  DxfFile.Write(kSectionEntities);
  return 1;
}

int CDXFLib::DXFColor(std::int32_t rgb) {
  RgbValue = rgb;
  return 1;
}

int CDXFLib::DXFPoint(double x, double y, double z) {
  if (!IsOpen()) return 0;
  DxfFile.Write("  0\nPOINT\n  8\n0\n");
  DxfFile.Write(StyleGroups());
  WriteCoordinates('0', x, y, z);
  return 1;
}

int CDXFLib::DXFLine(double x1, double y1, double z1, double x2, double y2, double z2) {
  if (!IsOpen()) return 0;
  DxfFile.Write("  0\nLINE\n  8\n0\n");
  DxfFile.Write(StyleGroups());
  WriteCoordinates('0', x1, y1, z1);
  WriteCoordinates('1', x2, y2, z2);
  return 1;
}

int CDXFLib::DXFPolyline(const double* x, const double* y, const double* z, std::int32_t count) {
  return WritePolyEntity(x, y, z, count, 0);
}

int CDXFLib::DXFRegion(const double* x, const double* y, const double* z, std::int32_t count) {
  return WritePolyEntity(x, y, z, count, 1);
}

int CDXFLib::DXFClose() {
  if (!IsOpen()) return 0;
  DxfFile.Write("  0\nENDSEC\n  0\nEOF\n");
  DxfFile.Close();
  return 1;
}

int CDXFLib::WritePolyEntity(const double* x, const double* y, const double* z, std::int32_t count, int closedFlag) {
  if (!IsOpen()) return 0;
  const std::string style = StyleGroups();
  DxfFile.Write("  0\nPOLYLINE\n");
  DxfFile.Write(style);
  DxfFile.Write(" 66\n     1\n");
  WriteInteger(" 70\n", kPolylineFlag + closedFlag);
  for (std::int32_t i = 0; i < count; ++i) {
    DxfFile.Write("  0\nVERTEX\n");
    DxfFile.Write(style);
    WriteCoordinates('0', x[i], y[i], z[i]);
    DxfFile.Write(kVertexFlag);
  }
  DxfFile.Write("  0\nSEQEND\n  8\n0\n");
  return 1;
}

std::string CDXFLib::StyleGroups() const {
  char digits[fk::kNumberChars];
  std::string style = "  8\n" + LayerName + "\n 62\n";
  style += fk::FormatDecimal(digits, ColorIndex);
  style += "\n 999\nRGB=";
  style += fk::FormatDecimal(digits, RgbValue);
  style += '\n';
  return style;
}

// Groups 1n, 2n and 3n of a point, n being `axis`.
void CDXFLib::WriteCoordinates(char axis, double x, double y, double z) {
  const char code[3][5] = {{' ', '1', axis, '\n', 0}, {' ', '2', axis, '\n', 0}, {' ', '3', axis, '\n', 0}};
  WriteNumber(code[0], x);
  WriteNumber(code[1], y);
  WriteNumber(code[2], z);
}

void CDXFLib::WriteInteger(std::string_view code, int value) {
  char digits[fk::kNumberChars];
  DxfFile.Write(code);
  DxfFile.WritePlain(fk::FormatDecimal(digits, value));
  DxfFile.Write("\n");
}

void CDXFLib::WriteNumber(std::string_view code, double value) {
  char digits[fk::kNumberChars];
  DxfFile.Write(code);
  DxfFile.WritePlain(fk::FormatFixed(digits, value, kDecimals));
  DxfFile.Write("\n");
}
