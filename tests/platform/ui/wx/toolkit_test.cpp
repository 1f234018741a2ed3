#include "toolkit_test.h"

#include <dlfcn.h>
#include <wx/app.h>

#include <stdexcept>

#include "private_display.h"

namespace {

fk::ui::UiBackend* LoadBackend() {
  void* plugin = dlopen(FORMKIT_WX_PLUGIN_PATH, RTLD_NOW | RTLD_LOCAL);
  if (!plugin) throw std::runtime_error(std::string("libformkit-wx.so did not load: ") + dlerror());
  auto entry = reinterpret_cast<fk::ui::UiBackend* (*)()>(dlsym(plugin, "fk_wx_backend"));
  if (!entry) throw std::runtime_error("libformkit-wx.so has no fk_wx_backend");
  return entry();
}

void FailTest(const wxString& file, int line, const wxString& function, const wxString& condition,
              const wxString& message) {
  ADD_FAILURE_AT(file.utf8_str().data(), line)
      << "toolkit check failed in " << function.utf8_str().data() << ": " << condition.utf8_str().data() << " "
      << message.utf8_str().data();
}

}  // namespace

void ToolkitTest::SetUp() {
  SessionTest::SetUp();
  const PrivateDisplay& display = PrivateDisplay::Get();
  if (!display.Running()) GTEST_SKIP() << display.Problem();
  Backend();
  wxSetAssertHandler(FailTest);
}

fk::ui::UiBackend& ToolkitTest::Backend() {
  static fk::ui::UiBackend* backend = LoadBackend();
  if (!backend) throw std::runtime_error("the toolkit did not start on the private display");
  return *backend;
}

void ToolkitDialogTest::SetUp() {
  ToolkitTest::SetUp();
  if (!IsSkipped()) fk::ui::SetCurrentUi(&Backend());
}

void ToolkitDialogTest::TearDown() {
  fk::ui::SetCurrentUi(nullptr);
  ToolkitTest::TearDown();
}
