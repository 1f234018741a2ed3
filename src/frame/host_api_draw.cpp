// The host C API (formkit/host.h): device contexts over picture files.
#include "formkit/host.h"
#include "platform/app/module_guard.h"
#include "platform/automation/handle_table.h"
#include "platform/draw/cairo_dc.h"
#include "platform/draw/dc_handles.h"

extern "C" int32_t fk_create_file_dc(const char* path, int32_t width, int32_t height, int32_t dpi) {
  return fk::GuardedCall("fk_create_file_dc", 0, [&]() -> int32_t {
    if (!path) return 0;
    std::shared_ptr<fk::draw::CairoDC> context = fk::draw::CairoDC::Create(path, width, height, dpi);
    return context ? fk::draw::AddDeviceContext(std::move(context)) : 0;
  });
}

extern "C" int fk_close_dc(int32_t handle) {
  return fk::GuardedCall("fk_close_dc", 0, [&] {
    const auto picture = std::dynamic_pointer_cast<fk::draw::CairoDC>(fk::draw::FindDeviceContext(handle));
    if (!picture) return 0;
    fk::HandleTable::Instance().Remove(handle);
    return picture->Close() ? 1 : 0;
  });
}
