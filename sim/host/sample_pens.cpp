#include "sim/host/sample_pens.h"

#include <initializer_list>

namespace sim {
namespace {

// The opcodes of the pen language.
enum : int {
  END = 0, DRAWREST = 1, DRAW = 2, SKIP = 3, TICK = 4, MARK = 5, SETWIDTH = 6, SETCOLOR = 7, DEFCOLOR = 8,
  DEFWIDTH = 9, TICKBACK = 14, FILLSTART = 16, FILLNEXT = 17, FILLCOLOR = 20, DRAWTOEND = 23
};

std::string Pass(std::initializer_list<int> bytes) {
  std::string pass;
  for (int byte : bytes) pass += static_cast<char>(byte);
  return pass;
}

}  // namespace

std::vector<PenPasses> SamplePens() {
  return {
      {Pass({DRAWREST})},
      {Pass({MARK, DRAW, 8, SKIP, 4, END})},
      {Pass({MARK, DRAW, 10, SKIP, 3, DRAW, 1, SKIP, 3, END})},
      {Pass({DRAWREST}), Pass({MARK, SKIP, 6, TICK, 0x44, END})},
      {Pass({MARK, SETCOLOR, 200, 0, 0, SETWIDTH, 3, DRAW, 10, DEFCOLOR, DEFWIDTH, DRAW, 10, END})},
      {Pass({SETCOLOR, 0, 150, 0, FILLCOLOR, 0, 0, 0, DEFCOLOR, MARK, FILLSTART, 1, 3, 6, FILLNEXT, 12, 3, 6, SKIP, 4,
             END})},
      {Pass({DRAWTOEND, 8, SKIP, 8, TICKBACK, 0x55, END})},
  };
}

}  // namespace sim
