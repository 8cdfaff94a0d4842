// Curves, markers along them, and arrows.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <span>
#include <vector>

#include "base/grow.h"
#include "gks/kernel/gks_draw.h"
#include "gks/plot/page_inside.h"
#include "gks/plot/plot_layer.h"

namespace zaview {

namespace {

struct Points {
  std::vector<float> x, y;
};

bool ReservePoints(Points& points, std::size_t n) {
  return Reserve(points.x, n) && Reserve(points.y, n);
}

void Add(Points& points, float x, float y) {
  points.x.push_back(x);
  points.y.push_back(y);
}

void DrawCurve(const GksState& gks, std::span<const float> x, std::span<const float> y, int mode) {
  if (x.empty()) return;
  if (mode >= 0) GPL(gks, x, y);
  if (mode == 0) return;
  const std::size_t every = static_cast<std::size_t>(std::llabs(mode));
  Points marks;
  if (!ReservePoints(marks, (x.size() + every - 1) / every + 1)) return;
  for (std::size_t i = 0; i < x.size(); i += every) Add(marks, x[i], y[i]);
  if ((x.size() - 1) % every != 0) Add(marks, x.back(), y.back());
  GPM(gks, marks.x, marks.y);
}

// ---- Arrows
constexpr float kHeadParts = 6.0F, kDefaultHead = 0.4F, kWidthParts = 5.0F;

struct Vector {
  float x0, y0, x1, y1;  // page units
};

// What an arrow consists of: its line, and the line of its head; code 2 has a bar on the tip.
struct Arrow {
  std::array<GksPoint, 4> head{};
  std::array<GksPoint, 2> bar{};
  std::size_t head_points = 0;
  bool has_bar = false;
};

Arrow HeadOf(const Vector& v, int code) {
  Arrow out;
  const int kind = code % 10, size = code / 100 % 10, wide = code / 1000 % 10;
  const float dx = v.x1 - v.x0, dy = v.y1 - v.y0;
  if (kind < 1 || (dx == 0.0F && dy == 0.0F)) return out;
  const float part = size >= 1 && size <= 5 ? static_cast<float>(size) / kHeadParts : kDefaultHead;
  const float half = part * static_cast<float>(wide + 2) / kWidthParts;
  const GksPoint base = {v.x1 - part * dx, v.y1 - part * dy}, tip = {v.x1, v.y1};
  const auto aside = [&](GksPoint from, float side) {
    return GksPoint{from.x - side * half * dy, from.y + side * half * dx};
  };
  out.head = {aside(base, 1), tip, aside(base, -1), aside(base, 1)};
  out.head_points = kind == 3 ? 4 : 3;
  out.bar = {aside(tip, 1), aside(tip, -1)};
  out.has_bar = kind == 2;
  return out;
}

template <typename ToWorld>
void DrawLine(const GksState& gks, std::span<const GksPoint> points, ToWorld to_world) {
  std::array<float, 4> x{}, y{};
  for (std::size_t i = 0; i < points.size(); ++i) {
    const GksPoint at = to_world(points[i]);
    x[i] = at.x;
    y[i] = at.y;
  }
  GPL(gks, std::span(x).first(points.size()), std::span(y).first(points.size()));
}

template <typename ToWorld>
void DrawArrow(const GksState& gks, const Vector& v, int code, ToWorld to_world) {
  const std::array<GksPoint, 2> line = {{{v.x0, v.y0}, {v.x1, v.y1}}};
  const Arrow arrow = HeadOf(v, code);
  DrawLine(gks, line, to_world);
  if (arrow.head_points > 0) DrawLine(gks, std::span(arrow.head).first(arrow.head_points), to_world);
  if (arrow.has_bar) DrawLine(gks, arrow.bar, to_world);
}

}  // namespace

void dgCurve(PlotDraw draw, std::span<const float> x, std::span<const float> y, int mode) {
  const std::size_t n = std::min(x.size(), y.size());
  draw.page.last_mode = mode;
  if (!draw.page.log_y) return DrawCurve(draw.gks, x.first(n), y.first(n), mode);
  Points kept;
  if (!ReservePoints(kept, n)) return;
  for (std::size_t i = 0; i < n; ++i)
    if (y[i] > 0.0F) Add(kept, x[i], std::log10(y[i]));
  DrawCurve(draw.gks, kept.x, kept.y, mode);
}

void dgArrow(PlotDraw draw, float x0, float y0, float x1, float y1, int code) {
  const SelectedTransform page(draw.gks, kPageTransform);
  DrawArrow(draw.gks, {x0, y0, x1, y1}, code, [](GksPoint at) { return at; });
}

// The head is made on the page, where it isn't distorted, and drawn in the graph, where it is clipped.
void dgArrowWorld(PlotDraw draw, float x0, float y0, float x1, float y1, int code) {
  const PlotPage& page = draw.page;
  if (page.log_y && !(y0 > 0.0F && y1 > 0.0F)) return;
  if (!(page.area_width > 0.0F && page.area_height > 0.0F)) return;
  if (page.log_y) {
    y0 = std::log10(y0);
    y1 = std::log10(y1);
  }
  const float x_scale = page.area_width / (page.x_end - page.x_origin);
  const float y_scale = page.area_height / (page.y_end - page.y_origin);
  const SelectedTransform graph(draw.gks, kGraphTransform);
  const Vector v = {(x0 - page.x_origin) * x_scale, (y0 - page.y_origin) * y_scale, (x1 - page.x_origin) * x_scale,
                    (y1 - page.y_origin) * y_scale};
  DrawArrow(draw.gks, v, code, [&](GksPoint at) {
    return GksPoint{page.x_origin + at.x / x_scale, page.y_origin + at.y / y_scale};
  });
}

}  // namespace zaview
