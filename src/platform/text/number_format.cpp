#include "platform/text/number_format.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <optional>

namespace fk {
namespace {

constexpr std::uint64_t kPowersOfTen[] = {1,      10,      100,      1000,      10000,
                                          100000, 1000000, 10000000, 100000000, 1000000000};
constexpr int kExactDecimals = 9;

using Wide = unsigned __int128;

// |value| times 10^decimals, rounded half to even, worked out exactly from
// the double's mantissa and exponent; nothing when it does not fit 64 bits
// (or for nan and infinity). That covers every coordinate a map holds.
std::optional<std::uint64_t> ScaledMagnitude(double value, int decimals) {
  const auto bits = std::bit_cast<std::uint64_t>(value);
  const int biased = static_cast<int>((bits >> 52) & 0x7ff);
  if (biased == 0x7ff) return std::nullopt;
  const std::uint64_t fraction = bits & ((std::uint64_t{1} << 52) - 1);
  const std::uint64_t mantissa = biased ? fraction | (std::uint64_t{1} << 52) : fraction;
  const int exponent = biased ? biased - 1075 : -1074;
  const Wide scaled = Wide{mantissa} * kPowersOfTen[decimals];  // below 2^83
  Wide rounded = 0;
  if (exponent >= 0) {
    if (exponent > 11) return std::nullopt;  // a normal mantissa times 2^12 is past 2^64 already
    rounded = scaled << exponent;
  } else if (exponent > -128) {
    const int shift = -exponent;
    rounded = scaled >> shift;
    const Wide rest = scaled - (rounded << shift);
    const Wide half = Wide{1} << (shift - 1);
    if (rest > half || (rest == half && (rounded & 1))) ++rounded;
  }  // else far below half a unit of the last decimal: 0
  if (rounded >> 64) return std::nullopt;
  return static_cast<std::uint64_t>(rounded);
}

}  // namespace

std::string_view FormatFixed(char* out, double value, int decimals) {
  decimals = std::clamp(decimals, 0, kMaxDecimals);
  const std::optional<std::uint64_t> scaled =
      decimals <= kExactDecimals ? ScaledMagnitude(value, decimals) : std::nullopt;
  if (!scaled) {
    const std::to_chars_result end = std::to_chars(out, out + kNumberChars, value, std::chars_format::fixed, decimals);
    return {out, static_cast<std::size_t>(end.ptr - out)};
  }
  char* at = out;
  if (std::signbit(value)) *at++ = '-';
  std::uint64_t fraction = *scaled % kPowersOfTen[decimals];
  at = std::to_chars(at, out + kNumberChars, *scaled / kPowersOfTen[decimals]).ptr;
  if (decimals > 0) {
    *at++ = '.';
    for (int digit = decimals - 1; digit >= 0; --digit, fraction /= 10) at[digit] = static_cast<char>('0' + fraction % 10);
    at += decimals;
  }
  return {out, static_cast<std::size_t>(at - out)};
}

std::string_view FormatDecimal(char* out, long long value) {
  const std::to_chars_result end = std::to_chars(out, out + kNumberChars, value);
  return {out, static_cast<std::size_t>(end.ptr - out)};
}

}  // namespace fk
