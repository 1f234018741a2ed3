// A viewer that misbehaves, for tests of how the library bears it: every
// call raises an error ("fail"), or the program ends at once on its Nth call
// of any object, before it answers ("exit:N"), as a viewer that crashes
// between two calls of one operation.
#pragma once

#include <memory>
#include <string>

#include "platform/automation/dispatch.h"

namespace tv {

// What the viewer does wrong, read from a text as above; nothing for "".
class Fault {
 public:
  static std::shared_ptr<Fault> FromText(const std::string& text);
  // Raises, or ends the program, as the fault says, at each call.
  void BeforeCall();

 private:
  bool m_bFailEvery = false;
  int m_nExitAtCall = 0;
  int m_nCalls = 0;
};

// `object` with `fault` before each of its calls.
fk::DispatchPtr WithFault(fk::DispatchPtr object, std::shared_ptr<Fault> fault);

}  // namespace tv
