// Dialog box code run from the toolkit's events. An exception can't pass
// through the toolkit's event loop, so the first one is kept, the dialog
// box is abandoned (ended with Cancel), later events are ignored, and the
// exception is thrown again on the calling thread once the box is closed.
#pragma once

#include <exception>
#include <functional>
#include <utility>

namespace fk::ui {

class ControllerCalls {
 public:
  explicit ControllerCalls(std::function<void()> abandon) : m_abandon(std::move(abandon)) {}

  template <typename Call>
  void Run(Call&& call) {
    if (m_error) return;
    try {
      std::forward<Call>(call)();
    } catch (...) {
      m_error = std::current_exception();
      m_abandon();
    }
  }

  bool Failed() const { return static_cast<bool>(m_error); }
  void RethrowAny() const {
    if (m_error) std::rethrow_exception(m_error);
  }

 private:
  std::function<void()> m_abandon;
  std::exception_ptr m_error;
};

}  // namespace fk::ui
