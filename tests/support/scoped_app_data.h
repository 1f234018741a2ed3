// A private application data folder ($XDG_CONFIG_HOME) for the life of the
// object, so that settings files of parallel tests don't meet.
#pragma once

#include <string>

#include "support/session_fixture.h"

class ScopedAppData {
 public:
  ScopedAppData();
  ~ScopedAppData();
  ScopedAppData(const ScopedAppData&) = delete;
  ScopedAppData& operator=(const ScopedAppData&) = delete;

  const std::string& Path() const { return m_folder.Path(); }
  // Writes `content` to `name` below the folder; returns its path.
  std::string Write(const std::string& name, const std::string& content) const { return m_folder.Write(name, content); }

 private:
  ScopedFolder m_folder;
  std::string m_previous;
  bool m_bHadPrevious = false;
};
