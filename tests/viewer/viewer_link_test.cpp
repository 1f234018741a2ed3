// CViewerLink without the viewer program: against a recording stand-in for
// the viewer object, what each wrapper gives without a viewer, the attach
// rules, and what never reaches the wire (empty lists, texts past 255
// characters); starting the viewer where its installer recorded it, when the
// record is missing or wrong; and process lookups by a case-blind part of a
// program's path.
#include "viewer/viewer_link.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cctype>
#include <filesystem>
#include <functional>
#include <span>

#include "platform/automation/class_registry.h"
#include "platform/automation/exceptions.h"
#include "platform/automation/safe_array.h"
#include "platform/registry/registry.h"
#include "support/session_fixture.h"
#include "viewer/win_process.h"

using ::testing::ElementsAre;

namespace {

// Answers every call with `answer` and keeps the dispatch ids and the text
// arguments of each.
class RecordingViewer : public fk::Dispatch {
 public:
  explicit RecordingViewer(std::int32_t answer) : m_answer(answer) {}
  fk::Variant Invoke(std::int32_t dispid, std::uint16_t, std::span<fk::Variant> args) override {
    ids.push_back(dispid);
    for (const fk::Variant& arg : args)
      if (arg.Type() == 8) texts.push_back(arg.ToText());
    return fk::Variant::Int(m_answer);
  }
  std::vector<std::int32_t> ids;
  std::vector<std::string> texts;

 private:
  std::int32_t m_answer;
};

class ViewerLinkTest : public ::testing::Test {
 protected:
  void Serve(std::int32_t answer, const char* progId = "TV.InterfaceCOM") {
    m_viewer = std::make_shared<RecordingViewer>(answer);
    fk::ClassRegistry::Instance().RegisterClass(progId, [this] { return m_viewer; });
  }
  void TearDown() override {
    fk::ClassRegistry::Instance().RevokeClass("TV.InterfaceCOM");
    fk::ClassRegistry::Instance().RevokeClass("TVD.InterfaceCOM");
  }

