#include "platform/automation/variant.h"

#include <fmt/format.h>
#include <strings.h>

#include <cmath>
#include <limits>

#include "platform/automation/exceptions.h"
#include "platform/automation/safe_array.h"
#include "platform/text/number_parse.h"

namespace fk {
namespace {

[[noreturn]] void TypeMismatch() { throw OleException("Type mismatch."); }

// Doubles become ints by rounding half to even, as automation conversions do.
std::int32_t RoundToInt(double value) {
  const double rounded = std::nearbyint(value);
  if (!(rounded >= std::numeric_limits<std::int32_t>::min() &&
        rounded <= std::numeric_limits<std::int32_t>::max()))
    throw OleException("Overflow.");
  return static_cast<std::int32_t>(rounded);
}

double TextToDouble(const std::string& text) {
  if (auto number = ParseWholeNumber(text)) return *number;
  TypeMismatch();
}

}  // namespace

Variant Variant::Null() { return Variant(VT_NULL, std::monostate()); }
Variant Variant::Int(std::int32_t value) { return Variant(VT_I4, value); }
Variant Variant::Bool(bool value) { return Variant(VT_BOOL, value); }
Variant Variant::Double(double value) { return Variant(VT_R8, value); }
Variant Variant::Text(std::string value) { return Variant(VT_BSTR, std::move(value)); }
Variant Variant::Object(DispatchPtr object) { return Variant(VT_DISPATCH, std::move(object)); }
Variant Variant::Array(SafeArray array, std::uint16_t typeWord) {
  return Variant(typeWord, std::make_shared<const SafeArray>(std::move(array)));
}
Variant Variant::RefInt(std::int32_t* target) { return Variant(VT_BYREF | VT_I4, target); }
Variant Variant::RefBool(bool* target) { return Variant(VT_BYREF | VT_BOOL, target); }
Variant Variant::RefVariant(Variant* target) { return Variant(VT_BYREF | VT_VARIANT, target); }

Variant Variant::Deref() const {
  if (!IsByRef()) return *this;
  if (auto p = std::get_if<std::int32_t*>(&m_payload)) return Int(**p);
  if (auto p = std::get_if<bool*>(&m_payload)) return Bool(**p);
  if (auto p = std::get_if<Variant*>(&m_payload)) return (*p)->Deref();
  TypeMismatch();
}

void Variant::Assign(const Variant& value) const {
  if (auto p = std::get_if<std::int32_t*>(&m_payload)) {
    **p = value.ToInt();
  } else if (auto p = std::get_if<bool*>(&m_payload)) {
    **p = value.ToBool();
  } else if (auto p = std::get_if<Variant*>(&m_payload)) {
    **p = value.Deref();
  } else {
    throw OleException("Type mismatch.");
  }
}

std::int32_t Variant::ToInt() const {
  if (IsByRef()) return Deref().ToInt();
  switch (m_type) {
    case VT_EMPTY: return 0;
    case VT_I4: return std::get<std::int32_t>(m_payload);
    case VT_BOOL: return std::get<bool>(m_payload) ? -1 : 0;
    case VT_R8: return RoundToInt(std::get<double>(m_payload));
    case VT_BSTR: return RoundToInt(TextToDouble(std::get<std::string>(m_payload)));
    default: TypeMismatch();
  }
}

bool Variant::ToBool() const {
  if (IsByRef()) return Deref().ToBool();
  switch (m_type) {
    case VT_EMPTY: return false;
    case VT_I4: return std::get<std::int32_t>(m_payload) != 0;
    case VT_BOOL: return std::get<bool>(m_payload);
    case VT_R8: return std::get<double>(m_payload) != 0.0;
    case VT_BSTR: {
      const std::string& text = std::get<std::string>(m_payload);
      if (strcasecmp(text.c_str(), "True") == 0) return true;
      if (strcasecmp(text.c_str(), "False") == 0) return false;
      return TextToDouble(text) != 0.0;
    }
    default: TypeMismatch();
  }
}

double Variant::ToDouble() const {
  if (IsByRef()) return Deref().ToDouble();
  switch (m_type) {
    case VT_EMPTY: return 0.0;
    case VT_I4: return std::get<std::int32_t>(m_payload);
    case VT_BOOL: return std::get<bool>(m_payload) ? -1.0 : 0.0;
    case VT_R8: return std::get<double>(m_payload);
    case VT_BSTR: return TextToDouble(std::get<std::string>(m_payload));
    default: TypeMismatch();
  }
}

std::string Variant::ToText() const {
  if (IsByRef()) return Deref().ToText();
  switch (m_type) {
    case VT_EMPTY: return {};
    case VT_I4: return fmt::format("{}", std::get<std::int32_t>(m_payload));
    case VT_BOOL: return std::get<bool>(m_payload) ? "-1" : "0";
    case VT_R8: return fmt::format("{:.15G}", std::get<double>(m_payload));
    case VT_BSTR: return std::get<std::string>(m_payload);
    default: TypeMismatch();
  }
}

DispatchPtr Variant::ToObject() const {
  if (IsByRef()) return Deref().ToObject();
  if (m_type == VT_EMPTY) return nullptr;
  if (m_type == VT_DISPATCH) return std::get<DispatchPtr>(m_payload);
  TypeMismatch();
}

const SafeArray& Variant::ToArray() const {
  if (auto p = std::get_if<Variant*>(&m_payload)) return (*p)->ToArray();
  if (auto p = std::get_if<std::shared_ptr<const SafeArray>>(&m_payload)) return **p;
  TypeMismatch();
}

}  // namespace fk
