// The emulator registered the way any host registers its automation object:
// as a table of C callbacks through the host C API of a loaded libformkit.so
// (formkit/host.h). The API comes as a table of its functions, so that the
// same emulator can serve the library linked into a program or a copy
// loaded with dlopen. Objects given back (collections, scripts, globals)
// travel as callback tables too, released when the library lets go.
#pragma once

#include <cstdint>

#include "formkit/host.h"
#include "platform/automation/dispatch.h"

namespace sim {

struct HostCApi {
  decltype(&fk_register_object) register_object;
  decltype(&fk_revoke_object) revoke_object;
  decltype(&fk_value_type) value_type;
  decltype(&fk_value_text) value_text;
  decltype(&fk_value_bool) value_bool;
  decltype(&fk_value_int) value_int;
  decltype(&fk_value_double) value_double;
  decltype(&fk_value_set_empty) value_set_empty;
  decltype(&fk_value_set_int) value_set_int;
  decltype(&fk_value_set_bool) value_set_bool;
  decltype(&fk_value_set_double) value_set_double;
  decltype(&fk_value_set_text) value_set_text;
  decltype(&fk_value_set_object) value_set_object;
  decltype(&fk_fail) fail;
};

// Registers `object` with the library behind `api` for the life of the
// registration, and revokes it at the end.
class CApiRegistration {
 public:
  CApiRegistration(const HostCApi& api, fk::DispatchPtr object);
  ~CApiRegistration();
  CApiRegistration(const CApiRegistration&) = delete;
  CApiRegistration& operator=(const CApiRegistration&) = delete;

  // The handle scripts pass to the exports; never 0 once registered.
  std::int32_t Handle() const { return m_handle; }

 private:
  const HostCApi& m_api;
  std::int32_t m_handle = 0;
};

}  // namespace sim
