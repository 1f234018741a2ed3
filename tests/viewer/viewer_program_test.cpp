// The viewer exports end to end against the viewer simulator: starting and
// stopping, loading files and series, the saved state and selection handles.
#include <sys/wait.h>

#include <filesystem>
#include <functional>

#include "formkit/formkit.h"
#include "support/full_disk.h"
#include "support/host/emulated_host.h"
#include "support/viewer_program.h"
#include "viewer/viewer_link.h"
#include "viewer/viewer_process.h"

using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

// The library loaded as a host loads it, connected to the host emulator.
struct LibraryWithHost : LibraryWithEmulator {
  LibraryWithHost() {
    EXPECT_EQ(FORMKIT_EXPORT(library, InitFormkitInstance)("Terravik"), 1);
    EXPECT_EQ(FORMKIT_EXPORT(library, ConnectToCartoma)(registration.Handle()), 1);
  }
};

// A DXF file of one line, as small as a reader takes it.
constexpr const char* kOneLineDXF =
    "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\n10\n0.0\n20\n0.0\n11\n1.0\n21\n1.0\n0\nENDSEC\n0\nEOF\n";

TEST_F(ViewerProgram, IsStartedOnceAskedAndStoppedThroughTheExports) {
  ScopedVariable version("TV_SIM_VERSION", "7.1.2");
  FormkitLibrary library;
  ASSERT_EQ(FORMKIT_EXPORT(library, InitFormkitInstance)("Terravik"), 1);
  EXPECT_EQ(FORMKIT_EXPORT(library, IsTvik3DRunning)(), 0);

  const int pid = FORMKIT_EXPORT(library, ExecuteTerravik3D)();
  ASSERT_GT(pid, 0);
  EXPECT_EQ(FORMKIT_EXPORT(library, ExecuteTerravik3D)(), pid);
  EXPECT_THAT(SimulatorProcesses(), ElementsAre(pid)) << "a running viewer is not started again";
  EXPECT_EQ(FORMKIT_EXPORT(library, IsTvik3DRunning)(), 1);
  EXPECT_EQ(FORMKIT_EXPORT(library, GetTvik3DProcessID)(), pid);

  char text[64] = "";
  EXPECT_EQ(FORMKIT_EXPORT(library, GetTvik3DVersion)(text), 1);
  EXPECT_STREQ(text, "7.1.2");
  EXPECT_EQ(FORMKIT_EXPORT(library, Tvik3DSetParent)(4711), 1);
  EXPECT_EQ(FORMKIT_EXPORT(library, ShutdownTerravik3D)(), 1);
  EXPECT_TRUE(Ended(pid));
  EXPECT_EQ(FORMKIT_EXPORT(library, IsTvik3DRunning)(), 0);

  const std::vector<std::string> calls = Calls();
  EXPECT_THAT(Members(calls),
              ElementsAre("TV.InterfaceCOM 1", "TV.InterfaceCOM 80", "TV.InterfaceCOM 2", "TV.InterfaceCOM 1",
                          "TV.InterfaceCOM 69", "TV.InterfaceCOM 2", "TV.InterfaceCOM 44"));
  EXPECT_THAT(calls[1], HasSubstr("400c:\"\"")) << "the version comes back through a variant by reference";
  EXPECT_THAT(calls[4], HasSubstr(" 3:4711"));

  text[0] = '\0';
  EXPECT_EQ(FORMKIT_EXPORT(library, GetTvik3DVersion)(text), 0) << "no viewer: the version last seen";
  EXPECT_STREQ(text, "7.1.2");
}

TEST_F(ViewerProgram, AViewerLateToStartMakesTheLibraryAskWhetherToWait) {
  ScopedVariable late("TV_SIM_OWN_AFTER", "3000");
  ASSERT_TRUE(fk::Registry::SetDword(fk::Hive::LocalMachine, kTerravikKey, "TIMEOUT", 100));
  m_ui.Prompts().AnswerMessage(fk::ui::IDNO);
  CViewerLink viewer;
  int processId = 0;
  const int pid = EnsureViewerRunning(viewer, processId, false);
  EXPECT_GT(pid, 0) << "No still gives the process id";
  EXPECT_EQ(processId, pid);
  ASSERT_EQ(m_ui.Prompts().Shown().size(), 1u);
  const fk::ui::ShownPrompt& question = m_ui.Prompts().Shown()[0];
  EXPECT_EQ(question.text, "Terravik3D has not started in the expected time. Do you want to continue to wait for it?");
  EXPECT_EQ(question.caption, "Terravik3D");
  EXPECT_EQ(question.type, 0x24u);
}

