// Without a display the toolkit can't start: the entry point gives no
// backend, and the library's dialog boxes fall back to the headless one.
// Each case runs in a process of its own, where the toolkit never ran.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdlib>

#include "formkit/formkit.h"
#include "platform/ui/ui_backend.h"
#include "support/formkit_library.h"

namespace {

void ForgetTheDisplay() {
  unsetenv("DISPLAY");
  unsetenv("WAYLAND_DISPLAY");
}

TEST(ToolkitStart, WithoutADisplayTheEntryPointGivesNoBackend) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        ForgetTheDisplay();
        void* plugin = dlopen(FORMKIT_WX_PLUGIN_PATH, RTLD_NOW | RTLD_LOCAL);
        auto entry = plugin ? reinterpret_cast<fk::ui::UiBackend* (*)()>(dlsym(plugin, "fk_wx_backend")) : nullptr;
        std::exit(entry && !entry() && !entry() ? 0 : 1);
      },
      ::testing::ExitedWithCode(0), "the toolkit could not start");
}

TEST(ToolkitStart, AskedForWithoutADisplayTheLibraryRunsItsBoxesHeadless) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        ForgetTheDisplay();
        setenv("FORMKIT_UI", "wx", 1);
        FormkitLibrary library(false);
        const char* names[] = {"HoleID"};
        int32_t flags[] = {1};
        auto selectFields = FORMKIT_EXPORT(library, SelectFieldsDialog);
        std::exit(selectFields(names, flags, 1) == 0 && flags[0] == 1 ? 0 : 1);
      },
      ::testing::ExitedWithCode(0), "");
}

}  // namespace
