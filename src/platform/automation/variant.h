// An automation value: a type word kept exactly as it was set, and a payload.
//
// The type words are the automation ones the host and the viewer exchange:
// 3 a 32-bit int, 5 a double, 8 a text, 9 an object, 11 a boolean, 12 a
// variant; 0x2000 marks an array and 0x4000 a reference to the caller's
// storage. A list sent to the viewer is an array whose enclosing type word is
// 0x2000 alone, so the type word is never derived from the payload.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <variant>

namespace fk {

class Dispatch;
class SafeArray;
class Variant;
using DispatchPtr = std::shared_ptr<Dispatch>;

enum VarType : std::uint16_t {
  VT_EMPTY = 0,
  VT_NULL = 1,
  VT_I4 = 3,
  VT_R8 = 5,
  VT_BSTR = 8,
  VT_DISPATCH = 9,
  VT_BOOL = 11,
  VT_VARIANT = 12,
  VT_ARRAY = 0x2000,
  VT_BYREF = 0x4000,
};

class Variant {
 public:
  Variant() = default;

  // The null value (type word 1): no payload, and no conversion to a number
  // or a text. Values from other processes may carry it.
  static Variant Null();
  static Variant Int(std::int32_t value);
  static Variant Bool(bool value);
  static Variant Double(double value);
  static Variant Text(std::string value);
  static Variant Object(DispatchPtr object);
  // An array with the enclosing type word given; lists use VT_ARRAY alone.
  static Variant Array(SafeArray array, std::uint16_t typeWord = VT_ARRAY);
  // References to the caller's storage: the callee writes through them.
  static Variant RefInt(std::int32_t* target);
  static Variant RefBool(bool* target);
  static Variant RefVariant(Variant* target);

  std::uint16_t Type() const { return m_type; }
  bool IsEmpty() const { return m_type == VT_EMPTY; }
  bool IsByRef() const { return (m_type & VT_BYREF) != 0; }

  // The value itself, following a reference. Conversions follow the
  // automation rules: a wrong type throws OleException ("Type mismatch.").
  std::int32_t ToInt() const;
  bool ToBool() const;
  double ToDouble() const;
  std::string ToText() const;
  DispatchPtr ToObject() const;  // null for an empty value or a null object
  const SafeArray& ToArray() const;

  // For a reference: the value it points at, as a plain value.
  Variant Deref() const;
  // Writes through a reference; throws OleException when the kinds disagree.
  void Assign(const Variant& value) const;

 private:
  using Payload = std::variant<std::monostate, std::int32_t, bool, double, std::string, DispatchPtr,
                               std::shared_ptr<const SafeArray>, std::int32_t*, bool*, Variant*>;
  Variant(std::uint16_t type, Payload payload) : m_type(type), m_payload(std::move(payload)) {}

  std::uint16_t m_type = VT_EMPTY;
  Payload m_payload;
};

}  // namespace fk
