#include "stats/peak_stats.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <vector>

#include "stats/autocovariance.h"
#include "stats/dependence_time.h"
#include "stats/gauss_probability.h"

namespace zaview {

namespace {

// Descending, NaN last: a strict weak order for any samples.
bool Larger(float a, float b) {
  return a > b || (b != b && a == a);
}

struct Kept {                        // the peaks that are averaged, in time order
  std::vector<std::size_t> index;    // into the list
  std::vector<float> deviation;      // from their average
  std::vector<std::size_t> cluster;  // start of each cluster in the two above, and their size at the end
};

// The ipN largest of fact * value; of those tied at the threshold the earliest.
void KeepHighest(const PeakList& peaks, float fact, std::size_t ipN, Kept& kept) {
  std::vector<float> w(peaks.value.size());
  std::transform(peaks.value.begin(), peaks.value.end(), w.begin(), [fact](float v) { return fact * v; });
  const auto nth = w.begin() + static_cast<std::ptrdiff_t>(ipN) - 1;
  std::nth_element(w.begin(), nth, w.end(), Larger);
  const float pthres = *nth;
  for (std::size_t i = 0; i < peaks.value.size() && kept.index.size() < ipN; ++i) {
    if (pthres <= fact * peaks.value[i]) kept.index.push_back(i);
  }
}

// A peak joins the cluster of the one before if both are in one record and at most ndti steps apart.
void FindClusters(const PeakList& peaks, int ndti, Kept& kept) {
  for (std::size_t i = 0; i < kept.index.size(); ++i) {
    const std::size_t here = kept.index[i];
    const std::size_t before = i > 0 ? kept.index[i - 1] : 0;
    const bool joins =
        i > 0 && peaks.record[here] == peaks.record[before] && peaks.step[here] - peaks.step[before] <= ndti;
    if (!joins) kept.cluster.push_back(i);
  }
  kept.cluster.push_back(kept.index.size());
}

constexpr std::size_t kLanes = 8;

// Products inside one cluster, its peaks from..to-1, of the lags k .. k + lags - 1. Each lane is the sum of one lag, in
// the order of the peaks; what the longer lags don't share is finished one lag at a time.
void AddCluster(std::span<const float> d, std::size_t from, std::size_t to, std::size_t k, std::size_t lags,
                std::array<float, kLanes>& sum) {
  const std::size_t shared = lags == kLanes && to - from >= k + kLanes ? to - (k + kLanes - 1) : from;
  for (std::size_t i = from; i < shared; ++i) {
    for (std::size_t l = 0; l < kLanes; ++l) sum[l] += d[i] * d[i + k + l];
  }
  for (std::size_t l = 0; l < lags; ++l) {
    for (std::size_t i = shared; i + k + l < to; ++i) sum[l] += d[i] * d[i + k + l];
  }
}

// R(k) = (1/npN) * sum over clusters of the products inside each, k = 0 .. count - 1.
std::vector<float> ClusterLags(const Kept& kept, std::size_t count) {
  const float r = 1.0F / static_cast<float>(kept.index.size());
  std::vector<float> R(count);
  for (std::size_t k = 0; k < count; k += kLanes) {
    const std::size_t lags = std::min(kLanes, count - k);
    std::array<float, kLanes> sum{};
    for (std::size_t j = 0; j + 1 < kept.cluster.size(); ++j)
      AddCluster(kept.deviation, kept.cluster[j], kept.cluster[j + 1], k, lags, sum);
    for (std::size_t l = 0; l < lags; ++l) R[k + l] = r * sum[l];
  }
  return R;
}

float ClusterVariance(const Kept& kept, std::size_t largest) {
  const float npN = static_cast<float>(kept.index.size());
  const auto lags_of = [](std::size_t nc) { return static_cast<int>(std::sqrt(static_cast<float>(nc))); };
  const std::vector<float> R = ClusterLags(kept, static_cast<std::size_t>(std::max(1, lags_of(largest))));
  float sum = R[0];
  for (std::size_t j = 0; j + 1 < kept.cluster.size(); ++j) {
    const std::size_t size = kept.cluster[j + 1] - kept.cluster[j];
    const int mc = lags_of(size);
    const float nc = static_cast<float>(size);
    for (int k = 1; k < mc; ++k) {
      const float weight = 1.0F - static_cast<float>(k) / static_cast<float>(mc);
      sum += (((weight * 2.0F) * nc) * R[static_cast<std::size_t>(k)]) / npN;
    }
  }
  const float VarpkNe = sum / npN;
  return VarpkNe < 0.0F ? R[0] / npN : VarpkNe;
}

bool Enough(int N, const PeakList& list) {
  return N < static_cast<int>(list.value.size());
}

}  // namespace

void CalcPeakAvgN(int N, int iopt, const PeakList& peaks, float fact, int ndti, float probCoef, PeakAverage& out) {
  const std::size_t np = peaks.value.size();
  if (np == 0 || N < 1) return;
  const int ratio = static_cast<int>(static_cast<float>(np) / static_cast<float>(N) + 0.5F);
  const std::size_t ipN = std::clamp<std::size_t>(static_cast<std::size_t>(ratio), 1, np);
  Kept kept;
  KeepHighest(peaks, fact, ipN, kept);
  if (kept.index.empty()) return;  // only NaN above the threshold
  out.npN = static_cast<int>(kept.index.size());
  float sum = 0.0F;
  for (const std::size_t i : kept.index) sum += peaks.value[i];
  out.xpkN = sum / static_cast<float>(out.npN);
  if (iopt != kPeakHalfWidths) return;

  kept.deviation.reserve(kept.index.size());
  for (const std::size_t i : kept.index) kept.deviation.push_back(peaks.value[i] - out.xpkN);
  FindClusters(peaks, ndti, kept);
  std::size_t largest = 0;
  for (std::size_t j = 0; j + 1 < kept.cluster.size(); ++j)
    largest = std::max(largest, kept.cluster[j + 1] - kept.cluster[j]);
  out.Nclpks = static_cast<int>(kept.cluster.size()) - 1;
  out.Mclmax = static_cast<int>(largest);
  out.xpkNci = std::sqrt(ClusterVariance(kept, largest)) * probCoef;
}

StatFault PeakFaults(std::span<const int> N, int iopt, float prob) {
  StatFault faults = StatFault::none;
  if (std::any_of(N.begin(), N.end(), [](int n) { return n < 1; })) faults = faults | StatFault::peak_frequency;
  if (iopt != kPeakHalfWidths && iopt != kPeakAveragesOnly) faults = faults | StatFault::option;
  if (!(prob > 0.0F && prob < 1.0F)) faults = faults | StatFault::probability;
  return faults;
}

bool NeedsDependence(std::span<const int> N, int iopt, const Peaks& peaks) {
  return iopt == kPeakHalfWidths && std::any_of(N.begin(), N.end(), [&](int n) { return Enough(n, peaks.all); });
}

void AveragePeaks(std::span<const int> N, int iopt, const Peaks& peaks, int ndti, float probCoef,
                  std::span<RecordPeakStats> out) {
  for (std::size_t j = 0; j < N.size(); ++j) {
    RecordPeakStats& o = out[j];
    o.Npks = static_cast<int>(peaks.all.value.size());
    o.Npksb = static_cast<int>(peaks.bottom.value.size());
    o.Npkst = static_cast<int>(peaks.top.value.size());
    o.ndti = ndti;
    const auto average = [&](const PeakList& list, float fact, float& value, float& half_width) {
      if (!Enough(N[j], list)) return;
      PeakAverage result;
      CalcPeakAvgN(N[j], iopt, list, fact, ndti, probCoef, result);
      value = result.xpkN;
      half_width = result.xpkNci;
    };
    average(peaks.all, 1.0F, o.xpkN, o.xpkNci);
    average(peaks.top, 1.0F, o.xpkNt, o.xpkNtci);
    average(peaks.bottom, -1.0F, o.xpkNb, o.xpkNbci);
  }
}

StatFault CalcRecordPeakStats(int N, int iopt, std::span<const float> x, float prob, RecordPeakStats& out) {
  return CalcRecordPeakStats(std::span(&N, 1), iopt, x, prob, std::span(&out, 1));
}

StatFault CalcRecordPeakStats(std::span<const int> N, int iopt, std::span<const float> x, float prob,
                              std::span<RecordPeakStats> out) {
  std::fill(out.begin(), out.end(), RecordPeakStats{});
  const StatFault faults = PeakFaults(N, iopt, prob);
  if (faults != StatFault::none || x.empty()) return faults;
  float probCoef = 0.0F;
  if (iopt == kPeakHalfWidths) (void)getGaussPDFka(prob, probCoef);
  const float xm = MeanOf(x);
  Peaks peaks;
  GetPeaks(std::span(&x, 1), xm, peaks);

  int ndti = 0;
  if (NeedsDependence(N, iopt, peaks)) {
    Dependence dependence;
    RecordDependence(Centred(x, xm), kPeakCutoff, dependence);
    ndti = dependence.ndti;
  }
  AveragePeaks(N, iopt, peaks, ndti, probCoef, out);
  return faults;
}

}  // namespace zaview
