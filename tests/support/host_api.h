// The host C API as a table of functions: the one linked into the test
// program, or the one of a loaded copy of libformkit.so. A scripted host
// talks to whichever library it was made for.
#pragma once

#include "formkit/host.h"

struct HostApi {
  decltype(&fk_register_object) register_object;
  decltype(&fk_revoke_object) revoke_object;
  decltype(&fk_register_active_object) register_active_object;
  decltype(&fk_revoke_active_object) revoke_active_object;
  decltype(&fk_value_text) value_text;
  decltype(&fk_value_bool) value_bool;
  decltype(&fk_value_set_text) value_set_text;
  decltype(&fk_value_set_object) value_set_object;
  decltype(&fk_fail) fail;

  // The API of the library objects linked into this program.
  static const HostApi& Linked();
};
