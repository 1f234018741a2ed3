#include "platform/process/process_table.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace fk {
namespace {

namespace fs = std::filesystem;

std::optional<int> ProcessIdOf(const fs::directory_entry& entry) {
  const std::string name = entry.path().filename().string();
  if (name.empty() || !std::all_of(name.begin(), name.end(), [](unsigned char c) { return std::isdigit(c); }))
    return std::nullopt;
  return std::stoi(name);
}

// The first word of the command line: the arguments are separated by NULs.
std::string FirstCommandWord(const fs::path& folder) {
  std::ifstream in(folder / "cmdline", std::ios::binary);
  std::string word;
  std::getline(in, word, '\0');
  return word;
}

std::string ProgramPathOf(const fs::path& folder) {
  std::error_code error;
  const fs::path exe = fs::read_symlink(folder / "exe", error);
  if (!error) return exe.string();
  return FirstCommandWord(folder);
}

}  // namespace

std::optional<std::vector<RunningProcess>> ListRunningProcesses() {
  std::error_code error;
  fs::directory_iterator it("/proc", error);
  if (error) return std::nullopt;
  std::vector<RunningProcess> processes;
  for (const fs::directory_entry& entry : it) {
    const std::optional<int> pid = ProcessIdOf(entry);
    if (pid) processes.push_back({*pid, ProgramPathOf(entry.path())});
  }
  std::sort(processes.begin(), processes.end(), [](const auto& a, const auto& b) { return a.pid < b.pid; });
  return processes;
}

}  // namespace fk
