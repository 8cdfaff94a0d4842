#include <cmath>
#include <cstdio>
#include <fstream>
#include <numbers>

#include <gtest/gtest.h>

#include "analysis/run_exports/moving_mesh.h"
#include "analysis/run_exports/netcdf_file.h"
#include "analysis/run_exports/nndata.h"
#include "analysis/run_exports/point_slams.h"
#include "analysis/run_exports/run_vtk.h"
#include "fake_platform.h"

namespace zaview {
namespace {

TEST(PointSlams, OfAHarmonic) {  // r = cos(t) on a still sea: in at pi/2, 5 pi/2 with speed 1; a gap hides the second
  std::vector<float> time, wave;
  std::vector<double> height;
  for (int i = 0; i < 200; ++i) {
    time.push_back(static_cast<float>(i) * 0.1F);
    wave.push_back(0.5F);
    height.push_back(0.5 + std::cos(i * 0.1));
  }
  const StepGap gap{83, 84};
  std::vector<PointSlam> slams;
  ASSERT_TRUE(FindPointSlams({5, time, wave, height, {&gap, 1}}, slams));
  ASSERT_EQ(slams.size(), 2U);
  EXPECT_EQ(slams[0].step, 5 + 16);
  EXPECT_NEAR(slams[0].time, std::numbers::pi / 2, 1e-4);
  EXPECT_NEAR(slams[1].time, 9 * std::numbers::pi / 2, 1e-4);
  EXPECT_NEAR(slams[0].speed, 1, 2e-3);
  EXPECT_EQ(slams[0].wave, 0.5);
}

TEST(MovingMesh, OfSurfacesAndElements) {
  Hull hull;
  HullSurface surface;
  surface.KSTA = 2;
  surface.KWL = 3;
  for (int i = 0; i < 6; ++i) surface.points.push_back({1.0 * i, 0, 0});
  hull.surfaces = {surface, surface};
  hull.mesh.nodes.resize(3);
  hull.mesh.elements = {{{1, 2, 3, 0}}};
  CaseStore store;
  store.ships.resize(1);
  store.ships[0].centre = {0.5, 0, 0};
  const MovingMesh mesh = MeshOfHull(store, hull);
  ASSERT_EQ(mesh.nodes.size(), 15U);
  ASSERT_EQ(mesh.elements.size(), 5U);
  EXPECT_EQ(mesh.nodes[7][0], 0.5);
  EXPECT_EQ(mesh.elements[3].node, (std::array{8, 9, 12, 11}));
  EXPECT_EQ(mesh.elements[4].node, (std::array{13, 14, 15, 0}));
}

// Read by another program; without it the format's first bytes are looked at alone.
TEST(NetcdfFile, IsReadByAnotherProgram) {
  NetcdfTable table;
  table.attributes = {{"title", "a \"run\""}, {"none", ""}};
  table.rows = 3;
  table.variables = {{"time", "Time", "s"}, {"vbm_2", "Vertical Bending Moment, X=25", "kN m"}, {"bare", "Bare", ""}};
  table.values = [](std::size_t i, std::vector<float>& values) {
    values = {0.5F, 1.5F * static_cast<float>(i), -7.0E8F};
    return true;
  };
  std::string bytes;
  ASSERT_EQ(EncodeNetcdf(table, bytes), NetcdfFault::none);
  EXPECT_EQ(bytes.substr(0, 4), std::string("CDF\2"));
  NetcdfTable short_table = table;
  short_table.rows = 4;
  std::string none;
  EXPECT_EQ(EncodeNetcdf(short_table, none), NetcdfFault::no_values);
  const std::string name = testing::TempDir() + "zaview_netcdf_test.nc", dump = "ncdump " + name + " 2>&1";
  std::ofstream(name, std::ios::binary) << bytes;
  std::string said;
  if (FILE* const pipe = popen(dump.c_str(), "r")) {
    for (char block[512]; fgets(block, sizeof block, pipe) != nullptr;) said += block;
    pclose(pipe);
  }
  std::remove(name.c_str());
  if (said.find("netcdf zaview") == std::string::npos) GTEST_SKIP() << said;
  for (const char* part : {"time = 3 ;", "float vbm_2(time) ;", "vbm_2:long_name = \"Vertical Bending Moment, X=25\" ;",
                           "vbm_2:units = \"kN m\" ;", ":title = \"a \\\"run\\\"\" ;", "vbm_2 = 0.5, 1.5, -7e+08 ;",
                           "bare = 0.5, 3, -7e+08 ;"})
    EXPECT_NE(said.find(part), std::string::npos) << part << "\n" << said;
  EXPECT_EQ(said.find("bare:units"), std::string::npos);
}

// A file beside the run that can't be read: the reason is that of this one, not of the name as given.
TEST(MovingMesh, TellsWhyItsFileIsNotOpened) {
  FakePlatform fake;
  fake.Put("/run/hull.hrl", "");
  Platform platform = fake.Get();
  static std::string asked;  // last
  platform.files.open_read = [](void*, const std::string& name) { return asked = name, kNoFile; };
  platform.files.why = [](void*) { return asked == "/run/hull.hrl" ? std::string("locked") : "no such file"; };
  CaseStore store;
  store.file_name = "/run/run.out";
  MovingMesh mesh;
  EXPECT_FALSE(ReadMovingMesh(platform, "HRL:hull.hrl", store, mesh));
  EXPECT_EQ(fake.output, "ERROR opening geometry file: hull.hrl (locked)\n");
}

TEST(RunExports, NamesAreTextsOfXmlAndNumbersAreNumbers) {
  FakePlatform fake;
  CaseStore store;
  store.motions_known = true;
  store.last_read = store.last_step = 1;
  store.time.component.assign(1, {0.0F});
  store.pmgg.component.assign(6, {NAN});
  OutputSettings settings;
  ASSERT_TRUE(WriteRunVtk(fake.Get(), settings, "/a&\"b<c", store)) << fake.output;
  const std::string collection = fake.Bytes("/a&\"b<c.pvd");
  EXPECT_NE(collection.find("file=\"a&amp;&quot;b&lt;c_sea_1.vts\""), std::string::npos) << collection;
  MovingMesh mesh;
  mesh.nodes = {{1, 0, 0}};
  OutputFile out;
  const Platform platform = fake.Get();
  ASSERT_TRUE(OpenOutput(platform, "/mesh", OpenHow::replace, out));
  ASSERT_TRUE(WriteMovingMesh(settings, store, mesh, out) && CloseOutput(out));
  EXPECT_EQ(fake.Bytes("/mesh"), "!time= 0\n1 0\n0 0 0\n") << "what is no number is 0, as in all tables";
}

TEST(NetworkInput, AnnouncedAndInOrder) {
  const struct {
    std::string_view text, file, message;
    std::size_t points;
    int grid;  // columns along y; -1: refused
  } cases[] = {
      {"$WIND:\n7\n $nndata : ours\n!NNDATA01\na.txt\n!NNDATA02\n2\n1 2 3\n4 5 6\n!NNDATA03\n0 1 2 0 1 3\n$WIND:\n1\n",
       "a.txt", "", 2, 3},
      {"! of a run\nnndata 1\n1\n1 2 3\n\n0 1 2 0 1 4\n", "nndata 1", "", 1, 4},
      {"\n0\n", "", "", 0, 0},
      {"!NNDATA01\n!NNDATA02\n1\n1 2 3\n", "", "", 1, 0},
      {"!NNDATA03\n0 1 1 0 1 1\n", "", "", 0, 1},
      {"", "", "", 0, 0},
      {"a\n1\n1 2\n", "a", "ERR202 - End-of-file reading data set 2 of input module NNDATA", 0, -1},
      {"a\n1\n1 NaN 2\n", "a", "ERR201 - Error reading data set 2 of input module NNDATA", 0, -1},
      {"a\n-1\n", "a", "ERROR - Illegal value (-1) for number of NNDATA points, 0 to 10000", 0, -1},
      {"a\n0\n0 1 200 0 1 200\n", "a", "ERROR - Illegal value (40000) for number of NNDATA grid points, 0 to 10000", 0,
       -1},
      {"a\n0\n0 Inf 2 0 1 2\n", "a", "ERR201 - Error reading data set 3 of input module NNDATA", 0, -1},
  };
  for (const auto& c : cases) {
    FakePlatform fake;
    fake.Put("net", std::string(c.text));
    NetworkInput input;
    EXPECT_EQ(ReadNetworkInput(fake.Get(), "net", input), c.grid >= 0) << c.text;
    EXPECT_EQ(fake.output, c.message.empty() ? "" : std::string(c.message) + "\n");
    if (c.grid < 0) continue;
    EXPECT_EQ(input.NNDATA_FILE, c.file) << c.text;
    EXPECT_EQ(input.NNDATA_RPT.size(), c.points) << c.text;
    EXPECT_EQ(input.NNDATA_FSGT.count[1], c.grid) << c.text;
  }
}

}  // namespace
}  // namespace zaview
