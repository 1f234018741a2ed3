// Texts between the library (UTF-8 in std::string) and the toolkit,
// whatever the process's locale says.
#pragma once

#include <wx/string.h>

#include <string>

namespace fk::ui {

inline wxString ToWx(const std::string& text) { return wxString::FromUTF8(text.data(), text.size()); }

inline std::string FromWx(const wxString& text) {
  const wxScopedCharBuffer utf8 = text.utf8_str();
  return std::string(utf8.data(), utf8.length());
}

}  // namespace fk::ui
