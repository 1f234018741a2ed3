#include "sim/sim_fixture.h"

TEST_F(SimTest, Smoke) {
  Do("Open Table \"" + Sample("collars") + "\" As Collars Hide");
  EXPECT_EQ(Eval("NumTables()"), "1");
  EXPECT_EQ(Eval("TableInfo(Collars, 8)"), "5");
  Do("Fetch Rec 2 From Collars");
  EXPECT_EQ(Eval("Collars.COL1"), "BD002");
  EXPECT_EQ(Eval("TableInfo(1, 29)"), "Earth Projection 8, 116, \"m\", 147, 0, 0.9996, 500000, 10000000");
}
