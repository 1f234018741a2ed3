#include "pen_listing.h"

#include <array>

namespace cli {
namespace {

struct OpcodeForm {
  const char* name;
  int operands;
};

// The pen language's opcodes in their numbering, with their operand bytes.
constexpr std::array<OpcodeForm, 25> kOpcodes = {{
    {"ENDPASS", 0},  {"DRAWREST", 0}, {"DRAW", 1},      {"SKIP", 1},      {"TICK", 1},      {"MARK", 0},
    {"SETWIDTH", 1}, {"SETCOLOR", 3}, {"DEFCOLOR", 0},  {"DEFWIDTH", 0},  {"ADDWIDTH", 1},  {"MINWIDTH", 1},
    {"MAXWIDTH", 1}, {"TICKFORE", 1}, {"TICKBACK", 1},  {"SKIPREST", 0},  {"FILLSTART", 3}, {"FILLNEXT", 3},
    {"LINESTART", 2}, {"LINENEXT", 2}, {"FILLCOLOR", 3}, {"DEFFILL", 0},  {"NOP", 0},       {"DRAWTOEND", 1},
    {"SKIPTOEND", 1},
}};

}  // namespace

std::string ListPass(const std::string& program) {
  std::string listing;
  for (std::size_t at = 0; at < program.size();) {
    const unsigned op = static_cast<unsigned char>(program[at]);
    listing += "      " + std::to_string(at) + ": ";
    if (op >= kOpcodes.size()) {
      listing += "unknown opcode " + std::to_string(op) + "\n";
      ++at;
      continue;
    }
    listing += kOpcodes[op].name;
    for (int k = 1; k <= kOpcodes[op].operands; ++k)
      listing += at + k < program.size() ? " " + std::to_string(static_cast<unsigned char>(program[at + k]))
                                         : " (missing)";
    listing += "\n";
    at += 1 + kOpcodes[op].operands;
  }
  return listing;
}

}  // namespace cli
