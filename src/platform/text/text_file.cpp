#include "platform/text/text_file.h"

#include <string>

#include "platform/paths/paths.h"

namespace fk {
namespace {
constexpr std::size_t kBufferSize = 1 << 16;

std::string BinaryMode(const char* mode) {
  std::string binary = mode ? mode : "r";
  if (binary.find('b') == std::string::npos) binary += 'b';
  return binary;
}
}  // namespace

bool TextWriter::Open(std::string_view path, const char* mode) {
  Close();
  m_file = std::fopen(Native(path).c_str(), BinaryMode(mode).c_str());
  m_bFailed = false;
  if (m_file) std::setvbuf(m_file, nullptr, _IOFBF, kBufferSize);
  return m_file != nullptr;
}

void TextWriter::Write(std::string_view text) {
  if (!m_file) return;
  std::size_t start = 0;
  while (start < text.size()) {
    const std::size_t newline = text.find('\n', start);
    const std::size_t end = newline == std::string_view::npos ? text.size() : newline;
    if (end > start && std::fwrite(text.data() + start, 1, end - start, m_file) != end - start) m_bFailed = true;
    if (newline == std::string_view::npos) break;
    if (std::fwrite("\r\n", 1, 2, m_file) != 2) m_bFailed = true;
    start = newline + 1;
  }
}

bool TextWriter::Close() {
  if (!m_file) return !m_bFailed;
  const bool closed = std::fclose(m_file) == 0;
  m_file = nullptr;
  return closed && !m_bFailed;
}

bool TextReader::Open(std::string_view path) {
  Close();
  m_file = std::fopen(Native(path).c_str(), "rb");
  return m_file != nullptr;
}

std::optional<std::string> TextReader::Gets(std::size_t maxChars) {
  if (!m_file || maxChars < 2) return std::nullopt;
  std::string piece;
  while (piece.size() < maxChars - 1) {
    int c = std::getc(m_file);
    if (c == EOF) break;
    if (c == '\r') {
      const int next = std::getc(m_file);
      if (next == '\n')
        c = '\n';
      else if (next != EOF)
        std::ungetc(next, m_file);
    }
    piece += static_cast<char>(c);
    if (c == '\n') break;
  }
  if (piece.empty()) return std::nullopt;
  return piece;
}

void TextReader::Close() {
  if (m_file) std::fclose(m_file);
  m_file = nullptr;
}

}  // namespace fk
