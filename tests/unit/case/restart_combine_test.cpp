#include "case/read/restart_combine.h"

#include <algorithm>

#include <gtest/gtest.h>

#include "case/derived_arrays.h"
#include "fake_platform.h"
#include "small_case.h"

namespace zaview {
namespace {

using Values = std::vector<float>;

std::vector<StepHistory*> Stored(CaseStore& c) {
  return {&c.pmgg,       &c.vmg,        &c.acc,      &c.force,         &c.load_force[0],
          &c.rudder_cmd, &c.rudder_ang, &c.prop_rps, &c.load_moment[5]};
}

// Steps first .. last of which every value but the time is `value`. Time scale and DTH: 1 and 0.25.
CaseStore Part(int first, int last, float value) {
  const int n = last - first + 1;
  CaseStore part = SmallCase(first, n);
  AddLoads(part, first, n);
  part.control.GRAVIN = part.control.LENIN = 1;
  FillLine(part.time, 1, first, n, -0.25, 0, 0.25);
  for (StepHistory* history : Stored(part))
    for (Values& column : history->component) std::fill(column.begin(), column.end(), value);
  return part;
}

Values Column(const StepHistory& history, int i, const CaseStore& c) {
  const std::span<const float> column = history.range(i, c.first_read, c.last_read);
  return {column.begin(), column.end()};
}

// New data win over old ones; what lies behind the new last step is gone; what the old file lacks is zero.
TEST(RestartCombine, Overlaps) {
  for (const int old_last : {4, 9}) {
    CaseStore old = Part(1, old_last, 1), fresh = Part(3, 5, 2);
    old.prop_rps = {};
    ASSERT_TRUE(CombineHistories(old, fresh));
    EXPECT_TRUE(fresh.combined && fresh.gaps.empty());
    EXPECT_EQ(Column(fresh.time, 1, fresh), (Values{0, 0.25, 0.5, 0.75, 1}));
    for (const StepHistory* history : Stored(fresh))
      for (int i = 1; i <= history->components(); ++i)
        EXPECT_EQ(Column(*history, i, fresh),
                  history == &fresh.prop_rps ? (Values{0, 0, 2, 2, 2}) : (Values{1, 1, 2, 2, 2}));
  }
}

// A clock that is a little off shows by which rule a gap gets its times.
TEST(RestartCombine, GapsAreZeroWithTimesByRule) {
  CaseStore old = Part(1, 2, 1), second = Part(5, 6, 2), third = Part(4, 4, 3);
  old.time.component[0][1] = 0.3125F;
  ASSERT_TRUE(CombineHistories(old, second));
  EXPECT_EQ(Column(second.time, 1, second), (Values{0, 0.3125, 0.5625, 0.8125, 1, 1.25}));
  EXPECT_EQ(Column(second.prop_rps, 1, second), (Values{1, 1, 0, 0, 2, 2}));
  ASSERT_TRUE(EnsureDerived(second, Derived::motion) && EnsureDerived(second, Derived::accg));
  for (const int step : {3, 4}) EXPECT_TRUE(second.motion.at(1, step) == 0.0F && second.accg.at(3, step) == 0.0F);
  EXPECT_NE(second.motion.at(1, 5), 0.0F);

  ASSERT_TRUE(CombineHistories(second, third));  // cuts the gap; what was behind it is gone
  EXPECT_EQ(Column(third.pmgg, 3, third), (Values{1, 1, 0, 3}));
  EXPECT_TRUE(third.gaps.size() == 1 && third.gaps[0].from == 3 && third.gaps[0].to == 3);
}

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
  const struct {
    int first;  // of the new part, two steps long; the old one has 1 to 4
    RestartMode mode;
    bool can_ask;
    const char* answer;
    void (*change)(CaseStore& fresh);
    bool combined;
    std::string words;
  } cases[] = {
      {4, ask, true, "C\n", same, true, question + " C\n" + joined},
      {4, ask, true, "combine\n", same, true, question + " combine\n" + joined},
      {4, ask, true, "L\n", same, false, question + " L\n"},
      {4, ask, true, "", same, false, question + "\n"},
      {4, ask, false, "", same, false, "Output histories not combined : use -restart or READ_COMB\n"},
      {1, ask, true, "C\n", same, false, ""},
      {4, ask, true, "C\n", [](CaseStore& c) { c.control.FGEOM = "b.geo"; }, false, ""},
      {4, keep_last, true, "C\n", same, false, ""},
      {4, combine, false, "", same, true, joined},
      {7, combine, false, "", same, true,
       "The combined history runs from step 1 through 8\nbut includes a gap from step 5 through 6\n"
       "Data for these time steps will be set to zero\n"},
      {1, combine, false, "", same, false, refused + "first step 1 does not come after step 1\n"},
      {4, combine, false, "", [](CaseStore& c) { c.loads.x_cuts.resize(1); }, false, refused + "geometry or loads differ\n"},
      {4, combine, false, "", [](CaseStore& c) { c.control.MOTYPE = 1; }, false, refused + "geometry or loads differ\n"},
      {2000000000, combine, false, "", same, false, refused + "too long a gap from step 5 through 1999999999\n"},
  };
  // clang-format on
  for (const auto& c : cases) {
    FakePlatform fake;
    fake.Type(c.answer);
    CaseStore fresh = Part(c.first, c.first + 1, 2);
    c.change(fresh);
    OfferCombination(fake.Get().console, c.mode, c.can_ask, Part(1, 4, 1), fresh);
    EXPECT_EQ(fresh.combined, c.combined) << c.words;
    EXPECT_EQ(fresh.first_read, c.combined ? 1 : c.first) << c.words;
    EXPECT_EQ(fake.output, c.words);
  }
}

}  // namespace
}  // namespace zaview
