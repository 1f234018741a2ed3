#include "platform/text/text_file.h"

#include <string>

#include "platform/paths/paths.h"

namespace fk {

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
