#include "stats/upcrossings.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace zaview {

namespace {

constexpr int kNoCrossing = 0;  // steps count from 1

struct Running {  // of one threshold in the record at hand
  int total = 0;
  int before = kNoCrossing;  // step of the crossing before, counted as independent or not
};

// Numbers of the thresholds from..to-1 that one pair of samples crosses.
struct Crossed {
  std::size_t from = 0, to = 0;
};

// Away from the mean: thresholds at or above it are crossed upward (a <= v < b), the others downward (a >= v > b).
Crossed CrossedBy(float a, float b, std::span<const float> v, std::size_t first_up) {
  const auto lower = [v](float x) {
    return static_cast<std::size_t>(std::lower_bound(v.begin(), v.end(), x) - v.begin());
  };
  const auto upper = [v](float x) {
    return static_cast<std::size_t>(std::upper_bound(v.begin(), v.end(), x) - v.begin());
  };
  if (a < b) return {std::max(lower(a), first_up), lower(b)};
  if (a > b) return {upper(b), std::min(upper(a), first_up)};
  return {};
}

}  // namespace

std::vector<float> Thresholds(float min, float max, float increment) {
  if (min > max) std::swap(min, max);
  if (!(min < max)) return {min};
  int nt = 2;
  if (increment > 0.0F) {
    const float intervals = std::min((max - min) / increment, static_cast<float>(kMostThresholds));
    nt = std::clamp(static_cast<int>(intervals) + 1, 2, kMostThresholds);
  }
  std::vector<float> v(static_cast<std::size_t>(nt));
  for (int i = 0; i < nt; ++i) v[static_cast<std::size_t>(i)] = min + static_cast<float>(i) * increment;
  v.front() = min;
  v.back() = max;
  return v;
}

void UpCrossing(EnsembleRecords X, float mean, std::span<const float> thresholds, int ndti,
                std::vector<UpcrossingRow>& rows) {
  rows.assign(thresholds.size(), UpcrossingRow{});
  for (std::size_t j = 0; j < rows.size(); ++j) rows[j].threshold = thresholds[j];
  if (mean != mean) return;  // nothing lies above or below it
  const std::size_t first_up =
      static_cast<std::size_t>(std::lower_bound(thresholds.begin(), thresholds.end(), mean) - thresholds.begin());
  std::vector<Running> running(rows.size());
  bool first_record = true;
  for (const std::span<const float> x : X) {
    std::fill(running.begin(), running.end(), Running{});
    for (std::size_t i = 0; i + 1 < x.size(); ++i) {
      const Crossed crossed = CrossedBy(x[i], x[i + 1], thresholds, first_up);
      const int step = static_cast<int>(i) + 1;
      for (std::size_t j = crossed.from; j < crossed.to; ++j) {
        Running& r = running[j];
        ++r.total;
        if (r.before == kNoCrossing || step - r.before >= ndti) ++rows[j].independent;
        r.before = step;
      }
    }
    for (std::size_t j = 0; j < rows.size(); ++j) {
      UpcrossingRow& row = rows[j];
      const int total = running[j].total;
      row.total += total;
      row.min_record = first_record ? total : std::min(row.min_record, total);
      row.max_record = std::max(row.max_record, total);
    }
    first_record = false;
  }
}

}  // namespace zaview
