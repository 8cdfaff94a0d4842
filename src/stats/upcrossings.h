// Crossings of levels away from the mean. Pure, single precision.
#pragma once

#include <span>
#include <vector>

#include "stats/ensemble_stats.h"

namespace zaview {

inline constexpr int kMostThresholds = 999;

struct UpcrossingRow {
  float threshold = 0;
  int total = 0;                       // all crossings
  int min_record = 0, max_record = 0;  // least and most of a record
  int independent = 0;                 // first of a record, or ndti steps behind the crossing before it
};

// min, max, increment: swapped, clamped to 2..999 thresholds, the last one max exactly.
[[nodiscard]] std::vector<float> Thresholds(float min, float max, float increment);

// One row a threshold; mean: of all samples. Each sample pair is looked at once, by search among the sorted thresholds.
void UpCrossing(EnsembleRecords X, float mean, std::span<const float> thresholds, int ndti,
                std::vector<UpcrossingRow>& rows);

}  // namespace zaview
