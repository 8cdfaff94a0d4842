#include "stats/peaks.h"

#include <cmath>
#include <cstddef>

namespace zaview {

namespace {

void Append(PeakList& list, int record, std::size_t index, float value) {
  list.record.push_back(record);
  list.step.push_back(static_cast<int>(index) + 1);
  list.value.push_back(value);
}

// The sample behind the first crossing of t, from 0; x.size() where there is none, or only in the last pair.
std::size_t FirstCrossing(std::span<const float> x, float t) {
  const std::size_t n = x.size();
  if (n < 2) return n;
  std::size_t start = n;
  if ((x[0] - t) * (x[1] - t) <= 0.0F) {
    start = 1;
  } else {
    for (std::size_t i = 1; i < n; ++i) {
      if (std::abs(x[i] - t) <= 0.0F) {
        start = i;
        break;
      }
      if (i + 1 >= n) break;
      if ((x[i] - t) * (x[i + 1] - t) <= 0.0F) {
        start = i + 1;
        break;
      }
    }
  }
  return start + 1 < n ? start : n;
}

void RecordPeaks(std::span<const float> x, float t, int record, std::size_t start, Peaks& peaks) {
  bool above = x[start] > t;
  float a = std::abs(x[start] - t);
  std::size_t ia = start;
  for (std::size_t i = start + 1; i < x.size(); ++i) {
    const float v = x[i];
    const bool ends = above ? v < t : v > t;  // a sample on t belongs to the half cycle that is running
    if (!ends) {
      if (std::abs(v - t) > a) {
        a = std::abs(v - t);
        ia = i;
      }
      continue;
    }
    Append(peaks.all, record, ia, a);
    Append(above ? peaks.top : peaks.bottom, record, ia, above ? t + a : t - a);
    above = v > t;
    a = std::abs(v - t);
    ia = i;
  }
}

}  // namespace

void GetPeaks(std::span<const std::span<const float>> records, float xthres, Peaks& peaks,
              std::vector<int>* no_crossing) {
  peaks = Peaks{};
  int record = 0;
  for (const std::span<const float> x : records) {
    ++record;
    const std::size_t start = FirstCrossing(x, xthres);
    if (start < x.size()) {
      RecordPeaks(x, xthres, record, start, peaks);
    } else if (no_crossing != nullptr) {
      no_crossing->push_back(record);
    }
  }
}

}  // namespace zaview
