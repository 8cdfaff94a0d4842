#include "stats/ensemble_stats.h"

#include <array>
#include <cmath>

#include <gtest/gtest.h>

#include "stats/autocovariance.h"
#include "worked_records.h"

namespace zaview {
namespace {

void ExpectAll(std::span<const float> got, std::span<const double> want) {
  for (std::size_t i = 0; i < got.size(); ++i) ExpectClose(got[i], want[i], std::to_string(i).c_str());
}

TEST(EnsembleStats, SchemesAndFaults) {
  using enum EnsembleScheme;
  EXPECT_TRUE(SchemeOf(0, 999) == small && SchemeOf(1, 1) == large && SchemeOf(-1, 29) == small &&
              SchemeOf(-1, 30) == large && SchemeOf(7, 6) == small && SchemeOf(7, 7) == large);
  EnsembleStats s;
  EXPECT_EQ(CalcEnsembleStats(4, WorkedEnsemble(), 1.0F, 0, s),
            StatFault::option | StatFault::option_peaks | StatFault::probability);
  const std::array<std::span<const float>, 2> empty;
  ASSERT_EQ(CalcEnsembleStats(1, empty, 0.95F, 0, s), StatFault::none);
  EXPECT_TRUE(s.xme == 0.0F && s.xmin == 0.0F && s.xmeci == 0.0F);
  RecordPeakStats peaks;
  const int N[] = {3, 0};
  ASSERT_EQ(CalcEnsemblePeakStats(std::span(N, 1), 0, empty, 0.95F, std::span(&peaks, 1)), StatFault::none);
  EXPECT_EQ(CalcEnsemblePeakStats(N, 0, empty, 0.95F, {}), StatFault::peak_frequency);
}

TEST(EnsembleAutoCov, WorkedEnsemble) {
  const double want[][3] = {{0.05, 46, 23.041359}, {0.4, 8, 4.4138594}, {0.001, 0, 0}};  // cut-off, ndti, dti
  for (const auto& [cutoff, ndti, dti] : want) {
    EnsembleAutoCov whole, walk;
    CalcEnsembleAutoCov(WorkedEnsemble(), static_cast<float>(cutoff), true, whole);
    CalcEnsembleAutoCov(WorkedEnsemble(), static_cast<float>(cutoff), false, walk);
    EXPECT_TRUE(whole.ndti == static_cast<int>(ndti) && walk.ndti == whole.ndti && walk.lag == whole.lag) << cutoff;
    EXPECT_EQ(whole.env_lag, (std::vector<float>{6, 11, 16, 21, 27, 32, 38, 44, 49, 54, 59, 66, 71}));
    const float got[] = {whole.lag * 0.5F, whole.Rax0, whole.ratio.at(11), whole.env_R[12]};
    ExpectAll(got, std::array{dti, 3.6636846, 0.36626568, 0.054716438});
  }
}

// The first record is the longest; several blocks of lags, both cores: bit for bit the sums of one record after the
// other. Steps swing between +1 and -1: with short records, cut at an odd lag, beside a long still one the averaged
// lags sum up below 0.
TEST(EnsembleStats, LongRecordsAreThePlainSums) {
  for (const bool still : {false, true}) {
    const std::vector<std::size_t> lengths =
        still ? std::vector<std::size_t>{6000, 78, 0, 78} : std::vector<std::size_t>{6000, 1, 0, 77, 5999};
    std::vector<std::vector<float>> records;
    float samples = 0.0F;
    for (const std::size_t np : lengths) {
      const float swing = still && records.empty() ? 0.0F : 1.0F;
      records.emplace_back(np);
      for (std::size_t i = 0; i < np; ++i)
        records.back()[i] = (i % 2 == 0 ? swing : -swing) + swing * std::sin(static_cast<float>(i * i)) * 0.01F;
      samples += static_cast<float>(np);
    }
    const auto root = [](std::size_t n) { return static_cast<int>(std::sqrt(static_cast<float>(n))); };
    const auto weight = [&](std::size_t i) { return static_cast<float>(lengths[i]) / samples; };
    float xme = 0.0F, VarMe = 0.0F;
    for (std::size_t i = 0; i < lengths.size(); ++i) xme += weight(i) * MeanOf(records[i]);
    std::vector<float> Rax(3001);
    std::vector<std::vector<float>> Rx(lengths.size());
    for (std::size_t i = 0; i < lengths.size(); ++i) {
      if (lengths[i] > 0) RecordLags(Centred(records[i], xme), static_cast<int>(lengths[i] / 2), Rx[i]);
      for (std::size_t k = 0; k < Rx[i].size(); ++k) Rax[k] += weight(i) * Rx[i][k];
    }
    for (std::size_t i = 0; i < lengths.size(); ++i) {
      if (lengths[i] == 0) continue;
      const int n = static_cast<int>(lengths[i]);
      float V = BartlettVariance(Rax, n, root(6000));
      EXPECT_EQ(V < 0.0F, still);
      if (V < 0.0F) V = BartlettVariance(Rx[i], n, root(lengths[i]));
      VarMe += (weight(i) * weight(i)) * (V < 0.0F ? Rx[i][0] / static_cast<float>(n) : V);
    }
    EnsembleStats s;
    ASSERT_EQ(CalcEnsembleStats(1, ViewsOf(records), 0.95F, 0, s), StatFault::none);
    EXPECT_TRUE(s.xme == xme && s.VarMe == VarMe);
    EnsembleAutoCov whole;
    CalcEnsembleAutoCov(ViewsOf(records), 0.02F, true, whole);
    for (std::size_t k = 0; k < Rax.size(); ++k) ASSERT_EQ(whole.ratio[k], Rax[k] / Rax[0]) << k;
  }
}

}  // namespace
}  // namespace zaview
