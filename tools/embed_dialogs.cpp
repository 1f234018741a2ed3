// Compiles the dialog templates resources/dialogs/<number>.xrc into a C++
// source file: each template's number and its text, byte for byte.
//   embed_dialogs output.cpp template.xrc...
#include <cctype>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <sstream>
#include <string>

namespace {

std::string Literal(const std::string& text) {
  std::string literal = "\"";
  for (unsigned char c : text) {
    if (c == '"' || c == '\\') {
      literal += '\\';
      literal += static_cast<char>(c);
    } else if (c == '\n') {
      literal += "\\n\"\n    \"";
    } else if (c < 0x20 || c >= 0x7f) {
      char escaped[8];
      std::snprintf(escaped, sizeof escaped, "\\%03o", c);
      literal += escaped;
    } else {
      literal += static_cast<char>(c);
    }
  }
  return literal + "\"";
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::cerr << "usage: embed_dialogs output.cpp template.xrc...\n";
    return 2;
  }
  std::map<unsigned long, std::string> templates;
  for (int i = 2; i < argc; ++i) {
    const std::filesystem::path path(argv[i]);
    const std::string stem = path.stem().string();
    if (stem.empty() || stem.find_first_not_of("0123456789") != std::string::npos) {
      std::cerr << path << ": a template file is named by its number\n";
      return 1;
    }
    std::ifstream in(path, std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    if (!in || !templates.emplace(std::stoul(stem), text.str()).second) {
      std::cerr << path << ": cannot be read, or its number is taken\n";
      return 1;
    }
  }
  std::ofstream out(argv[1]);
  out << "// Made by embed_dialogs from resources/dialogs; do not edit.\n"
         "#include \"platform/ui/dialog_resources.h\"\n\n"
         "namespace fk::ui {\n\n"
         "const DialogResource kDialogResources[] = {\n";
  for (const auto& [id, text] : templates) out << "  {" << id << "u, " << Literal(text) << "},\n";
  if (templates.empty()) out << "  {0u, \"\"},\n";
  out << "};\n\nconst unsigned kDialogResourceCount = " << templates.size() << "u;\n\n}  // namespace fk::ui\n";
  return out ? 0 : 1;
}
