#include "expression_parser.h"

namespace sim {
namespace {

ExprPtr Make(Expr expr) { return std::make_shared<const Expr>(std::move(expr)); }

ExprPtr Binary(std::string op, ExprPtr left, ExprPtr right) {
  Expr expr;
  expr.kind = ExprKind::Binary;
  expr.text = std::move(op);
  expr.args = {std::move(left), std::move(right)};
  return Make(std::move(expr));
}

ExprPtr Unary(std::string op, ExprPtr operand) {
  Expr expr;
  expr.kind = ExprKind::Unary;
  expr.text = std::move(op);
  expr.args = {std::move(operand)};
  return Make(std::move(expr));
}

ExprPtr ParseOr(TokenStream& t);

// Words that begin a clause of a statement and so never stand for a value.
bool IsClauseWord(const Token& token) {
  static constexpr const char* kWords[] = {"From", "Where", "Into", "Order", "Values", "NoSelect", "Interactive"};
  for (const char* word : kWords)
    if (token.Is(word)) return true;
  return false;
}

std::vector<ExprPtr> ParseArguments(TokenStream& t) {
  std::vector<ExprPtr> args;
  if (t.AcceptSign(")")) return args;
  do args.push_back(ParseOr(t));
  while (t.AcceptSign(","));
  t.ExpectSign(")");
  return args;
}

ExprPtr ParsePrimary(TokenStream& t) {
  const Token& token = t.Peek();
  if (token.kind == TokenKind::Number) {
    Expr expr;
    expr.kind = ExprKind::Number;
    expr.number = t.Take().number;
    return Make(std::move(expr));
  }
  if (token.kind == TokenKind::Text) {
    Expr expr;
    expr.kind = ExprKind::Text;
    expr.text = t.Take().text;
    return Make(std::move(expr));
  }
  if (t.AcceptSign("(")) {
    ExprPtr inner = ParseOr(t);
    t.ExpectSign(")");
    return inner;
  }
  if (token.kind != TokenKind::Name || IsClauseWord(token)) t.Fail("expected a value");
  Expr expr;
  expr.text = t.Take().text;
  expr.kind = ExprKind::Name;
  if (t.AcceptSign("(")) {
    expr.kind = ExprKind::Call;
    expr.args = ParseArguments(t);
  } else if (t.AcceptSign(".")) {
    expr.kind = ExprKind::Member;
    expr.qualifier = expr.text;
    expr.text = t.ExpectName("a column name after the point");
  }
  return Make(std::move(expr));
}

ExprPtr ParseUnary(TokenStream& t) {
  if (t.AcceptSign("-")) return Unary("-", ParseUnary(t));
  if (t.AcceptSign("+")) return ParseUnary(t);
  return ParsePrimary(t);
}

ExprPtr ParseProduct(TokenStream& t) {
  ExprPtr left = ParseUnary(t);
  while (t.Peek().IsSign("*") || t.Peek().IsSign("/")) {
    std::string op = t.Take().text;
    left = Binary(op, left, ParseUnary(t));
  }
  return left;
}

ExprPtr ParseSum(TokenStream& t) {
  ExprPtr left = ParseProduct(t);
  while (t.Peek().IsSign("+") || t.Peek().IsSign("-") || t.Peek().IsSign("&")) {
    std::string op = t.Take().text;
    left = Binary(op, left, ParseProduct(t));
  }
  return left;
}

ExprPtr ParseIn(TokenStream& t, ExprPtr left) {
  t.ExpectSign("(");
  Expr expr;
  expr.args = {std::move(left)};
  if (t.Peek().Is("Select")) {
    expr.kind = ExprKind::InSelect;
    expr.query = std::make_shared<const SelectQuery>(ParseSelect(t));
    t.ExpectSign(")");
  } else {
    expr.kind = ExprKind::InList;
    for (ExprPtr& item : ParseArguments(t)) expr.args.push_back(std::move(item));
  }
  return Make(std::move(expr));
}

ExprPtr ParseCompare(TokenStream& t) {
  ExprPtr left = ParseSum(t);
  static constexpr const char* kSigns[] = {"=", "<>", "<", ">", "<=", ">="};
  for (const char* sign : kSigns)
    if (t.AcceptSign(sign)) return Binary(sign, left, ParseSum(t));
  if (t.Accept("In")) return ParseIn(t, left);
  if (t.Peek().Is("Not") && t.Peek(1).Is("In")) {
    t.Take();
    t.Take();
    return Unary("NOT", ParseIn(t, left));
  }
  return left;
}

ExprPtr ParseNot(TokenStream& t) {
  if (t.Accept("Not")) return Unary("NOT", ParseNot(t));
  return ParseCompare(t);
}

ExprPtr ParseAnd(TokenStream& t) {
  ExprPtr left = ParseNot(t);
  while (t.Accept("And")) left = Binary("AND", left, ParseNot(t));
  return left;
}

ExprPtr ParseOr(TokenStream& t) {
  ExprPtr left = ParseAnd(t);
  while (t.Accept("Or")) left = Binary("OR", left, ParseAnd(t));
  return left;
}

SelectItem ParseSelectItem(TokenStream& t) {
  SelectItem item;
  if (t.AcceptSign("*")) {
    item.star = true;
    return item;
  }
  item.expr = ParseOr(t);
  if (t.Accept("As")) item.alias = t.ExpectName("a column name after As");
  return item;
}

// Words that end a selection's column list or table list.
bool EndsList(const Token& token) {
  return token.Is("Where") || token.Is("Order") || token.Is("Into") || token.Is("NoSelect") || token.Is("Group");
}

}  // namespace

ExprPtr ParseExpression(TokenStream& tokens) { return ParseOr(tokens); }

SelectQuery ParseSelect(TokenStream& t) {
  SelectQuery query;
  t.Expect("Select");
  do query.items.push_back(ParseSelectItem(t));
  while (t.AcceptSign(","));
  t.Expect("From");
  do query.from.push_back(t.ExpectTableName());
  while (t.AcceptSign(","));
  if (t.Accept("Where")) query.where = ParseOr(t);
  if (t.Accept("Order")) {
    t.Expect("By");
    do {
      OrderItem item{ParseSum(t), false};
      if (t.Accept("Desc"))
        item.descending = true;
      else
        t.Accept("Asc");
      query.order.push_back(std::move(item));
    } while (t.AcceptSign(","));
  }
  if (t.Accept("Into")) query.into = t.ExpectTableName();
  if (t.Accept("NoSelect")) query.noSelect = true;
  if (!t.AtEnd() && !t.Peek().IsSign(")") && EndsList(t.Peek())) t.Fail("unexpected clause in the selection");
  return query;
}

ExprPtr ParseExpressionText(std::string_view text) {
  TokenStream tokens(text);
  if (tokens.AtEnd()) tokens.Fail("expected an expression");
  ExprPtr expr = ParseExpression(tokens);
  tokens.ExpectEnd();
  return expr;
}

}  // namespace sim
