// Automation values, arrays, drivers, the class registry and the handle table.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "platform/automation/class_registry.h"
#include "platform/automation/dispatch_driver.h"
#include "platform/automation/exceptions.h"
#include "platform/automation/handle_table.h"
#include "platform/automation/safe_array.h"
#include "platform/automation/variant.h"

using fk::OleException;
using fk::SafeArray;
using fk::Variant;
using ::testing::ElementsAre;

namespace {

// Records every call; answers "done", and writes 99 through a reference
// passed first.
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

void ExpectTypeMismatch(const std::function<void()>& conversion) {
  try {
    conversion();
    ADD_FAILURE() << "the conversion did not throw";
  } catch (const OleException& e) {
    EXPECT_STREQ(e.what(), "Type mismatch.");
  }
}

}  // namespace

TEST(VariantTest, KeepsTheTypeWordAsSet) {
  const Variant list = Variant::Array(SafeArray::OfVariants({Variant::Int(1), Variant::Text("a")}), fk::VT_ARRAY);
  EXPECT_EQ(list.Type(), 0x2000);
  EXPECT_EQ(list.ToArray().ElementType(), 12);
  const Variant ints = Variant::Array(SafeArray::OfInts({1, 2}), fk::VT_ARRAY);
  EXPECT_EQ(ints.Type(), 0x2000);
  EXPECT_EQ(ints.ToArray().ElementType(), 3);
  EXPECT_EQ(Variant::Array(SafeArray::OfInts({1}), fk::VT_ARRAY | fk::VT_I4).Type(), 0x2003);

  EXPECT_EQ(Variant().Type(), 0);
  EXPECT_EQ(Variant::Bool(false).Type(), 11);
  EXPECT_EQ(Variant::Double(0).Type(), 5);
  std::int32_t n = 0;
  EXPECT_EQ(Variant::RefInt(&n).Type(), 0x4003);
  EXPECT_EQ(Variant::RefInt(&n).Deref().Type(), 3);
}

TEST(VariantTest, ConvertsByTheAutomationRules) {
  // Doubles to ints round half to even.
  EXPECT_EQ(Variant::Double(2.5).ToInt(), 2);
  EXPECT_EQ(Variant::Double(3.5).ToInt(), 4);
  EXPECT_EQ(Variant::Double(-2.5).ToInt(), -2);
  EXPECT_EQ(Variant::Double(2.6).ToInt(), 3);
  EXPECT_EQ(Variant::Text("4.5").ToInt(), 4);
  EXPECT_EQ(Variant::Text(" 42 ").ToInt(), 42);
  EXPECT_THROW(Variant::Double(3e9).ToInt(), OleException);
  EXPECT_EQ(Variant::Int(7).ToDouble(), 7.0);
  EXPECT_EQ(Variant::Text("2.25").ToDouble(), 2.25);

  // True is -1.
  EXPECT_EQ(Variant::Bool(true).ToInt(), -1);
  EXPECT_EQ(Variant::Bool(true).ToText(), "-1");
  EXPECT_EQ(Variant::Bool(false).ToText(), "0");
  EXPECT_TRUE(Variant::Int(2).ToBool());
  EXPECT_FALSE(Variant::Text("0").ToBool());
  EXPECT_TRUE(Variant::Text("TRUE").ToBool());
  EXPECT_FALSE(Variant::Text("faLSE").ToBool());

  EXPECT_EQ(Variant::Int(-12).ToText(), "-12");
  EXPECT_EQ(Variant::Double(1.5).ToText(), "1.5");
  EXPECT_EQ(Variant().ToText(), "");
  EXPECT_EQ(Variant().ToInt(), 0);
  EXPECT_EQ(Variant().ToObject(), nullptr);

  auto object = std::make_shared<FakeObject>();
  EXPECT_EQ(Variant::Object(object).ToObject(), object);
  ExpectTypeMismatch([] { Variant::Text("abc").ToInt(); });
  ExpectTypeMismatch([] { Variant::Text("12abc").ToDouble(); });
  ExpectTypeMismatch([] { Variant::Text("").ToInt(); });
  ExpectTypeMismatch([] { Variant::Text("nan").ToInt(); });
  ExpectTypeMismatch([] { Variant::Text("0x10").ToDouble(); });
  ExpectTypeMismatch([&] { Variant::Object(object).ToText(); });
  ExpectTypeMismatch([&] { Variant::Object(object).ToInt(); });
  ExpectTypeMismatch([] { Variant::Int(1).ToObject(); });
  ExpectTypeMismatch([] { Variant::Text("x").ToArray(); });
}

