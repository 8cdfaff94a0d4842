#include "gks/kernel/clip_segment.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include "base/grow.h"

namespace zaview {

namespace {

constexpr int kCorners = 4;
constexpr float kGoesRound = 1.0F;  // radian; a corner inside is gone round by 2 pi, one outside by 0

struct Corners {
  std::array<GksPoint, kCorners> at;  // counter-clockwise; corner i ends edge i
  std::array<bool, kCorners> inside;
};

// Position of an edge in counter-clockwise order from the bottom: edge i runs from corner i - 1 to corner i.
int EdgeNumber(WindowEdge edge) {
  switch (edge) {
    case WindowEdge::right:
      return 1;
    case WindowEdge::top:
      return 2;
    case WindowEdge::left:
      return 3;
    default:
      return 0;
  }
}

bool IsFinite(GksPoint p) {
  return std::isfinite(p.x) && std::isfinite(p.y);
}

float Cross(GksPoint a, GksPoint b) {
  return a.x * b.y - a.y * b.x;
}

bool GoesRound(std::span<const float> x, std::span<const float> y, GksPoint corner) {
  float angle = 0.0F;
  for (std::size_t i = 0; i < x.size(); ++i) {
    const std::size_t j = i + 1 == x.size() ? 0 : i + 1;
    const GksPoint a{x[i] - corner.x, y[i] - corner.y}, b{x[j] - corner.x, y[j] - corner.y};
    angle += std::atan2(Cross(a, b), a.x * b.x + a.y * b.y);
  }
  return std::abs(angle) > kGoesRound;
}

// Twice the signed area, taken from the first point so that far-off polygons keep their digits.
float TwiceArea(std::span<const float> x, std::span<const float> y) {
  float sum = 0.0F;
  for (std::size_t i = 1; i + 1 < x.size(); ++i)
    sum += Cross({x[i] - x[0], y[i] - y[0]}, {x[i + 1] - x[0], y[i + 1] - y[0]});
  return sum;
}

// How far along its edge, counter-clockwise; only compared on one edge.
float Along(GksPoint p, int edge) {
  constexpr std::array<float, kCorners> kX{1.0F, 0.0F, -1.0F, 0.0F}, kY{0.0F, 1.0F, 0.0F, -1.0F};
  const auto e = static_cast<std::size_t>(edge);
  return kX[e] * p.x + kY[e] * p.y;
}

struct Crossing {
  GksPoint at;
  int edge = 0;
};

// Follows the window from one crossing to the other.
void PutCorners(const Corners& corners, Crossing from, Crossing to, bool clockwise, std::vector<GksPoint>& out) {
  const Crossing first = clockwise ? to : from, last = clockwise ? from : to;
  int count = (last.edge - first.edge + kCorners) % kCorners;
  if (count == 0 && Along(last.at, last.edge) < Along(first.at, first.edge)) count = kCorners;
  for (int k = 0; k < count; ++k) {
    const int step = clockwise ? count - 1 - k : k;
    const auto corner = static_cast<std::size_t>((first.edge + step) % kCorners);
    if (corners.inside[corner]) out.push_back(corners.at[corner]);
  }
}

}  // namespace

ClippedSegment CLIPSEG(const GksRectangle& window, GksPoint a, GksPoint b) {
  ClippedSegment out;
  if (!IsFinite(a) || !IsFinite(b)) return out;
  const float dx = b.x - a.x, dy = b.y - a.y;
  struct Side {
    WindowEdge edge;
    float outward, room;  // growth of the distance beyond the edge along the segment; distance inside at a
  };
  const Side sides[] = {{WindowEdge::left, -dx, a.x - window.xmin},
                        {WindowEdge::right, dx, window.xmax - a.x},
                        {WindowEdge::bottom, -dy, a.y - window.ymin},
                        {WindowEdge::top, dy, window.ymax - a.y}};
  float t0 = 0.0F, t1 = 1.0F;
  for (const Side& side : sides) {
    if (side.outward == 0.0F && side.room < 0.0F) return ClippedSegment{};
    const float t = side.room / side.outward;
    if (side.outward < 0.0F && side.room < 0.0F && t >= t0) {
      t0 = t;
      out.in = side.edge;
    }
    if (side.outward > 0.0F && side.room < side.outward && t <= t1) {
      t1 = t;
      out.out = side.edge;
    }
  }
  if (!(t0 <= t1)) return ClippedSegment{};
  const auto at = [&](float t, WindowEdge edge) {  // on the edge itself, whatever was rounded
    GksPoint p{std::clamp(a.x + t * dx, window.xmin, window.xmax), std::clamp(a.y + t * dy, window.ymin, window.ymax)};
    if (edge == WindowEdge::left) p.x = window.xmin;
    if (edge == WindowEdge::right) p.x = window.xmax;
    if (edge == WindowEdge::bottom) p.y = window.ymin;
    if (edge == WindowEdge::top) p.y = window.ymax;
    return p;
  };
  out.visible = true;
  out.from = out.in == WindowEdge::none ? a : at(t0, out.in);
  out.to = out.out == WindowEdge::none ? b : at(t1, out.out);
  return out;
}

bool ClipPolygon(const GksRectangle& window, std::span<const float> x, std::span<const float> y,
                 std::vector<GksPoint>& out) {
  out.clear();
  const std::size_t n = std::min(x.size(), y.size());
  // An edge gives two points at most, and four corners ahead of them.
  if (n < 3 || !Reserve(out, (2 + kCorners) * n)) return n < 3;
  x = x.first(n);
  y = y.first(n);
  Corners corners{{{{window.xmax, window.ymin},
                    {window.xmax, window.ymax},
                    {window.xmin, window.ymax},
                    {window.xmin, window.ymin}}},
                  {}};
  for (std::size_t i = 0; i < kCorners; ++i) corners.inside[i] = GoesRound(x, y, corners.at[i]);
  const bool clockwise = TwiceArea(x, y) < 0.0F;
  Crossing left, first_back;
  bool is_outside = false, came_back_first = false, seen = false;
  for (std::size_t i = 0; i < n; ++i) {
    const std::size_t j = i + 1 == n ? 0 : i + 1;
    const ClippedSegment part = CLIPSEG(window, {x[i], y[i]}, {x[j], y[j]});
    if (!part.visible) continue;
    if (part.in != WindowEdge::none) {
      const Crossing back{part.from, EdgeNumber(part.in)};
      if (is_outside) PutCorners(corners, left, back, clockwise, out);
      if (!is_outside && !seen) {
        came_back_first = true;
        first_back = back;
      }
    }
    seen = true;
    is_outside = part.out != WindowEdge::none;
    out.push_back(part.from);
    if (is_outside) {
      out.push_back(part.to);
      left = {part.to, EdgeNumber(part.out)};
    }
  }
  if (is_outside && came_back_first) PutCorners(corners, left, first_back, clockwise, out);
  if (seen) return true;
  for (std::size_t i = 0; i < kCorners; ++i)  // its edges are all outside: nothing of the window, or all of it
    if (corners.inside[i]) out.push_back(corners.at[i]);
  return true;
}

}  // namespace zaview
