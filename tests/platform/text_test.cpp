// Formatting and reading numbers (byte for byte what printf writes in the "C"
// locale), dates, text files, message formats and the string table.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <locale.h>

#include <bit>
#include <climits>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "platform/automation/variant.h"
#include "platform/text/format.h"
#include "platform/text/message_format.h"
#include "platform/text/number_format.h"
#include "platform/text/number_parse.h"
#include "platform/text/ole_date.h"
#include "platform/text/string_table.h"
#include "platform/text/text_file.h"
#include "support/comma_locale.h"
#include "support/session_fixture.h"

using ::testing::ElementsAre;
using ::testing::Optional;

TEST(FormatTest, NumbersIgnoreTheLocale) {
  const ScopedCommaLocale comma;
  if (comma.Missing()) GTEST_SKIP() << "no locale with a decimal comma is installed or can be compiled";
  char check[16];
  std::snprintf(check, sizeof check, "%.1f", 1.5);
  ASSERT_STREQ(check, "1,5") << "the locale is in force";

  // printf's own results, with a point.
  EXPECT_EQ(fk::Format("%lf", 1.5), "1.500000");
  EXPECT_EQ(fk::Format("%-6.2f|%+.3e|%g|%G|%5d|%-4s|%x|%%", 2.5, 1234.5, 0.0001, 1e20, 42, "ab", 255),
            "2.50  |+1.234e+03|0.0001|1E+20|   42|ab  |ff|%");
  EXPECT_EQ(fk::Atof("1.75"), 1.75);
  EXPECT_EQ(fk::Atof("1,75"), 1.0);
  EXPECT_THAT(fk::ParseWholeNumber(" 2.5 "), Optional(2.5));
  EXPECT_EQ(fk::ParseWholeNumber("2,5"), std::nullopt);
  EXPECT_EQ(fk::Variant::Double(0.5).ToText(), "0.5");
  EXPECT_EQ(fk::Variant::Text("3.25").ToDouble(), 3.25);
  EXPECT_EQ(fk::FormatMessageText("%1!.2f! %1", std::vector<fk::MessageArg>{2.5}), "2.50 2.5");
}

TEST(NumberParseTest, ReadsNumbersLikeTheCRuntime) {
  EXPECT_THAT((std::vector{fk::Atoi(" \t\n-17"), fk::Atoi("12abc"), fk::Atoi("abc"), fk::Atoi("99999999999"),
                           fk::Atol("-99999999999999999999999"), fk::Atoi(std::string_view("12345").substr(0, 2))}),
              ElementsAre(-17, 12, 0, INT32_MAX, INT32_MIN, 12))
      << "the last reads only the text given";
  EXPECT_THAT((std::vector{fk::Atof("  1.5e3xyz"), fk::Atof("abc"), fk::Atof(std::string_view("1.2345").substr(0, 3))}),
              ElementsAre(1500.0, 0.0, 1.2));
  EXPECT_THAT(fk::ParseWholeNumber("\t-3.5  "), Optional(-3.5));
  for (const char* notOne : {"", "   ", "12abc", "1 2", "abc", "1,5", "nan", "inf", "Infinity", "0x10"})
    EXPECT_EQ(fk::ParseWholeNumber(notOne), std::nullopt) << '"' << notOne << '"';
}

TEST(TextFileTest, WriterWritesCrLfAndAppendsButMakesNoFolder) {
  ScopedFolder folder;
  folder.Write("data/keep.txt", "");
  fk::TextWriter writer;
  ASSERT_TRUE(writer.Open(folder.Path() + "/DATA/Out.txt"));
  writer.Write("a\nb\n\nc");
  writer.WriteLine(" end");
  EXPECT_TRUE(writer.Close());
  EXPECT_EQ(ReadFile(folder.Path() + "/data/Out.txt"), "a\r\nb\r\n\r\nc end\r\n") << "lands in the folder that exists";

  ASSERT_TRUE(writer.Open(folder.Path() + "/data/out.TXT", "a"));
  writer.WriteLine("more");
  EXPECT_TRUE(writer.Close());
  EXPECT_EQ(ReadFile(folder.Path() + "/data/Out.txt"), "a\r\nb\r\n\r\nc end\r\nmore\r\n");

  EXPECT_FALSE(writer.Open(folder.Path() + "/missing/x.txt"));
}

