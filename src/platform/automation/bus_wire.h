// How automation values travel on the bus.
//
// A value is the pair (qv): its type word exactly as the Variant has it, then
// the payload, whose GVariant type follows from the type word:
//   0 empty, 1 null        ay     always empty (D-Bus has no empty structure)
//   3 int                  i
//   11 boolean             b
//   5 double               d
//   8 text                 s      (UTF-8 without NUL; other texts are refused)
//   9 object               (so)   bus name and object path; a null object is ("", "/")
//   any word with 0x2000   (qiav) element type, lower bound, and each element
//                                 as its own (qv) in a v
// A list's enclosing type word is often 0x2000 alone; it arrives as it was
// sent, and the element type travels in the array part. Arrays nest at most
// 8 deep: the bus disconnects a sender whose message nests past its limit.
//
// References (0x4000) travel only as arguments of a call. The type word keeps
// 0x4000 and the payload is the referenced value's: i for 0x4003, b for
// 0x400B, and for 0x400C the referenced variant as its own (qv). Other
// references, references inside arrays or variants, and type words with no
// payload form here (12 alone, ...) are refused.
//
// A call is Invoke(i dispid, u flags, av args), each argument a (qv) in a v.
// Its reply is (v) holding (vav): the result as a (qv) in a v, then every
// argument as it stands after the call, references included, in order.
//
// An object in a value is exported by the side that sends it, which keeps it
// alive until the receiver calls Release() at that path or leaves the bus.
// Only the serving side exports objects; a client refuses to send one.
//
// Every reader checks the GVariant type of what it reads: a malformed value
// raises OleException and never reads past what is there.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "platform/automation/bus_connection.h"
#include "platform/automation/variant.h"

namespace fk::bus {

// Where an object can be called: a bus name and an object path.
struct ObjectAddress {
  std::string busName;
  std::string path;
};

// Gives the address an object is reachable at, exporting it if need be;
// throws to refuse the object. Never called for a null object.
using ObjectExporter = std::function<ObjectAddress(const DispatchPtr& object)>;
// Makes the local stand-in for an object at an address; throws to refuse.
using ObjectImporter = std::function<DispatchPtr(const ObjectAddress& address)>;

// An argument as it arrived: its type word as sent (0x4000 included), and
// for a reference the value it referred to.
struct WireArgument {
  std::uint16_t typeWord = VT_EMPTY;
  Variant value;
};

struct WireReply {
  Variant result;
  std::vector<WireArgument> args;
};

// A value as (qv); a reference only where `allowReference`.
OwnedVariant EncodeValue(const Variant& value, const ObjectExporter& exporter, bool allowReference = false);
Variant DecodeValue(GVariant* encoded, const ObjectImporter& importer);

// The av of Invoke.
OwnedVariant EncodeArguments(std::span<const Variant> args, const ObjectExporter& exporter);
std::vector<WireArgument> DecodeArguments(GVariant* encoded, const ObjectImporter& importer);

// The (vav) of a reply. A result that is a reference travels as the value it
// refers to.
OwnedVariant EncodeReply(const Variant& result, std::span<const Variant> args, const ObjectExporter& exporter);
WireReply DecodeReply(GVariant* encoded, const ObjectImporter& importer);

}  // namespace fk::bus
