// The toolkit backend's rules with no screen: a file box request of the
// system in the toolkit's terms, where the parts of the progress window
// stand, and, without a display, no backend: the entry point gives none and
// the library's dialog boxes fall back to the headless one (in a process
// of its own, where the toolkit never ran).
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <tuple>
#include <utility>

#include "formkit/formkit.h"
#include "platform/ui/ui_backend.h"
#include "platform/ui/wx/file_box_request.h"
#include "platform/ui/wx/progress_layout.h"
#include "support/formkit_library.h"

using namespace fk::ui;

namespace {

TEST(FileBoxRequest, TheWildcardTheStartingEntryTheStartNameAndTheDefaultExtension) {
  const std::pair<const char*, const char*> filters[] = {
      {"Cartoma Table (*.tab)|*.tab|All Files (*.*)|*.*||", "Cartoma Table (*.tab)|*.tab|All Files (*.*)|*"},
      {"Text (*.txt;*.csv)|*.txt;*.csv;*.*||", "Text (*.txt;*.csv)|*.txt;*.csv;*"},
      {"Data|*.dat", "Data|*.dat"},           // the closing bars may be missing
      {"Data|*.dat|Lonely||", "Data|*.dat"},  // a name without a pattern is no entry
      {"", ""}};
  for (const auto& [filter, wildcard] : filters) EXPECT_EQ(WildcardFromFilter(filter), wildcard) << filter;

  // The starting entry counts from one; the start name splits at its last slash.
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

  // The default extension goes only to a name without one.
  const std::tuple<const char*, const char*, const char*> names[] = {
      {"/data/collars", "tab", "/data/collars.tab"},      {"/data/collars", ".tab", "/data/collars.tab"},
      {"/data/collars", "*.tab", "/data/collars.tab"},    // as the string table writes it
      {"/data/collars.csv", "tab", "/data/collars.csv"},  {"/data.v2/collars", "tab", "/data.v2/collars.tab"},
      {"/data/collars", "", "/data/collars"},             {"/data/", "tab", "/data/"}};
  for (const auto& [name, extension, result] : names) EXPECT_EQ(WithDefaultExtension(name, extension), result) << name;
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

TEST(ToolkitStart, WithoutADisplayTheEntryPointGivesNoBackendAndTheLibraryRunsItsBoxesHeadless) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        unsetenv("DISPLAY");
        unsetenv("WAYLAND_DISPLAY");
        void* plugin = dlopen(FORMKIT_WX_PLUGIN_PATH, RTLD_NOW | RTLD_LOCAL);
        auto entry = plugin ? reinterpret_cast<fk::ui::UiBackend* (*)()>(dlsym(plugin, "fk_wx_backend")) : nullptr;
        if (!entry || entry() || entry()) std::exit(1);
        setenv("FORMKIT_UI", "wx", 1);
        FormkitLibrary library(false);
        const char* names[] = {"HoleID"};
        int32_t flags[] = {1};
        std::exit(FORMKIT_EXPORT(library, SelectFieldsDialog)(names, flags, 1) == 0 && flags[0] == 1 ? 0 : 2);
      },
      ::testing::ExitedWithCode(0), "the toolkit could not start");
}

}  // namespace
