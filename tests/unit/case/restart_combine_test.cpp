#include "case/restart_combine.h"

#include <gtest/gtest.h>

#include "case/derived_arrays.h"
#include "fake_platform.h"
#include "small_case.h"

namespace zaview {
namespace {

// Steps first .. last of which every value but the time is `value`. Time scale and DTH: 1 and 0.25.
CaseStore Part(int first, int last, float value) {
  const int n = last - first + 1;
  CaseStore part = SmallCase(first, n);
  AddLoads(part, first, n);
  part.control.GRAVIN = part.control.LENIN = 1;
  FillLine(part.time, 1, first, n, -0.25, 0, 0.25);
  for (StepHistory* history : {&part.pmgg, &part.vmg, &part.acc, &part.force, &part.rudder_cmd, &part.rudder_ang,
                               &part.prop_rps, &part.load_force[0], &part.load_moment[5]})
    for (std::vector<float>& column : history->component) std::fill(column.begin(), column.end(), value);
  return part;
}

std::vector<float> Column(const StepHistory& history, int i, const CaseStore& c) {
  const std::span<const float> column = history.range(i, c.first_read, c.last_read);
  return {column.begin(), column.end()};
}

using Values = std::vector<float>;

TEST(RestartCombine, OverlapNewDataWins) {
  const CaseStore old = Part(1, 4, 1);
  CaseStore fresh = Part(3, 5, 2);
  ASSERT_TRUE(CombineHistories(old, fresh));
  EXPECT_EQ(fresh.first_read, 1);
  EXPECT_EQ(fresh.last_read, 5);
  EXPECT_TRUE(fresh.combined && fresh.gaps.empty());
  EXPECT_EQ(Column(fresh.time, 1, fresh), (Values{0, 0.25, 0.5, 0.75, 1}));
  for (const StepHistory* history : {&fresh.pmgg, &fresh.vmg, &fresh.acc, &fresh.force, &fresh.rudder_cmd,
                                     &fresh.rudder_ang, &fresh.prop_rps, &fresh.load_force[0], &fresh.load_moment[5]})
    for (int i = 1; i <= history->components(); ++i) EXPECT_EQ(Column(*history, i, fresh), (Values{1, 1, 2, 2, 2}));
}

TEST(RestartCombine, PartsThatEndEarlier) {
  const CaseStore old = Part(1, 9, 1);  // steps behind the new last one are gone
  CaseStore fresh = Part(3, 4, 2);
  ASSERT_TRUE(CombineHistories(old, fresh));
  EXPECT_EQ(fresh.last_read, 4);
  EXPECT_EQ(Column(fresh.pmgg, 1, fresh), (Values{1, 1, 2, 2}));
}

// A clock that is a little off shows by which rule a gap gets its times.
TEST(RestartCombine, GapsAreZeroWithTimesByRule) {
  CaseStore old = Part(1, 2, 1);
  old.time.component[0][1] = 0.3125F;
  CaseStore second = Part(5, 6, 2);
  ASSERT_TRUE(CombineHistories(old, second));
  EXPECT_EQ(Column(second.time, 1, second), (Values{0, 0.3125, 0.5625, 0.8125, 1, 1.25}));
  EXPECT_EQ(Column(second.prop_rps, 1, second), (Values{1, 1, 0, 0, 2, 2}));

  for (const Derived what : {Derived::motion, Derived::accg, Derived::force_ship})
    ASSERT_TRUE(EnsureDerived(second, what));
  for (const int step : {3, 4}) {
    EXPECT_EQ(second.motion.at(1, step), 0.0F);
    EXPECT_EQ(second.motion.at(5, step), 0.0F);
    EXPECT_EQ(second.accg.at(3, step), 0.0F);
  }
  EXPECT_NE(second.motion.at(1, 5), 0.0F);

  CaseStore third = Part(4, 4, 3);  // cuts the gap; what was behind it is gone
  ASSERT_TRUE(CombineHistories(second, third));
  EXPECT_EQ(Column(third.pmgg, 3, third), (Values{1, 1, 0, 3}));
  ASSERT_EQ(third.gaps.size(), 1U);
  EXPECT_EQ(third.gaps[0].from, 3);
  EXPECT_EQ(third.gaps[0].to, 3);
}

TEST(RestartCombine, WhatTheOldFileLacksIsZero) {
  CaseStore old = Part(1, 2, 1);
  old.prop_rps = {};
  CaseStore fresh = Part(3, 3, 2);
  ASSERT_TRUE(CombineHistories(old, fresh));
  EXPECT_EQ(Column(fresh.prop_rps, 1, fresh), (Values{0, 0, 2}));
}

struct OfferCase {
  const char* what;
  int first;  // of the new part, two steps long; the old one has 1 to 4
  RestartMode mode;
  bool can_ask;
  const char* answer;
  void (*change)(CaseStore& fresh);
  bool combined;
  std::string words;
};

TEST(RestartCombine, Offers) {
  const std::string question =
      "The previously read data was for steps 1 through 4\n"
      "so these could be for multiple parts of a restarted ZAVO run\n"
      "Do you wish to try and combine the output histories or just use the last one?\n"
      "NOTE that the code cannot guarantee that the files are indeed part\n"
      "     of the same run or even for the same configuration\n"
      "Enter C to COMBINE or L to use LAST =>";
  const auto same = [](CaseStore&) {};
  const std::string joined = "The combined history runs from step 1 through 5\n";
  const std::string refused = "WARNING - Output histories not combined : ";
  using enum RestartMode;
  // clang-format off
  const OfferCase cases[] = {
      {"asked, C", 4, ask, true, "C\n", same, true, question + " C\n" + joined},
      {"asked, c", 4, ask, true, "combine\n", same, true, question + " combine\n" + joined},
      {"asked, L", 4, ask, true, "L\n", same, false, question + " L\n"},
      {"asked, QUIT", 4, ask, true, "QUIT\n", same, false, question + " QUIT\n"},
      {"asked, end of input", 4, ask, true, "", same, false, question + "\n"},
      {"nobody to ask", 4, ask, false, "", same, false, "Output histories not combined : use -restart or READ_COMB\n"},
      {"not later", 1, ask, true, "C\n", same, false, ""},
      {"other geometry", 4, ask, true, "C\n", [](CaseStore& c) { c.control.FGEOM = "b.geo"; }, false, ""},
      {"last", 4, keep_last, true, "C\n", same, false, ""},
      {"wanted", 4, combine, false, "", same, true, joined},
      {"wanted, gap", 7, combine, false, "", same, true,
       "The combined history runs from step 1 through 8\nbut includes a gap from step 5 through 6\n"
       "Data for these time steps will be set to zero\n"},
      {"wanted, not later", 1, combine, false, "", same, false, refused + "first step 1 does not come after step 1\n"},
      {"wanted, other cuts", 4, combine, false, "",
       [](CaseStore& c) {
         c.loads.x_cuts = {{1, 0, 0}};
       },
       false, refused + "geometry or loads differ\n"},
      {"wanted, impulsive", 4, combine, false, "", [](CaseStore& c) { c.control.MOTYPE = 1; }, false,
       refused + "geometry or loads differ\n"},
      {"wanted, far away", 2000000000, combine, false, "", same, false,
       refused + "too long a gap from step 5 through 1999999999\n"},
  };
  // clang-format on
  for (const OfferCase& c : cases) {
    FakePlatform fake;
    fake.Type(c.answer);
    const CaseStore old = Part(1, 4, 1);
    CaseStore fresh = Part(c.first, c.first + 1, 2);
    c.change(fresh);
    OfferCombination(fake.Get().console, c.mode, c.can_ask, old, fresh);
    EXPECT_EQ(fresh.combined, c.combined) << c.what;
    EXPECT_EQ(fresh.first_read, c.combined ? 1 : c.first) << c.what;
    EXPECT_EQ(fake.output, c.words) << c.what;
  }
  FakePlatform fake;
  CaseStore fresh = Part(4, 5, 2);
  OfferCombination(fake.Get().console, RestartMode::combine, false, CaseStore{}, fresh);  // nothing is held
  EXPECT_FALSE(fresh.combined);
  EXPECT_EQ(fake.output, "");
}

}  // namespace
}  // namespace zaview
