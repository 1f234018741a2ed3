// Automation across processes on a private session bus: values, references
// and objects on the wire, failures, and what the server keeps for its
// clients; and the cartoma-sim program on the bus, which the host session of
// the library connects to by name, as to a host in another process.
#include <fmt/format.h>
#include <gio/gio.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>

#include <atomic>
#include <functional>
#include <future>
#include <memory>
#include <thread>

#include "host/cartoma.h"
#include "platform/automation/bus_classes.h"
#include "platform/automation/bus_connection.h"
#include "platform/automation/class_registry.h"
#include "platform/automation/exceptions.h"
#include "platform/automation/safe_array.h"
#include "support/private_bus.h"
#include "support/session_fixture.h"

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using fk::SafeArray;
using fk::Variant;

namespace {

// A thread running a GMainLoop on its own GMainContext, pushed as the
// thread's default: what a server publishes from there is served there.
class ServingThread {
 public:
  ServingThread()
      : m_context(g_main_context_new()), m_loop(g_main_loop_new(m_context, FALSE)), m_thread([this] {
          g_main_context_push_thread_default(m_context);
          g_main_loop_run(m_loop);
          g_main_context_pop_thread_default(m_context);
        }) {}
  ~ServingThread() {
    // Quitting from inside the loop: a quit before the loop runs would be lost.
    Run([this] { g_main_loop_quit(m_loop); });
    m_thread.join();
    g_main_loop_unref(m_loop);
    g_main_context_unref(m_context);
  }

  // Runs `work` on the thread, inside its loop, and waits until it is done;
  // an exception it throws comes back here.
  void Run(std::function<void()> work) {
    std::packaged_task<void()> job(std::move(work));
    std::future<void> done = job.get_future();
    g_main_context_invoke(
        m_context,
        [](gpointer job) -> gboolean {
          (*static_cast<std::packaged_task<void()>*>(job))();
          return G_SOURCE_REMOVE;
        },
        &job);
    done.get();
  }

 private:
  GMainContext* m_context;
  GMainLoop* m_loop;
  std::thread m_thread;
};

// A value as text: type word, then the payload ("0003:7", "400C>0008:x",
// "2000[C@5: 0003:7]" for an array of element type 12 from index 5).
std::string Describe(const Variant& value) {
  if (value.IsByRef()) return fmt::format("{:04X}>{}", value.Type(), Describe(value.Deref()));
  if (value.Type() & fk::VT_ARRAY) {
    const SafeArray& array = value.ToArray();
    std::string text = fmt::format("{:04X}[{:X}@{}:", value.Type(), array.ElementType(), array.LowerBound());
    for (const Variant& element : array.Elements()) text += " " + Describe(element);
    return text + "]";
  }
  if (value.Type() == fk::VT_DISPATCH) return value.ToObject() ? "object" : "null object";
  if (value.Type() <= fk::VT_NULL) return fmt::format("{:04X}", value.Type());
  return fmt::format("{:04X}:{}", value.Type(), value.ToText());
}

constexpr std::int32_t kEcho = 1, kChild = 2, kWriteOuts = 3, kRaise = 4, kWrapInArray = 5;

// A served object that counts live instances and notes how it was called.
class Probe final : public fk::Dispatch {
 public:
  Probe() { ++s_nLive; }
  ~Probe() override { --s_nLive; }
  static inline std::atomic<int> s_nLive = 0;
  std::vector<std::string> m_seen;  // the arguments of the last call, described
  int m_nCalls = 0;

