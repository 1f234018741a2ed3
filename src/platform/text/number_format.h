// Numbers as printf writes them in the "C" locale, without going through
// the C library's locale machinery: "%.<n>f" (so "%lf" is n = 6) and "%d".
// The bytes are the same as printf's, rounding of exact halves to even,
// "-0.000000", "nan", "-nan", "inf" and "-inf" included. For writers that
// put out numbers by the million.
#pragma once

#include <cstddef>
#include <string_view>

namespace fk {

// Room for any double with up to kMaxDecimals decimals, or any integer.
constexpr int kMaxDecimals = 20;
constexpr std::size_t kNumberChars = 312 + kMaxDecimals;

// Writes the number into `out` (kNumberChars long) and returns its text.
std::string_view FormatFixed(char* out, double value, int decimals);
std::string_view FormatDecimal(char* out, long long value);

}  // namespace fk
