#include "support/host/scripted_host.h"

#include "platform/automation/exceptions.h"
#include "sim/host/linked_c_api.h"

namespace {

using fk::Variant;

// The host application's members by dispatch id, as the host publishes them.
constexpr const char* kProgId = "Cartoma.Application";
constexpr std::int32_t kAppDo = 0x6001000B;                // method (statement)
constexpr std::int32_t kAppEval = 0x6001000C;              // method (expression) -> text
constexpr std::int32_t kAppLastErrorMessage = 0x60010009;  // get -> text
constexpr std::int32_t kAppCBXApplications = 0x6001000A;   // get -> collection of scripts

// An automation object whose members a function answers.
class Members final : public fk::Dispatch {
 public:
  using Answer = std::function<Variant(std::int32_t dispid, std::uint16_t flags, std::span<Variant> args)>;
  explicit Members(Answer answer) : m_answer(std::move(answer)) {}
  Variant Invoke(std::int32_t dispid, std::uint16_t flags, std::span<Variant> args) override {
    return m_answer(dispid, flags, args);
  }

 private:
  Answer m_answer;
};

}  // namespace

void ScriptedAnswers::AnswerInTurn(const std::string& expression, std::vector<std::string> values) {
  m_answers[expression] = std::deque<std::string>(values.begin(), values.end());
}

std::string ScriptedAnswers::Eval(const std::string& expression) {
  Do(expression);
  if (auto it = m_answers.find(expression); it != m_answers.end() && !it->second.empty()) {
    const std::string value = it->second.front();
    if (it->second.size() > 1) it->second.pop_front();
    return value;
  }
  if (m_fallback)
    if (auto answer = m_fallback(expression)) return *answer;
  throw fk::DispatchException("No answer for the expression: " + expression);
}

void ScriptedAnswers::Do(const std::string& statement) const {
  if (auto it = m_failures.find(statement); it != m_failures.end()) throw fk::DispatchException(it->second);
}

ScriptedHost::ScriptedHost()
    : m_application(std::make_shared<Members>([this](std::int32_t dispid, std::uint16_t flags,
                                                     std::span<Variant> args) { return Invoke(dispid, flags, args); })) {
  m_registration.emplace(sim::LinkedHostCApi(), m_application);
}

void ScriptedHost::Revoke() {
  if (m_bRunning) fk_revoke_active_object(kProgId);
  m_bRunning = false;
  m_registration.reset();
}

void ScriptedHost::RegisterAsRunning() { m_bRunning = fk_register_active_object(kProgId, Handle()) == 1; }

std::vector<std::string> ScriptedHost::Transcript() const {
  std::vector<std::string> lines;
  std::size_t next = 0;
  const auto emulated = [&](std::size_t upTo) {
    for (; next < upTo; ++next) {
      const sim::CallRecord& call = m_emulator.Calls()[next];
      lines.push_back(call.text.empty() ? call.member : call.member + ": " + call.text);
    }
  };
  for (const auto& [after, line] : m_own) {
    emulated(after);
    lines.push_back(line);
  }
  emulated(m_emulator.Calls().size());
  return lines;
}

std::vector<std::string> ScriptedHost::Statements() const {
  std::vector<std::string> statements;
  for (const auto& [after, line] : m_own)
    if (line.starts_with("Do: ") || line.starts_with("Eval: ")) statements.push_back(line);
  return statements;
}

void ScriptedHost::ClearTranscript() {
  m_own.clear();
  m_emulator.ClearCalls();
}

Variant ScriptedHost::Invoke(std::int32_t dispid, std::uint16_t flags, std::span<Variant> args) {
  const std::string text = args.empty() ? std::string() : args[0].ToText();
  if ((dispid == kAppDo || dispid == kAppEval) && flags == fk::DISPATCH_METHOD) {
    Record((dispid == kAppDo ? "Do: " : "Eval: ") + text);
    try {
      if (dispid == kAppEval) return Variant::Text(m_answers.Eval(text));
      m_answers.Do(text);
      return Variant();
    } catch (const fk::DispatchException& failure) {
      m_strLastError = failure.Description();
      throw;
    }
  }
  if (dispid == kAppLastErrorMessage && flags == fk::DISPATCH_PROPERTYGET) {
    Record("LastErrorMessage");
    return Variant::Text(m_strLastError);
  }
  if (dispid == kAppCBXApplications && m_bNoCollection) {
    Record("CBXApplications");
    return Variant::Object(nullptr);
  }
  return m_emulator.Application()->Invoke(dispid, flags, args);
}
