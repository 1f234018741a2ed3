// What both ends of the automation interface on the bus share: a private
// connection to a message bus, the interface's names and introspection data,
// and owning handles for GLib values.
#pragma once

#include <gio/gio.h>

#include <memory>
#include <string>

namespace fk::bus {

inline constexpr const char* kInterface = "org.formkit.Automation1";
// The object raised a failure (DispatchException); the message is its description.
inline constexpr const char* kDispatchError = "org.formkit.Automation1.Error.Dispatch";
// The call itself failed on the serving side (a value it can't take, ...).
inline constexpr const char* kFailedError = "org.formkit.Automation1.Error.Failed";
// Where the published object lives; it is never released.
inline constexpr const char* kRootPath = "/";

// The interface as GDBus registers it:
//   Invoke(i dispid, u flags, av args) -> (v reply)
//   Release()
GDBusInterfaceInfo* AutomationInterface();

struct GLibFree {
  void operator()(GVariant* value) const { g_variant_unref(value); }
  void operator()(GError* error) const { g_error_free(error); }
  void operator()(char* text) const { g_free(text); }
};
using OwnedVariant = std::unique_ptr<GVariant, GLibFree>;
using OwnedError = std::unique_ptr<GError, GLibFree>;
using OwnedText = std::unique_ptr<char, GLibFree>;

// Takes a new GVariant, sinking a floating reference.
inline OwnedVariant Sink(GVariant* value) { return OwnedVariant(g_variant_ref_sink(value)); }
// Text for a bus message: D-Bus strings must be UTF-8; other bytes become U+FFFD.
std::string ValidUtf8(const std::string& text);

// A private connection to a message bus. It is closed when the last owner
// lets go, after what is queued on it has been sent.
class BusConnection {
 public:
  // Connects to the bus at `address`, or to the session bus when it is empty.
  // Null, with `error` set, when the bus can't be reached.
  static std::shared_ptr<BusConnection> Open(const std::string& address, std::string* error);
  ~BusConnection();
  BusConnection(const BusConnection&) = delete;
  BusConnection& operator=(const BusConnection&) = delete;

  GDBusConnection* Get() const { return m_connection; }
  std::string UniqueName() const;
  // Calls a method of the bus itself (org.freedesktop.DBus); null, with
  // `error` set when given, on failure. `parameters` may be floating.
  OwnedVariant CallBus(const char* method, GVariant* parameters, const char* replyType,
                       std::string* error = nullptr) const;

 private:
  explicit BusConnection(GDBusConnection* connection) : m_connection(connection) {}
  GDBusConnection* m_connection;
};

}  // namespace fk::bus
