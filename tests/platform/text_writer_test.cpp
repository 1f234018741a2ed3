// The buffered text-mode writer: the bytes of a text-mode file, whatever
// the sizes of the pieces and wherever they meet the buffer's end.
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "platform/text/text_writer.h"
#include "support/session_fixture.h"

namespace {

std::string TextMode(const std::string& text) {
  std::string bytes;
  for (char c : text) bytes += c == '\n' ? std::string("\r\n") : std::string(1, c);
  return bytes;
}

TEST(TextWriterTest, PiecesOfEverySizeReachTheFileWithCRLF) {
  ScopedFolder folder;
  const std::string path = folder.Path() + "/pieces.txt";
  std::mt19937 random(5);
  std::string expected;
  fk::TextWriter writer;
  ASSERT_TRUE(writer.Open(path));
  for (int piece = 0; piece < 3000; ++piece) {
    const std::size_t size = piece % 500 == 7 ? 70000 + random() % 70000 : random() % 40;
    std::string text(size, 'x');
    for (char& c : text) c = "ab\n9."[random() % 5];
    if (piece % 3 == 0 && text.find('\n') == std::string::npos) {
      writer.WritePlain(text);
    } else {
      writer.Write(text);
    }
    expected += text;
  }
  EXPECT_TRUE(writer.Close());
  EXPECT_EQ(ReadFile(path), TextMode(expected));
}

}  // namespace
