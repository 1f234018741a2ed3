// Formatting and reading numbers, text files, message formats and the string table.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <locale.h>

#include <climits>
#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

#include "platform/automation/variant.h"
#include "platform/text/format.h"
#include "platform/text/message_format.h"
#include "platform/text/number_parse.h"
#include "platform/text/string_table.h"
#include "platform/text/text_file.h"
#include "support/comma_locale.h"
#include "support/session_fixture.h"

using ::testing::ElementsAreArray;
using ::testing::Optional;

namespace {

template <typename... Args>
void ExpectLikePrintf(const char* pattern, Args... args) {
  char expected[256];
  std::snprintf(expected, sizeof expected, pattern, args...);
  EXPECT_EQ(fk::Format(pattern, args...), expected) << "pattern " << pattern;
}

// Sets LC_NUMERIC for the test's life.
class NumericLocale {
 public:
  explicit NumericLocale(const std::string& name) : m_bSet(std::setlocale(LC_NUMERIC, name.c_str()) != nullptr) {}
  ~NumericLocale() { std::setlocale(LC_NUMERIC, "C"); }
  bool IsSet() const { return m_bSet; }

 private:
  bool m_bSet;
};

std::vector<std::string> ReadAll(fk::TextReader& reader, std::size_t maxChars) {
  std::vector<std::string> pieces;
  while (auto piece = reader.Gets(maxChars)) pieces.push_back(*piece);
  return pieces;
}

}  // namespace

TEST(FormatTest, FormatsLikePrintf) {
  ExpectLikePrintf("%d|%5d|%-5d|%05d|%+d|% d", 42, 42, 42, -42, 7, 7);
  ExpectLikePrintf("%x %#X %o %u %i %c", 255, 255, 8, 3000000000u, -5, 'A');
  ExpectLikePrintf("%ld %lu %lld %hd", 1234567890123L, 4000000000UL, -9000000000LL, 70000);
  ExpectLikePrintf("%*d|%-*d|", 6, 12, 4, 3);
  ExpectLikePrintf("%lf %f %.2f %10.3f| %-10.1f|", 1.5, -0.25, 2.675, 3.14159, 2.25);
  ExpectLikePrintf("%.0f %.0f %.0f %.10f %f", 0.5, 1.5, 2.5, 1.0 / 3, 1e15);
  ExpectLikePrintf("%e %.3E %g %g %g %G %.3g %#g", 12345.678, 0.00012345, 0.0001, 1e-5, 123456789.0, 1e20, 2.5, 1.0);
  ExpectLikePrintf("%s|%8s|%-8s|%.2s|%5.1f%%", "abc", "abc", "abc", "abc", 99.44);
}

TEST(FormatTest, NumbersIgnoreTheLocale) {
  const std::string comma = CommaLocaleName();
  if (comma.empty()) GTEST_SKIP() << "no locale with a decimal comma is installed or can be compiled";
  NumericLocale locale(comma);
  ASSERT_TRUE(locale.IsSet());
  char check[16];
  std::snprintf(check, sizeof check, "%.1f", 1.5);
  ASSERT_STREQ(check, "1,5") << "the locale is in force";

  EXPECT_EQ(fk::Format("%lf", 1.5), "1.500000");
  EXPECT_EQ(fk::Format("%.2f;%g;%e", 2.5, 0.25, 1.5), "2.50;0.25;1.500000e+00");
  EXPECT_EQ(fk::Atof("1.75"), 1.75);
  EXPECT_EQ(fk::Atof("1,75"), 1.0);
  EXPECT_THAT(fk::ParseWholeNumber(" 2.5 "), Optional(2.5));
  EXPECT_EQ(fk::ParseWholeNumber("2,5"), std::nullopt);
  EXPECT_EQ(fk::Variant::Double(0.5).ToText(), "0.5");
  EXPECT_EQ(fk::Variant::Text("3.25").ToDouble(), 3.25);
  EXPECT_EQ(fk::FormatMessageText("%1!.2f! %1", std::vector<fk::MessageArg>{2.5}), "2.50 2.5");
}

TEST(NumberParseTest, ReadsNumbersLikeTheCRuntime) {
  EXPECT_EQ(fk::Atoi("42"), 42);
  EXPECT_EQ(fk::Atoi(" \t\n-17"), -17);
  EXPECT_EQ(fk::Atoi("+8"), 8);
  EXPECT_EQ(fk::Atoi("12abc"), 12);
  EXPECT_EQ(fk::Atoi("3.9"), 3);
  EXPECT_EQ(fk::Atoi("abc"), 0);
  EXPECT_EQ(fk::Atoi(""), 0);
  EXPECT_EQ(fk::Atoi("- 5"), 0);
  EXPECT_EQ(fk::Atoi("99999999999"), INT32_MAX);
  EXPECT_EQ(fk::Atoi("-99999999999999999999999"), INT32_MIN);
  EXPECT_EQ(fk::Atol("2147483648"), INT32_MAX);
  EXPECT_EQ(fk::Atol("-2147483648"), INT32_MIN);
  EXPECT_EQ(fk::Atoi(std::string_view("12345").substr(0, 2)), 12) << "only the text given is read";

  EXPECT_EQ(fk::Atof("  1.5e3xyz"), 1500.0);
  EXPECT_EQ(fk::Atof(".5"), 0.5);
  EXPECT_EQ(fk::Atof("-2.25"), -2.25);
  EXPECT_EQ(fk::Atof("abc"), 0.0);
  EXPECT_EQ(fk::Atof(""), 0.0);
  EXPECT_EQ(fk::Atof(std::string_view("1.2345").substr(0, 3)), 1.2);

  EXPECT_THAT(fk::ParseWholeNumber("12"), Optional(12.0));
  EXPECT_THAT(fk::ParseWholeNumber("\t-3.5  "), Optional(-3.5));
  EXPECT_THAT(fk::ParseWholeNumber(std::string_view("12x").substr(0, 2)), Optional(12.0));
  for (const char* notOne : {"", "   ", "12abc", "1 2", "abc", "1,5", "nan", "inf", "Infinity", "0x10"})
    EXPECT_EQ(fk::ParseWholeNumber(notOne), std::nullopt) << '"' << notOne << '"';
}

