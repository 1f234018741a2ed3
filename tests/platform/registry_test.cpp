// The registry hives and the application profile over them.
#include "platform/registry/registry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>

#include "platform/registry/profile.h"
#include "support/session_fixture.h"

using fk::Hive;
using fk::Registry;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Optional;
using ::testing::SizeIs;

TEST(RegistryTest, NamesIgnoreCaseAndTextsAndNumbersStayApart) {
  ScopedRegistry registry;
  for (Hive hive : {Hive::CurrentUser, Hive::LocalMachine}) {
    EXPECT_EQ(Registry::QueryValue(hive, "Software\\Orvex", "x"), std::nullopt);
    EXPECT_FALSE(Registry::KeyExists(hive, "Software") || Registry::DeleteTree(hive, "Software"));
    EXPECT_THAT(Registry::ValueNames(hive, "Software"), IsEmpty());
  }
  EXPECT_TRUE(std::filesystem::is_empty(registry.Path())) << "reads never create a file";

  const Hive hive = Hive::CurrentUser;
  ASSERT_TRUE(Registry::SetString(hive, "Software\\Orvex", "InstallPath", "/opt/orvex"));
  EXPECT_THAT(Registry::QueryString(hive, "\\software\\\\ORVEX\\", "installpath"), Optional(std::string("/opt/orvex")));
  EXPECT_TRUE(Registry::KeyExists(hive, "SOFTWARE"));
  ASSERT_TRUE(Registry::SetString(hive, "SOFTWARE\\orvex", "INSTALLPATH", "/usr/local"));
  EXPECT_THAT(Registry::ValueNames(hive, "Software\\Orvex"), SizeIs(1)) << "the same value again";
  EXPECT_EQ(Registry::QueryValue(Hive::LocalMachine, "Software\\Orvex", "InstallPath"), std::nullopt);

  ASSERT_TRUE(Registry::SetDword(hive, "Software\\Orvex", "Count", 0xFFFFFFFFu));
  EXPECT_THAT(Registry::QueryDword(hive, "Software\\Orvex", "Count"), Optional(0xFFFFFFFFu));
  EXPECT_EQ(Registry::QueryString(hive, "Software\\Orvex", "Count"), std::nullopt);
  EXPECT_EQ(Registry::QueryDword(hive, "Software\\Orvex", "InstallPath"), std::nullopt);
  ASSERT_TRUE(Registry::SetString(hive, "Software\\Orvex", "count", "many"));
  EXPECT_EQ(Registry::QueryDword(hive, "Software\\Orvex", "Count"), std::nullopt) << "a text written over a number";

  EXPECT_TRUE(Registry::DeleteValue(hive, "Software\\Orvex", "COUNT"));
  EXPECT_FALSE(Registry::DeleteValue(hive, "Software\\Orvex", "Count"));
  EXPECT_EQ(Registry::QueryValue(hive, "Software\\Orvex", "Count"), std::nullopt);
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
  for (const char* kept : {"Setup", "Setup2", "SetupX\\Below", "Setup\\Tools\\Deep"})
    EXPECT_TRUE(Registry::KeyExists(hive, std::string("Software\\Orvex\\") + kept)) << kept;
  EXPECT_FALSE(Registry::KeyExists(hive, "Software\\Orvex\\S_tup"));

  EXPECT_TRUE(Registry::DeleteTree(hive, "software\\orvex\\SETUP\\"));
  for (const char* gone :
       {"Software\\Orvex\\Setup", "Software\\Orvex\\Setup\\Tools", "Software\\Orvex\\Setup\\Tools\\Deep"}) {
    EXPECT_FALSE(Registry::KeyExists(hive, gone)) << gone;
    EXPECT_EQ(Registry::QueryValue(hive, gone, "v"), std::nullopt) << gone;
  }
  for (const std::string kept : {"Software\\Orvex\\Setup2", "Software\\Orvex\\SetupX\\Below"})
    EXPECT_THAT(Registry::QueryString(hive, kept, "v"), Optional(kept));
  EXPECT_TRUE(Registry::KeyExists(hive, "Software\\Orvex"));
  EXPECT_FALSE(Registry::DeleteTree(hive, "Software\\Orvex\\Setup"));
}

