#include "stats/highest_peaks.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <functional>
#include <vector>

namespace zaview {

namespace {

constexpr std::size_t kFewPeaks = 40;

struct SegmentLists {
  std::vector<float> tops, bottoms, amplitudes;
};

// One extreme of |x - xm| between successive sign changes, the first of equals. The sign of 0 is plus. What lies ahead
// of the first change, and behind the last, belongs to none.
void SegmentExtremes(std::span<const float> x, float xm, SegmentLists& lists) {
  const std::size_t n = x.size();
  const auto above = [=](std::size_t i) { return x[i] - xm >= 0.0F; };
  std::size_t i = 1;
  while (i < n && above(i) == above(0)) ++i;
  while (i < n) {
    const bool side = above(i);
    float extreme = x[i];
    float a = std::abs(x[i] - xm);
    for (++i; i < n && above(i) == side; ++i) {
      const float here = std::abs(x[i] - xm);
      if (here > a) {
        a = here;
        extreme = x[i];
      }
    }
    if (i == n) break;
    (extreme > xm ? lists.tops : lists.bottoms).push_back(extreme);
    lists.amplitudes.push_back(a);
  }
}

// Puts the first `count` in their order in front, NaN last.
template <typename Ahead>
void SortFirst(std::vector<float>& values, std::size_t count, Ahead ahead) {
  const auto numbers = std::partition(values.begin(), values.end(), [](float v) { return v == v; });
  const auto end = std::min(values.begin() + static_cast<std::ptrdiff_t>(count), numbers);
  std::nth_element(values.begin(), end, numbers, ahead);
  std::sort(values.begin(), end, ahead);
}

std::size_t HighestCount(std::size_t peaks, int N) {
  return std::min(peaks, static_cast<std::size_t>(static_cast<float>(peaks) / static_cast<float>(N) + 0.5F));
}

// Averages of the first HighestCount(N) values for each N, from one running sum over the sorted list.
template <typename Ahead>
void Averages(std::vector<float>& values, Ahead ahead, std::span<const int> N, float none,
              std::vector<float>& averages) {
  std::size_t most = 0;
  for (const int n : N) most = std::max(most, HighestCount(values.size(), n));
  SortFirst(values, most, ahead);
  std::vector<float> prefix(most + 1, 0.0F);
  for (std::size_t i = 0; i < most; ++i) prefix[i + 1] = prefix[i] + values[i];
  averages.clear();
  for (const int n : N) {
    const std::size_t ipt = HighestCount(values.size(), n);
    averages.push_back(ipt < 1 ? none : prefix[ipt] / static_cast<float>(ipt));
  }
}

struct Stretch {  // of samples, both ends included
  std::size_t from = 0, to = 0;
};

// The trapezoid averages of x over two stretches, which share most of a record: their sums run side by side. xm for an
// empty stretch.
std::array<float, 2> TimeAverages(std::span<const float> t, std::span<const float> x, float xm, const Stretch (&s)[2]) {
  std::array<float, 2> sum{}, length{};
  for (std::size_t i = std::min(s[0].from, s[1].from) + 1; i <= std::max(s[0].to, s[1].to); ++i) {
    const float dt = t[i] - t[i - 1];
    const float area = (x[i] + x[i - 1]) / 2.0F * dt;
    for (std::size_t k = 0; k < 2; ++k) {
      const bool inside = s[k].from < i && i <= s[k].to;
      sum[k] += inside ? area : 0.0F;  // 0 changes no sum that began at 0
      length[k] += inside ? dt : 0.0F;
    }
  }
  for (std::size_t k = 0; k < 2; ++k) sum[k] = length[k] > 0.0F ? sum[k] / length[k] : xm;
  return sum;
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
  Averages(lists.tops, std::greater<>(), N, xm, tops);
  Averages(lists.bottoms, std::less<>(), N, xm, bottoms);
  Averages(lists.amplitudes, std::greater<>(), N, 0.0F, amplitudes);
  for (std::size_t j = 0; j < N.size(); ++j) out[j] = {tops[j], bottoms[j], amplitudes[j], iflag};
}

void CalcAvgBetween(std::span<const float> t, std::span<const float> x, float xm, BetweenAverages& out) {
  const std::size_t n = x.size();
  Stretch up, tops;
  for (std::size_t i = 1; i < n; ++i) {
    if (!(x[i - 1] <= xm && xm < x[i])) continue;
    if (up.to == 0) up.from = i;
    up.to = i;
    std::size_t top = i;
    for (++i; i < n && x[i] > xm; ++i)
      if (x[i] > x[top]) top = i;
    if (i == n) break;  // a top counts only with the downcrossing behind it
    if (tops.to == 0) tops.from = top;
    tops.to = top;
  }
  const auto [avgc, avgp] = TimeAverages(t, x, xm, {up, tops});
  out = {avgc, avgp};
}

}  // namespace zaview
