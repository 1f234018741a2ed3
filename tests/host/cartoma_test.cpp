// The host session against the scripted host: connections, statements,
// expressions, the product script and its variables; and the host's files
// read and rewritten directly.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "formkit/formkit.h"
#include "host/cartoma.h"
#include "host/pen_file.h"
#include "platform/automation/class_registry.h"
#include "platform/automation/exceptions.h"
#include "support/host/scripted_host.h"
#include "support/session_fixture.h"

using ::testing::ElementsAre;
using CartomaTest = SessionTest;
using HostFilesTest = SessionTest;

namespace {

// The application check asks the host for its scripts once per check.
int Checks(const ScriptedHost& host) {
  const std::vector<std::string> transcript = host.Transcript();
  return static_cast<int>(std::count(transcript.begin(), transcript.end(), "CBXApplications"));
}

TEST_F(CartomaTest, ConnectBorrowsTheScriptsObjectAndChecksTheApplicationOnce) {
  ScriptedHost host, second;
  host.Emulator().AddScript("terravik.cbx");
  ASSERT_EQ(g_Cartoma.Connect(host.Handle(), 1), 1);
  EXPECT_EQ(Checks(host) * 10 + g_Cartoma.m_nProductVariant, 10);
  EXPECT_FALSE(g_CartomaDriver.AutoRelease() || host.Visible()) << "Visible is set only on a host found by its ProgID";

  // Connecting again: the same object is asked nothing, another one takes
  // the place of the first without a check.
  host.ClearTranscript();
  EXPECT_EQ(g_Cartoma.Connect(host.Handle(), 1), 1);
  EXPECT_TRUE(host.Transcript().empty());
  EXPECT_EQ(g_Cartoma.Connect(second.Handle(), 1), 1);
  g_Cartoma.Do("Close All");
  EXPECT_THAT(second.Transcript(), ElementsAre("Do: Close All"));
  EXPECT_TRUE(host.Statements().empty());

  // Borrowed, not owned: when the host withdraws its object, the library
  // holds no reference that keeps it alive.
  second.Revoke();
  EXPECT_FALSE(second.HeldByLibrary());
  // The call itself now fails: Eval turns that into the framework's message,
  // Do catches only the host's own failures.
  int error = 0;
  EXPECT_EQ(g_Cartoma.Eval("NumTables()", &error), "");
  EXPECT_TRUE(error == 1 && !g_Cartoma.m_strLastError.empty());
  EXPECT_THROW(g_Cartoma.Do("Close All"), fk::OleException);
}

TEST_F(CartomaTest, ConnectWithoutAHandleFindsTheRunningHostAndMakesItVisible) {
  // A handle nobody registered leaves the session unconnected.
  EXPECT_EQ(g_Cartoma.Connect(0x7abc, 1), 0);
  EXPECT_NE(g_Cartoma.m_strLastError.find("31420"), std::string::npos) << "the message names the handle";
  EXPECT_FALSE(g_CartomaDriver.IsAttached());
  int error = -1;
  EXPECT_EQ(g_Cartoma.Do("Close All", 1, &error), 1) << "nothing to send, and no failure";
  EXPECT_TRUE(error == 0 && g_Cartoma.Eval("NumTables()").empty());

  ScriptedHost running;
  running.RegisterAsRunning();
  bool created = false;
  fk::ClassRegistry::Instance().RegisterClass("Cartoma.Application", [&] {
    created = true;
    return fk::DispatchPtr();
  });
  EXPECT_EQ(g_Cartoma.Connect(0, 0), 1);
  EXPECT_FALSE(created) << "a running host must not be started a second time";
  EXPECT_TRUE(g_CartomaDriver.AutoRelease() && running.Visible());
  EXPECT_EQ(Checks(running), 0);
  fk::ClassRegistry::Instance().RevokeClass("Cartoma.Application");
}

TEST_F(CartomaTest, FailingDoAndEvalKeepTheHostsTextAndLeaveTheSessionUsable) {
  ScriptedHost host;
  host.Answers().Fail("Alter Table Nowhere", "Table Nowhere is not open");
  host.Answers().Answer("NumTables()", "3");
  host.Answers().Fail("TableInfo(9, 1)", "Table not found");
  ASSERT_EQ(g_Cartoma.Connect(host.Handle(), 0), 1);

  int error = -1;
  EXPECT_EQ(g_Cartoma.Do("Alter Table Nowhere", 1, &error), 0);
  EXPECT_EQ(std::to_string(error) + g_Cartoma.m_strLastError, "1Table Nowhere is not open");
  EXPECT_EQ(g_strCartomaLastError, "") << "the session's failures are not the direct exports' failures";
  EXPECT_EQ(g_Cartoma.Eval("TableInfo(9, 1)", &error), "");
  EXPECT_EQ(std::to_string(error) + g_Cartoma.m_strLastError, "1Table not found");
  EXPECT_EQ(g_Cartoma.Eval("NumTables()", &error), "3");
  EXPECT_EQ(error, 0);
  EXPECT_THAT(host.Statements(),
              ElementsAre("Do: Alter Table Nowhere", "Eval: TableInfo(9, 1)", "Eval: NumTables()"));
}

TEST_F(CartomaTest, DeferredStatementsQueueByGroupAndSendNothing) {
  ScriptedHost host;
  ASSERT_EQ(g_Cartoma.Connect(host.Handle(), 0), 1);
  g_bDeferStatements = 1;
  int error = 7;
  EXPECT_EQ(g_Cartoma.Do("a1", 0, &error, 5), 1);
  EXPECT_EQ(error, 7) << "a queued statement leaves the error untouched";
  for (const auto& [statement, group] : {std::pair{"b1", 0}, {"a2", 5}, {"c1", 9}, {"b2", 0}, {"a3", 5}})
    g_Cartoma.Do(statement, 0, nullptr, group);
  EXPECT_THAT(g_DeferredStatements, ElementsAre("b1", "c1", "b2", "a3"));
  EXPECT_THAT(g_DeferredKeys, ElementsAre(0u, 9u, 0u, 5u));
  EXPECT_TRUE(host.Statements().empty());

  // Immediate statements still go at once.
  g_Cartoma.Do("Close All", 1);
  EXPECT_THAT(host.Statements(), ElementsAre("Do: Close All"));
  EXPECT_EQ(QueueDeferredStatement("d1", 9), 3) << "the queue answers the statement's index";
}

TEST_F(CartomaTest, TheMemoAnswersRepeatedExpressionsIgnoringCaseWithinItsSlots) {
  ScriptedHost host;
  host.Answers().AnswerInTurn("NumTables()", {"3", "4"});
  ASSERT_EQ(g_Cartoma.Connect(host.Handle(), 0), 1);

  EXPECT_EQ(g_Cartoma.Eval("NumTables()"), "3");
  EXPECT_EQ(g_Cartoma.Eval("NumTables()"), "4") << "the memo is off by default";

  g_Cartoma.m_bEvalCacheOn = 1;
  host.Answers().AnswerInTurn("NumTables()", {"5", "6"});
  host.ClearTranscript();
  EXPECT_EQ(g_Cartoma.Eval("NumTables()"), "5");
  EXPECT_EQ(g_Cartoma.Eval("NUMTABLES()"), "5");
  EXPECT_EQ(host.Statements().size() * 10 + g_Cartoma.m_nEvalCacheCount, 11u) << "one question, one memo";

  // A failure is not remembered; the memo keeps at most its slots, and
  // bounds long texts.
  host.Answers().Fail("Bad(", "Syntax error");
  g_Cartoma.Eval("Bad(");
  EXPECT_EQ(g_Cartoma.m_nEvalCacheCount, 1);
  host.Answers().OnEval([](const std::string& e) { return std::optional<std::string>(e + "=" + std::string(600, 'v')); });
  for (int i = 0; i < EVAL_CACHE_SLOTS + 20; ++i) g_Cartoma.Eval("x" + std::to_string(i));
  EXPECT_EQ(g_Cartoma.m_nEvalCacheCount, EVAL_CACHE_SLOTS);
  EXPECT_EQ(std::string(g_Cartoma.m_EvalCache[1].value).size(), 499u);
}

TEST_F(CartomaTest, TheProductScriptIsFoundInTheProductOrderAndAnswersForTheProduct) {
  ScriptedHost host;
  host.Emulator().SetGlobal("zelvar.cbx", "TerviDir", "/opt/zelvar");
  host.Emulator().AddScript("utilities.cbx");
  host.Emulator().QueueProjection("Earth Projection 1, 104", "UTM 55");
  ASSERT_EQ(g_Cartoma.Connect(host.Handle(), 0), 1);
  host.ClearTranscript();
  EXPECT_EQ(g_Cartoma.FindApplicationScript(), 1);
  EXPECT_EQ(g_Cartoma.m_nProductVariant, 1);
  EXPECT_THAT(host.Transcript(),
              ElementsAre("CBXApplications", "CBXApplications.Item: terravik.cbx",
                          "CBXApplications.Item: zelvar3d.cbx", "CBXApplications.Item: zelvar.cbx",
                          "zelvar.cbx CBXGlobals"));
  host.ClearTranscript();
  EXPECT_EQ(g_Cartoma.FindApplicationScript(), 1);
  EXPECT_TRUE(host.Transcript().empty()) << "a found script is not searched again";

  int error = -1;
  EXPECT_EQ(g_Cartoma.GetTerviDir(), "/opt/zelvar");
  EXPECT_EQ(g_Cartoma.GetCBXVariable("Missing", &error), "");
  EXPECT_EQ(error, 0) << "a missing variable is no error";
  EXPECT_EQ(g_Cartoma.ScriptEval("PROJECTION SELECTION", &error), "Earth Projection 1, 104");
  EXPECT_EQ(g_Cartoma.ScriptEval("LAST PROJECTION NICENAME", &error), "UTM 55");
  EXPECT_EQ(error, 0);

  // No product script leaves the variant and gives no directory.
  ResetSession();
  ScriptedHost other, bare;
  other.Emulator().SetGlobal("other.cbx", "TerviDir", "/opt/other");
  ASSERT_EQ(g_Cartoma.Connect(other.Handle(), 0), 1);
  g_Cartoma.m_nProductVariant = 2;
  EXPECT_EQ(g_Cartoma.FindApplicationScript(), 0);
  EXPECT_EQ(g_Cartoma.m_nProductVariant, 2);
  EXPECT_EQ(g_Cartoma.GetTerviDir(), "");
  bare.WithoutScripts();
  ASSERT_EQ(g_Cartoma.Connect(bare.Handle(), 0), 1);
  EXPECT_EQ(g_Cartoma.FindApplicationScript(), 0);
}

TEST_F(HostFilesTest, RasterFileNameGridStyleAndControlPoints) {
  ScopedFolder folder;
  const std::string image = folder.Write(
      "a.tab", "!table\r\n!version 300\r\nDefinition Table\r\n  File \"Aerial Photo.jpg\" \r\n  Type \"RASTER\"\r\n");
  EXPECT_EQ(g_Cartoma.GetRasterFileName(image), "AERIAL PHOTO.JPG");
  EXPECT_EQ(g_Cartoma.GetRasterFileName(folder.Path() + "/missing.tab"), "");
  const std::string empty = folder.Write("empty.tab", "  File \"\"\r\n  profile \"grid.grd\"\n");
  EXPECT_EQ(g_Cartoma.GetRasterFileName(empty), "PROGRID.GRD")
      << "an empty name searches on, and \"FILE \" inside a word matches";

  const std::string tab = folder.Write(
      "grid.tab",
      "Definition Table\n  File \"dem.grd\"\n  Type \"RASTER\"\n"
      "  (500000.5,7000000.25) (0,0) Label \"Pt 1\",\n"
      "  (501000,7001000) (1000,1000) Label \"Pt 2\"\n"
      "  (502000,7002000 (2000,2000) Label \"broken\"\n"
      "  (1,2) (3,4) Unlabelled\n"
      "  RasterStyle 6 1\n");
  std::vector<double> xs, ys;
  std::vector<unsigned long> px, py;
  EXPECT_EQ(g_Cartoma.ReadTabControlPoints(tab, xs, ys, px, py), 0);
  EXPECT_THAT(xs, ElementsAre(500000.5, 501000));
  EXPECT_THAT(ys, ElementsAre(7000000.25, 7001000));
  EXPECT_THAT(px, ElementsAre(0u, 1000u));
  EXPECT_THAT(py, ElementsAre(0u, 1000u));

  ScriptedHost host;
  ASSERT_EQ(g_Cartoma.Connect(host.Handle(), 0), 1);
  host.Answers().Answer({{"TableInfo(DEM, 19)", tab},
                         {"TableInfo(Photo, 19)", folder.Write("photo.tab", "RasterStyle 4 1\n")},
                         {"TableInfo(Gone, 19)", folder.Path() + "/gone.tab"}});
  EXPECT_EQ(g_Cartoma.IsGridRasterTab("DEM"), 1);
  EXPECT_EQ(g_Cartoma.IsGridRasterTab("Photo"), 0);
  EXPECT_EQ(g_Cartoma.IsGridRasterTab("Gone"), 0);
}

TEST_F(HostFilesTest, TheTargetKeepsItsHeadAndTakesTheSourcesBlockAndAMissingFileChangesNothing) {
  ScopedFolder folder;
  const std::string source =
      folder.Write("source.tab", "!table\nDefinition Table\nbegin_metadata\n\"\\Key\" = \"1\"\n\"\\Other\" = \"2\"\n");
  const std::string before = "!table\r\nFields 2\r\nBEGIN_METADATA\r\n\"\\Old\" = \"x\"\r\n";
  const std::string target = folder.Write("target.tab", before);
  EXPECT_EQ(g_Cartoma.CopyTabMetadata(folder.Path() + "/none.tab", target), 0);
  EXPECT_EQ(ReadFile(target), before);
  EXPECT_EQ(g_Cartoma.CopyTabMetadata(source, folder.Path() + "/absent.tab"), 0);
  EXPECT_EQ(g_Cartoma.CopyTabMetadata(source, target), 1);
  EXPECT_EQ(ReadFile(target), "!table\r\nFields 2\r\nBEGIN_METADATA\r\n\"\\Key\" = \"1\"\r\n\"\\Other\" = \"2\"\r\n");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 2) << "no file made or left";

