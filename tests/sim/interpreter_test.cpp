// Tables and objects in the interpreter: typed columns, rows, selections
// run as SQL, the fetch cursor and the catalogue answers the library reads;
// objects made, their kinds, styles and nodes, the current coordinate system
// they are read in, and the current styles.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "sim/sim_fixture.h"

using ::testing::HasSubstr;

namespace {

class Tables : public SimTest {
 protected:
  void SetUp() override {
    Do("Create Table Holes (HoleID Char (6), Depth Float, Grade Decimal (6, 2), Samples Integer, Assayed Logical)");
    Do("Insert Into Holes Values(\"DH3\", 30.5, 1.234, 4, \"T\")");
    Do("Insert Into Holes Values(\"DH1\", 12, 0.5, 2, \"F\")");
    Do("Insert Into Holes (HoleID, Depth) Values(\"DH2-LONG-NAME\", 7)");
  }
  // The values of one column over all rows, fetched one by one as the library does.
  std::vector<std::string> Column(const std::string& table, const std::string& column) {
    std::vector<std::string> values;
    const int rows = std::stoi(Eval("TableInfo(" + table + ", 8)"));
    for (int row = 1; row <= rows; ++row) {
      Do("Fetch Rec " + std::to_string(row) + " From " + table);
      values.push_back(Eval(table + "." + column));
    }
    return values;
  }
};

TEST_F(Tables, ValuesTakeTheTypesOfTheirColumns) {
  EXPECT_THAT(Column("Holes", "HoleID"), ::testing::ElementsAre("DH3", "DH1", "DH2-LO")) << "Char (6) cuts";
  EXPECT_THAT(Column("Holes", "COL3"), ::testing::ElementsAre("1.23", "0.5", "0")) << "Decimal (6, 2) rounds";
  EXPECT_THAT(Column("Holes", "Assayed"), ::testing::ElementsAre("T", "F", "F"));
  EXPECT_THAT(DoError("Insert Into Holes (Depth) Values(\"deep\")"), HasSubstr("\"deep\" is not a number"));
  EXPECT_EQ(Eval("TableInfo(Holes, 8)"), "3") << "a refused row is not added";
}

TEST_F(Tables, TheCatalogueAnswersByNumberByNameAndForTheLastTable) {
  Do("Create Table Other (A Integer)");
  // Table 0 is the table made last; a table made by Create Table has no map.
  ExpectAnswers({{"NumTables()", "2"}, {"TableInfo(2, 1)", "Other"}, {"TableInfo(0, 1)", "Other"},
                 {"TableInfo(\"holes\", 4)", "5"}, {"TableInfo(Holes, 5)", "F"}, {"TableInfo(Holes, 7)", "F"},
                 {"ColumnInfo(Holes, COL3, 3)", "2"}, {"ColumnInfo(Holes, \"Grade\", 5)", "2"},
                 {"ColumnInfo(Holes, COL1, 4)", "6"}, {"ColumnInfo(Holes, COL5, 1)", "Assayed"}});
  EXPECT_EQ(DoError("Fetch Rec 1 From Nothing"), "Table Nothing is not open");
  EXPECT_THAT(DoError("Select Nope From Holes"), HasSubstr("Nope"));
  EXPECT_EQ(Eval("NumTables()"), "2") << "a failed selection leaves no table behind";
}

TEST_F(Tables, SelectionsFillTablesFilterOrderJoinAndBecomeTheSelection) {
  Do("Create Table Keys (ID Char (10))");
  Do("Insert Into Keys (ID) Select HoleID From Holes Where Depth > 10");
  ExpectAnswers({{"\"DH3\" In (Select ID From Keys)", "T"}, {"\"DH2-LO\" In (Select ID From Keys)", "F"}});
  EXPECT_EQ(Eval("NumTables()"), "2") << "the inner selection leaves no table";
  Do("SELECT * FROM Holes WHERE COL1 IN (SELECT COL1 FROM Keys) ORDER BY COL1 INTO Sub NoSelect");
  EXPECT_THAT(Column("Sub", "HoleID"), ::testing::ElementsAre("DH1", "DH3"));
  EXPECT_EQ(Eval("TableInfo(Sub, 7)"), "T");
  EXPECT_EQ(Eval("SelectionInfo(3)"), "0") << "NoSelect leaves the selection alone";

  Do("Select * From Holes Where Depth > 10 And Not Assayed Order By Depth Desc");
  Do("Fetch First From Selection");
  ExpectAnswers({{"SelectionInfo(1)", "Holes"}, {"SelectionInfo(3)", "1"}, {"Selection.HoleID", "DH1"}});

  Do("Select HoleID, Depth * 2 As Twice From Holes Where HoleID <> \"DH1\" Order By Twice Into Doubled");
  EXPECT_THAT(Column("Doubled", "Twice"), ::testing::ElementsAre("14", "61"));
  EXPECT_EQ(Eval("SelectionInfo(1)"), "Doubled") << "a selection of chosen columns is its own table";
  Do("Select Holes.HoleID, Depth From Holes, Keys Where Holes.HoleID = Keys.ID Order By Depth Into Joined");
  EXPECT_THAT(Column("Joined", "Depth"), ::testing::ElementsAre("12", "30.5"));
}

TEST_F(Tables, UpdateDeleteAndPackWorkRowByRowAndAFailureHalfwayChangesNoRow) {
  // The third row divides by zero: the first two stay as they were.
  EXPECT_EQ(DoError("Update Holes Set Depth = 100 / (Depth - 7)"), "Division by zero");
  EXPECT_THAT(Column("Holes", "Depth"), ::testing::ElementsAre("30.5", "12", "7"));
  Do("Update Holes Set Samples = Samples + 1, Grade = Depth / 10 Where Depth < 20");
  EXPECT_THAT(Column("Holes", "Samples"), ::testing::ElementsAre("4", "3", "1"));
  EXPECT_THAT(Column("Holes", "Grade"), ::testing::ElementsAre("1.23", "1.2", "0.7"));
  Do("Update Holes Set HoleID = \"X\" Where RowID = 1");
  Do("Delete From Holes Where HoleID = \"DH1\"");
  EXPECT_EQ(Eval("TableInfo(Holes, 8)"), "3") << "a deleted row keeps its number until the table is packed";
  Do("Pack Table Holes Graphic Data");
  EXPECT_THAT(Column("Holes", "HoleID"), ::testing::ElementsAre("X", "DH2-LO"));
  EXPECT_EQ(DoError("Fetch Rec 3 From Holes"), "Table Holes has 2 rows; there is no row 3");
  EXPECT_THAT(DoError("Holes.HoleID = 1"), HasSubstr("unknown statement Holes")) << "columns change by Update only";
}

TEST_F(Tables, AlterTableAndMetadata) {
  Do("Alter Table Holes (Add Lith Char (10) Rename Depth DepthTo)");
  ExpectAnswers({{"ColumnInfo(Holes, COL6, 1)", "Lith"}, {"ColumnInfo(Holes, COL2, 1)", "DepthTo"}});
  EXPECT_EQ(DoError("Alter Table Holes (Add Lith Integer)"), "Column Lith already exists in table Holes");
  Do("Alter Table Holes (Drop Samples)");
  EXPECT_EQ(Eval("TableInfo(Holes, 4)"), "5");
  EXPECT_THAT(Column("Holes", "Assayed"), ::testing::ElementsAre("T", "F", "F")) << "values stay with their columns";

  Do("Metadata Table Holes SetKey \"\\Terravik\\xsects\\type\" To \"Section\"");
  Do("Metadata Table Holes SetKey \"\\TERRAVIK\\xsects\\type\" To \"Plan\"");
  EXPECT_EQ(Eval("GetMetadata$(Holes, \"\\Terravik\\xsects\\type\")"), "Plan") << "keys compare ignoring case";
  EXPECT_EQ(Eval("GetMetadata$(Holes, \"\\Terravik\\none\")"), "") << "a missing key reads as empty";
}

class Objects : public SimTest {
 protected:
  void SetUp() override {
    Do("Set CoordSys NonEarth Units \"m\"");
    Do("Dim o As Object");
  }
};

TEST_F(Objects, EachKindAnswersItsNumberStyleAndGeography) {
  const struct {
    const char* create;
    const char* type;
    const char* mainStyle;
    const char* brush;
    const char* geography;  // codes 1 to 4
  } cases[] = {
      {"Create Point Into Variable o (3, 4) Symbol MakeSymbol(34, 255, 9)", "5", "Symbol (34,255,9)", "", "3 4 3 4"},
      {"Create Line Into Variable o (5, 1) (1, 6)", "3", "Pen (1,2,0)", "", "5 1 1 6"},
      {"Create Pline Into Variable o 3 (0,0) (4,1) (2,5)", "4", "Pen (1,2,0)", "", "0 0 4 5"},
      {"Create Region Into Variable o 1 3 (0,0) (4,1) (2,5) Brush MakeBrush(2, 65280, 0)", "7", "Pen (1,2,0)",
       "Brush (2,65280,0)", "0 0 4 5"},
      {"Create Rect Into Variable o (4, 4) (0, 1)", "8", "Pen (1,2,0)", "Brush (2,16777215,16777215)", "0 1 4 4"},
      {"Create RoundRect Into Variable o (0, 0) (4, 4) 1", "9", "Pen (1,2,0)", "Brush (2,16777215,16777215)",
       "0 0 4 4"},
      {"Create Ellipse Into Variable o (0, 0) (4, 2)", "2", "Pen (1,2,0)", "Brush (2,16777215,16777215)", "0 0 4 2"},
      {"Create Arc Into Variable o (0, 0) (4, 2) 0 90", "1", "Pen (1,2,0)", "", "0 0 4 2"},
      {"Create Text Into Variable o \"Hi\" (0, 0) (4, 2) Font MakeFont(\"Arial\", 1, 255, 12)", "10",
       "Font (\"Arial\",1,255,12)", "", "0 0 4 2"},
  };
  for (const auto& c : cases) {
    Do(c.create);
    EXPECT_EQ(Eval("ObjectInfo(o, 1)"), c.type) << c.create;
    EXPECT_EQ(Eval("ObjectInfo(o, 2)"), c.mainStyle) << c.create;
    EXPECT_EQ(Eval("ObjectInfo(o, 3)"), c.brush) << c.create;
    EXPECT_EQ(Eval("ObjectGeography(o, 1) & \" \" & ObjectGeography(o, 2) & \" \" & ObjectGeography(o, 3) & \" \" & "
                   "ObjectGeography(o, 4)"),
              c.geography)
        << c.create;
  }
}

TEST_F(Objects, NodesAreNumberedOverTheWholeObject) {
  Do("Create Region Into Variable o 2 4 (0,0) (10,0) (10,10) (0,10) 3 (2,2) (4,2) (3,4)");
  // Node 5 is the first of part 2.
  ExpectAnswers({{"ObjectInfo(o, 20)", "7"}, {"ObjectInfo(o, 21)", "2"}, {"ObjectNodeX(o, 1, 2)", "10"},
                 {"ObjectNodeX(o, 2, 5)", "2"}});
  EXPECT_THAT(DoError("Print ObjectNodeX(o, 1, 5)"),
              HasSubstr("Part 1 of the object holds nodes 1 to 4; node 5 is not in it"));
  EXPECT_THAT(DoError("Print ObjectNodeY(o, 2, 1)"), HasSubstr("node 1 is not in it"));
  EXPECT_THAT(DoError("Print ObjectNodeY(o, 3, 8)"), HasSubstr("there is no part 3"));
}

TEST_F(Objects, ObjectsAreReadInTheCurrentCoordinateSystem) {
  Do("Set CoordSys Earth Projection 1, 104");
  Do("Create Point Into Variable o (147.0, -37.0)");
  Do("Set CoordSys Earth Projection 8, 104, \"m\", 147, 0, 0.9996, 500000, 10000000");
  EXPECT_NEAR(std::stod(Eval("ObjectGeography(o, 1)")), 500000, 1e-6) << "on the central meridian";
  const double northing = std::stod(Eval("ObjectGeography(o, 2)"));
  EXPECT_NEAR(northing, 5905127.6, 1.0);
  Do("Set CoordSys Earth Projection 8, 104, \"km\", 147, 0, 0.9996, 500, 10000");
  EXPECT_NEAR(std::stod(Eval("ObjectGeography(o, 1)")), 500, 1e-9) << "in kilometres";
  EXPECT_NEAR(std::stod(Eval("ObjectGeography(o, 2)")), northing / 1000, 1e-9);
  Do("Set CoordSys NonEarth Units \"m\"");
  EXPECT_THAT(DoError("Print ObjectGeography(o, 1)"), HasSubstr("earth and non-earth"));
}

TEST_F(Objects, StylesAreChangedByAlterObjectAndCheckedByKind) {
  Do("Create Point Into Variable o (1, 1)");
  Do("Alter Object o Info 2, MakeFontSymbol(65, 255, 14, \"Arial\", 0, 45)");
  EXPECT_EQ(Eval("ObjectInfo(o, 2)"), "Symbol (65,255,14,\"Arial\",0,45)");
  EXPECT_THAT(DoError("Alter Object o Info 2, MakePen(1, 2, 3)"), HasSubstr("A point takes a symbol style"));
  EXPECT_THAT(DoError("Alter Object o Info 3, MakeBrush(2, 1, 1)"), HasSubstr("has no fill"));
  EXPECT_THAT(DoError("Alter Object o Info 2, MakeSymbol(1, 2)"), HasSubstr("needs 3 values, not 2"));
  EXPECT_EQ(Eval("ObjectInfo(o, 2)"), "Symbol (65,255,14,\"Arial\",0,45)") << "a refused change changes nothing";

  Do("Set Style Symbol (40, 16711680, 8)");
  Do("Set Style MakePen(3, 2, 255)");
  EXPECT_EQ(Eval("CurrentSymbol()"), "Symbol (40,16711680,8)");
  Do("Create Line Into Variable o (0, 0) (1, 1)");
  EXPECT_EQ(Eval("ObjectInfo(o, 2)"), "Pen (3,2,255)") << "a new object takes the current style";
}

TEST_F(Objects, VariablesMustBeDimmedAndHoldTheirType) {
  EXPECT_EQ(DoError("Create Point Into Variable q (1, 1)"), "Variable q is not defined; Dim it first");
  Do("Dim n As Float");
  EXPECT_EQ(DoError("Create Point Into Variable n (1, 1)"), "Variable n holds Float values; the value is an object");
  Do("n = 2.5 * 2");
  EXPECT_EQ(Eval("n + 1"), "6");
  Do("Dim o As Object");
  EXPECT_EQ(DoError("Print ObjectInfo(o, 1)"), "Variable o has no value yet") << "Dim again empties the variable";
  EXPECT_EQ(DoError("Dim o As Float"), "Variable o is already defined as Object");
}

TEST_F(Objects, ObjectsGoIntoTableRowsInTheTablesSystem) {
  Do("Set CoordSys NonEarth Units \"km\"");
  Do("Create Table Sites (Name Char (10))");
  Do("Insert Into Sites (Name) Values(\"A\")");
  Do("Set CoordSys NonEarth Units \"m\"");
  Do("Create Point Into Variable o (1500, 250)");
  Do("Update Sites Set Obj = o Where RowID = 1");
  Do("Fetch Rec 1 From Sites");
  Do("Set CoordSys Table Sites");
  Do("o = Sites.Obj");
  ExpectAnswers({{"ObjectGeography(o, 1)", "1.5"}, {"ObjectGeography(o, 2)", "0.25"}});
  Do("Insert Into Sites (Name) Values(\"B\")");
  Do("Fetch Rec 2 From Sites");
  Do("o = Sites.Obj");
  EXPECT_EQ(DoError("Print ObjectInfo(o, 1)"), "The first argument of ObjectInfo holds no object");
}

}  // namespace
