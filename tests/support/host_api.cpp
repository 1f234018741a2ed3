#include "support/host_api.h"

const HostApi& HostApi::Linked() {
  static const HostApi api = {fk_register_object, fk_revoke_object, fk_register_active_object,
                              fk_revoke_active_object, fk_value_text, fk_value_bool,
                              fk_value_set_text, fk_value_set_object, fk_fail};
  return api;
}
