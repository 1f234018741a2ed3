// A driver holds one automation object and calls it by dispatch id.
//
// Attached with ownership it keeps the object alive until released.
// Attached without ownership it only borrows it: the object stays the
// property of whoever passed it (a script's handle), and a call after that
// owner dropped it fails with OleException instead of touching freed memory.
// A call on a driver that holds nothing does nothing and yields an empty value.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "platform/automation/dispatch.h"
#include "platform/automation/variant.h"

namespace fk {

class DispatchDriver {
 public:
  DispatchDriver() = default;
  DispatchDriver(const DispatchDriver&) = delete;
  DispatchDriver& operator=(const DispatchDriver&) = delete;
  ~DispatchDriver() { ReleaseDispatch(); }

  // Drops what was held before, then holds `object`.
  void AttachDispatch(DispatchPtr object, bool autoRelease = true);
  // Lets go of the object without releasing it; returns it.
  DispatchPtr DetachDispatch();
  // Releases an owned object, forgets a borrowed one.
  void ReleaseDispatch();
  // Creates a new object of the class `progId` (ClassRegistry) and holds it
  // with ownership. False when no such class can be created.
  bool CreateDispatch(const std::string& progId);

  // True while a pointer is held, borrowed or owned.
  bool IsAttached() const { return m_bAttached; }
  bool AutoRelease() const { return m_bAutoRelease; }
  // The held object; null when none is held or a borrowed one is gone.
  DispatchPtr Get() const;
  // Whether the driver holds exactly this object.
  bool Holds(const DispatchPtr& object) const;

  Variant Invoke(std::int32_t dispid, std::uint16_t flags, std::vector<Variant> args = {});
  Variant InvokeMethod(std::int32_t dispid, std::initializer_list<Variant> args = {});
  Variant GetProperty(std::int32_t dispid);
  void SetProperty(std::int32_t dispid, Variant value);

 private:
  DispatchPtr m_owned;
  std::weak_ptr<Dispatch> m_borrowed;
  bool m_bAttached = false;
  bool m_bAutoRelease = true;
};

}  // namespace fk
