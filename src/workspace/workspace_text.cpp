#include "workspace/workspace_text.h"

#include <optional>
#include <stdexcept>

#include "platform/files/files.h"
#include "platform/text/letter_case.h"
#include "platform/text/text_file.h"

namespace {

bool Holds(const std::string& upper, const char* words) { return upper.find(words) != std::string::npos; }

// A piece with its path between the first two double quotes replaced.
std::string WithPath(const std::string& piece, const std::string& path) {
  const std::size_t open = piece.find('"');
  const std::size_t close = open == std::string::npos ? open : piece.find('"', open + 1);
  if (close == std::string::npos) return piece;
  return piece.substr(0, open + 1) + path + piece.substr(close);
}

// "SET MAP LAYER " at the start and "EDITABLE" further on: the piece as
// read with its first "EDITABLE ON", or its bare "EDITABLE", made
// "editable off". Nothing when there is nothing to turn off.
std::optional<std::string> WithoutEditable(const std::string& piece, const std::string& upper) {
  const std::size_t editable = upper.find("EDITABLE");
  if (editable == std::string::npos || editable == 0 || upper.rfind("SET MAP LAYER ", 0) != 0) return std::nullopt;
  const std::size_t on = upper.find("EDITABLE ON");
  if (on != std::string::npos && on > 0) return std::string(piece).replace(on, 11, "editable off");
  const std::size_t off = upper.find("EDITABLE OFF");
  if (off != std::string::npos && off > 0) return std::nullopt;
  return std::string(piece).replace(editable, 8, "editable off");
}

class Rewriter {
 public:
  Rewriter(const std::vector<std::string>& paths, const WorkspaceRepairs& repairs) : m_paths(paths), m_repairs(repairs) {}

  // What goes to the output for one piece; nothing when it is dropped.
  std::optional<std::string> Rewrite(const std::string& piece) {
    const std::string upper = fk::ToUpper(piece);
    bool keep = true;
    std::string out = piece;
    if (Holds(upper, "OPEN TABLE")) {
      if (m_nTable >= m_paths.size()) throw std::invalid_argument("the workspace has more tables than when it was read");
      const std::string& path = m_paths[m_nTable++];
      keep = !path.empty();
      out = WithPath(piece, path);
      if (m_repairs.interactive && !Holds(upper, "INTERACTIVE")) {
        if (!out.empty()) out.pop_back();
        out += " Interactive\n";
      }
    }
    if (m_repairs.noEditable) {
      // Built from the piece as read: what the table step did is taken back.
      if (std::optional<std::string> edited = WithoutEditable(piece, upper)) out = *edited;
    }
    if (m_repairs.noPrinter) {
      if (Holds(upper, "SET WINDOW FRONTWINDOW() PRINTER")) {
        m_bSkipping = true;
        return std::nullopt;
      }
      if (m_bSkipping) {
        if (!piece.empty() && piece[0] == ' ') return std::nullopt;
        m_bSkipping = false;
        return out;
      }
    }
    if (!keep) return std::nullopt;
    return out;
  }

 private:
  const std::vector<std::string>& m_paths;
  const WorkspaceRepairs& m_repairs;
  std::size_t m_nTable = 0;
  bool m_bSkipping = false;
};

}  // namespace

std::vector<std::string> ScanWorkspaceTables(const std::string& workspace) {
  std::vector<std::string> paths;
  fk::TextReader reader;
  if (!reader.Open(workspace)) return paths;
  while (const std::optional<std::string> piece = reader.Gets(WORKSPACE_PIECE + 1)) {
    if (!Holds(fk::ToUpper(*piece), "OPEN TABLE")) continue;
    const std::size_t open = piece->find('"');
    const std::size_t close = open == std::string::npos ? open : piece->find('"', open + 1);
    paths.push_back(close == std::string::npos ? std::string() : piece->substr(open + 1, close - open - 1));
  }
  return paths;
}

std::string WorkspaceTemporaryPath(std::string_view workspace) {
  std::string path = fk::ToUpper(workspace);
  bool replaced = false;
  for (std::size_t at = 0; (at = path.find(".WOR", at)) != std::string::npos; at += 10) {
    path.replace(at, 4, "__temp.WOR");
    replaced = true;
  }
  return replaced ? path : std::string(workspace) + "__temp.WOR";
}

int RewriteWorkspace(const std::string& workspace, const std::vector<std::string>& paths,
                     const WorkspaceRepairs& repairs) {
  fk::TextReader reader;
  if (!reader.Open(workspace)) return 0;
  const std::string temporary = WorkspaceTemporaryPath(workspace);
  fk::TextWriter writer;
  if (!writer.Open(temporary)) return 1;
  Rewriter rewriter(paths, repairs);
  try {
    while (const std::optional<std::string> piece = reader.Gets(WORKSPACE_PIECE + 1))
      if (const std::optional<std::string> out = rewriter.Rewrite(*piece)) writer.Write(*out);
  } catch (...) {
    writer.Close();
    fk::RemoveFile(temporary);
    throw;
  }
  reader.Close();
  if (!writer.Close() || !fk::ReplaceFile(temporary, workspace)) fk::RemoveFile(temporary);
  return 1;
}
