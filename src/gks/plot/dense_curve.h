// Long histories on a narrow screen: of the many points in one column of pixels only a few can be seen. Pure.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "gks/kernel/gks_state.h"

namespace zaview {

struct CurvePoints {
  std::vector<float> x, y;
};

// Points of a curve whose solid polyline has the same pixels: of each run of points in one column of pixels (of the
// selected transformation, so after dgGraf) the first, the lowest and the highest in their order, and the last; where a
// line ends, the last point in another row as well. A run ends at the window's left and right edge too, where clipping
// starts. Where pictures are of any resolution, of each third of a column. Points that aren't finite
// all stay. For a logarithmic y axis points that it can't show are left out. False: memory is out.
[[nodiscard]] bool ThinCurve(const GksState& gks, std::span<const float> x, std::span<const float> y, bool log_y,
                             CurvePoints& out);

// The same for any picture that is narrower than `columns` pixels: of so many runs of equally many points the first,
// the lowest, the highest and the last. Made once, for curves that are drawn again and again. False: memory is out.
[[nodiscard]] bool CoarseCurve(std::span<const float> x, std::span<const float> y, std::size_t columns,
                               CurvePoints& out);

}  // namespace zaview
