// The incident waves and their flow on a grid around the ship at one step, for a calculation in which the water runs
// past the ship: +X aft, +Y to starboard, +Z up from the still water, the origin where the ship would be that has kept
// its course and speed (shifted_waves.h). What is typed and written is in output units.
#pragma once

#include <array>
#include <string_view>

#include "base/platform.h"
#include "case/case_store.h"
#include "case/output_settings.h"

namespace zaview {

struct GridAxis {
  float low = 0, high = 0;
  int n = 1;  // 1: low alone
};
inline constexpr double kMostFieldPoints = 2e7;

struct WaveFieldRequest {
  int step = 1;
  std::array<GridAxis, 3> axes;  // x, y, z
};

// high below low, a count below 1, or too many points in all: false.
[[nodiscard]] bool IsGrid(const std::array<GridAxis, 3>& axes);
[[nodiscard]] bool IsAxis(const GridAxis& axis);

// root.txt: x y z eta u v w p, i fastest; root.xyz, root.f: the same in PLOT3D form; root.nam: the names. Velocity
// (U - phi_x, -phi_y, phi_z), pressure rho (-g z - phi_t) with the depth stretched below the waves; both are 0 above
// them. False (told): nothing is left of the files.
[[nodiscard]] bool WriteWaveField(const Platform& platform, const OutputSettings& settings,
                                  const WaveFieldRequest& request, std::string_view root, CaseStore& case_store);

}  // namespace zaview
