#include "call_record.h"

#include <fmt/format.h>

#include "platform/automation/safe_array.h"

namespace tv {

std::string DescribeValue(const fk::Variant& value) {
  const std::uint16_t type = value.Type();
  const fk::Variant plain = value.IsByRef() ? value.Deref() : value;
  std::string text = fmt::format("{:x}:", type);
  if (plain.Type() & fk::VT_ARRAY) {
    const fk::SafeArray& array = plain.ToArray();
    text += fmt::format("[{:x};{}|", array.ElementType(), array.LowerBound());
    for (std::size_t i = 0; i < array.Count(); ++i) text += (i ? "," : "") + DescribeValue(array.Elements()[i]);
    return text + "]";
  }
  switch (plain.Type() & 0xFFF) {
    case fk::VT_EMPTY:
      return text;
    case fk::VT_BSTR:
      return text + "\"" + plain.ToText() + "\"";
    case fk::VT_BOOL:
      return text + (plain.ToBool() ? "true" : "false");
    case fk::VT_I4:
      return text + std::to_string(plain.ToInt());
    case fk::VT_R8:
      return text + fmt::format("{}", plain.ToDouble());
    default:
      return text + "?";
  }
}

CallRecord::CallRecord(const std::string& path) {
  if (!path.empty()) m_out.open(path, std::ios::app);
}

void CallRecord::Add(const std::string& object, std::int32_t dispid, std::uint16_t flags,
                     std::span<const fk::Variant> args) {
  if (!m_out.is_open()) return;
  m_out << object << ' ' << dispid << " flags=" << flags;
  for (const fk::Variant& arg : args) m_out << ' ' << DescribeValue(arg);
  m_out << std::endl;
}

}  // namespace tv
