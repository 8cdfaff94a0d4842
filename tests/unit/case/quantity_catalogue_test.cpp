#include "case/quantity_catalogue.h"

#include <set>

#include <gtest/gtest.h>

#include "case/quantity_label.h"
#include "small_case.h"

namespace zaview {
namespace {

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
      {48, 1, "Load"}, {34, 1, ""}, {49, 1, ""}, {28, 5, ""},
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
  EXPECT_EQ(title(49), "LOGIC ERROR in setqntlabel");
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
    settings.units.GRAVOUT = row.g;
    settings.units.RHOOUT = row.rho;
    settings.units.LENOUT = row.L;
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

}  // namespace
}  // namespace zaview