TEST_F(ViewerProgram, AViewerStartedByHandUnderTheOtherNameLeavesMinusOne) {
  const GPid pid = StartZelvarByHand({"-zelvar"});
  for (int round = 0; round < 500 && !fk::ClassRegistry::Instance().GetActiveObject("TV.InterfaceCOM"); ++round)
    g_usleep(20000);

  FormkitLibrary library;
  ASSERT_EQ(FORMKIT_EXPORT(library, InitFormkitInstance)("Terravik"), 1);
  EXPECT_THAT((std::vector{FORMKIT_EXPORT(library, ExecuteTerravik3D)(), FORMKIT_EXPORT(library, GetTvik3DProcessID)(),
                           FORMKIT_EXPORT(library, IsTvik3DRunning)()}),
              ElementsAre(-1, -1, 1));
  EXPECT_THAT(SimulatorProcesses(), ElementsAre(pid)) << "nothing else was started";
  EXPECT_EQ(FORMKIT_EXPORT(library, ShutdownTerravik3D)(), 1);
  int status = 0;
  EXPECT_EQ(waitpid(pid, &status, 0), pid);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
}

TEST_F(ViewerProgram, APermanentDXFHeldUnderKindOneIsRemovedUnderKindTwoAndAddedAgain) {
  LibraryWithHost host;
  ASSERT_GT(FORMKIT_EXPORT(host.library, ExecuteTerravik3D)(), 0);
  const std::string dxf = m_folder.Write("contours.dxf", kOneLineDXF);
  CViewerLink viewer;  // the test's own link puts the file in under kind 1
  ASSERT_TRUE(viewer.Attach());
  viewer.AddVectorObject(false, viewer.GetMapWindow(true), dxf, {1, 2, 3, 4, 5, 6, 7, 8, 9});
  viewer.Detach();
  const std::size_t before = Calls().size();

  ASSERT_EQ(FORMKIT_EXPORT(host.library, LoadPermDXFFile)(dxf.c_str(), 1), 1);
  const std::vector<std::string> calls = Calls();
  const std::vector<std::string> load(calls.begin() + static_cast<std::ptrdiff_t>(before), calls.end());
  const std::string file = "8:\"" + dxf + "\"";
  EXPECT_THAT(load, ElementsAre("TV.InterfaceCOM 1 flags=0", "TV.InterfaceCOM 39 flags=0 b:true 4003:-1",
                                "TV.InterfaceCOM 45 flags=0 3:1 " + file + " 3:1 4003:0",
                                "TV.InterfaceCOM 46 flags=0 3:1 3:2 400c:[c;0|" + file + "]",
                                "TV.InterfaceCOM 41 flags=0 3:1 3:2 400c:[c;0|" + file +
                                    ",3:0,3:0,3:0,3:13158600,3:10526880,3:0,3:0,3:0,3:0]",
                                "TV.InterfaceCOM 2 flags=0"));
  EXPECT_EQ(FORMKIT_EXPORT(host.library, LoadPermDXFFile)((m_folder.Path() + "/absent.dxf").c_str(), 1), 0)
      << "the viewer refuses a file it can't read";
  EXPECT_EQ(FORMKIT_EXPORT(host.library, ShutdownTerravik3D)(), 1);
}

