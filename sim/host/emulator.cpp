#include "emulator.h"

#include <fmt/format.h>

#include "dispatch_ids.h"
#include "errors.h"
#include "platform/automation/exceptions.h"

namespace sim {

struct Emulator::State {
  Host host;
  std::vector<CallRecord> calls;
  std::string lastError;
  bool visible = false;

  // Runs one call of the host, records it, and turns the host's failures
  // into the dispatch exception that carries their description.
  template <typename Work>
  fk::Variant Call(const std::string& member, const std::string& text, Work work) {
    CallRecord record{member, text, {}, false};
    try {
      fk::Variant result = work();
      if (result.Type() == fk::VT_BSTR) record.answer = result.ToText();
      calls.push_back(std::move(record));
      return result;
    } catch (const std::exception& e) {
      record.failed = true;
      record.answer = e.what();
      lastError = e.what();
      calls.push_back(std::move(record));
      throw fk::DispatchException(lastError);
    }
  }
};

namespace {

using StatePtr = std::shared_ptr<Emulator::State>;

std::string TextArg(std::span<fk::Variant> args, const char* member) {
  if (args.empty()) throw fk::DispatchException(std::string(member) + " needs one argument");
  return args[0].ToText();
}

[[noreturn]] void UnknownMember(const std::string& object, std::int32_t dispid, std::uint16_t flags) {
  throw fk::DispatchException(fmt::format("{} has no member 0x{:08X} with flags {}", object, dispid, flags));
}

class GlobalObject final : public fk::Dispatch {
 public:
  GlobalObject(StatePtr state, std::string script, std::string name)
      : m_state(std::move(state)), m_script(std::move(script)), m_name(std::move(name)) {}
  fk::Variant Invoke(std::int32_t dispid, std::uint16_t flags, std::span<fk::Variant>) override {
    if (dispid != kGlobalValue || !(flags & fk::DISPATCH_PROPERTYGET)) UnknownMember("A global", dispid, flags);
    return m_state->Call(m_script + "." + m_name + " Value", m_name, [&] {
      Script* script = m_state->host.RunningScripts().Find(m_script);
      const auto it = script ? script->globals.find(m_name) : decltype(script->globals.end()){};
      if (!script || it == script->globals.end()) throw HostError("The global " + m_name + " is gone");
      return fk::Variant::Text(it->second);
    });
  }

 private:
  StatePtr m_state;
  std::string m_script, m_name;
};

class GlobalsObject final : public fk::Dispatch {
 public:
  GlobalsObject(StatePtr state, std::string script) : m_state(std::move(state)), m_script(std::move(script)) {}
  fk::Variant Invoke(std::int32_t dispid, std::uint16_t flags, std::span<fk::Variant> args) override {
    if (dispid != kGlobalsItem) UnknownMember("CBXGlobals", dispid, flags);
    const std::string name = TextArg(args, "Item");
    return m_state->Call(m_script + " CBXGlobals.Item", name, [&] {
      Script* script = m_state->host.RunningScripts().Find(m_script);
      if (!script || !script->globals.contains(name)) return fk::Variant::Object(nullptr);
      return fk::Variant::Object(std::make_shared<GlobalObject>(m_state, m_script, name));
    });
  }

 private:
  StatePtr m_state;
  std::string m_script;
};

class ScriptObject final : public fk::Dispatch {
 public:
  ScriptObject(StatePtr state, std::string name) : m_state(std::move(state)), m_name(std::move(name)) {}
  fk::Variant Invoke(std::int32_t dispid, std::uint16_t flags, std::span<fk::Variant> args) override {
    if (dispid == kScriptDo && (flags & fk::DISPATCH_METHOD)) {
      const std::string command = TextArg(args, "Do");
      return m_state->Call(m_name + " Do", command, [&] {
        m_state->host.RunningScripts().Do(Require(), command);
        return fk::Variant();
      });
    }
    if (dispid == kScriptEval && (flags & fk::DISPATCH_METHOD)) {
      const std::string query = TextArg(args, "Eval");
      return m_state->Call(m_name + " Eval", query,
                           [&] { return fk::Variant::Text(m_state->host.RunningScripts().Eval(Require(), query)); });
    }
    if (dispid == kScriptCBXGlobals && (flags & fk::DISPATCH_PROPERTYGET))
      return m_state->Call(m_name + " CBXGlobals", "", [&] {
        Require();
        return fk::Variant::Object(std::make_shared<GlobalsObject>(m_state, m_name));
      });
    UnknownMember("A script", dispid, flags);
  }

