#include "platform/app/module_guard.h"

#include <locale.h>

#include <cstdio>

namespace fk {
namespace {
thread_local int t_depth = 0;
}

ModuleGuard::ModuleGuard() {
  // Nested exports switch too: the one outside may have called out to a host
  // that set a locale of its own before calling back in.
  ++t_depth;
  locale_t current = uselocale(static_cast<locale_t>(nullptr));
  locale_t base = duplocale(current);
  locale_t module = base ? newlocale(LC_NUMERIC_MASK, "C", base) : static_cast<locale_t>(nullptr);
  if (!module) {
    if (base) freelocale(base);
    return;
  }
  m_previousLocale = current;
  m_moduleLocale = module;
  uselocale(module);
}

ModuleGuard::~ModuleGuard() {
  --t_depth;
  if (!m_moduleLocale) return;
  uselocale(static_cast<locale_t>(m_previousLocale));
  freelocale(static_cast<locale_t>(m_moduleLocale));
}

int ModuleGuard::Depth() { return t_depth; }

void ReportUncaught(const char* exportName, std::exception_ptr error) {
  try {
    std::rethrow_exception(error);
  } catch (const std::exception& e) {
    std::fprintf(stderr, "formkit: %s failed: %s\n", exportName, e.what());
  } catch (...) {
    std::fprintf(stderr, "formkit: %s failed\n", exportName);
  }
}

}  // namespace fk
