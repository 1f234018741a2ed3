#include "platform/ui/ui_backend.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "platform/plugins/service_library.h"
#include "platform/ui/headless/headless_ui.h"

namespace fk::ui {
namespace {

UiBackend* g_override = nullptr;

// The toolkit backend is a library beside this one; it gives its backend
// through one C entry point.
constexpr const char* kToolkitLibrary = "libformkit-wx.so";
constexpr const char* kToolkitEntry = "fk_wx_backend";

UiBackend* LoadToolkitBackend() {
  auto entry = reinterpret_cast<UiBackend* (*)()>(ServiceEntry(kToolkitLibrary, kToolkitEntry));
  if (!entry) std::fprintf(stderr, "formkit: dialog boxes run without a screen\n");
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
