// Hosts pass a device context to the exports as a 32-bit handle, from the
// same handle table as automation objects.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/draw/device_context.h"

namespace fk::draw {

// A handle for `context` (never 0).
std::int32_t AddDeviceContext(std::shared_ptr<DeviceContext> context);
// The device context behind `handle`; null for 0, unknown handles and other objects.
std::shared_ptr<DeviceContext> FindDeviceContext(std::int32_t handle);

}  // namespace fk::draw
