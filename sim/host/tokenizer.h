// The statement language's words: names, numbers, quoted texts and signs.
// Keywords are names compared ignoring case; a name may end in "$" (text
// functions such as PathToTableName$). A quoted text doubles a quote that it
// holds ("say ""hi""").
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace sim {

enum class TokenKind { Name, Number, Text, Sign, End };

struct Token {
  TokenKind kind = TokenKind::End;
  std::string text;        // the name, the sign, the unquoted text, the number as written
  double number = 0;       // for numbers
  std::size_t offset = 0;  // where the token starts in the source

  // A name equal to `keyword`, ignoring case.
  bool Is(std::string_view keyword) const;
  bool IsSign(std::string_view sign) const { return kind == TokenKind::Sign && text == sign; }
};

// Splits a statement or expression into tokens, ending with one End token.
// Throws SyntaxError on an unterminated text or a character the language
// has no use for.
std::vector<Token> Tokenize(std::string_view source);

}  // namespace sim
