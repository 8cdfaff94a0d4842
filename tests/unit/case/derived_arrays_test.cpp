#include "case/derived_arrays.h"

#include <cmath>

#include <gtest/gtest.h>

#include "small_case.h"

namespace zaview {
namespace {

// Expected values: the formulas in double by another program from the same 4-byte histories.
TEST(DerivedArrays, FollowTheFormulasAtBothEnds) {
  CaseStore c = SmallCase(1, 8);
  // clang-format off
  const struct { Derived what; StepHistory CaseStore::*history; int step, first; std::array<float, 6> want; } rows[] = {
      {Derived::motion, &CaseStore::motion, 1, 1,
       {0.149999991F, 0.189999998F, 0.272499979F, 0.257640123F, 0.290186852F, 0.322733521F}},
      {Derived::motion, &CaseStore::motion, 8, 1,
       {0.0887500048F, 0.25999999F, 0.342500001F, 0.327640116F, 0.360186845F, 0.392733514F}},
      {Derived::vmgshp, &CaseStore::vmgshp, 1, 1, {-0.119906865F, 0.00283109606F, -0.0146399578F, 0.1F, 0.17F, 0.24F}},
      {Derived::vmgg, &CaseStore::vmgg, 8, 1, {0.03F, 0.1F, 0.17F, 0.29865101F, 0.32113722F, 0.325235993F}},
      {Derived::accg, &CaseStore::accg, 1, 1,
       {0.243637323F, 0.277995318F, 0.135773495F, 0.122850552F, 0.140805423F, 0.036831677F}},
      {Derived::force_ship, &CaseStore::force_ship, 8, 25,
       {0.00246686791F, 0.00307277916F, 0.00390033214F, 0.0027096034F, 0.00335495686F, 0.00426289951F}},
      {Derived::maneuver, &CaseStore::maneuver, 1, 1, {0.117046997F, 3.08036375F, 0.41F, 0.101F, 0.201F, 2.001F}},
  };
  // clang-format on
  for (const auto& row : rows) {
    ASSERT_TRUE(EnsureDerived(c, row.what));
    for (int i = 0; i < 6; ++i) {
      const float want = row.want[static_cast<std::size_t>(i)];
      EXPECT_NEAR((c.*row.history).at(row.first + i, row.step), want, 2e-6F * std::fabs(want))
          << static_cast<int>(row.what) << ' ' << row.step << ' ' << i;
    }
  }
  DropDerived(c);
  for (std::vector<float>& column : c.vmg.component) column[0] = 0.0F;  // a ship at rest has no slip
  ASSERT_TRUE(EnsureDerived(c, Derived::vmgg) && EnsureDerived(c, Derived::maneuver));
  EXPECT_EQ(c.vmgg.at(1, 1), 0.0F);
  EXPECT_EQ(c.maneuver.at(2, 1), 0.0F);
}

// A part that begins at step 371 counts its steady advance from step 1 of the whole run; over a long run a 4-byte U DTH
// would be wrong in the fourth place.
TEST(DerivedArrays, SteadyAdvanceCountsAllStepsWithoutDrift) {
  for (const auto& [first, n] : {std::pair{371, 2}, {1, 200000}}) {
    CaseStore c = SmallCase(first, n);
    const int last = first + n - 1;
    const double advance = 0.01 + 0.01875 * (last - 1);
    c.pmgg.component[0].back() = static_cast<float>(advance);
    ASSERT_TRUE(EnsureDerived(c, Derived::motion));
    EXPECT_NEAR(c.motion.at(1, last), c.pmgg.at(1, last) - advance, 1e-9);
  }
}

}  // namespace
}  // namespace zaview
