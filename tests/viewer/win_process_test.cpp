// Process queries by name: a case-blind substring of each program's full
// path, so that a folder's name matches as well as the file's.
#include <gtest/gtest.h>

#include <cctype>
#include <filesystem>

#include "viewer/win_process.h"

namespace {

std::string Upper(std::string text) {
  for (char& c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return text;
}

TEST(WinProcess, NamesArePartsOfProgramPathsInAnyCase) {
  const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe");
  const std::string folder = self.parent_path().filename().string();  // "tests"
  const std::string file = self.filename().string();                  // "formkit_tests"
  const struct {
    std::string name;
    bool found;
  } kLookups[] = {
      {file, true},
      {"/" + folder + "/" + file, true},
      {Upper(file), true},
      {"/" + folder + "/", true},  // the folder alone matches too
      {"no-such-program-anywhere", false},
  };
  for (const auto& lookup : kLookups) {
    const int pid = CWinProcess().GetProcessIdByName(lookup.name);
    EXPECT_EQ(pid > 0, lookup.found) << lookup.name;
    if (!lookup.found) {
      EXPECT_EQ(pid, -1) << "a lookup that finds nothing answers -1";
    }
  }
  EXPECT_FALSE(CWinProcess().IsProcessRunning("")) << "an empty name runs nowhere";
  EXPECT_FALSE(CWinProcess().IsProcessRunning(file)) << "the name is looked for with \".exe\" behind it";
}

}  // namespace
