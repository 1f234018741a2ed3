#include "sql_translation.h"

#include <map>

#include "errors.h"
#include "host.h"
#include "text_util.h"

namespace sim {
namespace {

std::string SqlText(const std::string& text) {
  std::string quoted = "'";
  for (char c : text) {
    if (c == '\'') quoted += '\'';
    quoted += c;
  }
  return quoted + "'";
}

std::string SqlLiteral(const Value& value) {
  if (value.IsNumber()) return FormatNumber(value.AsNumber());
  if (value.IsBool()) return value.AsBool() ? "1" : "0";
  if (value.IsNull()) return "NULL";
  return SqlText(value.AsText());
}

class Translator {
 public:
  Translator(Host& host, std::vector<Table*> tables) : m_host(host), m_tables(std::move(tables)) {}

  std::string Expression(const Expr& e) {
    switch (e.kind) {
      case ExprKind::Number: return FormatNumber(e.number);
      case ExprKind::Text: return SqlText(e.text);
      case ExprKind::Name: return Name(e);
      case ExprKind::Member: return ColumnSql(Qualified(e.qualifier), e.text);
      case ExprKind::Call: return Call(e);
      case ExprKind::Unary:
        return e.text == "NOT" ? "(NOT " + Expression(*e.args[0]) + ")" : "(-" + Expression(*e.args[0]) + ")";
      case ExprKind::Binary: return Binary(e);
      case ExprKind::InSelect:
        return "(" + Expression(*e.args[0]) + " IN (" + TranslateSelect(m_host, *e.query, false).sql + "))";
      case ExprKind::InList: {
        std::string list;
        for (std::size_t i = 1; i < e.args.size(); ++i) list += (i > 1 ? ", " : "") + Expression(*e.args[i]);
        return "(" + Expression(*e.args[0]) + " IN (" + list + "))";
      }
    }
    return "NULL";
  }

  // A column of the item list of a selection, with its definition.
  Column ItemColumn(const Expr& e, std::size_t index) {
    if (e.kind == ExprKind::Name || e.kind == ExprKind::Member) {
      Table* table = e.kind == ExprKind::Member ? Qualified(e.qualifier) : Owner(e.text);
      if (table && table->ColumnIndex(e.text) >= 0) return table->Columns()[table->ColumnIndex(e.text)];
    }
    Column column;
    column.name = "EXPR" + std::to_string(index + 1);
    const bool text = e.kind == ExprKind::Text || (e.kind == ExprKind::Binary && e.text == "&") ||
                      (e.kind == ExprKind::Call && !e.text.empty() && e.text.back() == '$');
    column.type = text ? ColumnType::Char : ColumnType::Float;
    column.width = text ? 254 : 0;
    return column;
  }

  const std::vector<Table*>& Tables() const { return m_tables; }

 private:
  Table* Qualified(const std::string& name) {
    for (Table* table : m_tables)
      if (EqualNoCase(table->Name(), name)) return table;
    if (EqualNoCase(name, "Selection")) return m_tables.empty() ? nullptr : m_tables.front();
    throw HostError("Table " + name + " is not in the selection's From list");
  }

  Table* Owner(const std::string& column) {
    for (Table* table : m_tables)
      if (table->ColumnIndex(column) >= 0) return table;
    return nullptr;
  }

  std::string ColumnSql(Table* table, const std::string& name) {
    if (EqualNoCase(name, "RowID")) return table->SqlName() + ".rowid";
    if (EqualNoCase(name, "Obj") || EqualNoCase(name, "Object")) return table->SqlName() + ".obj";
    const int index = table->RequireColumn(name);
    return table->SqlName() + "." + table->Columns()[static_cast<std::size_t>(index)].sqlName;
  }

  std::string Name(const Expr& e) {
    if (EqualNoCase(e.text, "RowID") || EqualNoCase(e.text, "Obj") || EqualNoCase(e.text, "Object"))
      return ColumnSql(m_tables.front(), e.text);
    if (Table* table = Owner(e.text)) return ColumnSql(table, e.text);
    try {
      return SqlLiteral(m_host.Evaluate(e));
    } catch (const HostError&) {
      throw HostError("Column " + e.text + " is not in table " + m_tables.front()->Name());
    }
  }

