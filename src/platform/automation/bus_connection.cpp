#include "platform/automation/bus_connection.h"

namespace fk::bus {
namespace {

constexpr const char* kIntrospection =
    "<node>"
    "  <interface name='org.formkit.Automation1'>"
    "    <method name='Invoke'>"
    "      <arg type='i' name='dispid' direction='in'/>"
    "      <arg type='u' name='flags' direction='in'/>"
    "      <arg type='av' name='args' direction='in'/>"
    "      <arg type='v' name='reply' direction='out'/>"
    "    </method>"
    "    <method name='Release'/>"
    "  </interface>"
    "</node>";

std::string TakeMessage(GError* error) {
  OwnedError owned(error);
  return owned ? owned->message : "unknown failure";
}

}  // namespace

GDBusInterfaceInfo* AutomationInterface() {
  // Parsed once and kept for the life of the process.
  static GDBusNodeInfo* node = g_dbus_node_info_new_for_xml(kIntrospection, nullptr);
  return node->interfaces[0];
}

std::string ValidUtf8(const std::string& text) {
  OwnedText valid(g_utf8_make_valid(text.c_str(), -1));
  return valid.get();
}

std::shared_ptr<BusConnection> BusConnection::Open(const std::string& address, std::string* error) {
  GError* failure = nullptr;
  std::string target = address;
  if (target.empty()) {
    OwnedText session(g_dbus_address_get_for_bus_sync(G_BUS_TYPE_SESSION, nullptr, &failure));
    if (!session) {
      if (error) *error = TakeMessage(failure);
      return nullptr;
    }
    target = session.get();
  }
  const auto flags = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                       G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
  GDBusConnection* connection =
      g_dbus_connection_new_for_address_sync(target.c_str(), flags, nullptr, nullptr, &failure);
  if (!connection) {
    if (error) *error = TakeMessage(failure);
    return nullptr;
  }
  return std::shared_ptr<BusConnection>(new BusConnection(connection));
}

BusConnection::~BusConnection() {
  // Fire-and-forget messages (releases) still queued go out before the close.
  g_dbus_connection_flush_sync(m_connection, nullptr, nullptr);
  g_dbus_connection_close_sync(m_connection, nullptr, nullptr);
  g_object_unref(m_connection);
}

std::string BusConnection::UniqueName() const {
  const char* name = g_dbus_connection_get_unique_name(m_connection);
  return name ? name : "";
}

OwnedVariant BusConnection::CallBus(const char* method, GVariant* parameters, const char* replyType,
                                    std::string* error) const {
  GError* failure = nullptr;
  // The bus always answers; starting a service may take long, so no timeout.
  GVariant* reply = g_dbus_connection_call_sync(m_connection, "org.freedesktop.DBus", "/org/freedesktop/DBus",
                                                "org.freedesktop.DBus", method, parameters,
                                                G_VARIANT_TYPE(replyType), G_DBUS_CALL_FLAGS_NONE, G_MAXINT,
                                                nullptr, &failure);
  if (!reply) {
    const std::string message = TakeMessage(failure);
    if (error) *error = message;
  }
  return OwnedVariant(reply);
}

}  // namespace fk::bus
