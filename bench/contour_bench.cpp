// Contouring: segments per second on a 2000 by 2000 grid with 32 levels,
// on a smooth surface (few levels per cell) and on noise (many).
#include <benchmark/benchmark.h>

#include <cmath>
#include <random>
#include <vector>

#include "maptools/contour.h"

namespace {

constexpr int kSize = 2000;
constexpr int kLevels = 32;

std::int64_t g_segments = 0;

// As cheap as a callback gets, so that the time is the routine's own.
void Count(double, double, double, double, double) { ++g_segments; }

struct Surface {
  explicit Surface(bool noisy) : columns(kSize, std::vector<double>(kSize)), x(kSize), y(kSize), z(kLevels) {
    std::mt19937_64 random(3);
    std::uniform_real_distribution<double> noise(-100, 100);
    for (int i = 0; i < kSize; ++i) {
      x[i] = 1000.0 + 2.5 * i;
      y[i] = 5000.0 + 2.5 * i;
      for (int j = 0; j < kSize; ++j)
        columns[i][j] = noisy ? noise(random) : 90 * std::sin(i / 97.0) * std::cos(j / 131.0) + 0.004 * (i - j);
    }
    for (int k = 0; k < kLevels; ++k) z[k] = -96 + 6.0 * k;
    for (const auto& column : columns) rows.push_back(column.data());
  }
  std::vector<std::vector<double>> columns;
  std::vector<const double*> rows;
  std::vector<double> x, y, z;
};

void Run(benchmark::State& state, const Surface& s) {
  g_segments = 0;
  for (auto _ : state)
    ContourGrid(s.rows.data(), 0, kSize - 1, 0, kSize - 1, s.x.data(), s.y.data(), kLevels, s.z.data(), Count);
  state.SetItemsProcessed(g_segments);
  state.counters["segments"] = static_cast<double>(g_segments / static_cast<std::int64_t>(state.iterations()));
}

void BM_ContourSmooth(benchmark::State& state) {
  static const Surface surface(false);
  Run(state, surface);
}
BENCHMARK(BM_ContourSmooth)->Unit(benchmark::kMillisecond);

void BM_ContourNoise(benchmark::State& state) {
  static const Surface surface(true);
  Run(state, surface);
}
BENCHMARK(BM_ContourNoise)->Unit(benchmark::kMillisecond);

}  // namespace
