// Text files the way the system reads and writes them: lines end in CR LF on
// disk (TextWriter), and readers accept CR LF and LF alike. Paths go through
// Native().
#pragma once

#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

#include "platform/text/text_writer.h"

namespace fk {

// Reads a text file in pieces, the way fgets reads a text-mode file: a piece
// ends after "\n" or when it holds maxChars - 1 characters; "\r\n" reads as
// "\n".
class TextReader {
 public:
  TextReader() = default;
  TextReader(const TextReader&) = delete;
  TextReader& operator=(const TextReader&) = delete;
  ~TextReader() { Close(); }

  bool Open(std::string_view path);
  bool IsOpen() const { return m_file != nullptr; }
  // The next piece, or nothing at the end of the file.
  std::optional<std::string> Gets(std::size_t maxChars);
  void Close();

 private:
  std::FILE* m_file = nullptr;
};

}  // namespace fk
