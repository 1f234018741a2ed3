// Small text helpers of the emulator: comparing names ignoring case, and
// numbers written the way the host answers them.
#pragma once

#include <string>
#include <string_view>

namespace sim {

bool EqualNoCase(std::string_view a, std::string_view b);
std::string Upper(std::string_view text);
std::string Lower(std::string_view text);
// A number as the host answers it: whole numbers without a point, others
// with as many digits as it takes to read the same double back.
std::string FormatNumber(double value);
// A text between double quotes, with inner quotes doubled.
std::string Quote(std::string_view text);

// The table name the host gives a file: its name without folder and
// extension, with every character that can't stand in a name made "_".
std::string TableNameFromPath(std::string_view path);

}  // namespace sim
