#include "platform/text/text_writer.h"

#include <cstring>
#include <string>

#include "platform/paths/paths.h"

namespace fk {
namespace {
std::string BinaryMode(const char* mode) {
  std::string binary = mode ? mode : "w";
  if (binary.find('b') == std::string::npos) binary += 'b';
  return binary;
}
}  // namespace

TextWriter::TextWriter() : m_buffer(new char[kBufferSize]) {}

bool TextWriter::Open(std::string_view path, const char* mode) {
  Close();
  m_file = std::fopen(Native(path).c_str(), BinaryMode(mode).c_str());
  m_bFailed = false;
  if (m_file) std::setvbuf(m_file, nullptr, _IONBF, 0);  // the blocks are already large
  return m_file != nullptr;
}

void TextWriter::WritePlainInPieces(std::string_view text) {
  if (!m_file) return;
  while (!text.empty()) {
    if (m_nUsed == kBufferSize) Flush();
    const std::size_t n = std::min(text.size(), kBufferSize - m_nUsed);
    std::memcpy(m_buffer.get() + m_nUsed, text.data(), n);
    m_nUsed += n;
    text.remove_prefix(n);
  }
}

void TextWriter::WriteInPieces(std::string_view text) {
  if (!m_file) return;
  while (!text.empty()) {
    const void* found = std::memchr(text.data(), '\n', text.size());
    if (!found) return WritePlain(text);
    const std::size_t line = static_cast<const char*>(found) - text.data();
    WritePlain(text.substr(0, line));
    WritePlain("\r\n");
    text.remove_prefix(line + 1);
  }
}

void TextWriter::Flush() {
  if (m_nUsed > 0 && std::fwrite(m_buffer.get(), 1, m_nUsed, m_file) != m_nUsed) m_bFailed = true;
  m_nUsed = 0;
}

bool TextWriter::Close() {
  if (!m_file) return !m_bFailed;
  Flush();
  const bool closed = std::fclose(m_file) == 0;
  m_file = nullptr;
  return closed && !m_bFailed;
}

}  // namespace fk
