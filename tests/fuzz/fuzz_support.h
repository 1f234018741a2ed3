// What the fuzz targets share: stopping the run at a broken rule, a scratch
// folder for the files an input becomes, and writing those files.
#pragma once

#include <unistd.h>

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace fuzz {

// Stops the run at the first broken rule, naming its line.
inline void Require(bool condition, int line = __builtin_LINE()) {
  if (condition) return;
  std::fprintf(stderr, "rule broken at line %d\n", line);
  std::abort();
}

// A new folder named after `name`, in memory where /dev/shm is writable (a
// target writes files for every input, and some readers sync them), else
// under /tmp. A run that ends removes it; one stopped by a finding leaves it.
inline std::string ScratchFolder(const std::string& name) {
  static std::vector<std::string> made;
  if (made.empty())
    std::atexit([] {
      for (const std::string& folder : made) std::filesystem::remove_all(folder);
    });
  const std::string parent = access("/dev/shm", W_OK) == 0 ? "/dev/shm/" : "/tmp/";
  std::string pattern = parent + name + "-fuzz-XXXXXX";
  Require(mkdtemp(pattern.data()) != nullptr);
  made.push_back(pattern);
  return pattern;
}

inline void WriteFile(const std::string& path, const void* data, std::size_t size) {
  std::FILE* file = std::fopen(path.c_str(), "wb");
  Require(file != nullptr);
  if (size) Require(std::fwrite(data, 1, size, file) == size);
  std::fclose(file);
}

}  // namespace fuzz
