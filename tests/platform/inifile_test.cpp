// Settings files with the results scripts expect from the system's
// profile-file calls.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "platform/inifile/inifile.h"
#include "support/session_fixture.h"

namespace {

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
  const std::string file = folder.Write("a.ini", "; keep me\n[One]\nA=1\nB=2\n[Two]\nC=3\n");
  ASSERT_TRUE(fk::WritePrivateProfileString("one", "a", "10", file));
  ASSERT_TRUE(fk::WritePrivateProfileString("One", "B", std::nullopt, file));
  ASSERT_TRUE(fk::WritePrivateProfileString("Two", std::nullopt, std::nullopt, file));
  const std::string text = ReadFile(file);
  EXPECT_TRUE(text.starts_with("; keep me\r\n")) << text;
  EXPECT_TRUE(text.ends_with("[One]\r\nA=10\r\n")) << text;
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), std::count(text.begin(), text.end(), '\r')) << "CR LF";

  EXPECT_TRUE(fk::WritePrivateProfileString("S", "K", "V", folder.Path() + "/new.ini")) << "a new file is made";
  EXPECT_FALSE(fk::WritePrivateProfileString("S", "K", "V", folder.Path() + "/missing/new.ini"));
  EXPECT_FALSE(std::filesystem::exists(folder.Path() + "/missing"));
}

}  // namespace
