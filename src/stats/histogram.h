// Histogram of fixed-width buckets with a theoretical distribution fitted by moments and its chi-square. Pure.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "stats/ensemble_stats.h"

namespace zaview {

inline constexpr int kBuckets = 40;  // by default
inline constexpr int kMostBuckets = 200;

enum class HistogramData : std::uint8_t { signed_values, absolute, positive };
enum class Overlay : std::uint8_t { none, uniform, normal, gramm_charlier, rayleigh, exponential };

struct HistogramRequest {
  HistogramData data = HistogramData::signed_values;
  bool counts = false;  // false: fractions of the points
  int rate = 1;         // every point, every other point ..
  int nbuckets = kBuckets;
  Overlay overlay = Overlay::none;
  float lower = 0, upper = 0;  // bucket range; upper <= lower: from the data
  bool operator==(const HistogramRequest&) const = default;
};

struct Histogram {
  int npts = 0;                                        // samples taken, also those outside the buckets
  std::vector<float> edges;                            // nbuckets + 1
  std::vector<float> count, rawcount;                  // nbuckets; count in the unit asked for
  std::vector<float> mid, expected;                    // filled with an overlay
  float mean = 0, variance = 0, skew = 0, excess = 0;  // of all samples taken, with the divisor npts (not npts - 1)
  float lambda = 0;                                    // 1/sqrt(variance)
  float chi2 = 0;
};

// count is a fraction of npts, or a number where the request says so; edges and mid have the unit of the samples.
// Each record's samples with a position (from 1, skipped ones counted by `skip`) that `rate` divides. False: no record
// has samples (nothing to show), or memory is out.
[[nodiscard]] bool SetHistogramData(const HistogramRequest& request, EnsembleRecords X, int skip, Histogram& out);

}  // namespace zaview
