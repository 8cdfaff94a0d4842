#include <algorithm>
#include <array>
#include <cstddef>

#include <GL/gl.h>

#include "gks/kernel/clip_segment.h"
#include "gks/kernel/gks_draw.h"
#include "gks/kernel/gks_paint.h"

namespace zaview {

namespace {

constexpr std::array<GLushort, 5> kStipples{0xFFFF, 255, 257, 7239, 2056};  // by line style; low bit first

struct Strip {
  const GksState& gks;
  bool open = false;

  void Begin(GksPoint from) {
    glBegin(GL_LINE_STRIP);
    open = true;
    gksPutVertex(gks, from);
  }
  void End() {
    if (open) glEnd();
    open = false;
  }
};

}  // namespace

void gksPutVertex(const GksState& gks, GksPoint point) {
  const GksPixel pixel = gksToPixel(gks, point);
  glVertex2i(pixel.x, pixel.y);
}

void gksSetColour(const GksState& gks, int index) {
  const GksColour& colour = gks.colour[static_cast<std::size_t>(std::clamp(index, 0, GKS_MAX_COLORS))];
  glColor3f(colour.red, colour.green, colour.blue);
}

void gksSetLineStyle(int style, float width) {
  glLineWidth(width);
  if (style < 1 || style >= static_cast<int>(kStipples.size())) {
    glDisable(GL_LINE_STIPPLE);
    return;
  }
  glEnable(GL_LINE_STIPPLE);
  glLineStipple(1, kStipples[static_cast<std::size_t>(style)]);
}

void gksDrawLine(const GksState& gks, std::span<const float> x, std::span<const float> y) {
  const std::size_t n = std::min(x.size(), y.size());
  if (n < 2) return;
  Strip strip{gks};
  if (!gks.attribute.clip) {
    strip.Begin({x[0], y[0]});
    for (std::size_t i = 1; i < n; ++i) gksPutVertex(gks, {x[i], y[i]});
    strip.End();
    return;
  }
  const GksRectangle window = gksSortedWindow(gks);
  for (std::size_t i = 0; i + 1 < n; ++i) {
    const ClippedSegment part = CLIPSEG(window, {x[i], y[i]}, {x[i + 1], y[i + 1]});
    if (!part.visible || part.in != WindowEdge::none) strip.End();
    if (!part.visible) continue;
    if (!strip.open) strip.Begin(part.from);
    gksPutVertex(gks, part.to);
    if (part.out != WindowEdge::none) strip.End();
  }
  strip.End();
}

void GPL(const GksState& gks, std::span<const float> x, std::span<const float> y) {
  gksSetColour(gks, gks.attribute.polyline_colour);
  gksSetLineStyle(gks.attribute.line_style, gks.attribute.line_width);
  gksDrawLine(gks, x, y);
  glDisable(GL_LINE_STIPPLE);
  constexpr std::size_t kLong = 1000;  // points: the driver's threads draw it while the next curve is being made
  if (x.size() >= kLong) glFlush();
}

}  // namespace zaview
