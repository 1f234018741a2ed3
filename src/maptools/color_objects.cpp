#include "maptools/color_objects.h"

#include <cmath>
#include <cstdint>

#include "host/cartoma.h"
#include "platform/text/format.h"
#include "platform/text/number_parse.h"

namespace {

// The host-side variable that holds the object of the current row.
constexpr const char* kObjectVariable = "_colorObj";

int Byte(std::int32_t colour, int index) { return (colour >> (8 * index)) & 0xFF; }

// A product truncated to an integer as the processor does it: a value out
// of the 32-bit range (or not a number) gives the integer indefinite, whose
// low byte is 0.
int LowByteOf(double product) {
  if (!(product > -2147483649.0 && product < 2147483648.0)) return 0;
  return static_cast<int>(static_cast<std::int64_t>(product) & 0xFF);
}

int ScaledByte(float value, float factor) { return LowByteOf(static_cast<double>(value * factor)); }

int Rgb(int byte2, int byte1, int byte0) { return byte2 << 16 | byte1 << 8 | byte0; }

// The table to work on: the source itself, packed, when the output path is
// its own; else a copy committed to the output path and opened. Empty when
// the copy could not be committed.
bool PrepareWorkingTable(CCartoma& host, const ColorObjectsRequest& request, std::string& working) {
  if (host.GetTablePath(request.table) == request.outputPath) {
    working = request.table;
    host.PackTable(working);
    host.CommitTable(working);
    return true;
  }
  host.CloseTablesByFile(request.outputPath, 0);
  if (!host.CommitTableAs(request.table, request.outputPath, nullptr, 0)) return false;
  if (host.OpenTable(request.outputPath.c_str(), nullptr, 0, 0)) working = host.GetSelectedTableName();
  return true;
}

void StoreColour(CCartoma& host, const ColorObjectsRequest& request, const std::string& table, int row) {
  const std::int32_t colour = host.GetObjectColor(kObjectVariable);
  const auto store = [&](int column, long value) {
    host.UpdateRow(table, request.columns[column], fk::Format("%ld", value), row);
  };
  switch (request.mode) {
    case 0: store(0, colour); break;
    case 1: store(0, (colour & ~0xFF00FF) | Byte(colour, 0) << 16 | Byte(colour, 2)); break;
    case 2:
      for (int column = 0; column < 3; ++column) store(column, Byte(colour, column));
      break;
    default: break;
  }
}

int ColourFromColumns(CCartoma& host, const ColorObjectsRequest& request, const std::string& table) {
  const float* f = request.factors;
  if (request.mode == 0 || request.mode == 1) {
    const std::int32_t v = fk::Atoi(host.GetFieldValue(table, request.columns[0]));
    const auto scaled = [&](int byte, int factor) { return ScaledByte(static_cast<float>(Byte(v, byte)), f[factor]); };
    return request.mode == 0 ? Rgb(scaled(2, 0), scaled(1, 1), scaled(0, 2))
                             : Rgb(scaled(0, 2), scaled(1, 1), scaled(2, 0));
  }
  if (request.mode == 2) {
    double value[3];
    for (int column = 0; column < 3; ++column) value[column] = fk::Atof(host.GetFieldValue(table, request.columns[column]));
    return Rgb(LowByteOf(value[2] * static_cast<double>(f[2])), ScaledByte(static_cast<float>(value[1]), f[1]),
               ScaledByte(static_cast<float>(value[0]), f[0]));
  }
  return 0;
}

}  // namespace

int RunColorTableObjects(const ColorObjectsRequest& request) {
  CCartoma& host = g_Cartoma;
  std::string table;
  if (!PrepareWorkingTable(host, request, table)) return 0;
  if (!request.apply) {
    for (const std::string& column : request.columns)
      if (!host.ColumnExists(table, column)) host.AddColumn(table, column, "Integer");
    host.CommitTable(table);
  }
  host.SetFastEdit(table, 0);
  int result = 1;
  const int rows = host.GetTableRowCount(table);
  for (int row = 0; row < rows; ++row) {
    host.FetchRec(table, row + 1);
    if (!host.ObjectToVariable(kObjectVariable, table)) continue;
    if (!request.apply) {
      StoreColour(host, request, table, row);
      continue;
    }
    host.SetObjectColor(kObjectVariable, ColourFromColumns(host, request, table));
    if (!host.UpdateRow(table, "Obj", kObjectVariable, row)) result = 0;
  }
  host.CommitTable(table);
  host.SetFastEdit(table, 1);
  return result;
}
