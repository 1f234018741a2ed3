// The scripts' settings files: the given file, shadowed by the user's file
// under the application data folder.
#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>

#include "formkit/formkit.h"
#include "frame/formkit_app.h"
#include "host/cartoma.h"
#include "support/session_fixture.h"

namespace {

class AppSettingsTest : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    theApp.m_strInstallationID.clear();
    std::filesystem::create_directories(m_appData.Path() + "/Orvex/Terravik");
    m_given = m_folder.Write("Config/Survey.ini", "[Grid]\nCellSize=25\nColour=Red\n");
  }
  void TearDown() override {
    theApp.m_strInstallationID.clear();
    SessionTest::TearDown();
  }
  // The value GetAppSetting gives, or "untouched" when it leaves the buffer.
  std::string Get(const char* section, const char* key) {
    char buffer[1100];
    std::strcpy(buffer, "untouched");
    m_lastResult = GetAppSetting(section, key, buffer, m_given.c_str());
    return buffer;
  }

  ScopedAppData m_appData;
  ScopedFolder m_folder;
  std::string m_given;
  int m_lastResult = -1;
};

TEST_F(AppSettingsTest, TheUsersFileWinsOverTheGivenFile) {
  EXPECT_EQ(Get("Grid", "CellSize"), "25");
  EXPECT_EQ(m_lastResult, 1);

  EXPECT_EQ(SetAppSetting("Grid", "CellSize", "10", m_given.c_str()), 1);
  EXPECT_EQ(ReadFile(m_given), "[Grid]\nCellSize=25\nColour=Red\n") << "the given file is never written";
  EXPECT_TRUE(std::filesystem::exists(m_appData.Path() + "/Orvex/Terravik/Survey.ini"));
  EXPECT_EQ(Get("grid", "cellsize"), "10");
  EXPECT_EQ(Get("Grid", "Colour"), "Red") << "what the user's file lacks still comes from the given file";

  EXPECT_EQ(Get("Grid", "Missing"), "untouched");
  EXPECT_EQ(m_lastResult, 0);
  EXPECT_EQ(SetAppSetting("Grid", "Colour", "", m_given.c_str()), 1);
  EXPECT_EQ(Get("Grid", "Colour"), "Red") << "an empty value is no value";
  ASSERT_EQ(SetAppSetting("Grid", "Note", std::string(1500, 'x').c_str(), m_given.c_str()), 1);
  EXPECT_EQ(Get("Grid", "Note"), std::string(1023, 'x')) << "a long value is cut to the read limit";
}

TEST_F(AppSettingsTest, TheProductAndTheInstallationPickTheUsersFolder) {
  ASSERT_EQ(SetAppSetting("Grid", "CellSize", "10", m_given.c_str()), 1);
  theApp.m_strInstallationID = "site-7";
  EXPECT_EQ(Get("Grid", "CellSize"), "25") << "values saved before are no longer seen";
  EXPECT_EQ(SetAppSetting("Grid", "CellSize", "5", m_given.c_str()), 0) << "no folder is made for the installation";
  std::filesystem::create_directories(m_appData.Path() + "/Orvex/Terravik/site-7");
  EXPECT_EQ(SetAppSetting("Grid", "CellSize", "5", m_given.c_str()), 1);
  EXPECT_TRUE(std::filesystem::exists(m_appData.Path() + "/Orvex/Terravik/site-7/Survey.ini"));
  EXPECT_EQ(Get("Grid", "CellSize"), "5");

  theApp.m_strInstallationID.clear();
  g_Cartoma.m_nProductVariant = 2;
  EXPECT_EQ(SetAppSetting("Grid", "CellSize", "1", m_given.c_str()), 0) << "Zelvar3D has no folder yet";
  EXPECT_EQ(Get("Grid", "CellSize"), "25");
}

}  // namespace
