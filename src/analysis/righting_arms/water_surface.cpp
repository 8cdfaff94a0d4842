#include "analysis/righting_arms/water_surface.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "base/side_by_side.h"
#include "waves/wave_sums.h"

namespace zaview {
namespace {

constexpr std::size_t kStretch = 16 * kSideBySide;  // places handed to a thread at once
constexpr std::size_t kParallelTerms = 200'000;     // below this a second thread costs more than it saves

void SumDirectly(const WaterSurface& water, WaveKind kind, std::span<const Vector3> places, std::span<WaterAt> out) {
  for (std::size_t from = 0; from < places.size(); from += kSideBySide) {
    PointBlock block;
    block.n = std::min(kSideBySide, places.size() - from);
    for (std::size_t j = 0; j < block.n; ++j) {
      block.x[j] = places[from + j][0];
      block.y[j] = places[from + j][1];
      block.t[j] = water.moment.time;
      block.scale[j] = static_cast<float>(water.moment.scale);
    }
    const BlockValues eta = BlockElevations(*water.wave, kind, block);
    for (std::size_t j = 0; j < block.n; ++j) out[from + j].eta = eta[j];
  }
}

void Evaluate(const WaterSurface& water, WaveKind kind, std::span<const Vector3> places, bool wants_k,
              std::span<WaterAt> out) {
  if (water.option == WaveOption::direct) return SumDirectly(water, kind, places, out);
  for (std::size_t i = 0; i < places.size(); ++i) {
    const std::span<const Vector3> place = places.subspan(i, 1);
    if (!ElevationFromTable(water.table, water.moment.time, place, std::span(&out[i].eta, 1)))
      SumDirectly(water, kind, place, out.subspan(i, 1));
    if (!wants_k) continue;
    out[i].k = water.option == WaveOption::table_local_decay
                   ? LocalWaveNumber(*water.wave, water.numbers, water.moment, places[i][0], places[i][1])
                   : water.numbers.mean;
  }
}

}  // namespace

bool MakeWaterSurface(const IncidentWave& wave, WaveMoment moment, WaveOption option, const WaveTableRequest& request,
                      WaterSurface& water) {
  water = WaterSurface{};
  water.wave = &wave;
  water.moment = moment;
  water.option = option;
  water.numbers = WaveNumbersOf(wave);
  return option == WaveOption::direct || SetupIncidentWaveInterpHS(wave, moment, request, water.table);
}

void EvalWater(const WaterSurface& water, std::span<const Vector3> places, bool wants_k, std::span<WaterAt> out,
               int threads) {
  const std::size_t n = std::min(places.size(), out.size());
  std::fill_n(out.begin(), n, WaterAt{});
  if (water.wave == nullptr || water.wave->size() == 0) return;
  const WaveKind kind = KindOf(*water.wave);
  if (kind == WaveKind::calm || kind == WaveKind::unknown) return;
  const bool each_k = wants_k && water.decays();
  SideBySide((n + kStretch - 1) / kStretch, n > kParallelTerms / water.wave->size() ? threads : 1, [&](std::size_t i) {
    const std::size_t from = i * kStretch, length = std::min(kStretch, n - from);
    Evaluate(water, kind, places.subspan(from, length), each_k, out.subspan(from, length));
  });
}

PressureHead HeadAt(const WaterAt& at, double z, bool decays) {
  const auto eta = static_cast<double>(at.eta);
  if (!decays) return {eta - z, 1};
  const double E = std::exp(std::min(at.k * (z - eta), 0.0));
  return {eta * E - z, 1 - at.k * eta * E};
}

}  // namespace zaview
