// Automation: values, arrays, drivers and the class registry; and the host
// C API, with callback tables seen as automation objects, values as the C
// side reads and writes them, and the lifetime of registered objects.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "formkit/host.h"
#include "platform/automation/class_registry.h"
#include "platform/automation/dispatch_driver.h"
#include "platform/automation/exceptions.h"
#include "platform/automation/handle_table.h"
#include "platform/automation/safe_array.h"
#include "platform/failing_allocation.h"

using fk::OleException;
using fk::SafeArray;
using fk::Variant;
using ::testing::ElementsAre;

namespace {

// Records every call as "dispid/flags args..."; answers "done" and writes 99
// through a reference passed first.
class FakeObject : public fk::Dispatch {
 public:
  Variant Invoke(std::int32_t dispid, std::uint16_t flags, std::span<Variant> args) override {
    std::string call = std::to_string(dispid) + "/" + std::to_string(flags);
    for (const Variant& arg : args) call += " " + arg.ToText();
    calls.push_back(call);
    if (!args.empty() && args[0].IsByRef()) args[0].Assign(Variant::Int(99));
    return Variant::Text("done");
  }
  std::vector<std::string> calls;
};

TEST(VariantTest, KeepsItsTypeWordAndConvertsByTheAutomationRules) {
  // A list is 0x2000 alone, whatever its elements.
  const Variant list = Variant::Array(SafeArray::OfVariants({Variant::Int(1), Variant::Text("a")}), fk::VT_ARRAY);
  EXPECT_EQ(list.Type(), 0x2000);
  EXPECT_EQ(list.ToArray().ElementType(), 12);
  EXPECT_EQ(Variant::Array(SafeArray::OfInts({1, 2}), fk::VT_ARRAY).ToArray().ElementType(), 3);

  // Doubles to ints round half to even; true is -1.
  for (const auto& [value, number] : {std::pair{Variant::Double(2.5), 2}, {Variant::Double(3.5), 4},
                                      {Variant::Double(-2.5), -2}, {Variant::Text(" 4.5 "), 4},
                                      {Variant::Bool(true), -1}})
    EXPECT_EQ(value.ToInt(), number) << value.ToText();
  EXPECT_THROW(Variant::Double(3e9).ToInt(), OleException);
  EXPECT_EQ(Variant::Double(1.5).ToText() + " " + Variant::Bool(true).ToText(), "1.5 -1");
  EXPECT_TRUE(Variant::Text("TRUE").ToBool() && !Variant::Text("faLSE").ToBool());

  const auto typeMismatch = ::testing::ThrowsMessage<OleException>("Type mismatch.");
  for (const char* text : {"abc", "12abc", "", "nan", "0x10"})
    EXPECT_THAT([&] { Variant::Text(text).ToDouble(); }, typeMismatch) << text;
  EXPECT_THAT([] { Variant::Object(std::make_shared<FakeObject>()).ToText(); }, typeMismatch);
  EXPECT_THAT([] { Variant::Int(1).ToObject(); }, typeMismatch);
  EXPECT_THAT([] { Variant::Text("x").ToArray(); }, typeMismatch);
}

TEST(VariantTest, ReferencesReadAndWriteThroughToTheCallersStorage) {
  std::int32_t number = 6;
  const Variant refInt = Variant::RefInt(&number);
  EXPECT_EQ(refInt.Type(), 0x4003);
  EXPECT_EQ(refInt.ToText(), "6");
  refInt.Assign(Variant::Text("12"));
  EXPECT_EQ(number, 12);
  EXPECT_THROW(refInt.Assign(Variant::Text("abc")), OleException);
  EXPECT_EQ(number, 12) << "a failed write leaves the storage as it was";
  bool flag = false;
  Variant::RefBool(&flag).Assign(Variant::Int(-1));
  EXPECT_TRUE(flag);

  Variant any = Variant::Text("a");
  const Variant refAny = Variant::RefVariant(&any);
  EXPECT_EQ(refAny.ToText(), "a");
  refAny.Assign(refInt);  // a reference gives its value, not itself
  number = 1;
  EXPECT_EQ(any.Type(), fk::VT_I4);
  EXPECT_EQ(any.ToInt(), 12);
  refAny.Assign(Variant::Array(SafeArray::OfInts({4, 5}), fk::VT_ARRAY));
  EXPECT_EQ(refAny.ToArray().At(1).ToInt(), 5);
  EXPECT_THROW(Variant::Int(1).Assign(Variant::Int(2)), OleException) << "only a reference is written through";
}

TEST(SafeArrayTest, KeepsElementTypeAndLowerBoundAndChecksIndexAndType) {
  SafeArray texts(fk::VT_BSTR, 1);
  texts.Append(Variant::Text("x"));
  texts.Append(Variant::Text("y"));
  EXPECT_THROW(texts.Append(Variant::Int(3)), OleException);
  const Variant array = Variant::Array(texts, fk::VT_ARRAY);
  const SafeArray& kept = array.ToArray();
  EXPECT_TRUE(kept.ElementType() == fk::VT_BSTR && kept.UpperBound() == 2 && kept.At(2).ToText() == "y");
  EXPECT_THROW(kept.At(0), OleException);
  EXPECT_THROW(kept.At(3), OleException);
  const SafeArray lowest(fk::VT_I4, INT32_MIN), highest = [] {
    SafeArray one(fk::VT_I4, INT32_MAX);
    one.Append(Variant::Int(9));
    return one;
  }();
  EXPECT_THROW(lowest.At(INT32_MIN), OleException) << "an empty array at the smallest bound holds nothing";
  EXPECT_EQ(highest.At(INT32_MAX).ToInt(), 9);
  EXPECT_THROW(highest.At(INT32_MIN), OleException);
  EXPECT_THROW(SafeArray::OfInts({7}).Append(Variant::Text("8")), OleException);
}

TEST(DispatchDriverTest, OwnsBorrowsDetachesCreatesByClassAndDoesNothingWhenEmpty) {
  fk::DispatchDriver driver;
  EXPECT_TRUE(driver.InvokeMethod(1, {Variant::Int(1)}).IsEmpty());
  auto object = std::make_shared<FakeObject>();
  std::weak_ptr<FakeObject> owned = object;
  driver.AttachDispatch(std::move(object), true);
  std::int32_t out = 0;
  EXPECT_EQ(driver.Invoke(7, fk::DISPATCH_METHOD, {Variant::RefInt(&out), Variant::Text("b")}).ToText(), "done");
  EXPECT_EQ(out, 99);
  EXPECT_THAT(owned.lock()->calls, ElementsAre("7/1 0 b")) << "an owned object lives while the driver holds it";

  fk::DispatchPtr detached = driver.DetachDispatch();
  EXPECT_TRUE(driver.GetProperty(2).IsEmpty());
  EXPECT_EQ(detached, owned.lock()) << "detaching gives the object up without releasing it";
  EXPECT_THAT(owned.lock()->calls, ElementsAre("7/1 0 b"));

  driver.AttachDispatch(detached, false);
  detached.reset();
  EXPECT_TRUE(owned.expired()) << "a borrowed object is not kept alive";
  EXPECT_THROW(driver.InvokeMethod(1), OleException);

  // CreateDispatch goes through the class registry, ignoring case.
  auto& classes = fk::ClassRegistry::Instance();
  std::weak_ptr<FakeObject> made;
  classes.RegisterClass("Formkit.TestObject", [&] {
    auto object = std::make_shared<FakeObject>();
    made = object;
    return object;
  });
  ASSERT_TRUE(driver.CreateDispatch("FORMKIT.testobject"));
  driver.InvokeMethod(5, {Variant::Int(1)});
  ASSERT_FALSE(made.expired()) << "a created object is owned by the driver";
  EXPECT_THAT(made.lock()->calls, ElementsAre("5/1 1"));
  EXPECT_FALSE(driver.CreateDispatch("Formkit.NoSuchClass"));
  classes.RevokeClass("formkit.TESTOBJECT");
  EXPECT_FALSE(driver.CreateDispatch("Formkit.TestObject"));
}

// A host object whose invoke runs a test's lambda and which counts its releases.
class CallbackObject {
 public:
  using Body = std::function<int(fk_value* const* args, std::int32_t count, fk_value* result, fk_error* error)>;
  explicit CallbackObject(Body body = [](auto...) { return 0; }) : m_body(std::move(body)) {}
  fk_object Table() { return {this, &CallbackObject::Invoke, &CallbackObject::Release}; }
  int Releases() const { return m_nReleases; }
  std::function<void()> onRelease;  // runs in the release callback
  std::string lastCall;             // "dispid/flags"

