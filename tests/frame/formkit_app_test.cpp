// The application object: the product name, the eight settings and where
// they are read from, and the profile switch that follows the product
// script found in the host.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "formkit/formkit.h"
#include "frame/formkit_app.h"
#include "host/cartoma.h"
#include "platform/registry/registry.h"
#include "support/formkit_library.h"
#include "support/host/scripted_host.h"
#include "support/session_fixture.h"

using ::testing::ElementsAre;

namespace {

constexpr fk::Hive kUser = fk::Hive::CurrentUser;

class FormkitAppTest : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    // The fields as module load leaves them with an empty registry.
    theApp.m_strGroupKey.clear();
    theApp.m_strAliasKey.clear();
    theApp.m_bUseNameAlias = 0;
    theApp.m_strDXFSelectionFile = "c:\\Selection.dxf";
    theApp.m_bShowHelp = 0;
    theApp.m_strPreferredProj.clear();
    theApp.m_strPreferredProjDesc.clear();
    theApp.m_bProjMapping = 0;
    theApp.InitInstance();
  }
};

TEST_F(FormkitAppTest, ModuleStartReadsTheSharedProfileAndTheProductNameSelectsTheVariant) {
  const char* shared = "Software\\Orvex\\Shared\\Setup";
  fk::Registry::SetString(kUser, shared, "GroupKey", "group-1");
  fk::Registry::SetString(kUser, shared, "dxfselectionfile", "/data/sel.dxf");
  fk::Registry::SetDword(kUser, shared, "ShowHelp", 1);
  fk::Registry::SetDword(kUser, shared, "ProjMapping", 1);
  fk::Registry::SetString(kUser, shared, "PreferredProj", "CoordSys Earth Projection 1, 104");
  fk::Registry::SetString(kUser, shared, "UseNameAlias", "1");  // not a number value: ignored

  theApp.InitInstance();
  EXPECT_EQ(theApp.RegistryKey() + "|" + theApp.ProfileName() + "|" + theApp.m_strGroupKey + "|" +
                theApp.m_strDXFSelectionFile + "|" + theApp.m_strPreferredProj + "|" + theApp.m_strAliasKey,
            "Orvex|Shared|group-1|/data/sel.dxf|CoordSys Earth Projection 1, 104|");
  EXPECT_THAT((std::vector{theApp.m_bShowHelp, theApp.m_bProjMapping, theApp.m_bUseNameAlias}), ElementsAre(1, 1, 0));

  // The product name selects the variant, ignoring case.
  EXPECT_EQ(InitFormkitInstance("ZELVAR"), 1);
  EXPECT_EQ(g_Cartoma.m_nProductVariant, 1);
  EXPECT_EQ(InitFormkitInstance("Terravik3D"), 1) << "an unknown name is no error";
  EXPECT_EQ(g_Cartoma.m_nProductVariant, 1);
  EXPECT_EQ(theApp.m_strProduct, "Terravik3D");
  EXPECT_EQ(InitFormkitInstance(nullptr), 1);
}

TEST_F(FormkitAppTest, ConnectingFindsTheProductAndReloadsFromItsKeyKeepingWhatOnlySharedHad) {
  fk::Registry::SetString(kUser, "Software\\Orvex\\Shared\\Setup", "AliasKey", "alias-shared");
  fk::Registry::SetString(kUser, "Software\\Orvex\\Shared\\Setup", "GroupKey", "group-shared");
  theApp.InitInstance();
  fk::Registry::SetString(kUser, "Software\\Orvex\\Vigilprofiler\\Setup", "GroupKey", "group-vigil");
  fk::Registry::SetDword(kUser, "Software\\Orvex\\Vigilprofiler\\Setup", "ShowHelp", 1);

  ScriptedHost host;
  host.Emulator().AddScript("utilities.cbx");
  InitFormkitInstance("Terravik");
  ASSERT_EQ(ConnectToCartoma(host.Handle()), 1);
  EXPECT_EQ(g_Cartoma.m_nProductVariant, 3);
  EXPECT_EQ(theApp.ProfileName(), "Vigilprofiler");
  EXPECT_EQ(theApp.m_strGroupKey, "group-vigil");
  EXPECT_EQ(theApp.m_bShowHelp, 1);
  EXPECT_EQ(theApp.m_strAliasKey, "alias-shared") << "a value only the first source had is kept";

  fk::Registry::SetString(kUser, "Software\\Orvex\\Custom\\Setup", "GroupKey", "group-custom");
  theApp.SwitchProfile("Custom");
  EXPECT_EQ(theApp.ProfileName(), "Custom") << "a named profile switch reads that profile";
  EXPECT_EQ(theApp.m_strGroupKey, "group-custom");
}

TEST_F(FormkitAppTest, WithoutAProductScriptTheNamedProductsProfileAppliesAndWithoutTheCheckNone) {
  ScriptedHost host;
  host.Emulator().AddScript("zelvar.cbx");
  ASSERT_EQ(ConnectToCartomaWithoutAppCheck(host.Handle()), 1);
  EXPECT_EQ(theApp.ProfileName(), "Shared");
  EXPECT_EQ(g_Cartoma.m_nProductVariant, 0);
  EXPECT_TRUE(host.Transcript().empty());
  ResetSession();

  fk::Registry::SetString(kUser, "Software\\Orvex\\Zelvar3D\\Setup", "PreferredProjDesc", "Local grid");
  ScriptedHost bare;
  InitFormkitInstance("Zelvar3D");
  ASSERT_EQ(ConnectToCartoma(bare.Handle()), 1);
  EXPECT_EQ(theApp.ProfileName(), "Zelvar3D");
  EXPECT_EQ(theApp.m_strPreferredProjDesc, "Local grid");
}

// The module starts while the host loads it. A registry it can't open leaves
// the defaults: the library loads and its exports answer all the same.
TEST(ModuleStartTest, ARegistryThatCantBeOpenedLeavesTheLibraryUsable) {
  ScopedRegistry registry;
  ScopedFolder folder;
  std::filesystem::create_directories(folder.Path() + "/hive-is-a-folder/user.db");
  folder.Write("not-a-database/user.db", "not a database");
  const std::string registries[] = {folder.Write("a-file", "where the registry's folder should be"),
                                    folder.Path() + "/hive-is-a-folder", folder.Path() + "/not-a-database"};
  for (const std::string& unusable : registries) {
    setenv("FORMKIT_REGISTRY_DIR", unusable.c_str(), 1);
    FormkitLibrary library;  // a fresh module, started with this registry
    EXPECT_EQ(FORMKIT_EXPORT(library, InitFormkitInstance)("Terravik"), 1) << unusable;
    EXPECT_EQ(FORMKIT_EXPORT(library, SetRSSRegistry)(3), 1) << unusable;
    EXPECT_EQ(FORMKIT_EXPORT(library, GetRSSRegistry)(), 7) << "nothing was written, the default stays: " << unusable;
  }
}

}  // namespace
