// A scripted host: the host application's Do, Eval and LastErrorMessage at
// their dispatch ids, answered from a table, in front of the host emulator,
// which serves the rest; registered through the host C API as any host's
// object. It raises the failures it is told to, and keeps every call in
// order in a transcript: "Do: <statement>", "Eval: <expression>",
// "LastErrorMessage", and the emulator's records ("CBXApplications", ...).
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "sim/host/c_api_object.h"
#include "sim/host/emulator.h"

// Answers and failures for the host's Do and Eval.
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
  // The emulator behind: its running scripts, their globals, the projection picker.
  sim::Emulator& Emulator() { return m_emulator; }
  // Leaves out the CBXApplications collection: the property gives no object.
  void WithoutScripts() { m_bNoCollection = true; }

  std::vector<std::string> Transcript() const;
  // Only the "Do: " and "Eval: " lines of the host itself.
  std::vector<std::string> Statements() const;
  void ClearTranscript();
  bool Visible() const { return m_emulator.Visible(); }

 private:
  fk::Variant Invoke(std::int32_t dispid, std::uint16_t flags, std::span<fk::Variant> args);
  void Record(std::string line) { m_own.emplace_back(m_emulator.Calls().size(), std::move(line)); }

  sim::Emulator m_emulator;
  ScriptedAnswers m_answers;
  // The lines of the calls answered here, each after as many of the emulator's records.
  std::vector<std::pair<std::size_t, std::string>> m_own;
  std::string m_strLastError;
  fk::DispatchPtr m_application;
  std::optional<sim::CApiRegistration> m_registration;
  bool m_bNoCollection = false;
  bool m_bRunning = false;
};