 private:
  Script& Require() {
    Script* script = m_state->host.RunningScripts().Find(m_name);
    if (!script) throw HostError("The script " + m_name + " is no longer running");
    return *script;
  }
  StatePtr m_state;
  std::string m_name;
};

class ApplicationsObject final : public fk::Dispatch {
 public:
  explicit ApplicationsObject(StatePtr state) : m_state(std::move(state)) {}
  fk::Variant Invoke(std::int32_t dispid, std::uint16_t flags, std::span<fk::Variant> args) override {
    if (dispid != kApplicationsItem) UnknownMember("CBXApplications", dispid, flags);
    const std::string name = TextArg(args, "Item");
    return m_state->Call("CBXApplications.Item", name, [&] {
      Script* script = m_state->host.RunningScripts().Find(name);
      if (!script) return fk::Variant::Object(nullptr);
      return fk::Variant::Object(std::make_shared<ScriptObject>(m_state, script->name));
    });
  }

 private:
  StatePtr m_state;
};

class ApplicationObject final : public fk::Dispatch {
 public:
  explicit ApplicationObject(StatePtr state) : m_state(std::move(state)) {}
  fk::Variant Invoke(std::int32_t dispid, std::uint16_t flags, std::span<fk::Variant> args) override {
    if (dispid == kAppDo && (flags & fk::DISPATCH_METHOD)) {
      const std::string statement = TextArg(args, "Do");
      return m_state->Call("Do", statement, [&] {
        m_state->host.Do(statement);
        return fk::Variant();
      });
    }
    if (dispid == kAppEval && (flags & fk::DISPATCH_METHOD)) {
      const std::string expression = TextArg(args, "Eval");
      return m_state->Call("Eval", expression, [&] { return fk::Variant::Text(m_state->host.Eval(expression)); });
    }
    if (dispid == kAppVisible && (flags & fk::DISPATCH_PROPERTYPUT)) {
      const bool visible = !args.empty() && args[0].ToBool();
      return m_state->Call("Visible", visible ? "true" : "false", [&] {
        m_state->visible = visible;
        return fk::Variant();
      });
    }
    if (dispid == kAppLastErrorMessage && (flags & fk::DISPATCH_PROPERTYGET))
      return m_state->Call("LastErrorMessage", "", [&] { return fk::Variant::Text(m_state->lastError); });
    if (dispid == kAppCBXApplications && (flags & fk::DISPATCH_PROPERTYGET))
      return m_state->Call("CBXApplications", "",
                           [&] { return fk::Variant::Object(std::make_shared<ApplicationsObject>(m_state)); });
    UnknownMember("The application", dispid, flags);
  }

 private:
  StatePtr m_state;
};

}  // namespace

Emulator::Emulator()
    : m_state(std::make_shared<State>()), m_application(std::make_shared<ApplicationObject>(m_state)) {}

Emulator::~Emulator() = default;

Host& Emulator::GetHost() { return m_state->host; }
fk::DispatchPtr Emulator::Application() const { return m_application; }
const std::vector<CallRecord>& Emulator::Calls() const { return m_state->calls; }
void Emulator::ClearCalls() { m_state->calls.clear(); }
const std::string& Emulator::LastError() const { return m_state->lastError; }
bool Emulator::Visible() const { return m_state->visible; }

void Emulator::AddScript(const std::string& name) { m_state->host.RunningScripts().Add(name); }

void Emulator::SetGlobal(const std::string& script, const std::string& name, const std::string& value) {
  m_state->host.RunningScripts().Add(script).globals[name] = value;
}

void Emulator::QueueProjection(const std::string& clause, const std::string& niceName) {
  m_state->host.RunningScripts().QueueProjection(clause, niceName);
}

}  // namespace sim
