// How often do the 95 % intervals hold the true value? 10 000 records of a Gaussian sea with a known spectrum, of three
// lengths, alone and in ensembles of ten. Run by hand; the figures stand in docs/intervals.md.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fftw3.h>
#include <numbers>
#include <random>
#include <span>
#include <thread>
#include <vector>

#include "stats/ensemble_stats.h"
#include "stats/peak_stats.h"
#include "stats/record_stats.h"

namespace zaview {
namespace {

constexpr double kDt = 0.5;  // seconds
constexpr int kRecords = 10000;
constexpr int kEnsemble = 10;
constexpr float kProbability = 0.95F;
constexpr int kThird = 3;

// JONSWAP, significant height 4 m, peak period 9.5 s, peak enhancement 3.3.
double Spectrum(double w) {
  constexpr double kHeight = 4, kPeriod = 9.5, kGamma = 3.3;
  const double w0 = 2 * std::numbers::pi / kPeriod;
  if (w <= 0) return 0;
  const double sigma = w <= w0 ? 0.07 : 0.09;
  const double peak = std::exp(-(w - w0) * (w - w0) / (2 * sigma * sigma * w0 * w0));
  const double shape =
      std::pow(w0, 4) / std::pow(w, 5) * std::exp(-1.25 * std::pow(w0 / w, 4)) * std::pow(kGamma, peak);
  return kHeight * kHeight / 16 / (0.06533 * std::pow(kGamma, 0.8015) + 0.13467) * shape;
}

// A Gaussian record of n samples, cut from one of twice its length that repeats itself, so that its ends are strangers.
class Sea {
 public:
  Sea(int n, unsigned seed) : n_(n), random_(seed), half_(static_cast<std::size_t>(n) + 1) {
    spectrum_ = fftw_alloc_complex(half_);
    samples_ = fftw_alloc_real(2 * static_cast<std::size_t>(n));
    plan_ = fftw_plan_dft_c2r_1d(2 * n, spectrum_, samples_, FFTW_ESTIMATE);
    dw_ = 2 * std::numbers::pi / (2 * n * kDt);
    for (std::size_t k = 0; k < half_; ++k)
      deviation_.push_back(std::sqrt(Spectrum(static_cast<double>(k) * dw_) * dw_));
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
    for (std::size_t i = 0; i < record.size(); ++i) record[i] = static_cast<float>(samples_[i]);
  }
  [[nodiscard]] double StandardDeviation() const {
    double variance = 0;
    for (const double deviation : deviation_) variance += deviation * deviation;
    return std::sqrt(variance);
  }

 private:
  int n_;
  std::mt19937_64 random_;
  std::size_t half_;
  fftw_complex* spectrum_;
  double* samples_;
  fftw_plan plan_;
  double dw_ = 0;
  std::vector<double> deviation_;
};

struct Estimate {
  float value = 0, half_width = 0;
};
using Estimates = std::array<Estimate, 3>;  // mean, standard deviation, significant amplitude

Estimates OfRecord(std::span<const float> x) {
  RecordStats stats;
  RecordPeakStats peaks;
  (void)CalcRecordStats(1, x, kProbability, stats);
  (void)CalcRecordPeakStats(kThird, 0, x, kProbability, peaks);
  return {{{stats.xm, stats.xmci}, {stats.xs, stats.xsci}, {peaks.xpkN, peaks.xpkNci}}};
}

constexpr int kFew = 0, kMany = 1;  // ENSEMBLE_NMANY: the scheme of few records, of many

Estimates OfEnsemble(EnsembleRecords X, int nmany, const RecordPeakStats& peaks) {
  EnsembleStats stats;
  (void)CalcEnsembleStats(1, X, kProbability, nmany, stats);
  return {{{stats.xme, stats.xmeci}, {stats.xse, stats.xseci}, {peaks.xpkN, peaks.xpkNci}}};
}

struct Study {
  std::vector<Estimates> alone, few, many;

