// The framework's exception family for automation calls.
//
// Exception is the common base, so that code which catches "any framework
// exception" can do so. DispatchException is what the other side raised: it
// carries that side's description. OleException is a failure of the call
// itself: a type mismatch, a lost object, a broken connection.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace fk {

class Exception : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
  // The message as the framework reports it, cut to maxChars - 1 characters
  // like a fixed buffer of maxChars would hold it.
  std::string GetErrorMessage(std::size_t maxChars) const;
};

class DispatchException : public Exception {
 public:
  explicit DispatchException(std::string description, std::int32_t code = 0)
      : Exception(description), m_strDescription(std::move(description)), m_wCode(code) {}
  const std::string& Description() const { return m_strDescription; }
  std::int32_t Code() const { return m_wCode; }

 private:
  std::string m_strDescription;
  std::int32_t m_wCode;
};

class OleException : public Exception {
 public:
  using Exception::Exception;
};

}  // namespace fk
