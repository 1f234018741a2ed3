#include "platform/automation/exceptions.h"

namespace fk {

std::string Exception::GetErrorMessage(std::size_t maxChars) const {
  std::string message = what();
  if (maxChars == 0) return {};
  if (message.size() > maxChars - 1) message.resize(maxChars - 1);
  return message;
}

}  // namespace fk
