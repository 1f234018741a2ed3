// The emulator as an automation object: members by dispatch id, failures as
// dispatch exceptions with the host's description, the collections of
// scripts and globals, and the record of calls.
#include "sim/host/emulator.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/automation/dispatch_driver.h"
#include "platform/automation/exceptions.h"

using fk::Variant;
using ::testing::HasSubstr;
using ::testing::ThrowsMessage;

namespace {

// The host's members by dispatch id, as the host publishes them.
constexpr std::int32_t kAppVisible = 0x60010005;
constexpr std::int32_t kAppDo = 0x6001000B;
constexpr std::int32_t kAppEval = 0x6001000C;
constexpr std::int32_t kAppLastErrorMessage = 0x60010009;
constexpr std::int32_t kAppCBXApplications = 0x6001000A;
constexpr std::int32_t kItem = 0;  // of both collections
constexpr std::int32_t kScriptDo = 0x60010005;
constexpr std::int32_t kScriptEval = 0x60010006;
constexpr std::int32_t kScriptCBXGlobals = 0x60010004;
constexpr std::int32_t kGlobalValue = 0;

class EmulatorObject : public ::testing::Test {
 protected:
  void SetUp() override { m_app.AttachDispatch(m_emulator.Application()); }
  std::string Eval(const std::string& expression) {
    return m_app.InvokeMethod(kAppEval, {Variant::Text(expression)}).ToText();
  }
  void Do(const std::string& statement) { m_app.InvokeMethod(kAppDo, {Variant::Text(statement)}); }

  sim::Emulator m_emulator;
  fk::DispatchDriver m_app;
};

TEST_F(EmulatorObject, FailuresCarryTheHostsDescriptionAndAreRememberedAndVisibleIsPut) {
  EXPECT_THAT([&] { Do("Drop Table Holes"); }, ThrowsMessage<fk::DispatchException>("Table Holes is not open"));
  EXPECT_EQ(m_app.GetProperty(kAppLastErrorMessage).ToText(), "Table Holes is not open");
  EXPECT_THROW(Eval("1 +"), fk::DispatchException);
  EXPECT_EQ(Eval("1 + 2 * 3"), "7");
  EXPECT_THAT(m_app.GetProperty(kAppLastErrorMessage).ToText(), HasSubstr("Syntax error"))
      << "a success doesn't clear the last error";
  EXPECT_THROW(m_app.InvokeMethod(0x12345), fk::DispatchException);

  const auto& calls = m_emulator.Calls();
  ASSERT_GE(calls.size(), 4u);
  EXPECT_TRUE(calls[0].member == "Do" && calls[0].failed);
  EXPECT_TRUE(calls[2].member == "Eval" && calls[3].answer == "7" && !calls[3].failed);

  ASSERT_FALSE(m_emulator.Visible());
  m_app.SetProperty(kAppVisible, Variant::Bool(true));
  EXPECT_TRUE(m_emulator.Visible()) << "Visible is a property to put";
}

TEST_F(EmulatorObject, ScriptsAndGlobalsAreReachedThroughTheirCollections) {
  m_emulator.SetGlobal("zelvar.cbx", "TerviDir", "/opt/z");
  fk::DispatchDriver apps, script, globals, global;
  apps.AttachDispatch(m_app.GetProperty(kAppCBXApplications).ToObject());
  EXPECT_EQ(apps.InvokeMethod(kItem, {Variant::Text("terravik.cbx")}).ToObject(), nullptr);
  script.AttachDispatch(apps.InvokeMethod(kItem, {Variant::Text("ZELVAR.CBX")}).ToObject());
  ASSERT_TRUE(script.Get()) << "script names compare ignoring case";
  globals.AttachDispatch(script.GetProperty(kScriptCBXGlobals).ToObject());
  EXPECT_EQ(globals.InvokeMethod(kItem, {Variant::Text("Other")}).ToObject(), nullptr);
  global.AttachDispatch(globals.InvokeMethod(kItem, {Variant::Text("TerviDir")}).ToObject());
  EXPECT_EQ(global.GetProperty(kGlobalValue).ToText(), "/opt/z");

  script.InvokeMethod(kScriptDo, {Variant::Text("TerviDir = \"/srv\"")});
  script.InvokeMethod(kScriptDo, {Variant::Text("Refresh the legend")});
  EXPECT_EQ(global.GetProperty(kGlobalValue).ToText(), "/srv");
  EXPECT_EQ(m_emulator.GetHost().RunningScripts().Find("zelvar.cbx")->commands.size(), 2u);
  EXPECT_EQ(script.InvokeMethod(kScriptEval, {Variant::Text("TerviDir")}).ToText(), "/srv");
  EXPECT_THAT([&] { script.InvokeMethod(kScriptEval, {Variant::Text("WHAT TIME IS IT")}); },
              ThrowsMessage<fk::DispatchException>("The script zelvar.cbx has no answer to \"WHAT TIME IS IT\""));
}

TEST_F(EmulatorObject, SelectionsAnswerInExpressionsToo) {
  Do("Create Table Holes (HoleID Char (5), Depth Float)");
  Do("Insert Into Holes Values(\"A\", 5)");
  Do("Insert Into Holes Values(\"B\", 50)");
  Do("Create Table Deep (HoleID Char (5))");
  Do("Insert Into Deep (HoleID) Select HoleID From Holes Where Depth > 10");
  EXPECT_EQ(Eval("TableInfo(Deep, 8)"), "1");
  EXPECT_EQ(Eval("NumTables()"), "2") << "the inner selection leaves no table";
  EXPECT_EQ(Eval("\"B\" In (Select HoleID From Deep)"), "T");
  EXPECT_EQ(Eval("\"A\" In (Select HoleID From Deep)"), "F");
  Do("Select Holes.HoleID, Depth From Holes, Deep Where Holes.HoleID = Deep.HoleID Into Joined");
  Do("Fetch First From Joined");
  EXPECT_EQ(Eval("Joined.Depth"), "50");
}

}  // namespace
