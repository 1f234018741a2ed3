// A scripted host for tests: automation objects with the host's members at
// their dispatch ids, registered through the host C API as any host
// registers its object (the emulator's C API adapter; so this folder is
// only in the test programs that link the emulator). It answers
// expressions from a table, raises the failures it is told to raise, keeps
// scripts with global variables in its CBXApplications collection, and
// writes every call it gets to a transcript, in order.
//
// Transcript lines:
//   "Visible = true"  "Do: <statement>"  "Eval: <expression>"
//   "LastErrorMessage"  "CBXApplications"  "CBXApplications.Item: <name>"
//   "<script> Do: <statement>"  "<script> Eval: <expression>"
//   "<script> CBXGlobals"  "<script> CBXGlobals.Item: <name>"
//   "<script>.<variable> Value"
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "sim/host/c_api_object.h"

class ScriptedHost;

// Answers and failures for the Do and Eval of one object.
class ScriptedAnswers {
 public:
  // Eval of `expression` gives `value` (every time, or each in turn with the
  // last one repeating).
  void Answer(const std::string& expression, const std::string& value) { m_answers[expression] = {value}; }
  void Answer(std::initializer_list<std::pair<std::string, std::string>> answers) {
    for (const auto& [expression, value] : answers) Answer(expression, value);
  }
  void AnswerInTurn(const std::string& expression, std::vector<std::string> values);
  // Do of `statement`, or Eval of `expression`, raises `description`.
  void Fail(const std::string& text, const std::string& description) { m_failures[text] = description; }
  // Answers for expressions the table doesn't hold; without it they raise.
  void OnEval(std::function<std::optional<std::string>(const std::string&)> answer) { m_fallback = std::move(answer); }

  // The answer; a failure raises its description.
  std::string Eval(const std::string& expression);
  void Do(const std::string& statement) const;

 private:
  std::map<std::string, std::deque<std::string>> m_answers;
  std::map<std::string, std::string> m_failures;
  std::function<std::optional<std::string>(const std::string&)> m_fallback;
};

// A running script: its Do and Eval, and its global variables.
class ScriptedScript final : public fk::Dispatch {
 public:
  ScriptedScript(ScriptedHost& host, std::string name) : m_host(host), m_name(std::move(name)) {}
  ScriptedAnswers& Answers() { return m_answers; }
  void SetGlobal(const std::string& name, const std::string& value) { m_globals[name] = value; }
  fk::Variant Invoke(std::int32_t dispid, std::uint16_t flags, std::span<fk::Variant> args) override;

 private:
  fk::Variant Global(std::int32_t dispid, const std::string& name);

  ScriptedHost& m_host;
  std::string m_name;
  ScriptedAnswers m_answers;
  std::map<std::string, std::string> m_globals;
};

class ScriptedHost {
 public:
  ScriptedHost();
  ~ScriptedHost() { Revoke(); }
  ScriptedHost(const ScriptedHost&) = delete;
  ScriptedHost& operator=(const ScriptedHost&) = delete;

  // The handle the scripts pass to the exports; 0 after Revoke().
  std::int32_t Handle() const { return m_registration ? m_registration->Handle() : 0; }
  // Withdraws the host's registration (the host goes away).
  void Revoke();
  // Makes this host the running "Cartoma.Application".
  void RegisterAsRunning();
  // Whether the library still holds a reference to the host's object.
  bool HeldByLibrary() const { return m_application.use_count() > 1; }

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

 private:
  fk::Variant Invoke(std::int32_t dispid, std::uint16_t flags, std::span<fk::Variant> args);
  fk::Variant Item(std::int32_t dispid, const std::string& name);

  ScriptedAnswers m_answers;
  std::map<std::string, std::shared_ptr<ScriptedScript>> m_scripts;
  std::vector<std::string> m_transcript;
  std::string m_strLastError;
  fk::DispatchPtr m_application, m_applications;
  std::optional<sim::CApiRegistration> m_registration;
  bool m_bVisible = false;
  bool m_bNoCollection = false;
  bool m_bRunning = false;
};