// Pieces of every size, wherever they meet the buffer's end, give the bytes
// of a text-mode file.
TEST(TextFileTest, PiecesOfEverySizeReachTheFileWithCRLF) {
  ScopedFolder folder;
  const std::string path = folder.Path() + "/pieces.txt";
  std::mt19937 random(5);
  std::string expected, bytes;
  fk::TextWriter writer;
  ASSERT_TRUE(writer.Open(path));
  for (int piece = 0; piece < 3000; ++piece) {
    const std::size_t size = piece % 500 == 7 ? 70000 + random() % 70000 : random() % 40;
    std::string text(size, 'x');
    for (char& c : text) c = "ab\n9."[random() % 5];
    if (piece % 3 == 0 && text.find('\n') == std::string::npos)
      writer.WritePlain(text);
    else
      writer.Write(text);
    expected += text;
  }
  EXPECT_TRUE(writer.Close());
  for (char c : expected) bytes += c == '\n' ? std::string("\r\n") : std::string(1, c);
  EXPECT_EQ(ReadFile(path), bytes);
}

TEST(TextFileTest, GetsReadsLikeFgetsOnATextModeFile) {
  ScopedFolder folder;
  const std::string longLine(250, 'x');
  const std::string content = "first\r\nsecond\nlone\rcr\r\n\r\n" + longLine + "\r\n" + std::string(198, 'y') +
                              "\r\n" + std::string(199, 'z') + "\r\nlast\r";
  const std::string path = folder.Write("in.txt", content);

  fk::TextReader reader;
  ASSERT_TRUE(reader.Open(path));
  std::vector<std::string> lines;
  while (const auto line = reader.Gets(200)) lines.push_back(*line);
  EXPECT_THAT(lines, ElementsAre("first\n", "second\n", "lone\rcr\n", "\n", std::string(199, 'x'),
                                 std::string(51, 'x') + "\n", std::string(198, 'y') + "\n", std::string(199, 'z'), "\n",
                                 "last\r"));
  EXPECT_EQ(reader.Gets(200), std::nullopt) << "the end stays the end";
  EXPECT_FALSE(reader.Open(folder.Path() + "/none.txt"));
}

TEST(MessageFormatTest, FillsPlacesLikeTheSystemsMessageFormatter) {
  const std::vector<fk::MessageArg> args = {std::string("map"), 42LL, 2.5};
  auto format = [&](const char* pattern) { return fk::FormatMessageText(pattern, args); };
  EXPECT_EQ(format("%1!s! has %2!ld! rows"), "map has 42 rows");
  EXPECT_EQ(format("%1 %2 %3"), "map 42 2.5");
  EXPECT_EQ(format("[%2!5ld!] [%3!.2f!] [%1!-5s!]"), "[   42] [2.50] [map  ]");
  EXPECT_EQ(format("100%% done%nnext"), "100% done\r\nnext");
  EXPECT_EQ(format("shown%0hidden %1"), "shown");
  EXPECT_EQ(format("%.%!% "), ".! ");
  EXPECT_EQ(format("[%4][%9!s!]"), "[][]") << "missing arguments give nothing";
  // A format that doesn't suit the argument shows the argument plainly.
  EXPECT_EQ(format("%1!d! %3!d! %2!s!"), "map 2.5 42");

  std::vector<fk::MessageArg> many;
  for (int i = 1; i <= 12; ++i) many.emplace_back("a" + std::to_string(i));
  EXPECT_EQ(fk::FormatMessageText("%10,%12!s!,%1", many), "a10,a12,a1");
  EXPECT_EQ(fk::FormatMessageText("%10", args), "") << "%10 is the tenth argument, not the first and a 0";

  // An id the string table lacks gives no text.
  EXPECT_FALSE(fk::HasString(1));
  EXPECT_EQ(fk::LoadString(1), "");
  EXPECT_EQ(fk::LoadString(4294967295u), "");
}

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

