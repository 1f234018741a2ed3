// The pieces of a host table file that the library reads, on any bytes,
// under the sanitizers. The bytes are a .tab file: its lines read in pieces
// give the file back; the raster name is one upper-cased piece's text
// without quotes; each control point takes a piece of its own; each line
// taken as a coordinate clause stands whole in the line it gives, with
// units from inside it. The metadata copy takes the file as the source of
// a block or as the target of one: a target keeps its head, and no
// temporary file stays behind.
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "fuzz_support.h"
#include "exchange/tab_coordsys.h"
#include "host/cartoma.h"
#include "platform/text/letter_case.h"

namespace {

using fuzz::Require;

constexpr std::size_t kPiece = 199;  // the readers' longest piece
constexpr const char* kSource = "!table\nDefinition Table\nbegin_metadata\n\"\\Kept\" = \"1\"\n";
constexpr const char* kTargetHead = "!table\r\nFields 1\r\nBEGIN_METADATA\r\n";

const std::string& Folder() {
  static const std::string folder = fuzz::ScratchFolder("tab");
  return folder;
}

// The text as a reader of lines gives it: "\r\n" as "\n".
std::string AsRead(const std::string& text) {
  std::string read;
  for (std::size_t i = 0; i < text.size(); ++i)
    if (!(text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n')) read += text[i];
  return read;
}

std::string ReadBack(const std::string& path) {
  std::vector<std::string> pieces;
  CCartoma::ReadTextLines(path, pieces);
  std::string text;
  for (const std::string& piece : pieces) text += piece;
  return text;
}

std::string LowerAscii(std::string text) {
  for (char& c : text)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return text;
}

void CheckCoordSysClause(std::string clause) {
  while (!clause.empty() && (clause.back() == '\n' || clause.back() == '\r')) clause.pop_back();
  const TabCoordSys described = DescribeTabCoordSys(clause);
  const std::string& line = described.strLine;
  Require(line.starts_with("  CoordSys") || line.starts_with("  " + clause));
  Require(line.ends_with("\n") && line.find(clause) != std::string::npos);
  const std::string& units = described.strUnits;
  Require(units == "m" || units == "degree" || LowerAscii(fk::ToUpper(clause)).find(units) != std::string::npos);
}

void CheckPieces(const std::string& path, const std::string& text) {
  std::vector<std::string> pieces;
  Require(CCartoma::ReadTextLines(path, pieces) == 0);
  std::string joined;
  for (const std::string& piece : pieces) {
    Require(!piece.empty() && piece.size() <= kPiece);
    joined += piece;
    CheckCoordSysClause(piece);
  }
  Require(joined == AsRead(text));

  const std::string name = CCartoma::GetRasterFileName(path);
  Require(name.size() <= kPiece && name.find_first_of("\"\n") == std::string::npos && fk::ToUpper(name) == name);

  std::vector<double> xs, ys;
  std::vector<unsigned long> pixelXs, pixelYs;
  CCartoma::ReadTabControlPoints(path, xs, ys, pixelXs, pixelYs);
  // A point's piece holds " LABEL " and two bracketed pairs.
  Require(ys.size() == xs.size() && pixelXs.size() == xs.size() && pixelYs.size() == xs.size());
  Require(xs.size() <= pieces.size() && 13 * xs.size() <= text.size());
  CCartoma::IsGridRasterTabFile(path);
}

// Only the input and the other side of the copy: its temporary file is gone.
void RequireNoTemporaryFile() {
  std::size_t files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(Folder())) files += entry.is_regular_file() ? 1 : 0;
  Require(files == 2);
}

// The file as the source of a block, into a target with a block of its own.
void CheckCopyFrom(const std::string& input, const std::string& text) {
  const std::string target = Folder() + "/other.tab";
  fuzz::WriteFile(target, kTargetHead, std::char_traits<char>::length(kTargetHead));
  Require(CCartoma::CopyTabMetadata(input, target) == 1);
  RequireNoTemporaryFile();
  const std::string copied = ReadBack(target);
  Require(copied.starts_with(AsRead(kTargetHead)) && copied.size() <= AsRead(kTargetHead).size() + text.size());
}

// The file as a target: its own lines up to its first marker stay.
void CheckCopyInto(const std::string& input, const std::string& text) {
  const std::string source = Folder() + "/other.tab";
  fuzz::WriteFile(source, kSource, std::char_traits<char>::length(kSource));
  Require(CCartoma::CopyTabMetadata(source, input) == 1);
  RequireNoTemporaryFile();
  const std::string kept = AsRead(text);
  const std::size_t marker = fk::ToUpper(kept).find("BEGIN_METADATA");
  Require(ReadBack(input).starts_with(marker == std::string::npos ? kept : kept.substr(0, marker)));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  const std::string input = Folder() + "/input.tab";
  fuzz::WriteFile(input, data, size);
  CheckPieces(input, text);
  // One copy an input, the costly part: odd lengths give a block, even ones take one.
  if (size % 2)
    CheckCopyFrom(input, text);
  else
    CheckCopyInto(input, text);
  return 0;
}
