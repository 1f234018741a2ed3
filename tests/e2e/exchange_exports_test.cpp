// The file exchange exports run as a script runs them: the export connects
// to the emulator, its box is driven on the headless backend, and what it
// writes is read back: the mining files byte by byte, the raster tables by
// GDAL, the hotlinks from the host's table.
#include <gdal_priv.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>

#include "support/host/emulated_host.h"
#include "exchange/hotlink_converter_dlg.h"
#include "exchange/minesight_export_dlg.h"
#include "exchange/ogb_import_dlg.h"
#include "formkit/formkit.h"
#include "host/cartoma.h"
#include "support/comma_locale.h"
#include "support/session_fixture.h"

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsSupersetOf;
using fk::ui::HeadlessDialog;

namespace {

namespace fs = std::filesystem;

// The lines of a file written with CR LF; a bare LF fails the test.
std::vector<std::string> CrLfLines(const std::string& path) {
  const std::string text = ReadFile(path);
  std::vector<std::string> lines;
  std::size_t start = 0;
  for (std::size_t end; (end = text.find('\n', start)) != std::string::npos; start = end + 1) {
    EXPECT_TRUE(end > start && text[end - 1] == '\r') << "line " << lines.size() + 1 << " of " << path;
    lines.push_back(text.substr(start, end - start - 1));
  }
  EXPECT_EQ(start, text.size()) << "the file ends with a line end";
  return lines;
}

int EntryOf(const HeadlessDialog& box, int id, const std::string& text) {
  const std::vector<std::string> texts = box.View().ListTexts(id);
  return static_cast<int>(std::find(texts.begin(), texts.end(), text) - texts.begin());
}

class ExchangeOnEmulator : public EmulatorSessionTest {
 protected:
  // The texts of the message boxes shown so far.
  std::vector<std::string> Messages() {
    std::vector<std::string> texts;
    for (const fk::ui::ShownPrompt& prompt : m_ui.Prompts().Shown())
      if (prompt.kind == fk::ui::ShownPrompt::Message) texts.push_back(prompt.text);
    return texts;
  }
  int32_t Handle() { return m_registration.Handle(); }
};

// The sample's rows: the node count of each object; row 11 has none.
const std::map<int, int> kNodesOfRow = {{1, 1}, {2, 1}, {3, 2},  {4, 5},  {5, 8}, {6, 5},
                                        {7, 5}, {8, 5}, {9, 5}, {10, 5}, {12, 5}};

// Both mining exports write points under a user's decimal comma, and skip
// the row without an object with a message.
TEST_F(ExchangeOnEmulator, MiningExportsWriteEveryObjectWithPointsAndACancelLeavesThePartialFile) {
  const ScopedCommaLocale comma;  // the user's locale writes a decimal comma
  if (comma.Missing()) GTEST_SKIP() << "no locale with a decimal comma";
  Open("objects", "Objects");
  using Box = CDatamineExportDlg;
  using MineSight = CMineSightExportDlg;
  const std::string out = Out("objects.txt");
  m_ui.OnDialog(Box::IDD, [&](HeadlessDialog& box) {
    EXPECT_EQ(box.View().ComboText(Box::IDC_Z_COLUMN, 0), "- None -");
    box.Type(Box::IDC_OUTPUT_FILE, out);
    box.Type(Box::IDC_MULTIPLY_Z, "2,5");  // as the user's locale writes it
    box.Type(Box::IDC_DEFAULT_Z, "4");
    box.SelectEntries(Box::IDC_ATTRIBUTES, {EntryOf(box, Box::IDC_ATTRIBUTES, "Name")});
    box.Press(fk::ui::IDOK);
  });
  ASSERT_EQ(DatamineExport(Handle()), 1) << ::testing::PrintToString(Messages());
  EXPECT_THAT(Messages(), ElementsAre("Skipping rowid 11. Could not load object."));

  // The head (its layout is the format's own test) names the attribute
  // chosen; each record has its row, node and Z as the box said, with points.
  const std::vector<std::string> lines = CrLfLines(out);
  ASSERT_GT(lines.size(), 12u);
  EXPECT_EQ(lines[11], "NAME     A   1   9                      ");
  std::map<int, int> nodesOfRow;
  for (std::size_t i = 12; i < lines.size(); ++i) {
    const std::string& record = lines[i];
    ASSERT_EQ(record.size(), 108u) << record;
    EXPECT_EQ(record.find(','), std::string::npos) << record;
    EXPECT_EQ(std::stoi(record.substr(12, 12)), ++nodesOfRow[std::stoi(record.substr(0, 12))]) << record;
    EXPECT_EQ(record.substr(48, 12), "10.000      ") << record;
  }
  EXPECT_EQ(nodesOfRow, kNodesOfRow);
  EXPECT_EQ(lines[12].substr(0, 48) + lines[12].substr(96),
            "1.000       1.000       144.280     -36.760     Shaft       ");

  // Again over the same file, cancelled at the third row: the file stays
  // as far as it got, and the box says why and stays open.
  m_ui.Prompts().Clear();
  m_ui.Prompts().AnswerMessage(fk::ui::IDYES);
  m_ui.CancelProgressAfter(3);
  m_ui.OnDialog(Box::IDD, [&](HeadlessDialog& box) {
    box.Type(Box::IDC_OUTPUT_FILE, out);
    box.Press(fk::ui::IDOK);
    EXPECT_FALSE(box.Ended());
    box.Press(fk::ui::IDCANCEL);
  });
  EXPECT_EQ(DatamineExport(Handle()), 0);
  EXPECT_THAT(Messages(), ElementsAre("Output file '" + out + "' already exists. Do you want to overwrite it?",
                                      "Operation aborted by user."));
  const std::vector<std::string> partial = CrLfLines(out);
  ASSERT_EQ(partial.size(), 13u) << "the head and the two rows before the cancel";
  EXPECT_EQ(partial[12].substr(0, 24), "2.000       1.000       ");

  // MineSight flips after the transform and ends every line with a comma.
  m_ui.Clear();
  const std::string srg = Out("objects.srg");
  m_ui.OnDialog(MineSight::IDD, [&](HeadlessDialog& box) {
    box.Type(MineSight::IDC_OUTPUT_FILE, srg);
    box.Type(MineSight::IDC_MULTIPLY_X, "2");
    box.Type(MineSight::IDC_ADD_Z, "0,5");
    box.SetCheck(MineSight::IDC_FLIP_XY, 1);
    box.Press(fk::ui::IDOK);
  });
  ASSERT_EQ(MineSightExport(Handle()), 1);
  EXPECT_THAT(Messages(), ElementsAre("Skipping rowid 11. Could not load object."));
  const std::vector<std::string> nodes = CrLfLines(srg);
  ASSERT_EQ(nodes.size(), 47u) << "no head, one line per node";
  EXPECT_EQ(nodes[0], "-36.760000,288.560000,0.500000,1,") << "Y first, then X doubled";
  EXPECT_EQ(std::ranges::count_if(nodes, [](const std::string& line) { return line.ends_with(",1,"); }), 11)
      << "one first node per object";
}

// GDAL's placing of a picture by the table beside it: the world position
// of pixel (x, y).
std::pair<double, double> PlacedByGdal(const std::string& picture, double x, double y) {
  GDALAllRegister();
  std::unique_ptr<GDALDataset> dataset(GDALDataset::Open(picture.c_str(), GDAL_OF_RASTER));
  double t[6] = {};
  EXPECT_TRUE(dataset && dataset->GetGeoTransform(t) == CE_None) << picture;
  return {t[0] + x * t[1] + y * t[2], t[3] + x * t[4] + y * t[5]};
}

TEST_F(ExchangeOnEmulator, OGBImportRegistersEachImageAndOpensItsTable) {
  for (const char* name : {"NORTH.JPG", "SOUTH.JPG"})
    fs::copy_file(fs::path(SIM_SAMPLES_DIR) / "hillshade.jpg", Out(name));
  const std::string ogb = m_folder.Write("pictures.ogb",
                                         "GeoReferenceImage Begin\r\n  Image = \"north.jpg\"\r\n"
                                         "  TopLeft = 255000,5925400\r\n  BottomRight = 255400,5925200\r\n"
                                         "  TransparentColour = RGB(255, 255, 255)\r\nGeoReferenceImage End\r\n"
                                         "ImageDefinition Begin\r\n  Image = south.jpg\r\n"
                                         "  BottomRight = 255400,5925000\r\n  TopLeft = 255000,5925200\r\n"
                                         "ObjectDefinition End\r\nProjection = MGA94 Zone 55\r\n");
  const std::string quadStrip =
      m_folder.Write("strip.ogb", "GeoReferenceImage Begin\nImage = a.jpg\nGeometry = Quad_Strip_H\n");
  m_emulator.QueueProjection("Earth Projection 8, 116, \"m\", 147, 0, 0.9996, 500000, 10000000", "MGA Zone 55");
  m_ui.Prompts().AnswerPath(ogb);
  using Box = COGBImportDlg;
  m_ui.OnDialog(Box::IDD, [&](HeadlessDialog& box) {
    box.Press(fk::ui::IDOK);
    box.Press(Box::IDC_SET_PROJECTION);
    EXPECT_EQ(box.View().Text(Box::IDC_PROJECTION_NAME), "MGA Zone 55");
    box.Type(Box::IDC_INPUT_FILE, quadStrip);
    box.Press(fk::ui::IDOK);
    box.Press(Box::IDC_BROWSE_INPUT);
    EXPECT_EQ(box.View().Text(Box::IDC_OGB_PROJECTION), "OGB Projection: MGA94 ZONE 55");
    EXPECT_EQ(box.View().Text(Box::IDC_OUTPUT_TABLE), "* Multiple Outputs will be Made *");
    EXPECT_FALSE(box.View().IsEnabled(Box::IDC_OUTPUT_TABLE));
    box.Press(fk::ui::IDOK);
  });
  ASSERT_EQ(OGBImport(Handle()), 1) << ::testing::PrintToString(Messages());
  EXPECT_THAT(Messages(), ElementsAre("Please select a Map projection.",
                                      "Error: Unsupported OGB Type(Quad Strip) detected. Open the image using "
                                      "File->Open->Raster Image instead."));

  struct Placed {
    const char* picture;
    double left, bottom, right, top;
  };
  for (const Placed& p : {Placed{"NORTH.JPG", 255000, 5925200, 255400, 5925400},
                          Placed{"SOUTH.JPG", 255000, 5925000, 255400, 5925200}}) {
    int32_t w = 0, h = 0;
    ASSERT_EQ(GetPictureSize(Out(p.picture).c_str(), &w, &h), 1);
    const auto [left, top] = PlacedByGdal(Out(p.picture), 0, 0);
    const auto [right, bottom] = PlacedByGdal(Out(p.picture), w - 1, h - 1);
    EXPECT_NEAR(left, p.left, 1e-6) << p.picture;
    EXPECT_NEAR(top, p.top, 1e-6) << p.picture;
    EXPECT_NEAR(right, p.right, 1e-6) << p.picture;
    EXPECT_NEAR(bottom, p.bottom, 1e-6) << p.picture;
  }
  EXPECT_THAT(ReadFile(Out("NORTH.tab")), HasSubstr("  RasterStyle 4 1\r\n  RasterStyle 7 16777215\r\n"));
  EXPECT_THAT(ReadFile(Out("SOUTH.tab")), ::testing::Not(HasSubstr("RasterStyle")));
  std::vector<std::string> tables;
  g_Cartoma.GetTableNames(tables);
  EXPECT_THAT(tables, IsSupersetOf({"NORTH", "SOUTH"})) << "both opened in the host";
}

TEST_F(ExchangeOnEmulator, HotlinksBecomeDesktopPathsInTheHostTable) {
  Open("sites", "Sites");
  using Box = CHotLinkConverterDlg;
  m_ui.OnDialog(Box::IDD, [&](HeadlessDialog& box) {
    EXPECT_FALSE(box.View().IsEnabled(Box::IDC_NEW_DIRECTORY));
    box.SelectEntries(Box::IDC_FIELDS, {EntryOf(box, Box::IDC_FIELDS, "Report"),
                                        EntryOf(box, Box::IDC_FIELDS, "Survey")});
    box.SetCheck(Box::IDC_CHANGE_DIRECTORY, 1);
    box.Type(Box::IDC_NEW_DIRECTORY, "C:\\Desk\\");
    box.Press(fk::ui::IDOK);
  });
  ASSERT_EQ(ConvertHotlinks(Handle()), 1);
  std::vector<std::string> values;
  for (int row = 0; row < 3; ++row) {
    ASSERT_TRUE(g_Cartoma.FetchRow("Sites", row));
    values.push_back(g_Cartoma.GetFieldValue("Sites", "Report") + "|" + g_Cartoma.GetFieldValue("Sites", "Survey"));
  }
  EXPECT_THAT(values, ElementsAre("C:\\Desk\\site01.doc|C:\\Desk\\survey01.xls", "C:\\Desk\\site02.doc|",
                                  "photos\\site03.jpg|C:\\Desk\\survey03.pxls"));
}

}  // namespace
