// Statements of a workspace as the loader takes them: the file read in
// pieces of at most 1999 characters with one piece of look-ahead. A line
// that begins with white space or "(" continues the statement before it, so
// an empty line does too; each line keeps its newline until that becomes a
// blank. "!EOF" stands for the end of the file.
#pragma once

#include <optional>
#include <string>

#include "platform/text/text_file.h"

inline constexpr const char* WORKSPACE_END = "!EOF";

class WorkspaceStatementReader {
 public:
  bool Open(const std::string& path) { return m_Stream.Open(path); }
  bool IsOpen() const { return m_Stream.IsOpen(); }
  void Close() { m_Stream.Close(); }
  // The next statement. The first call of a file only fills the look-ahead
  // and gives an empty statement.
  std::string Next();

 private:
  std::optional<std::string> ReadPiece();
  void Promote(std::string piece);

  fk::TextReader m_Stream;
  std::string m_strLine;      // the line taken from the look-ahead, trimmed
  std::string m_strNextLine;  // the look-ahead, as read
};
