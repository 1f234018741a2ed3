// The host's own files read directly: a raster table's file name, grid
// style and control points, text lines, and the metadata block of a .TAB.
// Every reader takes the text in pieces of at most 199 characters, the way
// the system always has, and searches an upper-cased copy of each piece.
#include "host/cartoma.h"
#include "platform/files/files.h"
#include "platform/text/letter_case.h"
#include "platform/text/number_parse.h"
#include "platform/text/text_file.h"

namespace {

constexpr std::size_t kPiece = 200;
constexpr const char* kBeginMetadata = "BEGIN_METADATA";

bool Contains(const std::string& text, const char* token) { return text.find(token) != std::string::npos; }

void RemoveAll(std::string& text, const std::string& token) {
  for (std::size_t at = text.find(token); at != std::string::npos; at = text.find(token, at)) text.erase(at, token.size());
}

void TrimLeft(std::string& text, const char* characters) { text.erase(0, text.find_first_not_of(characters)); }

void TrimRight(std::string& text, const char* characters) {
  const std::size_t last = text.find_last_not_of(characters);
  text.erase(last == std::string::npos ? 0 : last + 1);
}

// The raster name of a "FILE " piece: the keyword and the quotes taken out,
// then line ends, blanks and tabs trimmed in the system's order.
std::string RasterNameOf(std::string piece) {
  RemoveAll(piece, "FILE ");
  RemoveAll(piece, "\"");
  TrimLeft(piece, "\n ");
  TrimRight(piece, "\n ");
  TrimRight(piece, "\r");
  TrimRight(piece, "\v");
  TrimLeft(piece, " ");
  TrimRight(piece, " ");
  TrimLeft(piece, "\t");
  TrimRight(piece, "\t");
  return piece;
}

// A bracketed pair "(a,b)" found from `from` on: the positions of the
// bracket and the comma, when "(", "," and ")" stand in that order.
struct Bracket {
  std::size_t open, comma, close;
};

std::optional<Bracket> FindBracket(const std::string& text, std::size_t from) {
  const Bracket b{text.find('(', from), text.find(',', from), text.find(')', from)};
  if (b.open == std::string::npos || b.comma == std::string::npos || b.close == std::string::npos) return std::nullopt;
  if (!(b.open < b.comma && b.comma < b.close)) return std::nullopt;
  return b;
}

}  // namespace

std::string CCartoma::GetRasterFileName(const std::string& tabPath) {
  fk::TextReader tab;
  if (!tab.Open(tabPath)) return {};
  while (auto piece = tab.Gets(kPiece)) {
    const std::string upper = fk::ToUpper(*piece);
    if (!Contains(upper, "FILE ")) continue;
    std::string name = RasterNameOf(upper);
    if (!name.empty()) return name;
  }
  return {};
}

int CCartoma::IsGridRasterTabFile(const std::string& tabPath) {
  fk::TextReader tab;
  if (!tab.Open(tabPath)) return 0;
  while (auto piece = tab.Gets(kPiece))
    if (Contains(fk::ToUpper(*piece), "RASTERSTYLE 6 1")) return 1;
  return 0;
}

int CCartoma::ReadTabControlPoints(const std::string& tabPath, std::vector<double>& xs, std::vector<double>& ys,
                                   std::vector<unsigned long>& pixelXs, std::vector<unsigned long>& pixelYs) {
  fk::TextReader tab;
  if (!tab.Open(tabPath)) return 0;
  while (auto piece = tab.Gets(kPiece)) {
    const std::string& line = *piece;
    if (!Contains(fk::ToUpper(line), " LABEL ")) continue;
    const auto world = FindBracket(line, 0);
    if (!world) continue;
    const auto pixel = FindBracket(line, world->close + 1);
    if (!pixel) continue;
    xs.push_back(fk::Atof(std::string_view(line).substr(world->open + 1)));
    ys.push_back(fk::Atof(std::string_view(line).substr(world->comma + 1)));
    pixelXs.push_back(static_cast<unsigned long>(fk::Atoi(std::string_view(line).substr(pixel->open + 1))));
    pixelYs.push_back(static_cast<unsigned long>(fk::Atoi(std::string_view(line).substr(pixel->comma + 1))));
  }
  return 0;
}

int CCartoma::ReadTextLines(const std::string& path, std::vector<std::string>& lines) {
  fk::TextReader file;
  if (!file.Open(path)) return 0;
  while (auto piece = file.Gets(kPiece)) lines.push_back(*piece);
  return 0;
}

int CCartoma::CopyTabMetadata(const std::string& source, const std::string& target) {
  std::string tempPath = fk::ToUpper(target);
  for (std::size_t at = tempPath.find(".TAB"); at != std::string::npos; at = tempPath.find(".TAB", at + 13))
    tempPath.replace(at, 4, "_tempFile.TAB");

  fk::TextReader head;
  fk::TextWriter temp;
  if (!head.Open(target) || !temp.Open(tempPath, "w")) return 0;

  // The target's own lines up to its block marker; an old block is dropped.
  bool marked = false;
  while (auto piece = head.Gets(kPiece)) {
    temp.Write(*piece);
    if (Contains(fk::ToUpper(*piece), kBeginMetadata)) {
      marked = true;
      break;
    }
  }
  if (!marked) temp.Write("begin_metadata\n");
  head.Close();

  fk::TextReader block;
  if (!block.Open(source)) {
    temp.Close();
    fk::RemoveFile(tempPath);
    return 0;
  }
  // Behind the source's marker, up to its end or up to a second marker,
  // which is copied too.
  bool inBlock = false;
  while (auto piece = block.Gets(kPiece)) {
    const bool marker = Contains(fk::ToUpper(*piece), kBeginMetadata);
    if (!inBlock) {
      inBlock = marker;
      continue;
    }
    temp.Write(*piece);
    if (marker) break;
  }
  block.Close();
  const bool written = temp.Close();
  const bool copied = written && fk::CopyFileOver(tempPath, target);
  fk::RemoveFile(tempPath);
  return copied ? 1 : 0;
}
