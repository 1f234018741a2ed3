#include "support/scoped_app_data.h"

#include <cstdlib>

ScopedAppData::ScopedAppData() {
  if (const char* previous = std::getenv("XDG_CONFIG_HOME")) {
    m_previous = previous;
    m_bHadPrevious = true;
  }
  setenv("XDG_CONFIG_HOME", m_folder.Path().c_str(), 1);
}

ScopedAppData::~ScopedAppData() {
  if (m_bHadPrevious)
    setenv("XDG_CONFIG_HOME", m_previous.c_str(), 1);
  else
    unsetenv("XDG_CONFIG_HOME");
}
