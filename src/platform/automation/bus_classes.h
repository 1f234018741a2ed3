// Automation objects of other processes, on the D-Bus session bus.
//
// A ProgID is a well-known bus name ("Cartoma.Application",
// "TV.InterfaceCOM", ...). The object is at path "/" and answers the
// interface org.formkit.Automation1 with the methods
//   Invoke(i dispid, u flags, av args) -> (v)
//   Release()    (lets go of an object the server gave out; never of "/")
// An object is "active" when its name has an owner; "creating" one asks the
// bus to start the service that owns the name. A failure raised by the object
// travels as a D-Bus error whose message is the exception's description.
//
// Objects given out by a call (a collection, a script) are exported by the
// server for the calling client until its proxy is destroyed or the client
// leaves the bus. Arguments passed by reference are written back. Objects of
// the calling process can't be passed as arguments. bus_wire.h has the
// details of how values travel.
#pragma once

#include <memory>
#include <string>

#include "platform/automation/class_registry.h"

namespace fk {

// The session bus as a source of remote classes; null when no session bus
// can be reached.
std::shared_ptr<RemoteClasses> SessionBusClasses();

// Serves one automation object under a well-known name on the session bus.
// Calls are handled on the main context that was the thread's default when
// the server was published; the serving thread must run that context, and
// destroy the server (or stop running the context first). A client in the
// same process must call from another thread, since a call blocks until the
// serving thread answers.
class BusServer {
 public:
  // Owns `progId` on the session bus (or on the bus at `address`, when given)
  // and serves `object` at "/". Null, with `error` set, when the bus can't be
  // reached or the object can't be served. When another connection already
  // owns the name, the server still serves (at its unique name) but
  // OwnsName() is false.
  static std::unique_ptr<BusServer> Publish(const std::string& progId, DispatchPtr object,
                                            std::string* error, const std::string& address = {});
  virtual ~BusServer() = default;
  // True once the bus has given the name to this server.
  virtual bool OwnsName() const = 0;
};

}  // namespace fk
