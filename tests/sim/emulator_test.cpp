// The emulator as an automation object: members by dispatch id, failures as
// dispatch exceptions with the host's description, the collection of
// scripts, and the record of calls.
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
constexpr std::int32_t kAppDo = 0x6001000B;
constexpr std::int32_t kAppEval = 0x6001000C;
constexpr std::int32_t kAppLastErrorMessage = 0x60010009;
constexpr std::int32_t kAppCBXApplications = 0x6001000A;
constexpr std::int32_t kItem = 0;  // of the collection
constexpr std::int32_t kScriptDo = 0x60010005;
constexpr std::int32_t kScriptEval = 0x60010006;

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

TEST_F(EmulatorObject, FailuresCarryTheHostsDescriptionAndAreRemembered) {
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
}

TEST_F(EmulatorObject, ScriptsAreFoundIgnoringCaseKeepTheirCommandsAndAnswerWithTheirGlobals) {
  m_emulator.SetGlobal("zelvar.cbx", "TerviDir", "/opt/z");
  fk::DispatchDriver apps, script;
  apps.AttachDispatch(m_app.GetProperty(kAppCBXApplications).ToObject());
  script.AttachDispatch(apps.InvokeMethod(kItem, {Variant::Text("ZELVAR.CBX")}).ToObject());
  ASSERT_TRUE(script.Get()) << "script names compare ignoring case";
  script.InvokeMethod(kScriptDo, {Variant::Text("TerviDir = \"/srv\"")});
  script.InvokeMethod(kScriptDo, {Variant::Text("Refresh the legend")});
  EXPECT_EQ(m_emulator.GetHost().RunningScripts().Find("zelvar.cbx")->commands.size(), 2u);
  EXPECT_EQ(script.InvokeMethod(kScriptEval, {Variant::Text("TerviDir")}).ToText(), "/srv");
  EXPECT_THAT([&] { script.InvokeMethod(kScriptEval, {Variant::Text("WHAT TIME IS IT")}); },
              ThrowsMessage<fk::DispatchException>("The script zelvar.cbx has no answer to \"WHAT TIME IS IT\""));
}

}  // namespace