// A table file as a point series, again with the refresh answered Yes,
// then as a line series: the file is opened once, split into folder and
// name, and makes an open project.
TEST_F(ViewerProgram, TableFilesBecomePointAndLineSeriesAndARefreshReloadsTheProject) {
  const std::string table = m_folder.Write("holes.tab", "!table\r\n");
  const std::string pair = "400c:[c;0|8:\"" + m_folder.Path() + "/\",8:\"holes.tab\"]";
  const auto callsOf = [&](const std::function<int()>& load) {
    const std::size_t before = Calls().size();
    EXPECT_EQ(load(), 1);
    const std::vector<std::string> calls = Calls();
    return std::vector<std::string>(calls.begin() + static_cast<std::ptrdiff_t>(before), calls.end());
  };
  const std::vector<std::string> points = callsOf([&] { return LoadTabPoints("Holes", table.c_str()); });
  EXPECT_THAT(points, ::testing::IsSupersetOf(std::vector<std::string>{
                          "TV.InterfaceCOM 47 flags=0 3:1 3:7 400c:[c;0|8:\"Holes as Points\"] 4003:0",
                          "TV.InterfaceCOM 45 flags=0 3:1 8:\"" + table + "\" 3:7 4003:0",
                          "TV.InterfaceCOM 38 flags=0 3:1 " + pair + " 3:0 3:7",
                          "TV.InterfaceCOM 41 flags=0 3:1 3:7 400c:[c;0|8:\"Holes as Points\"]",
                          "TV.InterfaceCOM 48 flags=0 3:1 8:\"Holes as Points\" 3:0 400c:[3;0|3:-1]"}));

  m_ui.Prompts().AnswerMessage(fk::ui::IDYES);
  const std::vector<std::string> refreshed = callsOf([&] { return LoadTabPoints("Holes", table.c_str()); });
  EXPECT_EQ(m_ui.Prompts().Shown().at(0).text,
            "Point series \"Holes\" is already open in 3D. Do you wish to refresh the data?");
  EXPECT_THAT(Members(refreshed),
              ElementsAre("TV.InterfaceCOM 1", "TV.InterfaceCOM 39", "TV.InterfaceCOM 47", "TV.InterfaceCOM 46",
                          "TV.InterfaceCOM 49", "TV.InterfaceDatasetCOM 1", "TV.InterfaceDatasetCOM 3",
                          "TV.InterfaceDatasetCOM 2", "TV.InterfaceSurveyCOM 1", "TV.InterfaceSurveyCOM 6",
                          "TV.InterfaceSurveyCOM 2", "TV.InterfaceCOM 45", "TV.InterfaceCOM 41", "TV.InterfaceCOM 49",
                          "TV.InterfaceCOM 48", "TV.InterfaceCOM 2"))
      << "the file is held already: no second OpenFiles";

  const std::vector<std::string> lines = callsOf([&] { return LoadTabLines("Holes", table.c_str()); });
  EXPECT_THAT(lines, ::testing::Contains(
                         "TV.InterfaceCOM 52 flags=0 3:1 8:\"Holes as Lines\" 3:0 400c:[3;0|3:-1]"));

  // The viewer refuses a file: the line loader tells it in the point
  // loader's words, gives 0 and leaves the viewer detached.
  m_ui.Prompts().Clear();
  const std::string gone = m_folder.Path() + "/gone.tab";
  EXPECT_EQ(LoadTabLines("Gone", gone.c_str()), 0);
  ASSERT_FALSE(m_ui.Prompts().Shown().empty());
  EXPECT_EQ(m_ui.Prompts().Shown().at(0).text, "AddPointCloudSeries OpenFile Exception");
  EXPECT_EQ(Members(Calls()).back(), "TV.InterfaceCOM 2");

  // The opened table is a project; both attachments end, the survey's first.
  const std::vector<std::string> query = callsOf([] { return IsDrillHoleProjectOpen(); });
  EXPECT_THAT(Members(query), ElementsAre("TV.InterfaceCOM 1", "TV.InterfaceSurveyCOM 1", "TV.InterfaceSurveyCOM 8",
                                          "TV.InterfaceSurveyCOM 2", "TV.InterfaceCOM 2"));
  ShutdownTerravik3D();
  EXPECT_EQ(IsDrillHoleProjectOpen(), 0);
}

