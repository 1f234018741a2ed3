// DXF files of both writers read back by another program: ezdxf's strict
// reader and its audit (tests/exchange/check_dxf.py), with the entities,
// colours, vertex counts, closed flags and coordinates compared with what
// was written. Skipped when /usr/bin/python3 can't import ezdxf.
#include <fmt/ranges.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
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
class Expectation {
 public:
  Expectation(std::string path, double tolerance) : m_path(std::move(path)), m_tolerance(tolerance) {}

  void Extents(const std::array<double, 3>& min, const std::array<double, 3>& max) {
    m_header = fmt::format(R"(, "$EXTMIN": {}, "$EXTMAX": {})", min, max);
  }
  void Entity(const char* type, int color, const Points& points, bool closed = false) {
    m_entities.push_back(fmt::format(R"({{"type": "{}", "color": {}, "closed": {}, "points": {}}})", type, color,
                                     closed, points));
  }
  std::string Json() const {
    return fmt::format(R"({{"path": "{}", "tolerance": {}{}, "entities": [{}]}})", m_path, m_tolerance, m_header,
                       fmt::join(m_entities, ", "));
  }

 private:
  std::string m_path;
  double m_tolerance;
  std::string m_header;
  std::vector<std::string> m_entities;
};

bool EzdxfImports() { return std::system((std::string(kPython) + " -c 'import ezdxf' >/dev/null 2>&1").c_str()) == 0; }

// Runs the checker; its report when it finds problems.
std::string RunChecker(const std::string& expectations, int& status) {
  const std::string command =
      std::string(kPython) + " " FORMKIT_SOURCE_DIR "/tests/exchange/check_dxf.py " + expectations + " 2>&1";
  std::FILE* pipe = popen(command.c_str(), "r");
  if (!pipe) return "the checker could not be started";
  std::string report;
  char buffer[4096];
  while (std::size_t n = std::fread(buffer, 1, sizeof buffer, pipe)) report.append(buffer, n);
  status = pclose(pipe);
  return report;
}

class DXFPeerTest : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!EzdxfImports()) GTEST_SKIP() << "ezdxf can't be imported by " << kPython << ": the DXF files were not read back";
  }

  std::string Path(const char* name) const { return m_folder.Path() + "/" + name; }

  ScopedFolder m_folder;
  std::mt19937 m_random{7};
  std::vector<Expectation> m_files;
};

TEST_F(DXFPeerTest, FilesOfBothWritersReadBackAsWritten) {
  std::uniform_real_distribution<double> coordinate(-1e6, 1e6);
  {
    CDXFLib dxf;
    Expectation& file = m_files.emplace_back(Path("entities.dxf"), 1e-6);
    ASSERT_EQ(dxf.DXFCreate(Path("entities.dxf")), 1);
    dxf.DXFColor(0x00FF8000);
    dxf.DXFPoint(512345.125, 7012345.5, -12.25);
    file.Entity("POINT", 0, {{512345.125, 7012345.5, -12.25}});
    dxf.DXFLine(0, 0, 0, -1.5, 2.5e5, 3);
    file.Entity("LINE", 0, {{0, 0, 0}, {-1.5, 2.5e5, 3}});
    for (int count : {2, 3, 0, 500}) {
      std::vector<double> x(count), y(count), z(count);
      Points points;
      for (int i = 0; i < count; ++i) {
        x[i] = coordinate(m_random), y[i] = coordinate(m_random), z[i] = coordinate(m_random) / 1000;
        points.push_back({x[i], y[i], z[i]});
      }
      dxf.DXFPolyline(x.data(), y.data(), z.data(), count);
      file.Entity("POLYLINE", 0, points, false);
      dxf.DXFRegion(x.data(), y.data(), z.data(), count);
      file.Entity("POLYLINE", 0, points, true);
    }
    ASSERT_EQ(dxf.DXFClose(), 1);
  }
  {
    CDXFLib dxf;
    Expectation& file = m_files.emplace_back(Path("bounds.dxf"), 1e-6);
    ASSERT_EQ(dxf.DXFCreateWithBounds(Path("bounds.dxf"), -10, -20, -30, 10, 20, 30), 1);
    file.Extents({-10, -20, -30}, {10, 20, 30});
    ASSERT_EQ(dxf.DXFClose(), 1);
  }
  {
    CDXFSelection selection;
    Expectation& file = m_files.emplace_back(Path("selection.dxf"), 0.006);
    file.Extents({0, 0, 0}, {100000, 100000, 10000});
    selection.SetFileName(Path("selection.dxf").c_str());
    selection.SetFaceColor(1);
    ASSERT_TRUE(selection.OpenSelection());
    std::uniform_real_distribution<double> angle(-180, 180);
    for (int box = 0; box < 6; ++box) {
      const BoxCorner centre{coordinate(m_random), coordinate(m_random), coordinate(m_random) / 100};
      const BoxCorner size{1 + box * 10.0, 2 + box * 5.0, box == 3 ? 0.0 : 3.0};
      const double tilt = angle(m_random), turn = angle(m_random);
      selection.WriteBox(centre.x, centre.y, centre.z, size.x, size.y, size.z, tilt, turn);
      const BoxCorners c = ExpectedBox(centre, size, tilt, turn);
      const auto& t = c.upper;
      const auto& l = c.lower;
      const auto face = [&](const BoxCorner& a, const BoxCorner& b, const BoxCorner& d) {
        file.Entity("3DFACE", 1, {{a.x, a.y, a.z}, {b.x, b.y, b.z}, {d.x, d.y, d.z}, {a.x, a.y, a.z}});
      };
      face(t[0], t[1], t[2]), face(t[0], t[2], t[3]), face(l[0], l[2], l[1]), face(l[0], l[3], l[2]);
      for (int i = 0; i < 4; ++i) face(t[i], l[i], t[(i + 1) % 4]), face(l[i], l[(i + 1) % 4], t[(i + 1) % 4]);
    }
    ASSERT_EQ(selection.CloseSelection(), 1);
  }
  {
    CDXFSelection empty;
    m_files.emplace_back(Path("empty-selection.dxf"), 0.006);
    empty.SetFileName(Path("empty-selection.dxf").c_str());
    ASSERT_TRUE(empty.OpenSelection());
    empty.CloseSelection();
  }

  std::vector<std::string> files;
  for (const Expectation& file : m_files) files.push_back(file.Json());
  const std::string expectations = m_folder.Write("expectations.json", fmt::format("[{}]\n", fmt::join(files, ",\n")));
  int status = -1;
  const std::string report = RunChecker(expectations, status);
  EXPECT_EQ(status, 0) << report;
}

}  // namespace