  std::string Binary(const Expr& e) {
    static const std::map<std::string, std::string> kOps = {
        {"=", "="},   {"<>", "<>"}, {"<", "<"}, {">", ">"}, {"<=", "<="}, {">=", ">="}, {"AND", "AND"},
        {"OR", "OR"}, {"+", "+"},   {"-", "-"}, {"*", "*"}, {"/", "/"},   {"&", "||"}};
    return "(" + Expression(*e.args[0]) + " " + kOps.at(e.text) + " " + Expression(*e.args[1]) + ")";
  }

  bool NamesAColumn(const Expr& e) {
    if (e.kind == ExprKind::Member) return true;
    if (e.kind == ExprKind::Name && (Owner(e.text) || EqualNoCase(e.text, "RowID"))) return true;
    for (const ExprPtr& arg : e.args)
      if (NamesAColumn(*arg)) return true;
    return false;
  }

  std::string Call(const Expr& e) {
    static const std::map<std::string, std::string> kFunctions = {
        {"UCASE$", "upper"}, {"LCASE$", "lower"}, {"LEN", "length"},  {"ABS", "abs"},
        {"LTRIM$", "ltrim"}, {"RTRIM$", "rtrim"}, {"MID$", "substr"}, {"ROUND", "round"}};
    if (!NamesAColumn(e)) return SqlLiteral(m_host.Evaluate(e));
    const std::string name = Upper(e.text);
    std::string args;
    for (std::size_t i = 0; i < e.args.size(); ++i) args += (i ? ", " : "") + Expression(*e.args[i]);
    if (const auto it = kFunctions.find(name); it != kFunctions.end()) return it->second + "(" + args + ")";
    if (name == "STR$") return "CAST(" + args + " AS TEXT)";
    if (name == "VAL") return "CAST(" + args + " AS REAL)";
    if (name == "INT") return "CAST(" + args + " AS INTEGER)";
    if (name == "LEFT$" && e.args.size() == 2)
      return "substr(" + Expression(*e.args[0]) + ", 1, " + Expression(*e.args[1]) + ")";
    throw HostError("Function " + e.text + " can't be used on the columns of a selection");
  }

  Host& m_host;
  std::vector<Table*> m_tables;
};

}  // namespace

SqlSelect TranslateSelect(Host& host, const SelectQuery& query, bool withObjects) {
  std::vector<Table*> tables;
  for (const std::string& name : query.from) tables.push_back(&host.RequireTable(name));
  Translator t(host, tables);
  SqlSelect result;
  result.first = tables.front();
  std::string items = withObjects ? result.first->SqlName() + ".obj" : "";
  const auto add = [&](const std::string& item) { items += (items.empty() ? "" : ", ") + item; };
  std::vector<std::pair<std::string, std::string>> aliases;  // an item's name and its SQL, for Order By
  for (std::size_t i = 0; i < query.items.size(); ++i) {
    const SelectItem& item = query.items[i];
    if (item.star) {
      for (Table* table : tables)
        for (const Column& column : table->Columns()) {
          add(table->SqlName() + "." + column.sqlName);
          result.columns.push_back(column);
        }
      continue;
    }
    const std::string sql = t.Expression(*item.expr);
    add(sql);
    Column column = t.ItemColumn(*item.expr, i);
    if (!item.alias.empty()) {
      column.name = item.alias;
      aliases.emplace_back(item.alias, sql);
    }
    result.columns.push_back(column);
  }
  std::string from;
  for (Table* table : tables) from += (from.empty() ? "" : ", ") + table->SqlName();
  result.sql = "SELECT " + items + " FROM " + from;
  if (query.where) result.sql += " WHERE " + t.Expression(*query.where);
  if (!withObjects) return result;
  std::string order;
  const auto orderSql = [&](const Expr& e) {
    if (e.kind == ExprKind::Name)
      for (const auto& [alias, sql] : aliases)
        if (EqualNoCase(alias, e.text)) return sql;
    return t.Expression(e);
  };
  for (const OrderItem& item : query.order)
    order += (order.empty() ? "" : ", ") + orderSql(*item.expr) + (item.descending ? " DESC" : "");
  result.sql += " ORDER BY " + (order.empty() ? "" : order + ", ") + result.first->SqlName() + ".rowid";
  return result;
}

std::string TranslateCondition(Host& host, Table& table, const Expr& condition) {
  return Translator(host, {&table}).Expression(condition);
}

}  // namespace sim
