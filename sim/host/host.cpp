#include "host.h"

#include "errors.h"
#include "expression_parser.h"
#include "text_util.h"

namespace sim {

Host::Host() : m_coordsys(std::make_shared<const CoordSys>(CoordSys::LongLat(104))) {}

Host::~Host() = default;

void Host::Do(const std::string& statement) {
  const Statement parsed = ParseStatement(statement);
  // The rows a statement changes are changed together or not at all.
  m_db.Exec("SAVEPOINT statement");
  try {
    std::visit([this](const auto& s) { Run(s); }, parsed);
  } catch (...) {
    m_db.Exec("ROLLBACK TO statement");
    m_db.Exec("RELEASE statement");
    throw;
  }
  m_db.Exec("RELEASE statement");
}

std::string Host::Eval(const std::string& expression) { return Evaluate(*ParseExpressionText(expression)).AsText(); }

Table* Host::FindTable(const std::string& name) {
  if (EqualNoCase(name, "Selection")) {
    if (m_selection.queryTable.empty()) return nullptr;
    return m_catalog.Find(m_selection.queryTable);
  }
  return m_catalog.Find(name);
}

Table& Host::RequireTable(const std::string& name) {
  if (Table* table = FindTable(name)) return *table;
  if (EqualNoCase(name, "Selection")) throw HostError("Nothing is selected");
  throw HostError("Table " + name + " is not open");
}

Table& Host::TableOf(const Expr& arg, const RowContext* row) {
  if (arg.kind == ExprKind::Name && !m_variables.contains(arg.text)) return RequireTable(arg.text);
  const Value value = Evaluate(arg, row);
  if (value.IsNumber()) {
    const long index = static_cast<long>(value.AsNumber());
    if (index != 0) return m_catalog.At(index);
    if (Table* last = m_catalog.Last()) return *last;
    throw HostError("No table has been opened yet");
  }
  return RequireTable(value.AsText());
}

std::string Host::TextOf(const ExprPtr& expr) { return Evaluate(*expr).AsText(); }

long Host::WindowOf(const ExprPtr& expr) {
  return expr ? static_cast<long>(Evaluate(*expr).AsNumber("The window")) : 0;
}

void Host::SetVariable(const std::string& name, Value value) {
  const auto type = m_variableTypes.find(name);
  if (type == m_variableTypes.end()) throw HostError("Variable " + name + " is not defined; Dim it first");
  if (EqualNoCase(type->second, "Object") != value.IsObject())
    throw HostError("Variable " + name + " holds " + type->second + " values; the value is " +
                    (value.IsObject() ? "an object" : "not an object"));
  m_variables[name] = std::move(value);
}

}  // namespace sim
