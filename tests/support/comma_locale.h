// A locale whose decimal separator is a comma, for checking that numbers are
// read and written with a point whatever the user's locale.
#pragma once

#include <string>

// The name of such a locale for setlocale and newlocale: de_DE when it is
// installed, else one compiled with localedef into a temporary folder that
// LOCPATH then points at. Empty when there is none to be had.
std::string CommaLocaleName();

// That locale in force for the process, and named by LC_ALL for what reads
// the environment, while the object lives; then the "C" locale again.
class ScopedCommaLocale {
 public:
  ScopedCommaLocale();
  ~ScopedCommaLocale();
  ScopedCommaLocale(const ScopedCommaLocale&) = delete;
  ScopedCommaLocale& operator=(const ScopedCommaLocale&) = delete;
  bool Missing() const { return m_name.empty(); }

 private:
  std::string m_name;
};
