#include "exchange/dxf_lib.h"

#include "platform/text/format.h"

namespace {
constexpr int kOpenPolyline = 8;   // 3D polyline
constexpr int kVertexFlag = 32;    // vertex of a 3D polyline
constexpr const char* kSectionHeader = "  0\nSECTION\n  2\nHEADER\n";
constexpr const char* kEndSection = "  0\nENDSEC\n";
constexpr const char* kSectionEntities = "  0\nSECTION\n  2\nENTITIES\n";
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
  WriteStyle();
  WriteCoordinates('0', x, y, z);
  return 1;
}

int CDXFLib::DXFLine(double x1, double y1, double z1, double x2, double y2, double z2) {
  if (!IsOpen()) return 0;
  DxfFile.Write("  0\nLINE\n  8\n0\n");
  WriteStyle();
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
  DxfFile.Write("  0\nPOLYLINE\n");
  WriteStyle();
  DxfFile.Write(" 66\n     1\n");
  DxfFile.Write(fk::Format(" 70\n%d\n", kOpenPolyline + closedFlag));
  for (std::int32_t i = 0; i < count; ++i) {
    DxfFile.Write("  0\nVERTEX\n");
    WriteStyle();
    WriteCoordinates('0', x[i], y[i], z[i]);
    DxfFile.Write(fk::Format(" 70\n%d\n", kVertexFlag));
  }
  DxfFile.Write("  0\nSEQEND\n  8\n0\n");
  return 1;
}

// The layer, the colour index and the colour comment of an entity.
void CDXFLib::WriteStyle() {
  DxfFile.Write(fk::Format("  8\n%s\n", LayerName));
  DxfFile.Write(fk::Format(" 62\n%d\n", ColorIndex));
  DxfFile.Write(fk::Format(" 999\nRGB=%d\n", RgbValue));
}

// Groups 1n, 2n and 3n of a point, n being `axis`.
void CDXFLib::WriteCoordinates(char axis, double x, double y, double z) {
  DxfFile.Write(fk::Format(" 1%c\n%lf\n", axis, x));
  DxfFile.Write(fk::Format(" 2%c\n%lf\n", axis, y));
  DxfFile.Write(fk::Format(" 3%c\n%lf\n", axis, z));
}
