// Every file the library touches goes through Native(): how long a path in
// the wrong letter case takes to resolve in a folder of many entries.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "platform/paths/paths.h"

namespace {

class Folder {
 public:
  explicit Folder(int entries) {
    m_path = std::filesystem::temp_directory_path() / ("formkit-bench-" + std::to_string(entries));
    std::filesystem::create_directories(m_path / "sub");
    for (int i = 0; i < entries; ++i) std::ofstream(m_path / "sub" / ("file" + std::to_string(i) + ".tab"));
  }
  ~Folder() { std::filesystem::remove_all(m_path); }
  std::string Upper(int index) const {
    std::string path = (m_path / "SUB" / ("FILE" + std::to_string(index) + ".TAB")).string();
    return path;
  }
  std::string Exact(int index) const { return (m_path / "sub" / ("file" + std::to_string(index) + ".tab")).string(); }

 private:
  std::filesystem::path m_path;
};

void BM_NativeExactCase(benchmark::State& state) {
  Folder folder(static_cast<int>(state.range(0)));
  const std::string path = folder.Exact(static_cast<int>(state.range(0)) / 2);
  for (auto _ : state) benchmark::DoNotOptimize(fk::Native(path));
}
BENCHMARK(BM_NativeExactCase)->Arg(10)->Arg(1000);

void BM_NativeOtherCase(benchmark::State& state) {
  Folder folder(static_cast<int>(state.range(0)));
  const std::string path = folder.Upper(static_cast<int>(state.range(0)) / 2);
  for (auto _ : state) benchmark::DoNotOptimize(fk::Native(path));
}
BENCHMARK(BM_NativeOtherCase)->Arg(10)->Arg(1000);

}  // namespace