TEST(TextFileTest, WriterWritesCrLfAndReportsAFailedWrite) {
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
  ASSERT_TRUE(writer.Open("/dev/full"));
  writer.WriteLine("nowhere to go");
  EXPECT_FALSE(writer.Close());
}

TEST(TextFileTest, GetsReadsLikeFgetsOnATextModeFile) {
  ScopedFolder folder;
  const std::string longLine(250, 'x');
  const std::string content = "first\r\nsecond\nlone\rcr\r\n\r\n" + longLine + "\r\n" + std::string(198, 'y') +
                              "\r\n" + std::string(199, 'z') + "\r\nlast\r";
  const std::string path = folder.Write("in.txt", content);

  fk::TextReader reader;
  ASSERT_TRUE(reader.Open(path));
  EXPECT_EQ(reader.Gets(200), "first\n");
  EXPECT_EQ(reader.Gets(200), "second\n");
  EXPECT_EQ(reader.Gets(200), "lone\rcr\n");
  EXPECT_EQ(reader.Gets(200), "\n");
  EXPECT_EQ(reader.Gets(200), std::string(199, 'x'));
  EXPECT_EQ(reader.Gets(200), std::string(51, 'x') + "\n");
  EXPECT_EQ(reader.Gets(200), std::string(198, 'y') + "\n");
  EXPECT_EQ(reader.Gets(200), std::string(199, 'z'));
  EXPECT_EQ(reader.Gets(200), "\n");
  EXPECT_EQ(reader.Gets(200), "last\r");
  EXPECT_EQ(reader.Gets(200), std::nullopt);
  EXPECT_EQ(reader.Gets(200), std::nullopt);
  reader.Close();

  // Against fgets on the same text with its line ends as a text-mode read gives them.
  std::string translated;
  for (std::size_t i = 0; i < content.size(); ++i)
    if (!(content[i] == '\r' && i + 1 < content.size() && content[i + 1] == '\n')) translated += content[i];
  const std::string translatedPath = folder.Write("translated.txt", translated);
  for (std::size_t maxChars : {2u, 3u, 7u, 50u}) {
    std::vector<std::string> expected;
    std::FILE* file = std::fopen(translatedPath.c_str(), "rb");
    ASSERT_NE(file, nullptr);
    std::vector<char> buffer(maxChars);
    while (std::fgets(buffer.data(), static_cast<int>(maxChars), file)) expected.emplace_back(buffer.data());
    std::fclose(file);
    ASSERT_TRUE(reader.Open(path));
    EXPECT_THAT(ReadAll(reader, maxChars), ElementsAreArray(expected)) << "pieces of " << maxChars;
  }
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
}

TEST(StringTableTest, LoadsTheCompiledTable) {
  EXPECT_EQ(fk::LoadString(2000), "Error could not execute Help.\nCommand: %1!s! %2!s!");
  EXPECT_EQ(fk::FormatString(2000, {std::string("viewer"), std::string("/h")}),
            "Error could not execute Help.\nCommand: viewer /h");
  EXPECT_TRUE(fk::HasString(2000));
  EXPECT_FALSE(fk::HasString(1));
  EXPECT_EQ(fk::LoadString(1), "");
  EXPECT_EQ(fk::LoadString(4294967295u), "");

  // Every line of the table's source is there under its number.
  std::ifstream in(FORMKIT_SOURCE_DIR "/resources/strings.tsv");
  ASSERT_TRUE(in);
  int entries = 0;
  for (std::string line; std::getline(in, line);) {
    if (line.empty() || line[0] == '#') continue;
    const std::size_t tab = line.find('\t');
    ASSERT_NE(tab, std::string::npos) << line;
    std::string text;
    for (std::size_t i = tab + 1; i < line.size(); ++i) {
      if (line[i] != '\\' || i + 1 == line.size()) {
        text += line[i];
        continue;
      }
      const char escaped = line[++i];
      text += escaped == 'n' ? '\n' : escaped == 't' ? '\t' : escaped == 'r' ? '\r' : escaped;
    }
    const unsigned id = static_cast<unsigned>(std::stoul(line.substr(0, tab)));
    EXPECT_EQ(fk::LoadString(id), text) << id;
    ++entries;
  }
  EXPECT_GT(entries, 10);
}
