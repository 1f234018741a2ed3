// Expected DXF text, written with "\n" as the groups are told and put on
// disk with CR LF.
#pragma once

#include <string>

inline std::string OnDisk(const std::string& text) {
  std::string crlf;
  for (char c : text) {
    if (c == '\n') crlf += '\r';
    crlf += c;
  }
  return crlf;
}
