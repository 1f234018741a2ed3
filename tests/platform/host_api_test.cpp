// The host C API: callback tables seen as automation objects, values as the
// C side reads and writes them, and the lifetime of registered objects.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>
#include <string>
#include <vector>

#include "formkit/host.h"
#include "platform/automation/dispatch_driver.h"
#include "platform/automation/exceptions.h"
#include "platform/automation/handle_table.h"
#include "platform/automation/safe_array.h"

using fk::Variant;
using ::testing::ElementsAre;

namespace {

// A host object whose invoke runs a test's lambda and which counts its releases.
class CallbackObject {
 public:
  using Body = std::function<int(std::int32_t dispid, std::uint16_t flags, fk_value* const* args, std::int32_t count,
                                 fk_value* result, fk_error* error)>;
  explicit CallbackObject(Body body = [](auto...) { return 0; }) : m_body(std::move(body)) {}
  fk_object Table() { return {this, &CallbackObject::Invoke, &CallbackObject::Release}; }
  int Releases() const { return m_nReleases; }
  // Runs in the release callback, after the count.
  std::function<void()> onRelease;

 private:
  static int Invoke(void* self, std::int32_t dispid, std::uint16_t flags, fk_value* const* args, std::int32_t count,
                    fk_value* result, fk_error* error) {
    return static_cast<CallbackObject*>(self)->m_body(dispid, flags, args, count, result, error);
  }
  static void Release(void* self) {
    auto* object = static_cast<CallbackObject*>(self);
    ++object->m_nReleases;
    if (object->onRelease) object->onRelease();
  }

  Body m_body;
  int m_nReleases = 0;
};

// Registers the object and borrows it into `driver`, as an export given the handle does.
std::int32_t RegisterAndBorrow(CallbackObject& object, fk::DispatchDriver& driver) {
  const fk_object table = object.Table();
  const std::int32_t handle = fk_register_object(&table);
  driver.AttachDispatch(fk::HandleTable::Instance().Find(handle), false);
  return handle;
}

}  // namespace

TEST(HostApiTest, CallbacksGetTheArgumentsInNaturalOrderAndGiveTheResult) {
  std::vector<std::string> seen;
  CallbackObject object([&](std::int32_t dispid, std::uint16_t flags, fk_value* const* args, std::int32_t count,
                            fk_value* result, fk_error*) {
    seen.push_back(std::to_string(dispid) + "/" + std::to_string(flags));
    for (std::int32_t i = 0; i < count; ++i)
      seen.push_back(std::to_string(fk_value_type(args[i])) + ":" + fk_value_text(args[i]));
    EXPECT_EQ(fk_value_int(args[1]), 2);
    EXPECT_EQ(fk_value_double(args[2]), 2.5);
    EXPECT_EQ(fk_value_bool(args[3]), 1);
    EXPECT_EQ(fk_value_int(args[0]), 0) << "a conversion that makes no sense gives 0";
    EXPECT_EQ(fk_value_set_text(result, "42"), 1);
    return 0;
  });
  fk::DispatchDriver driver;
  const std::int32_t handle = RegisterAndBorrow(object, driver);
  ASSERT_NE(handle, 0);

  const Variant result = driver.InvokeMethod(
      0x6001000C, {Variant::Text("first"), Variant::Int(2), Variant::Double(2.5), Variant::Bool(true)});
  EXPECT_EQ(result.Type(), fk::VT_BSTR);
  EXPECT_EQ(result.ToText(), "42");
  EXPECT_THAT(seen, ElementsAre(std::to_string(0x6001000C) + "/1", "8:first", "3:2", "5:2.5", "11:-1"));
  EXPECT_EQ(fk_revoke_object(handle), 1);
}

