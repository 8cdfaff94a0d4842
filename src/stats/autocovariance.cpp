#include "stats/autocovariance.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <numeric>

#include "base/side_by_side.h"
#include "base/vector_clones.h"

namespace zaview {

namespace {

constexpr int kLanes = 64;                            // lags held side by side
constexpr std::size_t kParallelProducts = 2'000'000;  // below this a second thread costs more than it saves

// The first `n_common` products of the lags k .. k + 63. Each lane is the sum of one lag, from the first sample on.
ZAVIEW_VECTOR_CLONES
void CommonProducts(const float* c, std::size_t n_common, std::size_t k, float* sums) {
  typedef float Vector __attribute__((vector_size(32)));
  constexpr int kVectors = kLanes / 8;
  Vector sum[kVectors] = {};
  for (std::size_t i = 0; i < n_common; ++i) {
    const float ci = c[i];
    const Vector left = {ci, ci, ci, ci, ci, ci, ci, ci};
    const float* right = c + i + k;
    for (int v = 0; v < kVectors; ++v) {
      Vector values;
      std::memcpy(&values, right + 8 * v, sizeof values);
      sum[v] += left * values;
    }
  }
  std::memcpy(sums, sum, sizeof sum);
}

// Up to 64 lags from k on; what the longer lags don't share is finished one lag at a time.
void LagBlock(std::span<const float> c, std::size_t k, std::span<float> sums) {
  const std::size_t n = c.size();
  const std::size_t n_common = n >= k + kLanes ? n - (k + kLanes - 1) : 0;
  std::array<float, kLanes> lanes{};
  if (n_common > 0) CommonProducts(c.data(), n_common, k, lanes.data());
  for (std::size_t l = 0; l < sums.size(); ++l) {
    float sum = lanes[l];
    for (std::size_t i = n_common; i + k + l < n; ++i) sum += c[i] * c[i + k + l];
    sums[l] = sum;
  }
}

int ThreadsFor(std::size_t products) {
  return products > kParallelProducts ? 0 : 1;
}

}  // namespace

std::vector<float> Centred(std::span<const float> x, float xm) {
  std::vector<float> c(x.size());
  std::transform(x.begin(), x.end(), c.begin(), [xm](float v) { return v - xm; });
  return c;
}

void LagSums(std::span<const float> c, int first, std::span<float> sums) {
  const std::size_t blocks = (sums.size() + kLanes - 1) / kLanes;
  SideBySide(blocks, ThreadsFor(c.size() * sums.size()), [&](std::size_t b) {
    const std::size_t from = b * kLanes;
    LagBlock(c, static_cast<std::size_t>(first) + from,
             sums.subspan(from, std::min<std::size_t>(kLanes, sums.size() - from)));
  });
}

void EnsembleLagSums(std::span<const std::span<const float>> c, int first, std::size_t n_lags, std::span<float> sums) {
  std::fill(sums.begin(), sums.end(), 0.0F);
  std::size_t samples = 0;
  for (const std::span<const float> record : c) samples += record.size();
  const std::size_t blocks = (n_lags + kLanes - 1) / kLanes;
  SideBySide(c.size() * blocks, ThreadsFor(samples * n_lags), [&](std::size_t task) {
    const std::size_t i = task / blocks;
    const std::size_t from = (task % blocks) * kLanes;
    const std::size_t k = static_cast<std::size_t>(first) + from;
    const std::size_t end = c[i].empty() ? 0 : c[i].size() / 2 + 1;
    if (k >= end) return;
    const std::size_t count = std::min({std::size_t{kLanes}, n_lags - from, end - k});
    LagBlock(c[i], k, sums.subspan(i * n_lags + from, count));
  });
}

void RecordLags(std::span<const float> c, int M, std::vector<float>& Rx) {
  Rx.assign(static_cast<std::size_t>(M) + 1, 0.0F);
  LagSums(c, 0, Rx);
  const float r = 1.0F / static_cast<float>(c.size());
  for (float& value : Rx) value = r * value;
}

bool AutoCovariance(std::span<const float> t, std::span<const float> x, std::vector<float>& dtau,
                    std::vector<float>& R) {
  dtau.clear();
  R.clear();
  if (x.empty() || t.size() != x.size()) return false;
  const std::size_t n = x.size();
  const float xbar = std::accumulate(x.begin(), x.end(), 0.0F) / static_cast<float>(n);
  R.assign(n, 0.0F);
  // Deliberate: the last sample stays out of every product sum, even at lag 0.
  const std::vector<float> c = Centred(x.first(n - 1), xbar);
  if (n > 1) LagSums(c, 0, std::span(R).first(n - 1));
  for (std::size_t k = 0; k + 1 < n; ++k) R[k] = (1.0F / static_cast<float>(n - 1 - k)) * R[k];
  dtau = Centred(t, t[0]);
  return true;
}

void EnvelopeExtremes(std::span<const float> R, std::vector<int>& upper, std::vector<int>& lower) {
  upper.clear();
  lower.clear();
  for (std::size_t i = 1; i + 1 < R.size(); ++i) {
    const bool extreme = R[i] >= std::max(R[i - 1], R[i + 1]) || R[i] <= std::min(R[i - 1], R[i + 1]);
    if (extreme) (R[i] > 0.0F ? upper : lower).push_back(static_cast<int>(i));
  }
}

}  // namespace zaview
