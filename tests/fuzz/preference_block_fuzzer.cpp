// The host's preference file reader on any bytes, under the sanitizers: it
// never reads outside the file or writes outside the block, and it accepts
// only files that start with the magic and hold at least one record header.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "settings/preference_block.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  PreferenceBlock block;
  const bool accepted = ReadPreferenceBlock(std::string_view(reinterpret_cast<const char*>(data), size), block);
  const bool plausible = size >= 8 && data[0] == 0xD2 && data[1] == 0xD1;
  if (accepted && !plausible) std::abort();
  return 0;
}
