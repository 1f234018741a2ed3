// The georeference file read from disk, line by line as fgets reads it.
#include <utility>

#include "exchange/ogb_reader.h"
#include "platform/text/text_file.h"

namespace {
constexpr std::size_t kLineLimit = 1000;  // fgets' buffer: 999 characters and the terminator
}  // namespace

int ReadOGBFile(const std::string& file, const OGBArrays& arrays, int xField, int yField) {
  fk::TextReader reader;
  if (!reader.Open(file)) return 0;
  COGBReader ogb(arrays, xField, yField);
  while (std::optional<std::string> line = reader.Gets(kLineLimit))
    if (!ogb.TakeLine(std::move(*line))) return 0;
  return ogb.ImageCount();
}

std::string ReadOGBProjection(const std::string& file) {
  fk::TextReader reader;
  if (!reader.Open(file)) return {};
  std::string projection;
  for (std::optional<std::string> line; projection.empty() && (line = reader.Gets(kLineLimit));)
    projection = OGBProjectionOfLine(std::move(*line));
  return projection;
}
