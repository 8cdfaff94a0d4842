#include "stats/highest_peaks.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace zaview {

namespace {

constexpr std::size_t kFewPeaks = 40;

struct SegmentLists {
  std::vector<float> tops, bottoms, amplitudes;
};

// One extreme of |x - xm| between successive sign changes, the first of equals. The sign of 0 is plus.
void SegmentExtremes(std::span<const float> x, float xm, SegmentLists& lists) {
  bool in_segment = false;  // what lies ahead of the first change, and behind the last, belongs to none
  float extreme = 0.0F;
  float a = 0.0F;
  for (std::size_t i = 1; i < x.size(); ++i) {
    const bool crossing = (x[i] - xm >= 0.0F) != (x[i - 1] - xm >= 0.0F);
    const float here = std::abs(x[i] - xm);
    if (!crossing) {
      if (here > a) {
        a = here;
        extreme = x[i];
      }
      continue;
    }
    if (in_segment) {
      (extreme > xm ? lists.tops : lists.bottoms).push_back(extreme);
      lists.amplitudes.push_back(a);
    }
    in_segment = true;
    a = here;
    extreme = x[i];
  }
}

// Largest first (NaN last); sign -1: smallest first.
void SortFirst(std::vector<float>& values, std::size_t count, float sign) {
  const auto ahead = [sign](float a, float b) {
    return sign > 0.0F ? a > b || (b != b && a == a) : a < b || (b != b && a == a);
  };
  const auto end = values.begin() + static_cast<std::ptrdiff_t>(count);
  if (count < values.size()) std::nth_element(values.begin(), end, values.end(), ahead);
  std::sort(values.begin(), end, ahead);
}

std::size_t HighestCount(std::size_t peaks, int N) {
  return std::min(peaks, static_cast<std::size_t>(static_cast<float>(peaks) / static_cast<float>(N) + 0.5F));
}

// Averages of the first HighestCount(N) values for each N, from one running sum over the sorted list.
void Averages(std::vector<float>& values, float sign, std::span<const int> N, float none,
              std::vector<float>& averages) {
  std::size_t most = 0;
  for (const int n : N) most = std::max(most, HighestCount(values.size(), n));
  SortFirst(values, most, sign);
  std::vector<float> prefix(most + 1, 0.0F);
  for (std::size_t i = 0; i < most; ++i) prefix[i + 1] = prefix[i] + values[i];
  averages.clear();
  for (const int n : N) {
    const std::size_t ipt = HighestCount(values.size(), n);
    averages.push_back(ipt < 1 ? none : prefix[ipt] / static_cast<float>(ipt));
  }
}

// The trapezoid average of x from sample `from` to sample `to`; xm for an empty interval.
float TimeAverage(std::span<const float> t, std::span<const float> x, float xm, std::size_t from, std::size_t to) {
  float sum = 0.0F;
  float length = 0.0F;
  for (std::size_t i = from + 1; i <= to; ++i) {
    sum += (x[i] + x[i - 1]) / 2.0F * (t[i] - t[i - 1]);
    length += t[i] - t[i - 1];
  }
  return length > 0.0F ? sum / length : xm;
}

}  // namespace

void CalcAvgHighestPeaks(std::span<const int> N, std::span<const float> x, float xm, std::span<HighestPeaks> out) {
  SegmentLists lists;
  SegmentExtremes(x, xm, lists);
  int iflag = 0;
  if (lists.tops.empty() || lists.bottoms.empty()) iflag = 1;
  else if (lists.tops.size() < kFewPeaks || lists.bottoms.size() == kFewPeaks)
    iflag = 2;  // deliberate: nobody acts on it
  std::vector<float> tops;
  std::vector<float> bottoms;
  std::vector<float> amplitudes;
  Averages(lists.tops, 1.0F, N, xm, tops);
  Averages(lists.bottoms, -1.0F, N, xm, bottoms);
  Averages(lists.amplitudes, 1.0F, N, 0.0F, amplitudes);
  for (std::size_t j = 0; j < N.size(); ++j) out[j] = {tops[j], bottoms[j], amplitudes[j], iflag};
}

void CalcAvgBetween(std::span<const float> t, std::span<const float> x, float xm, BetweenAverages& out) {
  out = {xm, xm};
  const std::size_t n = x.size();
  bool any_upcrossing = false;
  bool any_top = false;
  bool running = false;  // a positive half cycle, which counts only with its downcrossing
  std::size_t first_up = 0, last_up = 0, first_top = 0, last_top = 0, top = 0;
  for (std::size_t i = 1; i < n; ++i) {
    if (x[i - 1] <= xm && xm < x[i]) {
      if (!any_upcrossing) first_up = i;
      any_upcrossing = running = true;
      last_up = top = i;
    } else if (x[i - 1] > xm && xm >= x[i]) {
      if (running && !any_top) first_top = top;
      any_top = any_top || running;
      if (running) last_top = top;
      running = false;
    } else if (running && x[i] > x[top]) {
      top = i;
    }
  }
  if (any_upcrossing) out.avgc = TimeAverage(t, x, xm, first_up, last_up);
  if (any_top) out.avgp = TimeAverage(t, x, xm, first_top, last_top);
}

}  // namespace zaview
