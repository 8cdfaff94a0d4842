#include "views/geometry/space_axes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <string_view>

#include "base/axis_rounding.h"
#include "gks/plot/page_text.h"

namespace zaview {

namespace {

constexpr std::array<std::string_view, 3> kNames = {"X", "Y", "Z"};
constexpr double kBeyond = 0.1;  // of the largest extent, that axes reach beyond the body
constexpr double kBoxAround = 0.04;
constexpr int kPieces = 60;  // of a line as long as the largest extent: each is sorted by its own depth
constexpr int kTick = 3;     // marker
constexpr float kTickSize = 0.6F;
constexpr double kTextGap = 0.035;  // of the largest extent, from a box to its numbers

struct Axes {
  ZbDraw draw;
  HullBox box;  // to be drawn
  double extent = 1;
};

// Everything that is drawn meanwhile goes straight into the picture.
class DrawnAtOnce {
 public:
  explicit DrawnAtOnce(ZbDraw draw) : draw_(draw), before_(draw.zb.zbuffer_on) { draw.zb.zbuffer_on = false; }
  ~DrawnAtOnce() { draw_.zb.zbuffer_on = before_; }
  DrawnAtOnce(const DrawnAtOnce&) = delete;
  DrawnAtOnce& operator=(const DrawnAtOnce&) = delete;

