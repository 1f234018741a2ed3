// The DXF writer behind the exports whose names begin with DXF: a HEADER
// section, then an ENTITIES section written entity by entity as the script
// dictates. It keeps no geometry. The colour travels in a comment group
// (999, "RGB=<decimal>") inside each entity, while group 62 carries
// ColorIndex, which nothing changes from 0.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/text/text_writer.h"

class CDXFLib {
 public:
  CDXFLib() = default;
  CDXFLib(const CDXFLib&) = delete;
  CDXFLib& operator=(const CDXFLib&) = delete;
  // Writes no end of file: a file whose DXFClose never came stays without
  // its ENDSEC and EOF records (what was sent so far still reaches the disk).
  virtual ~CDXFLib() = default;

  // Opens the file and writes the head, with an empty HEADER section or with
  // the extents as given. 0 when the file can't be opened. A file still open
  // is left without its end.
  int DXFCreate(const std::string& file);
  int DXFCreateWithBounds(const std::string& file, double minX, double minY, double minZ, double maxX, double maxY,
                          double maxZ);
  // The number of later comments; it outlives DXFCreate and DXFClose.
  int DXFColor(std::int32_t rgb);
  int DXFPoint(double x, double y, double z);
  int DXFLine(double x1, double y1, double z1, double x2, double y2, double z2);
  // A 3D polyline over three parallel arrays of `count` values, open or
  // closed; no closing vertex is added.
  int DXFPolyline(const double* x, const double* y, const double* z, std::int32_t count);
  int DXFRegion(const double* x, const double* y, const double* z, std::int32_t count);
  // Ends the ENTITIES section and the file, and closes it.
  int DXFClose();

  bool IsOpen() const { return DxfFile.IsOpen(); }

  std::int32_t ColorIndex = 0;
  std::int32_t RgbValue = 0;
  fk::TextWriter DxfFile;
  std::string LayerName = "0";

 private:
  bool Open(const std::string& file);
  int WritePolyEntity(const double* x, const double* y, const double* z, std::int32_t count, int closedFlag);
  // The layer, colour index and colour comment groups of an entity.
  std::string StyleGroups() const;
  void WriteCoordinates(char axis, double x, double y, double z);
  // A group of code and value; numbers with six decimals.
  void WriteInteger(std::string_view code, int value);
  void WriteNumber(std::string_view code, double value);
};