TEST(VariantTest, ReferencesReadAndWriteThroughToTheCallersStorage) {
  std::int32_t number = 5;
  const Variant refInt = Variant::RefInt(&number);
  EXPECT_EQ(refInt.ToInt(), 5);
  number = 6;
  EXPECT_EQ(refInt.ToText(), "6");
  refInt.Assign(Variant::Double(8.5));
  EXPECT_EQ(number, 8);
  refInt.Assign(Variant::Text("12"));
  EXPECT_EQ(number, 12);
  EXPECT_THROW(refInt.Assign(Variant::Text("abc")), OleException);
  EXPECT_EQ(number, 12) << "a failed write leaves the storage as it was";

  bool flag = false;
  const Variant refBool = Variant::RefBool(&flag);
  refBool.Assign(Variant::Int(-1));
  EXPECT_TRUE(flag);
  EXPECT_EQ(refBool.ToInt(), -1);

  Variant any = Variant::Text("a");
  const Variant refAny = Variant::RefVariant(&any);
  EXPECT_EQ(refAny.Type(), 0x400C);
  EXPECT_EQ(refAny.ToText(), "a");
  refAny.Assign(Variant::Double(2.5));
  EXPECT_EQ(any.Type(), fk::VT_R8);
  EXPECT_EQ(any.ToDouble(), 2.5);
  refAny.Assign(refInt);  // a reference gives its value, not itself
  EXPECT_EQ(any.Type(), fk::VT_I4);
  number = 1;
  EXPECT_EQ(any.ToInt(), 12);
  refAny.Assign(Variant::Array(SafeArray::OfInts({4, 5}), fk::VT_ARRAY));
  EXPECT_EQ(refAny.ToArray().At(1).ToInt(), 5);

  EXPECT_THROW(Variant::Int(1).Assign(Variant::Int(2)), OleException) << "only a reference can be written through";
}

TEST(SafeArrayTest, KeepsElementTypeAndLowerBoundAndChecksIndexAndType) {
  SafeArray texts(fk::VT_BSTR, 1);
  texts.Append(Variant::Text("x"));
  texts.Append(Variant::Text("y"));
  EXPECT_THROW(texts.Append(Variant::Int(3)), OleException);
  std::int32_t n = 0;
  EXPECT_THROW(texts.Append(Variant::RefInt(&n)), OleException);
  EXPECT_EQ(texts.Count(), 2u);
  EXPECT_EQ(texts.LowerBound(), 1);
  EXPECT_EQ(texts.UpperBound(), 2);
  EXPECT_EQ(texts.At(1).ToText(), "x");
  EXPECT_EQ(texts.At(2).ToText(), "y");
  EXPECT_THROW(texts.At(0), OleException);
  EXPECT_THROW(texts.At(3), OleException);

  const Variant wrapped = Variant::Array(texts, fk::VT_ARRAY);
  EXPECT_EQ(wrapped.ToArray().ElementType(), fk::VT_BSTR);
  EXPECT_EQ(wrapped.ToArray().LowerBound(), 1);

  SafeArray ints = SafeArray::OfInts({7});
  EXPECT_THROW(ints.Append(Variant::Text("8")), OleException);
  SafeArray mixed = SafeArray::OfVariants({Variant::Int(1)});
  mixed.Append(Variant::Text("two"));
  mixed.Append(Variant::Bool(true));
  EXPECT_EQ(mixed.Count(), 3u);

  const SafeArray empty(fk::VT_I4, 5);
  EXPECT_EQ(empty.UpperBound(), 4);
  EXPECT_THROW(empty.At(5), OleException);
}

