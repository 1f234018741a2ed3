#include "support/scripted_host.h"

#include <set>

namespace {

// The host's members by dispatch id, as the host publishes them.
constexpr const char* kProgId = "Cartoma.Application";
constexpr int32_t kAppVisible = 0x60010005;           // put bool
constexpr int32_t kAppDo = 0x6001000B;                // method (statement)
constexpr int32_t kAppEval = 0x6001000C;              // method (expression) -> text
constexpr int32_t kAppLastErrorMessage = 0x60010009;  // get -> text
constexpr int32_t kAppCBXApplications = 0x6001000A;   // get -> collection of scripts
constexpr int32_t kApplicationsItem = 0;              // method (name) -> script
constexpr int32_t kScriptDo = 0x60010005;             // method (statement)
constexpr int32_t kScriptEval = 0x60010006;           // method (expression) -> text
constexpr int32_t kScriptCBXGlobals = 0x60010004;     // get -> collection of globals
constexpr int32_t kGlobalsItem = 0;                   // method (name) -> variable
constexpr int32_t kGlobalValue = 0;                   // get -> text

// The library may still hold a host object when the test's host is gone;
// its last release then finds no host to count on.
std::set<const void*>& LiveHosts() {
  static std::set<const void*> hosts;
  return hosts;
}

std::string Arg(const HostApi& api, fk_value* const* args, int32_t count, int32_t index) {
  return index < count ? api.value_text(args[index]) : std::string();
}

int Raise(const HostApi& api, fk_error* error, const std::string& description) {
  api.fail(error, description.c_str());
  return 1;
}

template <typename Owner, int (Owner::*Member)(int32_t, uint16_t, fk_value* const*, int32_t, fk_value*, fk_error*)>
int Trampoline(void* self, int32_t dispid, uint16_t flags, fk_value* const* args, int32_t count, fk_value* result,
               fk_error* error) {
  return (static_cast<Owner*>(self)->*Member)(dispid, flags, args, count, result, error);
}

}  // namespace

// ------------------------------------------------------------------ answers

void ScriptedAnswers::Answer(const std::string& expression, const std::string& value) {
  m_answers[expression] = {value};
}

void ScriptedAnswers::AnswerInTurn(const std::string& expression, std::vector<std::string> values) {
  m_answers[expression] = std::deque<std::string>(values.begin(), values.end());
}

void ScriptedAnswers::Fail(const std::string& text, const std::string& description) {
  m_failures[text] = description;
}

void ScriptedAnswers::OnEval(std::function<std::optional<std::string>(const std::string&)> answer) {
  m_fallback = std::move(answer);
}

bool ScriptedAnswers::EvalAnswer(const std::string& expression, std::string& value, std::string& failure) {
  if (auto it = m_failures.find(expression); it != m_failures.end()) {
    failure = it->second;
    return false;
  }
  if (auto it = m_answers.find(expression); it != m_answers.end() && !it->second.empty()) {
    value = it->second.front();
    if (it->second.size() > 1) it->second.pop_front();
    return true;
  }
  if (m_fallback) {
    if (auto answer = m_fallback(expression)) {
      value = *answer;
      return true;
    }
  }
  failure = "No answer for the expression: " + expression;
  return false;
}

bool ScriptedAnswers::DoAccepted(const std::string& statement, std::string& failure) const {
  if (auto it = m_failures.find(statement); it != m_failures.end()) {
    failure = it->second;
    return false;
  }
  return true;
}

// ------------------------------------------------------------------ scripts

ScriptedScript::ScriptedScript(ScriptedHost& host, std::string name) : m_host(host), m_name(std::move(name)) {
  m_object = {this, Trampoline<ScriptedScript, &ScriptedScript::Invoke>, nullptr};
  m_globalsObject = {this,
                     [](void* self, int32_t dispid, uint16_t, fk_value* const* args, int32_t count, fk_value* result,
                        fk_error*) { return static_cast<ScriptedScript*>(self)->InvokeGlobals(dispid, args, count, result); },
                     nullptr};
}

const HostApi& ScriptedScript::Api() const { return m_host.Api(); }

int ScriptedScript::Invoke(int32_t dispid, uint16_t flags, fk_value* const* args, int32_t count, fk_value* result,
                           fk_error* error) {
  std::string failure;
  if (dispid == kScriptDo && flags == 1) {
    const std::string statement = Arg(Api(), args, count, 0);
    m_host.Record(m_name + " Do: " + statement);
    return m_answers.DoAccepted(statement, failure) ? 0 : Raise(Api(), error, failure);
  }
  if (dispid == kScriptEval && flags == 1) {
    const std::string expression = Arg(Api(), args, count, 0);
    m_host.Record(m_name + " Eval: " + expression);
    std::string value;
    if (!m_answers.EvalAnswer(expression, value, failure)) return Raise(Api(), error, failure);
    Api().value_set_text(result, value.c_str());
    return 0;
  }
  if (dispid == kScriptCBXGlobals && flags == 2) {
    m_host.Record(m_name + " CBXGlobals");
    Api().value_set_object(result, &m_globalsObject);
    return 0;
  }
  return Raise(Api(), error, "Unknown member of the script " + m_name);
}

