#include "geometry/read_geometry.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "fake_platform.h"

namespace zaview {
namespace {

TEST(GeometryName, PrefixChoosesTheFormat) {
  // clang-format off
  const struct { const char* name; GeometryFormat format; const char* file; } cases[] = {
      {"  hull.geo ", GeometryFormat::zavo, "hull.geo"},     {"SHAPE:hull.geo", GeometryFormat::zavo, "hull.geo"},
      {"simple: a b ", GeometryFormat::simple, "a b"},       {"NASTRAN:c:d", GeometryFormat::nastran, "c:d"},
      {"harlend:x", GeometryFormat::hrl, "x"},               {"HRL:x", GeometryFormat::hrl, "x"},
      {"Simple:x", GeometryFormat::zavo, "Simple:x"},        {"C:hull.geo", GeometryFormat::zavo, "C:hull.geo"},
      {":hull.geo", GeometryFormat::zavo, ":hull.geo"},      {"NONE", GeometryFormat::none, "NONE"},
      {"  none", GeometryFormat::none, "none"},              {"  ", GeometryFormat::none, ""},
      {"NASTRAN: ", GeometryFormat::none, ""},
  };
  // clang-format on
  for (const auto& c : cases) {
    const GeometryName split = SplitGeometryName(c.name);
    EXPECT_EQ(split.format, c.format) << c.name;
    EXPECT_EQ(split.file, c.file) << c.name;
  }
}

struct GeometryReading {
  GeometryStatus status = GeometryStatus::ok;
  Hull hull;
  std::string console;
};

// name: with its prefix; the file is "hull".
GeometryReading Read(std::string_view name, const std::string& text, std::size_t NCOMP0 = 1) {
  const std::vector<GeometryComponentInput> components(NCOMP0);
  GeometryRequest request;
  request.name = name;
  request.components = components;
  request.UGEOMNORM = 2;
  FakePlatform fake;
  fake.Put("hull", text);
  GeometryReading reading;
  reading.status = ReadGeometry(fake.Get(), request, reading.hull);
  reading.console = fake.output;
  EXPECT_EQ(fake.OpenHandles(), 0U);
  EXPECT_EQ(reading.hull.empty(), reading.status != GeometryStatus::ok);
  return reading;
}

TEST(ReadGeometry, StationsOfWaterlines) {
  const GeometryReading zavo = Read("hull",
                                    "! not there\n1\n Half a box  ! cut\n2 3\n5 0 0, 5 8 0\n 5 8 1.D1\n"
                                    "-5 0 0 -5 8 0 -5 8 10\n1 1 ! a point\n3*0.25\nEND_OF_FILE\n9 9",
                                    2);
  EXPECT_EQ(zavo.console, "Reading ZAVO input geometry file: hull\n2 component(s) read from ZAVO geometry file\n");
  ASSERT_EQ(zavo.hull.surfaces.size(), 2U);
  EXPECT_EQ(zavo.hull.comments, std::vector<std::string>{" Half a box"});
  EXPECT_EQ(zavo.hull.surfaces[0].KSTA, 2);
  EXPECT_EQ(zavo.hull.surfaces[0].at(1, 3), (Vector3{5, 8, 10}));
  EXPECT_EQ(zavo.hull.surfaces[0].at(2, 2), (Vector3{-5, 8, 0}));
  EXPECT_EQ(zavo.hull.surfaces[1].at(1, 1), (Vector3{0.25, 0.25, 0.25}));

  const GeometryReading simple =
      Read("SIMPLE:hull", "2 3\n5 0 0 5 8 0 5 8 10 -5 0 0\n-5 8 0 -5 8 10\n\n1,1\n0 0 1\n\n");
  EXPECT_EQ(simple.console, "Reading SIMPLE geometry file: hull\n2 component(s) read from SIMPLE geometry file\n");
  ASSERT_EQ(simple.hull.surfaces.size(), 2U);
  EXPECT_EQ(simple.hull.surfaces[0].points, zavo.hull.surfaces[0].points);
}

TEST(ReadGeometry, BigSimpleSurfaceKeepsBothEndsAndWhatLiesEvenly) {
  std::string text = "241 1 ";
  for (int i = 0; i < 241; ++i) text += fmt::format("\n{} 0 0", i);
  const GeometryReading reading = Read("SIMPLE:hull", text);
  EXPECT_NE(reading.console.find("WRN272 - Surface too big in SIMPLE file; intermediate rows/columns skipped\n"),
            std::string::npos);
  ASSERT_EQ(reading.hull.surfaces.size(), 1U);
  ASSERT_EQ(reading.hull.surfaces[0].KSTA, 121);
  for (int i = 1; i <= 121; ++i) EXPECT_EQ(reading.hull.surfaces[0].at(i, 1)[0], 2 * (i - 1));
}

TEST(ReadGeometry, NodesAndElements) {
  const std::string long_grid =
      fmt::format("GRID*   {:<32}{:>16}{:^16}*\n*       {:>16}\n", 2, "50.0", "80.0-1", "-1.5");
  const GeometryReading nastran =
      Read("nastran:hull", "$ free\nCQUAD4  77      1       10      2       3       40\n" + long_grid +
                               "GRID    3               0.5     \t\n"
                               "GRID    40              1.0     1.0+1   .25\nGRIDX\nGRID    10\n"
                               "CTRIA3  5       1       2       3       10\n"
                               "CTRIA3  6       1       2       3       11\nGRID    3               9.0\n");
  EXPECT_EQ(nastran.console.substr(0, nastran.console.find("FECULL")),
            "Reading NASTRAN geometry file: hull\nWRN449 - element 6 has unspecified node index\n"
            "Finite Element Surface Element file contains:\n     5 Node points\n     1 Triangular    surface elements\n"
            "     1 Quadrilateral surface elements\n     2 Total         surface elements\n");
  const HullMesh& mesh = nastran.hull.mesh;
  ASSERT_EQ(mesh.elements.size(), 2U);
  ASSERT_EQ(mesh.nodes.size(), 5U);
  EXPECT_EQ(mesh.nodes[0], (Vector3{50, 8, -1.5}));
  EXPECT_EQ(mesh.nodes[1], (Vector3{0.5, 0, 0}));
  EXPECT_EQ(mesh.nodes[2], (Vector3{1, 10, 0.25}));
  EXPECT_EQ(mesh.elements[0].node, (std::array<int, 4>{4, 1, 2, 3}));
  EXPECT_EQ(mesh.elements[1].node, (std::array<int, 4>{1, 2, 4, 0}));

  const GeometryReading hrl =
      Read("HRL:hull", "Box, half \n4 2\n5 0 0\n5 8 0 9 9\n-5 8 0\n-5 0 0\n1 2 3\n\n1 3 4 0 7\n");
  EXPECT_EQ(hrl.console.substr(0, hrl.console.find("FECULL")),
            "Reading HRL/HARLEND geometry file: hull\n2 elements read from HRL/HARLEND geometry file\n");
  EXPECT_EQ(hrl.hull.comments, std::vector<std::string>{"Box, half"});
  ASSERT_EQ(hrl.hull.mesh.elements.size(), 2U);
  EXPECT_EQ(hrl.hull.mesh.nodes[1], (Vector3{5, 8, 0}));
  EXPECT_EQ(hrl.hull.mesh.elements[1].node, (std::array<int, 4>{1, 3, 4, 0}));
}

std::string Repeated(int n, const std::string& line) {
  std::string text;
  for (int i = 0; i < n; ++i) text += line;
  return text;
}

struct Told {
  const char* prefix;
  std::string text;
  std::string console;  // behind the line that names the file
  std::size_t NCOMP0 = 1;
  bool good = false;
};

const std::string kPoint = "1 1\n1 2 3\n";
// clang-format off
const Told kTold[] = {
    {"", "12\n" + Repeated(12, "c\n") + kPoint,
     "WRN140 - Only 10 comment lines saved from geometry data file\n"
     "         Additional lines will be missing from subsequent geometry file output\n"
     "1 component(s) read from ZAVO geometry file\n", 1, true},
    {"", "0\n" + Repeated(4, kPoint),
     "WRN144 - NCOMP0= 3 surfaces were read from the geometry\n         file WITHOUT finding the file end.\n"
     "         NCOMP0 might be too small for the problem\n3 component(s) read from ZAVO geometry file\n", 3, true},
    {"", "0\n" + Repeated(101, kPoint),
     "ERR321 - NCOMP0 > MAXCMP - file read will be incomplete\nWRN145 - MAXCMP= 100\n"
     "         MAXCMP might be too small for the problem\n100 component(s) read from ZAVO geometry file\n", 101, true},
    {"", "0\n" + kPoint,
     "ERR146 - The end of the geometry file was found before NCOMP0= 2 and\n         surfaces could be read\n", 2},
    {"", "", "ERR302 - Unexpected end of data while reading input geometry data\n"},
    {"", "0\n2 1\n1 2 3\n", "ERR302 - Unexpected end of data while reading input geometry data\n"},
    {"", "!\n-1\n", "ERR301 - Error reading input geometry data\n         at line 2 of hull\n"},
    {"", "0\n1 2\n1 2 3\n!\n\n4 five 6\n", "ERR301 - Error reading input geometry data\n         at line 6 of hull\n"},
    {"", "0\n1 1\n1 2 inf\n", "ERR301 - Error reading input geometry data\n         at line 3 of hull\n"},
    {"", "0\n" + kPoint + "0 2\n", "ERR143 - Surface 2 has illegal number of stations: 0\n", 2},
    {"", "0\n2 -3\n", "ERR143 - Surface 1 has illegal number of waterlines: -3\n"},
    {"", "0\n122 2\n", "ERR142 - Surface 1 has too many stations:\n         KSTA= 122 while MAXSTA= 121\n"},
    {"", "0\n2 2147483647\n", "ERR142 - Surface 1 has too many waterlines:\n         KWL= 2147483647 while MAXWL= 121\n"},

    {"SIMPLE:", "", "ERR273 - No surface(s) read from SIMPLE file\n"},
    {"SIMPLE:", "2147483647 2147483647\n",
     "ERR270 - Illegal surface dimensions in SIMPLE file;\n         File read aborted\n         at line 1 of hull\n"},
    {"SIMPLE:", kPoint + "\n1 x\n",
     "ERR270 - Error reading surface dimensions from SIMPLE file\n         File read aborted\n         at line 4 of hull\n"},
    {"SIMPLE:", kPoint + "1 2\n1 2 3\n4 5",
     "WRN270 - Error reading SIMPLE geometry file\n         at line 5 of hull\n"
     "1 component(s) read from SIMPLE geometry file\n", 1, true},
    {"SIMPLE:", Repeated(101, kPoint),
     "WRN271 - Too many surfaces in SIMPLE file\n100 component(s) read from SIMPLE geometry file\n", 1, true},

    {"NASTRAN:", "GRID    1\n", "ERR373 - Error reading NASTRAN geometry file\n         No surface elements found in hull\n"},
    {"NASTRAN:", "$\nGRID    one\n", "ERR373 - Error reading NASTRAN geometry file\n         at line 2 of hull\n"},
    {"NASTRAN:", "GRID    1               nan\n", "ERR373 - Error reading NASTRAN geometry file\n         at line 1 of hull\n"},
    {"NASTRAN:", "GRID*   1\n", "ERR373 - Error reading NASTRAN geometry file\n         at line 1 of hull\n"},
    {"NASTRAN:", "GRID*   1\n$ z\nGRID    2\n", "ERR373 - Error reading NASTRAN geometry file\n         at line 3 of hull\n"},
    {"NASTRAN:", "CTRIA3  1       1       1       2       3.5\n",
     "ERR373 - Error reading NASTRAN geometry file\n         at line 1 of hull\n"},
    {"NASTRAN:", Repeated(5001, "GRID    1\n"), "ERR374 - Too many NASTRAN nodes or elements:\n         MAXFEG= 5000\n"},
    {"NASTRAN:", Repeated(5001, "CTRIA2  1\n"), "ERR374 - Too many NASTRAN nodes or elements:\n         MAXFEG= 5000\n"},

    {"HRL:", "", "ERR292 - Error reading HRL geometry file\n         at line 1 of hull\n"},
    {"HRL:", "c\n0 1\n",
     "ERR293 - Invalid number of nodes or elements specified in HRL geometry file\n         NNODE= 0\n         NELEM= 1\n"},
    {"HRL:", "c\n5001 1\n",
     "ERR294 - Too many HRL nodes or elements:\n         NNODE = 5001\n         NELEM = 1\n         MAXFEG= 5000\n"},
    {"HRL:", "c\n1 1\n1 2 z\n", "ERR292 - Error reading HRL geometry file\n         at line 3 of hull\n"},
    {"HRL:", "c\n1 1\n1 2 3\n", "ERR292 - Error reading HRL geometry file\n         at line 3 of hull\n"},
    {"HRL:", "c\n3 2\n9*0\n0 0 1\n0 1 0\n1 2 3\n0 1 2\n",
     "ERR295 - Invalid index (0) for node 1 of element 2 in HRL geometry file\n"
     "         Initial vertex index cannot be 0\n"},
    {"HRL:", "c\n3 1\n0 0 0\n0 0 1\n0 1 0\n1 2 3 4\n",
     "ERR295 - Invalid index (4) for node 4 of element 1 in HRL geometry file\n"
     "         Index must be between 0 and 3\n"},
    {"HRL:", "c\n3 1\n0 0 0\n0 0 1\n0 1 0\n-1 2 3\n",
     "ERR295 - Invalid index (-1) for node 1 of element 1 in HRL geometry file\n"
     "         Index must be between 0 and 3\n"},
    {"HRL:", "c\n3 1\n0 0 0\n0 0 1\n0 1 0\n1 2\n",
     "ERR295 - Invalid index (0) for node 3 of element 1 in HRL geometry file\n"
     "         Point/line elements not allowed\n"},
};
// clang-format on

TEST(ReadGeometry, FaultsAreToldWithTheirLine) {
  for (const Told& c : kTold) {
    const GeometryReading reading = Read(std::string(c.prefix) + "hull", c.text, c.NCOMP0);
    EXPECT_EQ(reading.console.substr(reading.console.find('\n') + 1), c.console) << c.text.substr(0, 60);
    EXPECT_EQ(reading.status, c.good ? GeometryStatus::ok : GeometryStatus::failed) << c.text.substr(0, 60);
    EXPECT_LE(reading.hull.comments.size(), kGeometryComments);
  }
}

}  // namespace
}  // namespace zaview