  void Append(const Study& other) {
    alone.insert(alone.end(), other.alone.begin(), other.alone.end());
    few.insert(few.end(), other.few.begin(), other.few.end());
    many.insert(many.end(), other.many.begin(), other.many.end());
  }
};

// Half of the records; each thread has its own stream of random numbers.
void Run(Sea& sea, int ensembles, Study& study) {
  std::vector<std::vector<float>> records(kEnsemble);
  for (int e = 0; e < ensembles; ++e) {
    std::vector<std::span<const float>> spans;
    for (std::vector<float>& record : records) {
      sea.Draw(record);
      spans.emplace_back(record);
      study.alone.push_back(OfRecord(record));
    }
    std::array<RecordPeakStats, 1> peaks;  // no matter of the scheme
    const int N[] = {kThird};
    (void)CalcEnsemblePeakStats(N, 0, spans, kProbability, peaks);
    study.few.push_back(OfEnsemble(spans, kFew, peaks[0]));
    study.many.push_back(OfEnsemble(spans, kMany, peaks[0]));
  }
}

// The mean of the estimates of the longest records, whose bias is the least: what a very long record would give. The
// significant amplitude has no closed form here: sampled peaks of a sea with a wide spectrum.
double MeanOf(const std::vector<Estimates>& estimates, std::size_t which) {
  double sum = 0;
  for (const Estimates& estimate : estimates) sum += static_cast<double>(estimate[which].value);
  return sum / static_cast<double>(estimates.size());
}

void Print(const char* what, const std::vector<Estimates>& estimates, const std::array<double, 3>& truth) {
  std::printf("%-13s", what);
  for (std::size_t which = 0; which < truth.size(); ++which) {
    std::size_t held = 0;
    double width = 0;
    for (const Estimates& estimate : estimates) {
      const Estimate& e = estimate[which];
      held += std::abs(static_cast<double>(e.value) - truth[which]) <= static_cast<double>(e.half_width) ? 1 : 0;
      width += static_cast<double>(e.half_width);
    }
    const double count = static_cast<double>(estimates.size());
    std::printf("   %5.1f %% (half width %.4f, bias %+.4f)", 100.0 * static_cast<double>(held) / count, width / count,
                MeanOf(estimates, which) - truth[which]);
  }
  std::printf("\n");
}

int Main() {
  constexpr std::array<int, 3> kLengths = {1200, 3600, 21600};  // 10 minutes, half an hour, three hours
  std::array<Study, kLengths.size()> studies;
  for (std::size_t i = 0; i < kLengths.size(); ++i) {
    const unsigned seed = 100U + 2U * static_cast<unsigned>(i);
    Sea seas[] = {{kLengths[i], seed}, {kLengths[i], seed + 1U}};  // transforms are planned on one thread
    Study halves[2];
    std::thread other([&] { Run(seas[1], kRecords / kEnsemble / 2, halves[1]); });
    Run(seas[0], kRecords / kEnsemble / 2, halves[0]);
    other.join();
    for (const Study& half : halves) studies[i].Append(half);
  }
  const std::array<double, 3> truth = {0, Sea(kLengths.back(), 1).StandardDeviation(), MeanOf(studies.back().few, 2)};
  std::printf("true values: mean %g, standard deviation %.6f, significant amplitude %.6f\n", truth[0], truth[1],
              truth[2]);
  std::printf(
      "records of      mean                                       standard deviation"
      "                         significant amplitude\n");
  for (std::size_t i = 0; i < kLengths.size(); ++i) {
    std::printf("%g s\n", kLengths[i] * kDt);
    Print("  1 record", studies[i].alone, truth);
    Print("  10 records", studies[i].few, truth);
    Print("  10, NMANY 1", studies[i].many, truth);
  }
  return EXIT_SUCCESS;
}

}  // namespace
}  // namespace zaview

int main() {
  return zaview::Main();
}
