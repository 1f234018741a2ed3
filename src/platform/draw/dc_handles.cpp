#include "platform/draw/dc_handles.h"

#include <stdexcept>

#include "platform/automation/dispatch.h"
#include "platform/automation/handle_table.h"

namespace fk::draw {
namespace {

// A device context in the handle table: an object with no members to call.
class DeviceContextObject : public Dispatch {
 public:
  explicit DeviceContextObject(std::shared_ptr<DeviceContext> context) : m_context(std::move(context)) {}
  Variant Invoke(std::int32_t, std::uint16_t, std::span<Variant>) override {
    throw std::runtime_error("A device context has no members.");
  }
  const std::shared_ptr<DeviceContext>& Context() const { return m_context; }

 private:
  std::shared_ptr<DeviceContext> m_context;
};

}  // namespace

std::int32_t AddDeviceContext(std::shared_ptr<DeviceContext> context) {
  return HandleTable::Instance().Add(std::make_shared<DeviceContextObject>(std::move(context)));
}

std::shared_ptr<DeviceContext> FindDeviceContext(std::int32_t handle) {
  const auto object = std::dynamic_pointer_cast<DeviceContextObject>(HandleTable::Instance().Find(handle));
  return object ? object->Context() : nullptr;
}

}  // namespace fk::draw
