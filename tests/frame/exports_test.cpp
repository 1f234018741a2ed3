// The host session's exports, called by name on a freshly loaded copy of
// libformkit.so, the way a host script calls them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstring>

#include "formkit/formkit.h"
#include "support/formkit_library.h"
#include "support/scripted_host.h"
#include "support/session_fixture.h"

using ::testing::ElementsAre;

namespace {

class ExportsTest : public ::testing::Test {
 protected:
  FormkitLibrary m_library;
  ScriptedHost m_host{m_library.Api()};

  decltype(&CartomaDo) m_do = FORMKIT_EXPORT(m_library, CartomaDo);
  decltype(&CartomaEval) m_eval = FORMKIT_EXPORT(m_library, CartomaEval);
  decltype(&CartomaLastError) m_lastError = FORMKIT_EXPORT(m_library, CartomaLastError);
  decltype(&DoDDECommand) m_ddeCommand = FORMKIT_EXPORT(m_library, DoDDECommand);
  decltype(&GetDDEQuery) m_ddeQuery = FORMKIT_EXPORT(m_library, GetDDEQuery);
  decltype(&GetCBXVariable) m_variable = FORMKIT_EXPORT(m_library, GetCBXVariable);
};

TEST_F(ExportsTest, CartomaDoSendsTheStatementAndKeepsTheLastFailure) {
  EXPECT_EQ(m_do(0, "Close All"), 1) << "no host: nothing to send, and no failure";
  EXPECT_TRUE(m_host.Transcript().empty());

  m_host.Answers().Fail("Drop Table Holes", "Table Holes is not open");
  EXPECT_EQ(m_do(m_host.Handle(), "Drop Table Holes"), 0);
  EXPECT_STREQ(m_lastError(), "Table Holes is not open");
  EXPECT_EQ(m_do(m_host.Handle(), "Set ProgressBars On"), 1);
  EXPECT_STREQ(m_lastError(), "Table Holes is not open") << "a success does not clear the last failure";
  EXPECT_THAT(m_host.Transcript(),
              ElementsAre("Do: Drop Table Holes", "LastErrorMessage", "Do: Set ProgressBars On"));
}

TEST_F(ExportsTest, CartomaEvalAnswersAndGivesEmptyTextOnFailure) {
  m_host.Answers().Answer("NumTables()", "4");
  m_host.Answers().Fail("TableInfo(0, 1)", "Invalid table number");
  EXPECT_STREQ(m_eval(m_host.Handle(), "NumTables()"), "4");
  EXPECT_STREQ(m_eval(m_host.Handle(), "TableInfo(0, 1)"), "");
  EXPECT_STREQ(m_lastError(), "Invalid table number");
  EXPECT_STREQ(m_eval(0, "NumTables()"), "");
}

TEST_F(ExportsTest, AReturnedTextStaysUntilTheSameExportIsCalledAgain) {
  m_host.Answers().Answer("A", "first");
  m_host.AddScript("terravik.cbx").Answers().Answer("Q", "query");
  const char* value = m_eval(m_host.Handle(), "A");
  m_ddeQuery(m_host.Handle(), "terravik.cbx", "Q");
  EXPECT_STREQ(value, "first");
}

TEST_F(ExportsTest, DDECommandResultSticksAfterTheFirstSuccess) {
  m_host.AddScript("terravik.cbx");
  EXPECT_EQ(m_ddeCommand(m_host.Handle(), "absent.cbx", "Go"), 0);
  EXPECT_EQ(m_ddeCommand(m_host.Handle(), "terravik.cbx", "Go"), 1);
  EXPECT_EQ(m_ddeCommand(m_host.Handle(), "absent.cbx", "Go"), 1) << "once a command reached a script, 1 for good";
  EXPECT_EQ(m_ddeCommand(0, "absent.cbx", "Go"), 1);
  EXPECT_THAT(m_host.Transcript(), ::testing::Contains("terravik.cbx Do: Go"));
}

TEST_F(ExportsTest, AHostFailureInsideADDECommandBecomesTheFailureResult) {
  m_host.AddScript("terravik.cbx").Answers().Fail("Explode", "Script error");
  EXPECT_EQ(m_ddeCommand(m_host.Handle(), "terravik.cbx", "Explode"), 0);
  EXPECT_EQ(m_ddeCommand(m_host.Handle(), "terravik.cbx", "Calm"), 1) << "the library stays usable";
}

TEST_F(ExportsTest, TableFieldValueEvaluatesTableDotColumn) {
  auto fieldValue = FORMKIT_EXPORT(m_library, GetCartomaTableFieldValue);
  m_host.Answers().Answer("Collars.HoleID", "DH-001");
  EXPECT_STREQ(fieldValue(m_host.Handle(), "Collars", "HoleID"), "DH-001");
  EXPECT_STREQ(fieldValue(0, "Collars", "HoleID"), "");
  EXPECT_STREQ(m_variable(0, "terravik.cbx", "TerviDir"), "") << "no host, no script";
  EXPECT_THAT(m_host.Statements(), ElementsAre("Eval: Collars.HoleID"));
}

TEST_F(ExportsTest, ConnectExportsAndTheProcessId) {
  auto connect = FORMKIT_EXPORT(m_library, ConnectToCartoma);
  auto withoutCheck = FORMKIT_EXPORT(m_library, ConnectToCartomaWithoutAppCheck);
  auto secondName =
      FORMKIT_EXPORT(m_library, ConnectToCartomaWithoutAppCheckDispatch);
  EXPECT_EQ(reinterpret_cast<void*>(withoutCheck), reinterpret_cast<void*>(secondName))
      << "one entry under two names";
  EXPECT_EQ(connect(0), 0) << "no handle and no running host";
  EXPECT_EQ(connect(m_host.Handle()), 1);
  EXPECT_EQ(FORMKIT_EXPORT(m_library, GetProcessID)(), getpid());
}

TEST_F(ExportsTest, ExportsWithoutADialogLoadNoToolkit) {
  m_host.Answers().Answer("NumTables()", "0");
  m_eval(m_host.Handle(), "NumTables()");
  m_do(m_host.Handle(), "Close All");
  m_variable(m_host.Handle(), "absent.cbx", "x");
  const std::string maps = ReadFile("/proc/self/maps");
  EXPECT_EQ(maps.find("libwx_"), std::string::npos);
  EXPECT_EQ(maps.find("libgtk"), std::string::npos);
  EXPECT_EQ(maps.find("libformkit-wx"), std::string::npos);
}

}  // namespace
