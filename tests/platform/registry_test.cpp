// The registry hives and the application profile over them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <set>
#include <string>

#include "platform/registry/profile.h"
#include "platform/registry/registry.h"
#include "support/session_fixture.h"

using fk::Hive;
using fk::Registry;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Optional;

TEST(RegistryTest, NamesIgnoreCaseAndStraySeparators) {
  ScopedRegistry registry;
  ASSERT_TRUE(Registry::SetString(Hive::CurrentUser, "Software\\Orvex", "InstallPath", "/opt/orvex"));
  EXPECT_THAT(Registry::QueryString(Hive::CurrentUser, "\\software\\\\ORVEX\\", "installpath"), Optional(std::string("/opt/orvex")));
  EXPECT_TRUE(Registry::KeyExists(Hive::CurrentUser, "SOFTWARE"));
  EXPECT_TRUE(Registry::KeyExists(Hive::CurrentUser, "software\\orvex\\"));
  EXPECT_FALSE(Registry::KeyExists(Hive::CurrentUser, "Software\\Orvex\\Viewer"));

  ASSERT_TRUE(Registry::SetString(Hive::CurrentUser, "SOFTWARE\\orvex", "INSTALLPATH", "/usr/local"));
  EXPECT_EQ(Registry::ValueNames(Hive::CurrentUser, "Software\\Orvex").size(), 1u) << "the same value, written again";
  EXPECT_THAT(Registry::QueryString(Hive::CurrentUser, "Software\\Orvex", "InstallPath"), Optional(std::string("/usr/local")));

  // The two hives are apart.
  EXPECT_FALSE(Registry::QueryValue(Hive::LocalMachine, "Software\\Orvex", "InstallPath"));
  EXPECT_TRUE(Registry::SetDword(Hive::LocalMachine, "Software\\Orvex", "InstallPath", 1));
  EXPECT_THAT(Registry::QueryString(Hive::CurrentUser, "Software\\Orvex", "InstallPath"), Optional(std::string("/usr/local")));
}

TEST(RegistryTest, KeepsTextsAndNumbersApart) {
  ScopedRegistry registry;
  const char* key = "Software\\Orvex\\Viewer";
  ASSERT_TRUE(Registry::SetDword(Hive::CurrentUser, key, "Count", 0xFFFFFFFFu));
  ASSERT_TRUE(Registry::SetString(Hive::CurrentUser, key, "Name", "12"));
  ASSERT_TRUE(Registry::SetString(Hive::CurrentUser, key, "Empty", ""));
  EXPECT_THAT(Registry::QueryDword(Hive::CurrentUser, key, "Count"), Optional(0xFFFFFFFFu));
  EXPECT_EQ(Registry::QueryString(Hive::CurrentUser, key, "Count"), std::nullopt);
  EXPECT_EQ(Registry::QueryDword(Hive::CurrentUser, key, "Name"), std::nullopt);
  EXPECT_THAT(Registry::QueryString(Hive::CurrentUser, key, "Empty"), Optional(std::string()));
  EXPECT_THAT(Registry::ValueNames(Hive::CurrentUser, key), ElementsAre("Count", "Name", "Empty"));

  // Writing a text over a number changes its type.
  ASSERT_TRUE(Registry::SetString(Hive::CurrentUser, key, "count", "many"));
  EXPECT_EQ(Registry::QueryDword(Hive::CurrentUser, key, "Count"), std::nullopt);
  EXPECT_EQ(Registry::QueryValue(Hive::CurrentUser, key, "Count")->type, fk::REG_SZ);

  EXPECT_TRUE(Registry::DeleteValue(Hive::CurrentUser, key, "NAME"));
  EXPECT_FALSE(Registry::DeleteValue(Hive::CurrentUser, key, "Name"));
  EXPECT_EQ(Registry::QueryValue(Hive::CurrentUser, key, "Name"), std::nullopt);
}

TEST(RegistryTest, ReadsNeverCreateAFile) {
  ScopedRegistry registry;
  for (Hive hive : {Hive::CurrentUser, Hive::LocalMachine}) {
    EXPECT_EQ(Registry::QueryValue(hive, "Software\\Orvex", "x"), std::nullopt);
    EXPECT_FALSE(Registry::KeyExists(hive, "Software"));
    EXPECT_THAT(Registry::ValueNames(hive, "Software"), IsEmpty());
    EXPECT_FALSE(Registry::DeleteValue(hive, "Software", "x"));
    EXPECT_FALSE(Registry::DeleteTree(hive, "Software"));
    EXPECT_EQ(Registry::HiveFile(hive).parent_path(), registry.Folder());
  }
  EXPECT_TRUE(std::filesystem::is_empty(registry.Folder()));
}

