// Motion of a ship-fixed point (x y z in INPUT axes and units) over all steps in store.
//   r = point in ship axes less the CG; p = CG + R r; v = vmg(1:3) + R (w x r);
//   a = R (acc(1:3) + w' x r + w x (w x r)), w = vmg(4:6), w' = acc(4:6), products in ship axes. Results are global.
// point_motion 1..3 p, 4..6 v, 7..9 a. Relative motion, with eta the incident wave at the point's own place:
// 10..12 p - p0 - (USHIP DTH (i-1), 0, eta), p0 the point at PMGIN; 13 (deltaZ) eta - p_z, above 0 under water.
#pragma once

#include <array>

#include "base/platform.h"
#include "case/case_store.h"
#include "case/output_settings.h"
#include "case/wave_at_cg.h"

namespace zaview {

// False: out of memory. The same point as last time costs nothing and prints nothing. Makes 1 to 9.
[[nodiscard]] bool NodePointMot(const Console& console, const OutputSettings& settings,
                                const std::array<double, 3>& point, CaseStore& case_store);

// Makes 10 to 13 for the point of the last NodePointMot.
[[nodiscard]] WaveAnswer RelativePointMot(const Console& console, CaseStore& case_store);

}  // namespace zaview
