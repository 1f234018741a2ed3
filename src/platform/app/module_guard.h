// The module's state around every export.
//
// An export enters the module's state on the way in and leaves it on every
// way out. Inside, numbers are read and written with a point whatever locale
// the host process runs under (the thread's numeric locale is "C" for the
// call and the caller's again afterwards). The locale for numbers is made
// once per thread and caller's locale, and reused.
//
// A C caller can't take a C++ exception: GuardedCall catches whatever the
// system's own logic leaves uncaught and turns it into the export's failure
// result, naming it on standard error.
#pragma once

#include <exception>
#include <utility>

namespace fk {

class ModuleGuard {
 public:
  ModuleGuard();
  ~ModuleGuard();
  ModuleGuard(const ModuleGuard&) = delete;
  ModuleGuard& operator=(const ModuleGuard&) = delete;

  // How many exports are running on this thread, one inside the other.
  static int Depth();

 private:
  void* m_previousLocale = nullptr;
};

// Reports an exception that reached the export boundary.
void ReportUncaught(const char* exportName, std::exception_ptr error);

template <typename Result, typename Body>
Result GuardedCall(const char* exportName, Result failure, Body&& body) {
  ModuleGuard guard;
  try {
    return std::forward<Body>(body)();
  } catch (...) {
    ReportUncaught(exportName, std::current_exception());
    return failure;
  }
}

}  // namespace fk
