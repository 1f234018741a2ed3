// Numbers written without the C library must be byte for byte what printf
// writes in the "C" locale.
#include <gtest/gtest.h>
#include <locale.h>

#include <bit>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>
#include <string>

#include "platform/text/number_format.h"

namespace {

std::string Printf(double value, int decimals) {
  locale_t c = newlocale(LC_ALL_MASK, "C", static_cast<locale_t>(nullptr));
  locale_t previous = uselocale(c);
  char text[fk::kNumberChars + 8];
  std::snprintf(text, sizeof text, "%.*f", decimals, value);
  uselocale(previous);
  freelocale(c);
  return text;
}

std::string Fixed(double value, int decimals) {
  char text[fk::kNumberChars];
  return std::string(fk::FormatFixed(text, value, decimals));
}

TEST(NumberFormatTest, FixedDecimalsAreThoseOfPrintfForAwkwardValues) {
  const double awkward[] = {0.0, -0.0, 0.0078125, -0.0078125, 2.5, 0.125, 0.375, 9.9999995, 0.0000005,
                            1e-7, -1e-9, 123456789.0000005, 18446744073709.551615, 18446744073709551615.0,
                            4503599627370496.5, 9007199254740993.0, 1e300, -1.7976931348623157e308,
                            std::numeric_limits<double>::denorm_min(), std::numeric_limits<double>::min(),
                            std::numeric_limits<double>::quiet_NaN(), -std::numeric_limits<double>::quiet_NaN(),
                            std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};
  for (double value : awkward)
    for (int decimals : {0, 1, 2, 6, 9, 10, 17}) EXPECT_EQ(Fixed(value, decimals), Printf(value, decimals)) << value;
}

// Any bit pattern, map coordinates, and binary fractions (which put exact
// halves behind the last decimal).
TEST(NumberFormatTest, FixedDecimalsAreThoseOfPrintfForRandomValues) {
  std::mt19937_64 random(99);
  for (int i = 0; i < 300000; ++i) {
    double value = 0;
    switch (i % 3) {
      case 0: value = std::bit_cast<double>(random()); break;
      case 1: value = std::ldexp(static_cast<double>(random() >> 11), -static_cast<int>(random() % 80)); break;
      default: value = static_cast<double>(static_cast<std::int64_t>(random() % 2000000001) - 1000000000) /
                       static_cast<double>(std::uint64_t{1} << (random() % 30));
    }
    const int decimals = static_cast<int>(random() % 11);
    ASSERT_EQ(Fixed(value, decimals), Printf(value, decimals)) << std::hexfloat << value << " with " << decimals;
  }
}

TEST(NumberFormatTest, DecimalIntegers) {
  char text[fk::kNumberChars];
  EXPECT_EQ(fk::FormatDecimal(text, 0), "0");
  EXPECT_EQ(fk::FormatDecimal(text, -2147483648LL), "-2147483648");
  EXPECT_EQ(fk::FormatDecimal(text, 16777215), "16777215");
}

}  // namespace