  Variant Invoke(std::int32_t dispid, std::uint16_t, std::span<Variant> args) override {
    ++m_nCalls;
    m_seen.clear();
    for (const Variant& arg : args) m_seen.push_back(Describe(arg));
    switch (dispid) {
      case kEcho: return args.empty() ? Variant() : args[0].Deref();
      case kChild: return Variant::Object(std::make_shared<Probe>());
      case kWriteOuts:
        args[0].Assign(Variant::Int(args[0].ToInt() + 1));
        args[1].Assign(Variant::Array(SafeArray::OfInts({4, 5})));
        args[2] = Variant::Int(99);  // by value: stays on this side
        return Variant::Bool(true);
      case kRaise: throw fk::DispatchException("The probe says no", 7);
      case kWrapInArray: return Variant::Array(SafeArray::OfVariants({args[0]}));
      default: throw fk::OleException(fmt::format("The probe has no member {}.", dispid));
    }
  }
};

Variant Call(const fk::DispatchPtr& object, std::int32_t dispid, std::vector<Variant> args = {}) {
  return object->Invoke(dispid, fk::DISPATCH_METHOD, args);
}

// The error name a raw call gets from the probe's server, or "accepted".
std::string Answer(GDBusConnection* connection, const char* path, const char* method, const char* parameters) {
  GError* error = nullptr;
  GVariant* reply = g_dbus_connection_call_sync(connection, "Test.Probe", path, fk::bus::kInterface, method,
                                                g_variant_new_parsed(parameters), nullptr,
                                                G_DBUS_CALL_FLAGS_NONE, -1, nullptr, &error);
  if (reply) g_variant_unref(reply);
  if (!error) return "accepted";
  const fk::bus::OwnedError owned(error);
  const fk::bus::OwnedText name(g_dbus_error_get_remote_error(error));
  return name ? name.get() : error->message;
}

class BusTest : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    if (!m_bus.IsUp()) GTEST_SKIP() << "dbus-daemon is not installed; the bus tests need a bus of their own";
    m_classes = fk::SessionBusClasses();
    ASSERT_TRUE(m_classes) << "the private bus can't be reached";
    fk::ClassRegistry::Instance().SetRemote(m_classes);
  }
  void TearDown() override {
    ResetSession();
    fk::ClassRegistry::Instance().SetRemote(nullptr);
    StopServing();
    SessionTest::TearDown();
  }

  fk::BusServer& Publish(const std::string& name, fk::DispatchPtr object) {
    std::unique_ptr<fk::BusServer> server;
    std::string error;
    m_serving.Run([&] { server = fk::BusServer::Publish(name, std::move(object), &error); });
    if (!server) throw std::runtime_error("publishing failed: " + error);
    return *m_servers.emplace_back(std::move(server));
  }
  void StopServing() {
    m_serving.Run([this] { m_servers.clear(); });
  }
  // Round trips through the bus to the server behind `object` until
  // `condition` holds: each one arrives after what the bus queued before it.
  static bool PumpUntil(const fk::DispatchPtr& object, const std::function<bool()>& condition) {
    for (int i = 0; i < 1000 && !condition(); ++i) Call(object, kEcho);
    return condition();
  }

  PrivateBus m_bus;
  ServingThread m_serving;
  std::vector<std::unique_ptr<fk::BusServer>> m_servers;
  std::shared_ptr<fk::RemoteClasses> m_classes;
};

TEST_F(BusTest, ANameWithoutAnOwnerGivesNoObjectAndTheFirstServerOwnsIt) {
  EXPECT_EQ(m_classes->GetActiveObject("Cartoma.Application"), nullptr);
  EXPECT_EQ(m_classes->CreateObject("Cartoma.Application"), nullptr) << "no service is installed for the name";
  EXPECT_EQ(m_classes->GetActiveObject("not a bus name"), nullptr);
  EXPECT_EQ(g_Cartoma.Connect(0, 1), 0);
  EXPECT_FALSE(g_CartomaDriver.IsAttached());

  // The first server owns the name, and CreateObject reaches it.
  auto first = std::make_shared<Probe>();
  EXPECT_TRUE(Publish("Test.Probe", first).OwnsName());
  EXPECT_FALSE(Publish("Test.Probe", std::make_shared<Probe>()).OwnsName());
  fk::DispatchPtr created = m_classes->CreateObject("Test.Probe");
  ASSERT_TRUE(created);
  EXPECT_EQ(Describe(Call(created, kEcho, {Variant::Int(5)})), "0003:5");
  EXPECT_EQ(first->m_nCalls, 1);
}

// An array nested n deep, holding an int at the bottom.
Variant Nested(int depth) {
  Variant value = Variant::Int(1);
  for (int i = 0; i < depth; ++i) value = Variant::Array(SafeArray::OfVariants({value}));
  return value;
}

