// A file box request of the system in the toolkit's terms.
#include "platform/ui/wx/file_box_request.h"

#include <gtest/gtest.h>

#include <tuple>
#include <utility>

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

TEST(FileBoxRequest, TheStartingEntryCountsFromOneAndTheStartNameSplitsAtItsLastSlash) {
  const std::string wildcard = "Table|*.tab|All|*";
  EXPECT_EQ(WildcardEntryCount(wildcard), 2);
  for (const auto& [index, entry] : {std::pair{1, 0}, {2, 1}, {0, 0}, {3, 0}})
    EXPECT_EQ(WildcardIndex(wildcard, index), entry) << index;
  EXPECT_EQ(WildcardIndex("", 2), 0);
  for (const auto& [start, folder, name] : {std::tuple{"/data/v2/holes.tab", "/data/v2", "holes.tab"},
                                            {"/holes.tab", "/", "holes.tab"},
                                            {"holes.tab", "", "holes.tab"},
                                            {"/data/", "/data", ""}}) {
    EXPECT_EQ(SplitStartName(start).folder, folder) << start;
    EXPECT_EQ(SplitStartName(start).name, name) << start;
  }
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
