// The 3D options: the session values with their kept quirks, read through
// the exports as a script reads them, and the property sheet run headless,
// with what it leaves in the registry read back with the value types.
#include <gtest/gtest.h>

#include "formkit/formkit.h"
#include "platform/registry/registry.h"
#include "support/formkit_library.h"
#include "support/session_fixture.h"
#include "viewer/tvik3d_options.h"

namespace {

using fk::Hive;
using fk::Registry;

constexpr const char* kSetup = "Software\\Orvex\\Shared\\Setup";

using ViewerOptionsExports = SessionTest;
using ViewerOptionsSheet = HeadlessTest;

TEST_F(ViewerOptionsExports, SessionValuesKeepTheirQuirks) {
  ASSERT_TRUE(Registry::SetDword(Hive::CurrentUser, kSetup, "ShowHelp", 1));
  FormkitLibrary library;
  ASSERT_EQ(FORMKIT_EXPORT(library, InitFormkitInstance)("Terravik"), 1);

  // Each setter pairs with its own getter; raster scaling is capped above only.
#define OPTION(name) FORMKIT_EXPORT(library, Tvik3DOptionsSet##name), FORMKIT_EXPORT(library, Tvik3DOptionsGet##name)
  const struct {
    int (*set)(int);
    int (*get)();
    int value, stored;
  } cases[] = {
      {OPTION(PointSize), 7, 7},       {OPTION(GridCompression), 11, 11}, {OPTION(CartomaParent), 1, 1},
      {OPTION(GridClipping), 0, 0},    {OPTION(Transparency), 40, 40},    {OPTION(RasterScaling), 9, 4},
      {OPTION(RasterScaling), -3, -3},
  };
#undef OPTION
  for (const auto& c : cases) {
    EXPECT_EQ(c.set(c.value), 1);
    EXPECT_EQ(c.get(), c.stored) << c.value;
  }

  EXPECT_EQ(FORMKIT_EXPORT(library, Tvik3DOptionsGetShowHelp)(), 1) << "loaded from the profile";
  EXPECT_EQ(FORMKIT_EXPORT(library, Tvik3DOptionsSetShowHelp)(1), 1);
  EXPECT_EQ(FORMKIT_EXPORT(library, Tvik3DOptionsGetShowHelp)(), 0) << "help can only be switched off";
  EXPECT_EQ(Registry::QueryDword(Hive::CurrentUser, kSetup, "ShowHelp"), 0u);

  // The projection: a bare clause gets its prefix; one naming Earth in any
  // case passes as it is; a text under five characters never maps.
  const auto setMapping = FORMKIT_EXPORT(library, Tvik3DOptionsSetProjMapping);
  const auto getMapping = FORMKIT_EXPORT(library, Tvik3DOptionsGetProjMapping);
  const struct {
    const char* projection;
    const char* shown;
    int mapping;
  } projections[] = {{"8, 33, \"m\", 147", "Earth Projection 8, 33, \"m\", 147", 1},
                     {"NonEarth Units \"m\"", "NonEarth Units \"m\"", 1},
                     {"earth projection 1, 104", "earth projection 1, 104", 1},
                     {"1, 0", "Earth Projection 1, 0", 0},
                     {"", "Earth Projection ", 0}};
  for (const auto& p : projections) {
    ASSERT_EQ(setMapping(1, p.projection, "Site grid"), 1);
    char shown[128] = "", description[64] = "";
    EXPECT_EQ(getMapping(shown, description), p.mapping) << p.projection;
    EXPECT_STREQ(shown, p.shown);
    EXPECT_STREQ(description, "Site grid");
    EXPECT_EQ(Registry::QueryString(Hive::CurrentUser, kSetup, "PreferredProj"), p.projection);
  }
  EXPECT_EQ(Registry::QueryDword(Hive::CurrentUser, kSetup, "ProjMapping"), 1u);
  EXPECT_EQ(Registry::QueryString(Hive::CurrentUser, kSetup, "PreferredProjDesc"), "Site grid");
}

// The sheet for the third product, over a registry that already holds one
// texture size; OK on both pages writes every value with its type.
TEST_F(ViewerOptionsSheet, WritesThePreferencesWithTheirTypesAndEndsTheMapping) {
  const std::string key = "Software\\Orvex\\Zelvar3D\\";
  ASSERT_TRUE(Registry::SetDword(Hive::CurrentUser, key + "TextureOptions", "NORMAL_SIZE", 12));
  int pointSize = 5, compression = 30, scaling = 2, parent = 0, clipping = 1, transparency = 0, help = 1, mapping = 1;
  std::string projection = "8, 33", description = "Site grid";
  const ViewerOptions options{pointSize, compression, scaling,    parent,      clipping,
                              transparency, help,     mapping,    projection,  description,
                              fk::Profile("Orvex", "Shared")};
  m_ui.OnDialog(1024, [](fk::ui::HeadlessDialog& page) {
    const fk::ui::DialogView& view = page.View();
    if (view.Title() == "System") {
      EXPECT_EQ(view.Text(1034), "30");
      EXPECT_EQ(view.Check(1118), 1);
      EXPECT_EQ(view.ComboCurSel(1037), 1);
      EXPECT_EQ(view.ComboCurSel(1111), 2) << "the default display of the axes";
      EXPECT_EQ(view.ComboCurSel(1133), 2) << "the stored size less 10";
      EXPECT_EQ(view.Text(1131), "2000");
      page.SetCheck(1015, 1);
      page.Type(1095, "/scratch/3d");
      page.Type(1034, "45");
      page.Type(1113, "East");
      page.Type(1131, "1500");
      page.ChooseCombo(1135, 3);
      page.ChooseCombo(1037, 0);
    } else {
      EXPECT_EQ(view.Title(), "Display");
      EXPECT_EQ(view.Text(1051), "Site grid");
      EXPECT_EQ(view.Check(1110), 1);
      page.Type(1036, "9");
      page.Type(1035, "8");
      page.Type(1116, "640");
    }
    page.PressSheetButton(fk::ui::IDOK);
  });
  CViewerLink viewer;
  std::string tempDirectory = "/tmp/";
  int deleteOnExit = 0;
  ASSERT_EQ(RunTvik3DOptions(options, 2, viewer, tempDirectory, deleteOnExit), fk::ui::IDOK);
  EXPECT_EQ(tempDirectory, "/scratch/3d");
  EXPECT_EQ(deleteOnExit, 1);
  EXPECT_EQ((std::vector{compression, clipping, scaling, pointSize, help, mapping}),
            (std::vector{45, 0, 4, 8, 0, 0}))
      << "OK stores 4 for a larger scaling, turns help off and ends the mapping";
  EXPECT_EQ(Registry::QueryDword(Hive::CurrentUser, kSetup, "ProjMapping"), 0u);
  EXPECT_EQ(Registry::QueryString(Hive::CurrentUser, kSetup, "PreferredProj"), "8, 33");

  const struct {
    const char* subkey;
    const char* name;
    std::uint32_t type;
    std::string text;
    std::uint32_t dword;
  } written[] = {{"Properties", "XYZMODE", fk::REG_DWORD, "", 2},   {"Properties", "XYZPOSITION", fk::REG_DWORD, "", 3},
                 {"Properties", "XLABEL", fk::REG_SZ, "East", 0},   {"Properties", "ZLABEL", fk::REG_SZ, "Z", 0},
                 {"Properties", "RASTERWIDTH", fk::REG_DWORD, "", 640}, {"Properties", "RASTERHEIGHT", fk::REG_DWORD, "", 0},
                 {"GridOptions", "MAX_COLUMNS", fk::REG_DWORD, "", 1500}, {"GridOptions", "MAX_ROWS_3D", fk::REG_DWORD, "", 400},
                 {"TextureOptions", "NORMAL_SIZE", fk::REG_DWORD, "", 12}, {"TextureOptions", "MAXIMUM_SIZE", fk::REG_DWORD, "", 13}};
  for (const auto& w : written) {
    const auto value = Registry::QueryValue(Hive::CurrentUser, key + w.subkey, w.name);
    ASSERT_TRUE(value.has_value()) << w.name;
    EXPECT_EQ(value->type, w.type) << w.name;
    EXPECT_EQ(value->text, w.text) << w.name;
    EXPECT_EQ(value->dword, w.dword) << w.name;
  }
}

}  // namespace