TEST_F(BusTest, ValuesAndReferencesKeepTheirTypeWordsAndFailuresTheirKind) {
  auto probe = std::make_shared<Probe>();
  Publish("Test.Probe", probe);
  fk::DispatchPtr remote = m_classes->GetActiveObject("Test.Probe");
  ASSERT_TRUE(remote);

  SafeArray mixed(fk::VT_VARIANT, 5);
  mixed.Append(Variant::Int(7));
  mixed.Append(Variant::Text("Grüße"));
  mixed.Append(Variant::Array(SafeArray::OfInts({1, 2}), fk::VT_ARRAY | fk::VT_I4));
  mixed.Append(Variant::Object(nullptr));
  SafeArray ints(fk::VT_I4, -3);
  ints.Append(Variant::Int(-1));
  const Variant values[] = {Variant(),           Variant::Null(),        Variant::Bool(true),
                            Variant::Double(2.5), Variant::Array(mixed), Variant::Array(ints),
                            Variant::Array(SafeArray(fk::VT_I4, 1), fk::VT_ARRAY | fk::VT_I4), Nested(8)};
  for (const Variant& value : values) {
    EXPECT_EQ(Describe(Call(remote, kEcho, {value})), Describe(value));
    EXPECT_THAT(probe->m_seen, ElementsAre(Describe(value)));
  }
  EXPECT_EQ(Describe(values[4]), "2000[C@5: 0003:7 0008:Grüße 2003[3@0: 0003:1 0003:2] null object]");

  // References are written back, values are not.
  std::int32_t count = 41;
  Variant slot;
  std::vector<Variant> args = {Variant::RefInt(&count), Variant::RefVariant(&slot), Variant::Int(1)};
  EXPECT_EQ(Describe(remote->Invoke(kWriteOuts, fk::DISPATCH_METHOD, args)), "000B:-1");
  EXPECT_THAT(probe->m_seen, ElementsAre("4003>0003:41", "400C>0000", "0003:1"));
  EXPECT_EQ(count, 42);
  EXPECT_EQ(Describe(slot), "2000[3@0: 0003:4 0003:5]");
  EXPECT_EQ(Describe(args[2]), "0003:1");

  EXPECT_THAT([&] { Call(remote, kRaise); }, ::testing::ThrowsMessage<fk::DispatchException>("The probe says no"));
  EXPECT_THAT([&] { Call(remote, 99); },
              ::testing::ThrowsMessage<fk::OleException>(HasSubstr("The probe has no member 99.")));

  // Refused before anything is sent: an object, text that is no UTF-8, an
  // array nested past the limit; and a reply that would be, as the bus
  // would disconnect the server for it.
  probe->m_nCalls = 0;
  EXPECT_THROW(Call(remote, kEcho, {Variant::Object(std::make_shared<Probe>())}), fk::OleException);
  EXPECT_THROW(Call(remote, kEcho, {Variant::Text("\xFF")}), fk::OleException);
  EXPECT_THROW(Call(remote, kEcho, {Nested(9)}), fk::OleException);
  EXPECT_EQ(probe->m_nCalls, 0);
  EXPECT_THROW(Call(remote, kWrapInArray, {Nested(8)}), fk::OleException);
  EXPECT_EQ(Describe(Call(remote, kEcho, {Variant::Int(2)})), "0003:2") << "the server stays on the bus";

  StopServing();
  EXPECT_THROW(Call(remote, kEcho), fk::OleException) << "the server is gone";
}

TEST_F(BusTest, TheServerKeepsAGivenObjectUntilItsProxyOrItsClientGoes) {
  Publish("Test.Probe", std::make_shared<Probe>());
  fk::DispatchPtr remote = m_classes->GetActiveObject("Test.Probe");
  fk::DispatchPtr child = Call(remote, kChild).ToObject();
  ASSERT_TRUE(child);
  EXPECT_EQ(Describe(Call(child, kEcho, {Variant::Int(8)})), "0003:8");
  EXPECT_EQ(Probe::s_nLive, 2);
  child.reset();
  EXPECT_TRUE(PumpUntil(remote, [] { return Probe::s_nLive == 1; }));
  {
    // Another client takes an object and disconnects without releasing it.
    auto other = fk::bus::BusConnection::Open({}, nullptr);
    ASSERT_TRUE(other);
    const std::string takeChild = fmt::format("({}, uint32 1, @av [])", kChild);
    EXPECT_EQ(Answer(other->Get(), "/", "Invoke", takeChild.c_str()), "accepted");
    EXPECT_EQ(Probe::s_nLive, 2);
  }
  EXPECT_TRUE(PumpUntil(remote, [] { return Probe::s_nLive == 1; }));
}

