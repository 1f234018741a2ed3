// The levels to contour a grid at.
#pragma once

#include <vector>

namespace cli {

// Every multiple of `step` from `minimum` to `maximum`. UsageError when the
// step is not a positive number or gives more than 10,000 levels.
std::vector<double> LevelsByInterval(double step, double minimum, double maximum);
// The levels ascending, each once, as the contouring takes them.
std::vector<double> AscendingLevels(std::vector<double> levels);

}  // namespace cli
