// The files the system writes, on a disk that fills up: each writer gives
// its failure result and message or keeps the old file whole, and the
// library goes on working once there is room again. (The state file, which
// needs the viewer, is a viewer test.)
#include <functional>

#include "exchange/datamine_export_dlg.h"
#include "exchange/raster_tab_writer.h"
#include "formkit/formkit.h"
#include "settings/temp_file.h"
#include "support/full_disk.h"
#include "support/host/emulated_host.h"
#include "workspace/workspace_text.h"

namespace {

constexpr rlim_t kRoom = 512;

std::string Padding(const std::string& line) {
  std::string text;
  while (text.size() <= 2 * kRoom) text += line;
  return text;
}

struct Writer {
  const char* name;
  std::function<int()> write;  // run on the full disk
  int result;                  // the writer's failure result
  std::string message;         // the message shown, or none
  std::string kept;            // a file that must stay as it was, or none
};

using FullDiskTest = EmulatorSessionTest;

TEST_F(FullDiskTest, EveryWriterFailsCleanlyOrKeepsTheOldFileAndTheLibraryGoesOn) {
  Open("objects", "Objects");
  const std::string mined = Out("objects.dm.txt");
  const std::string composite = Out("logs.ogb");
  const std::string big = m_folder.Write("big.ogb", Padding("Comment \"a long georeference part\"\n"));
  CTempFile record(composite.c_str(), 1);
  record.AddPart(m_folder.Write("small.ogb", "Comment \"small\"\n"), 1);
  record.Rebuild();
  const std::string workspace = m_folder.Write("session.wor", Padding("Dim a_variable_of_the_session As Float\n"));
  const std::string settings = m_folder.Write("tools.ini", "[Kept]\r\nKey=value\r\n");

  const Writer writers[] = {
      {"Datamine export",
       [&] {
         m_ui.OnDialog(CDatamineExportDlg::IDD, [&](fk::ui::HeadlessDialog& box) {
           box.Type(CDatamineExportDlg::IDC_OUTPUT_FILE, mined);
           box.Press(fk::ui::IDOK);
         });
         return DatamineExport(m_registration.Handle());
       },
       0, "Could not create file '" + mined + "'", ""},
      {"raster registration table",
       [&] { return WriteRasterTabFile(Out("shade.tab"), SIM_SAMPLES_DIR "/hillshade.jpg", 0, 0, 10, 10,
                                       "CoordSys Earth Projection 1, 104" + std::string(kRoom, ' '), -1); },
       0, "", ""},
      {"OGB composite, rebuilt with a part too big for the disk: still to be rebuilt",
       [&] {
         record.AddPart(big, 1);
         record.Rebuild();
         return record.m_bDirty;
       },
       1, "", composite},
      {"workspace rewrite", [&] { return RewriteWorkspace(workspace, {}, {}); }, 1, "", workspace},
      {"settings file",
       [&] { return SetAppSetting("Tools", "Long", std::string(2 * kRoom, 'x').c_str(), settings.c_str()); }, 0, "",
       settings},
      // The DXF writer does not look at its writes: the script gets 1, the file is cut.
      {"DXF file",
       [&] {
         int result = DXFCreate(Out("lines.dxf").c_str());
         for (int i = 0; i < 50; ++i) result &= DXFLine(i, 0, 0, i, 100, 0);
         return result & DXFClose();
       },
       1, "", ""},
  };
  for (const Writer& writer : writers) {
    SCOPED_TRACE(writer.name);
    const std::string before = writer.kept.empty() ? "" : ReadFile(writer.kept);
    m_ui.Prompts().Clear();
    int result;
    {
      const FullDisk full(kRoom);
      result = writer.write();
    }
    EXPECT_EQ(result, writer.result);
    std::vector<std::string> shown;
    for (const fk::ui::ShownPrompt& prompt : m_ui.Prompts().Shown()) shown.push_back(prompt.text);
    EXPECT_EQ(shown, writer.message.empty() ? std::vector<std::string>{} : std::vector<std::string>{writer.message});
    if (!writer.kept.empty()) {
      EXPECT_EQ(ReadFile(writer.kept), before) << "the old file stays whole";
    }
  }

  // With room again, the same writers write.
  m_ui.OnDialog(CDatamineExportDlg::IDD, [&](fk::ui::HeadlessDialog& box) {
    box.Type(CDatamineExportDlg::IDC_OUTPUT_FILE, Out("objects.again.txt"));
    box.Press(fk::ui::IDOK);
  });
  EXPECT_EQ(DatamineExport(m_registration.Handle()), 1);
  record.Rebuild();
  EXPECT_NE(ReadFile(composite).find("a long georeference part"), std::string::npos);
}

}  // namespace
