// The water about a hull at one moment: its height, and how its pressure falls off with depth. Global axes,
// non-dimensional. Pure.
#pragma once

#include <cstdint>
#include <span>

#include "base/rotation.h"
#include "waves/local_wave_number.h"
#include "waves/wave_interp.h"

namespace zaview {

enum class WaveOption : std::uint8_t {
  direct,              // the sum over all components
  table,               // a table of heights, read as linear in between
  table_local_decay,   // and the wave falls off with depth, by the wave number at the place
  table_global_decay,  // by that of the whole seaway
};
inline constexpr int kWaveOptions = 4;

struct WaterSurface {
  const IncidentWave* wave = nullptr;  // null: calm
  WaveMoment moment;
  WaveOption option = WaveOption::direct;
  WaveTable table;  // of all options but `direct`
  WaveNumbers numbers;
  [[nodiscard]] bool decays() const { return option >= WaveOption::table_local_decay && numbers.mean > 0; }
};

// wave must outlive the surface. False: the table can't be made (SetupIncidentWaveInterpHS).
[[nodiscard]] bool MakeWaterSurface(const IncidentWave& wave, WaveMoment moment, WaveOption option,
                                    const WaveTableRequest& request, WaterSurface& water);

struct WaterAt {
  float eta = 0;
  double k = 0;  // where the pressure decays, and only if it is wanted
};

// out[i] at places[i], of which z doesn't count; places outside the table are summed directly. The numbers of
// EvalIncidentWave, whatever stands beside a place, over both processors (threads as for SideBySide). No memory is
// asked for.
void EvalWater(const WaterSurface& water, std::span<const Vector3> places, bool wants_k, std::span<WaterAt> out,
               int threads = 0);

// Head of the pressure at height z, over rho g: eta - z; with decay eta E - z, E = exp(k (z - eta)), at most 1.
struct PressureHead {
  double H = 0;
  double fall = 1;  // -dH/dz
};
[[nodiscard]] PressureHead HeadAt(const WaterAt& at, double z, bool decays);

}  // namespace zaview
