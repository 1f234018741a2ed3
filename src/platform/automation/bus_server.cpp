// The serving side of automation on the bus: one published object at "/",
// and the objects its calls gave out, each exported at "/obj/<n>" for the
// client that got it. How values travel is told in bus_wire.h.
//
// A call's by-reference arguments get storage of their own for the length of
// the call; the object writes through them, and the reply carries every
// argument as it stands afterwards. An exported object is kept until its
// client calls Release() at its path or leaves the bus.
//
// Everything here runs on the main context that was the thread's default at
// publish time, so the server keeps no locks.
#include <fmt/format.h>

#include <atomic>
#include <deque>
#include <map>
#include <string_view>
#include <vector>

#include "platform/automation/bus_classes.h"
#include "platform/automation/bus_connection.h"
#include "platform/automation/bus_wire.h"
#include "platform/automation/exceptions.h"

namespace fk {
namespace {

using bus::BusConnection;
using bus::ObjectAddress;
using bus::OwnedVariant;

DispatchPtr RefuseObject(const ObjectAddress&) {
  throw OleException("Objects of another process are not accepted as arguments.");
}

// A call as it arrived: the member, the invoke flags, the arguments.
struct IncomingCall {
  std::int32_t dispid;
  std::uint16_t flags;
  std::vector<bus::WireArgument> args;
};

IncomingCall ReadCall(GVariant* parameters) {
  if (!g_variant_is_of_type(parameters, G_VARIANT_TYPE("(iuav)"))) throw OleException("Invoke takes (iuav).");
  gint32 dispid = 0;
  guint32 flags = 0;
  GVariant* list = nullptr;
  g_variant_get(parameters, "(iu@av)", &dispid, &flags, &list);
  const OwnedVariant encoded(list);
  if (flags > 0xFFFF) throw OleException(fmt::format("The invoke flags {} are out of range.", flags));
  return {dispid, static_cast<std::uint16_t>(flags), bus::DecodeArguments(list, RefuseObject)};
}

// Storage of one call's by-reference arguments; it must outlive the reply.
// Deques keep the addresses of what they hold while they grow.
class ReferenceStorage {
 public:
  std::vector<Variant> BindAll(std::vector<bus::WireArgument> arguments) {
    std::vector<Variant> bound;
    for (bus::WireArgument& argument : arguments) bound.push_back(Bind(std::move(argument)));
    return bound;
  }

 private:
  Variant Bind(bus::WireArgument argument) {
    if (!(argument.typeWord & VT_BYREF)) return std::move(argument.value);
    switch (argument.typeWord & ~VT_BYREF) {
      case VT_I4: return Variant::RefInt(&m_ints.emplace_back(argument.value.ToInt()));
      case VT_BOOL: return Variant::RefBool(&m_bools.emplace_back(argument.value.ToBool()));
      case VT_VARIANT: return Variant::RefVariant(&m_variants.emplace_back(std::move(argument.value)));
      default: throw OleException("This reference can't be served.");  // bus_wire refuses these first
    }
  }

  std::deque<std::int32_t> m_ints;
  std::deque<bool> m_bools;
  std::deque<Variant> m_variants;
};

class Server final : public BusServer {
 public:
  Server(std::shared_ptr<BusConnection> connection, DispatchPtr root)
      : m_connection(std::move(connection)), m_root(std::move(root)), m_uniqueName(m_connection->UniqueName()) {}
  ~Server() override;

  bool Start(const std::string& progId, std::string* error);
  bool OwnsName() const override { return m_bOwnsName; }

 private:
  struct Export {
    DispatchPtr object;
    std::string client;
    guint registration;
  };

  static void OnMethodCall(GDBusConnection*, const char* sender, const char* path, const char*,
                           const char* method, GVariant* parameters, GDBusMethodInvocation* invocation,
                           gpointer self);
  static void OnNameOwnerChanged(GDBusConnection*, const char*, const char*, const char*, const char*,
                                 GVariant* parameters, gpointer self);