int ScriptedScript::InvokeGlobals(int32_t dispid, fk_value* const* args, int32_t count, fk_value* result) {
  const std::string name = Arg(Api(), args, count, 0);
  m_host.Record(m_name + " CBXGlobals.Item: " + name);
  if (dispid != kGlobalsItem || !m_globals.contains(name)) return 0;  // no such variable: no object
  auto& variable = m_variables[name];
  if (!variable) variable = std::make_unique<Variable>(Variable{this, name});
  const fk_object object = {variable.get(), InvokeVariable, nullptr};
  Api().value_set_object(result, &object);
  return 0;
}

int ScriptedScript::InvokeVariable(void* self, int32_t dispid, uint16_t flags, fk_value* const*, int32_t,
                                   fk_value* result, fk_error* error) {
  auto* variable = static_cast<Variable*>(self);
  ScriptedScript& script = *variable->script;
  script.m_host.Record(script.m_name + "." + variable->name + " Value");
  if (dispid != kGlobalValue || flags != 2) return Raise(script.Api(), error, "Unknown member of a variable");
  script.Api().value_set_text(result, script.m_globals[variable->name].c_str());
  return 0;
}

// ------------------------------------------------------------------ the host

ScriptedHost::ScriptedHost(const HostApi& api) : m_api(api) {
  m_object = {this, Trampoline<ScriptedHost, &ScriptedHost::Invoke>,
              [](void* self) {
                if (LiveHosts().contains(self)) ++static_cast<ScriptedHost*>(self)->m_nReleases;
              }};
  LiveHosts().insert(this);
  m_applicationsObject = {this,
                          [](void* self, int32_t dispid, uint16_t, fk_value* const* args, int32_t count,
                             fk_value* result, fk_error*) {
                            return static_cast<ScriptedHost*>(self)->InvokeApplications(dispid, args, count, result);
                          },
                          nullptr};
  m_handle = m_api.register_object(&m_object);
}

ScriptedHost::~ScriptedHost() {
  Revoke();
  LiveHosts().erase(this);
}

void ScriptedHost::Revoke() {
  if (m_bRunning) m_api.revoke_active_object(kProgId);
  m_bRunning = false;
  if (m_handle) m_api.revoke_object(m_handle);
  m_handle = 0;
}

void ScriptedHost::RegisterAsRunning() {
  m_bRunning = m_api.register_active_object(kProgId, m_handle) == 1;
}

ScriptedScript& ScriptedHost::AddScript(const std::string& name) {
  auto& script = m_scripts[name];
  if (!script) script = std::make_unique<ScriptedScript>(*this, name);
  return *script;
}

std::vector<std::string> ScriptedHost::Statements() const {
  std::vector<std::string> statements;
  for (const std::string& line : m_transcript)
    if (line.starts_with("Do: ") || line.starts_with("Eval: ")) statements.push_back(line);
  return statements;
}

int ScriptedHost::Invoke(int32_t dispid, uint16_t flags, fk_value* const* args, int32_t count, fk_value* result,
                         fk_error* error) {
  std::string failure;
  switch (dispid) {
    case kAppVisible:
      if (flags != 4) break;
      m_bVisible = count > 0 && Api().value_bool(args[0]);
      Record(std::string("Visible = ") + (m_bVisible ? "true" : "false"));
      return 0;
    case kAppDo: {
      if (flags != 1) break;
      const std::string statement = Arg(Api(), args, count, 0);
      Record("Do: " + statement);
      if (m_answers.DoAccepted(statement, failure)) return 0;
      m_strLastError = failure;
      return Raise(Api(), error, failure);
    }
    case kAppEval: {
      if (flags != 1) break;
      const std::string expression = Arg(Api(), args, count, 0);
      Record("Eval: " + expression);
      std::string value;
      if (!m_answers.EvalAnswer(expression, value, failure)) {
        m_strLastError = failure;
        return Raise(Api(), error, failure);
      }
      Api().value_set_text(result, value.c_str());
      return 0;
    }
    case kAppLastErrorMessage:
      if (flags != 2) break;
      Record("LastErrorMessage");
      Api().value_set_text(result, m_strLastError.c_str());
      return 0;
    case kAppCBXApplications:
      if (flags != 2) break;
      Record("CBXApplications");
      if (!m_bNoCollection) Api().value_set_object(result, &m_applicationsObject);
      return 0;
    default:
      break;
  }
  return Raise(Api(), error, "Unknown member of the host application");
}

int ScriptedHost::InvokeApplications(int32_t dispid, fk_value* const* args, int32_t count, fk_value* result) {
  const std::string name = Arg(Api(), args, count, 0);
  Record("CBXApplications.Item: " + name);
  auto it = m_scripts.find(name);
  if (dispid == kApplicationsItem && it != m_scripts.end()) Api().value_set_object(result, &it->second->m_object);
  return 0;
}
