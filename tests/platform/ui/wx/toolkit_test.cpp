#include "toolkit_test.h"

#include <dlfcn.h>
#include <glib.h>
#include <wx/app.h>

#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>

namespace {

// Starts Xvfb on a display number it picks itself and points the toolkit at
// it alone: no accessibility bus, no desktop settings, no other kind of
// display. The server ends by itself when its last client, this program,
// goes. Gives why there is no display, or nothing.
std::string StartPrivateDisplay() {
  const std::unique_ptr<gchar, decltype(&g_free)> xvfb(g_find_program_in_path("Xvfb"), g_free);
  if (!xvfb) return "Xvfb is not installed (Debian package xvfb)";
  const std::string command = "Xvfb -displayfd 1 -screen 0 " + std::to_string(kScreenWidth) + "x" +
                              std::to_string(kScreenHeight) + "x24 -nolisten tcp -terminate 2>/dev/null";
  FILE* server = popen(command.c_str(), "r");  // the server writes the number it took, then a newline
  char number[16] = "";
  if (!server || !std::fgets(number, sizeof number, server) || number[0] < '0' || number[0] > '9')
    return "Xvfb did not start";
  setenv("DISPLAY", (":" + std::string(number, std::strcspn(number, "\n"))).c_str(), 1);
  unsetenv("WAYLAND_DISPLAY");
  setenv("GDK_BACKEND", "x11", 1);
  setenv("NO_AT_BRIDGE", "1", 1);
  setenv("GTK_A11Y", "none", 1);
  setenv("GSETTINGS_BACKEND", "memory", 1);
  return {};
}

fk::ui::UiBackend* LoadBackend() {
  void* plugin = dlopen(FORMKIT_WX_PLUGIN_PATH, RTLD_NOW | RTLD_LOCAL);
  if (!plugin) throw std::runtime_error(std::string("libformkit-wx.so did not load: ") + dlerror());
  auto entry = reinterpret_cast<fk::ui::UiBackend* (*)()>(dlsym(plugin, "fk_wx_backend"));
  if (!entry) throw std::runtime_error("libformkit-wx.so has no fk_wx_backend");
  return entry();
}

void FailTest(const wxString& file, int line, const wxString& function, const wxString& condition,
              const wxString& message) {
  ADD_FAILURE_AT(file.utf8_str().data(), line) << "toolkit check failed in " << function.utf8_str().data() << ": "
                                               << condition.utf8_str().data() << " " << message.utf8_str().data();
}

}  // namespace

void ToolkitTest::SetUp() {
  SessionTest::SetUp();
  static const std::string problem = StartPrivateDisplay();
  if (!problem.empty()) GTEST_SKIP() << problem;
  fk::ui::SetCurrentUi(&Backend());
  wxSetAssertHandler(FailTest);
}

void ToolkitTest::TearDown() {
  fk::ui::SetCurrentUi(nullptr);
  SessionTest::TearDown();
}

fk::ui::UiBackend& ToolkitTest::Backend() {
  static fk::ui::UiBackend* backend = LoadBackend();
  if (!backend) throw std::runtime_error("the toolkit did not start on the private display");
  return *backend;
}

const fk::ui::DialogTemplate& TestTemplate(unsigned id) {
  static std::map<unsigned, std::pair<std::string, fk::ui::DialogTemplate>> templates;  // the text and its template
  auto [it, added] = templates.try_emplace(id);
  if (added) {
    std::ifstream file(FORMKIT_SOURCE_DIR "/tests/platform/ui/wx/templates/" + std::to_string(id) + ".xrc");
    it->second.first.assign(std::istreambuf_iterator<char>(file), {});
    it->second.second = fk::ui::ReadDialogTemplate(id, it->second.first.c_str());
  }
  return it->second.second;
}
