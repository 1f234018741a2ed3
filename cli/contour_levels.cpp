#include "contour_levels.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "cli_errors.h"

namespace cli {

constexpr double kMaxLevels = 10000;

std::vector<double> LevelsByInterval(double step, double minimum, double maximum) {
  if (!(step > 0) || !std::isfinite(step)) throw UsageError("--interval must be a positive number, not " + std::to_string(step));
  const double first = std::ceil(minimum / step), last = std::floor(maximum / step);
  if (last - first + 1 > kMaxLevels) throw UsageError("--interval " + std::to_string(step) + " gives more than 10000 levels");
  std::vector<double> levels;
  for (double k = first; k <= last; ++k) levels.push_back(k * step);
  return levels;
}

std::vector<double> AscendingLevels(std::vector<double> levels) {
  std::sort(levels.begin(), levels.end());
  levels.erase(std::unique(levels.begin(), levels.end()), levels.end());
  return levels;
}

}  // namespace cli
