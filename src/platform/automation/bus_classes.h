// Automation objects of other processes, on the D-Bus session bus.
//
// A ProgID is a well-known bus name ("Cartoma.Application",
// "TV.InterfaceCOM", ...). The object is at path "/" and answers the
// interface org.formkit.Automation1 with one method
//   Invoke(i dispid, u flags, av args) -> (v)
// An object is "active" when its name has an owner; "creating" one asks the
// bus to start the service that owns the name. A failure raised by the object
// travels as a D-Bus error whose message is the exception's description.
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
// the server was published; the serving thread must run that context.
class BusServer {
 public:
  // Owns `progId` on the session bus (or on the bus at `address`, when given)
  // and serves `object` at "/". Null, with `error` set, on failure.
  static std::unique_ptr<BusServer> Publish(const std::string& progId, DispatchPtr object,
                                            std::string* error, const std::string& address = {});
  virtual ~BusServer() = default;
  // True once the bus has given the name to this server.
  virtual bool OwnsName() const = 0;
};

}  // namespace fk
