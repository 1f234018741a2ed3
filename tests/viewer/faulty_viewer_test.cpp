// The viewer exports against a viewer that fails every call, or that ends
// between two calls of one operation: none crashes or hangs, a failing
// viewer gives the table loaders their failure, and the library still
// starts and finds a sound viewer afterwards. (An operation that left by exception
// leaves the viewer attached, and attaching answers false until a detach,
// as the system has it; each fault is therefore met by a fresh link.)
#include <functional>
#include <string>

#include "formkit/formkit.h"
#include "support/viewer_program.h"

namespace {

using ViewerProgramFaults = ViewerProgram;

struct ViewerExport {
  const char* name;
  std::function<int()> call;
};

TEST_F(ViewerProgramFaults, NoViewerExportCrashesAndTheNextViewerWorks) {
  const std::string dxf = m_folder.Write("site.dxf", "  0\nSECTION\n  2\nENTITIES\n  0\nENDSEC\n  0\nEOF\n");
  const std::string ogb = m_folder.Write("site.ogb", "");
  const std::string table = m_folder.Write("holes.tab", "!table\r\n");
  const std::string state = m_folder.Path() + "/site.3ds";
  char version[1024];
  const ViewerExport exports[] = {
      {"GetTvik3DVersion", [&] { return GetTvik3DVersion(version); }},
      {"Tvik3DSetParent", [] { return Tvik3DSetParent(7); }},
      {"LoadPermDXFFile", [&] { return LoadPermDXFFile(dxf.c_str(), 1); }},
      {"LoadOGBFile", [&] { return LoadOGBFile(ogb.c_str()); }},
      {"LoadPermLogOGBFile", [&] { return LoadPermLogOGBFile(ogb.c_str(), 1, 1); }},
      {"AddOGBFilePart", [&] { return AddOGBFilePart(ogb.c_str(), ogb.c_str(), 1); }},
      {"RemoveOGBFileIfUnused", [&] { return RemoveOGBFileIfUnused(ogb.c_str()); }},
      {"ViewGridIn3D", [&] { return ViewGridIn3D(dxf.c_str()); }},
      {"LoadTabPoints", [&] { return LoadTabPoints("Holes", table.c_str()); }},
      {"LoadTabLines", [&] { return LoadTabLines("Holes", table.c_str()); }},
      {"IsDrillHoleProjectOpen", [] { return IsDrillHoleProjectOpen(); }},
      {"Refresh3D", [] { return Refresh3D(); }},
      {"Save3DState", [&] { return Save3DState(state.c_str()); }},
  };
  for (const char* fault : {"fail", "exit:1", "exit:3", "exit:6", "exit:12"}) {
    {
      const ScopedVariable faulty("TV_SIM_FAULT", fault);
      ExecuteTerravik3D();
      for (const ViewerExport& e : exports) {
        m_ui.Prompts().Clear();
        const int result = e.call();
        if (std::string(fault) == "fail" && std::string(e.name).starts_with("LoadTab")) {
          EXPECT_EQ(result, 0) << e.name;
        }
      }
      ShutdownTerravik3D();
      for (int pid : SimulatorProcesses()) kill(pid, SIGTERM);
      for (int pid : SimulatorProcesses()) Ended(pid);
    }
    m_ui.Prompts().Clear();
    ASSERT_GT(ExecuteTerravik3D(), 0) << "after " << fault;
    EXPECT_EQ(IsTvik3DRunning(), 1) << "after " << fault;
    ShutdownTerravik3D();
    for (int pid : SimulatorProcesses()) kill(pid, SIGTERM);
    for (int pid : SimulatorProcesses()) Ended(pid);
    theApp.m_Viewer.ReleaseAll();
  }
}

}  // namespace
