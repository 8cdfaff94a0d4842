#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <numbers>

#include "gks/kernel/gks_draw.h"
#include "gks/kernel/primitives.h"

namespace zaview {

namespace {

// Strokes in half sizes.
using Stroke = std::span<const GksPoint>;

constexpr int kCirclePoints = 20;
constexpr float kFlat = 0.41421357F;   // tan(22.5 degrees): half a side of the octagon about the unit circle
constexpr float kSlant = 0.70710678F;  // the middle of its slanted sides

constexpr GksPoint kSquare[] = {{-1, -1}, {1, -1}, {1, 1}, {-1, 1}, {-1, -1}};
constexpr GksPoint kUp[] = {{-1, -1}, {1, -1}, {0, 1}, {-1, -1}};
constexpr GksPoint kDown[] = {{-1, 1}, {1, 1}, {0, -1}, {-1, 1}};
constexpr GksPoint kDiamond[] = {{0, -1}, {1, 0}, {0, 1}, {-1, 0}, {0, -1}};
constexpr GksPoint kOctagon[] = {{1, -kFlat},  {1, kFlat},   {kFlat, 1},  {-kFlat, 1}, {-1, kFlat},
                                 {-1, -kFlat}, {-kFlat, -1}, {kFlat, -1}, {1, -kFlat}};
constexpr GksPoint kAcross[] = {{-1, 0}, {1, 0}};
constexpr GksPoint kUpright[] = {{0, -1}, {0, 1}};
constexpr GksPoint kRising[] = {{-1, -1}, {1, 1}};
constexpr GksPoint kFalling[] = {{-1, 1}, {1, -1}};
constexpr GksPoint kRisingShort[] = {{-kSlant, -kSlant}, {kSlant, kSlant}};
constexpr GksPoint kFallingShort[] = {{-kSlant, kSlant}, {kSlant, -kSlant}};

struct Shape {
  std::array<Stroke, 4> strokes;
  bool filled = false, round = false;  // round: a circle in place of the strokes
};

constexpr Shape kShapes[] = {
    {{kSquare}, false, false},                                // 0
    {{}, false, true},                                        // 1
    {{kUp}, false, false},                                    // 2
    {{kAcross, kUpright}, false, false},                      // 3
    {{kRising, kFalling}, false, false},                      // 4
    {{kDiamond}, false, false},                               // 5
    {{kDown}, false, false},                                  // 6
    {{kSquare, kRising, kFalling}, false, false},             // 7
    {{kAcross, kUpright, kRising, kFalling}, false, false},   // 8
    {{kDiamond, kAcross, kUpright}, false, false},            // 9
    {{kOctagon, kAcross, kUpright}, false, false},            // 10
    {{kUp, kDown}, false, false},                             // 11
    {{kSquare}, false, false},                                // 12
    {{kOctagon, kRisingShort, kFallingShort}, false, false},  // 13
    {{kSquare, kUp}, false, false},                           // 14
    {{}, true, true},                                         // 15
    {{kUp}, true, false},                                     // 16
    {{kDown}, true, false},                                   // 17
    {{kSquare}, true, false},                                 // 18
    {{kAcross}, false, false},                                // 19
    {{kUpright}, false, false},                               // 20
    {{kDiamond}, true, false},                                // 21
};

static_assert(std::size(kShapes) == kMarkerTypes);
constexpr std::size_t kMostPoints = kCirclePoints;

struct Sizes {
  float x = 0, y = 0;  // half, world
};

// The vertical one is 1/200 of the window for each unit of scale, the other as many pixels.
Sizes HalfSizes(const GksState& gks) {
  const GksRectangle& window = gks.transform[static_cast<std::size_t>(gks.selected)].window;
  const GksPoint per_unit = gksPixelsPerUnit(gks);
  const float y = (window.ymax - window.ymin) * gks.attribute.marker_scale / 200.0F;
  const float x = std::abs(y) * per_unit.y / per_unit.x;
  return {window.xmin > window.xmax ? -x : x, y};
}

struct MarkerPoints {
  std::array<float, kMostPoints> x, y;
  std::size_t count = 0;
};

void DrawStroke(const GksState& gks, GksPoint centre, Sizes half, Stroke stroke, bool filled) {
  MarkerPoints points;
  for (const GksPoint& point : stroke) {
    points.x[points.count] = centre.x + half.x * point.x;
    points.y[points.count] = centre.y + half.y * point.y;
    ++points.count;
  }
  const std::span<const float> x = std::span(points.x).first(points.count);
  const std::span<const float> y = std::span(points.y).first(points.count);
  const GksColour colour = gksColourOf(gks, gks.attribute.marker_colour);
  if (filled) gksDrawFill(gks, colour, x, y);
  else gksDrawLine(gks, {colour}, x, y);
}

std::array<GksPoint, kCirclePoints> MakeCircle() {
  std::array<GksPoint, kCirclePoints> circle;
  for (int i = 0; i < kCirclePoints; ++i) {
    const float angle = 2.0F * std::numbers::pi_v<float> * static_cast<float>(i) / (kCirclePoints - 1);
    circle[static_cast<std::size_t>(i)] = {std::cos(angle), std::sin(angle)};
  }
  return circle;
}

}  // namespace

void GPM(const GksState& gks, std::span<const float> x, std::span<const float> y) {
  const auto type = static_cast<std::size_t>(std::clamp(gks.attribute.marker_type, 0, kMarkerTypes - 1));
  const Shape& shape = kShapes[type];
  const std::array<GksPoint, kCirclePoints> circle = MakeCircle();
  const Sizes half = HalfSizes(gks);
  const std::size_t n = std::min(x.size(), y.size());
  for (std::size_t i = 0; i < n; ++i) {
    if (shape.round) DrawStroke(gks, {x[i], y[i]}, half, circle, shape.filled);
    for (const Stroke& stroke : shape.strokes) DrawStroke(gks, {x[i], y[i]}, half, stroke, shape.filled);
  }
}

}  // namespace zaview
