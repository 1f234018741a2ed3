// The toolkit backend's rules in the system's terms, with no screen: a file
// box request of the system in the toolkit's terms, and where the parts of
// the progress window stand.
#include <gtest/gtest.h>

#include <tuple>
#include <utility>

#include "platform/ui/wx/file_box_request.h"
#include "platform/ui/wx/progress_layout.h"

namespace {

using namespace fk::ui;

TEST(FileBoxRequest, TheWildcardDropsTheClosingBarsAndEveryFileNeedsNoPoint) {
  const std::pair<const char*, const char*> cases[] = {
      {"Cartoma Table (*.tab)|*.tab|All Files (*.*)|*.*||", "Cartoma Table (*.tab)|*.tab|All Files (*.*)|*"},
      {"Text (*.txt;*.csv)|*.txt;*.csv;*.*||", "Text (*.txt;*.csv)|*.txt;*.csv;*"},
      {"Data|*.dat", "Data|*.dat"},           // the closing bars may be missing
      {"Data|*.dat|Lonely||", "Data|*.dat"},  // a name without a pattern is no entry
      {"", ""}};
  for (const auto& [filter, wildcard] : cases) EXPECT_EQ(WildcardFromFilter(filter), wildcard) << filter;
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
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"/data/collars", "tab", "/data/collars.tab"},      {"/data/collars", ".tab", "/data/collars.tab"},
      {"/data/collars", "*.tab", "/data/collars.tab"},    // as the string table writes it
      {"/data/collars.csv", "tab", "/data/collars.csv"},  {"/data.v2/collars", "tab", "/data.v2/collars.tab"},
      {"/data/collars", "", "/data/collars"},             {"/data/", "tab", "/data/"}};
  for (const auto& [name, extension, result] : cases) EXPECT_EQ(WithDefaultExtension(name, extension), result) << name;
}

TEST(ProgressLayout, OneToFourLinesAndRoomForTheBarAndButton) {
  const auto height = [](int lines) { return LayOutProgress(lines, 390, 16, 80, 30).height; };
  EXPECT_EQ(height(0), height(1));
  EXPECT_EQ(height(9), height(4));
  EXPECT_EQ(height(2) - height(1), 16);
  const ProgressLayout narrow = LayOutProgress(1, 50, 16, 80, 30);
  EXPECT_EQ(narrow.width, 130) << "margins, the narrowest bar and the button";
  EXPECT_EQ(narrow.gauge.width, 20);
  EXPECT_EQ(narrow.button.x + narrow.button.width + 10, narrow.width);
}

}  // namespace
