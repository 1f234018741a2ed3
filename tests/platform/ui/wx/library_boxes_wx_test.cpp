// The library's dialog boxes on screen, each opened from its export as a
// script opens it; their rules are tested without a screen (tests/maptools/,
// tests/viewer/, tests/wizards/, tests/workspace/, tests/e2e/). Most open
// over a host emulated in the process, registered as a script registers it,
// with one table of objects (Pits, a point whose Name is a handheld hotlink)
// opened from its file as a user opens it, and the product script running;
// the link manager opens over the viewer simulator.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/bookctrl.h>
#include <wx/dialog.h>
#include <wx/listbox.h>
#include <wx/listctrl.h>
#include <wx/propdlg.h>
#include <wx/radiobut.h>
#include <wx/textctrl.h>

#include <chrono>
#include <thread>

#include "dialogs_met.h"
#include "exchange/hotlink_converter_dlg.h"
#include "exchange/minesight_export_dlg.h"
#include "exchange/ogb_import_dlg.h"
#include "formkit/formkit.h"
#include "sim/host/emulator.h"
#include "sim/host/linked_c_api.h"
#include "support/viewer_program.h"
#include "toolkit_test.h"
#include "toolkit_user.h"

using ::testing::ElementsAre;

namespace {

class HostedBoxesWxTest : public ToolkitTest {
 protected:
  void SetUp() override {
    ToolkitTest::SetUp();
    if (IsSkipped()) return;
    sim::Host& host = m_emulator.GetHost();
    host.Do("Set CoordSys NonEarth Units \"m\"");
    host.Do("Create Table Made (Name Char (10))");
    host.Do("Insert Into Made (Name) Values(\"link:\\a.psw\")");
    host.Do("Dim p As Object");
    host.Do("Create Point Into Variable p (1500.25, 250.5)");
    host.Do("Update Made Set Obj = p Where RowID = 1");
    host.Do("Commit Table Made As \"" + m_folder.Path() + "/Pits.tab\"");
    host.Do("Close Table Made");
    host.Do("Open Table \"" + m_folder.Path() + "/Pits.tab\"");
    m_emulator.AddScript("terravik.cbx");
  }
  // Types into an edit control as a user does: the toolkit reports the change.
  static void Type(wxDialog& box, int id, const std::string& text) {
    dynamic_cast<wxTextCtrl&>(user::Control(box, id)).SetValue(text);
  }

