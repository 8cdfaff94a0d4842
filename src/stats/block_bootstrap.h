// Confidence intervals by resampling blocks of the time axis: what the samples tell of the spread of an estimate, with
// nothing assumed of their distribution and with all dependence that is shorter than a block.
//
// A resample is as many blocks, drawn with replacement, as make up the time of all records (moving blocks:
// H. R. Kuensch, Annals of Statistics 17 (1989); without ends: D. N. Politis and J. P. Romano, in Exploring the Limits
// of Bootstrap, 1992). Of a resample its estimate T* and the standard error e* of T*, from the spread of its blocks,
// are found, and of all resamples the quantiles of (g(T*) - g(T)) / e*; they stand in for those of Student's t in g(T)
// - t e (F. Goetze and H. R. Kuensch, Annals of Statistics 24 (1996)). g is the logarithm for variances and heights of
// peaks over the mean, which can't be negative, and nothing for the mean.
//
// Errors are roots of sums of squares of what each block adds to the estimate (its influence): of a variance V
// (x - m)^2 - V, of the average A of the highest 1/N of peak heights h, with the threshold q, N max(h - q, 0) + q - A.
// Blocks of a length see too little of the spread by a share that falls as 1/length; the error of the records is led on
// to long blocks from this length and its half (D. Vats and J. M. Flegal, Biometrika 109 (2022)). The mean's: blocks
// that fade in and out (E. Paparoditis and D. N. Politis, Biometrika 88 (2001)) for its long waves, and for the cut
// waves at the ends of each record what plain blocks have in addition.
//
// Pure; in double; the same seed gives the same digits with any number of threads.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "stats/block_estimates.h"
#include "stats/bootstrap_blocks.h"

namespace zaview {

inline constexpr int kFewestBootstrapResamples = 100, kMostBootstrapResamples = 100'000;

struct BootstrapRequest {
  int N = 10;          // of the averages of the highest 1/N peaks, beside 1/3
  float prob = 0.95F;  // two-sided, 0 < prob < 1
  int resamples = 1000;
  int seed = 1;
  bool peaks = true;  // false: mean and variance alone
  int threads = 0;    // as SideBySide
};

// In the unit of the record u, variance u^2. `told` false: the records are too short, low and high are 0.
struct BootstrapInterval {
  float low = 0, high = 0;
  bool told = false;
};
struct BootstrapIntervals {
  BootstrapInterval mean, variance;
  std::array<BootstrapInterval, 4> third, nth;  // amplitude, top, bottom, double amplitude
  double dependence_times = 0;                  // that all records cover
};

// How many dependence times (dependence_time.h, cut-off 0.05) the records must cover for an interval to hold what it
// says; averages of the highest 1/N peaks need 2.5 N if that is more, and so many peaks among the highest 1/N.
inline constexpr double kFewestDependenceTimes = 15.0;
inline constexpr int kFewestHighest = 5;
[[nodiscard]] double FewestDependenceTimes(int N);

// The resamples that are made where `resamples` are asked for: at least as many as have one beyond each end, to
// kMostBootstrapResamples. At a probability of 1 the ends are those of the outermost resamples.
[[nodiscard]] int ResamplesFor(float prob, int resamples);

// Records made ready, and the resamples made so far.
struct Bootstrap {
  BootstrapRequest request;
  BlockRecords records;
  double dependence_times = 0;  // in all records
  std::size_t length = 0, blocks = 0;
  BlockEstimate estimate;  // of the records
  double mean_error = 0;
  int made = 0;                                            // of resamples
  std::array<std::vector<double>, kBlockEstimates + 1> t;  // studentized, of each resample; the last: the mean
};

// Makes ResamplesFor(request) of them.
void BeginBootstrap(EnsembleRecords X, const BootstrapRequest& request, Bootstrap& out);
// `count` more of them (or those that are left). False: all are made.
bool MakeResamples(Bootstrap& bootstrap, int count);
[[nodiscard]] BootstrapIntervals IntervalsOf(const Bootstrap& bootstrap);

}  // namespace zaview
