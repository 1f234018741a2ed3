#include "workspace/statement_reader.h"

namespace {

constexpr std::size_t kPieceChars = 1999;

bool IsCSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\v' || c == '\f'; }

std::string TrimBlanksAndTabs(const std::string& text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

}  // namespace

std::string WorkspaceStatementReader::Next() {
  std::string statement;
  std::optional<std::string> piece = ReadPiece();
  if (piece) {
    Promote(std::move(*piece));
    statement = m_strLine;
    while (true) {
      const char next = m_strNextLine.empty() ? '\0' : m_strNextLine[0];
      if (!IsCSpace(next) && next != '(') return statement;
      piece = ReadPiece();
      if (!piece) {
        Promote({});
        break;
      }
      Promote(std::move(*piece));
      statement += " " + m_strLine;
    }
  } else {
    // The look-ahead as it was read, neither trimmed nor joined.
    m_strLine = m_strNextLine;
    m_strNextLine.clear();
  }
  if (statement.empty() && m_strLine.empty()) return WORKSPACE_END;
  return statement + m_strLine;
}

std::optional<std::string> WorkspaceStatementReader::ReadPiece() { return m_Stream.Gets(kPieceChars + 1); }

void WorkspaceStatementReader::Promote(std::string piece) {
  m_strLine = TrimBlanksAndTabs(m_strNextLine);
  for (char& c : m_strLine)
    if (c == '\n') c = ' ';
  m_strNextLine = std::move(piece);
}
