#include "scripts.h"

#include <algorithm>
#include <cctype>

#include "errors.h"
#include "expression_parser.h"
#include "statements.h"
#include "text_util.h"

namespace sim {

bool NoCaseLess::operator()(const std::string& a, const std::string& b) const {
  return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
    return std::toupper(static_cast<unsigned char>(x)) < std::toupper(static_cast<unsigned char>(y));
  });
}

Script& Scripts::Add(const std::string& name) {
  Script& script = m_scripts[name];
  if (script.name.empty()) script.name = name;
  return script;
}

Script* Scripts::Find(const std::string& name) {
  const auto it = m_scripts.find(name);
  return it == m_scripts.end() ? nullptr : &it->second;
}

void Scripts::Remove(const std::string& name) { m_scripts.erase(name); }

void Scripts::QueueProjection(const std::string& clause, const std::string& niceName) {
  m_picks.push_back(Pick{clause, niceName});
}

void Scripts::Do(Script& script, const std::string& command) {
  script.commands.push_back(command);
  // An assignment sets a global of the script; other commands are only kept.
  try {
    const Statement statement = ParseStatement(command);
    if (const auto* assign = std::get_if<AssignStmt>(&statement)) {
      if (assign->value->kind == ExprKind::Text)
        script.globals[assign->name] = assign->value->text;
      else if (assign->value->kind == ExprKind::Number)
        script.globals[assign->name] = FormatNumber(assign->value->number);
    }
  } catch (const SyntaxError&) {
  }
}

std::string Scripts::Eval(Script& script, const std::string& query) {
  if (EqualNoCase(query, "PROJECTION SELECTION")) {
    if (m_picks.empty()) return {};  // the user cancelled the picker
    const Pick pick = m_picks.front();
    m_picks.pop_front();
    m_strLastNiceName = pick.niceName;
    return pick.clause;
  }
  if (EqualNoCase(query, "LAST PROJECTION NICENAME")) return m_strLastNiceName;
  if (const auto it = script.globals.find(query); it != script.globals.end()) return it->second;
  throw HostError("The script " + script.name + " has no answer to \"" + query + "\"");
}

}  // namespace sim