  // A target without a block gets the marker in lower case.
  const std::string plain = folder.Write("plain.tab", "!table\nFields 1\n");
  EXPECT_EQ(g_Cartoma.CopyTabMetadata(source, plain), 1);
  EXPECT_EQ(ReadFile(plain), "!table\r\nFields 1\r\nbegin_metadata\r\n\"\\Key\" = \"1\"\r\n\"\\Other\" = \"2\"\r\n");
  EXPECT_EQ(g_Cartoma.CopyTabMetadata(folder.Write("noblock.tab", "!table\n"), plain), 1);
  EXPECT_EQ(ReadFile(plain), "!table\r\nFields 1\r\nbegin_metadata\r\n") << "an empty block";
}

// Pen files as the host writes them: header with the pen count, directory of
// record offsets, records of passes (each a length byte and its program).
TEST(PenFileTest, TheCountComesFromAPen2HeaderAndPassesOnlyFromInsideTheFile) {
  ScopedFolder folder;
  const std::pair<std::string, int> files[] = {{std::string("PEN2\0\0\x2c\x01rest", 12), 300},
                                               {std::string("pen2\0\0\x05\0", 8), 5},
                                               {std::string("PEN1\0\0\x05\0", 8), 0},
                                               {std::string("PEN2\0\0\x05", 7), 0}};
  for (const auto& [bytes, count] : files)
    EXPECT_EQ(GetCartomaPenCount(folder.Write("a.pen", bytes).c_str()), count) << bytes.substr(0, 4);
  EXPECT_EQ(GetCartomaPenCount((folder.Path() + "/none.pen").c_str()), 0);
  EXPECT_EQ(GetCartomaPenCount(nullptr), 0);

  const std::string header("pen2\0\0\x02\0\x0c\0\x13\0", 12);  // two pens, at 12 and 19
  const std::string good = header + std::string("\x02\0\0\x02\x02\x08\x00", 7) + std::string("\x01\0\0\x01\x16", 5);
  const struct {
    std::string bytes;
    int index;
    std::vector<std::string> passes;  // empty with result 0
  } cases[] = {
      {good, 0, {std::string("\x02\x08", 2), ""}},
      {good, 1, {"\x16"}},
      {good, 2, {}},                                                // the pen count or more
      {good.substr(0, good.size() - 1), 1, {}},                     // a pass past the end
      {header.substr(0, 10), 1, {}},                                // a directory entry past the end
      {std::string("PEN2\0\0\x01\0\xff\x00", 10), 0, {}},       // a record past the end
      {std::string("PEN1\0\0\x01\0\x0a\0\0\0\0", 13), 0, {}},  // another header
  };
  for (const auto& c : cases) {
    std::vector<std::string> passes = {"left over"};
    EXPECT_EQ(ReadPenPasses(folder.Write("a.pen", c.bytes), c.index, passes), c.passes.empty() ? 0 : 1)
        << c.bytes.size() << " bytes, pen " << c.index;
    EXPECT_EQ(passes, c.passes) << c.bytes.size() << " bytes, pen " << c.index;
  }
}

}  // namespace
