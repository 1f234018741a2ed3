#include "support/host/scripted_host.h"

#include "platform/automation/exceptions.h"
#include "sim/host/linked_c_api.h"

namespace {

using fk::Variant;

// The host's members by dispatch id, as the host publishes them.
constexpr const char* kProgId = "Cartoma.Application";
constexpr std::int32_t kAppVisible = 0x60010005;           // put bool
constexpr std::int32_t kAppDo = 0x6001000B;                // method (statement)
constexpr std::int32_t kAppEval = 0x6001000C;              // method (expression) -> text
constexpr std::int32_t kAppLastErrorMessage = 0x60010009;  // get -> text
constexpr std::int32_t kAppCBXApplications = 0x6001000A;   // get -> collection of scripts
constexpr std::int32_t kApplicationsItem = 0;              // method (name) -> script
constexpr std::int32_t kScriptDo = 0x60010005;             // method (statement)
constexpr std::int32_t kScriptEval = 0x60010006;           // method (expression) -> text
constexpr std::int32_t kScriptCBXGlobals = 0x60010004;     // get -> collection of globals
constexpr std::int32_t kGlobalsItem = 0;                   // method (name) -> variable
constexpr std::int32_t kGlobalValue = 0;                   // get -> text

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

std::string Text(std::span<Variant> args) { return args.empty() ? std::string() : args[0].ToText(); }

}  // namespace

// ------------------------------------------------------------------ answers

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

// ------------------------------------------------------------------ scripts

Variant ScriptedScript::Invoke(std::int32_t dispid, std::uint16_t flags, std::span<Variant> args) {
  const std::string text = Text(args);
  if (dispid == kScriptDo && flags == fk::DISPATCH_METHOD) {
    m_host.Record(m_name + " Do: " + text);
    m_answers.Do(text);
    return Variant();
  }
  if (dispid == kScriptEval && flags == fk::DISPATCH_METHOD) {
    m_host.Record(m_name + " Eval: " + text);
    return Variant::Text(m_answers.Eval(text));
  }
  if (dispid == kScriptCBXGlobals && flags == fk::DISPATCH_PROPERTYGET) {
    m_host.Record(m_name + " CBXGlobals");
    return Variant::Object(std::make_shared<Members>(
        [this](std::int32_t item, std::uint16_t, std::span<Variant> names) { return Global(item, Text(names)); }));
  }
  throw fk::DispatchException("Unknown member of the script " + m_name);
}

Variant ScriptedScript::Global(std::int32_t dispid, const std::string& name) {
  m_host.Record(m_name + " CBXGlobals.Item: " + name);
  if (dispid != kGlobalsItem || !m_globals.contains(name)) return Variant();  // no such variable: no object
  return Variant::Object(std::make_shared<Members>([this, name](std::int32_t member, std::uint16_t flags, auto) {
    m_host.Record(m_name + "." + name + " Value");
    if (member != kGlobalValue || flags != fk::DISPATCH_PROPERTYGET)
      throw fk::DispatchException("Unknown member of a variable");
    return Variant::Text(m_globals[name]);
  }));
}

// ------------------------------------------------------------------ the host

ScriptedHost::ScriptedHost()
    : m_application(std::make_shared<Members>([this](std::int32_t dispid, std::uint16_t flags,
                                                     std::span<Variant> args) { return Invoke(dispid, flags, args); })),
      m_applications(std::make_shared<Members>(
          [this](std::int32_t dispid, std::uint16_t, std::span<Variant> args) { return Item(dispid, Text(args)); })) {
  m_registration.emplace(sim::LinkedHostCApi(), m_application);
}

void ScriptedHost::Revoke() {
  if (m_bRunning) fk_revoke_active_object(kProgId);
  m_bRunning = false;
  m_registration.reset();
}

void ScriptedHost::RegisterAsRunning() { m_bRunning = fk_register_active_object(kProgId, Handle()) == 1; }

ScriptedScript& ScriptedHost::AddScript(const std::string& name) {
  auto& script = m_scripts[name];
  if (!script) script = std::make_shared<ScriptedScript>(*this, name);
  return *script;
}

std::vector<std::string> ScriptedHost::Statements() const {
  std::vector<std::string> statements;
  for (const std::string& line : m_transcript)
    if (line.starts_with("Do: ") || line.starts_with("Eval: ")) statements.push_back(line);
  return statements;
}

Variant ScriptedHost::Invoke(std::int32_t dispid, std::uint16_t flags, std::span<Variant> args) {
  const std::string text = Text(args);
  if (dispid == kAppVisible && flags == fk::DISPATCH_PROPERTYPUT) {
    m_bVisible = !args.empty() && args[0].ToBool();
    Record(std::string("Visible = ") + (m_bVisible ? "true" : "false"));
    return Variant();
  }
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
  if (dispid == kAppCBXApplications && flags == fk::DISPATCH_PROPERTYGET) {
    Record("CBXApplications");
    return Variant::Object(m_bNoCollection ? nullptr : m_applications);
  }
  throw fk::DispatchException("Unknown member of the host application");
}

Variant ScriptedHost::Item(std::int32_t dispid, const std::string& name) {
  Record("CBXApplications.Item: " + name);
  auto it = m_scripts.find(name);
  return dispid == kApplicationsItem && it != m_scripts.end() ? Variant::Object(it->second) : Variant();
}
