// Axes, grids and the blanked rectangle. All of it is drawn in page units, so that lines, ticks and texts fit together
// whatever the limits are.
#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "base/grow.h"
#include "base/message.h"
#include "base/number_format.h"
#include "base/text.h"
#include "gks/kernel/gks_control.h"
#include "gks/kernel/gks_draw.h"
#include "gks/kernel/gks_transform.h"
#include "gks/plot/page_inside.h"
#include "gks/plot/plot_layer.h"
#include "gks/plot/plot_look.h"

namespace zaview {

namespace {

constexpr std::string_view kInvalidLog = "WARNING in DISGKSF: invalid log axis limits";
constexpr std::string_view kMin = "min={}", kMax = " max={}";

constexpr float kNarrow = 1.0e-5F;                     // of the middle: limits closer than this are set apart
constexpr float kNoMiddle = 1.0e-10F;                  // and so far if the middle is 0
constexpr float kEndIsNear = 0.75F;                    // of a step: the end takes the place of a tick this close to it
constexpr float kMostSteps = 1000.0F;                  // on an axis; with more of them there are no ticks
constexpr int kMostMinors = 100;                       // in an interval
constexpr float kTick = 0.01F;                         // of the length of the other axis
constexpr float kMinorTick = 0.5F;                     // of a tick
constexpr float kXLabelGap = 2.1F, kYLabelGap = 1.7F;  // ticks between the axis and its labels, the tick included
constexpr float kXNameGap = 1.5F;                      // character heights between the axis and its name
constexpr float kYNameGap = 0.25F;                     // from the labels
constexpr float kLevelNameGap = 1.0F;                  // a level one, further
constexpr float kTurnedNameGap = 0.4F;                 // a turned one, further
constexpr float kYNameTurned = 2.3F;                   // from the axis
constexpr float kEdge = 0.1F;                          // page units that stay free left of it
constexpr float kLabelSpace = 0.5F;                    // character heights that stay free between labels
constexpr float kXNameSpace = 0.6F;                    // between the labels and the name
constexpr float kDescender = 0.25F;                    // of the height of a text
constexpr float kLeastDecade = 40.0F;                  // pixels; shorter decades have no minor ticks

struct Axis {
  float origin = 0, step = 0, end = 1;  // world
  float page = 0, length = 0;           // place of the origin and way to the end, page units
  int minors = 1;                       // parts of an interval
  bool log = false;                     // world is log10
};

struct Tick {
  float value = 0, page = 0;
  bool major = true;
};

using Ticks = std::vector<Tick>;

float ToPage(const Axis& axis, float value) {
  return axis.page + axis.length * ((value - axis.origin) / (axis.end - axis.origin));
}

Axis XAxis(const PlotPage& page, int minors) {
  return {page.x_origin, page.x_step, page.x_end, page.area_x, page.area_width, minors, false};
}

Axis YAxis(const PlotPage& page, int minors) {
  return {page.y_origin, page.y_step, page.y_end, page.area_y, page.area_height, minors, page.log_y};
}

void SetApart(float& origin, float& step, float& end) {
  if (!std::isfinite(origin) || !std::isfinite(end) || !std::isfinite(end - origin)) {
    origin = 0.0F;
    end = 1.0F;
    step = 0.0F;
  }
  const float middle = 0.5F * origin + 0.5F * end;
  const float apart = kNarrow * std::abs(middle);
  if (std::abs(end - origin) <= apart) {
    const bool none = std::abs(middle) <= kNoMiddle;
    origin = none ? -kNoMiddle : middle - apart;
    end = none ? kNoMiddle : middle + apart;
  }
  step = std::isfinite(step) ? std::copysign(step, end - origin) : 0.0F;
}

// ---- Ticks
void AddMinors(const Axis& axis, float from, Ticks& out) {
  const int parts = std::min(axis.minors, kMostMinors);
  for (int j = 1; j < parts; ++j) {
    const float value = from + axis.step * static_cast<float>(j) / static_cast<float>(parts);
    if (std::abs(value - axis.origin) >= std::abs(axis.end - axis.origin)) return;
    out.push_back({value, ToPage(axis, value), false});
  }
}

Ticks LinearTicks(const Axis& axis) {
  Ticks out;
  const float steps = axis.step != 0.0F ? (axis.end - axis.origin) / axis.step : 0.0F;
  if (!(steps > 0.0F && steps <= kMostSteps)) return out;
  const int room = (static_cast<int>(steps) + 2) * std::clamp(axis.minors, 1, kMostMinors);
  if (!Reserve(out, static_cast<std::size_t>(room))) return out;
  for (int k = 0;; ++k) {
    const float left = steps - static_cast<float>(k);
    const bool last = k > 0 && left < kEndIsNear;
    const float value = last ? axis.end : axis.origin + static_cast<float>(k) * axis.step;
    out.push_back({value, ToPage(axis, value), true});
    if (last) return out;
    AddMinors(axis, value, out);
  }
}

// Decades; between them 2 to 9 times the decade if the axis is large enough. An axis with fewer than two decades has
// ticks at its ends as well.
Ticks LogTicks(const Axis& axis, float pixels_per_unit) {
  constexpr float kOnEnd = 1.0e-5F;  // of a decade
  Ticks out;
  if (!Reserve(out, 1000)) return out;
  const float from = axis.origin - kOnEnd, to = axis.end + kOnEnd;
  const int first = static_cast<int>(std::floor(axis.origin)), last = static_cast<int>(std::ceil(axis.end));
  const bool minors = pixels_per_unit * axis.length / (axis.end - axis.origin) >= kLeastDecade;
  int decades = 0;
  for (int decade = first; decade <= last; ++decade)
    for (int digit = 1; digit <= (minors ? 9 : 1); ++digit) {
      const float value = static_cast<float>(decade) + std::log10(static_cast<float>(digit));
      if (value < from || value > to) continue;
      out.push_back({value, ToPage(axis, value), digit == 1});
      decades += digit == 1 ? 1 : 0;
    }
  if (decades >= 2) return out;
  std::erase_if(out, [&](const Tick& tick) {
    return std::abs(tick.value - axis.origin) <= kOnEnd || std::abs(tick.value - axis.end) <= kOnEnd;
  });
  out.insert(out.begin(), {axis.origin, ToPage(axis, axis.origin), true});
  out.push_back({axis.end, ToPage(axis, axis.end), true});
  return out;
}

Ticks TicksOf(PlotDraw draw, const Axis& axis) {
  if (!axis.log) return LinearTicks(axis);
  const SelectedTransform page(draw.gks, kPageTransform);
  return LogTicks(axis, gksPixelsPerUnit(draw.gks).y);
}

// Of the axis, or of each decade its own.
std::vector<std::string> LabelTexts(const Axis& axis, const Ticks& majors) {
  std::vector<std::string> out;
  std::vector<float> values;
  if (!Reserve(out, majors.size()) || !Reserve(values, majors.size())) return out;
  for (const Tick& tick : majors)
    values.push_back(axis.log ? static_cast<float>(std::pow(10.0, static_cast<double>(tick.value))) : tick.value);
  const AxisFormat common = dgAxisFormat(values, axis.step);
  for (const float& value : values)
    out.push_back(dgAxisLabel(value, axis.log ? dgAxisFormat({&value, 1}, value) : common));
  return out;
}

// ---- Drawing on the page
void Line(PlotDraw draw, float x0, float y0, float x1, float y1) {
  const std::array<float, 2> x = {x0, x1}, y = {y0, y1};
  GPL(draw.gks, x, y);
}

struct Label {
  std::string text;
  GksPoint at;
  GksRectangle box;  // page units
};

struct LabelRow {  // where the labels of one axis go
  bool upward = false, level = true;
  float across = 0;                // page coordinate that all have in common
  float space_x = 0, space_y = 0;  // that stays free between two of them
};

bool Touch(const GksRectangle& a, const GksRectangle& b, LabelRow row) {
  return a.xmin < b.xmax + row.space_x && b.xmin < a.xmax + row.space_x && a.ymin < b.ymax + row.space_y &&
         b.ymin < a.ymax + row.space_y;
}

GksRectangle Around(const GksRectangle& a, const GksRectangle& b) {
  return {std::min(a.xmin, b.xmin), std::max(a.xmax, b.xmax), std::min(a.ymin, b.ymin), std::max(a.ymax, b.ymax)};
}

std::vector<Label> LabelsOf(PlotDraw draw, const Axis& axis, const Ticks& ticks, LabelRow row) {
  std::vector<Label> out;
  Ticks majors = ticks;
  std::erase_if(majors, [](const Tick& tick) { return !tick.major; });
  const std::vector<std::string> texts = LabelTexts(axis, majors);
  if (!Reserve(out, texts.size())) return out;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const Tick& tick = majors[i];
    Label label;
    label.text = texts[i];
    label.at = row.upward ? GksPoint{row.across, tick.page} : GksPoint{tick.page, row.across};
    label.box = PlotTextBox(draw.gks, label.at, label.text);
    if (row.level) label.box.ymin += kDescender * (label.box.ymax - label.box.ymin);  // figures have none
    out.push_back(std::move(label));
  }
  return out;
}

// Every so manyeth label is drawn.
std::size_t StrideOf(const std::vector<Label>& labels, LabelRow row) {
  for (std::size_t stride = 1; stride < labels.size(); ++stride) {
    bool free = true;
    for (std::size_t i = 0; free && i + stride < labels.size(); i += stride)
      free = !Touch(labels[i].box, labels[i + stride].box, row);
    if (free) return stride;
  }
  return std::max<std::size_t>(labels.size(), 1);
}

// Draws as many labels as have room, and that of the end if it has. `taken` is what the first must not touch. The box
// around all of them.
GksRectangle DrawLabels(PlotDraw draw, const std::vector<Label>& labels, LabelRow row, const GksRectangle& taken) {
  if (labels.empty()) return {};
  const std::size_t stride = StrideOf(labels, row);
  GksRectangle before = taken, all = labels.front().box;
  for (std::size_t i = 0; i < labels.size(); ++i) {
    const Label& label = labels[i];
    if (i % stride != 0 && i + 1 != labels.size()) continue;
    if (Touch(before, label.box, row)) continue;
    GTX(draw.gks, label.at, label.text);
    before = label.box;
    all = Around(all, label.box);
  }
  return all;
}

// The box of the first label: that of the other axis is near.
GksRectangle DrawXAxis(PlotDraw draw) {
  constexpr GksRectangle kNowhere = {-2.0F, -1.0F, -2.0F, -1.0F};
  const PlotPage& page = draw.page;
  const Axis axis = XAxis(page, page.x_ticks);
  const float tick_length = kTick * page.area_height;
  const Ticks ticks = TicksOf(draw, axis);
  for (const Tick& tick : ticks)
    Line(draw, tick.page, page.area_y, tick.page, page.area_y - (tick.major ? 1.0F : kMinorTick) * tick_length);
  GSCHUP(draw.gks, 0, 1);
  GSTXAL(draw.gks, kCentre, kTop);
  const LabelRow row = {false, true, page.area_y - kXLabelGap * tick_length, kLabelSpace * page.char_height, 0};
  const std::vector<Label> labels = LabelsOf(draw, axis, ticks, row);
  const GksRectangle all = DrawLabels(draw, labels, row, kNowhere);
  const float below = labels.empty() ? page.area_y : all.ymin - kXNameSpace * page.char_height;
  if (!page.x_name.empty())
    GTX(draw.gks, {page.area_x + 0.5F * page.area_width, std::min(page.area_y - kXNameGap * page.char_height, below)},
        page.x_name);
  return labels.empty() ? kNowhere : labels.front().box;
}

// Along the axis, as large as the page is high and the room beside the labels is wide, as far as it can be read then.
void DrawTurnedName(PlotDraw draw, float right, float middle) {
  constexpr float kSmallest = 0.6F;  // of the size
  const PlotPage& page = draw.page;
  const SavedAttributes saved(draw.gks);
  draw.gks.attribute.turn_bitmap = true;
  GSCHUP(draw.gks, -1, 0);
  GSTXAL(draw.gks, kCentre, kBottom);
  GksRectangle box = PlotTextBox(draw.gks, {right, middle}, page.y_name);
  const float room = std::min((right - kEdge) / (box.xmax - box.xmin), page.page_height / (box.ymax - box.ymin));
  SetLetterHeight(draw, page.char_height * std::clamp(room, kSmallest, 1.0F));
  box = PlotTextBox(draw.gks, {right, middle}, page.y_name);
  const float low = std::min(middle, page.page_height - 0.5F * (box.ymax - box.ymin));
  GTX(draw.gks, {right + std::max(kEdge - box.xmin, 0.0F), low}, page.y_name);
}

// Of a bitmap font the name stands level, and turned where it has no room beside the labels.
void DrawYName(PlotDraw draw, const GksRectangle& labels) {
  const PlotPage& page = draw.page;
  const float middle = page.area_y + 0.5F * page.area_height;
  float right = labels.xmin - kYNameGap * page.char_height;
  if (page.y_name_turned) right = std::min(right, page.area_x - kYNameTurned * page.char_height);
  if (!draw.gks.window.bitmap_font || LookOf(draw.gks).names_turned) return DrawTurnedName(draw, right, middle);
  GSCHUP(draw.gks, 0, 1);
  GSTXAL(draw.gks, kRight, kHalf);
  const float level = right - kLevelNameGap * page.char_height;  // in the same line as a label
  if (PlotTextBox(draw.gks, {level, middle}, page.y_name).xmin < kEdge)
    DrawTurnedName(draw, right - kTurnedNameGap * page.char_height, middle);
  else GTX(draw.gks, {level, middle}, page.y_name);
}

// The labels of the vertical axis, for which the text attributes are set.
std::vector<Label> YLabels(PlotDraw draw, const Axis& axis, const Ticks& ticks, LabelRow& row) {
  const PlotPage& page = draw.page;
  const bool turned = page.y_name_turned, level = !turned || draw.gks.window.bitmap_font;
  GSCHUP(draw.gks, turned ? -1.0F : 0.0F, turned ? 0.0F : 1.0F);
  GSTXAL(draw.gks, turned ? kCentre : kRight, turned ? kBase : kHalf);
  row = {true, level, page.area_x - kYLabelGap * kTick * page.area_width, 0,
         level ? 0 : kLabelSpace * page.char_height};
  return LabelsOf(draw, axis, ticks, row);
}

void DrawYAxis(PlotDraw draw, const GksRectangle& first_of_x) {
  const PlotPage& page = draw.page;
  const Axis axis = YAxis(page, page.y_ticks);
  const float tick_length = kTick * page.area_width;
  const Ticks ticks = TicksOf(draw, axis);
  for (const Tick& tick : ticks)
    Line(draw, page.area_x, tick.page, page.area_x - (tick.major ? 1.0F : kMinorTick) * tick_length, tick.page);
  LabelRow row;
  const std::vector<Label> labels = YLabels(draw, axis, ticks, row);
  GksRectangle all = DrawLabels(draw, labels, row, first_of_x);
  if (labels.empty()) all = {row.across, row.across, page.area_y, page.area_y};
  if (!page.y_name.empty()) DrawYName(draw, all);
}

void DrawAxes(PlotDraw draw) {
  const PlotPage& page = draw.page;
  const Console& console = draw.platform.console;
  const SavedAttributes saved(draw.gks);
  GSCLIP(draw.gks, 0);
  GSPLCI(console, draw.gks, 1);
  GSTXCI(console, draw.gks, 1);
  GSLN(draw.gks, 1);
  GSLWSC(draw.gks, 1);
  const SelectedTransform on_page(draw.gks, kPageTransform);
  SetLetterHeight(draw, page.char_height);
  const float top = page.area_y + page.area_height, right = page.area_x + page.area_width;
  const std::array<float, 3> x = {page.area_x, page.area_x, right}, y = {top, page.area_y, page.area_y};
  GPL(draw.gks, x, y);
  DrawYAxis(draw, DrawXAxis(draw));
  GSCHUP(draw.gks, 0, 1);
}

void DrawGraph(PlotDraw draw) {
  const PlotPage& page = draw.page;
  const float longer = std::max(page.page_width, page.page_height);
  GSWN(draw.gks, kGraphTransform, {page.x_origin, page.x_end, page.y_origin, page.y_end});
  GSVP(draw.gks, kGraphTransform,
       {page.area_x / longer, (page.area_x + page.area_width) / longer, page.area_y / longer,
        (page.area_y + page.area_height) / longer});
  GSELNT(draw.gks, kGraphTransform);
  if (!page.x_named && !page.y_named) return;
  DrawAxes(draw);
  GSCLIP(draw.gks, 1);
}

// ---- Grid
// A line across the area, at x or at y, that leaves the blanked rectangle out.
void GridLine(PlotDraw draw, bool upright, float at) {
  const PlotPage& page = draw.page;
  const auto piece = [&](float from, float to) {
    if (!(to > from)) return;
    if (upright) Line(draw, at, from, at, to);
    else Line(draw, from, at, to, at);
  };
  const float from = upright ? page.area_y : page.area_x;
  const float to = from + (upright ? page.area_height : page.area_width);
  const bool beside = upright ? at <= page.grid_x0 || at >= page.grid_x1 : at <= page.grid_y0 || at >= page.grid_y1;
  if (!page.blanked || beside) return piece(from, to);
  piece(from, std::min(upright ? page.grid_y0 : page.grid_x0, to));
  piece(std::max(upright ? page.grid_y1 : page.grid_x1, from), to);
}

void GridLines(PlotDraw draw, bool upright, const Axis& axis) {
  for (const Tick& tick : TicksOf(draw, axis))
    if (tick.value != axis.origin && (tick.major || axis.minors > 1)) GridLine(draw, upright, tick.page);
}

}  // namespace

