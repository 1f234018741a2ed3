// A file box request of the system in the toolkit's terms.
#include "platform/ui/wx/file_box_request.h"

#include <gtest/gtest.h>

namespace {

using namespace fk::ui;

TEST(FileBoxRequest, TheWildcardDropsTheClosingBarsAndEveryFileNeedsNoPoint) {
  EXPECT_EQ(WildcardFromFilter("Cartoma Table (*.tab)|*.tab|All Files (*.*)|*.*||"),
            "Cartoma Table (*.tab)|*.tab|All Files (*.*)|*");
  EXPECT_EQ(WildcardFromFilter("Text (*.txt;*.csv)|*.txt;*.csv;*.*||"), "Text (*.txt;*.csv)|*.txt;*.csv;*");
  EXPECT_EQ(WildcardFromFilter("Data|*.dat"), "Data|*.dat") << "the closing bars may be missing";
  EXPECT_EQ(WildcardFromFilter("Data|*.dat|Lonely||"), "Data|*.dat") << "a name without a pattern is no entry";
  EXPECT_EQ(WildcardFromFilter(""), "");
}

TEST(FileBoxRequest, TheStartingEntryCountsFromOneAndFallsBackToTheFirst) {
  const std::string wildcard = "Table|*.tab|All|*";
  EXPECT_EQ(WildcardEntryCount(wildcard), 2);
  EXPECT_EQ(WildcardIndex(wildcard, 1), 0);
  EXPECT_EQ(WildcardIndex(wildcard, 2), 1);
  EXPECT_EQ(WildcardIndex(wildcard, 0), 0);
  EXPECT_EQ(WildcardIndex(wildcard, 3), 0);
  EXPECT_EQ(WildcardIndex("", 2), 0);
}

TEST(FileBoxRequest, TheStartNameSplitsAtItsLastSlash) {
  EXPECT_EQ(SplitStartName("/data/v2/holes.tab").folder, "/data/v2");
  EXPECT_EQ(SplitStartName("/data/v2/holes.tab").name, "holes.tab");
  EXPECT_EQ(SplitStartName("/holes.tab").folder, "/");
  EXPECT_EQ(SplitStartName("holes.tab").folder, "");
  EXPECT_EQ(SplitStartName("holes.tab").name, "holes.tab");
  EXPECT_EQ(SplitStartName("/data/").name, "");
}

TEST(FileBoxRequest, TheDefaultExtensionGoesOnlyToANameWithoutOne) {
  EXPECT_EQ(WithDefaultExtension("/data/collars", "tab"), "/data/collars.tab");
  EXPECT_EQ(WithDefaultExtension("/data/collars", ".tab"), "/data/collars.tab");
  EXPECT_EQ(WithDefaultExtension("/data/collars", "*.tab"), "/data/collars.tab") << "as the string table writes it";
  EXPECT_EQ(WithDefaultExtension("/data/collars.csv", "tab"), "/data/collars.csv");
  EXPECT_EQ(WithDefaultExtension("/data.v2/collars", "tab"), "/data.v2/collars.tab")
      << "a folder's point doesn't count";
  EXPECT_EQ(WithDefaultExtension("/data/collars", ""), "/data/collars");
  EXPECT_EQ(WithDefaultExtension("/data/", "tab"), "/data/");
}

}  // namespace
