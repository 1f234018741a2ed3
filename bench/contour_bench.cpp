// Contouring against the classic routine (the yardstick kept in the tests),
// both giving their segments to the same callback through a pointer: a
// smooth 1500 by 1500 grid with 32 levels (few levels cross a cell) and a
// dense 400 by 400 grid of noise with 16 levels (most levels cross most
// cells). Compare each Library line with its Classic line.
#include <benchmark/benchmark.h>

#include <cmath>
#include <random>
#include <vector>

#include "maptools/contour.h"
#include "maptools/contour_reference.h"

namespace {

std::int64_t g_segments = 0;

// As cheap as a callback gets, so that the time is the routine's own.
void Count(double, double, double, double, double) { ++g_segments; }

struct Surface {
  Surface(int size, int levels, bool noisy)
      : size(size), columns(size, std::vector<double>(size)), x(size), y(size), z(levels) {
    std::mt19937_64 random(3);
    std::uniform_real_distribution<double> noise(-100, 100);
    for (int i = 0; i < size; ++i) {
      x[i] = 1000.0 + 2.5 * i;
      y[i] = 5000.0 + 2.5 * i;
      for (int j = 0; j < size; ++j)
        columns[i][j] = noisy ? noise(random) : 90 * std::sin(i / 97.0) * std::cos(j / 131.0) + 0.004 * (i - j);
    }
    const double step = 192.0 / levels;
    for (int k = 0; k < levels; ++k) z[k] = -96 + step * k;
    for (const auto& column : columns) rows.push_back(column.data());
  }
  int size;
  std::vector<std::vector<double>> columns;
  std::vector<const double*> rows;
  std::vector<double> x, y, z;
};

const Surface& Smooth() {
  static const Surface surface(1500, 32, false);
  return surface;
}

const Surface& Dense() {
  static const Surface surface(400, 16, true);
  return surface;
}

template <typename Routine>
void Run(benchmark::State& state, const Surface& s, Routine routine) {
  ContourLineFn line = Count;
  benchmark::DoNotOptimize(line);
  g_segments = 0;
  for (auto _ : state) routine(s, line);
  state.SetItemsProcessed(g_segments);
  state.counters["segments"] = static_cast<double>(g_segments / static_cast<std::int64_t>(state.iterations()));
}

void Library(const Surface& s, ContourLineFn line) {
  ContourGrid(s.rows.data(), 0, s.size - 1, 0, s.size - 1, s.x.data(), s.y.data(), static_cast<int>(s.z.size()),
              s.z.data(), line);
}

void Classic(const Surface& s, ContourLineFn line) {
  ClassicContour(s.rows.data(), 0, s.size - 1, 0, s.size - 1, s.x.data(), s.y.data(), static_cast<int>(s.z.size()),
                 s.z.data(), line);
}

void BM_ContourSmoothLibrary(benchmark::State& state) { Run(state, Smooth(), Library); }
void BM_ContourSmoothClassic(benchmark::State& state) { Run(state, Smooth(), Classic); }
void BM_ContourDenseLibrary(benchmark::State& state) { Run(state, Dense(), Library); }
void BM_ContourDenseClassic(benchmark::State& state) { Run(state, Dense(), Classic); }
BENCHMARK(BM_ContourSmoothLibrary)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ContourSmoothClassic)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ContourDenseLibrary)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ContourDenseClassic)->Unit(benchmark::kMillisecond);

}  // namespace
