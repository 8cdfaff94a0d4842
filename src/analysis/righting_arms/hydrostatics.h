// Hydrostatics of a hull that stands somehow in water that is calm or not: panels below the surface, force and moment
// of the pressure on them, volume, waterplane and metacentric heights. Non-dimensional (rho = g = 1). Pure.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "analysis/righting_arms/water_surface.h"
#include "geometry/closed_hull.h"
#include "geometry/wetted_hull.h"

namespace zaview {

struct HydrostaticBody {
  ClosedHull hull;        // ship axes, from the centre of gravity
  double length = 0;      // its extent in x
  std::size_t cells = 0;  // ahead of their division into triangles, without what closes the hull
};

enum class BodyFault : std::uint8_t { none, too_many_surfaces, too_many_elements, too_many_panels, no_memory };

// hull: whole, ship axes; centre: of gravity in these. too_many_*: a half whose other half would not fit (MAXCMP,
// MAXFEG), or more than MAXBP0 cells (body.cells tells their number).
[[nodiscard]] BodyFault MakeHydrostaticBody(const Hull& hull, const Vector3& centre, HydrostaticBody& body);

struct Attitude {  // of the ship: R = Rz(yaw) Ry(pitch) Rx(roll)
  Vector3 cg{};    // global
  double roll = 0, pitch = 0, yaw = 0;
  [[nodiscard]] bool same_plan(const Attitude& other) const {  // all but sinkage
    return cg[0] == other.cg[0] && cg[1] == other.cg[1] && roll == other.roll && pitch == other.pitch &&
           yaw == other.yaw;
  }
};

struct HydrostaticWork {   // of one body in one water, kept from call to call: its heights hold for all sinkages
  bool made = false;       // false: begin anew
  Attitude attitude;       // of what stands below
  std::vector<Vector3> r;  // of the vertices, from the CG, horizontal axes turned by the yaw, z up
  std::vector<double> d;   // their depths
  WettedHull wet;          // in the same axes; `whole` triangles have their heights in at_centre
  std::vector<WaterAt> at_vertex, at_centre;
  std::vector<char> centre_known;
  std::vector<WaterAt> at_panel;  // by wet triangle
  std::vector<Vector3> places;
  std::vector<std::uint32_t> asked;
  std::vector<WaterAt> answer;
  int threads = 0;  // as for SideBySide; the numbers are the same
};

enum class HydrostaticFault : std::uint8_t { none, no_memory, illegal_icalc };

// Cuts the hull at the surface: work.wet. False: memory is out.
[[nodiscard]] bool HydrostaticPanels(const HydrostaticBody& body, const WaterSurface& water, const Attitude& attitude,
                                     HydrostaticWork& work);

struct Hydrostatics {  // horizontal axes turned by the yaw, from the CG
  Vector3 force{}, moment{};
  WetSums wet;  // its B: centre of buoyancy
  double GM_volume = 0, GM_pressure = 0;
};

enum HydrostaticMode : int { kForceOnly = 1, kForceAndSlopes = 2, kAllHydrostatics = 3 };

// icalc: what is wanted, a HydrostaticMode; what isn't stays 0. Behind HydrostaticPanels, over its panels in their
// order, n outward, A their area, c their centroid:
// - force = - sum H A n, H the head at c;
// - moment = - sum Q x A n, Q = H c + (1/12) sum over corners (d_i - mean d)(r_i - c): at the centre of the pressure,
//   exact in calm water;
// - GM_volume = (Ixx - Sy^2/Awp)/V + zB; 0 without volume or waterplane;
// - GM_pressure = - sum int (-dH/dz) y (y n_z - z n_y) dA / Fz; 0 without a force.
[[nodiscard]] HydrostaticFault HydrostaticForce(const WaterSurface& water, int icalc, HydrostaticWork& work,
                                                Hydrostatics& out);

// Both in turn.
[[nodiscard]] HydrostaticFault EvalHydrostatics(const HydrostaticBody& body, const WaterSurface& water,
                                                const Attitude& attitude, int icalc, HydrostaticWork& work,
                                                Hydrostatics& out);

}  // namespace zaview