  ScopedFolder m_folder;
  sim::Emulator m_emulator;
  sim::CApiRegistration m_registration{sim::LinkedHostCApi(), m_emulator.Application()};
  DialogsMet m_dialogs;
};

TEST_F(HostedBoxesWxTest, ReprojectTablesOpensAndATickOnScreenShowsTheMissingTarget) {
  m_dialogs.Use([&](wxDialog& box) {
    EXPECT_EQ(box.GetTitle(), "Reproject multiple tables");
    auto& list = dynamic_cast<wxListCtrl&>(user::Control(box, 1038));
    ASSERT_EQ(list.GetItemText(0, 0), "Pits");
    list.CheckItem(0, true);
    EXPECT_EQ(list.GetItemText(0, 1), "* Not Selected *");
    user::Screenshot(box, "reproject-tables");
    user::Press(box, fk::ui::IDCANCEL);
  });
  EXPECT_EQ(MultiReProject(m_registration.Handle()), 0);
}

TEST_F(HostedBoxesWxTest, OptionsSheetShowsBothPagesAndOkHandsTheDirectoryBack) {
  m_dialogs.Use([&](wxDialog& box) {
    EXPECT_EQ(box.GetTitle(), "3D Options");
    auto& sheet = dynamic_cast<wxPropertySheetDialog&>(box);
    ASSERT_EQ(sheet.GetBookCtrl()->GetPageCount(), 2u);
    EXPECT_EQ(sheet.GetBookCtrl()->GetPageText(0), "System");
    user::Screenshot(box, "3d-options-system");
    sheet.GetBookCtrl()->SetSelection(1);
    EXPECT_EQ(sheet.GetBookCtrl()->GetPageText(1), "Display");
    user::Screenshot(box, "3d-options-display");
    user::PressButton(*box.FindWindow(wxID_OK));
  });
  char directory[260] = "/tmp/formkit-3d/";
  int deleteOnExit = 1;
  EXPECT_EQ(Tvik3DOptions(directory, &deleteOnExit), 1);
  EXPECT_STREQ(directory, "/tmp/formkit-3d/");
  EXPECT_EQ(deleteOnExit, 1);
}

// The host keeps the first ten characters of the Name, a Char (10).
TEST_F(HostedBoxesWxTest, DrillholeWizardOpensWithTheHolesAndTheSubsetRadioSetsTheSuffix) {
  m_emulator.GetHost().Do("Metadata Table Pits SetKey \"\\Terravik\\xsects\\collar\\CH\" To \"1\"");
  m_dialogs.Use([&](wxDialog& box) {
    EXPECT_EQ(box.GetTitle(), "3D Drillhole Wizard");
    EXPECT_THAT(user::Entries(box, 1027), ElementsAre("link:\\a.ps"));
    EXPECT_FALSE(user::Control(box, 1015).IsEnabled());
    user::Click(box, 1020);
    EXPECT_EQ(dynamic_cast<wxTextCtrl&>(user::Control(box, 1138)).GetValue(), "_subset");
    EXPECT_TRUE(user::Control(box, 1015).IsEnabled());
    EXPECT_TRUE(dynamic_cast<wxRadioButton&>(user::Control(box, 1020)).GetValue());
    EXPECT_FALSE(dynamic_cast<wxRadioButton&>(user::Control(box, 1019)).GetValue());
    user::Screenshot(box, "drillhole-wizard");
    user::Press(box, fk::ui::IDCANCEL);
  });
  EXPECT_EQ(DrillHoleWiz(m_registration.Handle(), "Pits", "", nullptr, nullptr, nullptr, nullptr, 0, nullptr, 1), 0);
  EXPECT_EQ(m_dialogs.Met(), 1);
}

TEST_F(HostedBoxesWxTest, TheWorkspaceEditorListsTheTablesAndTheLoadersTimerRunsInTheToolkitsLoop) {
  const std::string workspace = m_folder.Write(
      "pits.wor", "!Workspace\r\nOpen Table \"" + m_folder.Path() + "/Pits.tab\" As Pits\r\nBrowse * From Pits\r\n");
  m_dialogs.Use([&](wxDialog& box) {
    EXPECT_EQ(box.GetTitle(), "Workspace Editor");
    auto& list = dynamic_cast<wxListCtrl&>(user::Control(box, 1073));
    EXPECT_EQ(list.GetItemText(0, 1), "- OK -");
    user::Screenshot(box, "workspace-editor");
    user::Press(box, fk::ui::IDCANCEL);
  });
  int32_t flags[4] = {};
  EXPECT_EQ(
      WorkspaceEditor(m_registration.Handle(), workspace.c_str(), 0, 0, &flags[0], &flags[1], &flags[2], &flags[3]), 0);

  m_dialogs.Use([&](wxDialog& box) {
    EXPECT_EQ(box.GetTitle(), "Workspace Loader");
    user::Press(box, 1004);
    wxWindow& run = user::Control(box, 1004);
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (run.IsShown() && std::chrono::steady_clock::now() < deadline) {
      wxTheApp->Yield(true);
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    EXPECT_FALSE(run.IsShown()) << "the end of the file was reached";
    EXPECT_EQ(dynamic_cast<wxListBox&>(user::Control(box, 1105)).GetCount(), 3u);
    user::Screenshot(box, "workspace-loader");
    user::Press(box, fk::ui::IDOK);
  });
  EXPECT_EQ(WorkspaceCustomLoad(m_registration.Handle(), workspace.c_str()), 1);
}

// The window choosers show their rows with check boxes, and a tick made on
// screen comes back.
TEST_F(HostedBoxesWxTest, EachMapBoxOpensWithItsTemplatesTitleAndAChoosersTickComesBack) {
  m_dialogs.Use([&](wxDialog& box) {
    EXPECT_EQ(box.GetTitle(), "Window in Plain");
    EXPECT_THAT(user::Entries(box, 1122), ElementsAre("Pits"));
    user::Screenshot(box, "section-plane");
    user::Press(box, fk::ui::IDCANCEL);
  });
  EXPECT_EQ(SetLayerSectionPlane(m_registration.Handle()), 0);

  const char* items[] = {"Map1\tLongitude / Latitude", "Map2"};
  int32_t ticks[] = {1, 0};
  int32_t method = 1;
  m_dialogs.Use([&](wxDialog& box) {
    EXPECT_EQ(box.GetTitle(), "Map Linking");
    auto& list = dynamic_cast<wxListCtrl&>(user::Control(box, 1000));
    EXPECT_EQ(list.GetItemText(0, 1), "Longitude / Latitude");
    EXPECT_TRUE(list.IsItemChecked(0));
    list.CheckItem(1, true);
    user::Screenshot(box, "map-linking");
    user::Press(box, fk::ui::IDOK);
  });
  EXPECT_EQ(LinkWinodowListDialog(items, ticks, 2, &method, m_registration.Handle()), 1);
  EXPECT_THAT(ticks, ElementsAre(1, 1));
  EXPECT_EQ(method, 1);

  int32_t pan = 1;
  char symbol[64] = "";
  m_dialogs.Use([&](wxDialog& box) {
    EXPECT_EQ(box.GetTitle(), "Cursor Position");
    user::Screenshot(box, "cursor-position");
    user::Press(box, fk::ui::IDCANCEL);
  });
  EXPECT_EQ(CurPosWinodowListDialog(items, ticks, 2, &pan, symbol), 0);
  EXPECT_EQ(m_dialogs.Met(), 3);
}

// The exchange boxes list the host's tables; an export runs to its file with
// the toolkit's progress window.
TEST_F(HostedBoxesWxTest, EachExchangeBoxOpensAndWhatTheUserTypesReachesIt) {
  const std::string ogb = m_folder.Write("a.ogb", "Projection = MGA94 Zone 55\n");
  const struct {
    int (*run)(int32_t);
    const char* title;
    int tables;  // the list of the host's tables, or 0
    const char* picture;
  } boxes[] = {{DatamineExport, "Datamine Export", CDatamineExportDlg::IDC_TABLE, "datamine-export"},
               {MineSightExport, "MineSight Export", CMineSightExportDlg::IDC_TABLE, "minesight-export"},
               {OGBImport, "OGB Import", 0, "ogb-import"},
               {ConvertHotlinks, "TerravikMobile Hotlink Converter", CHotLinkConverterDlg::IDC_TABLE, "hotlinks"}};
  for (const auto& b : boxes) {
    m_dialogs.Use([&](wxDialog& box) {
      EXPECT_EQ(box.GetTitle(), b.title);
      if (b.tables) {
        EXPECT_THAT(user::Entries(box, b.tables), ::testing::Contains("Pits")) << b.title;
      }
      user::Screenshot(box, b.picture);
      if (b.run == OGBImport) {
        Type(box, COGBImportDlg::IDC_INPUT_FILE, ogb);
        EXPECT_EQ(user::Control(box, COGBImportDlg::IDC_OGB_PROJECTION).GetLabel(), "OGB Projection: MGA94 ZONE 55");
      }
      user::Press(box, fk::ui::IDCANCEL);
    });
    EXPECT_EQ(b.run(m_registration.Handle()), 0) << b.title;
  }

  const std::string out = m_folder.Path() + "/pits.srg";
  m_dialogs.Use([&](wxDialog& box) {
    Type(box, CMineSightExportDlg::IDC_OUTPUT_FILE, out);
    Type(box, CMineSightExportDlg::IDC_ADD_Z, "7");
    user::Click(box, CMineSightExportDlg::IDC_FLIP_XY);
    user::Press(box, fk::ui::IDOK);
  });
  EXPECT_EQ(MineSightExport(m_registration.Handle()), 1);
  EXPECT_EQ(ReadFile(out), "250.500000,1500.250000,7.000000,1,\r\n");
  EXPECT_EQ(m_dialogs.Met(), 5);
}

class LinkManagerWxTest : public ToolkitTest, protected ViewerSimulatorPlace {
 protected:
  void SetUp() override {
    ToolkitTest::SetUp();
    if (IsSkipped()) return;
    if (!m_bus.IsUp()) GTEST_SKIP() << "dbus-daemon is not installed; the viewer needs a bus of its own";
    Prepare();
    theApp.m_TempFiles.clear();
  }
  void TearDown() override {
    StopViewers();
    ToolkitTest::TearDown();
  }

  DialogsMet m_dialogs;
};

// A checked row for each part of a composite file the viewer shows.
TEST_F(LinkManagerWxTest, ListsThePartsOfAShownCompositeChecked) {
  ASSERT_GT(ExecuteTerravik3D(), 0);
  const std::string composite = m_folder.Path() + "/logs.ogb";
  for (const char* name : {"hole one", "hole two"}) {
    const std::string part =
        m_folder.Write(std::string(name) + ".ogb",
                       "GeoreferenceImage Begin\n  Image = \"" + std::string(name) + ".jpg\"\nGeoreferenceImage End\n");
    m_folder.Write(std::string(name) + ".jpg", name);
    ASSERT_EQ(AddOGBFilePart(composite.c_str(), part.c_str(), 1), 1);
  }
  m_dialogs.Use([&](wxDialog& box) {
    auto& list = dynamic_cast<wxListCtrl&>(user::Control(box, 1094));
    ASSERT_EQ(list.GetItemCount(), 2);
    EXPECT_EQ(list.GetItemText(1).utf8_string(), "hole two");
    EXPECT_TRUE(list.IsItemChecked(1));
    user::Screenshot(box, "link-manager");
    user::Press(box, fk::ui::IDOK);
  });
  EXPECT_EQ(TempFileManager(), 1);
}

}  // namespace
