// Writes text files the way the system does, in text mode: every "\n"
// reaches the disk as "\r\n". Built for long runs of small pieces, such as
// the groups of a DXF file: the text is collected in a buffer of its own and
// handed to the file in large blocks. Paths go through Native().
#pragma once

#include <cstdio>
#include <cstring>
#include <memory>
#include <string_view>

namespace fk {

class TextWriter {
 public:
  TextWriter();
  TextWriter(const TextWriter&) = delete;
  TextWriter& operator=(const TextWriter&) = delete;
  // What was written reaches the file; nothing is added to it.
  ~TextWriter() { Close(); }

  // mode "w" truncates or creates, "a" appends. An open file is closed
  // first. False when the file can't be opened.
  bool Open(std::string_view path, const char* mode = "w");
  bool IsOpen() const { return m_file != nullptr; }
  // Nothing happens when no file is open.
  void Write(std::string_view text) {
    if (2 * text.size() <= kBufferSize - m_nUsed && m_file)
      Translate(text);
    else
      WriteInPieces(text);
  }
  // Text with no "\n" in it, copied as it stands.
  void WritePlain(std::string_view text) {
    if (text.size() <= kBufferSize - m_nUsed && m_file) {
      std::memcpy(m_buffer.get() + m_nUsed, text.data(), text.size());
      m_nUsed += text.size();
    } else {
      WritePlainInPieces(text);
    }
  }
  void WriteLine(std::string_view line) {
    Write(line);
    Write("\n");
  }
  // False when something could not be written.
  bool Close();
  // Whether a block already failed to reach the file (a full disk).
  bool Failed() const { return m_bFailed; }

 private:
  static constexpr std::size_t kBufferSize = 1 << 16;

  // Copies text that fits twice into the free part of the buffer.
  void Translate(std::string_view text) {
    char* at = m_buffer.get() + m_nUsed;
    for (char c : text) {
      if (c == '\n') *at++ = '\r';
      *at++ = c;
    }
    m_nUsed = static_cast<std::size_t>(at - m_buffer.get());
  }
  void WriteInPieces(std::string_view text);
  void WritePlainInPieces(std::string_view text);
  void Flush();

  std::FILE* m_file = nullptr;
  std::unique_ptr<char[]> m_buffer;
  std::size_t m_nUsed = 0;
  bool m_bFailed = false;
};

}  // namespace fk
