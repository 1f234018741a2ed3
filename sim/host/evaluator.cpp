// Expressions: literals, variables, columns of the current row, operators,
// In over a list or a selection, and calls of the host's functions.
#include <cmath>

#include "errors.h"
#include "host.h"
#include "sql_translation.h"
#include "text_util.h"

namespace sim {
namespace {

int Compare(const Value& a, const Value& b) {
  if ((a.IsNumber() || a.IsBool()) && (b.IsNumber() || b.IsBool())) {
    const double x = a.AsNumber(), y = b.AsNumber();
    return x < y ? -1 : x > y ? 1 : 0;
  }
  const std::string x = Upper(a.AsText()), y = Upper(b.AsText());
  return x < y ? -1 : x > y ? 1 : 0;
}

Value Arithmetic(const std::string& op, const Value& a, const Value& b) {
  if (op == "+" && a.IsText() && b.IsText()) return Value(a.AsText() + b.AsText());
  const double x = a.AsNumber("The left operand of " + op), y = b.AsNumber("The right operand of " + op);
  if (op == "+") return Value(x + y);
  if (op == "-") return Value(x - y);
  if (op == "*") return Value(x * y);
  if (y == 0) throw HostError("Division by zero");
  return Value(x / y);
}

Value Comparison(const std::string& op, const Value& a, const Value& b) {
  const int c = Compare(a, b);
  if (op == "=") return Value(c == 0);
  if (op == "<>") return Value(c != 0);
  if (op == "<") return Value(c < 0);
  if (op == ">") return Value(c > 0);
  if (op == "<=") return Value(c <= 0);
  return Value(c >= 0);
}

}  // namespace

Value Host::Evaluate(const Expr& e, const RowContext* row) {
  switch (e.kind) {
    case ExprKind::Number: return Value(e.number);
    case ExprKind::Text: return Value(e.text);
    case ExprKind::Name: {
      if (row && row->table) {
        if (EqualNoCase(e.text, "RowID")) return Value(static_cast<double>(row->row));
        if (EqualNoCase(e.text, "Obj") || EqualNoCase(e.text, "Object")) return ObjectValueOf(*row->table, row->row);
        const int column = row->table->ColumnIndex(e.text);
        if (column >= 0) return row->table->Cell(row->row, column);
      }
      if (const auto it = m_variables.find(e.text); it != m_variables.end()) return it->second;
      if (m_variableTypes.contains(e.text)) throw HostError("Variable " + e.text + " has no value yet");
      if (EqualNoCase(e.text, "True")) return Value(true);
      if (EqualNoCase(e.text, "False")) return Value(false);
      throw HostError(e.text + " is not a variable" +
                      (row && row->table ? " or a column of " + row->table->Name() : ""));
    }
    case ExprKind::Member: {
      Table& table = RequireTable(e.qualifier);
      const std::int64_t current = row && row->table == &table ? row->row : table.m_nCurrentRow;
      const bool object = EqualNoCase(e.text, "Obj") || EqualNoCase(e.text, "Object");
      if (current <= 0 && object) return Value(ObjectValue{nullptr, std::make_shared<const CoordSys>(table.m_coordsys)});
      if (current <= 0) throw HostError("No row of table " + table.Name() + " has been fetched");
      if (EqualNoCase(e.text, "RowID")) return Value(static_cast<double>(current));
      if (object) return ObjectValueOf(table, current);
      return table.Cell(current, table.RequireColumn(e.text));
    }
    case ExprKind::Call: return CallFunction(e, row);
    case ExprKind::Unary: {
      const Value operand = Evaluate(*e.args[0], row);
      if (e.text == "NOT") return Value(!operand.AsBool("The operand of Not"));
      return Value(-operand.AsNumber("The operand of -"));
    }
    case ExprKind::Binary: {
      if (e.text == "AND") return Value(Evaluate(*e.args[0], row).AsBool() && Evaluate(*e.args[1], row).AsBool());
      if (e.text == "OR") return Value(Evaluate(*e.args[0], row).AsBool() || Evaluate(*e.args[1], row).AsBool());
      const Value a = Evaluate(*e.args[0], row), b = Evaluate(*e.args[1], row);
      if (e.text == "&") return Value(a.AsText() + b.AsText());
      if (e.text == "+" || e.text == "-" || e.text == "*" || e.text == "/") return Arithmetic(e.text, a, b);
      return Comparison(e.text, a, b);
    }
    case ExprKind::InList: {
      const Value needle = Evaluate(*e.args[0], row);
      for (std::size_t i = 1; i < e.args.size(); ++i)
        if (Compare(needle, Evaluate(*e.args[i], row)) == 0) return Value(true);
      return Value(false);
    }
    case ExprKind::InSelect: {
      const Value needle = Evaluate(*e.args[0], row);
      SqlStatement values(m_db, TranslateSelect(*this, *e.query, false).sql);
      while (values.Step()) {
        const Value candidate = values.IsNull(0) ? Value() : Value(values.Text(0));
        if (Compare(needle, candidate) == 0) return Value(true);
      }
      return Value(false);
    }
  }
  return Value();
}

// A row without an object, like a table before its first fetch, gives no
// object: a variable takes it, and what reads an object refuses it.
Value Host::ObjectValueOf(Table& table, std::int64_t row) {
  return Value(ObjectValue{table.ObjectAt(row), std::make_shared<const CoordSys>(table.m_coordsys)});
}

Object Host::ObjectFromValue(const Value& value, const Table& table) {
  const ObjectValue& object = value.AsObject("The value for the object column");
  return m_reprojector.Convert(*object.object, *object.coordsys, table.m_coordsys);
}

}  // namespace sim
