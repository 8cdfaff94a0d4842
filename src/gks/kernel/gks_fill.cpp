#include <algorithm>
#include <cstddef>
#include <vector>

#include <GL/gl.h>

#include "gks/kernel/clip_segment.h"
#include "gks/kernel/gks_draw.h"
#include "gks/kernel/gks_paint.h"

namespace zaview {

namespace {

bool IsAllInside(const GksRectangle& window, std::span<const float> x, std::span<const float> y) {
  for (std::size_t i = 0; i < x.size(); ++i)
    if (!gksInside(window, {x[i], y[i]})) return false;
  return true;
}

}  // namespace

void gksDrawFill(const GksState& gks, std::span<const float> x, std::span<const float> y) {
  const std::size_t n = std::min(x.size(), y.size());
  if (n < 3) return;
  const GksRectangle window = gksSortedWindow(gks);
  if (!gks.attribute.clip || IsAllInside(window, x.first(n), y.first(n))) {
    glBegin(GL_POLYGON);
    for (std::size_t i = 0; i < n; ++i) gksPutVertex(gks, {x[i], y[i]});
    glEnd();
    return;
  }
  std::vector<GksPoint> inside;
  if (!ClipPolygon(window, x, y, inside)) return;
  glBegin(GL_POLYGON);
  for (const GksPoint& point : inside) gksPutVertex(gks, point);
  glEnd();
}

void GFA(const GksState& gks, std::span<const float> x, std::span<const float> y) {
  gksSetColour(gks, gks.attribute.fill_colour);
  gksDrawFill(gks, x, y);
}

}  // namespace zaview
