#include "stats/ensemble_stats.h"

#include <array>
#include <cmath>

#include <gtest/gtest.h>

#include "near.h"
#include "stats/dependence_time.h"
#include "worked_ensemble.h"

namespace zaview {
namespace {

TEST(EnsembleStats, WorkedEnsemble) {
  const struct {
    int nmany;
    std::array<double, 10> want;  // xme xve xse VarMe VarVe xmeci xveci xseci xmin xmax
  } cases[] = {
      {0, {0.41798887, 3.695191, 1.922288, 0.02351949, 0.14098859, 0.30058622, 0.73594797, 0.19142501, -4.882, 4.969} },
      {1, {0.41798887, 3.695191, 1.922288, 0.030208997, 0.10544984, 0.34066167, 0.63647026, 0.16555017, -4.882, 4.969}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.nmany);
    EnsembleStats s, mean, plain;
    ASSERT_EQ(CalcEnsembleStats(1, WorkedEnsemble(), 0.95F, c.nmany, s), StatFault::none);
    const float got[] = {s.xme, s.xve, s.xse, s.VarMe, s.VarVe, s.xmeci, s.xveci, s.xseci, s.xmin, s.xmax};
    for (std::size_t i = 0; i < c.want.size(); ++i) ExpectClose(got[i], c.want[i], std::to_string(i).c_str());
    EXPECT_TRUE(s.xm[1] == 0.0F && s.xv[1] == 0.0F);  // the empty record

    ASSERT_EQ(CalcEnsembleStats(2, WorkedEnsemble(), 0.95F, c.nmany, mean), StatFault::none);
    EXPECT_TRUE(mean.xmeci == s.xmeci && mean.xve == 0.0F && mean.xveci == 0.0F);
    ASSERT_EQ(CalcEnsembleStats(3, WorkedEnsemble(), 0.95F, c.nmany, plain), StatFault::none);
    EXPECT_TRUE(plain.xme == s.xme && plain.xve == s.xve && plain.xmeci == 0.0F);
  }
}

TEST(EnsembleStats, SchemesAndFaults) {
  using enum EnsembleScheme;
  const struct {
    int nmany, nr;
    EnsembleScheme want;
  } cases[] = {
      {0,  999, small},
      {1,  1,   large},
      {-1, 29,  small},
      {-1, 30,  large},
      {7,  6,   small},
      {7,  7,   large}
  };
  for (const auto& c : cases) EXPECT_EQ(SchemeOf(c.nmany, c.nr), c.want) << c.nmany << ' ' << c.nr;

  EnsembleStats s;
  EXPECT_EQ(CalcEnsembleStats(4, WorkedEnsemble(), 1.0F, 0, s),
            StatFault::option | StatFault::option_peaks | StatFault::probability);
  const std::span<const float> one = WorkedRecord(1);
  ASSERT_EQ(CalcEnsembleStats(1, std::span(&one, 1), 0.95F, 1, s), StatFault::none);
  EXPECT_EQ(s.xmeci, 0.0F);  // the only record's mean is the mean
  const std::array<std::span<const float>, 2> empty;
  for (const EnsembleRecords none : {EnsembleRecords{}, EnsembleRecords(empty)}) {
    ASSERT_EQ(CalcEnsembleStats(1, none, 0.95F, 0, s), StatFault::none);
    EXPECT_TRUE(s.xme == 0.0F && s.xmin == 0.0F && s.xmeci == 0.0F);
    RecordPeakStats peaks;
    const int N = 3;
    ASSERT_EQ(CalcEnsemblePeakStats(std::span(&N, 1), 0, none, 0.95F, std::span(&peaks, 1)), StatFault::none);
    EXPECT_EQ(peaks.Npks, 0);
  }
}

TEST(EnsembleStats, WorkedPeaks) {
  const int N[] = {1, 3, 10};
  const std::array<double, 6> want[] = {
      {2.382172,  -2.023,     2.737143,  0.3115595,  0.46485922, 0.40179768},
      {3.6838408, -3.4041,    3.9451108, 0.27676588, 0.43707418, 0.32471454},
      {4.4294963, -4.2713337, 4.504333,  0.36232445, 0.49597254, 0.37181112},
  };
  std::array<RecordPeakStats, 3> s;
  ASSERT_EQ(CalcEnsemblePeakStats(N, 0, WorkedEnsemble(), 0.95F, s), StatFault::none);
  for (std::size_t j = 0; j < s.size(); ++j) {
    SCOPED_TRACE(N[j]);
    EXPECT_EQ((std::array{s[j].Npks, s[j].Npksb, s[j].Npkst, s[j].ndti}), (std::array{58, 30, 28, 46}));
    const float got[] = {s[j].xpkN, s[j].xpkNb, s[j].xpkNt, s[j].xpkNci, s[j].xpkNbci, s[j].xpkNtci};
    for (std::size_t i = 0; i < want[j].size(); ++i) ExpectClose(got[i], want[j][i], std::to_string(i).c_str());
  }
  const int bad[] = {3, 0, 1};
  EXPECT_EQ(CalcEnsemblePeakStats(bad, 0, WorkedEnsemble(), 0.95F, s), StatFault::peak_frequency);
}

TEST(EnsembleAutoCov, WorkedEnsemble) {
  const struct {
    float cutoff;
    int ndti;
    double lag;  // dti over dt 0.5
  } cases[] = {
      {0.05F,  46, 2 * 23.041359},
      {0.4F,   8,  2 * 4.4138594},
      {0.001F, 0,  0            }
  };
  for (const auto& c : cases) {
    EnsembleAutoCov whole, walk;
    CalcEnsembleAutoCov(WorkedEnsemble(), c.cutoff, true, whole);
    CalcEnsembleAutoCov(WorkedEnsemble(), c.cutoff, false, walk);
    EXPECT_TRUE(whole.ndti == c.ndti && walk.ndti == c.ndti) << c.cutoff;
    ExpectClose(whole.lag, c.lag, "lag");
    EXPECT_EQ(walk.lag, whole.lag);
    EXPECT_EQ(whole.env_lag, (std::vector<float>{6, 11, 16, 21, 27, 32, 38, 44, 49, 54, 59, 66, 71}));
    ExpectClose(whole.env_R[12], 0.054716438, "last point");
    ASSERT_EQ(whole.ratio.size(), 76U);
    ExpectClose(whole.Rax0, 3.6636846, "Rax(0)");
    ExpectClose(whole.ratio[11], 0.36626568, "ratio");
  }
  const std::vector<float> still(100, 2.0F);
  const std::span<const float> record = still;
  EnsembleAutoCov flat;
  CalcEnsembleAutoCov(std::span(&record, 1), 0.05F, true, flat);
  EXPECT_EQ(flat.ratio, std::vector<float>(51, 0.0F));
}

struct Plain {
  float xme = 0, xve = 0, VarMe = 0;
  int own = 0;  // records whose own lags were needed
  std::vector<float> Rax;
};

Plain PlainLoops(const std::vector<std::vector<float>>& records, std::size_t npmax) {
  Plain p;
  std::size_t samples = 0;
  for (const auto& x : records) samples += x.size();
  const auto weight = [&](std::size_t i) {
    return static_cast<float>(records[i].size()) / static_cast<float>(samples);
  };
  for (std::size_t i = 0; i < records.size(); ++i) p.xme += weight(i) * MeanOf(records[i]);
  p.Rax.resize(npmax / 2 + 1);
  std::vector<std::vector<float>> Rx(records.size(), p.Rax);
  for (std::size_t i = 0; i < records.size(); ++i) {
    const std::vector<float>& x = records[i];
    for (std::size_t k = 0; !x.empty() && k <= x.size() / 2; ++k) {
      float sum = 0.0F;
      for (std::size_t j = 0; j + k < x.size(); ++j) sum += (x[j] - p.xme) * (x[j + k] - p.xme);
      Rx[i][k] = 1.0F / static_cast<float>(x.size()) * sum;
    }
    for (std::size_t k = 0; k < p.Rax.size(); ++k) p.Rax[k] += weight(i) * Rx[i][k];
    float squares = 0.0F;
    for (const float v : x) squares += (v - p.xme) * (v - p.xme);
    if (x.size() > 1) p.xve += weight(i) * (squares / static_cast<float>(x.size() - 1));
  }
  const int m = static_cast<int>(std::sqrt(static_cast<float>(npmax)));
  for (std::size_t i = 0; i < records.size(); ++i) {
    if (records[i].empty()) continue;
    const int n = static_cast<int>(records[i].size());
    float V = BartlettVariance(p.Rax, n, m);
    if (V < 0.0F) {
      ++p.own;
      V = BartlettVariance(Rx[i], n, static_cast<int>(std::sqrt(static_cast<float>(n))));
    }
    if (V < 0.0F) V = Rx[i][0] / static_cast<float>(n);
    p.VarMe += (weight(i) * weight(i)) * V;
  }
  return p;
}

// Records of unequal length whose lags need several blocks and both cores: bit for bit the plain loops. Steps swing
// between +1 and -1. With short ones cut at an odd lag and a long still one, the averaged lags sum up below 0.
TEST(EnsembleStats, LongRecordsAreThePlainLoop) {
  const struct {
    std::vector<std::size_t> lengths;
    float first;  // swing of the first record
    bool own;
  } cases[] = {
      {{6000, 1, 0, 77, 5999, 4001}, 1.0F, false},
      {{6000, 78, 0, 78, 78},        0.0F, true }
  };
  for (const auto& c : cases) {
    std::vector<std::vector<float>> records;
    unsigned random = 7;
    for (const std::size_t np : c.lengths) {
      std::vector<float> x;
      const float swing = records.empty() ? c.first : 1.0F;
      for (std::size_t i = 0; i < np; ++i) {
        random = random * 1664525U + 1013904223U;
        x.push_back((i % 2 == 0 ? swing : -swing) + swing * static_cast<float>(random >> 20U) * 1e-5F);
      }
      records.push_back(std::move(x));
    }
    const Plain plain = PlainLoops(records, c.lengths[0]);
    EXPECT_EQ(plain.own > 0, c.own);
    EnsembleStats s;
    ASSERT_EQ(CalcEnsembleStats(1, ViewsOf(records), 0.95F, 0, s), StatFault::none);
    EXPECT_TRUE(s.xme == plain.xme && s.xve == plain.xve && s.VarMe == plain.VarMe);
    EnsembleAutoCov whole;
    CalcEnsembleAutoCov(ViewsOf(records), 0.02F, true, whole);
    for (std::size_t k = 0; k < plain.Rax.size(); ++k) ASSERT_EQ(whole.ratio[k], plain.Rax[k] / plain.Rax[0]) << k;
    Dependence rule;
    EnvelopeRule(plain.Rax, 0.02F, rule);
    EXPECT_EQ(whole.ndti, rule.ndti);
  }
}

}  // namespace
}  // namespace zaview
