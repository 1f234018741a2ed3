// Taking paths apart, putting them together, and finding them on disk.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <string>

#include "platform/paths/paths.h"
#include "support/session_fixture.h"

using fk::MakePath;
using fk::Native;
using fk::SplitPath;

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
  EXPECT_EQ(made.substr(0, 7), "C:\\Data");
  EXPECT_TRUE(fk::IsSeparator(made[7])) << made;
  EXPECT_EQ(made.substr(8), "map.tab");
  EXPECT_EQ(MakePath("C:", "", "", ""), "C:");

  EXPECT_EQ(fk::AddTrailingSeparator(""), "");
  EXPECT_EQ(fk::AddTrailingSeparator("a"), "a/");
  EXPECT_EQ(fk::AddTrailingSeparator("a\\"), "a\\");

  EXPECT_EQ(fk::JoinPath("maps", "\\roads.tab"), "maps/roads.tab");
  EXPECT_EQ(fk::JoinPath("maps\\", "roads.tab"), "maps\\roads.tab");
  EXPECT_EQ(fk::JoinPath("", "roads.tab"), "roads.tab");
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
  setenv("FORMKIT_DRIVE_R", (folder.Path() + "/data").c_str(), 1);
  EXPECT_EQ(Native("r:\\SUB\\FILE.TAB"), file);
  unsetenv("FORMKIT_DRIVE_R");
  unsetenv("FORMKIT_DRIVE_Q");
  EXPECT_EQ(fk::DriveRoot('Q'), "/");
  EXPECT_EQ(Native("Q:\\"), "/");
}
