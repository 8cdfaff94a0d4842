#include "analysis/curves/curve_stretches.h"

#include <cmath>
#include <cstddef>

#include "case/size_history.h"

namespace zaview {

void AppendStretches(const CaseStore& store, const CurveSamples& samples, int record,
                     std::vector<CurveStretch>& stretches) {
  const auto holds = [&](std::size_t i) {
    return std::isfinite(samples.x[i]) && !InGap(store, samples.first_step + static_cast<int>(i) * samples.stride);
  };
  const std::size_t n = samples.x.size();
  for (std::size_t first = 0; first < n; ++first) {
    std::size_t end = first;
    while (end < n && holds(end)) ++end;
    if (end >= first + 2)
      stretches.push_back({samples.x.subspan(first, end - first), samples.t.subspan(first, end - first), record});
    first = end;
  }
}

void AppendLoadedStretches(const StatWork& work, std::vector<CurveStretch>& stretches) {
  const EnsembleData& data = work.state.ensemble;
  for (std::size_t i = 0; i < data.X.size(); ++i)
    AppendStretches(work.cases.record(static_cast<int>(i) + 1), {data.X[i], data.t[i], data.first_step[i], data.stride},
                    static_cast<int>(i) + 1, stretches);
}

std::vector<std::span<const float>> SamplesOf(std::span<const CurveStretch> stretches) {
  std::vector<std::span<const float>> samples;
  samples.reserve(stretches.size());
  for (const CurveStretch& stretch : stretches) samples.push_back(stretch.x);
  return samples;
}

double TimeOf(std::span<const CurveStretch> stretches) {
  double time = 0;
  for (const CurveStretch& stretch : stretches)
    time += static_cast<double>(stretch.t.back()) - static_cast<double>(stretch.t.front());
  return time;
}

double MeanOf(std::span<const CurveStretch> stretches) {
  double sum = 0, count = 0;
  for (const CurveStretch& stretch : stretches) {
    for (const float x : stretch.x) sum += static_cast<double>(x);
    count += static_cast<double>(stretch.x.size());
  }
  return count > 0 ? sum / count : 0;
}

}  // namespace zaview