TEST(HostApiTest, AFailedCallRaisesTheHostsDescription) {
  std::string description;
  bool describe = true;
  CallbackObject object([&](std::int32_t, std::uint16_t, fk_value* const*, std::int32_t, fk_value*, fk_error* error) {
    if (describe) fk_fail(error, description.empty() ? nullptr : description.c_str());
    return 1;
  });
  fk::DispatchDriver driver;
  const std::int32_t handle = RegisterAndBorrow(object, driver);

  description = "Table Nowhere is not open";
  try {
    driver.InvokeMethod(1);
    ADD_FAILURE() << "the failure was not raised";
  } catch (const fk::DispatchException& e) {
    EXPECT_EQ(e.Description(), "Table Nowhere is not open");
    EXPECT_STREQ(e.what(), "Table Nowhere is not open");
    EXPECT_EQ(e.GetErrorMessage(6), "Table") << "as a buffer of 6 holds it";
    EXPECT_EQ(e.GetErrorMessage(0), "");
  }
  // Without a description, or without fk_fail at all, a default text.
  for (bool withFail : {true, false}) {
    describe = withFail;
    description.clear();
    try {
      driver.InvokeMethod(1);
      ADD_FAILURE() << "the failure was not raised";
    } catch (const fk::DispatchException& e) {
      EXPECT_FALSE(e.Description().empty());
    }
  }
  fk_revoke_object(handle);
}

