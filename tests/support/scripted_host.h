// A scripted host for tests: an in-process automation object with the host's
// eleven members at their dispatch ids, registered through the host C API.
// It answers expressions from a table, raises the failures it is told to
// raise, keeps scripts with global variables in its CBXApplications
// collection, and writes every call it gets to a transcript, in order.
//
// Transcript lines:
//   "Visible = true"  "Do: <statement>"  "Eval: <expression>"
//   "LastErrorMessage"  "CBXApplications"  "CBXApplications.Item: <name>"
//   "<script> Do: <statement>"  "<script> Eval: <expression>"
//   "<script> CBXGlobals"  "<script> CBXGlobals.Item: <name>"
//   "<script>.<variable> Value"
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "formkit/host.h"
#include "support/host_api.h"

class ScriptedHost;

// Answers and failures for the Do and Eval of one object.
class ScriptedAnswers {
 public:
  // Eval of `expression` gives `value` (every time, or each in turn with the
  // last one repeating).
  void Answer(const std::string& expression, const std::string& value);
  void AnswerInTurn(const std::string& expression, std::vector<std::string> values);
  // Do of `statement`, or Eval of `expression`, raises `description`.
  void Fail(const std::string& text, const std::string& description);
  // Answers for expressions the table doesn't hold; without it they raise.
  void OnEval(std::function<std::optional<std::string>(const std::string&)> answer);

  // The answer, or the description of the failure to raise.
  bool EvalAnswer(const std::string& expression, std::string& value, std::string& failure);
  bool DoAccepted(const std::string& statement, std::string& failure) const;

 private:
  std::map<std::string, std::deque<std::string>> m_answers;
  std::map<std::string, std::string> m_failures;
  std::function<std::optional<std::string>(const std::string&)> m_fallback;
};

class ScriptedScript {
 public:
  ScriptedScript(ScriptedHost& host, std::string name);
  ScriptedAnswers& Answers() { return m_answers; }
  void SetGlobal(const std::string& name, const std::string& value) { m_globals[name] = value; }

 private:
  friend class ScriptedHost;
  const HostApi& Api() const;
  int Invoke(int32_t dispid, uint16_t flags, fk_value* const* args, int32_t count, fk_value* result, fk_error* error);
  int InvokeGlobals(int32_t dispid, fk_value* const* args, int32_t count, fk_value* result);

  ScriptedHost& m_host;
  std::string m_name;
  ScriptedAnswers m_answers;
  std::map<std::string, std::string> m_globals;
  struct Variable {
    ScriptedScript* script;
    std::string name;
  };
  static int InvokeVariable(void* self, int32_t dispid, uint16_t flags, fk_value* const* args, int32_t count,
                            fk_value* result, fk_error* error);

  fk_object m_object{};
  fk_object m_globalsObject{};
  std::map<std::string, std::unique_ptr<Variable>> m_variables;
};

class ScriptedHost {
 public:
  // Registers with the library whose API is `api`.
  explicit ScriptedHost(const HostApi& api = HostApi::Linked());
  ~ScriptedHost();
  ScriptedHost(const ScriptedHost&) = delete;
  ScriptedHost& operator=(const ScriptedHost&) = delete;

  // The handle the scripts pass to the exports; 0 after Revoke().
  int32_t Handle() const { return m_handle; }
  // Withdraws the host's registration (the host goes away).
  void Revoke();
  // Makes this host the running "Cartoma.Application".
  void RegisterAsRunning();

  ScriptedAnswers& Answers() { return m_answers; }
  // A script in the CBXApplications collection.
  ScriptedScript& AddScript(const std::string& name);
  // Leaves out the CBXApplications collection: the property gives no object.
  void WithoutScripts() { m_bNoCollection = true; }

  const std::vector<std::string>& Transcript() const { return m_transcript; }
  // Only the "Do: " and "Eval: " lines of the host itself.
  std::vector<std::string> Statements() const;
  void ClearTranscript() { m_transcript.clear(); }
  void Record(std::string line) { m_transcript.push_back(std::move(line)); }

  bool Visible() const { return m_bVisible; }
  const HostApi& Api() const { return m_api; }
  // How often the library let go of its last reference to the host object.
  int Releases() const { return m_nReleases; }

 private:
  int Invoke(int32_t dispid, uint16_t flags, fk_value* const* args, int32_t count, fk_value* result, fk_error* error);
  int InvokeApplications(int32_t dispid, fk_value* const* args, int32_t count, fk_value* result);

  const HostApi& m_api;
  ScriptedAnswers m_answers;
  std::map<std::string, std::unique_ptr<ScriptedScript>> m_scripts;
  std::vector<std::string> m_transcript;
  std::string m_strLastError;
  fk_object m_object{};
  fk_object m_applicationsObject{};
  int32_t m_handle = 0;
  bool m_bVisible = false;
  bool m_bNoCollection = false;
  bool m_bRunning = false;
  int m_nReleases = 0;
};
