// The pen file reader on any bytes, under the sanitizers: every pen the
// directory names is read, and what comes back lies inside the file.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "host/pen_file.h"

namespace {

void Require(bool condition) {
  if (!condition) std::abort();
}

const std::string& PenPath() {
  static const std::string path = [] {
    char pattern[] = "/dev/shm/pen-fuzz-XXXXXX";
    if (access("/dev/shm", W_OK) != 0) std::snprintf(pattern, sizeof pattern, "/tmp/pen-fuzz-XXXXXX");
    return std::string(mkdtemp(pattern)) + "/a.pen";
  }();
  return path;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::FILE* file = std::fopen(PenPath().c_str(), "wb");
  Require(file != nullptr);
  if (size) Require(std::fwrite(data, 1, size, file) == size);
  std::fclose(file);
  const int count = ReadPenCount(PenPath());
  std::vector<std::string> passes;
  for (int index = -1; index <= count && index < 8; ++index) {
    if (!ReadPenPasses(PenPath(), index, passes)) {
      Require(passes.empty());
      continue;
    }
    std::size_t bytes = 0;
    for (const std::string& pass : passes) bytes += pass.size() + 1;
    Require(index >= 0 && index < count && bytes + 3 <= size);  // the record head, then its passes
  }
  return 0;
}
