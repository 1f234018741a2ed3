// The client side of automation on the session bus: the bus as a source of
// remote classes, and the proxy that calls an object of another process.
// How values, references and objects travel is told in bus_wire.h.
//
// A proxy calls org.formkit.Automation1.Invoke on its (bus name, object path)
// and waits for the answer as long as it takes: an automation call blocks
// until the other side answers. The object at "/" is the published one and
// lives as long as its server; any other object was exported for this
// connection, and its proxy releases it when destroyed. A proxy keeps the
// connection open, so an object stays usable after the source that gave it.
#include "platform/automation/bus_classes.h"

#include <fmt/format.h>

#include <cstring>

#include "platform/automation/bus_connection.h"
#include "platform/automation/bus_wire.h"
#include "platform/automation/exceptions.h"

namespace fk {
namespace {

using bus::BusConnection;
using bus::ObjectAddress;
using bus::OwnedError;
using bus::OwnedText;
using bus::OwnedVariant;

// Objects of this process don't travel to another one: the other side could
// call back into a client that is blocked waiting for it.
bus::ObjectAddress RefuseObject(const DispatchPtr&) {
  throw OleException("An object cannot be passed as an argument to an object of another process.");
}

bool IsWellKnownName(const std::string& name) {
  return g_dbus_is_name(name.c_str()) && !g_dbus_is_unique_name(name.c_str());
}

class BusProxy final : public Dispatch {
 public:
  BusProxy(std::shared_ptr<BusConnection> connection, ObjectAddress address)
      : m_connection(std::move(connection)), m_address(std::move(address)) {}
  ~BusProxy() override;

  Variant Invoke(std::int32_t dispid, std::uint16_t flags, std::span<Variant> args) override;

 private:
  OwnedVariant Call(std::int32_t dispid, std::uint16_t flags, std::span<Variant> args) const;
  [[noreturn]] void RaiseCallFailure(GError* error) const;
  DispatchPtr Import(const ObjectAddress& address) const {
    return std::make_shared<BusProxy>(m_connection, address);
  }

  std::shared_ptr<BusConnection> m_connection;
  ObjectAddress m_address;
};

BusProxy::~BusProxy() {
  if (m_address.path == bus::kRootPath) return;
  // No reply is waited for: the server drops the object when it gets this.
  g_dbus_connection_call(m_connection->Get(), m_address.busName.c_str(), m_address.path.c_str(), bus::kInterface,
                         "Release", nullptr, nullptr, G_DBUS_CALL_FLAGS_NO_AUTO_START, -1, nullptr, nullptr,
                         nullptr);
}

Variant BusProxy::Invoke(std::int32_t dispid, std::uint16_t flags, std::span<Variant> args) {
  const OwnedVariant reply = Call(dispid, flags, args);
  GVariant* content = nullptr;
  g_variant_get(reply.get(), "(v)", &content);
  const OwnedVariant owned(content);
  bus::WireReply decoded = bus::DecodeReply(content, [this](const ObjectAddress& a) { return Import(a); });
  if (decoded.args.size() != args.size())
    throw OleException(fmt::format("The reply of {} gave back {} arguments for {}.", m_address.busName,
                                   decoded.args.size(), args.size()));
  for (std::size_t i = 0; i < args.size(); ++i)
    if (args[i].IsByRef()) args[i].Assign(decoded.args[i].value);
  return std::move(decoded.result);
}

OwnedVariant BusProxy::Call(std::int32_t dispid, std::uint16_t flags, std::span<Variant> args) const {
  const OwnedVariant encoded = bus::EncodeArguments(args, RefuseObject);
  GError* error = nullptr;
  GVariant* reply = g_dbus_connection_call_sync(
      m_connection->Get(), m_address.busName.c_str(), m_address.path.c_str(), bus::kInterface, "Invoke",
      g_variant_new("(iu@av)", dispid, guint32{flags}, encoded.get()), G_VARIANT_TYPE("(v)"),
      G_DBUS_CALL_FLAGS_NO_AUTO_START, G_MAXINT, nullptr, &error);
  if (!reply) RaiseCallFailure(error);
  return OwnedVariant(reply);
}

void BusProxy::RaiseCallFailure(GError* error) const {
  const OwnedError owned(error);
  const OwnedText remoteName(g_dbus_error_get_remote_error(error));
  g_dbus_error_strip_remote_error(error);
  if (remoteName && std::strcmp(remoteName.get(), bus::kDispatchError) == 0)
    throw DispatchException(error->message);
  throw OleException(
      fmt::format("The call to {} at {} failed: {}", m_address.busName, m_address.path, error->message));
}

class SessionBus final : public RemoteClasses {
 public:
  explicit SessionBus(std::shared_ptr<BusConnection> connection) : m_connection(std::move(connection)) {}

  DispatchPtr GetActiveObject(const std::string& progId) override {
    return IsWellKnownName(progId) && HasOwner(progId) ? RootOf(progId) : nullptr;
  }

  DispatchPtr CreateObject(const std::string& progId) override {
    if (!IsWellKnownName(progId)) return nullptr;
    // The bus answers once the started service owns the name. It refuses a
    // name no service file provides, even when a server already owns it:
    // such a running server is used as it is.
    const OwnedVariant started =
        m_connection->CallBus("StartServiceByName", g_variant_new("(su)", progId.c_str(), 0u), "(u)");
    return started || HasOwner(progId) ? RootOf(progId) : nullptr;
  }

 private:
  bool HasOwner(const std::string& name) const {
    const OwnedVariant reply = m_connection->CallBus("NameHasOwner", g_variant_new("(s)", name.c_str()), "(b)");
    gboolean owned = FALSE;
    if (reply) g_variant_get(reply.get(), "(b)", &owned);
    return owned;
  }
  DispatchPtr RootOf(const std::string& progId) const {
    return std::make_shared<BusProxy>(m_connection, ObjectAddress{progId, bus::kRootPath});
  }

  std::shared_ptr<BusConnection> m_connection;
};

}  // namespace

std::shared_ptr<RemoteClasses> SessionBusClasses() {
  std::shared_ptr<BusConnection> connection = BusConnection::Open({}, nullptr);
  if (!connection) return nullptr;
  return std::make_shared<SessionBus>(std::move(connection));
}

}  // namespace fk
