// The products' registry values: keys per variant, defaults and formats.
// Writers in several processes at once are tested on the store itself
// (tests/platform/registry_test.cpp).
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "formkit/formkit.h"
#include "host/cartoma.h"
#include "platform/registry/registry.h"
#include "settings/last_version.h"
#include "settings/open_grids.h"
#include "support/host/scripted_host.h"
#include "support/session_fixture.h"

namespace {

constexpr fk::Hive kUser = fk::Hive::CurrentUser;

std::optional<std::string> Stored(const char* key, const char* name) {
  return fk::Registry::QueryString(kUser, key, name);
}

using RegistrySettingsTest = SessionTest;

TEST_F(RegistrySettingsTest, TheViewerVersionAndDirectoriesGoToTheKeysOfTheirProduct) {
  EXPECT_EQ(GetLastVersion(), "3.0");
  EXPECT_EQ(SetLastVersion("4.2.1"), 1);
  EXPECT_EQ(Stored("Software\\Orvex\\Terravik\\Setup", "LastVersion"), "4.2.1");
  g_Cartoma.m_nProductVariant = 1;
  EXPECT_EQ(GetLastVersion(), "3.0") << "each product has its own key";
  g_Cartoma.m_nProductVariant = 4;
  EXPECT_EQ(SetLastVersion("5.0"), 0);
  EXPECT_EQ(GetLastVersion(), "3.0");

  g_Cartoma.m_nProductVariant = 7;
  EXPECT_EQ(SaveConfigDirInRegistry("/srv/config"), 1);
  EXPECT_EQ(Stored("Software\\Orvex\\Terravik\\Setup", "ConfigDir"), "/srv/config") << "out of range counts as Terravik";

  g_Cartoma.m_nProductVariant = 0;
  EXPECT_EQ(SaveProjectDirectoryInRegistry("C:\\Projects\\Pit"), 1);
  EXPECT_EQ(Stored("Software\\Orvex\\Terravik 3D\\Settings", "PROJECT_FOLDER"), "C:\\Projects\\Pit\\");
  EXPECT_EQ(SaveProjectDirectoryInRegistry("/home/ana/pit/"), 1);
  EXPECT_EQ(Stored("Software\\Orvex\\Terravik 3D\\Settings", "PROJECT_FOLDER"), "/home/ana/pit/");

  ScriptedHost host;
  host.AddScript("zelvar3d.cbx");
  ASSERT_EQ(g_Cartoma.Connect(host.Handle(), 0), 1);
  EXPECT_EQ(SaveProjectDirectoryInRegistry("D:\\Work"), 1);
  EXPECT_EQ(Stored("Software\\Orvex\\Zelvar3D\\Settings", "PROJECT_FOLDER"), "D:\\Work\\")
      << "the product whose script runs in the host";
}

TEST_F(RegistrySettingsTest, OpenGridsAreListedBesideTheirTables) {
  ScopedFolder folder;
  const std::string dem = folder.Write("maps/dem.tab", "  File \"rasters\\Dem.grd\"\n  RasterStyle 6 1\n");
  const std::string photo = folder.Write("maps/photo.tab", "  File \"photo.jpg\"\n");
  const std::string slope = folder.Write("slope.TAB", "  File \"slope.grd\"\n  RasterStyle 6 1\n");
  ScriptedHost host;
  ASSERT_EQ(g_Cartoma.Connect(host.Handle(), 0), 1);
  host.Answers().Answer({{"NumTables()", "3"}, {"TableInfo(1, 1)", "DEM"}, {"TableInfo(2, 1)", "Photo"},
                         {"TableInfo(3, 1)", "Slope"}, {"TableInfo(DEM, 19)", dem}, {"TableInfo(Photo, 19)", photo},
                         {"TableInfo(Slope, 19)", slope}});

  EXPECT_EQ(GetOpenGridList(), folder.Path() + "/maps/DEM.GRD|" + folder.Path() + "/SLOPE.GRD");
  EXPECT_EQ(SaveAllOpenGridsInRegistry(), 1);
  EXPECT_EQ(Stored("Software\\Orvex\\Terravik\\Messages", "GRID_LIST"), GetOpenGridList());
  EXPECT_EQ(ClearAllOpenGridsInRegistry(), 1);
  EXPECT_EQ(Stored("Software\\Orvex\\Terravik\\Messages", "GRID_LIST"), "");

  host.Answers().Answer("NumTables()", "0");
  fk::Registry::SetString(kUser, "Software\\Orvex\\Terravik\\Messages", "GRID_LIST", "stale");
  EXPECT_EQ(SaveAllOpenGridsInRegistry(), 1);
  EXPECT_EQ(Stored("Software\\Orvex\\Terravik\\Messages", "GRID_LIST"), "") << "no grid open: the empty text";
}

}  // namespace