// Writes values "<prefix>0" to "<prefix><count - 1>" (value: the number)
// under `key` in a child process; returns its id.
pid_t WriteValuesInAChild(const char* key, const std::string& prefix, int count) {
  const pid_t child = fork();
  if (child == 0) {
    for (int i = 0; i < count; ++i)
      if (!Registry::SetDword(Hive::CurrentUser, key, prefix + std::to_string(i), static_cast<std::uint32_t>(i)))
        _exit(1);
    _exit(0);
  }
  return child;
}

// How many values "<prefix>0", "<prefix>1", ... the key holds in a row, each
// with its own number; -1 when another value of the prefix is there too.
int ValuesInARow(const char* key, const std::string& prefix) {
  int held = 0;
  while (Registry::QueryDword(Hive::CurrentUser, key, prefix + std::to_string(held)) ==
         std::optional<std::uint32_t>(held))
    ++held;
  const std::vector<std::string> names = Registry::ValueNames(Hive::CurrentUser, key);
  const auto ofPrefix = std::count_if(names.begin(), names.end(), [&](const auto& n) { return n.starts_with(prefix); });
  return ofPrefix == held ? held : -1;
}

// FORMKIT_LOAD_WRITES gives a longer run its count of writes a process.
TEST(RegistryTest, TwoWritersAtOnceLoseNothingAndAKilledWriterLeavesEveryCommittedValue) {
  ScopedRegistry registry;
  const char* load = std::getenv("FORMKIT_LOAD_WRITES");
  const int writes = load ? std::atoi(load) : 100;
  const char* key = "Software\\Orvex\\Shared";
  for (const pid_t child : {WriteValuesInAChild(key, "a", writes), WriteValuesInAChild(key, "b", writes)}) {
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "a write in a child failed";
  }
  EXPECT_EQ(ValuesInARow(key, "a") + ValuesInARow(key, "b"), 2 * writes);

  const pid_t killed = WriteValuesInAChild(key, "c", 1000000);
  for (int wait = 0; wait < 20000 && !Registry::QueryDword(Hive::CurrentUser, key, "c20"); ++wait) usleep(1000);
  kill(killed, SIGKILL);
  waitpid(killed, nullptr, 0);
  const int committed = ValuesInARow(key, "c");
  EXPECT_GE(committed, 21) << "the store opens and holds the values written before the kill, in order";
  if (load) std::printf("%d values each kept of %d; the killed writer's %d committed values kept\n",
                        (ValuesInARow(key, "a") + ValuesInARow(key, "b")) / 2, writes, committed);
  EXPECT_TRUE(Registry::SetDword(Hive::CurrentUser, key, "after", 1)) << "and takes writes again";
}

// (The application's own settings, read and written through its profile,
// are checked with the application object and the 3D options.)
TEST(ProfileTest, SettingsLiveUnderTheApplicationsSectionKey) {
  ScopedRegistry registry;
  const fk::Profile profile("Orvex", "Viewer");
  const std::string key = "Software\\Orvex\\Viewer\\Settings";
  ASSERT_TRUE(profile.WriteString("Settings", "Folder", "/data"));
  ASSERT_TRUE(profile.WriteInt("Settings", "Count", -3));
  EXPECT_THAT(Registry::QueryDword(Hive::CurrentUser, key, "Count"), Optional(static_cast<std::uint32_t>(-3)));
  EXPECT_EQ(profile.GetInt("SETTINGS", "count", 7), -3);
  EXPECT_TRUE(profile.WriteString("Settings", "Folder", std::nullopt));
  EXPECT_EQ(profile.GetString("Settings", "Folder", "none"), "none");
  EXPECT_THAT(Registry::ValueNames(Hive::CurrentUser, key), ElementsAre("Count"));
}