  guint Register(const std::string& path, std::string* error);
  void HandleInvoke(const std::string& sender, const std::string& path, GVariant* parameters,
                    GDBusMethodInvocation* invocation);
  void HandleRelease(const std::string& sender, const std::string& path, GDBusMethodInvocation* invocation);
  DispatchPtr Target(const std::string& path) const;
  ObjectAddress ExportFor(const std::string& client, const DispatchPtr& object, std::vector<std::string>& added);
  void Unexport(const std::vector<std::string>& paths);
  void DropClient(const std::string& client);
  static void ReturnError(GDBusMethodInvocation* invocation, const char* name, const std::string& message) {
    g_dbus_method_invocation_return_dbus_error(invocation, name, bus::ValidUtf8(message).c_str());
  }

  std::shared_ptr<BusConnection> m_connection;
  DispatchPtr m_root;
  std::string m_uniqueName;
  guint m_rootRegistration = 0;
  guint m_ownerChangedWatch = 0;
  std::map<std::string, Export> m_exports;
  std::uint64_t m_nLastExport = 0;
  std::atomic<bool> m_bOwnsName = false;
};

Server::~Server() {
  GDBusConnection* connection = m_connection->Get();
  if (m_ownerChangedWatch) g_dbus_connection_signal_unsubscribe(connection, m_ownerChangedWatch);
  for (const auto& [path, exported] : m_exports) g_dbus_connection_unregister_object(connection, exported.registration);
  if (m_rootRegistration) g_dbus_connection_unregister_object(connection, m_rootRegistration);
  // Closing the connection (when m_connection goes) gives the name back.
}

bool Server::Start(const std::string& progId, std::string* error) {
  m_rootRegistration = Register(bus::kRootPath, error);
  if (!m_rootRegistration) return false;
  // Clients that leave the bus lose what was exported for them.
  m_ownerChangedWatch = g_dbus_connection_signal_subscribe(
      m_connection->Get(), "org.freedesktop.DBus", "org.freedesktop.DBus", "NameOwnerChanged",
      "/org/freedesktop/DBus", nullptr, G_DBUS_SIGNAL_FLAGS_NONE, &Server::OnNameOwnerChanged, this, nullptr);
  constexpr guint32 kDoNotQueue = 4;
  const OwnedVariant reply =
      m_connection->CallBus("RequestName", g_variant_new("(su)", progId.c_str(), kDoNotQueue), "(u)", error);
  if (!reply) return false;
  guint32 answer = 0;
  g_variant_get(reply.get(), "(u)", &answer);
  constexpr guint32 kPrimaryOwner = 1, kAlreadyOwner = 4;
  m_bOwnsName = answer == kPrimaryOwner || answer == kAlreadyOwner;
  return true;
}

guint Server::Register(const std::string& path, std::string* error) {
  static const GDBusInterfaceVTable vtable = {&Server::OnMethodCall, nullptr, nullptr, {}};
  GError* failure = nullptr;
  const guint registration = g_dbus_connection_register_object(m_connection->Get(), path.c_str(),
                                                               bus::AutomationInterface(), &vtable, this,
                                                               nullptr, &failure);
  if (!registration) {
    const bus::OwnedError owned(failure);
    if (error) *error = fmt::format("Can't serve an object at {}: {}", path, failure->message);
  }
  return registration;
}

void Server::OnMethodCall(GDBusConnection*, const char* sender, const char* path, const char*, const char* method,
                          GVariant* parameters, GDBusMethodInvocation* invocation, gpointer self) {
  auto* server = static_cast<Server*>(self);
  const std::string client = sender ? sender : "";
  if (std::string_view(method) == "Release")
    server->HandleRelease(client, path, invocation);
  else
    server->HandleInvoke(client, path, parameters, invocation);
}

void Server::OnNameOwnerChanged(GDBusConnection*, const char*, const char*, const char*, const char*,
                                GVariant* parameters, gpointer self) {
  if (!g_variant_is_of_type(parameters, G_VARIANT_TYPE("(sss)"))) return;
  const char* name = nullptr;
  const char* oldOwner = nullptr;
  const char* newOwner = nullptr;
  g_variant_get(parameters, "(&s&s&s)", &name, &oldOwner, &newOwner);
  // A unique name losing its owner is a connection that left the bus.
  if (*newOwner == '\0' && g_dbus_is_unique_name(name)) static_cast<Server*>(self)->DropClient(name);
}

void Server::HandleInvoke(const std::string& sender, const std::string& path, GVariant* parameters,
                          GDBusMethodInvocation* invocation) {
  std::vector<std::string> added;  // exported for this reply, taken back if it fails
  const bus::ObjectExporter exporter = [&](const DispatchPtr& object) { return ExportFor(sender, object, added); };
  try {
    IncomingCall call = ReadCall(parameters);
    DispatchPtr target = Target(path);
    ReferenceStorage storage;
    std::vector<Variant> args = storage.BindAll(std::move(call.args));
    const Variant result = target->Invoke(call.dispid, call.flags, args);
    const OwnedVariant reply = bus::EncodeReply(result, args, exporter);
    g_dbus_method_invocation_return_value(invocation, g_variant_new("(v)", reply.get()));
  } catch (const DispatchException& e) {
    Unexport(added);
    ReturnError(invocation, bus::kDispatchError, e.Description());
  } catch (const std::exception& e) {
    Unexport(added);
    ReturnError(invocation, bus::kFailedError, e.what());
  } catch (...) {
    Unexport(added);
    ReturnError(invocation, bus::kFailedError, "The object raised an unknown failure.");
  }
}

void Server::HandleRelease(const std::string& sender, const std::string& path, GDBusMethodInvocation* invocation) {
  auto it = m_exports.find(path);
  if (it != m_exports.end() && it->second.client != sender) {
    ReturnError(invocation, bus::kFailedError, "The object at " + path + " was not given to this connection.");
    return;
  }
  g_dbus_method_invocation_return_value(invocation, nullptr);
  if (it != m_exports.end()) Unexport({path});  // the published object at "/" is never released
}

DispatchPtr Server::Target(const std::string& path) const {
  if (path == bus::kRootPath) return m_root;
  auto it = m_exports.find(path);
  if (it == m_exports.end()) throw OleException("No object is served at " + path + ".");
  return it->second.object;
}

ObjectAddress Server::ExportFor(const std::string& client, const DispatchPtr& object,
                                std::vector<std::string>& added) {
  if (object == m_root) return {m_uniqueName, bus::kRootPath};
  const std::string path = fmt::format("/obj/{}", ++m_nLastExport);
  std::string error;
  const guint registration = Register(path, &error);
  if (!registration) throw OleException(error);
  m_exports.emplace(path, Export{object, client, registration});
  added.push_back(path);
  return {m_uniqueName, path};
}

void Server::Unexport(const std::vector<std::string>& paths) {
  std::vector<DispatchPtr> dropped;  // let go after the table is consistent again
  for (const std::string& path : paths) {
    auto it = m_exports.find(path);
    if (it == m_exports.end()) continue;
    g_dbus_connection_unregister_object(m_connection->Get(), it->second.registration);
    dropped.push_back(std::move(it->second.object));
    m_exports.erase(it);
  }
}

void Server::DropClient(const std::string& client) {
  std::vector<std::string> paths;
  for (const auto& [path, exported] : m_exports)
    if (exported.client == client) paths.push_back(path);
  Unexport(paths);
}

}  // namespace

std::unique_ptr<BusServer> BusServer::Publish(const std::string& progId, DispatchPtr object, std::string* error,
                                              const std::string& address) {
  auto fail = [&](std::string why) {
    if (error) *error = std::move(why);
    return nullptr;
  };
  if (!object) return fail("There is no object to publish.");
  if (!g_dbus_is_name(progId.c_str()) || g_dbus_is_unique_name(progId.c_str()))
    return fail("\"" + progId + "\" is not a well-known bus name.");
  std::shared_ptr<BusConnection> connection = BusConnection::Open(address, error);
  if (!connection) return nullptr;
  auto server = std::make_unique<Server>(std::move(connection), std::move(object));
  if (!server->Start(progId, error)) return nullptr;
  return server;
}

}  // namespace fk
