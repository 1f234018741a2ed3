// The emulator as an automation object: members by dispatch id, failures as
// dispatch exceptions with the host's description, the collections of
// scripts and globals, and the record of calls.
#include "sim/host/emulator.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/cartoma_dispids.h"
#include "platform/automation/dispatch_driver.h"
#include "platform/automation/exceptions.h"

using fk::Variant;
using ::testing::HasSubstr;

namespace {

class EmulatorObject : public ::testing::Test {
 protected:
  void SetUp() override { m_app.AttachDispatch(m_emulator.Application()); }
  std::string Eval(const std::string& expression) {
    return m_app.InvokeMethod(DISPID_CARTOMA_EVAL, {Variant::Text(expression)}).ToText();
  }
  void Do(const std::string& statement) { m_app.InvokeMethod(DISPID_CARTOMA_DO, {Variant::Text(statement)}); }

  sim::Emulator m_emulator;
  fk::DispatchDriver m_app;
};

TEST_F(EmulatorObject, FailuresCarryTheHostsDescriptionAndAreRemembered) {
  try {
    Do("Drop Table Holes");
    FAIL() << "no failure raised";
  } catch (const fk::DispatchException& e) {
    EXPECT_EQ(e.Description(), "Table Holes is not open");
  }
  EXPECT_EQ(m_app.GetProperty(DISPID_CARTOMA_LASTERRORMESSAGE).ToText(), "Table Holes is not open");
  EXPECT_THROW(Eval("1 +"), fk::DispatchException);
  EXPECT_EQ(Eval("1 + 2 * 3"), "7");
  EXPECT_THAT(m_app.GetProperty(DISPID_CARTOMA_LASTERRORMESSAGE).ToText(), HasSubstr("Syntax error"))
      << "a success doesn't clear the last error";
  EXPECT_THROW(m_app.InvokeMethod(0x12345), fk::DispatchException);

  const auto& calls = m_emulator.Calls();
  ASSERT_GE(calls.size(), 4u);
  EXPECT_EQ(calls[0].member, "Do");
  EXPECT_TRUE(calls[0].failed);
  EXPECT_EQ(calls[2].member, "Eval");
  EXPECT_EQ(calls[3].answer, "7");
  EXPECT_FALSE(calls[3].failed);
}

TEST_F(EmulatorObject, VisibleIsAPropertyToPut) {
  EXPECT_FALSE(m_emulator.Visible());
  m_app.SetProperty(DISPID_CARTOMA_VISIBLE, Variant::Bool(true));
  EXPECT_TRUE(m_emulator.Visible());
}

TEST_F(EmulatorObject, ScriptsAndGlobalsAreReachedThroughTheirCollections) {
  m_emulator.SetGlobal("zelvar.cbx", "TerviDir", "/opt/z");
  fk::DispatchDriver apps, script, globals, global;
  apps.AttachDispatch(m_app.GetProperty(DISPID_CARTOMA_CBXAPPLICATIONS).ToObject());
  EXPECT_EQ(apps.InvokeMethod(DISPID_COLLECTION_ITEM, {Variant::Text("terravik.cbx")}).ToObject(), nullptr);
  script.AttachDispatch(apps.InvokeMethod(DISPID_COLLECTION_ITEM, {Variant::Text("ZELVAR.CBX")}).ToObject());
  ASSERT_TRUE(script.Get()) << "script names compare ignoring case";
  globals.AttachDispatch(script.GetProperty(DISPID_SCRIPT_CBXGLOBALS).ToObject());
  EXPECT_EQ(globals.InvokeMethod(DISPID_COLLECTION_ITEM, {Variant::Text("Other")}).ToObject(), nullptr);
  global.AttachDispatch(globals.InvokeMethod(DISPID_COLLECTION_ITEM, {Variant::Text("TerviDir")}).ToObject());
  EXPECT_EQ(global.GetProperty(DISPID_GLOBAL_VALUE).ToText(), "/opt/z");

  script.InvokeMethod(DISPID_SCRIPT_DO, {Variant::Text("TerviDir = \"/srv\"")});
  script.InvokeMethod(DISPID_SCRIPT_DO, {Variant::Text("Refresh the legend")});
  EXPECT_EQ(global.GetProperty(DISPID_GLOBAL_VALUE).ToText(), "/srv");
  EXPECT_EQ(m_emulator.GetHost().RunningScripts().Find("zelvar.cbx")->commands.size(), 2u);
  EXPECT_EQ(script.InvokeMethod(DISPID_SCRIPT_EVAL, {Variant::Text("TerviDir")}).ToText(), "/srv");
  try {
    script.InvokeMethod(DISPID_SCRIPT_EVAL, {Variant::Text("WHAT TIME IS IT")});
    FAIL() << "no failure raised";
  } catch (const fk::DispatchException& e) {
    EXPECT_EQ(e.Description(), "The script zelvar.cbx has no answer to \"WHAT TIME IS IT\"");
  }
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
