#include "platform/ui/ui_backend.h"

#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <mutex>
#include <string>

#include "platform/ui/headless/headless_ui.h"

namespace fk::ui {
namespace {

UiBackend* g_override = nullptr;

// The toolkit backend is a library beside this one; it gives its backend
// through one C entry point.
constexpr const char* kToolkitLibrary = "libformkit-wx.so";
constexpr const char* kToolkitEntry = "fk_wx_backend";

std::string ThisLibraryFolder() {
  Dl_info info{};
  if (dladdr(reinterpret_cast<const void*>(&ThisLibraryFolder), &info) == 0 || !info.dli_fname) return {};
  return std::filesystem::path(info.dli_fname).parent_path().string();
}

UiBackend* LoadToolkitBackend() {
  const std::string folder = ThisLibraryFolder();
  const std::string path = folder.empty() ? kToolkitLibrary : folder + "/" + kToolkitLibrary;
  void* library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (!library) library = dlopen(kToolkitLibrary, RTLD_NOW | RTLD_LOCAL);
  if (!library) {
    std::fprintf(stderr, "formkit: dialog boxes run without a screen: %s\n", dlerror());
    return nullptr;
  }
  auto entry = reinterpret_cast<UiBackend* (*)()>(dlsym(library, kToolkitEntry));
  return entry ? entry() : nullptr;
}

bool DisplayPresent() {
  const char* x11 = std::getenv("DISPLAY");
  const char* wayland = std::getenv("WAYLAND_DISPLAY");
  return (x11 && *x11) || (wayland && *wayland);
}

UiBackend& ChosenBackend() {
  static UiBackend* chosen = [] {
    const char* choice = std::getenv("FORMKIT_UI");
    const bool toolkit = choice && *choice ? std::strcmp(choice, "wx") == 0 : DisplayPresent();
    UiBackend* backend = toolkit ? LoadToolkitBackend() : nullptr;
    return backend ? backend : static_cast<UiBackend*>(&DefaultHeadlessUi());
  }();
  return *chosen;
}

}  // namespace

UiBackend& CurrentUi() { return g_override ? *g_override : ChosenBackend(); }

void SetCurrentUi(UiBackend* backend) { g_override = backend; }

int RunPropertySheet(const std::string& title, const std::vector<DialogController*>& pages) {
  std::vector<const DialogTemplate*> templates;
  for (DialogController* page : pages) templates.push_back(&GetDialogTemplate(page->TemplateId()));
  struct Detach {
    const std::vector<DialogController*>& pages;
    ~Detach() {
      for (DialogController* page : pages) page->Attach(nullptr, nullptr);
    }
  } detach{pages};
  return CurrentUi().RunPropertySheet(title, pages, templates);
}

}  // namespace fk::ui