TEST(RegistryTest, DeleteTreeTakesTheKeyAndWhatIsBelowItOnly) {
  ScopedRegistry registry;
  const Hive hive = Hive::CurrentUser;
  for (const char* key : {"Software\\Orvex\\Setup", "Software\\Orvex\\Setup\\Tools\\Deep", "Software\\Orvex\\Setup2",
                          "Software\\Orvex\\SetupX\\Below", "Software\\Orvex\\S_tup", "Software\\Orvex\\S%"})
    ASSERT_TRUE(Registry::SetString(hive, key, "v", key));

  // "_" and "%" stand for themselves.
  EXPECT_TRUE(Registry::DeleteTree(hive, "Software\\Orvex\\S_tup"));
  EXPECT_TRUE(Registry::DeleteTree(hive, "Software\\Orvex\\S%"));
  EXPECT_TRUE(Registry::KeyExists(hive, "Software\\Orvex\\Setup"));
  EXPECT_TRUE(Registry::KeyExists(hive, "Software\\Orvex\\Setup2"));
  EXPECT_TRUE(Registry::KeyExists(hive, "Software\\Orvex\\SetupX\\Below"));
  EXPECT_TRUE(Registry::KeyExists(hive, "Software\\Orvex\\Setup\\Tools\\Deep"));
  EXPECT_FALSE(Registry::KeyExists(hive, "Software\\Orvex\\S_tup"));

  EXPECT_TRUE(Registry::DeleteTree(hive, "software\\orvex\\SETUP\\"));
  for (const char* gone : {"Software\\Orvex\\Setup", "Software\\Orvex\\Setup\\Tools", "Software\\Orvex\\Setup\\Tools\\Deep"}) {
    EXPECT_FALSE(Registry::KeyExists(hive, gone)) << gone;
    EXPECT_EQ(Registry::QueryValue(hive, gone, "v"), std::nullopt) << gone;
  }
  EXPECT_THAT(Registry::QueryString(hive, "Software\\Orvex\\Setup2", "v"), Optional(std::string("Software\\Orvex\\Setup2")));
  EXPECT_THAT(Registry::QueryString(hive, "Software\\Orvex\\SetupX\\Below", "v"), Optional(std::string("Software\\Orvex\\SetupX\\Below")));
  EXPECT_TRUE(Registry::KeyExists(hive, "Software\\Orvex"));
  EXPECT_FALSE(Registry::DeleteTree(hive, "Software\\Orvex\\Setup"));
}

TEST(RegistryTest, TwoProcessesWritingAtOnceLoseNothing) {
  ScopedRegistry registry;
  constexpr int kValuesEach = 200;
  const char* key = "Software\\Orvex\\Shared";
  pid_t children[2];
  for (int child = 0; child < 2; ++child) {
    children[child] = fork();
    ASSERT_GE(children[child], 0);
    if (children[child] == 0) {
      bool ok = true;
      for (int i = 0; i < kValuesEach; ++i)
        ok = Registry::SetDword(Hive::CurrentUser, key, "P" + std::to_string(child) + "_" + std::to_string(i),
                                static_cast<std::uint32_t>(i)) && ok;
      _exit(ok ? 0 : 1);
    }
  }
  for (pid_t child : children) {
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "a write in a child failed";
  }
  const std::vector<std::string> names = Registry::ValueNames(Hive::CurrentUser, key);
  EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), 2u * kValuesEach);
  EXPECT_THAT(Registry::QueryDword(Hive::CurrentUser, key, "P1_199"), Optional(199u));
}

TEST(ProfileTest, SettingsLiveUnderTheApplicationsSectionKey) {
  ScopedRegistry registry;
  const fk::Profile profile("Orvex", "Viewer");
  const std::string key = "Software\\Orvex\\Viewer\\Settings";
  EXPECT_EQ(profile.SectionKey("Settings"), key);

  EXPECT_EQ(profile.GetString("Settings", "Folder", "none"), "none");
  EXPECT_EQ(profile.GetInt("Settings", "Count", 7), 7);
  EXPECT_FALSE(std::filesystem::exists(Registry::HiveFile(Hive::CurrentUser)));

  ASSERT_TRUE(profile.WriteString("Settings", "Folder", "/data"));
  ASSERT_TRUE(profile.WriteInt("Settings", "Count", -3));
  EXPECT_THAT(Registry::QueryString(Hive::CurrentUser, key, "Folder"), Optional(std::string("/data")));
  EXPECT_THAT(Registry::QueryDword(Hive::CurrentUser, key, "Count"), Optional(static_cast<std::uint32_t>(-3)));
  EXPECT_EQ(profile.GetString("settings", "FOLDER", "none"), "/data");
  EXPECT_EQ(profile.GetInt("Settings", "Count", 7), -3);

  // A text where a number is asked gives the default.
  ASSERT_TRUE(profile.WriteString("Settings", "Width", "640"));
  EXPECT_EQ(profile.GetInt("Settings", "Width", 100), 100);

  // Writing no value deletes the entry.
  EXPECT_TRUE(profile.WriteString("Settings", "Folder", std::nullopt));
  EXPECT_EQ(profile.GetString("Settings", "Folder", "none"), "none");
  EXPECT_EQ(Registry::QueryValue(Hive::CurrentUser, key, "Folder"), std::nullopt);
  EXPECT_THAT(Registry::ValueNames(Hive::CurrentUser, key), ElementsAre("Count", "Width"));
}
