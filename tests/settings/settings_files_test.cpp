// Settings files: the scripts' settings files (the given file, shadowed by
// the user's file under the application data folder) and the host's
// preference file with its block of directories, read once a session.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <filesystem>

#include "formkit/formkit.h"
#include "frame/formkit_app.h"
#include "host/cartoma.h"
#include "settings/preference_file.h"
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
    char buffer[1100] = "untouched";
    m_lastResult = GetAppSetting(section, key, buffer, m_given.c_str());
    return buffer;
  }

  ScopedAppData m_appData;
  ScopedFolder m_folder;
  std::string m_given;
  int m_lastResult = -1;
};

TEST_F(AppSettingsTest, TheUsersFileWinsOverTheGivenFileAndTheProductAndInstallationPickIt) {
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

  // The product and the installation pick the user's folder.
  ASSERT_EQ(SetAppSetting("Grid", "CellSize", "10", m_given.c_str()), 1);
  ASSERT_EQ(SetInstallationID("site-7"), 1);
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

std::string Word(int value) {
  return std::string{static_cast<char>(value & 0xFF), static_cast<char>((value >> 8) & 0xFF)};
}

std::string Record(int type, const std::string& body) { return Word(type) + Word(static_cast<int>(body.size())) + body; }

std::string File(int count, const std::string& records) { return Word(0xD1D2) + Word(count) + records; }

// A directory record with `text` at `offset` and the block filled to its end.
std::string DirectoryRecord(std::size_t offset, const std::string& text) {
  std::string block(PREFERENCE_BLOCK_SIZE, '\0');
  block.replace(offset, text.size(), text);
  return Record(11, block);
}

TEST(PreferenceFileTest, AFailedReadIsTriedAgainAndDirectoriesStandAtTheirOffsets) {
  const ScopedAppData appData;
  g_bPreferencesRead = 0;
  int result = -1;
  const auto directoryAt = [&](int index) {
    char buffer[300] = "untouched";
    result = GetPreferenceDirectory(index, buffer);
    return std::string(buffer);
  };
  const auto writeFile = [&](const std::string& bytes) { appData.Write("Cartoma/Cartoma/CARTOMAW.PRF", bytes); };
  EXPECT_EQ(directoryAt(0), "untouched") << "no file";
  writeFile(Word(0xD2D1) + Word(1) + DirectoryRecord(0, "/wrong"));
  EXPECT_EQ(directoryAt(0), "untouched");
  EXPECT_EQ(directoryAt(0), "untouched");

  std::string block(PREFERENCE_BLOCK_SIZE, '\0');
  block.replace(0x0000, 8, "/maps/0\0", 8);
  block.replace(0x0200, 7, "/maps/2", 7);
  block.replace(0x1402, 7, "/maps/3", 7);
  block.replace(0x1E02, 0x100, std::string(0x100, 'z'));  // the last one fills the block, unterminated
  writeFile(File(3, Record(4, "skip me") + Record(11, block) + Record(12, "after")));

  // Index 3 stands behind the host's gap; past 13 the buffer stays as it was.
  const std::pair<int, std::string> directories[] = {
      {0, "/maps/0"}, {1, ""}, {2, "/maps/2"}, {3, "/maps/3"}, {13, std::string(0x100, 'z')}, {14, "untouched"},
      {-1, "untouched"}};
  for (const auto& [index, directory] : directories) {
    EXPECT_EQ(directoryAt(index), directory) << index;
    EXPECT_EQ(result, directory == "untouched" ? 0 : 1) << index;
  }
  writeFile(File(1, DirectoryRecord(0, "/second")));
  EXPECT_EQ(directoryAt(0), "/maps/0") << "a successful read is kept for the session";
  g_bPreferencesRead = 0;
}

TEST(PreferenceBlockTest, MalformedFilesAreRefused) {
  PreferenceBlock block;
  const std::string directories = DirectoryRecord(0, "/maps");
  const std::string shortDirectories = Word(11) + Word(0x200) + std::string(0x1FF, 'a');
  struct Case {
    const char* what;
    std::string bytes;
    bool accepted;
  } cases[] = {
      {"empty", "", false},
      {"magic only", Word(0xD1D2), false},
      {"no records", File(0, ""), false},
      {"a negative count", File(-3, directories), false},
      {"fewer records than counted", File(2, directories), false},
      {"a record header cut short", File(1, Word(4)), false},
      {"a directory record cut short", File(1, shortDirectories), false},
      {"a length before the start of the file", File(1, Word(4) + Word(-100)), false},
      {"a length past the end of the last record", File(1, Word(4) + Word(500) + "abc"), true},
      {"a length that leads back, bounded by the count", File(3, Word(4) + Word(-4)), true},
      {"no directory record", File(1, Record(4, "x")), true},
      {"a long directory record", File(1, Record(11, std::string(0x2000, 'q'))), true},
  };
  for (const Case& c : cases) EXPECT_EQ(ReadPreferenceBlock(c.bytes, block), c.accepted) << c.what;

  ASSERT_TRUE(ReadPreferenceBlock(File(1, Record(11, "/short")), block));
  EXPECT_EQ(std::memcmp(block.data(), "/short\0", 7), 0);
  ASSERT_TRUE(ReadPreferenceBlock(File(1, Record(4, "x")), block));
  EXPECT_EQ(block[0], 0) << "each read starts from an empty block";
}

}  // namespace
