// The bytes of the Datamine and MineSight records and of the Datamine head,
// as the files' readers expect them: fixed and open widths, cut and padded
// attributes, the flip, and CR LF on disk.
#include <gtest/gtest.h>

#include "exchange/datamine_format.h"
#include "exchange/minesight_format.h"
#include "support/session_fixture.h"

namespace {

// What `write` puts into a fresh file, as the disk holds it.
template <typename Write>
std::string Written(Write write) {
  ScopedFolder folder;
  const std::string path = folder.Path() + "/out.txt";
  {
    fk::TextWriter file;
    EXPECT_TRUE(file.Open(path, "w"));
    write(file);
  }
  return ReadFile(path);
}

std::string RecordOf(NodeFileFormat& format, const ExportNode& node, const std::vector<std::string>& raw) {
  std::vector<std::string> values;
  for (const std::string& value : raw) values.push_back(format.AttributeField(value));
  return Written([&](fk::TextWriter& file) { format.WriteNode(file, node, values); });
}

TEST(NodeFormatsTest, RecordsHaveTheirFieldsWidthsAndLineEnd) {
  CDatamineFormat datamine;
  CMineSightFormat mineSight(false), flipped(true);
  struct Case {
    NodeFileFormat* format;
    ExportNode node;
    std::vector<std::string> attributes;
    const char* record;
  };
  const Case cases[] = {
      {&datamine, {3, 2, 1234.5, -0.0004, 10}, {},
       "3.000       2.000       1234.500    -0.000      10.000      1.000       201.000     1001.000    \r\n"},
      {&datamine, {12, 1, 255000.0625, 5925400.9996, -7.5}, {"Bendigo Creek North", "exactly 12 c", "A", ""},
       "12.000      1.000       255000.062  5925401.000 -7.500      1.000       201.000     1001.000    "
       "Bendigo Creeexactly 12 cA                       \r\n"},
      {&datamine, {1, 1, 123456789012.5, 2, 0}, {},
       "1.000       1.000       123456789012.5002.000       0.000       1.000       201.000     1001.000    \r\n"},
      {&mineSight, {7, 1, 255000.5, -36.25, 0}, {},
       "255000.500000,-36.250000,0.000000,1,\r\n"},
      {&mineSight, {7, 14, 1e12, 2, 3}, {"Bendigo Creek North", "a,b", ""},
       "1000000000000.000000,2.000000,3.000000,14,Bendigo Creek North,a,b,,\r\n"},
      {&flipped, {2, 3, 288.56, -36.76, 4.5}, {"Fence"}, "-36.760000,288.560000,4.500000,3,Fence,\r\n"},
  };
  for (const Case& c : cases) EXPECT_EQ(RecordOf(*c.format, c.node, c.attributes), c.record) << c.record;
}

TEST(NodeFormatsTest, TheDatamineHeadDefinesTheFieldsAndTheAttributesFromField9) {
  CDatamineFormat datamine;
  const std::string head = Written([&](fk::TextWriter& file) {
    datamine.WriteHead(file, {"Name", "averyLongColumn", "b"}, fk::DateTimeParts{2026, 3, 7});
  });
  EXPECT_EQ(head,
            "IN      \r\n"
            "FILE CREATED BY SYSTEM   USING  DATAMINE ON 07/03/26            \r\n"
            "       9       9\r\n"
            "PVALUE   N   1   1          0.000000E+00\r\n"
            "PTN      N   1   2          0.000000E+00\r\n"
            "XP       N   1   3          0.000000E+00\r\n"
            "YP       N   1   4          0.000000E+00\r\n"
            "ZP       N   1   5          0.000000E+00\r\n"
            "COLOUR   N   1   6         -0.100000E+31\r\n"
            "SYMBOL   N   1   7         -0.100000E+31\r\n"
            "LSTYLE   N   1   8         -0.100000E+31\r\n"
            "NAME     A   1   9                      \r\n"
            "AVERYLON A   1   10                      \r\n"
            "B        A   1   11                      \r\n");
  CMineSightFormat mineSight(false);
  EXPECT_EQ(Written([&](fk::TextWriter& file) { mineSight.WriteHead(file, {"Name"}, {}); }), "");
}

}  // namespace
