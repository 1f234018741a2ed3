// A cursor over the tokens of one statement, with the helpers the grammar
// is written with: expect a keyword or a sign, accept one if it is there,
// and report a syntax error at the token in hand.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tokenizer.h"

namespace sim {

class TokenStream {
 public:
  explicit TokenStream(std::string_view source);

  const Token& Peek(std::size_t ahead = 0) const;
  const Token& Take();
  bool AtEnd() const { return Peek().kind == TokenKind::End; }

  // Takes the keyword (or sign) when it comes next.
  bool Accept(std::string_view keyword);
  bool AcceptSign(std::string_view sign);
  void Expect(std::string_view keyword);
  void ExpectSign(std::string_view sign);
  void ExpectEnd();
  // A name; keywords are names too, the grammar decides by position.
  std::string ExpectName(std::string_view what);
  // A table as statements name it: a name, or a name in quotes.
  std::string ExpectTableName();
  double ExpectNumber(std::string_view what);
  std::string ExpectText(std::string_view what);

  // "Syntax error near '<rest of the statement>': <what was expected>".
  [[noreturn]] void Fail(std::string_view expected) const;
  std::string_view Source() const { return m_source; }

 private:
  std::string m_source;
  std::vector<Token> m_tokens;
  std::size_t m_at = 0;
};

}  // namespace sim
