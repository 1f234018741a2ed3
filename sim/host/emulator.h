// The emulated host as an automation object: the application with its
// members at the host's dispatch ids (Visible, Do, Eval, LastErrorMessage,
// CBXApplications), the collection of running scripts, each script (Do,
// Eval, CBXGlobals), the collection of a script's globals and each global
// (Value). A statement or expression the host can't run raises a
// DispatchException with the host's description, and the emulator stays
// usable. Every call is recorded, in order, for tests to read.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host.h"
#include "platform/automation/dispatch.h"

namespace sim {

struct CallRecord {
  // "Visible", "Do", "Eval", "LastErrorMessage", "CBXApplications",
  // "CBXApplications.Item", "<script> Do", "<script> Eval",
  // "<script> CBXGlobals", "<script> CBXGlobals.Item", "<script>.<name> Value"
  std::string member;
  std::string text;    // the statement, expression or name
  std::string answer;  // the value given back, or the failure's description
  bool failed = false;
};

class Emulator {
 public:
  Emulator();
  ~Emulator();
  Emulator(const Emulator&) = delete;
  Emulator& operator=(const Emulator&) = delete;

  Host& GetHost();
  // The application object (one for the emulator's life).
  fk::DispatchPtr Application() const;
  const std::vector<CallRecord>& Calls() const;
  void ClearCalls();
  const std::string& LastError() const;
  bool Visible() const;

  // A running script, added to CBXApplications, with a global variable.
  void AddScript(const std::string& name);
  void SetGlobal(const std::string& script, const std::string& name, const std::string& value);
  // What the projection picker will give on its next showing.
  void QueueProjection(const std::string& clause, const std::string& niceName);

  struct State;

 private:
  std::shared_ptr<State> m_state;
  fk::DispatchPtr m_application;
};

}  // namespace sim