TEST_F(BusTest, MalformedCallsAreRefusedAndTheServerCarriesOn) {
  auto probe = std::make_shared<Probe>();
  Publish("Test.Probe", probe);
  fk::DispatchPtr remote = m_classes->GetActiveObject("Test.Probe");
  fk::DispatchPtr child = Call(remote, kChild).ToObject();  // exported at /obj/1 for the session's client
  probe->m_nCalls = 0;
  auto raw = fk::bus::BusConnection::Open({}, nullptr);
  ASSERT_TRUE(raw);

  const char* refused[] = {
      "(1, uint32 1, [<'not a pair'>])",
      "(1, uint32 1, [<(uint16 3, <'three'>)>])",
      "(1, uint32 1, [<(uint16 12, <(uint16 3, <5>)>)>])",
      "(1, uint32 1, [<(uint16 0x4008, <'x'>)>])",
      "(1, uint32 1, [<(uint16 0x400C, <(uint16 0x4003, <5>)>)>])",
      "(1, uint32 1, [<(uint16 0x2003, <(uint16 3, 0, [<(uint16 8, <'x'>)>])>)>])",
      "(1, uint32 1, [<(uint16 0x2000, <(uint16 0, 2147483647, "
      "[<(uint16 0, <@ay []>)>, <(uint16 0, <@ay []>)>])>)>])",
      "(1, uint32 1, [<(uint16 0x2000, <(uint16 12, 0, [<(uint16 0x4003, <5>)>])>)>])",
      "(1, uint32 1, [<(uint16 9, <(':1.1', objectpath '/obj/1')>)>])",
      "(1, uint32 70000, @av [])",
  };
  for (const char* parameters : refused)
    EXPECT_EQ(Answer(raw->Get(), "/", "Invoke", parameters), fk::bus::kFailedError) << parameters;
  EXPECT_EQ(probe->m_nCalls, 0);

  EXPECT_EQ(Answer(raw->Get(), "/obj/1", "Release", "()"), fk::bus::kFailedError) << "not this client's object";
  EXPECT_EQ(Answer(raw->Get(), "/", "Release", "()"), "accepted");
  EXPECT_EQ(Answer(raw->Get(), "/", "Invoke", "(1, uint32 1, [<(uint16 9, <('', objectpath '/')>)>])"), "accepted");
  EXPECT_EQ(Describe(Call(child, kEcho, {Variant::Int(3)})), "0003:3") << "the server still serves";
}

// The cartoma-sim program on the test's bus; it must stop cleanly on SIGTERM.
class ProgramOnBus : public BusTest {
 protected:
  void TearDown() override {
    if (m_pid > 0) {
      kill(m_pid, SIGTERM);
      int status = 0;
      waitpid(m_pid, &status, 0);
      EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "the program stops cleanly on SIGTERM";
    }
    BusTest::TearDown();
  }

  // Starts the program and waits (a bounded number of rounds) until it owns its name.
  bool Start(std::vector<std::string> arguments) {
    std::vector<char*> argv{const_cast<char*>(CARTOMA_SIM_PATH)};
    for (std::string& argument : arguments) argv.push_back(argument.data());
    argv.push_back(nullptr);
    GError* error = nullptr;
    if (!g_spawn_async(nullptr, argv.data(), nullptr, G_SPAWN_DO_NOT_REAP_CHILD, nullptr, nullptr, &m_pid, &error)) {
      ADD_FAILURE() << error->message;
      g_error_free(error);
      return false;
    }
    for (int round = 0; round < 500; ++round) {
      if (m_classes->GetActiveObject("Cartoma.Application")) return true;
      g_usleep(20000);
    }
    return false;
  }

  GPid m_pid = 0;
};

TEST_F(ProgramOnBus, TheSessionConnectsByNameAndRunsStatements) {
  ASSERT_TRUE(Start({"--script", "zelvar.cbx", "--global", "zelvar.cbx:TerviDir=/opt/zelvar", "--open",
                     std::string(SIM_SAMPLES_DIR) + "/collars.tab"}));
  ASSERT_EQ(g_Cartoma.Connect(0, 1), 1);
  EXPECT_EQ(g_Cartoma.m_nProductVariant, 1) << "zelvar.cbx found through the program's script objects";
  EXPECT_EQ(g_Cartoma.GetTerviDir(), "/opt/zelvar");
  EXPECT_EQ(g_Cartoma.GetTableRowCount("collars"), 5);

  EXPECT_TRUE(g_Cartoma.CreatePointVariable("p", 255120, 5925210));
  int error = 0;
  g_Cartoma.Do("Fetch Rec 9 From collars", 1, &error);
  EXPECT_EQ(error, 1);
  EXPECT_EQ(g_Cartoma.m_strLastError, "Table collars has 5 rows; there is no row 9");
  EXPECT_EQ(g_Cartoma.Eval("ObjectInfo(p, 1)"), "5") << "the program goes on after a failure";
}

}  // namespace
