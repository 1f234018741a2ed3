#include "tab_file.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "errors.h"
#include "text_util.h"
#include "token_stream.h"

namespace sim {
namespace {

Column ParseFieldLine(const std::string& line) {
  TokenStream t(line);
  Column column;
  column.name = t.ExpectName("a column name");
  column.type = ColumnTypeByName(t.ExpectName("a column type"));
  if (t.AcceptSign("(")) {
    column.width = static_cast<int>(t.ExpectNumber("a width"));
    if (t.AcceptSign(",")) column.decimals = static_cast<int>(t.ExpectNumber("decimals"));
    t.ExpectSign(")");
  }
  t.AcceptSign(";");
  t.ExpectEnd();
  return column;
}

std::pair<std::string, std::string> ParseMetadataLine(const std::string& line) {
  TokenStream t(line);
  std::string key = t.ExpectText("a metadata key in quotes");
  t.ExpectSign("=");
  std::string value = t.ExpectText("a metadata value in quotes");
  return {std::move(key), std::move(value)};
}

std::string Trim(const std::string& text) {
  const std::size_t first = text.find_first_not_of(" \t\r\n");
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

// The definition lines: type, file, fields and coordinate system.
void ReadDefinitionLine(const std::string& line, TabDefinition& tab, int& fieldsToRead) {
  const std::string upper = Upper(line);
  if (fieldsToRead > 0) {
    tab.columns.push_back(ParseFieldLine(line));
    --fieldsToRead;
  } else if (upper.rfind("TYPE", 0) == 0) {
    tab.raster = upper.find("RASTER") != std::string::npos;
  } else if (upper.rfind("FILE", 0) == 0) {
    TokenStream t(line);
    t.Expect("File");
    tab.rasterFile = t.ExpectText("the image file in quotes");
  } else if (upper.rfind("FIELDS", 0) == 0) {
    TokenStream t(line);
    t.Expect("Fields");
    fieldsToRead = static_cast<int>(t.ExpectNumber("the number of fields"));
  } else if (upper.rfind("COORDSYS", 0) == 0) {
    tab.coordsys = ParseCoordSysText(line);
  }
}

}  // namespace

TabDefinition ReadTabFile(const std::string& path) {
  std::ifstream in(path);
  if (!in) throw HostError("The file " + path + " can't be opened");
  TabDefinition tab;
  int fieldsToRead = 0;
  bool inMetadata = false;
  std::string raw;
  try {
    while (std::getline(in, raw)) {
      const std::string line = Trim(raw);
      if (line.empty() || line[0] == '!') continue;
      if (inMetadata)
        tab.metadata.push_back(ParseMetadataLine(line));
      else if (EqualNoCase(line, "begin_metadata"))
        inMetadata = true;
      else
        ReadDefinitionLine(line, tab, fieldsToRead);
    }
  } catch (const std::runtime_error& e) {
    throw HostError("The table file " + path + " is damaged at '" + Trim(raw) + "': " + e.what());
  }
  return tab;
}

void WriteTabFile(const std::string& path, const std::vector<Column>& columns, const CoordSys* coordsys,
                  const Metadata& metadata) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  if (!out) throw HostError("The file " + path + " can't be written");
  const auto line = [&](const std::string& text) { out << text << "\r\n"; };
  line("!table");
  line("!version 1000");
  line("!charset Neutral");
  line("");
  line("Definition Table");
  line("  Type GPKG");
  line("  Fields " + std::to_string(columns.size()));
  for (const Column& column : columns) line("    " + column.name + " " + column.TypeText() + " ;");
  if (coordsys) line("  CoordSys " + coordsys->Clause());
  line("begin_metadata");
  for (const auto& [key, value] : metadata) line(Quote(key) + " = " + Quote(value));
  if (!out.flush()) throw HostError("The file " + path + " can't be written");
}

void WriteTabMetadata(const std::string& path, const Metadata& metadata) {
  std::string text;
  {
    std::ifstream in(path, std::ios::binary);
    if (!in) throw HostError("The file " + path + " can't be opened");
    text.assign(std::istreambuf_iterator<char>(in), {});
  }
  // Everything before the block stays as it is, line ends included.
  std::size_t start = 0;
  for (std::size_t end; start < text.size(); start = end + 1) {
    end = text.find('\n', start);
    if (end == std::string::npos) end = text.size();
    if (EqualNoCase(Trim(text.substr(start, end - start)), "begin_metadata")) break;
  }
  text.resize(std::min(start, text.size()));
  if (!text.empty() && text.back() != '\n') text += "\r\n";
  text += "begin_metadata\r\n";
  for (const auto& [key, value] : metadata) text += Quote(key) + " = " + Quote(value) + "\r\n";
  // Written beside the file and moved over it, so that a failed write leaves
  // the table file as it was.
  const std::string temporary = path + ".metadata";
  std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
  if (!out || !(out << text) || !out.flush()) throw HostError("The file " + path + " can't be written");
  out.close();
  std::error_code error;
  std::filesystem::rename(temporary, path, error);
  if (error) throw HostError("The file " + path + " can't be written: " + error.message());
}

std::string DataFileOf(const std::string& tabPath) {
  return std::filesystem::path(tabPath).replace_extension(".gpkg").string();
}

}  // namespace sim
