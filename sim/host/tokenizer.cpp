#include "tokenizer.h"

#include <cctype>
#include <charconv>

#include "errors.h"
#include "text_util.h"

namespace sim {

bool Token::Is(std::string_view keyword) const { return kind == TokenKind::Name && EqualNoCase(text, keyword); }

namespace {

bool IsNameStart(char c) { return std::isalpha(static_cast<unsigned char>(c)) || c == '_'; }
bool IsNamePart(char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_'; }
bool IsDigit(char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; }

class Scanner {
 public:
  explicit Scanner(std::string_view source) : m_source(source) {}

  std::vector<Token> Run() {
    std::vector<Token> tokens;
    while (SkipBlanks()) tokens.push_back(Next());
    tokens.push_back(Token{TokenKind::End, "", 0, m_source.size()});
    return tokens;
  }

 private:
  bool SkipBlanks() {
    while (m_at < m_source.size() && std::isspace(static_cast<unsigned char>(m_source[m_at]))) ++m_at;
    return m_at < m_source.size();
  }

  Token Next() {
    const char c = m_source[m_at];
    if (IsNameStart(c)) return ScanName();
    if (IsDigit(c) || (c == '.' && m_at + 1 < m_source.size() && IsDigit(m_source[m_at + 1]))) return ScanNumber();
    if (c == '"') return ScanText();
    return ScanSign();
  }

  Token ScanName() {
    const std::size_t start = m_at;
    while (m_at < m_source.size() && IsNamePart(m_source[m_at])) ++m_at;
    if (m_at < m_source.size() && m_source[m_at] == '$') ++m_at;
    return Token{TokenKind::Name, std::string(m_source.substr(start, m_at - start)), 0, start};
  }

  Token ScanNumber() {
    const std::size_t start = m_at;
    while (m_at < m_source.size() && (IsDigit(m_source[m_at]) || m_source[m_at] == '.')) ++m_at;
    if (m_at < m_source.size() && (m_source[m_at] == 'e' || m_source[m_at] == 'E')) {
      std::size_t exponent = m_at + 1;
      if (exponent < m_source.size() && (m_source[exponent] == '+' || m_source[exponent] == '-')) ++exponent;
      if (exponent < m_source.size() && IsDigit(m_source[exponent])) {
        m_at = exponent;
        while (m_at < m_source.size() && IsDigit(m_source[m_at])) ++m_at;
      }
    }
    const std::string text(m_source.substr(start, m_at - start));
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size())
      throw SyntaxError("Syntax error near '" + text + "': not a number");
    return Token{TokenKind::Number, text, value, start};
  }

  Token ScanText() {
    const std::size_t start = m_at++;
    std::string text;
    while (true) {
      if (m_at >= m_source.size())
        throw SyntaxError("Syntax error near '" + std::string(m_source.substr(start, 20)) +
                          "': the text has no closing quote");
      const char c = m_source[m_at++];
      if (c != '"') {
        text += c;
      } else if (m_at < m_source.size() && m_source[m_at] == '"') {
        text += '"';
        ++m_at;
      } else {
        break;
      }
    }
    return Token{TokenKind::Text, text, 0, start};
  }

  Token ScanSign() {
    static constexpr std::string_view kPairs[] = {"<>", "<=", ">="};
    for (std::string_view pair : kPairs)
      if (m_source.substr(m_at, 2) == pair) {
        m_at += 2;
        return Token{TokenKind::Sign, std::string(pair), 0, m_at - 2};
      }
    static constexpr std::string_view kSingles = "(),=<>+-*/&.:;";
    const char c = m_source[m_at];
    if (kSingles.find(c) == std::string_view::npos)
      throw SyntaxError("Syntax error near '" + std::string(m_source.substr(m_at, 20)) + "': unexpected character");
    return Token{TokenKind::Sign, std::string(1, c), 0, m_at++};
  }

  std::string_view m_source;
  std::size_t m_at = 0;
};

}  // namespace

std::vector<Token> Tokenize(std::string_view source) { return Scanner(source).Run(); }

}  // namespace sim
