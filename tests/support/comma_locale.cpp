#include "support/comma_locale.h"

#include <langinfo.h>
#include <locale.h>
#include <stdlib.h>

#include <clocale>
#include <cstring>
#include <filesystem>
#include <fstream>

namespace {

bool HasCommaPoint(const char* name) {
  locale_t locale = newlocale(LC_NUMERIC_MASK, name, static_cast<locale_t>(nullptr));
  if (!locale) return false;
  const bool comma = std::strcmp(nl_langinfo_l(RADIXCHAR, locale), ",") == 0;
  freelocale(locale);
  return comma;
}

// Removes the compiled locale when the test process ends.
struct CompiledLocale {
  std::filesystem::path folder;
  ~CompiledLocale() {
    std::error_code ec;
    if (!folder.empty()) std::filesystem::remove_all(folder, ec);
  }
};

std::string CompileCommaLocale() {
  static CompiledLocale compiled;
  std::string pattern = (std::filesystem::temp_directory_path() / "formkit-locale-XXXXXX").string();
  if (!mkdtemp(pattern.data())) return {};
  compiled.folder = pattern;
  const std::filesystem::path source = compiled.folder / "comma.src";
  std::ofstream(source) << "LC_CTYPE\ncopy \"POSIX\"\nEND LC_CTYPE\n"
                           "LC_NUMERIC\ndecimal_point \",\"\nthousands_sep \".\"\ngrouping 3\nEND LC_NUMERIC\n";
  const std::string command = "localedef -c -i '" + source.string() + "' -f ANSI_X3.4-1968 '" +
                              (compiled.folder / "xx_COMMA").string() + "' >/dev/null 2>&1";
  // localedef warns about the categories left out; what counts is whether the locale loads.
  [[maybe_unused]] const int status = std::system(command.c_str());
  setenv("LOCPATH", compiled.folder.c_str(), 1);
  if (HasCommaPoint("xx_COMMA")) return "xx_COMMA";
  unsetenv("LOCPATH");
  return {};
}

}  // namespace

std::string CommaLocaleName() {
  static const std::string name = HasCommaPoint("de_DE.UTF-8") ? "de_DE.UTF-8" : CompileCommaLocale();
  return name;
}

ScopedCommaLocale::ScopedCommaLocale() : m_name(CommaLocaleName()) {
  if (m_name.empty()) return;
  setenv("LC_ALL", m_name.c_str(), 1);
  std::setlocale(LC_ALL, m_name.c_str());
}

ScopedCommaLocale::~ScopedCommaLocale() {
  unsetenv("LC_ALL");
  std::setlocale(LC_ALL, "C");
}
