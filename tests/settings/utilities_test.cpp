// The file and process utilities of the scripts.
#include <gtest/gtest.h>

#include <filesystem>

#include "formkit/formkit.h"
#include "platform/loop/loop.h"
#include "support/session_fixture.h"

namespace {

namespace fs = std::filesystem;

TEST(UtilitiesTest, CreateNewDirectoryTellsNewFromExisting) {
  ScopedFolder folder;
  EXPECT_EQ(CreateNewDirectory((folder.Path() + "\\Pit").c_str()), 0);
  EXPECT_TRUE(fs::is_directory(folder.Path() + "/Pit"));
  EXPECT_EQ(CreateNewDirectory((folder.Path() + "/Pit").c_str()), 1);
  EXPECT_EQ(CreateNewDirectory((folder.Path() + "/PIT\\").c_str()), 1) << "names match ignoring case";
  EXPECT_EQ(CreateNewDirectory((folder.Path() + "/missing/Pit").c_str()), -1) << "parents aren't made";
}

TEST(UtilitiesTest, CopyDirectoryMergesTheTreeIntoTheTarget) {
  ScopedFolder source, target;
  source.Write("a.txt", "new a");
  source.Write("sub/b.txt", "b");
  source.Write("sub/deeper/c.txt", "c");
  fs::create_directories(source.Path() + "/empty");
  target.Write("a.txt", "old a");
  target.Write("keep.txt", "kept");

  EXPECT_EQ(CopyDirectory(source.Path().c_str(), (target.Path() + "\\").c_str()), 1);
  EXPECT_EQ(ReadFile(target.Path() + "/a.txt"), "new a") << "files of the same name are overwritten";
  EXPECT_EQ(ReadFile(target.Path() + "/keep.txt"), "kept");
  EXPECT_EQ(ReadFile(target.Path() + "/sub/deeper/c.txt"), "c");
  EXPECT_TRUE(fs::is_directory(target.Path() + "/empty"));

  const std::string fresh = target.Path() + "/fresh";
  EXPECT_EQ(CopyDirectory((source.Path() + "/sub").c_str(), fresh.c_str()), 1) << "a missing target is made";
  EXPECT_EQ(ReadFile(fresh + "/deeper/c.txt"), "c");
  EXPECT_EQ(CopyDirectory((source.Path() + "/none").c_str(), fresh.c_str()), 0);

  // A loop of links ends.
  fs::create_directory_symlink(source.Path(), source.Path() + "/again");
  EXPECT_EQ(CopyDirectory(source.Path().c_str(), (target.Path() + "/copy").c_str()), 0) << "cut off at 260 characters";
  EXPECT_EQ(ReadFile(target.Path() + "/copy/again/again/a.txt"), "new a");
}

TEST(UtilitiesTest, RunProgramGivesTheExitCodeAndTheArgumentsAsOneArgumentAndKeepsTheLoopGoing) {
  ScopedFolder folder;
  const std::string program = folder.WriteProgram("check.sh", "[ \"$#:$1\" = '1:-a b \"c\"' ] && exit 3\nexit 4\n");
  EXPECT_EQ(RunProgramAndWaitForExit(program.c_str(), "-a b \"c\""), 3);
  EXPECT_EQ(RunProgramAndWaitForExit((folder.Path() + "/missing.exe").c_str(), ""), -1);
  const std::string plain = folder.Write("plain.sh", "exit 0\n");
  EXPECT_EQ(RunProgramAndWaitForExit(plain.c_str(), ""), -1) << "not executable";

  // This program ends only once the flag file exists, and the flag file is
  // made by a timer on this thread's loop.
  const std::string waiting =
      folder.WriteProgram("wait.sh", "for i in $(seq 600); do [ -e \"$1\" ] && exit 0; sleep 0.1; done\nexit 9\n");
  fk::SetTimer("flag", 1, [&] { folder.Write("flag", ""); });
  EXPECT_EQ(RunProgramAndWaitForExit(waiting.c_str(), (folder.Path() + "/flag").c_str()), 0);
}

}  // namespace