  std::shared_ptr<RecordingViewer> m_viewer;
  CViewerLink m_link;
};

TEST_F(ViewerLinkTest, WithoutAViewerEachWrapperGivesItsDefaultAndCallsNothing) {
  std::int32_t count = 7, found = 3;
  std::vector<std::string> names;
  std::vector<std::int32_t> kinds, thirds;
  const struct {
    const char* wrapper;
    std::function<std::int32_t()> call;
    std::int32_t expected;
  } kCases[] = {
      {"GetMapWindow", [&] { return m_link.GetMapWindow(true); }, -1},
      {"OpenFiles", [&] { return m_link.OpenFiles(1, {"a.tab"}, 7); }, -1},
      {"AddSeriesObject", [&] { return m_link.AddSeriesObject(1, 4, "s"); }, -1},
      {"ObjectExists", [&] { return m_link.ObjectExists(1, "a", 1); }, 0},
      {"RemoveFileObject", [&] { return m_link.RemoveFileObject(1, 2, "a"); }, -1},
      {"FindSeries", [&] { return m_link.FindSeries(1, 4, "s", found); }, -1},
      {"FindDataset", [&] { return m_link.FindDataset({"a.tab"}, 5); }, -1},
      {"ShowHelpPanel", [&] { return m_link.ShowHelpPanel(); }, 0},
      {"SetParentWindow", [&] { return m_link.SetParentWindow(9); }, -1},
      {"ListObjects", [&] { return m_link.ListObjects(1, count, names, kinds, thirds); }, -1},
      {"SendCommand", [&] { return m_link.SendCommand(0x8003); }, -1},
      {"ShowAllToolbars", [&] { return m_link.ShowAllToolbars(); }, -1},
      {"SelectObject", [&] { return m_link.SelectObject("a", 1); }, -1},
      {"SetAssociatedCoordSystem", [&] { return m_link.SetAssociatedCoordSystem("a", "b"); }, -1},
      {"GetProjectCount", [&] { return m_link.GetProjectCount(); }, 0},
      {"RefreshProject", [&] { return m_link.RefreshProject(0); }, -1},
      {"IsProjectOpen", [&] { return static_cast<std::int32_t>(m_link.IsProjectOpen(0)); }, 0},
      {"GetOpenProjectCount", [&] { return m_link.GetOpenProjectCount(); }, 0},
  };
  EXPECT_FALSE(m_link.Attach()) << "no viewer serves its objects";
  for (const auto& c : kCases) EXPECT_EQ(c.call(), c.expected) << c.wrapper;
  EXPECT_EQ(m_link.GetVersion(), "");
  EXPECT_EQ(found, 3);
  EXPECT_EQ(count, 7);
}

TEST_F(ViewerLinkTest, AttachCountsOnlyAnAnswerOfOneAndNeverNests) {
  Serve(2);
  EXPECT_FALSE(m_link.Attach());
  EXPECT_TRUE(m_link.IsAttached()) << "the dispatch stays held after a refused attach";
  EXPECT_FALSE(m_link.Attach());
  EXPECT_THAT(m_viewer->ids, ElementsAre(1)) << "an attached link attaches nothing more";
  m_link.Detach();
  EXPECT_FALSE(m_link.IsAttached());
  EXPECT_THAT(m_viewer->ids, ElementsAre(1, 2));
}

TEST_F(ViewerLinkTest, EmptyListsStayOffTheWireAndTextsAreCutTo255) {
  Serve(1, "TVD.InterfaceCOM");
  ASSERT_TRUE(m_link.Attach()) << "a debug build of the viewer serves when the release one does not";
  EXPECT_EQ(m_link.OpenFiles(1, {}, 7), 0);
  EXPECT_EQ(m_link.FindDataset({}, 5), -1);
  m_link.AddLineSeries(1, "s", 2, {});
  m_link.AddPointCloudSeries(1, "s", 2, {});
  m_link.SelectDrillholes(1, "s", 2, {});
  m_link.ShowHelpTopic(std::string(300, 'x'));
  EXPECT_THAT(m_viewer->ids, ElementsAre(1, 51));
  EXPECT_THAT(m_viewer->texts, ElementsAre(std::string(255, 'x')));
}

// Answers ListObjects with three lists from `lower` on: the names, and the
// kinds and third values, which may be `shorter` by one.
class ListingViewer : public fk::Dispatch {
 public:
  ListingViewer(std::int32_t lower, std::vector<std::string> names, bool shorter)
      : m_lower(lower), m_names(std::move(names)), m_shorter(shorter) {}
  fk::Variant Invoke(std::int32_t, std::uint16_t, std::span<fk::Variant> args) override {
    fk::SafeArray names(fk::VT_VARIANT, m_lower), kinds(fk::VT_I4, m_lower), thirds(fk::VT_I4, m_lower);
    for (std::size_t i = 0; i < m_names.size(); ++i) {
      names.Append(fk::Variant::Text(m_names[i]));
      if (m_shorter && i + 1 == m_names.size()) break;
      kinds.Append(fk::Variant::Int(static_cast<std::int32_t>(i) + 10));
      thirds.Append(fk::Variant::Int(0));
    }
    args[1].Assign(fk::Variant::Int(static_cast<std::int32_t>(m_names.size())));
    args[2].Assign(fk::Variant::Array(std::move(names)));
    args[3].Assign(fk::Variant::Array(std::move(kinds)));
    args[4].Assign(fk::Variant::Array(std::move(thirds)));
    return fk::Variant::Int(7);
  }

