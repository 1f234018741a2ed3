#include "host/pen_file.h"

#include <optional>

#include "platform/files/files.h"
#include "platform/text/letter_case.h"

namespace {

constexpr std::size_t kHeader = 8;
// The largest pen file: a directory of 65,535 entries pointing, two bytes
// each, inside the first 64 KiB, and a record there of 255 passes of at most
// 256 bytes.
constexpr std::size_t kLargestFile = 65536 + 255 * 256 + 3;

unsigned Word(const std::string& bytes, std::size_t at) {
  return static_cast<unsigned char>(bytes[at]) | static_cast<unsigned char>(bytes[at + 1]) << 8;
}

}  // namespace

int ReadPenCount(const std::string& path) {
  const auto head = fk::ReadHead(path, kHeader);
  if (!head || head->size() < kHeader || !fk::EqualsNoCase(head->substr(0, 4), "PEN2")) return 0;
  const auto byte = [&](std::size_t at) { return static_cast<unsigned char>((*head)[at]); };
  return byte(7) * 256 + byte(6);
}

int ReadPenPasses(const std::string& path, int index, std::vector<std::string>& passes) {
  passes.clear();
  const std::optional<std::string> file = fk::ReadHead(path, kLargestFile);
  if (!file || file->size() < kHeader || !fk::EqualsNoCase(file->substr(0, 4), "PEN2")) return 0;
  const std::size_t count = Word(*file, 6);
  if (index < 0 || static_cast<std::size_t>(index) >= count) return 0;
  const std::size_t entry = kHeader + 2 * static_cast<std::size_t>(index);
  if (entry + 2 > file->size()) return 0;
  std::size_t at = Word(*file, entry);
  if (at + 3 > file->size()) return 0;
  const std::size_t passCount = static_cast<unsigned char>((*file)[at]);
  at += 3;
  std::vector<std::string> read;
  for (std::size_t pass = 0; pass < passCount; ++pass) {
    if (at >= file->size()) return 0;
    const std::size_t length = static_cast<unsigned char>((*file)[at++]);
    if (at + length > file->size()) return 0;
    read.push_back(file->substr(at, length));
    at += length;
  }
  passes = std::move(read);
  return 1;
}
