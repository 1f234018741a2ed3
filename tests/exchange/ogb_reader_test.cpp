// The georeference file reader, line by line: what each kind of file gives,
// in the order the keys are tested, and which files are refused.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "exchange/ogb_reader.h"
#include "support/session_fixture.h"

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

namespace {

struct Image {
  std::string name;
  double left, bottom, right, top;
  std::uint32_t colour;
  bool operator==(const Image&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Image& i) {
  return out << i.name << " (" << i.left << ", " << i.bottom << ", " << i.right << ", " << i.top << ") " << i.colour;
}

constexpr std::uint32_t NONE = 0xFFFFFFFF;

struct Read {
  bool refused = false;
  int count = 0;
  std::vector<Image> images;
};

Read ReadLines(const std::vector<std::string>& lines, int xField = 0, int yField = 1) {
  std::vector<std::string> names;
  std::vector<double> left, bottom, right, top;
  std::vector<std::uint32_t> colours;
  COGBReader reader({&names, &left, &bottom, &right, &top, &colours}, xField, yField);
  Read read;
  for (const std::string& line : lines)
    if (!reader.TakeLine(line + "\n")) read.refused = true;
  read.count = reader.ImageCount();
  for (std::size_t i = 0; i < left.size(); ++i)
    read.images.push_back({i < names.size() ? names[i] : "-", left[i], bottom[i], right[i], top[i], colours[i]});
  return read;
}

TEST(OGBReaderTest, EachKindOfBlockGivesItsImages) {
  struct Case {
    const char* what;
    std::vector<std::string> lines;
    int xField, yField;
    std::vector<Image> images;
  };
  const Case cases[] = {
      {"keys in any case, corners in either order, the name upper-cased and unquoted",
       {"georeferenceimage begin", "  image = \"Photos/North.jpg\" ", "  bottomright = 10, 20", "  topleft = 30,5",
        "georeferenceimage end"},
       0, 1, {{"PHOTOS/NORTH.JPG", 10, 5, 30, 20, NONE}}},
      {"the other block words, each end closing either block; the mapping picks the numbers",
       {"ImageDefinition Begin", "\tImage = a.png", "TopLeft = 1, 2, 3", "BottomRight = 4,5,6", "ObjectDefinition End",
        "GeoReferenceImage Begin", "Image = b.png", "TopLeft = 7", "GeoReferenceImage End"},
       1, 2, {{"A.PNG", 2, 3, 5, 6, NONE}, {"B.PNG", 0, 0, 0, 0, NONE}}},
      {"a longer word ending in IMAGE is no key; negative fields count as X and Y; the end normalises",
       {"GeoReferenceImage Begin", "BackgroundImage = x.png", "Image = y.png", "TopLeft = 1,2",
        "GeoReferenceImage End"},
       -1, -5, {{"Y.PNG", 0, 0, 1, 2, NONE}}},
      {"a registration block, also outside the image block, writes the last entry; the later line wins",
       {"GeoReferenceImage Begin", "Image = c.png", "TopLeft = 1,1", "BottomRight = 2,2", "GeoReferenceImage End",
        "Registration Begin", "BitmapOrigin = 100, 900", "BitmapExtremity = 300, 700", "Registration End"},
       0, 1, {{"C.PNG", 100, 700, 300, 900, NONE}}},
      {"transparent colours: RGB with red low, white, defined, a plain number, a failed scan",
       {"GeoReferenceImage Begin", "Image = 1.png", "TransparentColour = RGB(255, 0, 0)", "GeoReferenceImage End",
        "GeoReferenceImage Begin", "Image = 2.png", "TransparentColour = White", "GeoReferenceImage End",
        "GeoReferenceImage Begin", "Image = 3.png", "TransparentColour = Defined, 4660", "GeoReferenceImage End",
        "GeoReferenceImage Begin", "Image = 4.png", "TransparentColour = 300, 7", "GeoReferenceImage End",
        "GeoReferenceImage Begin", "Image = 5.png", "TransparentColour = RGB(1, 2)", "GeoReferenceImage End"},
       0, 1,
       {{"1.PNG", 0, 0, 0, 0, 255},
        {"2.PNG", 0, 0, 0, 0, 0xFFFFFF},
        {"3.PNG", 0, 0, 0, 0, 4660},
        {"4.PNG", 0, 0, 0, 0, 300},
        {"5.PNG", 0, 0, 0, 0, NONE}}},
      {"keys outside an image block count for nothing",
       {"Image = z.png", "TopLeft = 1,2", "TransparentColour = 5"}, 0, 1, {}},
  };
  for (const Case& c : cases) {
    const Read read = ReadLines(c.lines, c.xField, c.yField);
    EXPECT_FALSE(read.refused) << c.what;
    EXPECT_EQ(read.count, static_cast<int>(c.images.size())) << c.what;
    EXPECT_THAT(read.images, ElementsAreArray(c.images)) << c.what;
  }
}

TEST(OGBReaderTest, AQuadStripIsRefusedAndTheProjectionIsTheFirstOneGiven) {
  EXPECT_TRUE(ReadLines({"GeoReferenceImage Begin", "Image = q.png", "Geometry = Quad_Strip_H"}).refused);
  EXPECT_FALSE(ReadLines({"Geometry = Quad_Strip_H"}).refused) << "only inside an image block";

  ScopedFolder folder;
  const std::string file = folder.Write("two.ogb",
                                        "=Projection\r\nCoordinateSystem = \r\nGeoReferenceImage Begin\r\n"
                                        "Image = a.png\r\nGeoReferenceImage End\r\nProjection = mga94 Zone 55 \r\n"
                                        "Projection = later\r\n");
  EXPECT_EQ(ReadOGBProjection(file), "MGA94 ZONE 55");
  std::vector<std::string> names;
  EXPECT_EQ(ReadOGBFile(file, {&names}, 0, 1), 1);
  EXPECT_THAT(names, ElementsAre("A.PNG")) << "CR LF lines end nowhere in a value";
  EXPECT_EQ(ReadOGBFile(file + ".missing", {}, 0, 1), 0);
}

}  // namespace