float dgRoomLeft(PlotDraw draw, float y_origin, float y_step, float y_end, bool log_y) {
  SetApart(y_origin, y_step, y_end);
  const PlotPage& page = draw.page;
  const SelectedTransform on_page(draw.gks, kPageTransform);
  const SavedAttributes saved(draw.gks);
  SetLetterHeight(draw, page.char_height);
  const Axis axis = {y_origin, y_step, y_end, page.area_y, page.area_height, 1, log_y};
  LabelRow row;
  const std::vector<Label> labels = YLabels(draw, axis, TicksOf(draw, axis), row);
  float left = row.across;
  for (const Label& label : labels) left = std::min(left, label.box.xmin);
  if (!page.y_name.empty()) {
    GSCHUP(draw.gks, 0, 1);
    const GksRectangle letters = PlotTextBox(draw.gks, {}, page.y_name);
    left -= (kYNameGap + kTurnedNameGap) * page.char_height;
    if (page.y_name_turned) left = std::min(left, page.area_x - kYNameTurned * page.char_height);
    left -= letters.ymax - letters.ymin;
  }
  return page.area_x - left + kEdge;
}

void dgGraf(PlotDraw draw, float x_origin, float x_step, float x_end, float y_origin, float y_step, float y_end) {
  SetApart(x_origin, x_step, x_end);
  SetApart(y_origin, y_step, y_end);
  PlotPage& page = draw.page;
  page.x_origin = x_origin;
  page.x_step = x_step;
  page.x_end = x_end;
  page.y_origin = y_origin;
  page.y_step = y_step;
  page.y_end = y_end;
  page.log_y = false;
  DrawGraph(draw);
}

