// Tables in the interpreter: typed columns, rows, selections run as SQL,
// the fetch cursor, and the catalogue answers the library reads.
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
  EXPECT_EQ(Eval("NumTables()"), "2");
  EXPECT_EQ(Eval("TableInfo(2, 1)"), "Other");
  EXPECT_EQ(Eval("TableInfo(0, 1)"), "Other") << "the table made last";
  EXPECT_EQ(Eval("TableInfo(\"holes\", 4)"), "5");
  EXPECT_EQ(Eval("TableInfo(Holes, 5)"), "F") << "a table made by Create Table has no map";
  EXPECT_EQ(Eval("TableInfo(Holes, 7)"), "F");
  EXPECT_EQ(Eval("ColumnInfo(Holes, COL3, 3)"), "2");
  EXPECT_EQ(Eval("ColumnInfo(Holes, \"Grade\", 5)"), "2");
  EXPECT_EQ(Eval("ColumnInfo(Holes, COL1, 4)"), "6");
  EXPECT_EQ(Eval("ColumnInfo(Holes, COL5, 1)"), "Assayed");
  EXPECT_EQ(DoError("Fetch Rec 1 From Nothing"), "Table Nothing is not open");
  EXPECT_THAT(DoError("Select Nope From Holes"), HasSubstr("Nope"));
  EXPECT_EQ(Eval("NumTables()"), "2") << "a failed selection leaves no table behind";
}

TEST_F(Tables, SelectionsFilterOrderAndBecomeTheSelection) {
  Do("Create Table Keys (ID Char (10))");
  Do("Insert Into Keys (ID) Values(\"DH1\")");
  Do("Insert Into Keys (ID) Values(\"DH3\")");
  Do("SELECT * FROM Holes WHERE COL1 IN (SELECT COL1 FROM Keys) ORDER BY COL1 INTO Sub NoSelect");
  EXPECT_THAT(Column("Sub", "HoleID"), ::testing::ElementsAre("DH1", "DH3"));
  EXPECT_EQ(Eval("TableInfo(Sub, 7)"), "T");
  EXPECT_EQ(Eval("SelectionInfo(3)"), "0") << "NoSelect leaves the selection alone";

  Do("Select * From Holes Where Depth > 10 And Not Assayed Order By Depth Desc");
  EXPECT_EQ(Eval("SelectionInfo(1)"), "Holes");
  EXPECT_EQ(Eval("SelectionInfo(3)"), "1");
  Do("Fetch First From Selection");
  EXPECT_EQ(Eval("Selection.HoleID"), "DH1");

  Do("Select HoleID, Depth * 2 As Twice From Holes Where HoleID <> \"DH1\" Order By Twice Into Doubled");
  EXPECT_THAT(Column("Doubled", "Twice"), ::testing::ElementsAre("14", "61"));
  EXPECT_EQ(Eval("SelectionInfo(1)"), "Doubled") << "a selection of chosen columns is its own table";
}

TEST_F(Tables, UpdateDeleteAndPackWorkRowByRow) {
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
  EXPECT_EQ(Eval("ColumnInfo(Holes, COL6, 1)"), "Lith");
  EXPECT_EQ(Eval("ColumnInfo(Holes, COL2, 1)"), "DepthTo");
  EXPECT_EQ(DoError("Alter Table Holes (Add Lith Integer)"), "Column Lith already exists in table Holes");
  Do("Alter Table Holes (Drop Samples)");
  EXPECT_EQ(Eval("TableInfo(Holes, 4)"), "5");
  EXPECT_THAT(Column("Holes", "Assayed"), ::testing::ElementsAre("T", "F", "F")) << "values stay with their columns";

  Do("Metadata Table Holes SetKey \"\\Terravik\\xsects\\type\" To \"Section\"");
  Do("Metadata Table Holes SetKey \"\\TERRAVIK\\xsects\\type\" To \"Plan\"");
  EXPECT_EQ(Eval("GetMetadata$(Holes, \"\\Terravik\\xsects\\type\")"), "Plan") << "keys compare ignoring case";
  EXPECT_EQ(Eval("GetMetadata$(Holes, \"\\Terravik\\none\")"), "") << "a missing key reads as empty";
}

}  // namespace

namespace {

TEST_F(Tables, AStatementThatFailsHalfwayChangesNoRow) {
  // The third row divides by zero: the first two stay as they were.
  EXPECT_EQ(DoError("Update Holes Set Depth = 100 / (Depth - 7)"), "Division by zero");
  EXPECT_THAT(Column("Holes", "Depth"), ::testing::ElementsAre("30.5", "12", "7"));
}

}  // namespace