TEST_F(ViewerProgram, ASavedStateKeepsTheCompositesInUseAndComesBackInANewViewer) {
  const std::string saved = m_folder.Path() + "/saved";
  std::filesystem::create_directories(saved);
  const std::string part = m_folder.Write(
      "parts/hole one.ogb", "GeoreferenceImage Begin\n  Image = \"hole one.jpg\"\nGeoreferenceImage End\n");
  m_folder.Write("parts/hole one.jpg", "picture");
  const std::string unusedPart = m_folder.Write(
      "parts/hole two.ogb", "GeoreferenceImage Begin\n  Image = \"hole two.jpg\"\nGeoreferenceImage End\n");
  const std::string composite = m_folder.Path() + "/parts/logs.ogb";
  const std::string plain = m_folder.Write("parts/plain.ogb", "");
  LibraryWithHost host;
  ASSERT_GT(FORMKIT_EXPORT(host.library, ExecuteTerravik3D)(), 0);
  ASSERT_EQ(FORMKIT_EXPORT(host.library, AddOGBFilePart)(composite.c_str(), unusedPart.c_str(), 0), 1);
  ASSERT_EQ(FORMKIT_EXPORT(host.library, AddOGBFilePart)(composite.c_str(), part.c_str(), 1), 1);
  ASSERT_EQ(FORMKIT_EXPORT(host.library, LoadOGBFile)(plain.c_str()), 1);
  EXPECT_EQ(ReadFile(composite), OnDisk(ReadFile(unusedPart) + ReadFile(part))) << "both parts are in use so far";
  CViewerLink viewer;  // someone takes the first part out of the view
  ASSERT_TRUE(viewer.Attach());
  viewer.RemoveFileObject(viewer.GetMapWindow(true), -2, "hole_two");
  viewer.Detach();

  ASSERT_EQ(FORMKIT_EXPORT(host.library, Save3DState)((saved + "/site.3ds").c_str()), 1);
  EXPECT_EQ(ReadFile(saved + "/site.3ds"), "VERSION 1.0\r\n" + saved + "/site.wor\r\n" + saved + "/site.ogs\r\n");
  EXPECT_TRUE(host.HostRan("Save Workspace"));
  EXPECT_THAT(ReadFile(saved + "/site.wor"), HasSubstr("!Workspace"));
  EXPECT_THAT(ReadFile(saved + "/site.ogs"), HasSubstr("logs.ogb")) << "the viewer's own state";
  EXPECT_EQ(ReadFile(saved + "/logs.ogb"), OnDisk(ReadFile(part))) << "only the part the viewer still lists";
  EXPECT_EQ(ReadFile(saved + "/hole one.jpg"), "picture");
  EXPECT_FALSE(std::filesystem::exists(saved + "/plain.ogb")) << "a plain temporary file is not saved";
  EXPECT_EQ(FORMKIT_EXPORT(host.library, SetTempFileDeleteOnDestoy)(0), 0);

  const int first = FORMKIT_EXPORT(host.library, GetTvik3DProcessID)();
  EXPECT_EQ(FORMKIT_EXPORT(host.library, ShutdownTerravik3D)(), 1);
  ASSERT_TRUE(Ended(first));
  ASSERT_EQ(FORMKIT_EXPORT(host.library, Load3DState)((saved + "/site.3ds").c_str()), 1) << "in a new viewer";
  EXPECT_TRUE(host.HostRan("Run Application \"" + saved + "/site.wor\""));
  ASSERT_TRUE(viewer.Attach());
  EXPECT_EQ(viewer.ObjectExists(viewer.GetMapWindow(false), saved + "/logs.ogb", 6), 1) << "the session came back";
  viewer.Detach();
  EXPECT_EQ(FORMKIT_EXPORT(host.library, ShutdownTerravik3D)(), 1);
}

// A state file the disk has no room for gives message 2007 and 0, and
// leaves the viewer attached, so that the next save can't reach it.
TEST_F(ViewerProgram, AStateFileOnAFullDiskGivesItsMessageAndZero) {
  ASSERT_GT(ExecuteTerravik3D(), 0);
  const std::string state = m_folder.Path() + "/site.3ds";
  int result = -1;
  {
    const FullDisk full(16);  // the first line and no more
    result = Save3DState(state.c_str());
  }
  EXPECT_EQ(result, 0);
  std::vector<std::string> shown;
  for (const fk::ui::ShownPrompt& prompt : m_ui.Prompts().Shown()) shown.push_back(prompt.text);
  EXPECT_THAT(shown, ElementsAre("Error, could not save 3d state."));
  EXPECT_FALSE(std::filesystem::exists(m_folder.Path() + "/site.wor")) << "the host was not asked to save";
  EXPECT_EQ(Save3DState(state.c_str()), 0) << "the viewer is still attached";
  shown.clear();
  for (const fk::ui::ShownPrompt& prompt : m_ui.Prompts().Shown()) shown.push_back(prompt.text);
  EXPECT_THAT(shown, ElementsAre("Error, could not save 3d state.", "Error, could not open connection to 3D window"));
  EXPECT_EQ(ShutdownTerravik3D(), 1);
}

