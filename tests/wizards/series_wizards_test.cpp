// The drillhole and trench wizards as a script runs them: the host emulator
// holds the sample drillhole project, the boxes are driven headless, the
// viewer simulator answers, and its record is the wire the wizards spoke.
// The subset tables are read back with GDAL against the sample's own rows.
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <functional>
#include <optional>
#include <set>

#include "formkit/formkit.h"
#include "host/cartoma.h"
#include "platform/paths/paths.h"
#include "support/host/emulated_host.h"
#include "support/viewer_program.h"
#include "viewer/viewer_link.h"

using fk::ui::HeadlessDialog;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsSupersetOf;
using ::testing::Not;

namespace {

using Lines = std::vector<std::string>;

// The hole ids of every row of a table file, read from its GeoPackage.
std::multiset<std::string> HoleIdsOf(const std::string& tabPath) {
  GDALAllRegister();
  std::string gpkg = fk::Native(tabPath);
  gpkg.replace(gpkg.size() - 4, 4, ".gpkg");
  std::unique_ptr<GDALDataset> data(GDALDataset::Open(gpkg.c_str(), GDAL_OF_VECTOR | GDAL_OF_READONLY));
  std::multiset<std::string> ids;
  if (!data) return ids;
  for (auto& feature : *data->GetLayer(0)) ids.insert(feature->GetFieldAsString(0));
  return ids;
}

std::string TextList(const std::vector<std::string>& texts) {
  std::string list = "400c:[c;0|";
  for (const std::string& text : texts) list += (list.back() == '|' ? "8:\"" : ",8:\"") + text + "\"";
  return list + "]";
}

class ViewerProgramWizards : public ViewerProgram {
 protected:
  void SetUp() override {
    ViewerProgram::SetUp();
    if (IsSkipped()) return;
    m_emulator.AddScript("terravik.cbx");
    ASSERT_EQ(g_Cartoma.Connect(m_registration.Handle(), 1), 1);
    ASSERT_EQ(SetTempFileDirectory((m_folder.Path() + "/").c_str()), 1);
    for (const char* table : {"collars", "surveys", "assays", "lithology"})
      m_files.push_back(CopySample(m_folder, table));
    // The lithology table stays closed in the host.
    for (std::size_t i = 0; i < 3; ++i) ASSERT_TRUE(g_Cartoma.OpenTable(m_files[i].c_str(), nullptr, 0, 0));
  }

  // Runs a wizard with the project's files; the viewer calls it made.
  std::vector<std::string> Run(int expected, const std::function<decltype(DrillHoleWiz)>& wizard, int showDialog,
                               const std::string& missingData = {}) {
    std::vector<const char*> data = {m_files[2].c_str(), m_files[3].c_str()};
    if (!missingData.empty()) data.push_back(missingData.c_str());
    const std::size_t before = Calls().size();
    EXPECT_EQ(wizard(m_registration.Handle(), "collars.tab", m_folder.Path().c_str(), m_files[0].c_str(),
                     m_files[1].c_str(), nullptr, nullptr, static_cast<int32_t>(data.size()), data.data(), showDialog),
              expected);
    const std::vector<std::string> calls = Calls();
    return {calls.begin() + static_cast<std::ptrdiff_t>(before), calls.end()};
  }
  // The box closed with OK under the series name `series`, the whole
  // dataset, and `answer` to the refresh question.
  void NamedSeries(const std::string& series, int answer) {
    m_ui.OnDialog(1026, [series](HeadlessDialog& box) {
      box.Type(1138, series);
      box.Press(fk::ui::IDOK);
    });
    m_ui.Prompts().AnswerMessage(answer);
  }
  std::string Subset(const std::string& table) const { return m_folder.Path() + "/\\" + table + "_subset.tab"; }