 private:
  ZbDraw draw_;
  bool before_;
};

ScenePoint At(const Vector3& p) {
  return {p[0], p[1], p[2]};
}

void DrawLine(const Axes& a, const Vector3& from, const Vector3& to) {
  const ScenePoint line[] = {At(from), At(to)};
  zb3dLine(a.draw, line, false);
}

// Each dash is sorted by its own depth.
void AddDashes(const Axes& a, const Vector3& from, const Vector3& to) {
  const double length = std::hypot(to[0] - from[0], to[1] - from[1], to[2] - from[2]);
  const int pieces = std::max(1, static_cast<int>(std::ceil(kPieces * length / a.extent)));
  const auto part = [&](int i) {
    const double t = static_cast<double>(i) / pieces;
    return Vector3{from[0] + t * (to[0] - from[0]), from[1] + t * (to[1] - from[1]), from[2] + t * (to[2] - from[2])};
  };
  for (int i = 0; i < pieces; i += 2) DrawLine(a, part(i), part(i + 1));
}

double StepOf(const Axes& a, std::size_t k) {
  constexpr double kIntervals = 5, kClosest = 12;
  const double own = (a.box.high[k] - a.box.low[k]) / kIntervals;
  return static_cast<double>(dgRoundStep(static_cast<float>(std::max(own, a.extent / kClosest))));
}

// visit(value): multiples of the step within the box along an axis.
template <typename Visit>
void VisitSteps(const Axes& a, std::size_t k, Visit visit) {
  const double step = StepOf(a, k);
  for (double i = std::ceil(a.box.low[k] / step); i * step <= a.box.high[k]; ++i) visit(i * step);
}

// ---- Lines through the origin
void EndsOf(const Axes& a, std::size_t k, Vector3& from, Vector3& to) {
  from[k] = std::min(a.box.low[k], 0.0) - kBeyond * a.extent;
  to[k] = std::max(a.box.high[k], 0.0) + kBeyond * a.extent;
}

void DrawLineTexts(const Axes& a, bool numbered) {
  zb3dMarkerStyle(a.draw, kTick, kTickSize);
  for (std::size_t k = 0; k < 3; ++k) {
    Vector3 from{}, to{};
    EndsOf(a, k, from, to);
    zb3dAlign(a.draw, 0.5F, 0.0F);
    zb3dText(a.draw, kNames[k], At(to));
    if (!numbered) continue;
    zb3dAlign(a.draw, 0.5F, 1.0F);
    VisitSteps(a, k, [&](double value) {
      Vector3 tick{};
      tick[k] = value;
      const ScenePoint at = At(tick);
      zb3dMarker(a.draw, {&at, 1});
      if (value != 0) zb3dText(a.draw, ShortNumber(static_cast<float>(value)), at);
    });
  }
}

// ---- The box. far: of an axis, the side away from the eye.
double SideOf(const Axes& a, std::size_t k, bool far) {
  const ScenePoint& into = a.draw.zb.axes.into;
  const double along = std::array{into.x, into.y, into.z}[k];
  return (along >= 0) == far ? a.box.high[k] : a.box.low[k];
}

// Edges with the corner away from the eye, or without it.
void DrawEdges(const Axes& a, bool behind) {
  for (std::size_t k = 0; k < 3; ++k) {
    const std::size_t m = (k + 1) % 3, n = (k + 2) % 3;
    for (const bool far_m : {false, true})
      for (const bool far_n : {false, true}) {
        if ((far_m && far_n) != behind) continue;
        Vector3 from{};
        from[m] = SideOf(a, m, far_m);
        from[n] = SideOf(a, n, far_n);
        Vector3 to = from;
        from[k] = a.box.low[k];
        to[k] = a.box.high[k];
        DrawLine(a, from, to);
      }
  }
}

// On the three sides behind the body.
void DrawGrid(const Axes& a) {
  for (std::size_t side = 0; side < 3; ++side)
    for (std::size_t k = 0; k < 3; ++k) {
      if (k == side) continue;
      const std::size_t along = 3 - side - k;
      VisitSteps(a, k, [&](double value) {
        Vector3 from{};
        from[side] = SideOf(a, side, true);
        from[k] = value;
        Vector3 to = from;
        from[along] = a.box.low[along];
        to[along] = a.box.high[along];
        DrawLine(a, from, to);
      });
    }
}

// Numbers and name along the lower edges on the side of the eye, and along one upright edge.
void DrawBoxTexts(const Axes& a) {
  zb3dAlign(a.draw, 0.5F, 0.5F);
  const double gap = kTextGap * a.extent;
  for (std::size_t k = 0; k < 3; ++k) {
    Vector3 at{};
    for (std::size_t m = 0; m < 3; ++m) at[m] = SideOf(a, m, false);
    if (k == 2) at[1] = SideOf(a, 1, true);
    else at[2] = a.box.low[2];
    const std::size_t aside = k == 0 ? 1 : 0;
    at[aside] += SideOf(a, aside, false) == a.box.high[aside] ? gap : -gap;
    VisitSteps(a, k, [&](double value) {
      at[k] = value;
      zb3dText(a.draw, ShortNumber(static_cast<float>(value)), At(at));
    });
    at[k] = 0.5 * (a.box.low[k] + a.box.high[k]);
    at[aside] += SideOf(a, aside, false) == a.box.high[aside] ? gap : -gap;
    zb3dText(a.draw, kNames[k], At(at));
  }
}

bool IsLines(SpaceAxes axes) {
  return axes == SpaceAxes::lines || axes == SpaceAxes::numbered_lines;
}

bool IsBox(SpaceAxes axes) {
  return axes == SpaceAxes::box || axes == SpaceAxes::box_with_grid;
}

Axes AxesFor(const SpaceFrame& frame) {
  Axes a{frame.draw, frame.box, LargestExtent(frame.box)};
  if (!(a.extent > 0)) a.extent = 1;
  for (std::size_t k = 0; k < 3 && IsBox(frame.axes); ++k) {
    a.box.low[k] -= kBoxAround * a.extent;
    a.box.high[k] += kBoxAround * a.extent;
  }
  return a;
}

}  // namespace

HullBox WithSpaceAxes(const HullBox& box, SpaceAxes axes) {
  if (axes == SpaceAxes::none) return box;
  const bool lines = IsLines(axes);
  const double around = (lines ? kBeyond : kBoxAround + kTextGap) * LargestExtent(box);
  HullBox with = box;
  for (std::size_t k = 0; k < 3; ++k) {
    with.low[k] = (lines ? std::min(box.low[k], 0.0) : box.low[k]) - around;
    with.high[k] = (lines ? std::max(box.high[k], 0.0) : box.high[k]) + around;
  }
  return with;
}

void DrawFrameBehind(const SpaceFrame& frame) {
  if (!IsBox(frame.axes)) return;
  const Axes a = AxesFor(frame);
  const DrawnAtOnce at_once(frame.draw);
  if (frame.axes == SpaceAxes::box_with_grid) {
    zb3dPen(frame.draw, frame.grid_pen);
    DrawGrid(a);
  }
  zb3dPen(frame.draw, 1);
  DrawEdges(a, true);
}

void AddFrameLines(const SpaceFrame& frame) {
  if (!IsLines(frame.axes)) return;
  const Axes a = AxesFor(frame);
  zb3dPen(frame.draw, 1);
  for (std::size_t k = 0; k < 3; ++k) {
    Vector3 from{}, to{};
    EndsOf(a, k, from, to);
    AddDashes(a, from, to);
  }
}

void DrawFrameInFront(const SpaceFrame& frame) {
  if (frame.axes == SpaceAxes::none) return;
  const Axes a = AxesFor(frame);
  const DrawnAtOnce at_once(frame.draw);
  zb3dPen(frame.draw, 1);
  if (IsLines(frame.axes)) return DrawLineTexts(a, frame.axes == SpaceAxes::numbered_lines);
  DrawEdges(a, false);
  DrawBoxTexts(a);
}

}  // namespace zaview