TEST(DispatchDriverTest, OwnedObjectsStayAliveBorrowedOnesDoNot) {
  fk::DispatchDriver driver;
  auto object = std::make_shared<FakeObject>();
  std::weak_ptr<FakeObject> watch = object;
  driver.AttachDispatch(object, true);
  object.reset();
  ASSERT_FALSE(watch.expired()) << "an owned object lives as long as the driver holds it";
  std::int32_t out = 0;
  EXPECT_EQ(driver.Invoke(7, fk::DISPATCH_METHOD, {Variant::RefInt(&out), Variant::Text("b")}).ToText(), "done");
  EXPECT_EQ(out, 99);
  EXPECT_THAT(watch.lock()->calls, ElementsAre("7/1 0 b"));
  driver.ReleaseDispatch();
  EXPECT_TRUE(watch.expired());

  auto owner = std::make_shared<FakeObject>();
  driver.AttachDispatch(owner, false);
  EXPECT_FALSE(driver.AutoRelease());
  EXPECT_EQ(driver.GetProperty(3).ToText(), "done");
  EXPECT_THAT(owner->calls, ElementsAre("3/2"));
  std::weak_ptr<FakeObject> borrowed = owner;
  owner.reset();
  EXPECT_TRUE(borrowed.expired()) << "a borrowed object is not kept alive";
  EXPECT_THROW(driver.InvokeMethod(1), OleException);
  EXPECT_EQ(driver.Get(), nullptr);

  // Attaching another object releases the one owned before.
  auto first = std::make_shared<FakeObject>();
  std::weak_ptr<FakeObject> firstWatch = first;
  driver.AttachDispatch(std::move(first));
  driver.AttachDispatch(std::make_shared<FakeObject>());
  EXPECT_TRUE(firstWatch.expired());
}

TEST(DispatchDriverTest, DetachLetsGoWithoutReleasingAndAnEmptyDriverDoesNothing) {
  fk::DispatchDriver empty;
  EXPECT_FALSE(empty.IsAttached());
  EXPECT_TRUE(empty.InvokeMethod(1, {Variant::Int(1)}).IsEmpty());
  EXPECT_TRUE(empty.GetProperty(2).IsEmpty());
  EXPECT_NO_THROW(empty.SetProperty(3, Variant::Int(1)));

  auto object = std::make_shared<FakeObject>();
  fk::DispatchPtr detached;
  {
    fk::DispatchDriver driver;
    driver.AttachDispatch(object, true);
    detached = driver.DetachDispatch();
    EXPECT_FALSE(driver.IsAttached());
    EXPECT_TRUE(driver.InvokeMethod(1).IsEmpty());
  }
  EXPECT_EQ(detached, object);
  EXPECT_TRUE(object->calls.empty());
  std::weak_ptr<FakeObject> watch = object;
  object.reset();
  EXPECT_FALSE(watch.expired()) << "the detached pointer is the caller's now";
}

TEST(DispatchDriverTest, CreateDispatchGoesThroughTheClassRegistryIgnoringCase) {
  auto& classes = fk::ClassRegistry::Instance();
  int created = 0;
  std::weak_ptr<FakeObject> made;
  classes.RegisterClass("Formkit.TestObject", [&] {
    ++created;
    auto object = std::make_shared<FakeObject>();
    made = object;
    return object;
  });
  fk::DispatchDriver driver;
  ASSERT_TRUE(driver.CreateDispatch("FORMKIT.testobject"));
  EXPECT_EQ(created, 1);
  EXPECT_TRUE(driver.AutoRelease());
  driver.InvokeMethod(5, {Variant::Int(1)});
  ASSERT_FALSE(made.expired()) << "a created object is owned by the driver";
  EXPECT_THAT(made.lock()->calls, ElementsAre("5/1 1"));

  EXPECT_FALSE(driver.CreateDispatch("Formkit.NoSuchClass"));
  classes.RevokeClass("formkit.TESTOBJECT");
  driver.ReleaseDispatch();
  EXPECT_FALSE(driver.CreateDispatch("Formkit.TestObject"));
  EXPECT_EQ(created, 1);
}

TEST(HandleTableTest, GivesNonZeroHandlesAndDropsItsReferenceOnRemoval) {
  auto& table = fk::HandleTable::Instance();
  auto object = std::make_shared<FakeObject>();
  std::weak_ptr<FakeObject> watch = object;
  const std::int32_t first = table.Add(object);
  const std::int32_t second = table.Add(std::make_shared<FakeObject>());
  object.reset();
  EXPECT_NE(first, 0);
  EXPECT_NE(second, 0);
  EXPECT_NE(first, second);
  EXPECT_EQ(table.Find(first), watch.lock());
  EXPECT_EQ(table.Find(0), nullptr);
  EXPECT_EQ(table.Find(first ^ 0x5a5a00), nullptr);

  EXPECT_TRUE(table.Remove(first));
  EXPECT_TRUE(watch.expired());
  EXPECT_EQ(table.Find(first), nullptr);
  EXPECT_FALSE(table.Remove(first));
  EXPECT_NE(table.Find(second), nullptr);
  EXPECT_TRUE(table.Remove(second));
}
