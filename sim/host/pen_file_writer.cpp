#include "sim/host/pen_file_writer.h"

#include <fstream>

namespace sim {
namespace {

void PutWord(std::string& bytes, std::size_t value) {
  bytes += static_cast<char>(value & 0xFF);
  bytes += static_cast<char>(value >> 8 & 0xFF);
}

std::string Record(const PenPasses& passes) {
  std::string record(1, static_cast<char>(passes.size()));
  record += std::string(2, '\0');
  for (const std::string& pass : passes) record += static_cast<char>(pass.size()) + pass;
  return record;
}

}  // namespace

std::string PenFileBytes(const std::vector<PenPasses>& pens) {
  std::string bytes = "PEN2";
  PutWord(bytes, 0);
  PutWord(bytes, pens.size());
  std::string records;
  const std::size_t first = bytes.size() + 2 * pens.size();
  for (const PenPasses& pen : pens) {
    if (first + records.size() > 0xFFFF) return {};
    PutWord(bytes, first + records.size());
    records += Record(pen);
  }
  return bytes + records;
}

bool WritePenFile(const std::string& path, const std::vector<PenPasses>& pens) {
  const std::string bytes = PenFileBytes(pens);
  std::ofstream file(path, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return !bytes.empty() && static_cast<bool>(file);
}

}  // namespace sim
