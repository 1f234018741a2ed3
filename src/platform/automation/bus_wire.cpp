#include "platform/automation/bus_wire.h"

#include <fmt/format.h>

#include <cstdint>
#include <limits>
#include <string_view>

#include "platform/automation/exceptions.h"
#include "platform/automation/safe_array.h"

namespace fk::bus {
namespace {

constexpr std::uint16_t kBaseMask = static_cast<std::uint16_t>(~VT_BYREF);
// Arrays nest at most this deep in a value. The bus refuses messages nested
// past its own limit by disconnecting the sender; this bound keeps a call and
// its reply, with their wrappings, well inside that limit.
constexpr int kMaxArrayNesting = 8;

[[noreturn]] void Malformed(std::string_view what) {
  throw OleException(fmt::format("A malformed automation value came over the bus: {}.", what));
}

[[noreturn]] void Unsupported(std::uint16_t typeWord) {
  throw OleException(fmt::format("Automation values of type 0x{:04X} cannot travel on the bus.", typeWord));
}

void Expect(GVariant* value, const char* type, std::string_view what) {
  if (!g_variant_is_of_type(value, G_VARIANT_TYPE(type)))
    Malformed(fmt::format("{} is {}, not {}", what, g_variant_get_type_string(value), type));
}

OwnedVariant Child(GVariant* container, std::size_t index) {
  return OwnedVariant(g_variant_get_child_value(container, index));
}

OwnedVariant Unbox(GVariant* boxed) { return OwnedVariant(g_variant_get_variant(boxed)); }

// ------------------------------------------------------------------ encoding

OwnedVariant Pair(std::uint16_t typeWord, const OwnedVariant& payload) {
  return Sink(g_variant_new("(qv)", typeWord, payload.get()));
}

OwnedVariant Boxed(const OwnedVariant& value) { return Sink(g_variant_new_variant(value.get())); }

OwnedVariant ListOfBoxed(const std::vector<OwnedVariant>& boxed) {
  std::vector<GVariant*> children;
  for (const OwnedVariant& child : boxed) children.push_back(child.get());
  return Sink(g_variant_new_array(G_VARIANT_TYPE_VARIANT, children.data(), children.size()));
}

OwnedVariant EncodeText(const std::string& text) {
  if (!g_utf8_validate_len(text.data(), text.size(), nullptr))
    throw OleException("A text that is not UTF-8, or that holds a NUL character, cannot travel on the bus.");
  return Sink(g_variant_new_string(text.c_str()));
}

OwnedVariant EncodeObject(const DispatchPtr& object, const ObjectExporter& exporter) {
  if (!object) return Sink(g_variant_new("(so)", "", kRootPath));
  const ObjectAddress address = exporter(object);
  return Sink(g_variant_new("(so)", address.busName.c_str(), address.path.c_str()));
}

OwnedVariant EncodePlain(const Variant& value, const ObjectExporter& exporter, int arrays);

OwnedVariant EncodeArray(const SafeArray& array, const ObjectExporter& exporter, int arrays) {
  if (arrays >= kMaxArrayNesting)
    throw OleException(fmt::format("Arrays nested more than {} deep cannot travel on the bus.", kMaxArrayNesting));
  std::vector<OwnedVariant> elements;
  for (const Variant& element : array.Elements())
    elements.push_back(Boxed(EncodePlain(element, exporter, arrays + 1)));
  const OwnedVariant list = ListOfBoxed(elements);
  return Sink(g_variant_new("(qi@av)", array.ElementType(), array.LowerBound(), list.get()));
}

// The payload of a plain value of type `type`, inside `arrays` arrays.
OwnedVariant EncodePayload(std::uint16_t type, const Variant& value, const ObjectExporter& exporter, int arrays) {
  if (type & VT_ARRAY) return EncodeArray(value.ToArray(), exporter, arrays);
  switch (type) {
    case VT_EMPTY:
    case VT_NULL: return Sink(g_variant_new_fixed_array(G_VARIANT_TYPE_BYTE, nullptr, 0, 1));
    case VT_I4: return Sink(g_variant_new_int32(value.ToInt()));
    case VT_BOOL: return Sink(g_variant_new_boolean(value.ToBool()));
    case VT_R8: return Sink(g_variant_new_double(value.ToDouble()));
    case VT_BSTR: return EncodeText(value.ToText());
    case VT_DISPATCH: return EncodeObject(value.ToObject(), exporter);
    default: Unsupported(type);
  }
}

OwnedVariant EncodePlain(const Variant& value, const ObjectExporter& exporter, int arrays) {
  if (value.IsByRef()) throw OleException("A reference can travel on the bus only as an argument of a call.");
  return Pair(value.Type(), EncodePayload(value.Type(), value, exporter, arrays));
}

// ------------------------------------------------------------------ decoding

struct TypedPayload {
  std::uint16_t typeWord;
  OwnedVariant payload;
};

TypedPayload Split(GVariant* encoded) {
  Expect(encoded, "(qv)", "a value");
  const OwnedVariant typeWord = Child(encoded, 0);
  return {g_variant_get_uint16(typeWord.get()), Unbox(Child(encoded, 1).get())};
}

Variant DecodeObject(GVariant* payload, const ObjectImporter& importer) {
  Expect(payload, "(so)", "an object");
  const char* busName = nullptr;
  const char* path = nullptr;
  g_variant_get(payload, "(&s&o)", &busName, &path);
  if (*busName == '\0') return Variant::Object(nullptr);
  return Variant::Object(importer(ObjectAddress{busName, path}));
}

Variant DecodePlain(GVariant* encoded, const ObjectImporter& importer, int arrays);

SafeArray DecodeArray(GVariant* payload, const ObjectImporter& importer, int arrays) {
  Expect(payload, "(qiav)", "an array");
  if (arrays >= kMaxArrayNesting) Malformed("arrays are nested too deep");
  guint16 elementType = 0;
  gint32 lowerBound = 0;
  GVariant* list = nullptr;
  g_variant_get(payload, "(qi@av)", &elementType, &lowerBound, &list);
  const OwnedVariant elements(list);
  const std::size_t count = g_variant_n_children(list);
  if (count > 0 && std::int64_t{lowerBound} + static_cast<std::int64_t>(count) - 1 >
                       std::numeric_limits<std::int32_t>::max())
    Malformed("an array reaches past the largest index");
  SafeArray array(elementType, lowerBound);
  for (std::size_t i = 0; i < count; ++i) {
    Variant element = DecodePlain(Unbox(Child(list, i).get()).get(), importer, arrays + 1);
    if (elementType != VT_VARIANT && element.Type() != elementType)
      Malformed(fmt::format("an element of type {} in an array of type {}", element.Type(), elementType));
    array.Append(std::move(element));
  }
  return array;
}

Variant DecodePayload(std::uint16_t type, GVariant* payload, const ObjectImporter& importer, int arrays) {
  if (type & VT_ARRAY) return Variant::Array(DecodeArray(payload, importer, arrays), type);
  switch (type) {
    case VT_EMPTY: Expect(payload, "ay", "an empty value"); return Variant();
    case VT_NULL: Expect(payload, "ay", "a null value"); return Variant::Null();
    case VT_I4: Expect(payload, "i", "an int"); return Variant::Int(g_variant_get_int32(payload));
    case VT_BOOL: Expect(payload, "b", "a boolean"); return Variant::Bool(g_variant_get_boolean(payload));
    case VT_R8: Expect(payload, "d", "a double"); return Variant::Double(g_variant_get_double(payload));
    case VT_BSTR: Expect(payload, "s", "a text"); return Variant::Text(g_variant_get_string(payload, nullptr));
    case VT_DISPATCH: return DecodeObject(payload, importer);
    default: Unsupported(type);
  }
}

Variant DecodePlain(GVariant* encoded, const ObjectImporter& importer, int arrays) {
  TypedPayload typed = Split(encoded);
  if (typed.typeWord & VT_BYREF) Malformed("a reference where only a value may be");
  return DecodePayload(typed.typeWord, typed.payload.get(), importer, arrays);
}

WireArgument DecodeArgument(GVariant* encoded, const ObjectImporter& importer) {
  TypedPayload typed = Split(encoded);
  const std::uint16_t type = typed.typeWord;
  if (!(type & VT_BYREF)) return {type, DecodePayload(type, typed.payload.get(), importer, 0)};
  const std::uint16_t base = type & kBaseMask;
  if (base == VT_VARIANT) return {type, DecodePlain(typed.payload.get(), importer, 0)};
  if (base != VT_I4 && base != VT_BOOL) Unsupported(type);
  return {type, DecodePayload(base, typed.payload.get(), importer, 0)};
}

}  // namespace

OwnedVariant EncodeValue(const Variant& value, const ObjectExporter& exporter, bool allowReference) {
  if (!value.IsByRef() || !allowReference) return EncodePlain(value, exporter, 0);
  const std::uint16_t type = value.Type();
  const Variant target = value.Deref();
  const std::uint16_t base = type & kBaseMask;
  if (base == VT_VARIANT) return Pair(type, EncodePlain(target, exporter, 0));
  if (base != VT_I4 && base != VT_BOOL) Unsupported(type);
  return Pair(type, EncodePayload(base, target, exporter, 0));
}

Variant DecodeValue(GVariant* encoded, const ObjectImporter& importer) { return DecodePlain(encoded, importer, 0); }

OwnedVariant EncodeArguments(std::span<const Variant> args, const ObjectExporter& exporter) {
  std::vector<OwnedVariant> boxed;
  for (const Variant& arg : args) boxed.push_back(Boxed(EncodeValue(arg, exporter, true)));
  return ListOfBoxed(boxed);
}

std::vector<WireArgument> DecodeArguments(GVariant* encoded, const ObjectImporter& importer) {
  Expect(encoded, "av", "the arguments");
  std::vector<WireArgument> args;
  const std::size_t count = g_variant_n_children(encoded);
  for (std::size_t i = 0; i < count; ++i)
    args.push_back(DecodeArgument(Unbox(Child(encoded, i).get()).get(), importer));
  return args;
}

OwnedVariant EncodeReply(const Variant& result, std::span<const Variant> args, const ObjectExporter& exporter) {
  const OwnedVariant value = EncodeValue(result.IsByRef() ? result.Deref() : result, exporter);
  const OwnedVariant arguments = EncodeArguments(args, exporter);
  return Sink(g_variant_new("(v@av)", value.get(), arguments.get()));
}

WireReply DecodeReply(GVariant* encoded, const ObjectImporter& importer) {
  Expect(encoded, "(vav)", "the reply");
  const OwnedVariant result = Unbox(Child(encoded, 0).get());
  const OwnedVariant args = Child(encoded, 1);
  return {DecodeValue(result.get(), importer), DecodeArguments(args.get(), importer)};
}

}  // namespace fk::bus
