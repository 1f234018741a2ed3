// The dialog boxes that run, one inside the other: a box that a dialog box
// opens (another dialog box, a message box, a file box) stands over the
// innermost one.
#pragma once

#include <vector>

class wxWindow;

namespace fk::ui {

class RunningDialogs {
 public:
  wxWindow* Innermost() const { return m_windows.empty() ? nullptr : m_windows.back(); }

  // `window` is the innermost box for the scope's life.
  class Scope {
   public:
    Scope(RunningDialogs& dialogs, wxWindow& window) : m_dialogs(dialogs) { m_dialogs.m_windows.push_back(&window); }
    ~Scope() { m_dialogs.m_windows.pop_back(); }
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

   private:
    RunningDialogs& m_dialogs;
  };

 private:
  std::vector<wxWindow*> m_windows;
};

}  // namespace fk::ui
