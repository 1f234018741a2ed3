// The library loaded as a host loads it, with the emulator registered
// through the host C API; the exports called by name as a script calls
// them, and what reaches the host in what order.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "e2e/emulated_host.h"
#include "formkit/formkit.h"

using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

class LibraryOnEmulator : public ::testing::Test {
 protected:
  void SetUp() override {
    m_emulator.SetGlobal("terravik.cbx", "TerviDir", "/opt/terravik");
    m_emulator.AddScript("utilities.cbx");
    m_registration = std::make_unique<sim::CApiRegistration>(m_api, m_emulator.Application());
    m_handle = m_registration->Handle();
    ASSERT_NE(m_handle, 0);
    ASSERT_EQ(FORMKIT_EXPORT(*this, InitFormkitInstance)("Terravik"), 1);
  }

  template <typename F>
  F* Export(const char* name) {
    return m_library.Export<F>(name);
  }
  int Do(const std::string& statement) { return FORMKIT_EXPORT(*this, CartomaDo)(m_handle, statement.c_str()); }
  std::string Eval(const std::string& expression) {
    return FORMKIT_EXPORT(*this, CartomaEval)(m_handle, expression.c_str());
  }
  std::string LastError() { return FORMKIT_EXPORT(*this, CartomaLastError)(); }
  std::vector<std::string> Calls() const {
    std::vector<std::string> calls;
    for (const sim::CallRecord& call : m_emulator.Calls()) calls.push_back(call.member + ": " + call.text);
    return calls;
  }
  bool Called(const std::string& member, const std::string& text) const {
    for (const sim::CallRecord& call : m_emulator.Calls())
      if (call.member == member && call.text == text) return true;
    return false;
  }

  ScopedRegistry m_registry;
  ScopedFolder m_folder;
  FormkitLibrary m_library;
  sim::HostCApi m_api = HostCApiOf(m_library);
  sim::Emulator m_emulator;
  std::unique_ptr<sim::CApiRegistration> m_registration;
  int32_t m_handle = 0;
};

TEST_F(LibraryOnEmulator, ConnectingFindsTheProductScriptOfTheHost) {
  EXPECT_EQ(FORMKIT_EXPORT(*this, ConnectToCartoma)(0), 0) << "no handle and no running host";
  EXPECT_EQ(reinterpret_cast<void*>(FORMKIT_EXPORT(*this, ConnectToCartomaWithoutAppCheck)),
            reinterpret_cast<void*>(FORMKIT_EXPORT(*this, ConnectToCartomaWithoutAppCheckDispatch)))
      << "one entry under two names";
  EXPECT_EQ(FORMKIT_EXPORT(*this, GetProcessID)(), getpid());
  EXPECT_EQ(FORMKIT_EXPORT(*this, ConnectToCartoma)(m_handle), 1);
  EXPECT_TRUE(Called("CBXApplications.Item", "terravik.cbx"));
  EXPECT_TRUE(Called("terravik.cbx CBXGlobals", ""));
  EXPECT_FALSE(Called("CBXApplications.Item", "utilities.cbx")) << "the first product script found ends the search";
}

TEST_F(LibraryOnEmulator, StatementsAndExpressionsRunOnRealTables) {
  const std::string collars = CopySamples(m_folder, {"collars"});
  ASSERT_EQ(Do("Open Table \"" + collars + "\" As Collars Hide"), 1) << LastError();
  EXPECT_EQ(Eval("ColumnInfo(Collars, COL2, 1)"), "East");
  ASSERT_EQ(Do("Select HoleID, MaxDepth From Collars Where MaxDepth > 150 Order By MaxDepth Desc Into Deep"), 1)
      << LastError();
  EXPECT_EQ(Eval("TableInfo(Deep, 8)"), "2");
  ASSERT_EQ(Do("Fetch First From Deep"), 1);
  EXPECT_EQ(Eval("Deep.HoleID & \" \" & Deep.COL2"), "BD004 200");
  EXPECT_STREQ(FORMKIT_EXPORT(*this, GetCartomaTableFieldValue)(m_handle, "Deep", "HoleID"), "BD004");
}

