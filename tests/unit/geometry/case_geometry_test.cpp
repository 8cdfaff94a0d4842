#include "geometry/case_geometry.h"

#include <algorithm>
#include <map>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "fake_platform.h"
#include "geometry/input_transform.h"
#include "meshes.h"

namespace zaview {
namespace {

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

// Of a file beside the run file, not of one of that name here.
TEST(CaseGeometry, TellsWhyTheFileThatIsThereIsNotOpened) {
  static std::string asked;
  FakePlatform fake;
  fake.Put("cases/hull", "0\n");
  Platform platform = fake.Get();
  platform.files.open_read = [](void*, const std::string& name) {
    asked = name;
    return kNoFile;
  };
  platform.files.why = [](void*) {
    return std::string(asked == "cases/hull" ? "Permission denied" : "No such file or directory");
  };
  Hull hull;
  EXPECT_FALSE(ReadCaseGeometry(platform, Records("hull"), "cases/", hull));
  EXPECT_EQ(fake.output, "ERROR opening geometry file: hull (Permission denied)\n");
}

TEST(InputTransform, RotatesAboutTheOriginThenShifts) {
  ControlRecords r;
  r.LENIN = 100, r.ANGIN = 57.29578;
  r.GORIG = {1, 2, 6.25};
  r.GSHIFT = {0.5, -0.25, -1};
  r.GROT = {10, -20, 30};
  // expected: three plane rotations one after the other, elsewhere
  ExpectPoint(InputToShip(r, {12, -3, 7}), {0.12017309621574734, 0.005633478105994998, 0.026404044307981836});
}

}  // namespace
}  // namespace zaview
