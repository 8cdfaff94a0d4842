#include "gks/kernel/gks_transform.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace zaview {

namespace {

constexpr float kPixelLimit = 1.0e6F;  // what lies beyond is far outside any window

bool IsTransform(int number) {
  return number >= 0 && number < kTransforms;
}

const GksTransform& Selected(const GksState& gks) {
  return gks.transform[static_cast<std::size_t>(gks.selected)];
}

float Map(float value, float from0, float from1, float to0, float to1) {
  return to0 + (value - from0) * (to1 - to0) / (from1 - from0);
}

int ToInt(float pixel) {
  if (!(pixel > -kPixelLimit)) return static_cast<int>(-kPixelLimit);  // NaN as well
  return static_cast<int>(std::min(pixel, kPixelLimit));
}

}  // namespace

void GSELNT(GksState& gks, int number) {
  if (IsTransform(number)) gks.selected = number;
}

void GSWN(GksState& gks, int number, GksRectangle window) {
  if (!IsTransform(number)) return;
  // Deliberate: a call for one transformation forgets the reversal of all others.
  for (GksTransform& transform : gks.transform) transform.x_sign = transform.y_sign = 1.0F;
  GksTransform& transform = gks.transform[static_cast<std::size_t>(number)];
  transform.window = window;
  if (window.xmin > window.xmax) transform.x_sign = -1.0F;
  if (window.ymin > window.ymax) transform.y_sign = -1.0F;
}

void GSVP(GksState& gks, int number, GksRectangle viewport) {
  if (IsTransform(number)) gks.transform[static_cast<std::size_t>(number)].viewport = viewport;
}

bool GSWKWN(GksState& gks, GksRectangle window) {
  if (window.xmin >= window.xmax && window.ymin >= window.ymax) return false;
  gks.ws_window = window;
  const float W = static_cast<float>(gks.window.width), H = static_cast<float>(gks.window.height);
  const float r = (window.ymax - window.ymin) / (window.xmax - window.xmin);
  gks.ws_viewport = r <= H / W ? GksRectangle{0.0F, W, 0.0F, r * W} : GksRectangle{0.0F, H / r, 0.0F, H};
  return true;
}

void GSWKVP(GksState& gks, GksRectangle viewport) {
  gks.ws_viewport = viewport;
}

GksPoint gksToPixelExact(const GksState& gks, GksPoint world) {
  const GksTransform& t = Selected(gks);
  const GksRectangle &w = t.window, &v = t.viewport, &ww = gks.ws_window, &wv = gks.ws_viewport;
  const float nx = Map(world.x, w.xmin, w.xmax, v.xmin, v.xmax), ny = Map(world.y, w.ymin, w.ymax, v.ymin, v.ymax);
  return {Map(nx, ww.xmin, ww.xmax, wv.xmin, wv.xmax), wv.ymax - Map(ny, ww.ymin, ww.ymax, wv.ymin, wv.ymax)};
}

GksPixel gksToPixel(const GksState& gks, GksPoint world) {
  const GksPoint pixel = gksToPixelExact(gks, world);
  return {ToInt(pixel.x), ToInt(pixel.y)};
}

GksPoint gksToWorldExact(const GksState& gks, GksPoint pixel) {
  const GksTransform& t = Selected(gks);
  const GksRectangle &w = t.window, &v = t.viewport, &ww = gks.ws_window, &wv = gks.ws_viewport;
  const float nx = Map(pixel.x, wv.xmin, wv.xmax, ww.xmin, ww.xmax);
  const float ny = Map(wv.ymax - pixel.y, wv.ymin, wv.ymax, ww.ymin, ww.ymax);
  return {Map(nx, v.xmin, v.xmax, w.xmin, w.xmax), Map(ny, v.ymin, v.ymax, w.ymin, w.ymax)};
}

GksPoint gksToWorld(const GksState& gks, int x, int y) {
  return gksToWorldExact(gks, {static_cast<float>(x), static_cast<float>(y)});
}

GksPoint gksPixelsPerUnit(const GksState& gks) {
  const GksTransform& t = Selected(gks);
  const GksRectangle &w = t.window, &v = t.viewport, &ww = gks.ws_window, &wv = gks.ws_viewport;
  return {std::abs((v.xmax - v.xmin) / (w.xmax - w.xmin) * (wv.xmax - wv.xmin) / (ww.xmax - ww.xmin)),
          std::abs((v.ymax - v.ymin) / (w.ymax - w.ymin) * (wv.ymax - wv.ymin) / (ww.ymax - ww.ymin))};
}

GksRectangle gksSortedWindow(const GksState& gks) {
  const GksTransform& t = Selected(gks);
  GksRectangle window = t.window;
  if (window.xmin > window.xmax) std::swap(window.xmin, window.xmax);
  if (window.ymin > window.ymax) std::swap(window.ymin, window.ymax);
  return window;
}

bool gksInside(const GksRectangle& sorted, GksPoint point) {
  return point.x >= sorted.xmin && point.x <= sorted.xmax && point.y >= sorted.ymin && point.y <= sorted.ymax;
}

}  // namespace zaview
