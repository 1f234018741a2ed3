#include "call_args.h"

#include <fmt/format.h>

#include "platform/automation/safe_array.h"
#include "scene.h"

namespace tv {

CallArgs::CallArgs(const char* member, std::span<fk::Variant> args, std::size_t count)
    : m_member(member), m_args(args) {
  if (args.size() != count) Fail(fmt::format("{} takes {} arguments, not {}.", member, count, args.size()));
}

const fk::Variant& CallArgs::At(std::size_t i) const { return m_args[i]; }

std::int32_t CallArgs::Int(std::size_t i) const { return At(i).ToInt(); }
bool CallArgs::Bool(std::size_t i) const { return At(i).ToBool(); }
std::string CallArgs::Text(std::size_t i) const {
  if ((At(i).Type() & 0xFFF) != fk::VT_BSTR) Fail(fmt::format("{}: argument {} is not a text.", m_member, i + 1));
  return At(i).ToText();
}

std::vector<fk::Variant> CallArgs::List(std::size_t i) const {
  const fk::Variant& arg = At(i);
  if (arg.Type() != (fk::VT_BYREF | fk::VT_VARIANT) || arg.Deref().Type() != fk::VT_ARRAY)
    Fail(fmt::format("{}: argument {} is not a list (type word {:#x}).", m_member, i + 1, arg.Type()));
  const fk::SafeArray& array = arg.Deref().ToArray();
  if (array.LowerBound() != 0) Fail(fmt::format("{}: the list does not start at 0.", m_member));
  return array.Elements();
}

std::vector<std::string> CallArgs::TextList(std::size_t i) const {
  std::vector<std::string> texts;
  for (const fk::Variant& element : List(i)) texts.push_back(element.ToText());
  return texts;
}

std::vector<std::int32_t> CallArgs::IntList(std::size_t i) const {
  std::vector<std::int32_t> values;
  for (const fk::Variant& element : List(i)) values.push_back(element.ToInt());
  return values;
}

void CallArgs::Out(std::size_t i, const fk::Variant& value) const {
  if (!At(i).IsByRef()) Fail(fmt::format("{}: argument {} is not passed by reference.", m_member, i + 1));
  At(i).Assign(value);
}

}  // namespace tv