  sim::Emulator m_emulator;
  sim::CApiRegistration m_registration{sim::LinkedHostCApi(), m_emulator.Application()};
  std::vector<std::string> m_files;
};

TEST_F(ViewerProgramWizards, ChosenHolesBecomeOneSeriesOfWholeOrSubsetTablesAndAnOpenSeriesIsRefreshed) {
  // No box: no name, the tables whole, no rows to restrict to.
  const std::vector<std::string> whole = Run(1, DrillHoleWiz, 0);
  EXPECT_TRUE(m_ui.Ran().empty());
  EXPECT_THAT(whole, IsSupersetOf(Lines{"TV.InterfaceCOM 47 flags=0 3:1 3:4 " + TextList({""}) + " 4003:0",
                                        "TV.InterfaceCOM 38 flags=0 3:1 " + TextList(m_files) + " 3:0 3:4",
                                        "TV.InterfaceCOM 41 flags=0 3:1 3:4 " + TextList({""})}));
  EXPECT_THAT(Members(whole), Not(Contains("TV.InterfaceCOM 42")));

  // Two holes selected on the map arrive chosen, a third is added, and
  // the tables the host has open are cut to those three holes.
  ASSERT_EQ(g_Cartoma.Do("Select * From collars Where HoleID = \"BD004\" Or HoleID = \"BD002\""), 1)
      << g_Cartoma.m_strLastError;
  m_ui.OnDialog(1026, [](HeadlessDialog& box) {
    EXPECT_THAT(box.View().ListTexts(1028), ElementsAre("BD002", "BD004"));
    box.SelectEntries(1027, {0});
    box.Press(1030);
    box.SetCheck(1020, 1);
    EXPECT_EQ(box.View().Text(1138), "_subset");
    box.Press(fk::ui::IDOK);
  });
  const std::vector<std::string> subset = Run(1, DrillHoleWiz, 1);
  const std::set<std::string> holes = {"BD001", "BD002", "BD004"};
  for (std::size_t i = 0; i < 3; ++i) {
    const std::string table = std::filesystem::path(m_files[i]).stem().string();
    std::multiset<std::string> expected = HoleIdsOf(m_files[i]);
    std::erase_if(expected, [&](const std::string& id) { return !holes.contains(id); });
    EXPECT_EQ(HoleIdsOf(Subset(table)), expected) << table;
  }
  const std::vector<std::string> files = {Subset("collars"), Subset("surveys"), Subset("assays"), m_files[3]};
  EXPECT_THAT(subset, IsSupersetOf(Lines{"TV.InterfaceCOM 38 flags=0 3:1 " + TextList(files) + " 3:0 3:4",
                                         "TV.InterfaceCOM 41 flags=0 3:1 3:4 " + TextList({"_subset"}),
                                         "TV.InterfaceCOM 49 flags=0 " + TextList(files) + " 3:5 4003:-1",
                                         "TV.InterfaceCOM 42 flags=0 3:1 8:\"_subset\" 3:1 400c:[3;0|3:0,3:1,3:2]"}));

  // A series of that name the wizard did not make: Yes takes it out under
  // kind 4 and reloads every open project.
  CViewerLink hand;
  ASSERT_TRUE(hand.Attach());
  hand.AddSeriesObject(hand.GetMapWindow(true), 4, "Old holes");
  hand.Detach();
  m_ui.Prompts().Clear();
  NamedSeries("Old holes", fk::ui::IDYES);
  const std::vector<std::string> everyProject = Run(1, DrillHoleWiz, 1);
  EXPECT_EQ(m_ui.Prompts().Shown().at(0).text,
            "Drillhole series 'collars' is aready open in 3D. Do you wish to refresh the data?");
  EXPECT_THAT(everyProject,
              IsSupersetOf(Lines{"TV.InterfaceCOM 46 flags=0 3:1 3:4 400c:[c;0|8:\"Old holes\",b:true]",
                                 "TV.InterfaceSurveyCOM 6 flags=0 3:0", "TV.InterfaceSurveyCOM 6 flags=0 3:1"}));
  // Now the wizard's memory names the project of the whole tables; No
  // takes nothing out.
  NamedSeries("Old holes", fk::ui::IDYES);
  const std::vector<std::string> named = Run(1, DrillHoleWiz, 1);
  EXPECT_THAT(named, IsSupersetOf(Lines{"TV.InterfaceSurveyCOM 7 flags=0 3:0", "TV.InterfaceSurveyCOM 6 flags=0 3:0"}));
  EXPECT_THAT(Members(named), Not(Contains("TV.InterfaceSurveyCOM 8")));
  NamedSeries("Old holes", fk::ui::IDNO);
  const std::vector<std::string> answeredNo = Run(1, DrillHoleWiz, 1);
  EXPECT_THAT(Members(answeredNo), Not(Contains("TV.InterfaceCOM 46")));
  EXPECT_THAT(answeredNo, Contains("TV.InterfaceCOM 41 flags=0 3:1 3:4 " + TextList({"Old holes"})));

  // A cancelled folder picker ends the wizard before any table is made.
  m_ui.Prompts().Clear();
  m_ui.Prompts().AnswerPath(std::nullopt);
  std::size_t hostCalls = 0;
  m_ui.OnDialog(1026, [&](HeadlessDialog& box) {
    box.SetCheck(1020, 1);
    box.SetCheck(1015, 1);
    hostCalls = m_emulator.Calls().size();
    box.Press(fk::ui::IDOK);
  });
  EXPECT_TRUE(Run(0, DrillHoleWiz, 1).empty());
  EXPECT_EQ(m_ui.Prompts().Shown().at(0).text, "Select permanent directory");
  EXPECT_EQ(m_ui.Prompts().Shown().at(0).start, m_folder.Path());
  EXPECT_EQ(m_emulator.Calls().size(), hostCalls) << "nothing was sent to the host after the box";

  // Trenches: asked for and added under kind 12, taken out under kind 4.
  m_ui.OnDialog(1026, [](HeadlessDialog& box) {
    EXPECT_EQ(box.View().Title(), "3D Trench Wizard");
    EXPECT_EQ(box.View().Text(1138), "_trenches");
    box.Press(fk::ui::IDOK);
  });
  EXPECT_THAT(Run(1, TrenchWiz, 1), Contains("TV.InterfaceCOM 41 flags=0 3:1 3:12 " + TextList({"_trenches"})));
  m_ui.Prompts().Clear();
  NamedSeries("_trenches", fk::ui::IDYES);
  const std::vector<std::string> again = Run(1, TrenchWiz, 1);
  EXPECT_EQ(m_ui.Prompts().Shown().at(0).text,
            "Trench series 'collars' is aready open in 3D. Do you wish to refresh the data?");
  EXPECT_THAT(again, IsSupersetOf(Lines{"TV.InterfaceCOM 47 flags=0 3:1 3:12 " + TextList({"_trenches"}) + " 4003:0",
                                        "TV.InterfaceCOM 46 flags=0 3:1 3:4 400c:[c;0|8:\"_trenches\",b:true]"}));

  // The viewer refuses a file: the guard's text, the viewer's own, and 0.
  m_ui.Prompts().Clear();
  const std::string missing = m_folder.Path() + "/gone.tab";
  const std::vector<std::string> refused = Run(0, TrenchWiz, 0, missing);
  EXPECT_THAT(m_ui.Prompts().Shown(), testing::SizeIs(2));
  EXPECT_EQ(m_ui.Prompts().Shown().at(0).text, "Select Trenches Exception");
  EXPECT_THAT(m_ui.Prompts().Shown().at(1).text, HasSubstr(missing));
  EXPECT_EQ(Members(refused).back(), "TV.InterfaceCOM 2") << "the viewer is left detached";
}

}  // namespace