 private:
  std::int32_t m_lower;
  std::vector<std::string> m_names;
  bool m_shorter;
};

TEST_F(ViewerLinkTest, AListOfObjectsIsReadBetweenItsBoundsAndAShortKindListFails) {
  const struct {
    std::int32_t lower;
    std::vector<std::string> names;
    bool shorter;  // the call fails
  } kCases[] = {
      {5, {"a", "b", "c"}, false},
      {INT32_MAX, {"last index"}, false},
      {INT32_MAX - 1, {"a", "b"}, false},
      {0, {}, false},
      {0, {"a", "b"}, true},
  };
  for (const auto& c : kCases) {
    m_link.m_ViewerInterface.AttachDispatch(std::make_shared<ListingViewer>(c.lower, c.names, c.shorter));
    std::int32_t count = 0;
    std::vector<std::string> names{"stale"};
    std::vector<std::int32_t> kinds, thirds;
    if (c.shorter) {
      EXPECT_THROW(m_link.ListObjects(1, count, names, kinds, thirds), fk::OleException);
      continue;
    }
    EXPECT_EQ(m_link.ListObjects(1, count, names, kinds, thirds), 7);
    EXPECT_EQ(count, static_cast<std::int32_t>(c.names.size()));
    EXPECT_EQ(names, c.names) << "from " << c.lower;
    ASSERT_EQ(kinds.size(), c.names.size());
    EXPECT_TRUE(kinds.empty() || kinds.front() == 10) << "kinds read from the same index";
  }
}

using ViewerLaunch = HeadlessTest;

TEST_F(ViewerLaunch, AnIncompleteRecordIsReportedWithItsCode) {
  ScopedFolder folder;
  const std::string program = folder.Write("Terravik3D.exe", "");
  const struct {
    const char* product;  // null: the Terravik viewer
    const char* key;
    const char* programPath;  // null: no such value
    const char* installation;
    int code;
    const char* message;
  } kCases[] = {
      {nullptr, nullptr, nullptr, nullptr, -2, "Error - Could not locate Terravik3D"},
      {"Zelvar3D", nullptr, nullptr, nullptr, -2, "Error - Could not locate Zelvar3D"},
      {"Terravik3D", "Software\\Orvex\\Terravik 3D", "", nullptr, -2, "Error - Could not locate Terravik3D"},
      {nullptr, "Software\\Orvex\\Terravik 3D", "/nowhere/Terravik3D.exe", "/", -3,
       "Error - Could not locate Terravik3D"},
      {"zelvar3d", "Software\\Orvex\\Zelvar3D", nullptr, "/nowhere/", -3, "Error - Could not locate Zelvar3D"},
      {nullptr, "Software\\Orvex\\Terravik 3D", "program", "/nowhere/", -3, "Error - Could not locate Terravik3D"},
  };
  for (const auto& c : kCases) {
    fk::Registry::DeleteTree(fk::Hive::LocalMachine, "Software\\Orvex");
    if (c.key) fk::Registry::CreateKey(fk::Hive::LocalMachine, c.key);
    if (c.programPath)
      fk::Registry::SetString(fk::Hive::LocalMachine, c.key, "ProgramPath",
                              std::string(c.programPath) == "program" ? program : c.programPath);
    if (c.installation) fk::Registry::SetString(fk::Hive::LocalMachine, c.key, "Installation", c.installation);
    m_ui.Prompts().Clear();
    EXPECT_EQ(CViewerLink().LaunchViewer(c.product, nullptr), c.code) << c.message << " " << (c.key ? c.key : "");
    ASSERT_EQ(m_ui.Prompts().Shown().size(), 1u);
    EXPECT_EQ(m_ui.Prompts().Shown()[0].text, c.message);
  }
}

std::string Upper(std::string text) {
  for (char& c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return text;
}

TEST(WinProcess, NamesArePartsOfProgramPathsInAnyCase) {
  const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe");
  const std::string folder = self.parent_path().filename().string();  // "tests"
  const std::string file = self.filename().string();                  // "formkit_tests"
  const struct {
    std::string name;
    bool found;
  } kLookups[] = {
      {file, true},
      {"/" + folder + "/" + file, true},
      {Upper(file), true},
      {"/" + folder + "/", true},  // the folder alone matches too
      {"no-such-program-anywhere", false},
  };
  for (const auto& lookup : kLookups) {
    const int pid = CWinProcess().GetProcessIdByName(lookup.name);
    EXPECT_EQ(pid > 0, lookup.found) << lookup.name;
    if (!lookup.found) {
      EXPECT_EQ(pid, -1) << "a lookup that finds nothing answers -1";
    }
  }
  EXPECT_FALSE(CWinProcess().IsProcessRunning("")) << "an empty name runs nowhere";
  EXPECT_FALSE(CWinProcess().IsProcessRunning(file)) << "the name is looked for with \".exe\" behind it";
}

}  // namespace