TEST_F(ViewerProgram, LogFilesJoinTheFirstFoldersLogAndRefreshPassesThroughTheScratchFile) {
  const std::string first = m_folder.Write("a/hole1.ogb", "Image = \"hole1.jpg\"\n");
  const std::string second = m_folder.Write("b/hole2.ogb", "Image = \"hole2.jpg\"\n");
  const std::string log = m_folder.Path() + "/a/Terravik DH Logs.OGB";
  LibraryWithHost host;
  ASSERT_GT(FORMKIT_EXPORT(host.library, ExecuteTerravik3D)(), 0);
  ASSERT_EQ(FORMKIT_EXPORT(host.library, SetTempFileDirectory)((m_folder.Path() + "/").c_str()), 1);
  const std::size_t before = Calls().size();
  ASSERT_EQ(FORMKIT_EXPORT(host.library, LoadPermLogOGBFile)(first.c_str(), 1, 1), 1);
  ASSERT_EQ(FORMKIT_EXPORT(host.library, LoadLogOGBFile)(second.c_str(), 0), 1);
  EXPECT_EQ(ReadFile(log), OnDisk(ReadFile(first) + ReadFile(second))) << "one log, in the first file's folder";
  ASSERT_EQ(FORMKIT_EXPORT(host.library, Refresh3D)(), 1);

  const std::vector<std::string> calls = Calls();
  const std::string scratch = "8:\"" + m_folder.Path() + "/_Refresh3DSession.ogs\"";
  EXPECT_THAT(Members({calls.begin() + static_cast<std::ptrdiff_t>(before), calls.end()}),
              ElementsAre("TV.InterfaceCOM 1", "TV.InterfaceCOM 39", "TV.InterfaceCOM 43", "TV.InterfaceCOM 43",
                          "TV.InterfaceCOM 2", "TV.InterfaceCOM 1", "TV.InterfaceCOM 39", "TV.InterfaceCOM 2",
                          "TV.InterfaceCOM 1", "TV.InterfaceCOM 53", "TV.InterfaceCOM 77", "TV.InterfaceCOM 54",
                          "TV.InterfaceCOM 2"));
  // The log is taken away first; the refresh goes through the scratch session file.
  for (const auto& [at, part] :
       {std::pair{2, std::string(" 8:\"\"")}, {3, log}, {9, scratch}, {10, " 3:32771"}, {11, scratch}})
    EXPECT_THAT(calls[before + at], HasSubstr(part)) << at;
  EXPECT_EQ(FORMKIT_EXPORT(host.library, ShutdownTerravik3D)(), 1);
}

TEST_F(ViewerProgram, LoadingAStateTheViewerCannotTakeStillRunsTheHostWorkspace) {
  ScopedVariable late("TV_SIM_OWN_AFTER", "600000");
  const GPid pid = StartZelvarByHand({});
  const std::string workspace = m_folder.Write("site.wor", "!Workspace\n");
  LibraryWithHost host;
  EXPECT_EQ(FORMKIT_EXPORT(host.library, Load3DState)((m_folder.Path() + "/site.3ds").c_str()), 0);
  EXPECT_TRUE(host.HostRan("Run Application \"" + workspace + "\""));
  kill(pid, SIGTERM);
  waitpid(pid, nullptr, 0);
}

// The boxes of a selection file as ezdxf's strict reader sees them: per box
// of twelve 3DFACEs its centre and height, or what was wrong with the file.
std::string SelectionBoxes(const std::string& path) {
  const std::string script =
      "import sys, ezdxf\n"
      "doc = ezdxf.readfile(sys.argv[1])\n"
      "entities = list(doc.modelspace())\n"
      "faces = [e for e in entities if e.dxftype() == '3DFACE']\n"
      "assert not doc.audit().has_errors and len(faces) == len(entities) and len(faces) % 12 == 0\n"
      "for first in range(0, len(faces), 12):\n"
      "    points = [face[i] for face in faces[first:first + 12] for i in range(4)]\n"
      "    low = [min(p[a] for p in points) for a in range(3)]\n"
      "    high = [max(p[a] for p in points) for a in range(3)]\n"
      "    print(*['%g' % ((l + h) / 2) for l, h in zip(low, high)], '%g' % (high[2] - low[2]))\n";
  const std::string command = "/usr/bin/python3 -c \"" + script + "\" '" + path + "' 2>&1";
  std::string out;
  if (FILE* pipe = popen(command.c_str(), "r")) {
    char buffer[256];
    while (fgets(buffer, sizeof buffer, pipe)) out += buffer;
    pclose(pipe);
  }
  return out;
}

