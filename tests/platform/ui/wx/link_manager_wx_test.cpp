// "3D Link Manager" on screen over the viewer simulator: the box opens from
// its export with a checked row for each part of a composite file the viewer
// shows. Its rules are tested headless (tests/viewer/).
#include <gtest/gtest.h>
#include <wx/listctrl.h>

#include "dialogs_met.h"
#include "formkit/formkit.h"
#include "support/viewer_program.h"
#include "toolkit_test.h"
#include "toolkit_user.h"

namespace {

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

TEST_F(LinkManagerWxTest, ListsThePartsOfAShownCompositeChecked) {
  ASSERT_GT(ExecuteTerravik3D(), 0);
  const std::string composite = m_folder.Path() + "/logs.ogb";
  for (const char* name : {"hole one", "hole two"}) {
    const std::string part = m_folder.Write(std::string(name) + ".ogb", "GeoreferenceImage Begin\n  Image = \"" +
                                                                           std::string(name) + ".jpg\"\nGeoreferenceImage End\n");
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
