// Coordinate clauses and style texts: what the host writes back, the names
// it shows, what PROJ is given, and the fields the library reads from styles.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "sim/host/coordsys.h"
#include "sim/host/errors.h"
#include "sim/host/styles.h"
#include "sim/host/tokenizer.h"

using sim::CoordSys;
using sim::ParseCoordSysText;

namespace {

TEST(CoordSysClauses, ClausesReadBackAsTheHostWritesThem) {
  const std::pair<const char*, const char*> cases[] = {
      {"Earth Projection 1, 104", "Earth Projection 1, 104"},
      {"CoordSys EARTH PROJECTION 1, 116", "Earth Projection 1, 116"},
      {"Earth Projection 8, 116, \"M\", 147, 0, 0.9996, 500000, 10000000",
       "Earth Projection 8, 116, \"m\", 147, 0, 0.9996, 500000, 10000000"},
      {"NonEarth Units \"ft\" Bounds (-10, -10.5) (1000, 2000)",
       "NonEarth Units \"ft\" Bounds (-10, -10.5) (1000, 2000)"},
  };
  for (const auto& [text, clause] : cases) EXPECT_EQ(ParseCoordSysText(text).Clause(), clause) << text;
}

TEST(CoordSysClauses, NamesAndProjDefinitions) {
  const struct {
    const char* clause;
    const char* name;
    const char* proj;
  } cases[] = {
      {"Earth Projection 1, 104", "Longitude / Latitude (WGS 84)", "EPSG:4326"},
      {"Earth Projection 1, 116", "Longitude / Latitude (GDA94)", "EPSG:4283"},
      {"Earth Projection 8, 104, \"m\", 147, 0, 0.9996, 500000, 10000000",
       "Universal Transverse Mercator (WGS 84) Zone 55 South", "EPSG:32755"},
      {"Earth Projection 8, 104, \"m\", -3, 0, 0.9996, 500000, 0",
       "Universal Transverse Mercator (WGS 84) Zone 30 North", "EPSG:32630"},
      {"Earth Projection 8, 116, \"m\", 153, 0, 0.9996, 500000, 10000000", "Map Grid of Australia (GDA94) Zone 56",
       "EPSG:28356"},
      {"NonEarth Units \"m\"", "Non-Earth (m)", ""},
  };
  for (const auto& c : cases) {
    const CoordSys cs = ParseCoordSysText(c.clause);
    EXPECT_EQ(cs.Name(), c.name) << c.clause;
    EXPECT_EQ(cs.ProjDefinition(), c.proj) << c.clause;
  }
  // A transverse Mercator that is no UTM zone goes to PROJ by its parameters.
  const CoordSys local = ParseCoordSysText("Earth Projection 8, 116, \"km\", 145.5, -10, 1, 300, 200");
  EXPECT_EQ(local.Name(), "Transverse Mercator (GDA94)");
  EXPECT_THAT(local.ProjDefinition(), ::testing::HasSubstr("+lon_0=145.5 +k=1 +x_0=300000 +y_0=200000"));
  EXPECT_THAT(local.ProjDefinition(), ::testing::HasSubstr("+units=km"));
  EXPECT_TRUE(local.SameSystem(
      ParseCoordSysText("Earth Projection 8, 116, \"km\", 145.5, -10, 1, 300, 200 Bounds (0,0) (1,1)")));
}

TEST(Styles, TextsReadBackAndColoursSitWhereTheLibraryLooks) {
  const struct {
    const char* text;
    const char* written;
    int colour;
  } cases[] = {
      {"Pen (1,2,255)", "Pen (1,2,255)", 255},
      {"MakePen(2, 5, 16711680)", "Pen (2,5,16711680)", 16711680},
      {"Brush (2, 65280, 0)", "Brush (2,65280,0)", 65280},
      {"Symbol (35,255,12)", "Symbol (35,255,12)", 255},
      {"Symbol (65, 1193046, 14, \"Arial \"\"Bold\"\"\", 1, 45.5)",
       "Symbol (65,1193046,14,\"Arial \"\"Bold\"\"\",1,45.5)", 1193046},
      {"MakeFont(\"Arial\", 1, 255, 12)", "Font (\"Arial\",1,255,12)", 255},
  };
  for (const auto& c : cases) {
    const sim::Style style = sim::ParseStyleText(c.text);
    EXPECT_EQ(style.Text(), c.written) << c.text;
    EXPECT_EQ(style.Colour(), c.colour) << c.text;
    EXPECT_EQ(sim::ParseStyleText(style.Text()), style) << "the written text reads back the same";
  }
  EXPECT_THROW(sim::ParseStyleText("Pen (1,2)"), sim::HostError);
  EXPECT_THROW(sim::ParseStyleText("Symbol (\"Arial\",1,2)"), sim::HostError);
  EXPECT_THROW(sim::ParseStyleText("Shade (1,2,3)"), sim::HostError);
  EXPECT_THROW(sim::ParseStyleText("Pen (1,2,3"), sim::HostError);
}

TEST(Tokens, NumbersTextsAndNames) {
  const auto tokens = sim::Tokenize("PathToTableName$(\"a \"\"b\"\"\") <= -1.5e3 .25 x_1");
  ASSERT_EQ(tokens.size(), 10u);
  EXPECT_EQ(tokens[0].text, "PathToTableName$");
  EXPECT_EQ(tokens[2].text, "a \"b\"");
  EXPECT_EQ(tokens[4].text, "<=");
  EXPECT_EQ(tokens[6].number, 1500);
  EXPECT_EQ(tokens[7].number, 0.25);
  EXPECT_EQ(tokens[8].text, "x_1");
  EXPECT_THROW(sim::Tokenize("a # b"), sim::SyntaxError);
}

}  // namespace