// Handles upright (tilt 90, turn 0), so a box's height is its z extent.
TEST_F(ViewerProgram, SelectionHandlesRewriteTheOneSelectionFileAndReplaceItInTheViewer) {
  LibraryWithHost host;
  const std::string file = m_folder.Path() + "/Selection.dxf";
  ASSERT_EQ(FORMKIT_EXPORT(host.library, SetSelectionFile)(file.c_str()), 1);
  EXPECT_EQ(FORMKIT_EXPORT(host.library, AddSelectionHandle)(1, 2, 3, 90, 0), 0);
  EXPECT_EQ(FORMKIT_EXPORT(host.library, ClearSelectionHandles)(), 0);
  EXPECT_FALSE(std::filesystem::exists(file)) << "no viewer: nothing written";

  ASSERT_GT(FORMKIT_EXPORT(host.library, ExecuteTerravik3D)(), 0);
  const std::size_t before = Calls().size();
  ASSERT_EQ(FORMKIT_EXPORT(host.library, AddSelectionHandle)(1, 2, 3, 90, 0), 1);
  ASSERT_EQ(FORMKIT_EXPORT(host.library, AddSelectionHandle)(100, 200, 30, 90, 0), 1);
  EXPECT_EQ(SelectionBoxes(file), "100 200 30 5\n") << "the second box replaced the first; the edge is the point size";
  const std::vector<std::string> calls = Calls();
  const std::string name = "8:\"" + file + "\"";
  EXPECT_THAT(std::vector(calls.begin() + static_cast<std::ptrdiff_t>(before) + 5, calls.end()),
              ElementsAre("TV.InterfaceCOM 1 flags=0", "TV.InterfaceCOM 39 flags=0 b:true 4003:-1",
                          "TV.InterfaceCOM 45 flags=0 3:1 " + name + " 3:1 4003:0",
                          "TV.InterfaceCOM 41 flags=0 3:1 3:2 400c:[c;0|" + name +
                              ",3:25,3:0,3:0,3:0,3:0,3:1,3:0,3:0,3:1]",
                          "TV.InterfaceCOM 2 flags=0"));

  const double x[] = {10, 20, 30}, y[] = {1, 2, 3}, z[] = {-5, 0, 5}, fallback[] = {99, 8, 9};
  const double tilt[] = {90, 90, 90}, turn[] = {0, 0, 0}, height[] = {7, 0, -1};
  EXPECT_EQ(FORMKIT_EXPORT(host.library, AddSelectionHandles)(3, x, y, z, fallback, tilt, turn, height, 1), 1);
  EXPECT_EQ(SelectionBoxes(file), "10 1 -5 7\n20 2 0 8\n30 3 5 9\n") << "heights 0 and -1 take the fallback";
  EXPECT_EQ(FORMKIT_EXPORT(host.library, AddSelectionHandles)(0, x, y, z, fallback, tilt, turn, height, 1), 1);
  EXPECT_EQ(SelectionBoxes(file), "") << "no box: a file with none";

  EXPECT_EQ(FORMKIT_EXPORT(host.library, ClearSelectionHandles)(), 1);
  EXPECT_EQ(FORMKIT_EXPORT(host.library, SelectIn3D)("Holes as Points", 4), 1);
  EXPECT_EQ(FORMKIT_EXPORT(host.library, SetAssociatedCoordSystem)("Holes as Points", "Earth Projection 1, 104"), 1);
  const std::vector<std::string> last = Calls();
  EXPECT_THAT(std::vector(last.end() - 10, last.end()),
              ElementsAre("TV.InterfaceCOM 1 flags=0", "TV.InterfaceCOM 39 flags=0 b:true 4003:-1",
                          "TV.InterfaceCOM 45 flags=0 3:1 " + name + " 3:1 4003:0", "TV.InterfaceCOM 2 flags=0",
                          "TV.InterfaceCOM 1 flags=0", "TV.InterfaceCOM 93 flags=0 8:\"Holes as Points\" 3:4",
                          "TV.InterfaceCOM 2 flags=0", "TV.InterfaceCOM 1 flags=0",
                          "TV.InterfaceCOM 107 flags=0 8:\"Holes as Points\" 8:\"Earth Projection 1, 104\"",
                          "TV.InterfaceCOM 2 flags=0"));

  // A drive the drive table does not map: the file goes to the temporary folder.
  ASSERT_EQ(FORMKIT_EXPORT(host.library, SetSelectionFile)("q:\\Picked.dxf"), 1);
  EXPECT_EQ(FORMKIT_EXPORT(host.library, AddSelectionHandle)(1, 2, 3, 90, 0), 1);
  const std::string moved = std::string(std::getenv("TMPDIR")) + "/Picked.dxf";
  EXPECT_EQ(SelectionBoxes(moved), "1 2 3 5\n");
  std::filesystem::remove(moved);
  EXPECT_EQ(FORMKIT_EXPORT(host.library, ShutdownTerravik3D)(), 1);
}

}  // namespace
