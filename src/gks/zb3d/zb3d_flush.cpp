// The tables drawn, from the farthest entity to the nearest.
#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <vector>

#include "base/grow.h"
#include "base/message.h"
#include "gks/kernel/gks_control.h"
#include "gks/kernel/gks_draw.h"
#include "gks/plot/page_inside.h"
#include "gks/zb3d/zb3d_project.h"

namespace zaview {

namespace {

constexpr std::string_view kNoShades = "WARNING : GKS color limit exceeded :shading will be wrong";

constexpr int kMostLevels = 64;
constexpr float kDarkest = 0.002F,
                kBrightest = 0.998F;  // part of a colour: black and white have a meaning of their own

// ---- Shades: colours made on demand for the pens of shaded faces
struct Shades {
  std::array<int, kPenLimit + 1> first{};  // colour of a pen's darkest shade; 0: none yet
  std::array<bool, kPenLimit> made{};
  int levels = 0;  // a pen
  int next = 0;    // free colour
  bool warned = false;
};

Shades ShadesOf(const Zb3dState& zb) {
  Shades shades;
  std::array<bool, kPenLimit + 1> used{};
  for (const ZbEntity& entity : zb.zbufen)
    if (entity.kind == ZbKind::shaded) used[static_cast<std::size_t>(entity.pen)] = true;
  const auto pens = static_cast<int>(std::count(used.begin(), used.end(), true));
  shades.next = zb.first_shade;
  shades.levels = std::clamp((kPenLimit - zb.first_shade) / std::max(pens, 1), 1, kMostLevels);
  return shades;
}

// The colour of a pen in a light of 0 to 1.
int ShadeColour(ZbDraw draw, Shades& shades, int pen, float light) {
  int& first = shades.first[static_cast<std::size_t>(pen)];
  if (first == 0) {
    first = shades.next;
    shades.next += shades.levels;
  }
  const int level = static_cast<int>(std::lround(light * static_cast<float>(shades.levels - 1)));
  const int index = std::min(first + level, kPenLimit - 1);
  if (first + level >= kPenLimit && !shades.warned) {
    shades.warned = true;
    SayLine(draw.console, kNoShades);
  }
  const auto slot = static_cast<std::size_t>(index);
  if (shades.made[slot]) return index;
  shades.made[slot] = true;
  const GksColour base = GQCR(draw.console, draw.gks, pen);
  const float part = shades.levels > 1 ? static_cast<float>(level) / static_cast<float>(shades.levels - 1) : 1.0F;
  const auto lit = [part](float of) { return std::clamp(part * of, kDarkest, kBrightest); };
  draw.gks.colour[slot] = {lit(base.red), lit(base.green), lit(base.blue)};  // not made fit for white once more
  return index;
}

int FaceColour(ZbDraw draw, Shades& shades, const ZbEntity& entity) {
  if (entity.kind != ZbKind::shaded) return entity.pen;
  const Zb3dState& zb = draw.zb;
  std::array<ScenePoint, 4> corner;  // of more the first ones tell
  const auto n = std::min(corner.size(), static_cast<std::size_t>(entity.points));
  for (std::size_t i = 0; i < n; ++i) {
    const ZbPoint& p = zb.zbufpt[static_cast<std::size_t>(entity.first) + i];
    corner[i] = {static_cast<double>(p.x), static_cast<double>(p.y), static_cast<double>(p.z)};
  }
  const float light = std::abs(zb3dShade(zb, std::span(corner).first(n)));
  return ShadeColour(draw, shades, entity.pen, zb.ambient + (1.0F - zb.ambient) * light);
}

// ---- Faces
// A face is drawn half a pixel larger all around: what lies behind two neighbours never shines through the pixels that
// their edge parts, and the outer edges stay smooth.
void Enlarge(std::vector<float>& x, std::vector<float>& y, float by) {
  constexpr float kLeast = 0.25F;  // corners sharper than that aren't drawn out further
  const std::size_t n = x.size();
  float area = 0;
  for (std::size_t i = 1; i + 1 < n; ++i) area += (x[i] - x[0]) * (y[i + 1] - y[0]) - (x[i + 1] - x[0]) * (y[i] - y[0]);
  const float side = area < 0 ? -by : by;
  const auto normal = [](float dx, float dy) {
    const float length = std::hypot(dx, dy);
    return length > 0 ? GksPoint{dy / length, -dx / length} : GksPoint{};
  };
  const GksPoint first = {x[0], y[0]};
  GksPoint before = normal(x[0] - x[n - 1], y[0] - y[n - 1]);
  for (std::size_t i = 0; i < n; ++i) {
    const GksPoint next = i + 1 < n ? GksPoint{x[i + 1], y[i + 1]} : first;
    const GksPoint behind = normal(next.x - x[i], next.y - y[i]);
    const float reach = side / std::max(1.0F + before.x * behind.x + before.y * behind.y, kLeast);
    x[i] += reach * (before.x + behind.x);
    y[i] += reach * (before.y + behind.y);
    before = behind;
  }
}

// ---- Entities
// The entity's places on the screen into zb.x, zb.y; closed: the first once more at the end.
bool TakePoints(Zb3dState& zb, const ZbEntity& entity, bool closed) {
  const auto n = static_cast<std::size_t>(entity.points), first = static_cast<std::size_t>(entity.first);
  const std::size_t all = n + (closed ? 1 : 0);
  if (!Grow(zb.x, all) || !Grow(zb.y, all)) return false;
  for (std::size_t i = 0; i < all; ++i) {
    const ZbPoint& p = zb.zbufpt[first + i % n];
    zb.x[i] = p.sx;
    zb.y[i] = p.sy;
  }
  return true;
}

void DrawLine(ZbDraw draw, const ZbEntity& entity, int pen, bool closed) {
  if (!TakePoints(draw.zb, entity, closed)) return;
  GSPLCI(draw.console, draw.gks, pen);
  GSLN(draw.gks, entity.style);
  GPL(draw.gks, draw.zb.x, draw.zb.y);
}

void DrawFace(ZbDraw draw, const ZbEntity& entity, int face) {
  constexpr float kHalfPixel = 0.5F;
  if (!TakePoints(draw.zb, entity, false)) return;
  Enlarge(draw.zb.x, draw.zb.y, kHalfPixel / gksPixelsPerUnit(draw.gks).x);
  GSFACI(draw.console, draw.gks, face);
  GFA(draw.gks, draw.zb.x, draw.zb.y);
  // Without a filling twice: smooth edges on the rim would be fainter than those that two faces share.
  const int times = entity.option == 0 ? 0 : entity.pen == 0 ? 2 : 1;
  for (int time = 0; time < times; ++time) DrawLine(draw, entity, entity.option, true);
}

void DrawMarker(ZbDraw draw, const ZbEntity& entity) {
  if (!TakePoints(draw.zb, entity, false)) return;
  const SavedAttributes saved(draw.gks);
  draw.gks.attribute.between_pixels = false;  // they are the same everywhere
  GSPMCI(draw.console, draw.gks, entity.pen);
  GSMK(draw.gks, entity.option);
  GSMKSC(draw.gks, entity.size);
  GSLN(draw.gks, 1);
  GPM(draw.gks, draw.zb.x, draw.zb.y);
}

void DrawText(ZbDraw draw, const ZbEntity& entity) {
  const ZbPoint& at = draw.zb.zbufpt[static_cast<std::size_t>(entity.first)];
  const ZbText& text = draw.zb.zbuftx[static_cast<std::size_t>(entity.text)];
  const SavedAttributes saved(draw.gks);
  draw.gks.attribute.between_pixels = false;
  GSTXCI(draw.console, draw.gks, entity.pen);
  GSCHH(draw.gks, text.height);
  GSTXAL(draw.gks, text.align_x, text.align_y);
  GTX(draw.gks, {at.sx, at.sy}, {text.characters.data(), static_cast<std::size_t>(text.length)});
}

bool CanBeSeen(const Zb3dState& zb, const ZbEntity& entity) {
  for (int i = 0; i < entity.points; ++i)
    if (InFront(zb, zb.zbufpt[static_cast<std::size_t>(entity.first + i)])) return true;
  return false;
}

}  // namespace

void DrawEntity(ZbDraw draw, const ZbEntity& entity, int face) {
  if (!CanBeSeen(draw.zb, entity)) return;
  switch (entity.kind) {
    case ZbKind::polyline:
      return DrawLine(draw, entity, entity.pen, entity.option != 0);
    case ZbKind::marker:
      return DrawMarker(draw, entity);
    case ZbKind::text:
      return DrawText(draw, entity);
    case ZbKind::polygon:
    case ZbKind::shaded:
      return DrawFace(draw, entity, face);
  }
}

float zb3dShade(const Zb3dState& zb, std::span<const ScenePoint> points) {
  const std::size_t n = points.size();
  if (n < 3) return 0.0F;
  const auto minus = [](ScenePoint a, ScenePoint b) { return ScenePoint{a.x - b.x, a.y - b.y, a.z - b.z}; };
  const auto dot = [](ScenePoint a, ScenePoint b) { return a.x * b.x + a.y * b.y + a.z * b.z; };
  const ScenePoint a = minus(points[n - 2], points[0]), b = minus(points[n - 1], points[1]);
  const ScenePoint normal{a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
  ScenePoint to_eye{-zb.axes.into.x, -zb.axes.into.y, -zb.axes.into.z};
  if (zb.view.perspective) {
    ScenePoint middle{};
    for (const ScenePoint& p : points) middle = {middle.x + p.x, middle.y + p.y, middle.z + p.z};
    const auto count = static_cast<double>(n);
    to_eye = minus(EyePlace(zb), {middle.x / count, middle.y / count, middle.z / count});
  }
  const double lengths = std::sqrt(dot(normal, normal) * dot(to_eye, to_eye));
  return lengths > 0.0 ? static_cast<float>(dot(normal, to_eye) / lengths) : 0.0F;
}

void zb3dFlush(ZbDraw draw) {
  Zb3dState& zb = draw.zb;
  if (zb.out_of_memory) return;
  if (!Grow(zb.order, zb.zbufen.size())) return NoMemory(draw, "zb3dAllocateDrawArrays");
  std::iota(zb.order.begin(), zb.order.end(), 0U);
  std::stable_sort(zb.order.begin(), zb.order.end(),
                   [&zb](std::uint32_t a, std::uint32_t b) { return zb.depth[a] < zb.depth[b]; });
  const SavedAttributes saved(draw.gks);
  const SelectedTransform space(draw.gks, kSpaceTransform);
  draw.gks.attribute.between_pixels = true;
  Shades shades = ShadesOf(zb);
  for (const std::uint32_t i : zb.order) {
    const ZbEntity& entity = zb.zbufen[i];
    DrawEntity(draw, entity, FaceColour(draw, shades, entity));
  }
}

}  // namespace zaview
