// Spectra, extremes and rainflow counts of curves with gaps, of records that don't move, and of ensembles.
#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "analysis/curves/curve_extremes.h"
#include "analysis/curves/extremes_report.h"
#include "analysis/curves/rainflow_report.h"
#include "analysis/curves/spectrum_report.h"
#include "unit/stats/worked_case.h"

namespace zaview {
namespace {

using Floats = std::vector<float>;

CaseStore CaseOf(const Floats& surge) {
  CaseStore c;
  c.has_case = true;
  c.file_name = "run.out";
  c.last_read = c.last_step = static_cast<int>(surge.size());
  c.time.first = c.pmgg.first = 1;
  c.time.component.assign(1, {});
  for (std::size_t i = 0; i < surge.size(); ++i) c.time.component[0].push_back(0.5F * static_cast<float>(i));
  c.pmgg.component.assign(6, surge);
  return c;
}

// About 100, deviation 2: lightly damped and driven at random, at about 12 steps a cycle.
Floats Waves(std::size_t n, unsigned seed) {
  std::mt19937 random(seed);
  double a = 0, b = 0;
  Floats x;
  for (std::size_t i = 0; i < n + 200; ++i) {
    const double push = static_cast<double>(random()) / 4294967296.0 - 0.5;
    const double next = 1.9 * std::cos(2 * M_PI / 12) * a - 0.9025 * b + push;
    b = a;
    a = next;
    if (i >= 200) x.push_back(static_cast<float>(100 + a));
  }
  return x;
}

struct Work {
  FakePlatform fake;
  Platform platform = fake.Get();
  OutputSettings settings;
  CaseStore current;
  EnsembleStore ensemble;
  StatisticsState state;
  explicit Work(CaseStore c) : current(std::move(c)) {}
  [[nodiscard]] StatWork Of() { return {platform, settings, {current, ensemble}, state}; }
};

constexpr QuantityRequest kSurge{.iqnt = 1, .curve = 1};

std::string Rainflow(const CaseStore& c) {
  const Written w =
      WriteWorked([](const StatWork& work, OutputFile& out) { return WriteRainflow(work, kSurge, out); }, c, {});
  return w.text + w.console;
}

// Three half cycles of 2 on either side of what isn't known, nothing across it.
TEST(CurveReports, NoCycleReachesOverAGap) {
  CaseStore gap = CaseOf({100, 102, 100, 102, 0, 0, 110, 112, 110, 112});
  gap.gaps = {{5, 6}};
  const float none = std::numeric_limits<float>::quiet_NaN();
  for (const CaseStore& c : {gap, CaseOf({100, 102, 100, 102, none, 110, 112, 110, 112})}) {
    const std::string text = Rainflow(c);
    EXPECT_NE(text.find("Number of cycles= 3\nLargest range= 2\n"), std::string::npos) << text;
  }
  EXPECT_EQ(Rainflow(CaseOf(Floats(50, 7))), "ERROR - there are no cycles in Position of CG, pmgg(1)\n");
  ResultPlot plot;
  Work work(gap);
  ASSERT_EQ(MakeRainflowPlot(work.Of(), kSurge, plot), DataFault::none);
  ASSERT_EQ(plot.panels.size(), 1U);
  EXPECT_EQ(plot.panels[0].curves[0].x, Floats{2});
  EXPECT_NEAR(plot.panels[0].curves[0].y.at(0), std::log10(3.0), 1e-6);
}

TEST(CurveReports, ASegmentBeyondTheRecordTakesNoRoom) {  // of 1e9 steps it would be some 40 GB
  Work work(CaseOf(Waves(400, 1)));
  work.settings.statistics.spectrum_segment = 1.0e9F;
  ResultPlot plot;
  EXPECT_EQ(MakeSpectrumPlot(work.Of(), kSurge, plot), DataFault::said);
  EXPECT_EQ(work.fake.output, "ERROR - the record is too short for a spectrum by segments of 1000000000 steps\n");
  work.fake.output.clear();
  work.settings.statistics.spectrum_segment = 1.0F;
  EXPECT_EQ(MakeSpectrumPlot(work.Of(), kSurge, plot), DataFault::said);
  EXPECT_EQ(work.fake.output, "ERROR - no spectrum: the segments that are set hold 2 steps, at least 4 are needed\n");
  work.settings.statistics.spectrum_segment = 0;
  ASSERT_EQ(MakeSpectrumPlot(work.Of(), kSurge, plot), DataFault::none);
  const std::vector<float>& S = plot.panels.at(0).curves.at(0).y;  // its peak at 2 pi/6, all that counts is shown
  const auto peak = std::max_element(S.begin(), S.end()) - S.begin();
  EXPECT_NEAR(plot.panels[0].curves[0].x.at(static_cast<std::size_t>(peak)), 2 * M_PI / 6, 0.1);
  EXPECT_LT(S.size(), 101U);
}

TEST(CurveReports, ExtremesLeaveAGapOut) {
  Floats x = Waves(12000, 1);
  std::fill(x.begin() + 5000, x.begin() + 7000, 0.0F);
  Work work(CaseOf(x));
  work.current.gaps = {{5001, 7000}};
  CurveExtremes extremes;
  ASSERT_EQ(FindExtremes(work.Of(), kSurge, extremes), DataFault::none);
  EXPECT_NEAR(extremes.mean, 100, 0.2);
  EXPECT_NEAR(extremes.total_time, 0.5 * (4999 + 4999), 1e-3);
  for (const ExtremeFit& fit : extremes.fits) {
    ASSERT_EQ(fit.refused, "");
    const double sign = fit.of_minima ? -1 : 1, largest = static_cast<double>(fit.values.back());
    const double of_record = sign * (CurveValue(fit, largest, extremes.mean) - 100);
    const double in_time = sign * (fit.most_probable.value - 100);  // three hours are twice the record
    EXPECT_NEAR(in_time / of_record, 1, 0.25);
    EXPECT_LT(fit.most_probable.low, fit.most_probable.value);
    EXPECT_LT(fit.most_probable.value, fit.most_probable.high);
    EXPECT_GT(sign * (fit.quantile.value - fit.most_probable.value), 0);
  }
}

TEST(CurveReports, ExtremesOfNothingAndOfFew) {
  ResultPlot plot;
  Work still(CaseOf(Floats(500, 7)));
  EXPECT_EQ(MakeExtremesPlot(still.Of(), kSurge, plot), DataFault::none);
  EXPECT_EQ(still.fake.output,
            "WARNING - no distribution of extremes can be fitted: not fitted: 0 peaks, at least 40 are needed\n");
  const Written few =
      WriteWorked([](const StatWork& work, OutputFile& out) { return WriteExtremes(work, kSurge, out); },
                  CaseOf(Waves(300, 2)), {});
  EXPECT_NE(few.text.find(" Weibull max    not fitted: 2"), std::string::npos) << few.text;
  EXPECT_EQ(few.text.find("Extreme value"), std::string::npos) << few.text;
  Floats sine;
  for (int i = 0; i < 6000; ++i) sine.push_back(static_cast<float>(std::sin(i * M_PI / 6)));
  Work regular(CaseOf(sine));
  CurveExtremes extremes;
  ASSERT_EQ(FindExtremes(regular.Of(), kSurge, extremes), DataFault::none);
  EXPECT_NE(extremes.fits[1].refused.find("too short for 20 blocks"), std::string::npos) << extremes.fits[1].refused;
}

// From ten records on a block is a record; the panels show all that is fitted.
TEST(CurveReports, ExtremesOfAnEnsembleAndTheirPanels) {
  Work work(CaseOf(Waves(2000, 1)));
  work.ensemble.nrec = 12;
  work.ensemble.irec = 1;
  work.ensemble.record.resize(12);
  for (unsigned i = 1; i < 12; ++i) work.ensemble.record[i] = CaseOf(Waves(2000, i + 1));
  CurveExtremes extremes;
  ASSERT_EQ(FindExtremes(work.Of(), kSurge, extremes), DataFault::none);
  const Floats& largest = extremes.fits[1].values;
  const Floats tenth = Waves(2000, 10);
  EXPECT_EQ(extremes.fits[1].gumbel.n, 12);
  EXPECT_EQ(std::count(largest.begin(), largest.end(), *std::max_element(tenth.begin(), tenth.end())), 1);
  EXPECT_NEAR(extremes.block_time, 1000, 1e-3);
  ResultPlot plot;
  ASSERT_EQ(MakeExtremesPlot(work.Of(), kSurge, plot), DataFault::none);
  ASSERT_EQ(plot.panels.size(), 2U);
  for (const ResultPanel& panel : plot.panels) {
    ASSERT_EQ(panel.curves.size(), 4U);
    const ResultCurve &points = panel.curves[0], &line = panel.curves[1];
    EXPECT_LE(points.x.size(), 203U);
    EXPECT_GT(line.y[1], points.y.back());  // to the quantile in three hours
    EXPECT_EQ(panel.notes.size(), 6U);
  }
}

}  // namespace
}  // namespace zaview
