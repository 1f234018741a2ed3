#include "host/pen_file.h"

#include "platform/files/files.h"
#include "platform/text/letter_case.h"

int ReadPenCount(const std::string& path) {
  constexpr std::size_t kHeader = 8;
  const auto head = fk::ReadHead(path, kHeader);
  if (!head || head->size() < kHeader || !fk::EqualsNoCase(head->substr(0, 4), "PEN2")) return 0;
  const auto byte = [&](std::size_t at) { return static_cast<unsigned char>((*head)[at]); };
  return byte(7) * 256 + byte(6);
}