 private:
  static int Invoke(void* self, std::int32_t dispid, std::uint16_t flags, fk_value* const* args, std::int32_t count,
                    fk_value* result, fk_error* error) {
    auto* object = static_cast<CallbackObject*>(self);
    object->lastCall = std::to_string(dispid) + "/" + std::to_string(flags);
    return object->m_body(args, count, result, error);
  }
  static void Release(void* self) {
    auto* object = static_cast<CallbackObject*>(self);
    ++object->m_nReleases;
    if (object->onRelease) object->onRelease();
  }

  Body m_body;
  int m_nReleases = 0;
};

std::int32_t Register(CallbackObject& object) {
  const fk_object table = object.Table();
  return fk_register_object(&table);
}

// Registers the object and borrows it into `driver`, as an export given the handle does.
std::int32_t RegisterAndBorrow(CallbackObject& object, fk::DispatchDriver& driver) {
  const std::int32_t handle = Register(object);
  driver.AttachDispatch(fk::HandleTable::Instance().Find(handle), false);
  return handle;
}

TEST(HostApiTest, CallbacksReadTheArgumentsInNaturalOrderAndGiveTheResult) {
  std::vector<std::string> seen;
  CallbackObject object([&](fk_value* const* args, std::int32_t count, fk_value* result, fk_error*) {
    for (std::int32_t i = 0; i < count; ++i) {
      std::string line = std::to_string(fk_value_type(args[i])) + ":" + fk_value_text(args[i]);
      const std::int32_t lower = fk_value_array_lower_bound(args[i]);
      const std::int32_t end = lower + fk_value_array_count(args[i]);
      if (end > lower)
        line += " of " + std::to_string(fk_value_array_element_type(args[i])) + " from " + std::to_string(lower) + ":";
      for (std::int32_t k = lower; k < end; ++k)
        line += std::string(" ") + fk_value_text(fk_value_array_element(args[i], k));
      EXPECT_EQ(fk_value_array_element(args[i], lower - 1), nullptr);
      EXPECT_EQ(fk_value_array_element(args[i], end), nullptr);
      seen.push_back(line);
    }
    EXPECT_EQ(fk_value_double(args[2]), 2.5);
    EXPECT_EQ(fk_value_bool(args[3]), 1);
    EXPECT_EQ(fk_value_int(args[0]), 0) << "a conversion that makes no sense gives 0";
    return fk_value_set_text(result, "42") == 1 ? 0 : 1;
  });
  fk::DispatchDriver driver;
  const std::int32_t handle = RegisterAndBorrow(object, driver);
  ASSERT_NE(handle, 0);
  fk::SafeArray mixed(fk::VT_VARIANT, 1);
  for (const Variant& element : {Variant::Text("a"), Variant::Int(2), Variant::Double(0.5)}) mixed.Append(element);
  Variant ints = Variant::Array(fk::SafeArray::OfInts({7, 8}), fk::VT_ARRAY);
  const Variant result = driver.InvokeMethod(
      0x6001000C, {Variant::Text("first"), Variant::Int(2), Variant::Double(2.5), Variant::Bool(true),
                   Variant::Array(mixed, fk::VT_ARRAY), Variant::RefVariant(&ints)});
  EXPECT_EQ(object.lastCall, std::to_string(0x6001000C) + "/1");
  EXPECT_THAT(
      seen, ElementsAre("8:first", "3:2", "5:2.5", "11:-1", "8192: of 12 from 1: a 2 0.5", "16396: of 3 from 0: 7 8"));
  EXPECT_EQ(result.Type(), fk::VT_BSTR);
  EXPECT_EQ(result.ToText(), "42");
  EXPECT_EQ(fk_revoke_object(handle), 1);
}

TEST(HostApiTest, AFailedCallRaisesTheHostsDescription) {
  const char* description = "Table Nowhere is not open";
  bool describe = true;
  CallbackObject object([&](fk_value* const*, std::int32_t, fk_value*, fk_error* error) {
    if (describe) fk_fail(error, description);
    return 1;
  });
  fk::DispatchDriver driver;
  const std::int32_t handle = RegisterAndBorrow(object, driver);
  auto raised = [&]() -> std::string {
    try {
      driver.InvokeMethod(1);
    } catch (const fk::DispatchException& e) {
      EXPECT_EQ(e.GetErrorMessage(6), e.Description().substr(0, 5)) << "as a buffer of 6 holds it";
      return e.Description();
    }
    return "<nothing raised>";
  };
  EXPECT_EQ(raised(), "Table Nowhere is not open");
  // Without a description, or without fk_fail at all, a default text.
  description = nullptr;
  for (bool withFail : {true, false}) {
    describe = withFail;
    EXPECT_THAT(raised(), ::testing::AllOf(::testing::Ne(""), ::testing::Ne("<nothing raised>")));
  }
  fk_revoke_object(handle);
}

TEST(HostApiTest, ReferenceArgumentsAreWrittenThrough) {
  std::vector<int> answers;
  CallbackObject object([&](fk_value* const* args, std::int32_t, fk_value*, fk_error*) {
    EXPECT_EQ(fk_value_type(args[0]), FK_TYPE_BYREF | FK_TYPE_INT);
    EXPECT_EQ(fk_value_int(args[0]), 1) << "a reference reads as the value it refers to";
    const char* before = fk_value_text(args[3]);
    answers = {fk_value_set_int(args[0], 41), fk_value_set_text(args[1], "17"),
               fk_value_set_text(args[2], "abc"),  // not a number: can't go into an int
               fk_value_set_text(args[3], "hello"), fk_value_set_bool(args[4], 1)};
    EXPECT_STREQ(fk_value_text(args[3]), "hello");
    EXPECT_STREQ(before, "3") << "a text read stays valid for the rest of the call";
    return 0;
  });
  fk::DispatchDriver driver;
  const std::int32_t handle = RegisterAndBorrow(object, driver);
  std::int32_t first = 1, second = 0, third = 5;
  Variant any = Variant::Int(3);
  bool flag = false;
  driver.InvokeMethod(1, {Variant::RefInt(&first), Variant::RefInt(&second), Variant::RefInt(&third),
                          Variant::RefVariant(&any), Variant::RefBool(&flag)});
  EXPECT_THAT(answers, ElementsAre(1, 1, 0, 1, 1));
  EXPECT_THAT((std::vector{first, second, third, int{flag}}), ElementsAre(41, 17, 5, 1));
  EXPECT_TRUE(any.Type() == fk::VT_BSTR && any.ToText() == "hello");
  fk_revoke_object(handle);
}

TEST(HostApiTest, ReleaseRunsOnceWhenTheLibraryDropsItsLastReference) {
  const fk_object noInvoke = {nullptr, nullptr, nullptr};
  EXPECT_EQ(fk_register_object(&noInvoke), 0);
  EXPECT_EQ(fk_register_active_object("Formkit.TestRunning", 0), 0) << "handle 0 is no object";

  // An owning driver keeps it past the revocation; a borrowing one does not.
  CallbackObject owned, borrowed;
  fk::DispatchDriver owner, borrower;
  const std::int32_t ownedHandle = Register(owned);
  owner.AttachDispatch(fk::HandleTable::Instance().Find(ownedHandle), true);
  fk_revoke_object(ownedHandle);
  const std::int32_t borrowedHandle = RegisterAndBorrow(borrowed, borrower);
  EXPECT_EQ(fk_revoke_object(borrowedHandle), 1);
  EXPECT_EQ(fk_revoke_object(borrowedHandle), 0);
  EXPECT_THAT((std::vector{owned.Releases(), borrowed.Releases()}), ElementsAre(0, 1));
  EXPECT_THROW(borrower.InvokeMethod(1), fk::OleException);
  owner.ReleaseDispatch();
  borrower.ReleaseDispatch();
  EXPECT_THAT((std::vector{owned.Releases(), borrowed.Releases()}), ElementsAre(1, 1));

  // The running object of a class is held until it is revoked too.
  CallbackObject running;
  const std::int32_t runningHandle = Register(running);
  EXPECT_EQ(fk_register_active_object("Formkit.TestRunning", runningHandle), 1);
  fk_revoke_object(runningHandle);
  EXPECT_EQ(running.Releases(), 0);
  fk_revoke_active_object("FORMKIT.TESTRUNNING");
  EXPECT_EQ(running.Releases(), 1);

  // An object a callback gives back is released once the caller drops it.
  CallbackObject child;
  CallbackObject parent([&](fk_value* const*, std::int32_t, fk_value* result, fk_error*) {
    const fk_object childTable = child.Table();
    return fk_value_set_object(result, &childTable) == 1 ? 0 : 1;
  });
  fk::DispatchDriver parentDriver, childDriver;
  const std::int32_t parentHandle = RegisterAndBorrow(parent, parentDriver);
  childDriver.AttachDispatch(parentDriver.GetProperty(2).ToObject(), true);
  childDriver.InvokeMethod(1);
  EXPECT_EQ(child.lastCall, "1/1");
  EXPECT_EQ(child.Releases(), 0);
  childDriver.ReleaseDispatch();
  EXPECT_EQ(child.Releases(), 1);
  fk_revoke_object(parentHandle);

  // A registered object that also comes back from its own calls is one
  // object: its release runs once, after the registration and every
  // reference handed out are gone.
  CallbackObject self;
  fk::DispatchDriver selfDriver, returnedDriver;
  const std::int32_t selfHandle = Register(self);
  self = CallbackObject([&](fk_value* const*, std::int32_t, fk_value* result, fk_error*) {
    const fk_object table = self.Table();
    return fk_value_set_object(result, &table) == 1 ? 0 : 1;
  });
  selfDriver.AttachDispatch(fk::HandleTable::Instance().Find(selfHandle), false);
  returnedDriver.AttachDispatch(selfDriver.GetProperty(3).ToObject(), true);
  EXPECT_TRUE(returnedDriver.Holds(fk::HandleTable::Instance().Find(selfHandle)));
  fk_revoke_object(selfHandle);
  EXPECT_EQ(self.Releases(), 0) << "still held by the driver it was returned to";
  returnedDriver.ReleaseDispatch();
  EXPECT_EQ(self.Releases(), 1);
}

TEST(HostApiTest, AReleaseCallbackMayCallBackIntoTheLibrary) {
  // A host tidies up in its release callback, here by withdrawing another
  // registration. The calls run in a child process under an alarm, so that a
  // deadlock fails the test instead of holding up the run.
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    alarm(30);
    CallbackObject running, replaced, other;
    running.onRelease = replaced.onRelease = [] {
      fk_revoke_active_object("Formkit.TidyOther");
      CallbackObject helper;
      fk_revoke_object(Register(helper));
    };
    // The running registration holds the last reference when it is revoked ...
    std::int32_t handle = Register(running);
    fk_register_active_object("Formkit.Tidy", handle);
    fk_revoke_object(handle);
    fk_revoke_active_object("Formkit.Tidy");
    // ... or when another object takes its place.
    handle = Register(replaced);
    fk_register_active_object("Formkit.Tidy", handle);
    fk_revoke_object(handle);
    fk_register_active_object("Formkit.Tidy", Register(other));
    _exit(running.Releases() == 1 && replaced.Releases() == 1 && other.Releases() == 0 ? 0 : 1);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  ASSERT_FALSE(WIFSIGNALED(status) && WTERMSIG(status) == SIGALRM) << "a release callback deadlocked";
  ASSERT_TRUE(WIFEXITED(status)) << "the child ended by signal " << WTERMSIG(status);
  EXPECT_EQ(WEXITSTATUS(status), 0) << "release counts differ";
}

TEST(HostApiTest, WithoutMemoryEveryCallGivesItsFailureValue) {
  const std::string longText(200, 'x');  // too long to be kept without the heap
  bool emptyText = false;  // read within the call, while the text is valid
  const fk_value* element = nullptr;
  int written[3] = {-1, -1, -1};
  CallbackObject child;
  CallbackObject object([&](fk_value* const* args, std::int32_t, fk_value* result, fk_error* error) {
    const fk_object childTable = child.Table();
    FailingAllocation failing;
    const char* text = fk_value_text(args[0]);
    emptyText = text && *text == '\0';
    for (int i = 0; i < 16; ++i) element = fk_value_array_element(args[1], 0);  // past the room made beforehand
    written[0] = fk_value_set_text(result, longText.c_str());
    written[1] = fk_value_set_object(result, &childTable);
    written[2] = fk_register_object(&childTable);
    fk_fail(error, longText.c_str());
    return 1;
  });
  fk::DispatchDriver driver;
  const std::int32_t handle = RegisterAndBorrow(object, driver);
  EXPECT_THROW(driver.InvokeMethod(1, {Variant::Text(longText), Variant::Array(fk::SafeArray::OfInts({1}))}),
               fk::DispatchException)
      << "the failure is reported, with the default description";
  EXPECT_TRUE(emptyText && element == nullptr) << "an empty text, no element";
  EXPECT_THAT(written, ElementsAre(0, 0, 0));
  EXPECT_EQ(child.Releases(), 0) << "no object was made";
  fk_revoke_object(handle);
}

}  // namespace
