#include "platform/ui/wx/toolkit_start.h"

#include <wx/app.h>
#include <wx/init.h>
#include <wx/log.h>

#include <clocale>
#include <cstdio>
#include <string>

namespace fk::ui {
namespace {

// The application object the toolkit needs. It runs no main loop of its
// own: dialog boxes run their modal loops and progress windows pump.
class ToolkitApp : public wxApp {
 public:
  bool OnInit() override {
    // Messages of the toolkit go to standard error, never into a box of
    // their own over the host.
    delete wxLog::SetActiveTarget(new wxLogStderr);
    SetExitOnFrameDelete(false);
    return true;
  }

  void OnAssertFailure(const wxChar* file, int line, const wxChar* function, const wxChar* condition,
                       const wxChar* message) override {
    std::fprintf(stderr, "formkit: toolkit check failed in %s (%s:%d): %s %s\n",
                 wxString(function).utf8_str().data(), wxString(file).utf8_str().data(), line,
                 wxString(condition).utf8_str().data(), wxString(message).utf8_str().data());
  }
};

// The toolkit sets the locale from the environment as it starts; the host's
// own locale is put back, so that the host reads and writes numbers as
// before.
class KeepLocale {
 public:
  KeepLocale() {
    const char* current = std::setlocale(LC_ALL, nullptr);
    m_locale = current ? current : "C";
  }
  ~KeepLocale() { std::setlocale(LC_ALL, m_locale.c_str()); }
  KeepLocale(const KeepLocale&) = delete;
  KeepLocale& operator=(const KeepLocale&) = delete;

 private:
  std::string m_locale;
};

bool Start() {
  if (wxTheApp) return true;
  static char program[] = "formkit";
  static char* argv[] = {program, nullptr};
  static int argc = 1;
  KeepLocale locale;
  wxApp::SetInstance(new ToolkitApp);
  if (!wxEntryStart(argc, argv)) {
    std::fprintf(stderr, "formkit: the toolkit could not start\n");
    return false;
  }
  return wxTheApp->CallOnInit();
}

}  // namespace

bool StartToolkit() {
  static const bool started = Start();
  return started;
}

}  // namespace fk::ui
