#include "platform/app/module_guard.h"

#include <locale.h>

#include <array>
#include <cstdio>

namespace fk {
namespace {

thread_local int t_depth = 0;

// The module's locales of this thread: for each caller's locale met, a copy
// whose numbers are "C". Made once and reused, so an export neither
// allocates nor builds a locale on its way in. A caller that runs under the
// process-wide locale is met as one locale, whose other categories are
// taken as they were at the first call.
class ModuleLocales {
 public:
  ~ModuleLocales() {
    for (Entry& entry : m_entries)
      if (entry.module) freelocale(entry.module);
  }

  // The module's locale for `caller`; null when none can be made.
  locale_t For(locale_t caller) {
    for (const Entry& entry : m_entries)
      if (entry.module && (entry.caller == caller || entry.module == caller)) return entry.module;
    return Add(caller);
  }

 private:
  struct Entry {
    locale_t caller = nullptr;
    locale_t module = nullptr;
  };

  // A new entry, in place of the oldest when all are taken; an entry still
  // in use by an export further out is never replaced.
  locale_t Add(locale_t caller) {
    Entry& slot = m_entries[m_nNext];
    if (slot.module && t_depth > 1) return nullptr;
    locale_t base = duplocale(caller);
    locale_t module = base ? newlocale(LC_NUMERIC_MASK, "C", base) : nullptr;
    if (!module) {
      if (base) freelocale(base);
      return nullptr;
    }
    if (slot.module) freelocale(slot.module);
    slot = {caller, module};
    m_nNext = (m_nNext + 1) % m_entries.size();
    return module;
  }

  std::array<Entry, 4> m_entries;
  std::size_t m_nNext = 0;
};

thread_local ModuleLocales t_locales;

}  // namespace

ModuleGuard::ModuleGuard() {
  // Nested exports switch too: the one outside may have called out to a host
  // that set a locale of its own before calling back in.
  ++t_depth;
  locale_t current = uselocale(static_cast<locale_t>(nullptr));
  locale_t module = t_locales.For(current);
  if (!module) return;
  m_previousLocale = current;
  uselocale(module);
}

ModuleGuard::~ModuleGuard() {
  --t_depth;
  if (m_previousLocale) uselocale(static_cast<locale_t>(m_previousLocale));
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
