#include "stats/dependence_time.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "stats/autocovariance.h"

namespace zaview {

namespace {

constexpr std::size_t kFirstLags = 256;    // lags made at first; each further block doubles them
constexpr std::size_t kLagsAtOnce = 4096;  // of every record, so that many long records need little memory

// The walk along the envelope points, as lags come in.
struct EnvelopeWalk {
  float cutoff = 0;
  int points = 0;
  float k_before = 0, v_before = 0;

  // Takes the next point; true at the first one, from the second on, that is at or below the cut-off.
  bool Take(int k, float v, float& lag) {
    ++points;
    const float k_here = static_cast<float>(k);
    if (points >= 2 && v <= cutoff) {
      const float d = v_before - v;
      const float d1 = (v_before - cutoff) / d;
      const float d2 = (cutoff - v) / d;
      // The weights are crossed on purpose: d1 goes with the later point.
      lag = d == 0.0F ? k_here : k_here * d1 + k_before * d2;
      return true;
    }
    k_before = k_here;
    v_before = v;
    return false;
  }
};

bool IsEnvelopePoint(std::span<const float> R, std::size_t k) {
  const float here = std::abs(R[k]);
  return std::abs(R[k - 1]) < here && std::abs(R[k + 1]) < here;
}

// Walks over R from lag `from` to the last that has a neighbour on both sides.
bool Walk(std::span<const float> R, std::size_t from, EnvelopeWalk& walk, float& lag) {
  for (std::size_t k = std::max<std::size_t>(from, 1); k + 1 < R.size(); ++k) {
    if (!IsEnvelopePoint(R, k)) continue;
    if (walk.Take(static_cast<int>(k), std::abs(R[k] / R[0]), lag)) return true;
  }
  return false;
}

void Reached(float lag, int M, Dependence& out) {
  out.reached = true;
  out.lag = std::clamp(lag, 0.0F, static_cast<float>(M));
  if (!(lag == lag)) out.lag = static_cast<float>(M);
  out.ndti = static_cast<int>(out.lag);
}

}  // namespace

void EnvelopeRule(std::span<const float> R, float cutoff, Dependence& out) {
  out = Dependence{};
  EnvelopeWalk walk;
  walk.cutoff = cutoff;
  float lag = 0.0F;
  if (Walk(R, 1, walk, lag)) Reached(lag, static_cast<int>(R.size()) - 1, out);
}

void EnvelopePoints(std::span<const float> R, std::vector<float>& lag, std::vector<float>& value) {
  lag.clear();
  value.clear();
  for (std::size_t k = 1; k + 1 < R.size(); ++k) {
    if (!IsEnvelopePoint(R, k)) continue;
    lag.push_back(static_cast<float>(k));
    value.push_back(std::abs(R[k] / R[0]));
  }
}

void AverageLags(std::span<const std::span<const float>> centred, std::span<const float> w, int first,
                 std::span<float> Rax) {
  std::vector<float> Rx(centred.size() * std::min(Rax.size(), kLagsAtOnce));
  for (std::size_t done = 0; done < Rax.size(); done += kLagsAtOnce) {
    const std::span<float> part = Rax.subspan(done, std::min(Rax.size() - done, kLagsAtOnce));
    const std::span<float> sums = std::span(Rx).first(centred.size() * part.size());
    EnsembleLagSums(centred, first + static_cast<int>(done), part.size(), sums);
    std::fill(part.begin(), part.end(), 0.0F);
    for (std::size_t i = 0; i < centred.size(); ++i) {
      if (centred[i].empty()) continue;
      const float r = 1.0F / static_cast<float>(centred[i].size());
      for (std::size_t k = 0; k < part.size(); ++k) part[k] += w[i] * (r * sums[i * part.size() + k]);
    }
  }
}

void EnsembleDependence(std::span<const std::span<const float>> centred, std::span<const float> w, float cutoff,
                        Dependence& out) {
  out = Dependence{};
  std::size_t npmax = 0;
  for (const std::span<const float> c : centred) npmax = std::max(npmax, c.size());
  if (npmax == 0) return;
  const std::size_t M = npmax / 2;
  EnvelopeWalk walk;
  walk.cutoff = cutoff;
  std::vector<float> R;
  std::size_t next = 1;  // the first lag not yet looked at
  for (std::size_t made = 0; made < M + 1;) {
    const std::size_t until = std::min(M + 1, std::max(kFirstLags, 2 * made));
    R.resize(until);
    AverageLags(centred, w, static_cast<int>(made), std::span(R).subspan(made));
    made = until;
    float lag = 0.0F;
    if (Walk(R, next, walk, lag)) {
      Reached(lag, static_cast<int>(M), out);
      return;
    }
    next = until - 1;
  }
  out.ndti = static_cast<int>(M);
  out.lag = static_cast<float>(M);
}

void RecordDependence(std::span<const float> centred, float cutoff, Dependence& out) {
  const float whole = 1.0F;
  EnsembleDependence(std::span(&centred, 1), std::span(&whole, 1), cutoff, out);
}

}  // namespace zaview
