#include "platform/automation/handle_table.h"

namespace fk {

HandleTable& HandleTable::Instance() {
  static HandleTable table;
  return table;
}

std::int32_t HandleTable::Add(DispatchPtr object) {
  std::lock_guard lock(m_mutex);
  // Handles count up and wrap past the largest int, skipping 0 and any
  // handle still in use.
  do {
    m_nNext = m_nNext == INT32_MAX ? 1 : m_nNext + 1;
  } while (m_objects.contains(m_nNext));
  m_objects.emplace(m_nNext, std::move(object));
  return m_nNext;
}

bool HandleTable::Remove(std::int32_t handle) {
  DispatchPtr dropped;  // released after the lock, in case its owner calls back
  std::lock_guard lock(m_mutex);
  auto it = m_objects.find(handle);
  if (it == m_objects.end()) return false;
  dropped = std::move(it->second);
  m_objects.erase(it);
  return true;
}

DispatchPtr HandleTable::Find(std::int32_t handle) const {
  std::lock_guard lock(m_mutex);
  auto it = m_objects.find(handle);
  return it == m_objects.end() ? nullptr : it->second;
}

}  // namespace fk
