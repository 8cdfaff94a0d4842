#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "base/grow.h"
#include "gks/kernel/clip_segment.h"
#include "gks/kernel/gks_draw.h"
#include "gks/kernel/primitives.h"

namespace zaview {

namespace {

// By line style: those of GSLN, long dashes, short ones as long as their gaps, and dots that can be seen in print.
constexpr std::array<std::uint16_t, 8> kPatterns{kSolid, 255, 257, 7239, 2056, 0x0FFF, 0x3333, 0x0303};

class Strip {
 public:
  Strip(const GksState& gks, const GksPen& pen) : gks_(gks), pen_(pen) {}
  [[nodiscard]] bool MakeRoom(std::size_t n) { return Reserve(points_, n); }
  [[nodiscard]] bool IsOpen() const { return !points_.empty(); }
  void Put(GksPoint world) {
    constexpr float kMiddle = 0.5F;  // of the pixel that a whole place lights
    GksPoint at = gksPixelPoint(gks_, world);
    if (gks_.attribute.between_pixels && !gks_.paint.scalable) at = {at.x - kMiddle, at.y - kMiddle};
    points_.push_back(at);
  }
  void End() {
    if (IsOpen()) gks_.paint.line(gks_.paint.self, pen_, points_);
    points_.clear();
  }

 private:
  const GksState& gks_;
  const GksPen& pen_;
  std::vector<GksPoint> points_;
};

}  // namespace

GksPoint gksPixelPoint(const GksState& gks, GksPoint world) {
  if (gks.attribute.between_pixels || gks.paint.scalable) return gksToPixelExact(gks, world);
  const GksPixel pixel = gksToPixel(gks, world);
  return {static_cast<float>(pixel.x), static_cast<float>(pixel.y)};
}

GksColour gksColourOf(const GksState& gks, int index) {
  return gks.colour[static_cast<std::size_t>(std::clamp(index, 0, GKS_MAX_COLORS))];
}

void gksDrawLine(const GksState& gks, const GksPen& pen, std::span<const float> x, std::span<const float> y) {
  const std::size_t n = std::min(x.size(), y.size());
  Strip strip(gks, pen);
  if (n < 2 || !strip.MakeRoom(n)) return;
  if (!gks.attribute.clip) {
    for (std::size_t i = 0; i < n; ++i) strip.Put({x[i], y[i]});
    strip.End();
    return;
  }
  const GksRectangle window = gksSortedWindow(gks);
  for (std::size_t i = 0; i + 1 < n; ++i) {
    const ClippedSegment part = CLIPSEG(window, {x[i], y[i]}, {x[i + 1], y[i + 1]});
    if (!part.visible || part.in != WindowEdge::none) strip.End();
    if (!part.visible) continue;
    if (!strip.IsOpen()) strip.Put(part.from);
    strip.Put(part.to);
    if (part.out != WindowEdge::none) strip.End();
  }
  strip.End();
}

void GPL(const GksState& gks, std::span<const float> x, std::span<const float> y) {
  const GksAttributes& a = gks.attribute;
  const auto style = static_cast<std::size_t>(std::clamp(a.line_style, 0, static_cast<int>(kPatterns.size()) - 1));
  gksDrawLine(gks, {gksColourOf(gks, a.polyline_colour), a.line_width, kPatterns[style]}, x, y);
}

}  // namespace zaview
