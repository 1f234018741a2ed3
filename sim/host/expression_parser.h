// The grammar of expressions, lowest binding first:
//   expr     := and { Or and }
//   and      := not { And not }
//   not      := Not not | compare
//   compare  := sum [ (= | <> | < | > | <= | >=) sum | [Not] In ( select | expr {, expr} ) ]
//   sum      := product { (+ | - | &) product }
//   product  := unary { (* | /) unary }
//   unary    := - unary | primary
//   primary  := number | "text" | ( expr ) | name [ ( [expr {, expr}] ) ] [ . name ]
// and of selections:
//   select   := Select item {, item} From table {, table} [Where expr]
//               [Order By expr [Desc|Asc] {, ...}] [Into table] [NoSelect]
//   item     := * | expr [As name]
#pragma once

#include "syntax.h"
#include "token_stream.h"

namespace sim {

ExprPtr ParseExpression(TokenStream& tokens);
SelectQuery ParseSelect(TokenStream& tokens);

// A whole text as one expression; throws SyntaxError.
ExprPtr ParseExpressionText(std::string_view text);

}  // namespace sim
