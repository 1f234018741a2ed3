// Paths taken apart, put together and found on disk; and settings files
// with the results scripts expect from the system's profile-file calls.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <sstream>
#include <string>

#include "platform/inifile/inifile.h"
#include "platform/paths/paths.h"
#include "support/session_fixture.h"

using fk::MakePath;
using fk::Native;
using fk::SplitPath;

namespace {

TEST(PathsTest, SplitPathWorksLikeTheRuntimesSplitter) {
  struct Case {
    const char* path;
    const char* drive;
    const char* dir;
    const char* fname;
    const char* ext;
  };
  for (const Case& c : {Case{"C:\\Data\\map.tab", "C:", "\\Data\\", "map", ".tab"},
                        Case{"d:/maps\\2024/roads.tab", "d:", "/maps\\2024/", "roads", ".tab"},
                        Case{"/home/user/.bashrc", "", "/home/user/", "", ".bashrc"},
                        Case{"a.b.c", "", "", "a.b", ".c"},
                        Case{"C:\\my.dir\\readme", "C:", "\\my.dir\\", "readme", ""},
                        Case{"C:\\Data\\", "C:", "\\Data\\", "", ""},
                        Case{"C:name.txt", "C:", "", "name", ".txt"}}) {
    const fk::PathParts parts = SplitPath(c.path);
    EXPECT_EQ(parts.drive, c.drive) << c.path;
    EXPECT_EQ(parts.dir, c.dir) << c.path;
    EXPECT_EQ(parts.fname, c.fname) << c.path;
    EXPECT_EQ(parts.ext, c.ext) << c.path;
    EXPECT_EQ(MakePath(parts.drive, parts.dir, parts.fname, parts.ext), c.path) << "put back together";
  }
}

TEST(PathsTest, MakePathAddsWhatIsMissing) {
  const std::string made = MakePath("C", "\\Data", "map", "tab");
  EXPECT_TRUE(made.starts_with("C:\\Data") && fk::IsSeparator(made[7]) && made.ends_with("map.tab")) << made;
  EXPECT_EQ(MakePath("C:", "", "", ""), "C:");
  EXPECT_EQ(fk::AddTrailingSeparator("") + "|" + fk::AddTrailingSeparator("a") + "|" + fk::AddTrailingSeparator("a\\"),
            "|a/|a\\");
  EXPECT_EQ(fk::JoinPath("maps", "\\roads.tab") + "|" + fk::JoinPath("maps\\", "roads.tab") + "|" +
                fk::JoinPath("", "roads.tab"),
            "maps/roads.tab|maps\\roads.tab|roads.tab");
}

TEST(PathsTest, NativeMapsTheDriveAndFindsNamesIgnoringCase) {
  ScopedFolder folder;
  const std::string file = folder.Write("data/sub/file.tab", "x");
  folder.Write("data/Other.TXT", "y");
  fk::SetDriveRoot('c', folder.Path());

  EXPECT_EQ(Native("C:\\DATA\\SUB\\FILE.TAB"), file);
  EXPECT_EQ(Native("C:\\Data\\other.txt"), folder.Path() + "/data/Other.TXT");
  EXPECT_EQ(Native("C:\\DATA\\SUB\\"), folder.Path() + "/data/sub/");
  // What matches nothing is kept as written, below the folders that matched.
  EXPECT_EQ(Native("C:\\DATA\\SUB\\NEW.TAB"), folder.Path() + "/data/sub/NEW.TAB");
  EXPECT_EQ(Native("C:\\DATA\\NewDir\\File.tab"), folder.Path() + "/data/NewDir/File.tab");
  EXPECT_EQ(Native(folder.Path() + "\\DATA\\Sub\\File.Tab"), file) << "no drive: the path as it is";

  // The environment gives drives the table doesn't have; an unmapped drive is "/".
  const ScopedVariable driveR("FORMKIT_DRIVE_R", folder.Path() + "/data");
  EXPECT_EQ(Native("r:\\SUB\\FILE.TAB"), file);
  EXPECT_EQ(fk::DriveRoot('Q'), "/");
  EXPECT_EQ(Native("Q:\\"), "/");
  fk::SetDriveRoot('c', "/");  // as the tests after this one expect it
}

TEST(IniFileTest, ReadsIgnoringCaseWithDefaultsAndTheBufferLimit) {
  ScopedFolder folder;
  const std::string file = folder.Write("Survey.ini", "; note\r\n[Paths]\r\nDataDir = C:\\Data\\Holes \r\nQuoted=\" x \"\r\n");
  EXPECT_EQ(fk::GetPrivateProfileString("paths", "DATADIR", "", 1024, folder.Path() + "\\SURVEY.INI"), "C:\\Data\\Holes");
  EXPECT_EQ(fk::GetPrivateProfileString("Paths", "Quoted", "", 1024, file), " x ");
  EXPECT_EQ(fk::GetPrivateProfileString("Paths", "Missing", "fallback", 1024, file), "fallback");
  EXPECT_EQ(fk::GetPrivateProfileString("Paths", "DataDir", "none", 1024, folder.Path() + "/none.ini"), "none");
  EXPECT_EQ(fk::GetPrivateProfileString("Paths", "DataDir", "", 8, file), "C:\\Data");
  EXPECT_EQ(fk::GetPrivateProfileString("Paths", "Missing", "fallback", 5, file), "fall");
}

TEST(IniFileTest, WritesKeepTheRestOfTheFileAndNeverMakeFolders) {
  ScopedFolder folder;
  const std::string file = folder.Write("a.ini", "; keep me\n[One]\nA=1\nB=2\nQ=\"\"twice\"\"\n[Two]\nC=3\n");
  ASSERT_TRUE(fk::WritePrivateProfileString("one", "a", "10", file));
  ASSERT_TRUE(fk::WritePrivateProfileString("One", "B", std::nullopt, file));
  ASSERT_TRUE(fk::WritePrivateProfileString("Two", std::nullopt, std::nullopt, file));
  ASSERT_TRUE(fk::WritePrivateProfileString("One", "S", " spaced ", file));
  const std::string text = ReadFile(file);
  EXPECT_TRUE(text.starts_with("; keep me\r\n")) << text;
  EXPECT_TRUE(text.ends_with("[One]\r\nA=10\r\nQ=\"\"twice\"\"\r\nS=\" spaced \"\r\n")) << text;
  EXPECT_EQ(fk::GetPrivateProfileString("One", "Q", "", 64, file), "\"twice\"") << "other values keep their quotes";
  EXPECT_EQ(fk::GetPrivateProfileString("One", "S", "", 64, file), " spaced ");
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), std::count(text.begin(), text.end(), '\r')) << "CR LF";

  // A byte order mark: the file's own stays, and a key named with one keeps
  // its name when the write makes it the first line.
  const std::string marked = folder.Write("m.ini", "\xEF\xBB\xBF[One]\nA=1\n");
  ASSERT_TRUE(fk::WritePrivateProfileString("One", "B", "2", marked));
  EXPECT_TRUE(ReadFile(marked).starts_with("\xEF\xBB\xBF[One]")) << ReadFile(marked);
  const std::string named = folder.Write("n.ini", "no pair\n\xEF\xBB\xBFMarked=1\n");
  ASSERT_TRUE(fk::WritePrivateProfileString("One", "A", "1", named));
  EXPECT_EQ(fk::GetPrivateProfileString("", "Marked", "none", 64, named), "none") << ReadFile(named);
  EXPECT_EQ(fk::GetPrivateProfileString("", "\xEF\xBB\xBFMarked", "", 64, named), "1");

  EXPECT_TRUE(fk::WritePrivateProfileString("S", "K", "V", folder.Path() + "/new.ini")) << "a new file is made";
  EXPECT_FALSE(fk::WritePrivateProfileString("S", "K", "V", folder.Path() + "/missing/new.ini"));
  EXPECT_FALSE(std::filesystem::exists(folder.Path() + "/missing"));
}

