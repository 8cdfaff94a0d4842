// Plots of statistics: histogram, autocorrelation, confidence intervals. What they show is compared with plain loops
// over the samples, and found again in the pixels.
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <initializer_list>
#include <numeric>
#include <string>
#include <string_view>
#include <vector>

#include "case/plot_data.h"
#include "unit/views/plot_view.h"
#include "views/data_plot/plot_type.h"
#include "views/frame/plot_session.h"

namespace zaview {
namespace {

// Blue is made lighter on black.
constexpr unsigned kWhite = 0xFFFFFF, kRed = 0xFF0000, kGreen = 0x00FF00;
constexpr int kHeave = 3;  // drawn in colour 4, blue
// 1100x850 pixels: 100 a page unit. The area's left bottom corner is at 1.5, 2.25 of the page.
constexpr int kWidth = 1100, kHeight = 850, kLeft = 150, kBottom = 850 - 225, kAreaWidth = 800, kAreaHeight = 550;

std::vector<float> Samples(PlotView& v) {
  PlotData data;
  EXPECT_EQ(SetPlotData(v.session.platform.console, v.session.output, RequestOf(v.plot(), kHeave), v.session.case_store,
                        data),
            DataFault::none);
  const StatRange range = StatPoints(v.session.case_store, v.session.output);
  return {data.y[0].begin() + range.first, data.y[0].begin() + range.first + range.n};
}

int Row(const PlotView& v, float y) {
  const PlotLimits& l = v.session.data_plot.axes.limits;
  return kBottom - static_cast<int>(std::lround((y - l.y_min) / (l.y_max - l.y_min) * kAreaHeight));
}
int Column(const PlotView& v, float x) {
  const PlotLimits& l = v.session.data_plot.axes.limits;
  return kLeft + static_cast<int>(std::lround((x - l.x_min) / (l.x_max - l.x_min) * kAreaWidth));
}

// Pixels of a colour in a rectangle, ends included.
int CountIn(const PlotView& v, unsigned colour, int left, int right, int top, int bottom) {
  int count = 0;
  for (int y = std::max(top, 0); y <= std::min(bottom, kHeight - 1); ++y)
    for (int x = std::max(left, 0); x <= std::min(right, kWidth - 1); ++x) count += v.At(x, y) == colour ? 1 : 0;
  return count;
}

PlotNames NamesOf(PlotView& v) {
  PlotNames names;
  PlotTypeOf(v.plot().kind).names(FactsOf(v.session), v.plot(), names);
  return names;
}

TEST(StatisticPlots, BarsAreAsHighAsBucketsAreFull) {
  PlotView v("irregular_head.out", kWidth, kHeight);
  v.Choose(PlotKind::histogram, 1, kHeave);
  v.plot().hist_rendering = HistogramStyle::filled;
  v.Show();
  const Histogram& h = v.plot().derived.histogram;
  const std::vector<float> samples = Samples(v);
  double area = 0;
  for (std::size_t j = 0; j < h.count.size(); ++j) {
    const float low = h.edges[j], high = h.edges[j + 1];
    const auto n = std::count_if(samples.begin(), samples.end(),
                                 [&](float x) { return x <= high && (x > low || (j == 0 && x == low)); });
    const float share = static_cast<float>(n) / static_cast<float>(samples.size());
    EXPECT_NEAR(h.count[j], share, 1.0e-6F) << j;
    area += static_cast<double>((high - low) * share);
  }
  const PlotLimits& l = v.plot().axes.limits;
  // Round numbers about the buckets, which run from -2.83219 to 1.38696.
  EXPECT_TRUE(l.x_min == -3.0F && l.x_step == 0.75F && l.x_max == 1.5F);
  EXPECT_EQ(l.y_min, 0.0F);
  const double pixels =
      area / static_cast<double>((l.x_max - l.x_min) * (l.y_max - l.y_min)) * kAreaWidth * kAreaHeight;
  EXPECT_NEAR(v.Pixels(v.Ink(4)).count, pixels, 0.02 * pixels);
  EXPECT_EQ(NamesOf(v).x, "pmgg(3), m");
  EXPECT_EQ(NamesOf(v).y, "N/Ntot");

  v.plot().hist_rendering = HistogramStyle::line;
  v.Show();
  EXPECT_LT(v.Pixels(v.Ink(4)).count, 0.1 * pixels);
  v.session.statistics.histogram.data = HistogramData::absolute;
  v.session.statistics.histogram.counts = true;
  v.Show();
  EXPECT_EQ(NamesOf(v).x, "abs(pmgg(3)), m");
  EXPECT_EQ(NamesOf(v).y, "");
  EXPECT_EQ(v.plot().axes.limits.x_min, 0.0F);  // the limits go with the buckets
  EXPECT_EQ(std::accumulate(h.count.begin(), h.count.end(), 0.0F), static_cast<float>(samples.size()));
}

TEST(StatisticPlots, TheFittedDistributionIsDrawnOverTheBars) {
  PlotView v("irregular_head.out", kWidth, kHeight);
  v.Choose(PlotKind::histogram, 1, kHeave);
  v.session.statistics.histogram.overlay = Overlay::normal;
  v.Show();
  constexpr unsigned kFit = 0xBD8F8F;  // 0.74 0.56 0.56
  const std::vector<float> samples = Samples(v);
  const float mean = std::accumulate(samples.begin(), samples.end(), 0.0F) / static_cast<float>(samples.size());
  // The highest point is in the bucket of the mean, the curve 40 buckets wide but for half of one at each end.
  const Box box = v.Pixels(kFit);
  const int left = Column(v, mean) - 12, right = Column(v, mean) + 12;
  EXPECT_GT(CountIn(v, kFit, left, right, box.top, box.top + 2), 0);
  EXPECT_GT(CountIn(v, kFit, kLeft, kLeft + kAreaWidth, box.top, kBottom), 250);
  OutputFile out;
  ASSERT_TRUE(OpenOutput(v.session.platform, "", OpenHow::replace, out));
  EXPECT_EQ(kHistogramPlot.write(SourceOf(v.session), v.plot(), out), DataFault::none);
  EXPECT_NE(v.fake.output.find("\n\nTheoretical Probability Distribution Fit:\nNormal (Gaussian) distribution\nMean "),
            std::string::npos);
  // A dash of it stands below the plot, in front of its words.
  EXPECT_GT(CountIn(v, kFit, kLeft, kWidth - 1, kBottom + 60, kHeight - 1), 25);
}

TEST(StatisticPlots, CorrelationBeginsAtOneAndCovarianceAtTheVariance) {
  PlotView v("irregular_head.out", kWidth, kHeight);
  v.Show(PlotKind::autocorrelation, 1, kHeave);
  const std::vector<float> x = Samples(v);
  const std::size_t n = x.size();
  double mean = 0, variance = 0, lag_10 = 0;
  for (const float value : x) mean += static_cast<double>(value) / static_cast<double>(n);
  const auto c = [&](std::size_t i) { return static_cast<double>(x[i]) - mean; };
  for (std::size_t i = 0; i + 1 < n; ++i) variance += c(i) * c(i) / static_cast<double>(n - 1);
  for (std::size_t i = 0; i + 11 < n; ++i) lag_10 += c(i) * c(i + 10) / static_cast<double>(n - 11);
  EXPECT_EQ(v.plot().derived.correlation[0], 1.0F);
  EXPECT_NEAR(v.plot().derived.correlation[10], lag_10 / variance, 1.0e-4);
  EXPECT_NEAR(v.plot().derived.lag[10], 2.5F, 1.0e-5F);
  const PlotLimits& l = v.plot().axes.limits;
  EXPECT_TRUE(l.x_min == 0.0F && l.y_min == -1.0F && l.y_step == 0.25F && l.y_max == 1.0F);
  EXPECT_EQ(NamesOf(v).title, "Autocorrelation: Position of CG, pmgg(3)");
  const int at = Column(v, 2.5F), row = Row(v, static_cast<float>(lag_10 / variance));
  EXPECT_GT(CountIn(v, v.Ink(4), at - 1, at + 1, row - 3, row + 3), 0);

  std::vector<PageNote> notes;  // the heave of this short record never falls to the cut-off for good
  kAutocorrelationPlot.notes(FactsOf(v.session), v.plot(), notes);
  ASSERT_EQ(notes.size(), 4U);
  EXPECT_EQ(notes[2].text, "Cutoff time  = not reached");
  EXPECT_EQ(notes[3].text, "Cutoff steps = not reached");

  v.Show(PlotKind::autocovariance, 1, kHeave);
  EXPECT_NEAR(v.plot().derived.correlation[0], variance, 1.0e-4 * variance);
  EXPECT_EQ(NamesOf(v).y, "pmgg(3)");
}

// The dashed line of the cut-off runs up to the dependence time, and through where that is not reached.
TEST(StatisticPlots, TheCutoffIsMarkedUpToTheDependenceTime) {
  for (const float cutoff : {0.05F, 0.2F}) {
    PlotView v("sea_1.out", kWidth, kHeight);
    v.Read("sea_2.out");
    v.Read("sea_3.out");
    v.session.output.statistics.autocorrelation_cutoff = cutoff;
    const DataPlotDerived& d = v.plot().derived;
    v.Make(PlotKind::autocorrelation, 1, kHeave);
    EXPECT_FALSE(d.low_lag.empty());  // that of one record has a lower envelope
    v.plot().of_ensemble = true;
    v.plot().grid_on = false;
    v.Show();
    EXPECT_TRUE(d.low_lag.empty());
    ASSERT_GT(d.ndti, 0);
    EXPECT_EQ(d.ndti, v.session.statistics.dependence.ndti);
    EXPECT_NEAR(d.dti, static_cast<float>(d.ndti) * 0.25F, 0.25F);
    const int row = Row(v, cutoff), end = Column(v, d.dti);
    EXPECT_GT(CountIn(v, kWhite, kLeft + 1, end, row - 1, row + 1), (end - kLeft) / 3);
    EXPECT_EQ(CountIn(v, kWhite, end + 2, kLeft + kAreaWidth - 2, row - 1, row + 1), 0);
    EXPECT_EQ(NamesOf(v).title, "Ensemble-Averaged Autocorrelation: Position of CG, pmgg(3)");
  }
}

TEST(StatisticPlots, IntervalsStandAtTheirRealizations) {
  PlotView v("sea_1.out", kWidth, kHeight);
  v.Read("sea_2.out");
  v.Read("sea_3.out");
  v.Show(PlotKind::interval, 1, kHeave);
  const DataPlotDerived& d = v.plot().derived;
  ASSERT_EQ(d.record_x, (std::vector<float>{1, 2, 3}));
  const std::vector<float> last = Samples(v);  // the current record is the third
  const double mean = std::accumulate(last.begin(), last.end(), 0.0) / static_cast<double>(last.size());
  EXPECT_NEAR(d.record_estimate[2], mean, 1.0e-4);
  const PlotLimits& l = v.plot().axes.limits;
  EXPECT_TRUE(l.x_min == 0.0F && l.x_step == 1.0F && l.x_max == 4.0F);
  for (std::size_t i = 0; i < 3; ++i) {
    const int at = Column(v, d.record_x[i]), high = Row(v, d.record_high[i]), low = Row(v, d.record_low[i]);
    EXPECT_NEAR(d.record_high[i] - d.record_estimate[i], d.record_estimate[i] - d.record_low[i], 1.0e-5F);
    EXPECT_GT(CountIn(v, kRed, at - 1, at + 1, high, low), (low - high) * 9 / 10) << i;
    EXPECT_EQ(CountIn(v, kRed, at - 40, at + 40, 0, high - 2) + CountIn(v, kRed, at - 40, at + 40, low + 2, kBottom),
              0);
  }
  EXPECT_GT(CountIn(v, kGreen, kLeft, kLeft + kAreaWidth, Row(v, d.estimate) - 1, Row(v, d.estimate) + 1), 700);
  const std::string_view names[] = {"Mean", "St.dev", "Variance", "Sig.Amp"};
  for (int statistic = 1; statistic <= 4; ++statistic) {
    v.plot().statistic = statistic;
    v.Show();
    EXPECT_EQ(NamesOf(v).y, names[statistic - 1]);
    EXPECT_TRUE(d.low <= d.estimate && d.estimate <= d.high) << statistic;
  }
}

TEST(StatisticPlots, LeaveTheViewWhereNothingCanBeComputed) {
  // clang-format off
  const struct { PlotKind kind; int skip; float probability; const char* said; } cases[] = {
      {PlotKind::histogram, 300, 0.95F, "ERR495 - Too many steps skipped or trimmed in histogram setup\n"},
      {PlotKind::autocovariance, 300, 0.95F, "ERR495 - Too many steps skipped or trimmed in autocorrelation setup\n"},
      {PlotKind::interval, 300, 0.95F,
       "ERR495 - Too many steps skipped or trimmed in confidence interval calculation\n"},
      {PlotKind::interval, 0, 1.5F, "LOGIC ERROR\n"},
  };
  // clang-format on
  for (const auto& c : cases) {
    PlotView v("irregular_head.out");
    v.session.output.reading.skip_initial = c.skip;
    v.session.case_store.skip_effective = c.skip;
    v.session.output.statistics.confidence_probability = c.probability;
    v.Choose(c.kind, 1, kHeave);
    v.session.run.redraw = true;
    v.Show();
    EXPECT_EQ(v.session.run.plot_module, PlotModule::none) << static_cast<int>(c.kind);
    EXPECT_FALSE(v.session.run.redraw);
    const std::string_view said = c.said, output = v.fake.output;
    EXPECT_TRUE(output.size() >= said.size() && output.substr(output.size() - said.size()) == said) << output;
  }
}

}  // namespace
}  // namespace zaview