TEST(HostApiTest, ReferenceArgumentsAreWrittenThrough) {
  std::vector<int> answers;
  CallbackObject object([&](std::int32_t, std::uint16_t, fk_value* const* args, std::int32_t count, fk_value*,
                            fk_error*) {
    EXPECT_EQ(count, 5);
    EXPECT_EQ(fk_value_type(args[0]), FK_TYPE_BYREF | FK_TYPE_INT);
    EXPECT_EQ(fk_value_int(args[0]), 1) << "a reference reads as the value it refers to";
    const char* before = fk_value_text(args[3]);
    answers.push_back(fk_value_set_int(args[0], 41));
    answers.push_back(fk_value_set_text(args[1], "17"));
    answers.push_back(fk_value_set_text(args[2], "abc"));  // not a number: can't go into an int
    answers.push_back(fk_value_set_text(args[3], "hello"));
    answers.push_back(fk_value_set_bool(args[4], 1));
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
  EXPECT_EQ(first, 41);
  EXPECT_EQ(second, 17);
  EXPECT_EQ(third, 5);
  EXPECT_EQ(any.Type(), fk::VT_BSTR);
  EXPECT_EQ(any.ToText(), "hello");
  EXPECT_TRUE(flag);
  fk_revoke_object(handle);
}

TEST(HostApiTest, ArraysAreReadElementByElementWithinTheirBounds) {
  std::vector<std::string> seen;
  CallbackObject object([&](std::int32_t, std::uint16_t, fk_value* const* args, std::int32_t count, fk_value*,
                            fk_error*) {
    for (std::int32_t i = 0; i < count; ++i) {
      const fk_value* array = args[i];
      const std::int32_t lower = fk_value_array_lower_bound(array);
      std::string line = std::to_string(fk_value_type(array)) + " of " +
                         std::to_string(fk_value_array_element_type(array)) + " from " + std::to_string(lower) + ":";
      for (std::int32_t k = lower; k < lower + fk_value_array_count(array); ++k) {
        const fk_value* element = fk_value_array_element(array, k);
        line += std::string(" ") + fk_value_text(element);
        EXPECT_EQ(fk_value_set_int(const_cast<fk_value*>(element), 1), 0) << "elements are read only";
      }
      EXPECT_EQ(fk_value_array_element(array, lower - 1), nullptr);
      EXPECT_EQ(fk_value_array_element(array, lower + fk_value_array_count(array)), nullptr);
      seen.push_back(line);
    }
    return 0;
  });
  fk::DispatchDriver driver;
  const std::int32_t handle = RegisterAndBorrow(object, driver);

  fk::SafeArray mixed(fk::VT_VARIANT, 1);
  mixed.Append(Variant::Text("a"));
  mixed.Append(Variant::Int(2));
  mixed.Append(Variant::Double(0.5));
  Variant byRef = Variant::Array(fk::SafeArray::OfInts({7, 8}), fk::VT_ARRAY);
  driver.InvokeMethod(1, {Variant::Array(mixed, fk::VT_ARRAY), Variant::RefVariant(&byRef), Variant::Text("no")});
  EXPECT_THAT(seen, ElementsAre("8192 of 12 from 1: a 2 0.5", "16396 of 3 from 0: 7 8", "8 of 0 from 0:"));
  fk_revoke_object(handle);
}

TEST(HostApiTest, ReleaseRunsOnceWhenTheLibraryDropsItsLastReference) {
  EXPECT_EQ(fk_register_object(nullptr), 0);
  const fk_object noInvoke = {nullptr, nullptr, nullptr};
  EXPECT_EQ(fk_register_object(&noInvoke), 0);

  // Only the handle holds it.
  CallbackObject plain;
  const fk_object plainTable = plain.Table();
  const std::int32_t handle = fk_register_object(&plainTable);
  EXPECT_EQ(plain.Releases(), 0);
  EXPECT_EQ(fk_revoke_object(handle), 1);
  EXPECT_EQ(plain.Releases(), 1);
  EXPECT_EQ(fk_revoke_object(handle), 0);
  EXPECT_EQ(plain.Releases(), 1);

  // An owning driver keeps it past the revocation; a borrowing one does not.
  CallbackObject owned, borrowed;
  fk::DispatchDriver owner, borrower;
  const fk_object ownedTable = owned.Table();
  const std::int32_t ownedHandle = fk_register_object(&ownedTable);
  owner.AttachDispatch(fk::HandleTable::Instance().Find(ownedHandle), true);
  const std::int32_t borrowedHandle = RegisterAndBorrow(borrowed, borrower);
  fk_revoke_object(ownedHandle);
  fk_revoke_object(borrowedHandle);
  EXPECT_EQ(owned.Releases(), 0);
  EXPECT_EQ(borrowed.Releases(), 1);
  EXPECT_THROW(borrower.InvokeMethod(1), fk::OleException);
  owner.ReleaseDispatch();
  borrower.ReleaseDispatch();
  EXPECT_EQ(owned.Releases(), 1);
  EXPECT_EQ(borrowed.Releases(), 1);

  // The running object of a class is held until it is revoked too.
  CallbackObject running;
  const fk_object runningTable = running.Table();
  const std::int32_t runningHandle = fk_register_object(&runningTable);
  EXPECT_EQ(fk_register_active_object("Formkit.TestRunning", runningHandle), 1);
  fk_revoke_object(runningHandle);
  EXPECT_EQ(running.Releases(), 0);
  fk_revoke_active_object("FORMKIT.TESTRUNNING");
  EXPECT_EQ(running.Releases(), 1);

  // An object a callback gives back is released once the caller drops it.
  CallbackObject child;
  CallbackObject parent([&](std::int32_t, std::uint16_t, fk_value* const*, std::int32_t, fk_value* result, fk_error*) {
    const fk_object childTable = child.Table();
    return fk_value_set_object(result, &childTable) == 1 ? 0 : 1;
  });
  fk::DispatchDriver parentDriver;
  const std::int32_t parentHandle = RegisterAndBorrow(parent, parentDriver);
  {
    fk::DispatchDriver childDriver;
    childDriver.AttachDispatch(parentDriver.GetProperty(2).ToObject(), true);
    EXPECT_TRUE(childDriver.InvokeMethod(1).IsEmpty());
    EXPECT_EQ(child.Releases(), 0);
  }
  EXPECT_EQ(child.Releases(), 1);
  fk_revoke_object(parentHandle);
  EXPECT_EQ(parent.Releases(), 1);
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
    for (CallbackObject* object : {&running, &replaced})
      object->onRelease = [] {
        fk_revoke_active_object("Formkit.TidyOther");
        const fk_object table = {nullptr, [](void*, std::int32_t, std::uint16_t, fk_value* const*, std::int32_t,
                                             fk_value*, fk_error*) { return 0; },
                                 nullptr};
        fk_revoke_object(fk_register_object(&table));
      };
    // The running registration holds the last reference when it is revoked ...
    fk_object table = running.Table();
    std::int32_t handle = fk_register_object(&table);
    fk_register_active_object("Formkit.Tidy", handle);
    fk_revoke_object(handle);
    fk_revoke_active_object("Formkit.Tidy");
    // ... or when another object takes its place.
    table = replaced.Table();
    handle = fk_register_object(&table);
    fk_register_active_object("Formkit.Tidy", handle);
    fk_revoke_object(handle);
    table = other.Table();
    handle = fk_register_object(&table);
    fk_register_active_object("Formkit.Tidy", handle);
    _exit(running.Releases() == 1 && replaced.Releases() == 1 && other.Releases() == 0 ? 0 : 1);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  ASSERT_FALSE(WIFSIGNALED(status) && WTERMSIG(status) == SIGALRM) << "a release callback deadlocked";
  ASSERT_TRUE(WIFEXITED(status)) << "the child ended by signal " << WTERMSIG(status);
  EXPECT_EQ(WEXITSTATUS(status), 0) << "release counts differ";
}
