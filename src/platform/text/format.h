// printf-compatible formatting that never follows the user's locale: a point
// is always the decimal separator. Used for every number the system writes.
// Each argument keeps its own type, as printf's conversions read it.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace fk {

class FormatArg {
 public:
  enum class Kind { Char, Int, UInt, Long, ULong, LongLong, ULongLong, Double, Text };

  FormatArg(char value) : m_kind(Kind::Char), m_int(value) {}
  FormatArg(short value) : m_kind(Kind::Int), m_int(value) {}
  FormatArg(int value) : m_kind(Kind::Int), m_int(value) {}
  FormatArg(unsigned value) : m_kind(Kind::UInt), m_uint(value) {}
  FormatArg(long value) : m_kind(Kind::Long), m_int(value) {}
  FormatArg(unsigned long value) : m_kind(Kind::ULong), m_uint(value) {}
  FormatArg(long long value) : m_kind(Kind::LongLong), m_int(value) {}
  FormatArg(unsigned long long value) : m_kind(Kind::ULongLong), m_uint(value) {}
  FormatArg(double value) : m_kind(Kind::Double), m_double(value) {}
  FormatArg(const char* text) : m_kind(Kind::Text), m_text(text ? text : "") {}
  FormatArg(const std::string& text) : m_kind(Kind::Text), m_text(text) {}
  FormatArg(std::string_view text) : m_kind(Kind::Text), m_text(text) {}

  Kind GetKind() const { return m_kind; }
  long long Int() const { return m_int; }
  unsigned long long UInt() const { return m_uint; }
  double Double() const { return m_double; }
  std::string_view Text() const { return m_text; }

 private:
  Kind m_kind;
  union {
    long long m_int;
    unsigned long long m_uint;
    double m_double;
  };
  std::string_view m_text;
};

std::string FormatList(std::string_view pattern, std::span<const FormatArg> args);

template <typename... Args>
std::string Format(std::string_view pattern, const Args&... args) {
  if constexpr (sizeof...(Args) == 0) {
    return FormatList(pattern, {});
  } else {
    const FormatArg list[] = {FormatArg(args)...};
    return FormatList(pattern, list);
  }
}

}  // namespace fk
