#include "c_api_object.h"

#include <string>
#include <vector>

#include "platform/automation/exceptions.h"

namespace sim {
namespace {

// What a callback table's `self` points at: the object and the API it answers through.
struct Holder {
  const HostCApi* api;
  fk::DispatchPtr object;
};

fk_object TableFor(const HostCApi& api, fk::DispatchPtr object);

fk::Variant ArgumentOf(const HostCApi& api, const fk_value* value) {
  switch (api.value_type(value) & ~FK_TYPE_BYREF) {
    case FK_TYPE_EMPTY: return fk::Variant();
    case FK_TYPE_INT: return fk::Variant::Int(api.value_int(value));
    case FK_TYPE_DOUBLE: return fk::Variant::Double(api.value_double(value));
    case FK_TYPE_BOOL: return fk::Variant::Bool(api.value_bool(value) != 0);
    default: return fk::Variant::Text(api.value_text(value));
  }
}

void SetResult(const HostCApi& api, fk_value* result, const fk::Variant& value) {
  switch (value.Type()) {
    case fk::VT_EMPTY: api.value_set_empty(result); break;
    case fk::VT_I4: api.value_set_int(result, value.ToInt()); break;
    case fk::VT_R8: api.value_set_double(result, value.ToDouble()); break;
    case fk::VT_BOOL: api.value_set_bool(result, value.ToBool() ? 1 : 0); break;
    case fk::VT_DISPATCH: {
      fk::DispatchPtr object = value.ToObject();
      if (!object) {
        api.value_set_object(result, nullptr);
        break;
      }
      const fk_object table = TableFor(api, std::move(object));
      api.value_set_object(result, &table);
      break;
    }
    default: api.value_set_text(result, value.ToText().c_str());
  }
}

int Invoke(void* self, int32_t dispid, uint16_t flags, fk_value* const* args, int32_t count, fk_value* result,
           fk_error* error) {
  auto* holder = static_cast<Holder*>(self);
  const HostCApi& api = *holder->api;
  try {
    std::vector<fk::Variant> values;
    for (int32_t i = 0; i < count; ++i) values.push_back(ArgumentOf(api, args[i]));
    SetResult(api, result, holder->object->Invoke(dispid, flags, values));
    return 0;
  } catch (const fk::DispatchException& e) {
    api.fail(error, e.Description().c_str());
  } catch (const std::exception& e) {
    api.fail(error, e.what());
  }
  return 1;
}

void Release(void* self) { delete static_cast<Holder*>(self); }

fk_object TableFor(const HostCApi& api, fk::DispatchPtr object) {
  return fk_object{new Holder{&api, std::move(object)}, Invoke, Release};
}

}  // namespace

CApiRegistration::CApiRegistration(const HostCApi& api, fk::DispatchPtr object) : m_api(api) {
  const fk_object table = TableFor(api, std::move(object));
  m_handle = api.register_object(&table);
  if (m_handle == 0) Release(table.self);
}

CApiRegistration::~CApiRegistration() {
  if (m_handle != 0) m_api.revoke_object(m_handle);
}

}  // namespace sim
