// Automation values, arrays, drivers and the class registry (the handle
// table is tested through the host API).
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
#include "platform/automation/safe_array.h"

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

void ExpectTypeMismatch(const std::function<void()>& conversion) {
  try {
    conversion();
    ADD_FAILURE() << "the conversion did not throw";
  } catch (const OleException& e) {
    EXPECT_STREQ(e.what(), "Type mismatch.");
  }
}

}  // namespace

TEST(VariantTest, KeepsItsTypeWordAndConvertsByTheAutomationRules) {
  // A list is 0x2000 alone, whatever its elements.
  const Variant list = Variant::Array(SafeArray::OfVariants({Variant::Int(1), Variant::Text("a")}), fk::VT_ARRAY);
  EXPECT_EQ(list.Type(), 0x2000);
  EXPECT_EQ(list.ToArray().ElementType(), 12);
  EXPECT_EQ(Variant::Array(SafeArray::OfInts({1, 2}), fk::VT_ARRAY).ToArray().ElementType(), 3);

  // Doubles to ints round half to even; true is -1.
  EXPECT_EQ(Variant::Double(2.5).ToInt(), 2);
  EXPECT_EQ(Variant::Double(3.5).ToInt(), 4);
  EXPECT_EQ(Variant::Double(-2.5).ToInt(), -2);
  EXPECT_EQ(Variant::Text(" 4.5 ").ToInt(), 4);
  EXPECT_THROW(Variant::Double(3e9).ToInt(), OleException);
  EXPECT_EQ(Variant::Double(1.5).ToText(), "1.5");
  EXPECT_EQ(Variant::Bool(true).ToInt(), -1);
  EXPECT_EQ(Variant::Bool(true).ToText(), "-1");
  EXPECT_TRUE(Variant::Text("TRUE").ToBool());
  EXPECT_FALSE(Variant::Text("faLSE").ToBool());

  auto object = std::make_shared<FakeObject>();
  for (const char* text : {"abc", "12abc", "", "nan", "0x10"})
    ExpectTypeMismatch([&] { Variant::Text(text).ToDouble(); });
  ExpectTypeMismatch([&] { Variant::Object(object).ToText(); });
  ExpectTypeMismatch([] { Variant::Int(1).ToObject(); });
  ExpectTypeMismatch([] { Variant::Text("x").ToArray(); });
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
  EXPECT_EQ(kept.ElementType(), fk::VT_BSTR);
  EXPECT_EQ(kept.UpperBound(), 2);
  EXPECT_EQ(kept.At(2).ToText(), "y");
  EXPECT_THROW(kept.At(0), OleException);
  EXPECT_THROW(kept.At(3), OleException);
  SafeArray ints = SafeArray::OfInts({7});
  EXPECT_THROW(ints.Append(Variant::Text("8")), OleException);
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
