// A pass of a pen as a readable listing: one opcode a line with its operands.
#pragma once

#include <string>

namespace cli {

std::string ListPass(const std::string& program);

}  // namespace cli
