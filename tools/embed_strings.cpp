// Compiles resources/strings.tsv into a C++ source file.
//
// Each line of the table is a number, a tab and the text. The text is written
// as in C source: "\n" is a line break, "\t" a tab, "\\" a backslash, "\""
// a quote. Blank lines and lines starting with "#" are skipped. A malformed
// line, a bad escape or a number given twice stops the build with the line
// number.
#include <cstdio>
#include <fstream>
#include <iostream>
#include <map>
#include <string>

namespace {

bool Fail(const std::string& file, int line, const std::string& why) {
  std::cerr << file << ":" << line << ": " << why << "\n";
  return false;
}

// Checks the escapes and quotes a text as a C++ string literal.
bool ToLiteral(const std::string& text, std::string& literal) {
  literal = "\"";
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '"') {
      literal += "\\\"";
    } else if (c == '\\') {
      if (i + 1 >= text.size()) return false;
      const char next = text[++i];
      if (next != 'n' && next != 't' && next != '\\' && next != '"' && next != 'r') return false;
      literal += '\\';
      literal += next;
    } else {
      literal += c;
    }
  }
  literal += "\"";
  return true;
}

bool ReadTable(const std::string& path, std::map<unsigned long, std::string>& table) {
  std::ifstream in(path);
  if (!in) return Fail(path, 0, "cannot be opened");
  std::string line;
  for (int number = 1; std::getline(in, line); ++number) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.empty() || line[0] == '#') continue;
    const auto tab = line.find('\t');
    if (tab == std::string::npos || tab == 0) return Fail(path, number, "expected: number, tab, text");
    const std::string id = line.substr(0, tab);
    if (id.find_first_not_of("0123456789") != std::string::npos) return Fail(path, number, "bad number " + id);
    std::string literal;
    if (!ToLiteral(line.substr(tab + 1), literal)) return Fail(path, number, "bad escape in text");
    if (!table.emplace(std::stoul(id), literal).second) return Fail(path, number, "number given twice: " + id);
  }
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: embed_strings strings.tsv output.cpp\n";
    return 2;
  }
  std::map<unsigned long, std::string> table;
  if (!ReadTable(argv[1], table)) return 1;
  std::ofstream out(argv[2]);
  out << "// Made by embed_strings from resources/strings.tsv; do not edit.\n"
         "#include \"platform/text/string_table_data.h\"\n\n"
         "namespace fk {\n\n"
         "const StringTableEntry kStringTable[] = {\n";
  for (const auto& [id, literal] : table) out << "    {" << id << "u, " << literal << "},\n";
  out << "};\n\nconst unsigned kStringTableSize = " << table.size() << "u;\n\n}  // namespace fk\n";
  return out ? 0 : 1;
}
