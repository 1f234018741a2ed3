// DXF files of both writers read back by another program: ezdxf's strict
// reader and its audit (tests/exchange/check_dxf.py), with the entities,
// colours, vertex counts, closed flags and coordinates compared with what
// was written. Skipped when /usr/bin/python3 can't import ezdxf.
#include <fmt/ranges.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include "exchange/box_geometry.h"
#include "exchange/dxf_lib.h"
#include "exchange/dxf_selection.h"
#include "support/session_fixture.h"

namespace {

constexpr const char* kPython = "/usr/bin/python3";

using Points = std::vector<std::array<double, 3>>;

// What one file should hold, as the JSON the checker reads (numbers in
// their shortest exact form).
struct Expectation {
  std::string path;
  double tolerance;
  std::string header;
  std::vector<std::string> entities;

  void Entity(const char* type, int color, const Points& points, bool closed = false) {
    entities.push_back(fmt::format(R"({{"type": "{}", "color": {}, "closed": {}, "points": {}}})", type, color,
                                   closed, points));
  }
  std::string Json() const {
    return fmt::format(R"({{"path": "{}", "tolerance": {}{}, "entities": [{}]}})", path, tolerance, header,
                       fmt::join(entities, ", "));
  }
};

std::string Extents(const std::array<double, 3>& min, const std::array<double, 3>& max) {
  return fmt::format(R"(, "$EXTMIN": {}, "$EXTMAX": {})", min, max);
}

TEST(DXFPeerTest, FilesOfBothWritersReadBackAsWritten) {
  if (std::system((std::string(kPython) + " -c 'import ezdxf' >/dev/null 2>&1").c_str()) != 0)
    GTEST_SKIP() << "ezdxf can't be imported by " << kPython << ": the DXF files were not read back";
  ScopedFolder folder;
  std::mt19937 random{7};
  std::uniform_real_distribution<double> coordinate(-1e6, 1e6);
  Expectation entities{folder.Path() + "/entities.dxf", 1e-6, Extents({-10, -20, -30}, {10, 20, 30}), {}};
  {
    CDXFLib dxf;
    ASSERT_EQ(dxf.DXFCreateWithBounds(entities.path, -10, -20, -30, 10, 20, 30), 1);
    dxf.DXFColor(0x00FF8000);
    dxf.DXFPoint(512345.125, 7012345.5, -12.25);
    entities.Entity("POINT", 0, {{512345.125, 7012345.5, -12.25}});
    dxf.DXFLine(0, 0, 0, -1.5, 2.5e5, 3);
    entities.Entity("LINE", 0, {{0, 0, 0}, {-1.5, 2.5e5, 3}});
    for (int count : {2, 3, 0, 500}) {
      std::vector<double> x(count), y(count), z(count);
      Points points;
      for (int i = 0; i < count; ++i) {
        x[i] = coordinate(random), y[i] = coordinate(random), z[i] = coordinate(random) / 1000;
        points.push_back({x[i], y[i], z[i]});
      }
      dxf.DXFPolyline(x.data(), y.data(), z.data(), count);
      entities.Entity("POLYLINE", 0, points, false);
      dxf.DXFRegion(x.data(), y.data(), z.data(), count);
      entities.Entity("POLYLINE", 0, points, true);
    }
    ASSERT_EQ(dxf.DXFClose(), 1);
  }
  Expectation boxes{folder.Path() + "/selection.dxf", 0.006, Extents({0, 0, 0}, {100000, 100000, 10000}), {}};
  {
    CDXFSelection selection;
    selection.SetFileName(boxes.path.c_str());
    selection.SetFaceColor(1);
    ASSERT_TRUE(selection.OpenSelection());
    std::uniform_real_distribution<double> angle(-180, 180);
    for (int box = 0; box < 6; ++box) {
      const BoxCorner centre{coordinate(random), coordinate(random), coordinate(random) / 100};
      const BoxCorner size{1 + box * 10.0, 2 + box * 5.0, box == 3 ? 0.0 : 3.0};
      const double tilt = angle(random), turn = angle(random);
      selection.WriteBox(centre.x, centre.y, centre.z, size.x, size.y, size.z, tilt, turn);
      const BoxCorners c = ExpectedBox(centre, size, tilt, turn);
      const auto& t = c.upper;
      const auto& l = c.lower;
      const auto face = [&](const BoxCorner& a, const BoxCorner& b, const BoxCorner& d) {
        boxes.Entity("3DFACE", 1, {{a.x, a.y, a.z}, {b.x, b.y, b.z}, {d.x, d.y, d.z}, {a.x, a.y, a.z}});
      };
      face(t[0], t[1], t[2]), face(t[0], t[2], t[3]), face(l[0], l[2], l[1]), face(l[0], l[3], l[2]);
      for (int i = 0; i < 4; ++i) face(t[i], l[i], t[(i + 1) % 4]), face(l[i], l[(i + 1) % 4], t[(i + 1) % 4]);
    }
    ASSERT_EQ(selection.CloseSelection(), 1);
  }

  const std::string expectations =
      folder.Write("expectations.json", fmt::format("[{},\n{}]\n", entities.Json(), boxes.Json()));
  const std::string command = std::string(kPython) + " " FORMKIT_SOURCE_DIR "/tests/exchange/check_dxf.py " +
                              expectations + " > " + folder.Path() + "/report 2>&1";
  EXPECT_EQ(std::system(command.c_str()), 0) << ReadFile(folder.Path() + "/report");
}

}  // namespace