void dgGrafLog(PlotDraw draw, float x_origin, float x_step, float x_end, float y_min, float y_max) {
  if (!(y_min > 0.0F && y_min < y_max && std::isfinite(y_max))) {
    SayLine(draw.platform.console, kInvalidLog);
    Say(draw.platform.console, kMin, Shown{y_min});
    Say(draw.platform.console, kMax, Shown{y_max});
    y_min = 1.0F;
    y_max = 10.0F;
  }
  SetApart(x_origin, x_step, x_end);
  PlotPage& page = draw.page;
  page.x_origin = x_origin;
  page.x_step = x_step;
  page.x_end = x_end;
  page.y_origin = std::log10(y_min);
  page.y_step = 1.0F;
  page.y_end = std::log10(y_max);
  SetApart(page.y_origin, page.y_step, page.y_end);
  page.log_y = true;
  DrawGraph(draw);
}

void dgZeroLines(PlotDraw draw, bool vertical, bool horizontal) {
  const PlotPage& page = draw.page;
  const Axis x = XAxis(page, 1), y = YAxis(page, 1);
  const auto inside = [](const Axis& axis) {
    return std::min(axis.origin, axis.end) < 0.0F && std::max(axis.origin, axis.end) > 0.0F;
  };
  const SelectedTransform on_page(draw.gks, kPageTransform);
  const SavedAttributes saved(draw.gks);
  GSLN(draw.gks, 3);
  if (vertical && inside(x)) Line(draw, ToPage(x, 0), page.area_y, ToPage(x, 0), page.area_y + page.area_height);
  if (horizontal && !y.log && inside(y))
    Line(draw, page.area_x, ToPage(y, 0), page.area_x + page.area_width, ToPage(y, 0));
}