// Awkward values, then any bit pattern, map coordinates, and binary
// fractions (which put exact halves behind the last decimal); then whole numbers.
TEST(NumberFormatTest, FixedDecimalsAndWholeNumbersAreThoseOfPrintf) {
  const double awkward[] = {0.0, -0.0, 0.0078125, -0.0078125, 2.5, 0.125, 0.375, 9.9999995, 0.0000005,
                            1e-7, -1e-9, 123456789.0000005, 18446744073709.551615, 18446744073709551615.0,
                            4503599627370496.5, 9007199254740993.0, 1e300, -1.7976931348623157e308,
                            std::numeric_limits<double>::denorm_min(), std::numeric_limits<double>::min(),
                            std::numeric_limits<double>::quiet_NaN(), -std::numeric_limits<double>::quiet_NaN(),
                            std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};
  for (double value : awkward)
    for (int decimals : {0, 1, 2, 6, 9, 10, 17}) EXPECT_EQ(Fixed(value, decimals), Printf(value, decimals)) << value;
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
  char text[fk::kNumberChars];
  EXPECT_EQ(fk::FormatDecimal(text, -2147483648LL), "-2147483648");
  EXPECT_EQ(fk::FormatDecimal(text, 16777215), "16777215");
}

fk::OleDate Date(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
  return fk::OleDateFromParts({year, month, day, hour, minute, second}).value();
}

TEST(OleDateTest, DaysCountFromTheEndOf1899AndFoldBeforeIt) {
  // Before the end of 1899 the fraction still counts forward.
  EXPECT_THAT((std::vector{Date(1899, 12, 30), Date(1900, 1, 1), Date(2000, 1, 1, 18), Date(1899, 12, 29, 6),
                           fk::OleDateToLinear(-1.25), fk::OleDateToLinear(36526.75)}),
              ElementsAre(0.0, 2.0, 36526.75, -1.25, -0.75, 36526.75));

  const auto parts = fk::PartsFromOleDate(-1.25);
  ASSERT_TRUE(parts);
  EXPECT_EQ(parts->day * 100 + parts->hour, 2906);
  const auto rounded = fk::PartsFromOleDate(Date(2024, 2, 29, 23, 59, 59) + 0.6 / 86400);
  ASSERT_TRUE(rounded);
  EXPECT_EQ(rounded->month * 100 + rounded->day, 301) << "to the nearest second, over midnight";

  EXPECT_FALSE(fk::OleDateFromParts({2023, 2, 29, 0, 0, 0}));
  EXPECT_FALSE(fk::OleDateFromParts({99, 12, 31, 0, 0, 0}));
  EXPECT_FALSE(fk::PartsFromOleDate(3e6));
  EXPECT_EQ(fk::FormatOleDate(3e6), "");
}

TEST(OleDateTest, TextInTheUsersFormatReadsBack) {
  for (const fk::OleDate date : {Date(2023, 11, 5, 14, 7, 9), Date(2023, 11, 5), Date(1899, 12, 30, 8, 30)}) {
    const std::string text = fk::FormatOleDate(date);
    const auto back = fk::ParseOleDate(text);
    ASSERT_TRUE(back) << text;
    EXPECT_DOUBLE_EQ(*back, date) << text;
  }
  EXPECT_EQ(fk::FormatOleDate(Date(2023, 11, 5)).find(':'), std::string::npos) << "midnight: the date alone";
  EXPECT_FALSE(fk::ParseOleDate("yesterday"));
  EXPECT_FALSE(fk::ParseOleDate(""));
  EXPECT_FALSE(fk::ParseOleDate(fk::FormatOleDate(Date(2023, 11, 5, 14, 7, 9)) + " and more"));
}

}  // namespace
