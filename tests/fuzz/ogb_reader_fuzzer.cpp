// The georeference file reader on any bytes, under the sanitizers. The
// bytes go to the reader in the pieces fgets would give it; the first byte
// picks the X and Y fields (negative ones too) and whether the arrays are
// given. Whatever the text, the reader reads inside its lines and fields,
// and its arrays stay parallel: one entry per image block, one name per
// image counted.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "exchange/ogb_reader.h"

namespace {

// The next piece as fgets gives it from a text-mode file: up to 999
// characters, ending after a line end; "\r\n" reads as "\n".
std::string NextPiece(const std::uint8_t*& data, const std::uint8_t* end) {
  std::string piece;
  while (data < end && piece.size() < 999) {
    char c = static_cast<char>(*data++);
    if (c == '\r' && data < end && *data == '\n') c = static_cast<char>(*data++);
    piece += c;
    if (c == '\n') break;
  }
  return piece;
}

void Require(bool condition) {
  if (!condition) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const int xField = (data[0] & 3) - 1;
  const int yField = ((data[0] >> 2) & 3) - 1;
  const bool withArrays = (data[0] & 0x10) == 0;
  std::vector<std::string> names;
  std::vector<double> left, bottom, right, top;
  std::vector<std::uint32_t> colours;
  const OGBArrays arrays =
      withArrays ? OGBArrays{&names, &left, &bottom, &right, &top, &colours} : OGBArrays{};
  COGBReader reader(arrays, xField, yField);
  const std::uint8_t* at = data + 1;
  const std::uint8_t* end = data + size;
  bool refused = false;
  while (at < end && !refused) {
    const std::string piece = NextPiece(at, end);
    OGBProjectionOfLine(piece);
    refused = !reader.TakeLine(piece);
  }
  Require(reader.ImageCount() >= 0);
  if (withArrays) {
    Require(names.size() == static_cast<std::size_t>(reader.ImageCount()));
    Require(bottom.size() == left.size() && right.size() == left.size() && top.size() == left.size());
    Require(colours.size() == left.size());
  }
  return 0;
}
