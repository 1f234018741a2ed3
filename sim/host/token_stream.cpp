#include "token_stream.h"

#include "errors.h"

namespace sim {

TokenStream::TokenStream(std::string_view source) : m_source(source), m_tokens(Tokenize(source)) {}

const Token& TokenStream::Peek(std::size_t ahead) const {
  const std::size_t at = m_at + ahead;
  return at < m_tokens.size() ? m_tokens[at] : m_tokens.back();
}

const Token& TokenStream::Take() {
  const Token& token = Peek();
  if (m_at + 1 < m_tokens.size()) ++m_at;
  return token;
}

bool TokenStream::Accept(std::string_view keyword) {
  if (!Peek().Is(keyword)) return false;
  Take();
  return true;
}

bool TokenStream::AcceptSign(std::string_view sign) {
  if (!Peek().IsSign(sign)) return false;
  Take();
  return true;
}

void TokenStream::Expect(std::string_view keyword) {
  if (!Accept(keyword)) Fail("expected " + std::string(keyword));
}

void TokenStream::ExpectSign(std::string_view sign) {
  if (!AcceptSign(sign)) Fail("expected '" + std::string(sign) + "'");
}

void TokenStream::ExpectEnd() {
  if (!AtEnd()) Fail("expected the end of the statement");
}

std::string TokenStream::ExpectName(std::string_view what) {
  if (Peek().kind != TokenKind::Name) Fail("expected " + std::string(what));
  return Take().text;
}

std::string TokenStream::ExpectTableName() {
  if (Peek().kind != TokenKind::Name && Peek().kind != TokenKind::Text) Fail("expected a table name");
  return Take().text;
}

double TokenStream::ExpectNumber(std::string_view what) {
  const bool negative = AcceptSign("-");
  if (Peek().kind != TokenKind::Number) Fail("expected " + std::string(what));
  const double value = Take().number;
  return negative ? -value : value;
}

std::string TokenStream::ExpectText(std::string_view what) {
  if (Peek().kind != TokenKind::Text) Fail("expected " + std::string(what));
  return Take().text;
}

void TokenStream::Fail(std::string_view expected) const {
  const std::size_t offset = Peek().offset;
  std::string near = offset < m_source.size() ? m_source.substr(offset, 40) : std::string("the end");
  if (offset < m_source.size() && m_source.size() - offset > 40) near += "...";
  throw SyntaxError("Syntax error near '" + near + "': " + std::string(expected));
}

}  // namespace sim