void dgGrid(PlotDraw draw, int x_count, int y_count) {
  const PlotPage& page = draw.page;
  const SelectedTransform on_page(draw.gks, kPageTransform);
  if (x_count != 0) GridLines(draw, true, XAxis(page, x_count < 0 ? page.x_ticks : x_count));
  if (y_count != 0) GridLines(draw, false, YAxis(page, y_count < 0 ? page.y_ticks : y_count));
}

void dgBlank(PlotDraw draw, float x, float y, float width, float height, float frame) {
  if (!(width > 0.0F && height > 0.0F)) return;
  PlotPage& page = draw.page;
  page.grid_x0 = page.area_x + x;
  page.grid_y0 = page.area_y + y;
  page.grid_x1 = page.grid_x0 + width;
  page.grid_y1 = page.grid_y0 + height;
  page.blanked = true;
  if (frame < 0.0F) return;
  const SelectedTransform on_page(draw.gks, kPageTransform);
  const std::array<float, 5> xs = {page.grid_x0, page.grid_x1, page.grid_x1, page.grid_x0, page.grid_x0};
  const std::array<float, 5> ys = {page.grid_y0, page.grid_y0, page.grid_y1, page.grid_y1, page.grid_y0};
  GPL(draw.gks, xs, ys);
}

}  // namespace zaview
