// How often do the 95 % intervals hold the true value? 10 000 records of seas whose spectrum is known: the heave of a
// ship, slamming pressures that are skewed, roll in a narrow band; alone and in ensembles of ten, by formula and by the
// bootstrap. Run by hand; the figures stand in docs/intervals.md.
//   interval_study [records [resamples]]
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fftw3.h>
#include <numbers>
#include <random>
#include <span>
#include <string>
#include <thread>
#include <vector>

#include "stats/block_bootstrap.h"
#include "stats/ensemble_stats.h"
#include "stats/interval_cells.h"
#include "stats/peak_stats.h"
#include "stats/record_stats.h"
#include "stats/statistic_table.h"

namespace zaview {
namespace {

constexpr double kDt = 0.5;  // seconds
constexpr int kEnsemble = 10;
constexpr float kProbability = 0.95F;
constexpr int kHighest[] = {3, 10};

// ---- The seas

// JONSWAP of unit variance, peak enhancement 3.3.
double Jonswap(double w, double period) {
  constexpr double kGamma = 3.3;
  const double w0 = 2 * std::numbers::pi / period;
  if (w <= 0) return 0;
  const double sigma = w <= w0 ? 0.07 : 0.09;
  const double peak = std::exp(-(w - w0) * (w - w0) / (2 * sigma * sigma * w0 * w0));
  const double shape =
      std::pow(w0, 4) / std::pow(w, 5) * std::exp(-1.25 * std::pow(w0 / w, 4)) * std::pow(kGamma, peak);
  return shape / (0.06533 * std::pow(kGamma, 0.8015) + 0.13467);
}

double Elevation(double w) {
  return Jonswap(w, 9.5);
}

// A ship that no longer follows waves shorter than some 140 m.
double Heave(double w) {
  return Jonswap(w, 9.5) / (1 + std::pow(w / 0.66, 6));
}

// Resonance at 12 s with 3 % of critical damping.
double Roll(double w) {
  constexpr double kDamping = 0.03;
  const double r = w * 12 / (2 * std::numbers::pi);
  return Jonswap(w, 10.5) / ((1 - r * r) * (1 - r * r) + 4 * kDamping * kDamping * r * r);
}

double Linear(double x) {
  return x;
}

// Relative motion, and a pressure with the square of what it is over 0.8 standard deviations: skewness 1.6.
double Slam(double x) {
  const double over = std::max(0.0, x - 0.8);
  return x + 0.6 * over * over;
}

struct SeaKind {
  const char* name;
  double (*spectrum)(double w);
  double (*shape)(double x);  // of a Gaussian process of unit variance
};
constexpr SeaKind kSeas[] = {
    {"waves", Elevation, Linear}, {"heave", Heave, Linear}, {"slamming", Elevation, Slam}, {"roll", Roll, Linear}};

// A record of n samples, cut from one of twice its length that repeats itself, so that its ends are strangers.
class Sea {
 public:
  Sea(const SeaKind& kind, int n, unsigned seed)
      : shape_(kind.shape), n_(n), random_(seed), half_(static_cast<std::size_t>(n) + 1) {
    spectrum_ = fftw_alloc_complex(half_);
    samples_ = fftw_alloc_real(2 * static_cast<std::size_t>(n));
    plan_ = fftw_plan_dft_c2r_1d(2 * n, spectrum_, samples_, FFTW_ESTIMATE);
    const double dw = 2 * std::numbers::pi / (2 * n * kDt);
    double variance = 0;
    for (std::size_t k = 0; k < half_; ++k) {
      deviation_.push_back(std::sqrt(kind.spectrum(static_cast<double>(k) * dw)));
      variance += deviation_[k] * deviation_[k];
    }
    for (double& deviation : deviation_) deviation /= std::sqrt(variance);
  }
  Sea(const Sea&) = delete;
  Sea& operator=(const Sea&) = delete;
  ~Sea() {
    fftw_destroy_plan(plan_);
    fftw_free(spectrum_);
    fftw_free(samples_);
  }
  void Draw(std::vector<float>& record) {
    std::normal_distribution<double> normal;
    for (std::size_t k = 0; k < half_; ++k) {
      spectrum_[k][0] = deviation_[k] * normal(random_) / 2;
      spectrum_[k][1] = deviation_[k] * normal(random_) / 2;
    }
    fftw_execute(plan_);
    record.resize(static_cast<std::size_t>(n_));
    for (std::size_t i = 0; i < record.size(); ++i) record[i] = static_cast<float>(shape_(samples_[i]));
  }

