// A map prints every line in its style: how long the sample pens take along
// a polyline of 1,000 points, recorded, and drawn into a PNG with Cairo.
#include <benchmark/benchmark.h>

#include <cmath>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "formkit/formkit.h"
#include "formkit/host.h"
#include "platform/automation/handle_table.h"
#include "platform/draw/dc_handles.h"
#include "platform/draw/recording_dc.h"
#include "sim/host/sample_pens.h"

namespace {

const std::string& SamplePenFile() {
  static const std::string path = [] {
    const std::string file = (std::filesystem::temp_directory_path() / "formkit-bench-styles.pen").string();
    sim::WritePenFile(file, sim::SamplePens());
    return file;
  }();
  return path;
}

// A wavy line across a picture of 1,000 by 400 pixels.
std::vector<std::int32_t> Wave() {
  std::vector<std::int32_t> xy;
  for (int i = 0; i < 1000; ++i)
    xy.insert(xy.end(), {i, static_cast<std::int32_t>(std::lround(200 + 150 * std::sin(i / 40.0)))});
  return xy;
}

void BM_SamplePenRecorded(benchmark::State& state) {
  const int pen = static_cast<int>(state.range(0));
  for (auto _ : state) {
    auto dc = std::make_shared<fk::draw::RecordingDC>();
    std::vector<std::int32_t> xy = Wave();
    const std::int32_t handle = fk::draw::AddDeviceContext(dc);
    DrawCMStyleLine(handle, SamplePenFile().c_str(), pen, 0, 3, xy.data(), 1000);
    benchmark::DoNotOptimize(dc->Primitives().size());
    fk::HandleTable::Instance().Remove(handle);
  }
}
BENCHMARK(BM_SamplePenRecorded)->DenseRange(0, 6)->Unit(benchmark::kMicrosecond);

void BM_SamplePenIntoPng(benchmark::State& state) {
  const std::string png = (std::filesystem::temp_directory_path() / "formkit-bench-line.png").string();
  for (auto _ : state) {
    const std::int32_t dc = fk_create_file_dc(png.c_str(), 1000, 400, 96);
    std::vector<std::int32_t> xy = Wave();
    DrawCMStyleLine(dc, SamplePenFile().c_str(), static_cast<int>(state.range(0)), 0, 3, xy.data(), 1000);
    fk_close_dc(dc);
  }
}
BENCHMARK(BM_SamplePenIntoPng)->Arg(1)->Arg(5)->Unit(benchmark::kMillisecond);

}  // namespace
