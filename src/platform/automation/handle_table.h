// Scripts pass automation objects as 32-bit ints. The handle table turns
// those ints into objects: a host registers its object and hands the handle
// to the scripts. Handle 0 is never given out; it means "no object".
#pragma once

#include <cstdint>
#include <map>
#include <mutex>

#include "platform/automation/dispatch.h"

namespace fk {

class HandleTable {
 public:
  static HandleTable& Instance();

  // Keeps a reference to `object` and returns its new handle.
  std::int32_t Add(DispatchPtr object);
  // Drops the table's reference; false for an unknown handle.
  bool Remove(std::int32_t handle);
  // The object behind `handle`, or null for 0 and for unknown handles.
  DispatchPtr Find(std::int32_t handle) const;

 private:
  mutable std::mutex m_mutex;
  std::map<std::int32_t, DispatchPtr> m_objects;
  std::int32_t m_nNext = 0x1000;
};

}  // namespace fk
