#include "case/quantity_catalogue.h"

#include <set>

#include <gtest/gtest.h>

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
  c.has_other_force = false;
  c.loads = {};
  EXPECT_EQ(valid(c), "1 2 3 4 5 6 7 8 9 10 25 26 27 28 29 30 31 32 33 34 35 36 37 38 39 40 41 42 43 44 45 48 ");
  c.last_read = 0;
  EXPECT_EQ(valid(c), "");
}

}  // namespace
}  // namespace zaview
