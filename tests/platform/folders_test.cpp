// The user's folders.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <string>

#include "platform/folders/folders.h"

TEST(FoldersTest, TempDirectoryEndsInASeparatorAndFitsTheSystemsBuffer) {
  const char* before = getenv("TMPDIR");
  const std::string saved = before ? before : "";
  setenv("TMPDIR", "/var/tmp", 1);
  EXPECT_EQ(fk::TempDirectory(), "/var/tmp/");
  setenv("TMPDIR", "/var/tmp/", 1);
  EXPECT_EQ(fk::TempDirectory(), "/var/tmp/");
  unsetenv("TMPDIR");
  EXPECT_EQ(fk::TempDirectory(), "/tmp/");

  // 259 characters with the separator, and the terminator, fill 260.
  const std::string longest = "/" + std::string(257, 'x');
  setenv("TMPDIR", longest.c_str(), 1);
  EXPECT_EQ(fk::TempDirectory(), longest + "/");
  setenv("TMPDIR", (longest + "y").c_str(), 1);
  EXPECT_EQ(fk::TempDirectory(), "");

  if (before) setenv("TMPDIR", saved.c_str(), 1);
}
