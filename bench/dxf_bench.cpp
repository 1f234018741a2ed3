// The DXF writers: bytes per second for polylines of many vertices, the
// cost of one small entity written directly and through its export, and of
// one selection box.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <random>
#include <vector>

#include "exchange/dxf_lib.h"
#include "exchange/dxf_selection.h"
#include "formkit/formkit.h"

namespace {

struct Polyline {
  explicit Polyline(int count) : x(count), y(count), z(count) {
    std::mt19937_64 random(42);
    std::uniform_real_distribution<double> easting(400000, 600000), northing(6900000, 7100000), height(-500, 2500);
    for (int i = 0; i < count; ++i) x[i] = easting(random), y[i] = northing(random), z[i] = height(random);
  }
  std::vector<double> x, y, z;
};

// The size on disk of one polyline, measured once in a real file.
std::size_t PolylineBytes(const Polyline& line) {
  const std::string probe = (std::filesystem::temp_directory_path() / "formkit-bench-polyline.dxf").string();
  CDXFLib dxf;
  dxf.DXFCreate(probe);
  dxf.DXFClose();
  const auto empty = std::filesystem::file_size(probe);
  dxf.DXFCreate(probe);
  dxf.DXFPolyline(line.x.data(), line.y.data(), line.z.data(), static_cast<std::int32_t>(line.x.size()));
  dxf.DXFClose();
  const auto full = std::filesystem::file_size(probe);
  std::filesystem::remove(probe);
  return full - empty;
}

void BM_DXFPolyline(benchmark::State& state) {
  const Polyline line(static_cast<int>(state.range(0)));
  const std::size_t bytes = PolylineBytes(line);
  CDXFLib dxf;
  dxf.DXFCreate("/dev/null");
  for (auto _ : state)
    dxf.DXFPolyline(line.x.data(), line.y.data(), line.z.data(), static_cast<std::int32_t>(line.x.size()));
  dxf.DXFClose();
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes));
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * line.x.size()));
}
BENCHMARK(BM_DXFPolyline)->Arg(10000);

void BM_DXFPoint(benchmark::State& state) {
  CDXFLib dxf;
  dxf.DXFCreate("/dev/null");
  double x = 500000;
  for (auto _ : state) dxf.DXFPoint(x += 0.5, 7000000.25, 12.5);
  dxf.DXFClose();
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_DXFPoint);

// The same through the export, with the module's guard around each call.
void BM_DXFPointExport(benchmark::State& state) {
  DXFCreate("/dev/null");
  double x = 500000;
  for (auto _ : state) DXFPoint(x += 0.5, 7000000.25, 12.5);
  DXFClose();
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_DXFPointExport);

void BM_DXFSelectionBox(benchmark::State& state) {
  CDXFSelection selection;
  selection.SetFileName("/dev/null");
  selection.OpenSelection();
  double x = 500000;
  for (auto _ : state) selection.WriteBox(x += 0.5, 7000000.25, 12.5, 10, 10, 5, 35, 20);
  selection.CloseSelection();
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_DXFSelectionBox);

}  // namespace
