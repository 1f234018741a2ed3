// The pens of the sample pen file: a solid line, dashes, ticks, changes of
// width and colour, a filled band and a line drawn to its end.
#pragma once

#include <vector>

#include "sim/host/pen_file_writer.h"

namespace sim {

std::vector<PenPasses> SamplePens();

}  // namespace sim
