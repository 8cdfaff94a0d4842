#include "waves/incident_wave.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "base/angles.h"
#include "base/grow.h"
#include "base/message.h"
#include "waves/dispersion.h"
#include "waves/stokes.h"
#include "waves/wave_sums.h"

namespace zaview {
namespace {

constexpr std::string_view kLeftOut = "WRN199 - {} wave component(s) with non-positive frequency are left out";
constexpr int kHighestOrder = 5;

bool ReserveAll(IncidentWave& wave, std::size_t n) {
  return Reserve(wave.kx, n) && Reserve(wave.ky, n) && Reserve(wave.k, n) && Reserve(wave.w, n) && Reserve(wave.p, n) &&
         Reserve(wave.a, n);
}

struct Component {
  double kx = 0, ky = 0, k = 0, w = 0, phase = 0;  // phase in degrees
  float a = 0;
};

void Append(const Component& c, IncidentWave& wave) {
  if (!(c.w > 0.0) || !(c.k > 0.0)) {
    if (c.a != 0.0F) ++wave.left_out;
    return;
  }
  wave.kx.push_back(c.kx);
  wave.ky.push_back(c.ky);
  wave.k.push_back(c.k);
  wave.w.push_back(c.w);
  wave.p.push_back(c.phase * kRadians);
  wave.a.push_back(c.a);
}

Component Directed(double w, double k, float heading, float phase, float a) {
  const double b = static_cast<double>(heading) * kRadians;
  return {k * std::cos(b), k * std::sin(b), k, w, static_cast<double>(phase), a};
}

bool PrepareComponents(const WaveComponents& list, IncidentWave& wave) {
  const std::size_t n = std::min({list.FREQW.size(), list.PHASEW.size(), list.AMPW0.size(), list.HEADW.size()});
  if (!ReserveAll(wave, n)) return false;
  for (std::size_t i = 0; i < n; ++i) {
    const auto w = static_cast<double>(list.FREQW[i]);
    Append(Directed(w, WaveNumber(w, wave.depth), list.HEADW[i], list.PHASEW[i], list.AMPW0[i]), wave);
  }
  return true;
}

// The frequency is of the unscaled amplitude: with a scaled one the phase would jump while the wave grows.
bool PrepareStokes(const WaveComponents& list, IncidentWave& wave) {
  wave.depth = 0.0;
  if (list.FREQW.empty() || list.PHASEW.empty() || list.AMPW0.empty() || list.HEADW.empty()) return true;
  if (!ReserveAll(wave, 1)) return false;
  const auto nominal = static_cast<double>(list.FREQW[0]);
  if (!(nominal > 0.0)) {
    wave.left_out = 1;
    return true;
  }
  const double k = nominal * nominal;
  const double w = StokesFrequency(k, k * static_cast<double>(list.AMPW0[0]), wave.order);
  Append(Directed(w, k, list.HEADW[0], list.PHASEW[0], list.AMPW0[0]), wave);
  return true;
}

bool PrepareAlternative(const AlternativeWaves& list, IncidentWave& wave) {
  const std::size_t n =
      std::min({list.KX.size(), list.KY.size(), list.AMP.size(), list.PHASE.size(), list.FREQ.size()});
  if (!ReserveAll(wave, n)) return false;
  const double h = wave.depth;
  for (std::size_t i = 0; i < n; ++i) {
    Component c{list.KX[i], list.KY[i], 0.0, list.FREQ[i], list.PHASE[i], list.AMP[i]};
    c.k = std::hypot(c.kx, c.ky);
    if (c.w == 0.0) c.w = WaveFrequency(c.k, h);
    Append(c, wave);
  }
  return true;
}

// Ascending in k: the second order tells pairs by which of the two is the shorter wave.
bool PrepareModes(const WaveModes& list, IncidentWave& wave) {
  wave.depth = 0.0;
  const std::size_t n = std::min({list.MODE_AMP.size(), list.MODE_PHASE.size(), list.MODE_FREQ.size()});
  std::vector<std::size_t> order;
  if (!ReserveAll(wave, n) || !Reserve(order, n)) return false;
  for (std::size_t i = 0; i < n; ++i) {  // NaN would have no place in the order
    if (list.MODE_FREQ[i] > 0.0F) order.push_back(i);
    else if (list.MODE_AMP[i] != 0.0F) ++wave.left_out;
  }
  std::sort(order.begin(), order.end(), [&list](std::size_t i, std::size_t j) {
    return list.MODE_FREQ[i] != list.MODE_FREQ[j] ? list.MODE_FREQ[i] < list.MODE_FREQ[j] : i < j;
  });
  for (const std::size_t i : order) {
    const auto w = static_cast<double>(list.MODE_FREQ[i]);
    Append(Directed(w, w * w, list.WAVE_HEAD, list.MODE_PHASE[i], list.MODE_AMP[i]), wave);
  }
  return true;
}

void Zero(const WaveOutputs& out) {
  for (const std::span<float>& values :
       {out.eta, out.eta_x, out.eta_y, out.phi, out.phi_t, out.phi_x, out.phi_y, out.phi_z, out.second}) {
    std::fill(values.begin(), values.end(), 0.0F);
  }
}

bool WantsSlopes(const WaveOutputs& out) {
  return !out.eta_x.empty() || !out.eta_y.empty();
}

bool WantsPotential(const WaveOutputs& out) {
  return !out.phi.empty() || !out.phi_t.empty() || !out.phi_x.empty() || !out.phi_y.empty() || !out.phi_z.empty() ||
         !out.second.empty();
}

void Put(std::span<float> values, std::size_t i, float value) {
  if (i < values.size()) values[i] = value;
}

void Store(const WaveOutputs& out, std::size_t i, const PointWave& at) {
  Put(out.eta, i, at.eta);
  Put(out.eta_x, i, at.eta_x);
  Put(out.eta_y, i, at.eta_y);
  Put(out.phi, i, at.phi);
  Put(out.phi_t, i, at.phi_t);
  Put(out.phi_x, i, at.phi_x);
  Put(out.phi_y, i, at.phi_y);
  Put(out.phi_z, i, at.phi_z);
  if (out.second.size() / 9 <= i) return;
  const float nine[9] = {at.xx, at.xy, at.xz, at.xy, at.yy, at.yz, at.xz, at.yz, at.zz};
  std::copy(std::begin(nine), std::end(nine), out.second.begin() + static_cast<std::ptrdiff_t>(9 * i));
}

void AddSlopes(const IncidentWave& wave, WaveKind kind, const WavePlace& place, PointWave& at) {
  if (kind == WaveKind::stokes) return StokesSlopes(wave, place, at);
  SumSlopes(wave, place, at);
  if (kind == WaveKind::second_order) AddSecondOrderSlopes(wave, place, at);
}

void AddPotential(const IncidentWave& wave, WaveKind kind, WaveOptions options, const WavePlace& place, PointWave& at) {
  const bool decays = options.IEKZOPT == 1 || options.IEKZOPT == -1;
  const bool stretch = kind == WaveKind::stokes ? options.stretch == 1 : options.stretch != 0;
  const double z = StretchedDepth(place.z, static_cast<double>(at.eta), stretch, wave.depth);
  if (kind == WaveKind::stokes) return StokesPotential(wave, place, z, decays, at);
  SumPotential(wave, place, z, decays, at);
  if (kind == WaveKind::second_order) AddSecondOrderPotential(wave, place, z, decays, at);
}

}  // namespace

bool PrepareIncidentWave(const Seaway& seaway, IncidentWave& wave) {
  wave = IncidentWave{};
  wave.ISEA = seaway.ISEA;
  wave.order = std::clamp(seaway.WSPEC, 0, kHighestOrder);
  wave.depth = seaway.WDEPTH > kDeepWater && std::isfinite(seaway.WDEPTH) ? seaway.WDEPTH : 0.0;
  switch (KindOf(wave)) {
    case WaveKind::linear:
      return seaway.ISEA == 4 ? PrepareAlternative(seaway.alternative, wave) : PrepareComponents(seaway.waves, wave);
    case WaveKind::stokes:
      return PrepareStokes(seaway.waves, wave);
    case WaveKind::second_order:
      return PrepareModes(seaway.modes, wave);
    case WaveKind::calm:
    case WaveKind::unknown:
      break;
  }
  return true;
}

void SayLeftOut(const Console& console, const IncidentWave& wave) {
  if (wave.left_out > 0) Say(console, kLeftOut, wave.left_out);
}

WaveFault EvalIncidentWave(const IncidentWave& wave, WaveMoment moment, WaveOptions options,
                           std::span<const Vector3> points, const WaveOutputs& out) {
  Zero(out);
  const WaveKind kind = KindOf(wave);
  if (kind == WaveKind::unknown) return WaveFault::unknown_kind;
  if (kind == WaveKind::calm || wave.size() == 0) return WaveFault::none;

  const bool slopes = WantsSlopes(out);
  const bool potential = !options.elevation_only && WantsPotential(out);
  const auto scale = static_cast<float>(moment.scale);
  for (std::size_t first = 0; first < points.size(); first += kSideBySide) {
    PointBlock block;
    block.n = std::min(kSideBySide, points.size() - first);
    for (std::size_t j = 0; j < block.n; ++j) {
      block.x[j] = points[first + j][0];
      block.y[j] = points[first + j][1];
      block.t[j] = moment.time;
      block.scale[j] = scale;
    }
    const BlockValues eta = BlockElevations(wave, kind, block);
    for (std::size_t j = 0; j < block.n; ++j) {
      const WavePlace place{block.x[j], block.y[j], points[first + j][2], moment.time, scale};
      PointWave at;
      at.eta = eta[j];
      if (slopes) AddSlopes(wave, kind, place, at);
      if (potential) AddPotential(wave, kind, options, place, at);
      Store(out, first + j, at);
    }
  }
  return WaveFault::none;
}

}  // namespace zaview
