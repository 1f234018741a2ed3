// The host C API (formkit/host.h): registering automation objects.
#include "formkit/host.h"
#include "platform/app/module_guard.h"
#include "platform/automation/class_registry.h"
#include "platform/automation/foreign_object.h"
#include "platform/automation/handle_table.h"

extern "C" int32_t fk_register_object(const fk_object* object) {
  return fk::GuardedCall("fk_register_object", 0, [&] {
    if (!object || !object->invoke) return 0;
    return fk::HandleTable::Instance().Add(fk::MakeForeignObject(*object));
  });
}

extern "C" int fk_revoke_object(int32_t handle) {
  return fk::GuardedCall("fk_revoke_object", 0, [&] { return fk::HandleTable::Instance().Remove(handle) ? 1 : 0; });
}

extern "C" int fk_register_active_object(const char* prog_id, int32_t handle) {
  return fk::GuardedCall("fk_register_active_object", 0, [&] {
    fk::DispatchPtr object = fk::HandleTable::Instance().Find(handle);
    if (!prog_id || !object) return 0;
    fk::ClassRegistry::Instance().RegisterActiveObject(prog_id, std::move(object));
    return 1;
  });
}

extern "C" int fk_revoke_active_object(const char* prog_id) {
  return fk::GuardedCall("fk_revoke_active_object", 0, [&] {
    if (!prog_id) return 0;
    fk::ClassRegistry::Instance().RevokeActiveObject(prog_id);
    return 1;
  });
}
