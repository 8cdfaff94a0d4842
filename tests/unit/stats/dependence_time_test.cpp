#include "stats/dependence_time.h"

#include <cmath>

#include <gtest/gtest.h>

#include "stats/autocovariance.h"
#include "stats/record_stats.h"
#include "worked_records.h"

namespace zaview {
namespace {

TEST(EnvelopeRule, WalksFromTheSecondPoint) {
  // clang-format off
  const struct { const char* name; std::vector<float> R; float cutoff; int ndti; double lag; bool reached; } cases[] = {
      // Points (2, 0.8), (5, 0.2): d 0.6, d1 0.5, d2 0.5.
      {"between two points", {1, 0, -0.8F, 0, 0.1F, 0.2F, 0.1F}, 0.5F, 3, 3.5, true},
      {"at the cut-off", {1, 0, -0.75F, 0, 0.1F, 0.25F, 0.1F}, 0.25F, 5, 5.0, true},
      {"not reached", {1, 0, -0.75F, 0, 0.1F, 0.25F, 0.1F}, 0.2F, 0, 0.0, false},
      {"one point", {1, 0.5F, 0, 0.01F, 0}, 0.05F, 0, 0.0, false},
      {"no point", {1, 0.5F, 0.25F, 0.1F, 0.05F}, 0.5F, 0, 0.0, false},
      // The first point lies below already: (2, 0.25), (4, 0.125), cut-off 0.5: 4 (-2) + 2 (3) = -2, kept at 0.
      {"below at the first", {1, 0, 0.25F, 0, 0.125F, 0}, 0.5F, 0, 0.0, true},
      {"equal points", {1, 0, 0.25F, 0, 0.25F, 0}, 0.5F, 4, 4.0, true},
      {"scaled by R(0)", {4, 0, -3.2F, 0, 0.4F, 0.8F, 0.4F}, 0.5F, 3, 3.5, true},
  };
  // clang-format on
  for (const auto& c : cases) {
    Dependence out;
    EnvelopeRule(c.R, c.cutoff, out);
    EXPECT_EQ(out.ndti, c.ndti) << c.name;
    EXPECT_NEAR(static_cast<double>(out.lag), c.lag, 1e-5) << c.name;
    EXPECT_EQ(out.reached, c.reached) << c.name;
  }
}

// Lags made in growing blocks must end where all lags at once do, also if the walk ends at the border of a block.
TEST(RecordDependence, SameAsTheRuleOnAllLags) {
  std::vector<std::vector<float>> records{{}, {0}, {0, 0}, std::vector<float>(600)};
  for (const int number : {1, 2, 3, 4, 5})
    records.emplace_back(WorkedRecord(number).begin(), WorkedRecord(number).end());
  for (const float period : {17.0F, 60.0F, 120.0F, 250.0F}) {
    for (const float decay : {200.0F, 400.0F, 2000.0F}) {
      std::vector<float> x(4001);
      for (std::size_t i = 0; i < x.size(); ++i)
        x[i] = std::exp(-static_cast<float>(i) / decay) * std::cos(6.2831855F * static_cast<float>(i) / period);
      records.push_back(x);
    }
  }
  for (const std::vector<float>& x : records) {
    const std::vector<float> c = Centred(x, MeanOf(x));
    std::vector<float> Rx;
    RecordLags(c, static_cast<int>(x.size() / 2), Rx);
    for (const float cutoff : {0.8F, 0.4F, 0.05F, 0.001F}) {
      Dependence all, blocks;
      EnvelopeRule(Rx, cutoff, all);
      RecordDependence(c, cutoff, blocks);
      EXPECT_EQ(blocks.reached, all.reached) << x.size() << ' ' << cutoff;
      EXPECT_EQ(blocks.ndti, all.reached ? all.ndti : static_cast<int>(x.size() / 2)) << x.size() << ' ' << cutoff;
    }
  }
}

}  // namespace
}  // namespace zaview
