// What goes into the tables.
#include <algorithm>
#include <string_view>
#include <vector>

#include <fmt/format.h>

#include "base/grow.h"
#include "base/message.h"
#include "base/text.h"
#include "gks/kernel/gks_control.h"
#include "gks/plot/page_inside.h"
#include "gks/zb3d/zb3d_project.h"

namespace zaview {

namespace {

constexpr std::string_view kInvalidPen = "WARNING : Invalid GKS color index in ZB3DPENSET: plot colors might be wrong";
constexpr std::string_view kTooManyPens =
    "WARNING : GKS color limit exceeded in ZB3DPENSET: plot colors might be wrong";
constexpr std::string_view kReport = "          Please report this error to Ned";
constexpr std::string_view kNoRoom = "Allocation error in {}:";
constexpr std::string_view kFatal = "Fatal memory allocation ERROR in ZB3D";

constexpr std::size_t kFirstRoom = 100;  // rows of each table
constexpr int kPens = 14;                // 2 to 15
constexpr float kInFront = 1.0e9F;       // of all depths
constexpr double kOnTop = 0.001;         // of the radius: what lies on a face comes behind it

// Room for so many more rows. False: memory is out, which is said once a picture.
template <typename Row>
bool MakeRoom(ZbDraw draw, std::string_view routine, std::vector<Row>& table, std::size_t more) {
  if (draw.zb.out_of_memory) return false;
  if (table.size() + more <= table.capacity()) return true;
  const bool first = table.capacity() == 0;
  if (first) Trace(draw.console, "Initial allocation in {}:", routine);
  else Trace(draw.console, "Re-allocation in {}:", routine);
  if (Reserve(table, std::max({kFirstRoom, 2 * table.capacity(), table.size() + more}))) return true;
  NoMemory(draw, routine);
  return false;
}

bool zb3dAddZbufpt(ZbDraw draw, std::span<const ScenePoint> points) {
  if (!MakeRoom(draw, "zb3dAddZbufpt", draw.zb.zbufpt, points.size())) return false;
  for (const ScenePoint& point : points) draw.zb.zbufpt.push_back(Projected(draw.zb, point));
  return true;
}

bool zb3dAddZbuftx(ZbDraw draw, const ZbText& row) {
  if (!MakeRoom(draw, "zb3dAddZbuftx", draw.zb.zbuftx, 1)) return false;
  draw.zb.zbuftx.push_back(row);
  return true;
}

// Sorted by the mean depth of its points, which have just been added.
bool zb3dAddZbufen(ZbDraw draw, const ZbEntity& row) {
  Zb3dState& zb = draw.zb;
  if (!MakeRoom(draw, "zb3dAddZbufen", zb.zbufen, 1) || !MakeRoom(draw, "zb3dAddZbufen", zb.depth, 1)) return false;
  double sum = 0;
  for (int i = 0; i < row.points; ++i)
    sum += static_cast<double>(zb.zbufpt[static_cast<std::size_t>(row.first + i)].depth);
  const bool is_face = row.kind == ZbKind::polygon || row.kind == ZbKind::shaded;
  zb.zbufen.push_back(row);
  const auto depth = static_cast<float>(sum / row.points + (is_face ? 0.0 : kOnTop * zb.view.view_radius));
  const bool with_last = zb.with_last && !zb.depth.empty();
  zb.depth.push_back(zb.on_top ? kInFront : with_last ? zb.depth.back() : depth);  // equal ones: in the order of entry
  return true;
}

// An entity of the next points, as the state has its looks.
ZbEntity NextEntity(const Zb3dState& zb, ZbKind kind, std::size_t points) {
  return {kind, static_cast<int>(points), static_cast<int>(zb.zbufpt.size()), zb.pen, zb.style, 0, 0, zb.marker_size};
}

int ColourOf(int value) {
  if (value < 0) return std::min(-value, kPenLimit);
  return value < 2 ? value : (value - 2) % kPens + 2;
}

// The last entity of the tables, which goes out of the table of entities; its points stay, to be found by the mouse.
void DrawAtOnce(ZbDraw draw) {
  Zb3dState& zb = draw.zb;
  const SavedAttributes saved(draw.gks);
  const SelectedTransform space(draw.gks, kSpaceTransform);
  draw.gks.attribute.between_pixels = true;
  DrawEntity(draw, zb.zbufen.back(), zb.zbufen.back().pen);
  zb.zbufen.pop_back();
  zb.depth.pop_back();
}

void Add(ZbDraw draw, std::span<const ScenePoint> points, const ZbEntity& row) {
  if (points.empty() || !zb3dAddZbufpt(draw, points) || !zb3dAddZbufen(draw, row)) return;
  if (!draw.zb.zbuffer_on) DrawAtOnce(draw);
}

}  // namespace

void NoMemory(ZbDraw draw, std::string_view routine) {
  draw.zb.out_of_memory = true;
  Say(draw.console, kNoRoom, routine);
  SayLine(draw.console, kFatal);
}

void zb3dInit(ZbDraw draw) {
  Zb3dState& zb = draw.zb;
  gksOpenTo(draw.gks, GksLevel::active);
  zb.scale = {1, 1, 1};
  zb.zbuffer_on = true;
  zb.first_shade = kFirstShade;
  zb.pen = zb.style = 1;
  zb.marker = 0;
  zb.on_top = zb.with_last = false;
  zb.marker_size = 1;
  zb.align_x = 1;
  zb.align_y = 4;
}

void zb3dStart(ZbDraw draw) {
  Zb3dState& zb = draw.zb;
  zb.zbufpt.clear();
  zb.zbufen.clear();
  zb.depth.clear();
  zb.zbuftx.clear();
  zb.findable = 0;
  zb.out_of_memory = false;
}

void zb3dPen(ZbDraw draw, int value) {
  draw.zb.pen = ColourOf(value);
}

void ZB3DPENSET(ZbDraw draw, int index, GksColour colour) {
  if (index < 2 || index >= kPenLimit) {
    SayLine(draw.console, index < 2 ? kInvalidPen : kTooManyPens);
    SayLine(draw.console, kReport);
    return;
  }
  draw.gks.colour[static_cast<std::size_t>(index)] = colour;  // not made fit for white
  draw.zb.first_shade = std::max(draw.zb.first_shade, index + 1);
}

void zb3dLineStyle(ZbDraw draw, int style) {
  draw.zb.style = style;
}

void zb3dMarkerStyle(ZbDraw draw, int type, float size) {
  draw.zb.marker = type;
  draw.zb.marker_size = size;
}

void zb3dOnTop(ZbDraw draw, bool on) {
  draw.zb.on_top = on;
}

void zb3dWithLast(ZbDraw draw, bool on) {
  draw.zb.with_last = on;
}

void zb3dAlign(ZbDraw draw, float fx, float fy) {
  draw.zb.align_x = fx < 0.3F ? 1 : fx < 0.7F ? 2 : 3;
  draw.zb.align_y = fy < 0.0F ? 5 : fy < 0.3F ? 4 : fy < 0.7F ? 3 : fy < 1.0F ? 2 : 1;
}

void zb3dCharHeight(ZbDraw draw, float height) {
  if (height > 0.0F) draw.zb.char_height = height;
}

void zb3dLine(ZbDraw draw, std::span<const ScenePoint> points, bool closed) {
  ZbEntity row = NextEntity(draw.zb, ZbKind::polyline, points.size());
  row.option = closed ? 1 : 0;
  Add(draw, points, row);
}

void zb3dMarker(ZbDraw draw, std::span<const ScenePoint> points) {
  for (const ScenePoint& point : points) {  // each at its own depth
    ZbEntity row = NextEntity(draw.zb, ZbKind::marker, 1);
    row.option = draw.zb.marker;
    Add(draw, {&point, 1}, row);
  }
}

void zb3dPolygon(ZbDraw draw, std::span<const ScenePoint> points, ZbFill fill, int outline) {
  ZbEntity row = NextEntity(draw.zb, fill == ZbFill::shaded ? ZbKind::shaded : ZbKind::polygon, points.size());
  if (row.kind == ZbKind::shaded && !draw.zb.shading) row.kind = ZbKind::polygon;
  if (fill == ZbFill::paper) row.pen = 0;
  row.option = outline;
  if (points.size() >= 3) Add(draw, points, row);
}

void zb3dText(ZbDraw draw, std::string_view text, ScenePoint at) {
  const Zb3dState& zb = draw.zb;
  ZbText words{.height = zb.char_height, .align_x = zb.align_x, .align_y = zb.align_y};
  text = CutAtLetter(text, kZbTextRoom);
  words.length = static_cast<int>(text.size());
  std::copy(text.begin(), text.end(), words.characters.begin());
  ZbEntity row = NextEntity(zb, ZbKind::text, 1);
  row.text = static_cast<int>(zb.zbuftx.size());
  if (zb3dAddZbuftx(draw, words)) Add(draw, {&at, 1}, row);
}

void zb3dNumber(ZbDraw draw, float value, ScenePoint at) {
  zb3dText(draw, fmt::format("{:.4g}", value), at);
}

}  // namespace zaview