// Writes keys "<prefix>0" to "<prefix><count - 1>" (value: the number), one
// write each, in a child process; returns its id.
pid_t WriteKeysInAChild(const std::string& file, const std::string& prefix, int count) {
  const pid_t child = fork();
  if (child == 0) {
    for (int i = 0; i < count; ++i)
      if (!fk::WritePrivateProfileString("Keys", prefix + std::to_string(i), std::to_string(i), file)) _exit(1);
    _exit(0);
  }
  return child;
}

// How many keys "<prefix>0", "<prefix>1", ... the file holds in a row, each
// with its own number; -1 when another key of the prefix is there too.
int KeysInARow(const std::string& file, const std::string& prefix) {
  std::set<std::string> lines;
  std::istringstream text(ReadFile(file));
  for (std::string line; std::getline(text, line);)
    if (line.starts_with(prefix)) lines.insert(line);
  int held = 0;
  while (lines.count(prefix + std::to_string(held) + "=" + std::to_string(held) + "\r")) ++held;
  return static_cast<int>(lines.size()) == held ? held : -1;
}

TEST(IniFileTest, TwoWritersAtOnceLoseNothingAndAKilledWriterLeavesAWholeFile) {
  ScopedFolder folder;
  const std::string file = folder.Path() + "/shared.ini";
  constexpr int kWrites = 150;
  const pid_t first = WriteKeysInAChild(file, "a", kWrites), second = WriteKeysInAChild(file, "b", kWrites);
  for (const pid_t child : {first, second}) {
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "every write succeeded";
  }
  EXPECT_EQ(KeysInARow(file, "a") + KeysInARow(file, "b"), 2 * kWrites);

  // Killed in the middle of its writes: what is on disk reads whole, and
  // holds the keys of every write that ended, in order.
  const pid_t killed = WriteKeysInAChild(file, "c", 100000);
  for (int wait = 0; wait < 20000 && fk::GetPrivateProfileString("Keys", "c20", "", 16, file).empty(); ++wait)
    usleep(1000);
  kill(killed, SIGKILL);
  waitpid(killed, nullptr, 0);
  EXPECT_GE(KeysInARow(file, "c"), 21);
  EXPECT_EQ(KeysInARow(file, "a"), kWrites) << "the other values stay";
  EXPECT_TRUE(ReadFile(file).ends_with("\r\n"));
}

}  // namespace
