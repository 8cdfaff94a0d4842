#include "geometry/surface_checks.h"

#include <cmath>
#include <random>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "fake_platform.h"
#include "geometry/hull_cells.h"
#include "geometry/hull_waterline.h"
#include "geometry/input_transform.h"
#include "geometry/read_geometry.h"
#include "meshes.h"

namespace zaview {
namespace {

struct Culled {
  const char* what;
  std::vector<std::array<int, 4>> elements, left;
  std::string console;
};

// Over L: 1 to 4 a square of side L; 5 is 2 again, 6 lies 1e-6 L from 1, which is another place. L is 100.
// clang-format off
constexpr Vector3 kNodes[] = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {1, 0.5e-6, -0.5e-6}, {0, 0, 1e-6}};
const Culled kCulled[] = {
    {"good ones stay, in any number of corners", {{1, 2, 3, 0}, {1, 2, 3, 4}}, {{1, 2, 3, 0}, {1, 2, 3, 4}}, ""},
    {"by their first node", {{1, 5, 3, 4}}, {{1, 2, 3, 4}}, ""},
    {"three of four: a triangle in ring order", {{2, 5, 3, 4}, {1, 3, 1, 4}}, {{2, 3, 4, 0}, {1, 3, 4, 0}}, ""},
    {"two of three", {{1, 2, 5, 0}, {1, 2, 3, 0}, {2, 5, 2, 1}}, {{1, 2, 3, 0}},
     "WRN377 - Degenerate surface element : 1 (1 2 2)\nWRN377 - Degenerate surface element : 3 (2 2 2 1)\n"
     "WRN377 - 2 degenerate surface element(s) deleted\n"
     "         Note that the vertices listed above are values after duplicate\n"
     "         node points have been rationalized\n"},
    {"the later of equal sets, whatever its order", {{1, 2, 3, 0}, {3, 1, 2, 0}, {1, 2, 3, 4}, {1, 3, 5, 4}},
     {{1, 2, 3, 0}, {1, 2, 3, 4}},
     "WRN377 - Duplicate surface element : 2 (3 1 2)\nWRN377 - Duplicate surface element : 4 (1 3 2 4)\n"
     "WRN377 - 2 duplicate surface element(s) deleted\n"},
    {"numbers are those of the file", {{1, 5, 2, 0}, {1, 2, 3, 0}, {3, 1, 2, 0}}, {{1, 2, 3, 0}},
     "WRN377 - Degenerate surface element : 1 (1 2 2)\nWRN377 - 1 degenerate surface element(s) deleted\n"
     "         Note that the vertices listed above are values after duplicate\n"
     "         node points have been rationalized\nWRN377 - Duplicate surface element : 3 (3 1 2)\n"
     "WRN377 - 1 duplicate surface element(s) deleted\n"},
    {"near is not the same", {{1, 6, 3, 0}}, {{1, 6, 3, 0}}, ""},
};
// clang-format on

TEST(Fecull, RemovesDegenerateAndDuplicateElements) {
  for (const Culled& c : kCulled) {
    HullMesh mesh;
    for (const Vector3& p : kNodes) mesh.nodes.push_back({100 * p[0], 100 * p[1], 100 * p[2]});
    for (const auto& nodes : c.elements) mesh.elements.push_back({nodes});
    FakePlatform fake;
    FECULL(fake.Get().console, 100, mesh);
    std::vector<std::array<int, 4>> left;
    for (const HullElement& element : mesh.elements) left.push_back(element.node);
    EXPECT_EQ(left, c.left) << c.what;
    EXPECT_EQ(fake.output,
              "FECULL - Checking unstructured surface geometry\n"
              "WRN376 1 node point(s) in unstructured geometry are duplicates\n" +
                  c.console)
        << c.what;
  }
}

// All pairs compared: what the search by cells must agree with.
TEST(Fecull, FindsTheSameNodesAsComparingAllPairs) {
  std::mt19937 random(3);
  std::uniform_real_distribution<double> place(-5e-6, 5e-6);
  HullMesh mesh;
  std::vector<int> kept, first;
  for (int i = 1; i <= 2000; ++i) {
    const Vector3 p = {place(random), place(random), place(random)};
    const auto same = std::find_if(kept.begin(), kept.end(), [&](int k) {
      const Vector3& q = mesh.nodes[static_cast<std::size_t>(k - 1)];
      return std::hypot(p[0] - q[0], p[1] - q[1], p[2] - q[2]) < 1e-6;
    });
    first.push_back(same == kept.end() ? i : *same);
    if (same == kept.end()) kept.push_back(i);
    mesh.nodes.push_back(p);
    mesh.elements.push_back({{i, 2000 + i, 4001, 0}});  // the second is its own
  }
  for (int i = 0; i <= 2000; ++i) mesh.nodes.push_back({1, 1.0 * i, 0});
  FakePlatform fake;
  FECULL(fake.Get().console, 1, mesh);
  ASSERT_EQ(mesh.elements.size(), first.size());
  for (std::size_t i = 0; i < first.size(); ++i) EXPECT_EQ(mesh.elements[i].node[0], first[i]);
}

TEST(Fetrnsm, MarksWhatLiesInTheSternPlaneAlongTheShip) {
  const struct {
    Vector3 ship_x;
    int face;  // of kBoxFaces; -1: none
  } cases[] = {{{1, 0, 0}, 5}, {{-1, 0, 0}, 3}, {{0, 1, 0}, 2}, {{0.6, 0.8, 0}, -1}};
  for (const auto& c : cases) {
    HullMesh mesh;
    AddBox({-50, -5, 0}, {50, 5, 8}, mesh);
    mesh.nodes.push_back({-90, -90, 0});  // in no element
    mesh.nodes[7][0] -= 0.9e-4 * 100;     // still on the transom, but for an inclined ship
    FakePlatform fake;
    FETRNSM(fake.Get().console, 100, c.ship_x, mesh);
    for (int i = 0; i < 6; ++i)
      EXPECT_EQ(mesh.on_transom[static_cast<std::size_t>(i)], i == c.face) << c.ship_x[0] << i;
    EXPECT_EQ(fake.output.find("FETRNSM: 1 elements on transom deleted\n") != std::string::npos, c.face >= 0);
  }
}

// Each face of the box is turned or not by a bit.
TEST(Fenorm, EveryWayToTurnABoxEndsOutward) {
  for (unsigned turned = 0; turned < 64; ++turned) {
    HullMesh mesh;
    AddBox({100, -1, 5}, {104, 2, 7}, mesh);
    for (unsigned i = 0; i < 6; ++i)
      if ((turned >> i & 1U) != 0) TurnElement(mesh.elements[i]);
    FakePlatform fake;
    EXPECT_TRUE(FENORM(fake.Get().console, 1, false, mesh));
    EXPECT_NEAR(Volume(mesh), 4 * 3 * 2, 1e-9);
    for (const HullElement& element : mesh.elements) EXPECT_GT(ElementFlux(mesh, element, {102, 0.5, 6}), 0);
    EXPECT_EQ(fake.output.find("WRN379"), std::string::npos);
  }
}

struct Oriented {
  const char* what;
  void (*make)(HullMesh& mesh);
  int UGEOMNORM;
  bool half;
  double volume;  // flux of r over 3
  const char* said;
  const char* unsaid = "ERR380";
};

void BoxAboutCentreplane(HullMesh& mesh) {
  AddBox({-2, -1, 0}, {2, 1, 3}, mesh);
}
// clang-format off
const Oriented kOriented[] = {
    {"two bodies, one inside out", [](HullMesh& m) {
       AddBox({0, 0, 0}, {1, 2, 3}, m);
       AddBox({5, 5, 5}, {6, 6, 6}, m);
       for (std::size_t i = 6; i < 12; ++i) TurnElement(m.elements[i]);
     }, 1, false, 7, "WRN379"},
    {"an open box, its deck away: the flux of the rest", [](HullMesh& m) {
       BoxAboutCentreplane(m);
       m.elements.erase(m.elements.begin() + 1);
       for (HullElement& e : m.elements) TurnElement(e);
     }, 1, false, 24 - 4 * 2 * 3 / 3.0, "UGEOMNORM=1", "WRN379"},
    {"half a box, open at the centreplane", [](HullMesh& m) {
       AddBox({-2, 0, 0}, {2, 1, 3}, m);
       m.elements.erase(m.elements.begin() + 2);
       for (HullElement& e : m.elements) TurnElement(e);
     }, 1, true, 12, "UGEOMNORM=1", "WRN379"},
    {"three faces at an edge: two bodies", [](HullMesh& m) {
       BoxAboutCentreplane(m);
       m.nodes.insert(m.nodes.end(), {{4, -1, 3}, {4, 1, 3}});
       m.elements.push_back({{6, 9, 10, 7}});
       TurnElement(m.elements[3]);
     }, 1, false, 24 + 2 * 2 * 3 / 3.0, "WRN379"},
    {"a Moebius strip goes panel by panel", [](HullMesh& m) {
       m.nodes = {{0, 1, 0}, {0, 2, 0}, {1, 1, 1}, {1, 2, 1}, {2, 1, 0}, {2, 2, 0}};
       m.elements = {{{1, 2, 4, 3}}, {{3, 4, 6, 5}}, {{5, 6, 1, 2}}};
     }, 1, false, NAN, "ERR380", "WRN379"},
    {"away from the centreplane, the others as they are", [](HullMesh& m) {
       BoxAboutCentreplane(m);
       TurnElement(m.elements[0]);
       TurnElement(m.elements[2]);
       TurnElement(m.elements[4]);
     }, 0, false, 24, "UGEOMNORM=0"},
    {"as they are", [](HullMesh& m) { BoxAboutCentreplane(m), TurnElement(m.elements[1]); }, 2, false, 24 - 2 * 4 * 2 * 3 / 3.0,
     "UGEOMNORM=2"},
    {"all turned", BoxAboutCentreplane, 3, false, -24, "UGEOMNORM=3"},
};
// clang-format on

TEST(Fenorm, TurnsByTheOption) {
  for (const Oriented& c : kOriented) {
    HullMesh mesh;
    c.make(mesh);
    FakePlatform fake;
    EXPECT_TRUE(FENORM(fake.Get().console, c.UGEOMNORM, c.half, mesh));
    EXPECT_TRUE(std::isnan(c.volume) || std::abs(Volume(mesh) - c.volume) < 1e-12) << c.what << Volume(mesh);
    EXPECT_NE(fake.output.find(c.said), std::string::npos) << c.what << fake.output;
    EXPECT_EQ(fake.output.find(c.unsaid), std::string::npos) << c.what;
    const std::size_t warned = fake.output.find("WRN379");
    EXPECT_TRUE(warned == std::string::npos || fake.output.find("WRN379", warned + 1) == std::string::npos) << c.what;
  }
}

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

struct CaseReading {
  bool good = false;
  Hull hull;
  std::string console;
};

ControlRecords Records(const std::string& FGEOM, int SYMINP = 0, std::size_t NCOMP0 = 1) {
  ControlRecords records;
  records.FGEOM = FGEOM;
  records.SYMINP = SYMINP;
  records.components.resize(NCOMP0);
  records.LENIN = 100;
  records.ANGIN = 57.29577951308232;
  return records;
}

CaseReading Read(const ControlRecords& records, const std::map<std::string, std::string>& files) {
  FakePlatform fake;
  for (const auto& [name, bytes] : files) fake.Put(name, bytes);
  CaseReading reading;
  reading.good = ReadCaseGeometry(fake.Get(), records, "cases/", reading.hull);
  reading.console = fake.output;
  EXPECT_EQ(reading.good, !reading.hull.empty());
  EXPECT_EQ(fake.OpenHandles(), 0U);
  return reading;
}

void ExpectPoint(const Vector3& p, const Vector3& expected) {
  for (std::size_t k = 0; k < 3; ++k) EXPECT_NEAR(p[k], expected[k], 1e-14) << k;
}

std::string HalfBox() {
  HullMesh mesh;
  AddBox({-50, 0, 0}, {50, 8, 10}, mesh);
  mesh.elements.erase(mesh.elements.begin() + 2);  // the centreplane
  for (std::size_t i = 1; i < 4; ++i) TurnElement(mesh.elements[i]);
  return HrlText(mesh);
}

// clang-format off
TEST(CaseGeometry, MirroredHalfIsAClosedBodyFacingOut) {
  const CaseReading reading = Read(Records("HRL:half", 1), {{"half", HalfBox()}});
  EXPECT_TRUE(reading.hull.half);
  const HullMesh& mesh = reading.hull.mesh;
  ASSERT_EQ(mesh.elements.size(), 10U);
  EXPECT_NEAR(Volume(mesh, {0.1, 0.2, 0.3}), 1.0 * 0.16 * 0.1, 1e-15);  // 100 x 16 x 10 by 100 cubed
  for (const HullElement& element : mesh.elements) EXPECT_GT(ElementFlux(mesh, element, {0, 0, 0.05}), 0);
  EXPECT_EQ(std::count(mesh.on_transom.begin(), mesh.on_transom.end(), true), 2);
}

TEST(CaseGeometry, EachFileMovesByItsOwnShiftOriginAndRotation) {
  ControlRecords records = Records("hull", 1);
  records.GSHIFT = {10, 20, 30};
  records.GORIG = {1, 2, 3};
  records.added_geometry = {{"SIMPLE:added", 0, {}, {0, 0, 5}, {0, 0, 0}, {0, 0, 90}}};
  const CaseReading reading = Read(records, {{"cases/hull", "1\nname\n1 2\n0 0 0\n4 7 8\n"}, {"added", "1 1\n3 4 0\n"}});
  ASSERT_EQ(reading.hull.surfaces.size(), 3U);
  EXPECT_EQ(reading.hull.surfaces[1].name, "Surface 1 (ref)");
  EXPECT_TRUE(reading.hull.surfaces[1].reflected);
  EXPECT_EQ(reading.hull.comments, std::vector<std::string>{"name"});
  ExpectPoint(reading.hull.surfaces[0].at(1, 2), {0.13, 0.25, 0.35});
  ExpectPoint(reading.hull.surfaces[1].at(1, 2), {0.13, 0.11, 0.35});  // mirrored ahead of the transformation
  ExpectPoint(reading.hull.surfaces[2].at(1, 1), {-0.04, 0.03, 0.05});
}

TEST(CaseGeometry, MeshesBehindOneAnotherKeepTheirNodes) {
  HullMesh low, high;
  AddBox({0, 0, 0}, {10, 10, 10}, low);
  AddBox({0, 0, 20}, {10, 10, 50}, high);
  ControlRecords records = Records("HRL:low");
  records.added_geometry = {{"hrl:high", 0, {}, {}, {}, {}}};
  const CaseReading reading = Read(records, {{"low", HrlText(low)}, {"high", HrlText(high)}});
  EXPECT_EQ(reading.hull.mesh.on_transom.size(), 12U);
  EXPECT_NEAR(Volume(reading.hull.mesh), 0.001 + 0.003, 1e-15);
}

std::string Points(int surfaces) {
  std::string text = "0\n";
  for (int i = 0; i < surfaces; ++i) text += "1 1\n1 1 1\n";
  return text;
}

// Triangles between the first and the last node.
std::string Triangles(int NNODE, int NELEM) {
  std::string text = fmt::format("c\n{} {}\n", NNODE, NELEM);
  for (int i = 0; i < NNODE; ++i) text += fmt::format("{} {} {}\n", i, 1 + i % 7, i % 3);
  for (int i = 0; i < NELEM; ++i) text += fmt::format("{} {} {}\n", 1, 2 + i % (NNODE - 2), NNODE);
  return text;
}

struct Ended {
  const char* what;
  ControlRecords records;
  std::map<std::string, std::string> files;
  bool good;
  const char* said;
};

TEST(CaseGeometry, LimitsAndFilesThatAreNotThere) {
  ControlRecords unsupported = Records("HRL:half");
  unsupported.modules.resize(1);
  unsupported.modules[0].name = "OPTIONS";
  unsupported.modules[0].lines = {"UGEOMNORM 9"};
  ControlRecords with_added = Records("hull", 0, 60);
  with_added.added_geometry = {{"hull", 0, std::vector<GeometryComponentInput>(41), {}, {}, {}}};
  ControlRecords added_missing = Records("hull");
  added_missing.added_geometry = {{"NASTRAN:away", 0, {}, {}, {}, {}}};
  const std::string both_sides = "0\n1 2\n1 1e-3 1\n1 -1e-3 1\n", on_plane = "0\n1 2\n1 0.9e-4 1\n1 -0.9e-4 1\n";
  const Ended cases[] = {
      {"no geometry is no fault of the file", Records(" none "), {}, false,
       "NONE or blank name specified for geometry file: skipping geometry input\n"},
      {"not there", Records("SIMPLE: hull"), {}, false, "ERROR opening geometry file: hull\n"},
      {"an absolute name is not looked for elsewhere", Records("/hull"), {{"cases//hull", Points(1)}}, false,
       "ERROR opening geometry file: /hull\n"},
      {"the first hull goes with the second", added_missing, {{"hull", Points(1)}}, false,
       "ERROR opening geometry file: away\n"},
      {"50 and their images", Records("hull", 1, 50), {{"hull", Points(50)}}, true, "50 component(s) read"},
      {"51 and their images", Records("hull", 1, 51), {{"hull", Points(51)}}, false,
       "ERR147 - Too many surfaces will be in the input geometry after reflection:\n"
       "         MAXCMP= 100 while complete geometry requires= 102 components\n"},
      {"60 and 41", with_added, {{"hull", Points(60)}}, false, "requires= 101 components\n"},
      {"2500 nodes and their images", Records("HRL:mesh", 1), {{"mesh", Triangles(2500, 10)}}, true, "10 elements read"},
      {"2501 elements and their images", Records("HRL:mesh", 1), {{"mesh", Triangles(2504, 2501)}}, false,
       "ERR375 - Too many nodes and/or elements in the input geometry after reflection:\n"
       "         MAXFEG= 5000 while NFENODE= 5008 and NFEELEM= 5002\n"},
      {"nothing but degenerate elements", Records("HRL:mesh"), {{"mesh", "c\n2 1\n1 1 1\n2 2 2\n1 2 1\n"}}, false,
       "WRN377 - 1 degenerate surface element(s) deleted\n"},
      {"the option of another program", unsupported, {{"half", HalfBox()}}, false, "LOGIC ERROR - unsupported UGEOMNORM= 9\n"},
      {"a half on both sides", Records("hull", 1), {{"hull", both_sides}}, true,
       "WRN247 - All or some of the input geometry has been specifed as being\n"},
      {"a half that touches its plane", Records("hull", 1), {{"hull", on_plane}}, true, "ZAVO geometry file\n"},
  };
  for (const Ended& c : cases) {
    const CaseReading reading = Read(c.records, c.files);
    EXPECT_EQ(reading.good, c.good) << c.what;
    EXPECT_NE(reading.console.find(c.said), std::string::npos) << c.what << ":\n" << reading.console.substr(0, 2000);
    EXPECT_EQ(reading.console.find("WRN247") != std::string::npos, std::string_view(c.said).starts_with("WRN247"))
        << c.what;
  }
}

// clang-format on

TEST(InputTransform, RotatesAboutTheOriginThenShifts) {
  ControlRecords r;
  r.LENIN = 100, r.ANGIN = 57.29578;
  r.GORIG = {1, 2, 6.25};
  r.GSHIFT = {0.5, -0.25, -1};
  r.GROT = {10, -20, 30};
  // expected: three plane rotations one after the other, elsewhere
  ExpectPoint(InputToShip(r, {12, -3, 7}), {0.12017309621574734, 0.005633478105994998, 0.026404044307981836});
}

// Four sides of a box 0.4 x 0.1 x 0.2 as stations that go around; above it a mesh box whose top is the transom.
Hull BoxHull() {
  Hull hull;
  HullSurface& side = hull.surfaces.emplace_back();
  side.KSTA = 5;
  side.KWL = 2;
  const double ring[5][2] = {{0.2, 0.05}, {-0.2, 0.05}, {-0.2, -0.05}, {0.2, -0.05}, {0.2, 0.05}};
  for (const auto& corner : ring)
    for (const double z : {-0.1, 0.1}) side.points.push_back({corner[0], corner[1], z});
  AddBox({0, 0, 1}, {1, 2, 3}, hull.mesh);
  hull.mesh.elements[2].node[3] = 0;
  hull.mesh.on_transom = {false, true, false, false, false, false};
  return hull;
}

TEST(HullCells, CornersNormalsAndComponents) {
  struct {
    int component, corners;
    Vector3 centre, normal;  // normal: twice the area; the surface's into the body, the mesh's outward
  } const expected[] = {{1, 4, {0, 0.05, 0}, {0, -0.16, 0}}, {1, 4, {-0.2, 0, 0}, {0.04, 0, 0}},
                        {1, 4, {0, -0.05, 0}, {0, 0.16, 0}}, {1, 4, {0.2, 0, 0}, {-0.04, 0, 0}},
                        {0, 4, {0.5, 1, 1}, {0, 0, -4}},     {0, 3, {2 / 3.0, 0, 5 / 3.0}, {0, -2, 0}},
                        {0, 4, {1, 1, 2}, {8, 0, 0}},        {0, 4, {0.5, 2, 2}, {0, 4, 0}},
                        {0, 4, {0, 1, 2}, {-8, 0, 0}}};
  std::size_t i = 0;
  VisitCells(BoxHull(), [&](const HullCell& cell) {
    ASSERT_LT(i, std::size(expected));
    EXPECT_EQ(cell.component, expected[i].component) << i;
    EXPECT_EQ(cell.corners, expected[i].corners) << i;
    for (std::size_t k = 0; k < 3; ++k) {
      EXPECT_NEAR(CellCentre(cell)[k], expected[i].centre[k], 1e-12) << i;
      EXPECT_NEAR(CellNormal(cell)[k], expected[i].normal[k], 1e-12) << i;
    }
    ++i;
  });
  EXPECT_EQ(i, std::size(expected));
}

TEST(HullCells, WaterlineInPieces) {
  Hull hull = BoxHull();
  std::vector<WaterlinePiece> pieces;
  EXPECT_EQ(CutHull(hull, 0.0, pieces), 4);
  double length = 0;
  for (const WaterlinePiece& piece : pieces) length += std::hypot(piece[1][0] - piece[0][0], piece[1][1] - piece[0][1]);
  EXPECT_NEAR(length, 1.0, 1e-12);
  EXPECT_EQ(CutHull(hull, 0.2, pieces), 0);
  EXPECT_EQ(CutHull(hull, 0.1, pieces), 4);  // in the plane counts as above
  for (int i = 0; i < 200; ++i) hull.surfaces.push_back(hull.surfaces[0]);
  EXPECT_EQ(CutHull(hull, 0.0, pieces), 804);
  EXPECT_EQ(pieces.size(), 500U);
}

}  // namespace
}  // namespace zaview
