// The syntax tree of expressions and of the selections that statements and
// expressions share (SELECT ... FROM ... WHERE ... ORDER BY ... INTO ...).
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace sim {

struct Expr;
struct SelectQuery;
using ExprPtr = std::shared_ptr<const Expr>;

enum class ExprKind {
  Number,    // 12.5
  Text,      // "abc"
  Name,      // Depth, COL2, _TempObj, Holes
  Member,    // Holes.Depth, Holes.COL2, Holes.Obj
  Call,      // TableInfo(1, 8), MakePen(1, 2, 255), FrontWindow()
  Unary,     // -x, Not x
  Binary,    // x + y, a = b, p And q
  InSelect,  // x In (Select COL1 From T)
  InList,    // x In (1, 2, 3)
};

struct Expr {
  ExprKind kind = ExprKind::Number;
  double number = 0;
  // The text of a literal, a name, a function, an operator (upper-cased
  // for the word operators And, Or, Not), or the member of Member.
  std::string text;
  std::string qualifier;  // Member: the table or variable in front of the point
  std::vector<ExprPtr> args;
  std::shared_ptr<const SelectQuery> query;  // InSelect
};

struct SelectItem {
  bool star = false;
  ExprPtr expr;
  std::string alias;
};

struct OrderItem {
  ExprPtr expr;
  bool descending = false;
};

struct SelectQuery {
  std::vector<SelectItem> items;
  std::vector<std::string> from;
  ExprPtr where;
  std::vector<OrderItem> order;
  std::string into;       // empty: the result is the table "Selection"
  bool noSelect = false;  // the result doesn't become the selection
};

}  // namespace sim
