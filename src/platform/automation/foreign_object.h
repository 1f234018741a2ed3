// Automation objects that a host gives through the C API (formkit/host.h):
// a table of C callbacks seen as a Dispatch, and the C view of values.
#pragma once

#include <deque>
#include <string>

#include "formkit/host.h"
#include "platform/automation/dispatch.h"
#include "platform/automation/variant.h"

// A value as the C side sees it: the variant it reads, and, for a result or
// an argument, the variant it may write.
struct fk_value {
  const fk::Variant* view = nullptr;
  fk::Variant* target = nullptr;
  std::deque<std::string> texts;    // every text handed out by fk_value_text, kept for the call
  std::deque<fk_value> elements;    // views of array elements handed out
};

struct fk_error {
  bool failed = false;
  std::string description;
};

namespace fk {

// The object behind a C callback table. When the library drops its last
// reference, the table's release callback runs.
DispatchPtr MakeForeignObject(const fk_object& object);

}  // namespace fk
