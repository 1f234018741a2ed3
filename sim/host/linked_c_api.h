// The host C API of the library linked into the program itself (the
// command line, the tests), for registering the emulator with it.
#pragma once

#include "formkit/host.h"
#include "sim/host/c_api_object.h"

namespace sim {

inline const HostCApi& LinkedHostCApi() {
  static const HostCApi api = {
      fk_register_object,  fk_revoke_object,  fk_value_type,       fk_value_text,    fk_value_bool,
      fk_value_int,        fk_value_double,   fk_value_set_empty,  fk_value_set_int, fk_value_set_bool,
      fk_value_set_double, fk_value_set_text, fk_value_set_object, fk_fail};
  return api;
}

}  // namespace sim
