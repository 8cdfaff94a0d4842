#include "case/plot_data.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <set>

#include <gtest/gtest.h>

#include "base/rotation.h"
#include "case/quantity_catalogue.h"
#include "case/quantity_label.h"
#include "case/tables/history_dialogue.h"
#include "case/tables/history_table.h"
#include "case/tables/load_table.h"
#include "fake_platform.h"
#include "small_case.h"

namespace zaview {
namespace {

constexpr std::array<float, 6> kModel = {1, -1, -1, 1, -1, -1};

struct Fixture {
  FakePlatform fake;
  CaseStore c;
  OutputSettings settings;
  PlotData data;

  explicit Fixture(int first = 1, int n = 8) : c(SmallCase(first, n)) {
    AddLoads(c, first, n);
    settings = SettingsFor(c);
  }
  DataFault Set(int iqnt, int curve) {
    QuantityRequest request;
    request.iqnt = iqnt;
    request.curve = curve;
    request.point = {40.0, 3.0, 12.0};
    request.missile = {1.0F, 2.0F, 3.0F, 4.0F};
    return SetPlotData(fake.Get().console, settings, request, c, data);
  }
};

// Source, scale and sign of each quantity: exact, in the order stored x scale x sign.
TEST(PlotData, StoredTimesScaleTimesSign) {
  Fixture f;
  f.settings.units.cnvfac = kModel;
  const OutputScales& s = f.settings.units.scales;
  const CaseStore& c = f.c;
  const auto slots = [&](int first, int last, int i) {
    float sum = c.force.at(6 * (first - 1) + i, 3);
    for (int slot = first + 1; slot <= last; ++slot) sum += c.force.at(6 * (slot - 1) + i, 3);
    return sum;
  };
  // clang-format off
  const std::tuple<int, int, float> rows[] = {
      {1, 3, -(c.pmgg.at(3, 3) * s.position[2])}, {2, 5, -(c.vmg.at(5, 3) * s.velocity[4])},
      {3, 4, c.acc.at(4, 3) * s.acceleration[3]}, {6, 3, -(slots(1, 5, 3) * s.force[2])},
      {7, 5, -(slots(1, 2, 5) * s.force[4])},     {8, 1, slots(1, 1, 1) * s.force[0]},
      {9, 2, -(slots(2, 2, 2) * s.force[1])},     {10, 6, -(slots(3, 3, 6) * s.force[5])},
      {11, 4, slots(4, 4, 4) * s.force[3]},       {12, 1, slots(5, 5, 1) * s.force[0]},
      {13, 2, c.load_force[0].at(2, 3) * s.load_force}, {24, 1, c.load_moment[5].at(1, 3) * s.load_moment},
      {33, 5, c.rudder_ang.at(1, 3) * s.angle}, {33, 6, c.prop_rps.at(1, 3) * 0.3132091952673165F},
      {33, 3, c.pmgg.at(6, 3) * s.angle}};
  // clang-format on
  for (const auto& [iqnt, curve, want] : rows) {
    ASSERT_EQ(f.Set(iqnt, curve), DataFault::none) << iqnt;
    EXPECT_EQ(f.data.y.at(0).at(2), want) << iqnt << ' ' << curve;
    EXPECT_EQ(f.data.x.at(2), c.time.at(1, 3) * s.T);
  }
}

// Made of rotations: other program, a few of its last places free.
TEST(PlotData, PointQuantities) {
  Fixture f;
  // clang-format off
  const std::tuple<bool, int, int, std::size_t, double> rows[] = {
      {false, 27, 2, 1, 37.2756094}, {true, 27, 2, 1, -37.2756094}, {false, 28, 4, 1, 5.17934561},
      {true, 28, 4, 8, 8.49500465}, {true, 32, 9, 8, -11.6032181}, {true, 31, 9, 8, -0.182794899 * 9.81},
      {false, 32, 7, 8, 0.188534215 * 9.81}, {false, 48, 1, 1, 44.1772919}, {true, 48, 1, 8, -41.4650726},
      {true, 36, 3, 8, -23.6623719}, {true, 36, 5, 8, -0.43 * 57.29578}, {false, 36, 8, 1, 1.57684},
      {true, 38, 18, 1, -0.065 * 5.620716018}};
  // clang-format on
  for (const auto& [model, iqnt, curve, step, want] : rows) {
    f.settings.units.cnvfac = model ? kModel : std::array<float, 6>{1, 1, 1, 1, 1, 1};
    ASSERT_EQ(f.Set(iqnt, curve), DataFault::none) << iqnt;
    EXPECT_NEAR(f.data.y.at(0).at(step - 1), want, 3e-6 * std::fabs(want)) << iqnt << ' ' << curve;
  }
  EXPECT_EQ(f.fake.output, "Calculating motion for ship fixed point...\nInitial static coordinates 40 3 5.75\n")
      << "once";
}

TEST(PlotData, StrideAndTrims) {
  Fixture f(371, 10);
  f.c.first_step = 373;
  f.c.last_step = 379;
  f.settings.reading.step_stride = 3;
  ASSERT_EQ(f.Set(1, 0), DataFault::none);
  EXPECT_EQ(f.data.n, 3);  // 373 376 379
  EXPECT_EQ(f.data.labels.at(5), "pmgg(6)");
  EXPECT_EQ(f.data.y.at(1).at(1), f.c.pmgg.at(2, 376) * f.settings.units.scales.position[1]);
  ASSERT_EQ(f.Set(1, 2), DataFault::none);
  EXPECT_EQ(f.data.y.size(), 1U);
  EXPECT_EQ(f.data.y.at(0).at(2), f.c.pmgg.at(2, 379) * f.settings.units.scales.position[1]);
  f.c.last_step = 372;
  ASSERT_EQ(f.Set(1, 2), DataFault::none);
  EXPECT_TRUE(f.data.x.empty());
}

// One wave from ahead, growing over the first steps: elevations at the CG, at the origin and at the point, and what
// is left of the point's motion when its steady place and the wave are taken off.
TEST(PlotData, WavesAndRelativeMotion) {
  Fixture f;
  SeawayInput& sea = f.c.control.seaway;
  sea.ISEA = 1;
  sea.waves = {WaveComponentInput{0.7, 25, 2, 180}};
  sea.NWSC = 2;
  sea.WSCSTP = {1, 5};
  sea.WSCFAC = {0.5, 1};
  const double w = 0.7 * std::sqrt(100 / 9.81), k = w * w, radians = std::numbers::pi / 180;
  const auto eta = [&](int step, double x) {
    const double grown = step >= 5 ? 1 : step == 3 ? 0.75 : 0.578125;  // half way, and a quarter of the way
    return grown * 2 * std::cos(-k * x - w * static_cast<double>(f.c.time.at(1, step)) + 25 * radians);
  };
  const Rotation start = ShipToGlobal(3.0 / 57.29578, 4.0 / 57.29578, 5.0 / 57.29578);
  const Vector3 r0 = ToGlobal(start, {0.39, 0.03, 0.07});  // (40, 3, 12) from the CG
  for (const int step : {2, 3, 8}) {
    const auto at = static_cast<std::size_t>(step - 1);
    ASSERT_EQ(f.Set(25, 1), DataFault::none);
    EXPECT_NEAR(f.data.y[0][at], eta(step, static_cast<double>(f.c.pmgg.at(1, step))), 1e-5) << step;
    ASSERT_EQ(f.Set(26, 1), DataFault::none);
    EXPECT_NEAR(f.data.y[0][at], eta(step, 0), 1e-5) << step;
    ASSERT_EQ(f.Set(27, 0), DataFault::none);
    const double x = static_cast<double>(f.data.y[0][at]), z = static_cast<double>(f.data.y[2][at]);
    ASSERT_EQ(f.Set(30, 0), DataFault::none);
    EXPECT_NEAR(f.data.y[0][at], x - (1 + 100 * r0[0]) - 7.5 * 0.25 * (step - 1), 2e-4) << step;
    EXPECT_NEAR(f.data.y[2][at], z - (-1.25 + 100 * r0[2]) - eta(step, x / 100), 2e-4) << step;
    EXPECT_NEAR(f.data.y[3][at], eta(step, x / 100) - z, 2e-4) << step;
    ASSERT_EQ(f.Set(37, 19), DataFault::none);
    EXPECT_NEAR(f.data.y[0][at], eta(step, static_cast<double>(f.c.pmgg.at(1, step))), 1e-5) << step;
  }
  EXPECT_EQ(f.fake.output,
            "Calculating incident wave at CG/Origin...\n"
            "Calculating motion for ship fixed point...\nInitial static coordinates 40 3 5.75\n");
}

// 875 m from the start, with the ship at its steady place: the places in store are good to 5e-5 m there only.
TEST(PlotData, RelativeMotionFarOut) {
  Fixture f(468, 3);
  f.c.pmgg.component[0] = {8.766F, 8.7851F, 8.8039F};
  ASSERT_EQ(f.Set(30, 1), DataFault::none);
  const Vector3 r0 = ToGlobal(ShipToGlobal(3.0 / 57.29578, 4.0 / 57.29578, 5.0 / 57.29578), {0.39, 0.03, 0.07});
  for (int s = 0; s < 3; ++s) {
    const auto angle = [&](int i) { return static_cast<double>(f.c.pmgg.at(i, 468 + s)); };
    const Vector3 r = ToGlobal(ShipToGlobal(angle(4), angle(5), angle(6)), {0.39, 0.03, 0.07});
    const double want = 100 * (angle(1) + r[0] - r0[0]) - 1 - 7.5 * 0.25 * (467 + s);
    EXPECT_NEAR(static_cast<double>(f.data.y[0][static_cast<std::size_t>(s)]), want, 2e-6) << s;
  }
}

TEST(PlotData, Refusals) {
  Fixture f;
  // clang-format off
  const std::tuple<int, int, DataFault, std::string> rows[] = {
      {0, 1, DataFault::said, "LOGIC ERROR in SetPlotData: iqnt= 0\n"},
      {99, 1, DataFault::said, "LOGIC ERROR in SetPlotData: iqnt= 99\n"},
      {1, 7, DataFault::not_valid, ""}, {1, -1, DataFault::not_valid, ""}, {15, 0, DataFault::not_valid, ""}};
  // clang-format on
  for (const auto& [iqnt, curve, fault, words] : rows) {
    f.fake.output.clear();
    EXPECT_EQ(f.Set(iqnt, curve), fault) << iqnt;
    EXPECT_EQ(f.fake.output, words);
  }
}

TEST(StatPoints, CountFileStepsWhateverTheStride) {
  // clang-format off
  const struct { int first_step, last_step, skip, terminal, stride, first, n; } rows[] = {
      {1, 3000, 300, 0, 1, 300, 2700},                          // positions 301 .. 3000
      {1, 10, 3, 2, 1, 3, 5},           {1, 10, 3, 2, 3, 1, 2}, // points 1 4 7 10, of these 4 <= step <= 8
      {371, 700, 165, 0, 7, 24, 24},                            // 539 .. 700
      {1, 10, -1, 0, 1, 0, 10},         {1, 10, 10, 0, 1, 0, 0},
      {1, 10, 0, 2000000000, 1, 0, 0},  {1, 0, 0, 0, 1, 0, 0}};
  // clang-format on
  for (const auto& row : rows) {
    CaseStore c;
    c.first_step = row.first_step, c.last_step = row.last_step, c.skip_effective = row.skip;
    OutputSettings settings;
    settings.reading.skip_terminal = row.terminal;
    settings.reading.step_stride = row.stride;
    const StatRange range = StatPoints(c, settings);
    EXPECT_EQ(range.first, row.first) << row.skip << ' ' << row.stride;
    EXPECT_EQ(range.n, row.n) << row.skip << ' ' << row.stride;
  }
}

TEST(QuantityCatalogue, CurveLabels) {
  CaseStore c = SmallCase(1, 2);
  AddLoads(c, 1, 2);
  OutputSettings settings = SettingsFor(c);
  // clang-format off
  const struct { int iqnt, curve; std::string_view label; } rows[] = {
      {1, 3, "pmgg(3)"}, {5, 6, "vmgshp(6)"}, {6, 1, "Ftotal(1)"}, {10, 2, "hdpfor(2)"}, {11, 1, "othfor(1)"},
      {12, 4, "extfor(4)"}, {14, 2, "Moment, X=-12.5"}, {23, 1, "Force, Y=2.5"}, {25, 1, "Eta"}, {26, 1, "Eta0"},
      {27, 3, "Z"}, {28, 4, "Vmag"}, {29, 4, "dVmag/dt"}, {30, 4, "deltaZ"}, {31, 9, "dVz/dt"}, {32, 4, "Vx"},
      {33, 6, "Prop RPS"}, {33, 2, "Slip Angle"}, {36, 18, "dV_yaw/dt"}, {37, 19, "Wave@CG"}, {37, 20, "Rudder_Defl"},
      {38, 10, "V_roll"}, {39, 1, "vmgg(1)"}, {41, 6, "Ftotals(6)"}, {45, 1, "hdpfors(1)"}, {47, 1, "extfors(1)"},
      {48, 1, "Load"}, {34, 1, ""}, {50, 1, ""}, {28, 5, ""},
  };
  // clang-format on
  for (const auto& row : rows) EXPECT_EQ(CurveLabel(c, settings, row.iqnt, row.curve), row.label) << row.iqnt;
  for (int iqnt = 1; iqnt <= kQuantities; ++iqnt) {
    std::set<std::string> labels;
    for (int curve = 1; curve <= CurveCount(c, iqnt); ++curve) labels.insert(CurveLabel(c, settings, iqnt, curve));
    EXPECT_EQ(labels.size(), static_cast<std::size_t>(CurveCount(c, iqnt))) << iqnt;
    EXPECT_EQ(labels.count(""), 0U) << iqnt;
  }
  settings.units.LENOUT = 328.0F;  // cuts are shown in output lengths
  EXPECT_EQ(CurveLabel(c, settings, 13, 1), "Force, X=82");
}

TEST(QuantityCatalogue, TitlesAndUnits) {
  const CaseStore c = SmallCase(1, 2);
  const auto title = [&c](int iqnt) { return setqntlabel(c, {iqnt, 0, {40, -2.5, 12}, {1, 0, 2, 0.5F}}); };
  EXPECT_EQ(title(1), "Position of CG");
  EXPECT_EQ(title(8), "Linear Hydrodynamic force in global coordinates");
  EXPECT_EQ(title(47), "External (non-press) force in ship-fixed coords");
  EXPECT_EQ(title(27), "Motion of point 40 -2.5 12");
  EXPECT_EQ(title(32), "Combined motion+gravity of point 40 -2.5 12");
  EXPECT_EQ(title(48), "Missile Motion/Load of point 40 -2.5 12, C= 1 0 2 0.5");
  EXPECT_EQ(title(50), "LOGIC ERROR in setqntlabel");
  // GRAVOUT, RHOOUT, LENOUT of a case of 9.81, 1025, 100 and its degrees; units of surge, yaw rate, pitch moment,
  // slip, point acceleration, all of quantity 1, all of 25.
  const struct {
    float g, rho, L, a;
    std::string_view units;
  } rows[] = {{9.81F, 1025, 100, 57.29578F, "m|deg/s|N-m|deg|m/s^2||m"},
              {9.81F, 1.025F, 100, 1, "m|rad/s|kN-m|rad|m/s^2||m"},
              {32.174F, 1.9905F, 328.084F, 1, "ft|rad/s|ft-lb|rad|ft/s^2||ft"},
              {9.81F, 1, 100, 2, "m||kN-m||m/s^2||m"},
              {9.81F, 62.4F, 100, 2, "m||||m/s^2||m"},
              {9.81F, 1025, 1, 1, "|||rad|||"},
              {1, 1, 1, 1, "|||rad|||"}};  // lengths as parts of the ship's
  for (const auto& row : rows) {
    OutputSettings settings;
    settings.units.GRAVOUT = row.g, settings.units.RHOOUT = row.rho, settings.units.LENOUT = row.L;
    settings.units.ANGOUT = row.a;
    std::string units;
    for (const auto& [iqnt, curve] : {std::pair{1, 1}, {2, 6}, {6, 5}, {33, 2}, {29, 4}, {1, 0}, {25, 0}})
      units += (units.empty() && iqnt == 1 ? "" : "|") + CurveUnit(c, settings, iqnt, curve);
    EXPECT_EQ(units, row.units) << row.g << ' ' << row.rho << ' ' << row.L;
  }
  PointSettings point;
  EXPECT_TRUE(PointGiven(point, 25) && !PointGiven(point, 27));
  point.given = true;
  EXPECT_TRUE(PointGiven(point, 30) && !PointGiven(point, 48));
}

TEST(QuantityCatalogue, WhatACaseHas) {
  const auto valid = [](const CaseStore& c) {
    std::string list;
    for (int iqnt = 0; iqnt <= kQuantities + 1; ++iqnt)
      if (QuantityValid(c, iqnt)) list += std::to_string(iqnt) + ' ';
    return list;
  };
  const std::string motions = "25 26 27 28 29 30 31 32 33 34 35 36 37 38 39 40 41 42 43 44 45 46 47 48 ";
  CaseStore c = SmallCase(1, 2);
  EXPECT_EQ(valid(c), "1 2 3 4 5 6 7 8 9 10 11 12 " + motions);
  AddLoads(c, 1, 2);
  EXPECT_EQ(valid(c), "1 2 3 4 5 6 7 8 9 10 11 12 13 14 23 24 " + motions);
  c.holds.load_moment = false;
  EXPECT_EQ(valid(c), "1 2 3 4 5 6 7 8 9 10 11 12 13 23 " + motions);
  c.loads = {};
  c.holds = {.other_force = false, .rudder = true, .prop_rps = false};
  EXPECT_EQ(valid(c), "1 2 3 4 5 6 7 8 9 10 25 26 27 28 29 30 31 32 33 34 35 36 37 38 39 40 41 42 43 44 45 48 ");
  EXPECT_EQ(CurveCount(c, 33), 5);
  c.holds = {.force = false, .other_force = false, .rudder = false};
  EXPECT_EQ(valid(c), "1 2 3 4 5 25 26 27 28 29 30 31 32 34 35 36 37 38 39 40 48 ");
  c.last_read = 0;
  EXPECT_EQ(valid(c), "");
}

struct Wanted {
  int iqnt = 1;
  OpenHow how = OpenHow::replace;
  std::string before = {};
  bool unformatted = false;
  std::string name = "out.txt";
  int steps = 2;
  DataFault fault = DataFault::none;
  int load_step = 0;  // above 0: a load distribution there
  int stride = 1, first_step = 1, smoothing = 0;
};

std::string Write(const Wanted& wanted) {  // the file, or what stands on the console
  FakePlatform fake;
  if (!wanted.before.empty()) fake.Put("out.txt", wanted.before);
  const Platform platform = fake.Get();
  CaseStore c = SmallCase(1, wanted.steps);
  AddLoads(c, 1, wanted.steps);
  c.first_step = wanted.first_step;
  OutputSettings settings = SettingsFor(c);
  settings.reading.step_stride = wanted.stride;
  settings.smoothing.option = wanted.smoothing;
  QuantityRequest request;
  request.iqnt = wanted.iqnt;
  request.point = {40.0, 0.0, 12.5};
  OutputFile out;
  EXPECT_TRUE(OpenOutput(platform, wanted.name, wanted.how, out));
  if (wanted.load_step > 0) {
    settings.units.scales.load_force = 2.0F;
    c.load_force[0].component[0] = {5.0F, -2.0F, 7.0F, 1.0F, -9.0F, 3.0F};
    EXPECT_EQ(LoadDistFil(platform.console, settings, wanted.iqnt, wanted.load_step, c, out), wanted.fault);
  } else {
    EXPECT_EQ(write_time_history(platform.console, settings, request, wanted.unformatted, c, out), wanted.fault);
  }
  EXPECT_TRUE(CloseOutput(out));
  return wanted.name.empty() ? fake.output : fake.Bytes("out.txt");
}

TEST(HistoryTable, Formatted) {
  const std::string once =
      "Time History of Vertical Shear Force for ZAVO file run.out\n"
      "      Time      Force, X=25 Force, X=-12.5\n"
      "    0.2499927  1.106078E+07   2.111602E+07\n"
      "    0.4999853  1.206630E+07   2.212155E+07\n";
  EXPECT_EQ(Write({.iqnt = 13}), once);
  EXPECT_EQ(Write({.iqnt = 13, .name = ""}), once);
  EXPECT_EQ(Write({.iqnt = 13, .how = OpenHow::append, .before = once}), once + "\n" + once);
  const std::string point = Write({.iqnt = 28});
  EXPECT_EQ(point.substr(0, point.find('\n')),
            "Time History of Velocity of a ship-fixed point for ZAVO file run.out point= 40 0 12.5");
  const std::string blocks = Write({.iqnt = 1, .steps = 3000});  // more text than one block
  EXPECT_EQ(std::count(blocks.begin(), blocks.end(), '\n'), 3002);
  EXPECT_EQ(blocks.substr(blocks.size() - 98, 13), "     749.9780");
  (void)Write({.iqnt = 50, .fault = DataFault::said});
}

TEST(HistoryTable, UnformattedRecords) {
  const std::string bytes = Write({.iqnt = 13, .unformatted = true});
  ASSERT_EQ(bytes.size(), 2U * (4 + 12 + 4));
  EXPECT_EQ(bytes.substr(0, 4), std::string("\x0C\0\0\0", 4));
  EXPECT_EQ(bytes.substr(16, 8), std::string("\x0C\0\0\0\x0C\0\0\0", 8));
  float time = 0;
  std::copy_n(bytes.data() + 24, 4, reinterpret_cast<char*>(&time));
  EXPECT_NEAR(time, 0.4999853F, 1e-6F);
  (void)Write({.iqnt = 13, .unformatted = true, .name = "", .fault = DataFault::not_valid});
}

// An impulsive run has numbers of its own: its 34th function is no KINO file.
TEST(HistoryTable, AskedForTheFunctionWithTheNumberOfAKinoFile) {
  FakePlatform fake;
  fake.input = {"out.txt"};
  CaseStore c = SmallCase(1, 0);
  c.control.FGEOM = "hull.geo";
  c.irf_case = true;
  c.irfs.resize(kKinoSeaway);
  FillLine(c.irfs[kKinoMotions - 1].time, 1, 1, 2, 0, 0, 1);
  FillLine(c.irfs[kKinoMotions - 1].force, 6, 1, 2, 0, 1, 0);
  AskHistoryFile(fake.Get(), SettingsFor(c), {.iqnt = kKinoMotions}, c);
  EXPECT_EQ(fake.output.substr(0, fake.output.find('\n')), "Enter time history output file name:") << fake.output;
  EXPECT_EQ(fake.output.find("-gshift"), std::string::npos) << fake.output;
  EXPECT_NE(fake.Bytes("out.txt").find("firf(6)"), std::string::npos);
}

// The value is of any step in use; least and largest are of the points: with stride 2 these are steps 1, 3 and 5.
TEST(LoadTable, ARowACut) {
  EXPECT_EQ(Write({.iqnt = 13, .steps = 6, .load_step = 2, .stride = 2}),
            "Load Distribution of Vertical Shear Force for ZAVO file run.out at step 2 time= 0.4999853\n"
            "            X         Value       Minimum       Maximum\n"
            "     25.00000     -4.000000     -18.00000      14.00000\n"
            "    -12.50000   0.004400000   0.004200000   0.005000000\n");
  // Smoothed as the extremes are: (-3 12 17 12 -3)/35 about step 4 of 2 (-2 7 1 -9 3).
  const std::string smoothed = Write({.iqnt = 13, .steps = 6, .load_step = 4, .smoothing = 1});
  EXPECT_NEAR(std::stod(smoothed.substr(smoothed.find("25.00000") + 8)), 2 * (6 + 84 + 17 - 108 - 9) / 35.0, 1e-5);
  EXPECT_EQ(Write({.iqnt = 13, .name = "", .steps = 6, .fault = DataFault::said, .load_step = 1, .first_step = 7}),
            "ERROR - Too many steps skipped or trimmed - over\n");
  EXPECT_EQ(Write({.iqnt = 15, .steps = 6, .fault = DataFault::not_valid, .load_step = 1}), "");
}

}  // namespace
}  // namespace zaview
