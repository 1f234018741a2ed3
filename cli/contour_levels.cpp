#include "contour_levels.h"

#include <algorithm>
#include <cmath>
#include <sstream>
#include <string>

#include "cli_errors.h"

namespace cli {

constexpr double kMaxLevels = 10000;

namespace {
std::string Shown(double number) {
  std::ostringstream text;
  text << number;
  return text.str();
}
}  // namespace

std::vector<double> LevelsByInterval(double step, double minimum, double maximum) {
  if (!(step > 0) || !std::isfinite(step)) throw UsageError("--interval must be a positive number, not " + Shown(step));
  const double first = std::ceil(minimum / step), last = std::floor(maximum / step);
  if (last - first + 1 > kMaxLevels) throw UsageError("--interval " + Shown(step) + " gives more than 10000 levels");
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