 private:
  double (*shape_)(double);
  int n_;
  std::mt19937_64 random_;
  std::size_t half_;
  fftw_complex* spectrum_;
  double* samples_;
  fftw_plan plan_;
  std::vector<double> deviation_;
};

// ---- What is looked at

constexpr int kStatistics[] = {kStatMean,      kStatStdev, kStatThird,   kStatThird + 1, kStatThird + 2,
                               kStatThird + 3, kStatNth,   kStatNth + 1, kStatNth + 2,   kStatNth + 3};
constexpr const char* kNames[] = {"mean",         "standard deviation", "significant amplitude", "1/3 tops",
                                  "1/3 bottoms",  "significant height", "1/10 amplitude",        "1/10 tops",
                                  "1/10 bottoms", "1/10 height"};
constexpr std::size_t kCount = std::size(kStatistics);

using Cells = std::array<IntervalCells, kCount>;
Cells CellsOf(const IntervalValues& values) {
  Cells cells;
  for (std::size_t i = 0; i < kCount; ++i) cells[i] = IntervalCellsOf(kStatistics[i], values);
  return cells;
}

double HighestOf(const PeakList& list, double sign, int N) {
  std::vector<double> height;
  for (const float v : list.value) height.push_back(sign * static_cast<double>(v));
  std::sort(height.begin(), height.end(), std::greater<>());
  height.resize(height.size() / static_cast<std::size_t>(N));
  double sum = 0;
  for (const double h : height) sum += h;
  return sign * sum / static_cast<double>(height.size());
}

// From 1600 hours: as the tables, in double.
std::array<double, kCount> TrueValues(const SeaKind& kind) {
  constexpr int kParts = 6;
  std::array<double, kCount> truth{};
  Sea sea(kind, 1 << 21, 999);
  std::vector<float> record;
  for (int part = 0; part < kParts; ++part) {
    sea.Draw(record);
    double mean = 0, squares = 0;
    for (const float v : record) mean += static_cast<double>(v) / static_cast<double>(record.size());
    for (const float v : record)
      squares += (static_cast<double>(v) - mean) * (static_cast<double>(v) - mean) / static_cast<double>(record.size());
    Peaks peaks;
    const std::span<const float> span(record);
    GetPeaks(std::span(&span, 1), static_cast<float>(mean), peaks);
    std::array<double, kCount> here = {mean, std::sqrt(squares)};
    std::size_t i = 2;
    for (const int N : kHighest) {
      const double top = HighestOf(peaks.top, 1, N), bottom = HighestOf(peaks.bottom, -1, N);
      for (const double value : {HighestOf(peaks.all, 1, N), top, bottom, top - bottom}) here[i++] = value;
    }
    for (std::size_t k = 0; k < kCount; ++k) truth[k] += here[k] / kParts;
  }
  if (kind.shape == Linear) truth[0] = 0;
  return truth;
}

struct Count {
  int held = 0, told = 0, all = 0;
  double width = 0;
};
using Counts = std::array<Count, kCount>;

void Add(const Cells& cells, const std::array<double, kCount>& truth, Counts& counts) {
  for (std::size_t i = 0; i < kCount; ++i) {
    Count& count = counts[i];
    ++count.all;
    if (!IsTold(cells[i])) continue;
    ++count.told;
    count.held += static_cast<double>(cells[i][1]) <= truth[i] && truth[i] <= static_cast<double>(cells[i][3]) ? 1 : 0;
    count.width += static_cast<double>(cells[i][0]);
  }
}

// ---- Methods

IntervalValues ByFormula(EnsembleRecords X, int nmany) {
  IntervalValues values;
  std::array<RecordPeakStats, 2> peaks;
  if (X.size() == 1) {
    (void)CalcRecordStats(1, X[0], kProbability, values.record);
    (void)CalcRecordPeakStats(kHighest, 0, X[0], kProbability, peaks);
  } else {
    EnsembleStats s;
    (void)CalcEnsembleStats(1, X, kProbability, nmany, s);
    values.record = {s.xme, s.xve, s.xse, s.xmeci, s.xveci, s.xseci, s.xmin, s.xmax};
    (void)CalcEnsemblePeakStats(kHighest, 0, X, kProbability, peaks);
  }
  values.third = peaks[0];
  values.nth = peaks[1];
  return values;
}

void ByBlocks(EnsembleRecords X, int resamples, int seed, IntervalValues& values) {
  BootstrapRequest request;
  request.prob = kProbability;
  request.resamples = resamples;
  request.seed = seed;
  request.threads = 1;
  Bootstrap bootstrap;
  BeginBootstrap(X, request, bootstrap);
  while (MakeResamples(bootstrap, resamples)) {
  }
  values.by_blocks = true;
  values.blocks = IntervalsOf(bootstrap);
}

struct Case {
  const SeaKind& kind;
  int steps, records;  // of each record; in an ensemble
  int samples, resamples;
  std::array<double, kCount> truth;
};
constexpr std::size_t kFew = 0, kMany = 1, kBlocks = 2;  // ENSEMBLE_NMANY 0, 1; the bootstrap
using Study = std::array<Counts, 3>;

void Run(const Case& c, Sea& sea, int first, int count, Study& study) {
  std::vector<std::vector<float>> records(static_cast<std::size_t>(c.records));
  for (int i = first; i < first + count; ++i) {
    std::vector<std::span<const float>> X;
    for (std::vector<float>& record : records) {
      sea.Draw(record);
      X.emplace_back(record);
    }
    IntervalValues values = ByFormula(X, 0);
    Add(CellsOf(values), c.truth, study[kFew]);
    if (c.records > 1) Add(CellsOf(ByFormula(X, 1)), c.truth, study[kMany]);
    ByBlocks(X, c.resamples, i + 1, values);
    Add(CellsOf(values), c.truth, study[kBlocks]);
  }
}

void Print(const Case& c, const Study& study) {
  std::printf("\n%s, %d x %g minutes\n", c.kind.name, c.records, c.steps * kDt / 60);
  for (std::size_t i = 0; i < kCount; ++i) {
    std::printf("  %-22s %9.4f", kNames[i], c.truth[i]);
    for (const std::size_t method : {kFew, kMany, kBlocks}) {
      const Count& count = study[method][i];
      if (count.all == 0) continue;
      const double told = std::max(1, count.told);
      std::printf("   %5.1f %% (%.4f)", 100.0 * count.held / told, count.width / told);
      if (method == kBlocks) std::printf("   told in %5.1f %%", 100.0 * count.told / count.all);
    }
    std::printf("\n");
  }
  (void)std::fflush(stdout);
}

void RunCase(const Case& c) {
  Sea seas[] = {{c.kind, c.steps, 100U}, {c.kind, c.steps, 101U}};  // transforms are planned on one thread
  Study halves[2];
  const int half = c.samples / 2;
  std::thread other([&] { Run(c, seas[1], half, half, halves[1]); });
  Run(c, seas[0], 0, half, halves[0]);
  other.join();
  for (std::size_t method = 0; method < halves[0].size(); ++method) {
    for (std::size_t i = 0; i < kCount; ++i) {
      Count& to = halves[0][method][i];
      const Count& from = halves[1][method][i];
      to = {to.held + from.held, to.told + from.told, to.all + from.all, to.width + from.width};
    }
  }
  Print(c, halves[0]);
}

int Main(int samples, int resamples) {
  constexpr int kHalfHour = 3600, kThreeHours = 21600, kHundredSeconds = 200;  // steps
  std::printf("sea, statistic, true value; formula, in ensembles with ENSEMBLE_NMANY 1 too, bootstrap\n");
  for (const SeaKind& kind : kSeas) {
    const std::array<double, kCount> truth = TrueValues(kind);
    RunCase({kind, kHalfHour, 1, samples, resamples, truth});
    RunCase({kind, kThreeHours, 1, samples, resamples, truth});
    RunCase({kind, kHalfHour, kEnsemble, samples / kEnsemble, resamples, truth});
    RunCase({kind, kHundredSeconds, 4 * kEnsemble, samples / kEnsemble, resamples, truth});
  }
  return EXIT_SUCCESS;
}

}  // namespace
}  // namespace zaview

int main(int argc, char** argv) {
  const int samples = argc > 1 ? std::atoi(argv[1]) : 10000, resamples = argc > 2 ? std::atoi(argv[2]) : 1000;
  return zaview::Main(std::max(samples, 20), std::max(resamples, zaview::kFewestBootstrapResamples));
}
