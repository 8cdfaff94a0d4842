#include <algorithm>
#include <cstddef>
#include <vector>

#include "base/grow.h"
#include "gks/kernel/clip_segment.h"
#include "gks/kernel/gks_draw.h"
#include "gks/kernel/primitives.h"

namespace zaview {

namespace {

bool IsAllInside(const GksRectangle& window, std::span<const float> x, std::span<const float> y) {
  for (std::size_t i = 0; i < x.size(); ++i)
    if (!gksInside(window, {x[i], y[i]})) return false;
  return true;
}

}  // namespace

void gksDrawFill(const GksState& gks, GksColour colour, std::span<const float> x, std::span<const float> y) {
  const std::size_t n = std::min(x.size(), y.size());
  if (n < 3) return;
  const GksRectangle window = gksSortedWindow(gks);
  std::vector<GksPoint> points;
  if (!gks.attribute.clip || IsAllInside(window, x.first(n), y.first(n))) {
    if (!Reserve(points, n)) return;
    for (std::size_t i = 0; i < n; ++i) points.push_back({x[i], y[i]});
  } else if (!ClipPolygon(window, x, y, points)) {
    return;
  }
  for (GksPoint& point : points) point = gksPixelPoint(gks, point);
  gks.paint.fill(gks.paint.self, colour, points);
}

void GFA(const GksState& gks, std::span<const float> x, std::span<const float> y) {
  gksDrawFill(gks, gksColourOf(gks, gks.attribute.fill_colour), x, y);
}

}  // namespace zaview
