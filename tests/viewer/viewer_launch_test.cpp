// Starting the viewer where its installer recorded it: what a missing or
// wrong record gives, before anything is started.
#include <gtest/gtest.h>

#include "platform/registry/registry.h"
#include "support/session_fixture.h"
#include "viewer/viewer_link.h"

namespace {

class ViewerLaunch : public HeadlessTest {};

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

}  // namespace
