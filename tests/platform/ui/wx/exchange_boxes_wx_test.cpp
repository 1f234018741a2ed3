// The exchange boxes on screen, over a host emulated in the process: each
// opens from its export with its template's title and the host's tables,
// and one export runs to its file with the toolkit's progress window. Their
// rules are tested without a screen (tests/e2e/exchange_exports_test.cpp).
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/dialog.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "exchange/hotlink_converter_dlg.h"
#include "exchange/minesight_export_dlg.h"
#include "exchange/ogb_import_dlg.h"
#include "formkit/formkit.h"
#include "host/cartoma.h"
#include "hosted_toolkit_test.h"
#include "toolkit_user.h"

using ::testing::Contains;

namespace {

class ExchangeBoxesWxTest : public HostedToolkitTest {
 protected:
  // Types into an edit control as a user does: the toolkit reports the change.
  static void Type(wxDialog& box, int id, const std::string& text) {
    dynamic_cast<wxTextCtrl&>(user::Control(box, id)).SetValue(text);
  }
};

// Each box opens from its export over the host's tables and is cancelled;
// what the user types in the OGB box reaches it, and an export runs to its
// file.
TEST_F(ExchangeBoxesWxTest, EachBoxOpensFromItsExportAndWhatTheUserTypesReachesIt) {
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
        EXPECT_THAT(user::Entries(box, b.tables), Contains("Pits")) << b.title;
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

}  // namespace
