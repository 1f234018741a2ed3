// The automation interface: members reached by dispatch id only.
#pragma once

#include <cstdint>
#include <span>

#include "platform/automation/variant.h"

namespace fk {

enum DispatchFlags : std::uint16_t {
  DISPATCH_METHOD = 1,
  DISPATCH_PROPERTYGET = 2,
  DISPATCH_PROPERTYPUT = 4,
};

class Dispatch {
 public:
  virtual ~Dispatch() = default;

  // Calls member `dispid`. Arguments are in their natural order, first
  // argument first. A reference argument is written through by the callee.
  // The other side's failures come back as DispatchException, failures of
  // the call itself as OleException.
  virtual Variant Invoke(std::int32_t dispid, std::uint16_t flags, std::span<Variant> args) = 0;
};

}  // namespace fk
