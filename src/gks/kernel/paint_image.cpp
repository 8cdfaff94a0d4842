// The image in memory. Of a line each step along its longer direction lights the pixels across that it covers; of a
// polygon each row of pixels is cut by four lines between which the part covered is summed.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <vector>

#include "base/grow.h"
#include "gks/kernel/gks_paint.h"

namespace zaview {

namespace {

constexpr int kLevels = 16;  // of coverage: few colours, so that picture files keep a palette
constexpr int kCuts = 4;     // of a row of pixels, by a polygon's edges
constexpr std::size_t kSamples = 3;

constexpr float kWidest = 255.0F;   // pixels of a line
constexpr int kPatternSteps = 16;   // until it begins anew
constexpr float kLargest = 1.0e6F;  // pixels: what lies beyond is far outside of any picture

using Ink = std::array<unsigned char, kSamples>;

PictureImage& Of(void* self) {
  return *static_cast<PictureImage*>(self);
}

Ink InkOf(GksColour colour) {
  const auto byte = [](float part) {
    return static_cast<unsigned char>(std::lround(std::clamp(part, 0.0F, 1.0F) * 255));
  };
  return {byte(colour.red), byte(colour.green), byte(colour.blue)};
}

unsigned char* PixelAt(PictureImage& image, int x, int y) {
  const auto row = static_cast<std::size_t>(image.height - 1 - y), width = static_cast<std::size_t>(image.width);
  return image.rgb.data() + (row * width + static_cast<std::size_t>(x)) * kSamples;
}

void Put(unsigned char* pixel, const Ink& ink) {
  for (std::size_t k = 0; k < kSamples; ++k) pixel[k] = ink[k];
}

void Blend(unsigned char* pixel, const Ink& ink, int level) {
  if (level >= kLevels) return Put(pixel, ink);
  for (std::size_t k = 0; k < kSamples; ++k)
    pixel[k] = static_cast<unsigned char>((ink[k] * level + pixel[k] * (kLevels - level) + kLevels / 2) / kLevels);
}

int LevelOf(float covered) {
  return static_cast<int>(covered * static_cast<float>(kLevels) + 0.5F);
}

// ---- Lines

struct Brush {
  Ink ink;
  int width = 1;
  unsigned pattern = kSolid;
  int steps = 0;  // gone along the pattern since it began anew
};

void PutBox(PictureImage& image, const Ink& ink, int left, int right, int top, int bottom) {  // ends not included
  left = std::max(left, 0);
  right = std::min(right, image.width);
  for (int y = std::max(top, 0); y < std::min(bottom, image.height); ++y)
    for (int x = left; x < right; ++x) Put(PixelAt(image, x, y), ink);
}

// The pixels between two places across, in the row or column `along`.
template <bool upright>
void PutAcross(PictureImage& image, const Ink& ink, int along, double from, double to) {
  const int limit = upright ? image.width : image.height;
  const int first = std::max(static_cast<int>(std::floor(from)), 0),
            end = std::min(static_cast<int>(std::ceil(to)), limit);
  for (int i = first; i < end; ++i) {
    const double covered = std::min(to, i + 1.0) - std::max(from, static_cast<double>(i));
    Blend(upright ? PixelAt(image, i, along) : PixelAt(image, along, i), ink, LevelOf(static_cast<float>(covered)));
  }
}

struct Span {  // a segment along its longer direction
  double from, to;
  double across, slope;  // of its middle, at `from`
};

template <bool upright>
void PutSegment(PictureImage& image, Brush& brush, const Span& span, bool with_end) {
  const int first = static_cast<int>(std::floor(span.from)), last = static_cast<int>(std::floor(span.to));
  const int way = last < first ? -1 : 1, steps = std::abs(last - first) + (with_end ? 1 : 0);
  const int limit = upright ? image.height : image.width;
  const int begin = std::max(way > 0 ? -first : first - limit + 1, 0);
  const int end = std::min(steps, way > 0 ? limit - first : first + 1);
  const double middle = span.across - (brush.width % 2 == 0 ? 0.5 : 0.0);  // whole pixels of even widths too
  const double half = 0.5 * brush.width * std::sqrt(1.0 + span.slope * span.slope);
  const int start = brush.steps;
  brush.steps = (brush.steps + steps) % kPatternSteps;
  if (begin >= end) return;
  if (span.slope == 0.0 && brush.pattern == kSolid) {
    const int a = first + way * begin, b = first + way * (end - 1), side = static_cast<int>(std::lround(middle - half));
    if (upright) PutBox(image, brush.ink, side, side + brush.width, std::min(a, b), std::max(a, b) + 1);
    else PutBox(image, brush.ink, std::min(a, b), std::max(a, b) + 1, side, side + brush.width);
    return;
  }
  for (int k = begin; k < end; ++k) {
    if ((brush.pattern >> static_cast<unsigned>((start + k) % kPatternSteps) & 1U) == 0) continue;
    const int along = first + way * k;
    const double centre = middle + span.slope * (along + 0.5 - span.from);
    PutAcross<upright>(image, brush.ink, along, centre - half, centre + half);
  }
}

// Drawn letters of any size come here.
float Limited(float place) {
  return std::clamp(place, -kLargest, kLargest);
}

// Each segment ends ahead of the pixel where the next one begins.
void Line(void* self, const GksPen& pen, std::span<const GksPoint> strip) {
  PictureImage& image = Of(self);
  Brush brush{InkOf(pen.colour), static_cast<int>(std::lround(std::clamp(pen.width, 1.0F, kWidest))), pen.pattern};
  for (std::size_t i = 1; i < strip.size(); ++i) {
    const bool is_last = i + 1 == strip.size();
    const GksPoint a = strip[i - 1], b = strip[i];
    if (std::isnan(a.x + a.y + b.x + b.y)) continue;
    const double x0 = double{Limited(a.x)} + 0.5, y0 = double{Limited(a.y)} + 0.5;
    const double x1 = double{Limited(b.x)} + 0.5, y1 = double{Limited(b.y)} + 0.5;
    const double dx = x1 - x0, dy = y1 - y0;
    if (std::abs(dx) >= std::abs(dy)) PutSegment<false>(image, brush, {x0, x1, y0, dx == 0.0 ? 0.0 : dy / dx}, is_last);
    else PutSegment<true>(image, brush, {y0, y1, x0, dx / dy}, is_last);
  }
}

// ---- Polygons

struct Crossing {
  float x;
  int turn;  // 1 where the edge goes down
};

// Where the edges cross a height, from the left.
void Cross(std::span<const GksPoint> polygon, float y, std::vector<Crossing>& out) {
  out.clear();
  for (std::size_t i = 0; i < polygon.size(); ++i) {
    const GksPoint a = polygon[i], b = polygon[i + 1 == polygon.size() ? 0 : i + 1];
    if ((a.y <= y) == (b.y <= y)) continue;
    out.push_back({a.x + (y - a.y) / (b.y - a.y) * (b.x - a.x), a.y <= y ? 1 : -1});
  }
  std::sort(out.begin(), out.end(), [](const Crossing& a, const Crossing& b) { return a.x < b.x; });
}

void AddCovered(std::vector<float>& covered, float from, float to) {
  constexpr float kPart = 1.0F / kCuts;
  from = std::max(from, 0.0F);
  to = std::min(to, static_cast<float>(covered.size()));
  for (int x = static_cast<int>(from); static_cast<float>(x) < to; ++x)
    covered[static_cast<std::size_t>(x)] +=
        kPart * (std::min(to, static_cast<float>(x + 1)) - std::max(from, static_cast<float>(x)));
}

struct Range {
  int begin = 0, end = 0;
};

// Of pixels inside the picture that the polygon's extent in one direction touches.
Range Touched(float low, float high, int limit) {
  return {std::max(static_cast<int>(std::floor(low)), 0), std::min(static_cast<int>(std::ceil(high)), limit)};
}

// Sides along the axes, between pixels: most of what menus are made of.
bool IsWholeBox(std::span<const GksPoint> p) {
  const auto is_whole = [](float place) { return std::abs(place) <= kLargest && std::floor(place) == place; };
  return p.size() == 4 && p[0].y == p[1].y && p[1].x == p[2].x && p[2].y == p[3].y && p[3].x == p[0].x &&
         is_whole(p[0].x) && is_whole(p[0].y) && is_whole(p[2].x) && is_whole(p[2].y);
}

bool IsNearby(std::span<const GksPoint> polygon) {
  return std::all_of(polygon.begin(), polygon.end(),
                     [](GksPoint p) { return std::abs(p.x) <= kLargest && std::abs(p.y) <= kLargest; });
}

// With its corners no further away than that. False: one has no place, or memory is out.
bool Approach(std::span<const GksPoint> polygon, std::vector<GksPoint>& nearby) {
  if (!Grow(nearby, polygon.size())) return false;
  for (std::size_t i = 0; i < polygon.size(); ++i) {
    if (std::isnan(polygon[i].x + polygon[i].y)) return false;
    nearby[i] = {Limited(polygon[i].x), Limited(polygon[i].y)};
  }
  return true;
}

void Fill(void* self, GksColour colour, std::span<const GksPoint> polygon) {
  PictureImage& image = Of(self);
  if (polygon.empty()) return;
  std::vector<GksPoint> nearby;
  if (!IsNearby(polygon)) {
    if (!Approach(polygon, nearby)) return;
    polygon = nearby;
  }
  const Ink ink = InkOf(colour);
  if (IsWholeBox(polygon)) {
    const auto [left, right] = std::minmax({static_cast<int>(polygon[0].x), static_cast<int>(polygon[2].x)});
    const auto [top, bottom] = std::minmax({static_cast<int>(polygon[0].y), static_cast<int>(polygon[2].y)});
    return PutBox(image, ink, left, right, top, bottom);
  }
  const auto [left, right] =
      std::minmax_element(polygon.begin(), polygon.end(), [](auto a, auto b) { return a.x < b.x; });
  const auto [high, low] =
      std::minmax_element(polygon.begin(), polygon.end(), [](auto a, auto b) { return a.y < b.y; });
  const Range columns = Touched(left->x, right->x, image.width), rows = Touched(high->y, low->y, image.height);
  if (columns.begin >= columns.end) return;
  std::vector<float> covered;  // from the first column on
  std::vector<Crossing> crossings;
  if (!Grow(covered, static_cast<std::size_t>(columns.end - columns.begin)) || !Reserve(crossings, polygon.size()))
    return;
  const float first = static_cast<float>(columns.begin);
  for (int y = rows.begin; y < rows.end; ++y) {
    std::fill(covered.begin(), covered.end(), 0.0F);
    for (int cut = 0; cut < kCuts; ++cut) {
      Cross(polygon, static_cast<float>(y) + (static_cast<float>(cut) + 0.5F) / kCuts, crossings);
      int round = 0;
      for (std::size_t i = 0; i + 1 < crossings.size(); ++i) {
        round += crossings[i].turn;
        if (round != 0) AddCovered(covered, crossings[i].x - first, crossings[i + 1].x - first);
      }
    }
    for (std::size_t i = 0; i < covered.size(); ++i)
      if (const int level = LevelOf(covered[i]); level > 0)
        Blend(PixelAt(image, columns.begin + static_cast<int>(i), y), ink, level);
  }
}

// ---- The rest

void Clear(void* self, GksColour paper) {
  PictureImage& image = Of(self);
  const Ink ink = InkOf(paper);
  if (ink[0] == ink[1] && ink[1] == ink[2]) std::fill(image.rgb.begin(), image.rgb.end(), ink[0]);
  else PutBox(image, ink, 0, image.width, 0, image.height);
}

void Glyph(void* self, GksColour colour, GksPoint at, const GksGlyph& glyph) {
  PictureImage& image = Of(self);
  const Ink ink = InkOf(colour);
  const int left = static_cast<int>(std::floor(at.x - glyph.x_origin));
  const int bottom = static_cast<int>(std::floor(static_cast<float>(image.height) - at.y - glyph.y_origin));
  const int bytes = glyph.smooth ? glyph.width : (glyph.width + 7) / 8;
  for (int row = 0; row < glyph.height; ++row) {
    const int y = image.height - 1 - bottom - row;
    if (y < 0 || y >= image.height) continue;
    for (int column = 0; column < glyph.width; ++column) {
      const unsigned byte = glyph.rows[row * bytes + (glyph.smooth ? column : column / 8)];
      const int level = glyph.smooth ? static_cast<int>(byte) : (byte >> (7 - column % 8) & 1U) != 0 ? kLevels : 0;
      const int x = left + column;
      if (level > 0 && x >= 0 && x < image.width) Blend(PixelAt(image, x, y), ink, level);
    }
  }
}

}  // namespace

GksPaint ImagePaint(PictureImage& image) {
  return {.self = &image, .clear = Clear, .line = Line, .fill = Fill, .glyph = Glyph};
}

}  // namespace zaview
