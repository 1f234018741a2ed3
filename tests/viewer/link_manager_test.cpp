// The 3D link manager against the viewer simulator: each change of a row's
// check reaches the viewer at once, and the save makes one permanent OGB
// file of the checked rows with their images beside it.
#include <filesystem>
#include <string>
#include <vector>

#include "formkit/formkit.h"
#include "support/viewer_program.h"
#include "viewer/viewer_link.h"

namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Not;

constexpr int kLinks = 1094;

class ViewerProgramLinks : public ViewerProgram {
 protected:
  void SetUp() override {
    ViewerProgram::SetUp();
    theApp.m_TempFiles.clear();  // records of earlier tests in this process
  }
  std::vector<std::string> CallsSinceMark() {
    const std::vector<std::string> members = Members(Calls());
    std::vector<std::string> fresh(members.begin() + static_cast<std::ptrdiff_t>(m_nMark), members.end());
    m_nMark = members.size();
    return fresh;
  }
  // Whether the viewer holds `file` as an image, asked over a link of the test's own.
  static bool Shown(const std::string& file) {
    CViewerLink viewer;
    if (!viewer.Attach()) return false;
    const bool shown = viewer.ObjectExists(viewer.GetMapWindow(true), file, 6) != 0;
    viewer.Detach();
    return shown;
  }
  static std::vector<std::string> Rows(const fk::ui::HeadlessDialog& box) {
    std::vector<std::string> rows;
    for (int row = 0; row < box.View().ListCtrlRowCount(kLinks); ++row)
      rows.push_back(box.View().ListCtrlText(kLinks, row, 0) + (box.View().ListCtrlCheck(kLinks, row) ? " on" : " off") +
                     " part " + std::to_string(box.View().ListCtrlData(kLinks, row)));
    return rows;
  }

  std::size_t m_nMark = 0;
};

std::string ImagePart(const std::string& image) {
  return "GeoreferenceImage Begin\n  Image = \"" + image + "\"\nGeoreferenceImage End\n";
}

TEST_F(ViewerProgramLinks, ChecksSwitchFilesAndPartsInTheViewerAndTheSaveKeepsTheCheckedOnes) {
  EXPECT_EQ(TempFileManager(), 0) << "no viewer: no box";
  ASSERT_EQ(m_ui.Prompts().Shown().size(), 1u);
  EXPECT_EQ(m_ui.Prompts().Shown()[0].text, "3D window is not currently running. There are no links active.");

  std::filesystem::create_directories(m_folder.Path() + "/kept");
  const std::string one = m_folder.Write("parts/hole one.ogb", ImagePart("hole one.jpg"));
  const std::string two = m_folder.Write("parts/hole two.ogb", ImagePart("hole two.jpg"));
  const std::string plain = m_folder.Write("parts/plain.ogb", ImagePart("plain.png"));
  for (const char* image : {"parts/hole one.jpg", "parts/hole two.jpg", "parts/plain.png"}) m_folder.Write(image, image);
  const std::string composite = m_folder.Path() + "/parts/logs.ogb";
  const std::string kept = m_folder.Path() + "/kept/kept.ogb";
  ASSERT_GT(ExecuteTerravik3D(), 0);
  ASSERT_EQ(AddOGBFilePart(composite.c_str(), one.c_str(), 1), 1);
  ASSERT_EQ(AddOGBFilePart(composite.c_str(), two.c_str(), 1), 1);
  ASSERT_EQ(LoadOGBFile(plain.c_str()), 1);
  m_ui.Prompts().AnswerPath(kept);

  m_ui.OnDialog(1016, [&](fk::ui::HeadlessDialog& box) {
    EXPECT_THAT(Rows(box), ElementsAre("hole one on part 0", "hole two on part 1", "plain on part 0"));
    CallsSinceMark();
    box.CheckRow(kLinks, 0, false);
    EXPECT_EQ(ReadFile(composite), OnDisk(ReadFile(two))) << "the composite is rewritten from its used part";
    EXPECT_THAT(CallsSinceMark(), Contains("TV.InterfaceCOM 41")) << "the changed composite is shown again";
    EXPECT_TRUE(Shown(composite));

    box.CheckRow(kLinks, 1, false);
    const std::vector<std::string> lastPartOff = CallsSinceMark();
    EXPECT_THAT(lastPartOff, Contains("TV.InterfaceCOM 46"));
    EXPECT_THAT(lastPartOff, Not(Contains("TV.InterfaceCOM 41")));
    EXPECT_EQ(lastPartOff.back(), "TV.InterfaceCOM 2") << "each change ends its session";
    EXPECT_FALSE(Shown(composite)) << "no used part: the file leaves the viewer";

    box.CheckRow(kLinks, 1, true);
    EXPECT_TRUE(Shown(composite)) << "a part checked again shows the file";
    box.CheckRow(kLinks, 2, false);
    EXPECT_FALSE(Shown(plain));
    box.CheckRow(kLinks, 2, true);
    EXPECT_TRUE(Shown(plain)) << "a plain file comes back";

    box.Press(1004);
    EXPECT_THAT(Rows(box), ElementsAre("hole one off part 0", "hole two on part 1", "plain on part 0", "kept off part 0"))
        << "the list is filled again with the saved file, which the viewer does not show";
    box.Press(1);
  });
  EXPECT_EQ(TempFileManager(), 1) << "closed with Close";

  EXPECT_EQ(ReadFile(kept), OnDisk(ReadFile(two) + ReadFile(plain))) << "the checked rows, in order";
  EXPECT_EQ(ReadFile(m_folder.Path() + "/kept/hole two.jpg"), "parts/hole two.jpg");
  EXPECT_EQ(ReadFile(m_folder.Path() + "/kept/plain.png"), "parts/plain.png");
  EXPECT_FALSE(std::filesystem::exists(m_folder.Path() + "/kept/hole one.jpg")) << "an unchecked part's image stays";
  ASSERT_EQ(m_ui.Ran().size(), 1u);
  EXPECT_EQ(m_ui.Ran()[0].title, "Terravik 3D Link Manager");
  ShutdownTerravik3D();
}

}  // namespace
