#include "platform/automation/dispatch_driver.h"

#include "platform/automation/class_registry.h"
#include "platform/automation/exceptions.h"

namespace fk {

void DispatchDriver::AttachDispatch(DispatchPtr object, bool autoRelease) {
  ReleaseDispatch();
  m_bAttached = object != nullptr;
  m_bAutoRelease = autoRelease;
  if (autoRelease)
    m_owned = std::move(object);
  else
    m_borrowed = object;
}

DispatchPtr DispatchDriver::DetachDispatch() {
  DispatchPtr object = Get();
  m_owned.reset();
  m_borrowed.reset();
  m_bAttached = false;
  return object;
}

void DispatchDriver::ReleaseDispatch() { DetachDispatch(); }

bool DispatchDriver::CreateDispatch(const std::string& progId) {
  DispatchPtr object = ClassRegistry::Instance().CreateObject(progId);
  if (!object) return false;
  AttachDispatch(std::move(object), true);
  return true;
}

DispatchPtr DispatchDriver::Get() const { return m_bAutoRelease ? m_owned : m_borrowed.lock(); }

bool DispatchDriver::Holds(const DispatchPtr& object) const { return m_bAttached && Get() == object; }

Variant DispatchDriver::Invoke(std::int32_t dispid, std::uint16_t flags, std::vector<Variant> args) {
  if (!m_bAttached) return {};
  DispatchPtr object = Get();
  if (!object) throw OleException("The automation object is no longer available.");
  return object->Invoke(dispid, flags, args);
}

Variant DispatchDriver::InvokeMethod(std::int32_t dispid, std::initializer_list<Variant> args) {
  return Invoke(dispid, DISPATCH_METHOD, std::vector<Variant>(args));
}

Variant DispatchDriver::GetProperty(std::int32_t dispid) { return Invoke(dispid, DISPATCH_PROPERTYGET); }

void DispatchDriver::SetProperty(std::int32_t dispid, Variant value) {
  Invoke(dispid, DISPATCH_PROPERTYPUT, {std::move(value)});
}

}  // namespace fk