TEST_F(LibraryOnEmulator, AMalformedStatementGivesItsDescriptionAndTheNextStatementWorks) {
  EXPECT_EQ(FORMKIT_EXPORT(*this, CartomaDo)(0, "Close All"), 1) << "no host: nothing to send, and no failure";
  EXPECT_STREQ(FORMKIT_EXPORT(*this, CartomaEval)(0, "NumTables()"), "");
  EXPECT_EQ(Do("Open Tabel \"x.tab\""), 0);
  EXPECT_THAT(LastError(), HasSubstr("Syntax error near 'Tabel"));
  EXPECT_THAT(Calls(), ElementsAre("Do: Open Tabel \"x.tab\"", "LastErrorMessage: "))
      << "the library reads the host's own text after a failure";
  EXPECT_EQ(Do("Close Table Holes"), 0);
  EXPECT_EQ(LastError(), "Table Holes is not open");
  EXPECT_EQ(Eval("TableInfo(Holes, 8)"), "");
  EXPECT_EQ(LastError(), "Table Holes is not open");

  EXPECT_EQ(Do("Dim p As Object"), 1);
  EXPECT_EQ(LastError(), "Table Holes is not open") << "a success does not clear the last failure";
  EXPECT_EQ(Do("Create Point Into Variable p (1.5, -2.25)"), 1);
  EXPECT_EQ(Eval("ObjectGeography(p, 2)"), "-2.25");
}

TEST_F(LibraryOnEmulator, ScriptsAnswerVariablesQueriesAndCommands) {
  auto variable = FORMKIT_EXPORT(*this, GetCBXVariable);
  auto query = FORMKIT_EXPORT(*this, GetDDEQuery);
  auto command = FORMKIT_EXPORT(*this, DoDDECommand);
  EXPECT_EQ(std::string(variable(m_handle, "terravik.cbx", "TerviDir")), "/opt/terravik");
  EXPECT_EQ(std::string(variable(m_handle, "terravik.cbx", "NoSuchVariable")), "");
  EXPECT_EQ(std::string(variable(m_handle, "zelvar.cbx", "TerviDir")), "") << "a script that doesn't run";

  m_emulator.QueueProjection("8, 104, \"m\", 147, 0, 0.9996, 500000, 10000000", "UTM zone 55 South");
  EXPECT_EQ(std::string(query(m_handle, "terravik.cbx", "PROJECTION SELECTION")),
            "8, 104, \"m\", 147, 0, 0.9996, 500000, 10000000");
  EXPECT_EQ(std::string(query(m_handle, "terravik.cbx", "LAST PROJECTION NICENAME")), "UTM zone 55 South");
  EXPECT_EQ(std::string(query(m_handle, "terravik.cbx", "PROJECTION SELECTION")), "") << "nothing picked: cancelled";

  EXPECT_EQ(std::string(variable(0, "terravik.cbx", "TerviDir")), "") << "no host, no script";
  const char* kept = variable(m_handle, "terravik.cbx", "TerviDir");
  query(m_handle, "terravik.cbx", "LAST PROJECTION NICENAME");
  EXPECT_STREQ(kept, "/opt/terravik") << "a returned text stays until the same export is called again";

  EXPECT_EQ(command(m_handle, "absent.cbx", "Go"), 0);
  EXPECT_EQ(command(m_handle, "utilities.cbx", "TerviDir = \"/srv/tv\""), 1);
  EXPECT_EQ(std::string(variable(m_handle, "utilities.cbx", "TerviDir")), "/srv/tv");
  EXPECT_EQ(command(m_handle, "absent.cbx", "Go"), 1) << "once a command reached a script, 1 for good";
  EXPECT_EQ(command(0, "absent.cbx", "Go"), 1);
}

TEST_F(LibraryOnEmulator, ExportsWithoutADialogLoadNoToolkit) {
  Eval("NumTables()");
  Do("Close All");
  FORMKIT_EXPORT(*this, GetCBXVariable)(m_handle, "absent.cbx", "x");
  const std::string maps = ReadFile("/proc/self/maps");
  for (const char* toolkit : {"libwx_", "libgtk", "libformkit-wx"}) EXPECT_EQ(maps.find(toolkit), std::string::npos);
}

}  // namespace
