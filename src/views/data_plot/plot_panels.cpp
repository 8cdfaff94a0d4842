// Panels of an analysis: one below the other with one horizontal axis, or one of them alone.
#include "views/data_plot/plot_panels.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <string>
#include <vector>

#include "gks/plot/page_heading.h"
#include "gks/plot/page_text.h"
#include "views/state/axes_limits.h"
#include "views/state/plot_kinds.h"

namespace zaview {

namespace {

constexpr float kGap = 0.8F;   // page units between panels: tick labels and a name
constexpr float kFoot = 0.8F;  // page units below the lowest one
constexpr float kLeastPanel = 0.4F;
constexpr float kLegendGap = 0.12F;  // page units beside the area
constexpr float kPointSize = 3.0F;   // of markers
constexpr int kDot = 15;             // marker
constexpr int kDashed = 1;           // of SetDash
constexpr int kBandColour = 3;

const std::vector<ResultPanel>& PanelsOf(const DataPlotState& plot) {
  return ShownPanels(plot).panels;
}

bool ShowsAll(const DataPlotState& plot) {
  return PanelsOf(plot).size() > 1 && (RowOf(plot.kind).makes_panels || plot.plot_component == 0);
}

// The one that mouse and axes are of: the chosen one, of all of them the lowest. There is one.
const ResultPanel& PanelOf(const DataPlotState& plot) {
  const std::vector<ResultPanel>& panels = PanelsOf(plot);
  if (ShowsAll(plot) || RowOf(plot.kind).makes_panels) return panels.back();
  return panels[static_cast<std::size_t>(std::clamp(plot.plot_component, 1, static_cast<int>(panels.size()))) - 1];
}

void AddCurves(const ResultPanel& panel, std::vector<DrawnCurve>& curves) {
  int index = 0;
  for (const ResultCurve& curve : panel.curves) curves.push_back({++index, curve.x, curve.y});
}

struct Span {
  float low = std::numeric_limits<float>::infinity(), high = -std::numeric_limits<float>::infinity();
  void Take(const std::vector<float>& values) {
    for (const float value : values)
      if (std::isfinite(value)) low = std::min(low, value), high = std::max(high, value);
  }
  [[nodiscard]] bool empty() const { return !(low <= high); }
};

void TakeX(const ResultPanel& panel, Span& x) {
  for (const ResultCurve& curve : panel.curves) x.Take(curve.x);
}

// Whole decades, one at least.
void TakeDecades(PlotLimits& limits) {
  limits.y_min = std::floor(limits.y_min);
  limits.y_max = std::max(std::ceil(limits.y_max), limits.y_min + 1.0F);
  limits.y_step = 1.0F;
}

// Limits of a panel in an area of this height; x as given.
PlotLimits LimitsOf(const ResultPanel& panel, const Span& x, AxesLength length) {
  Span y;
  for (const ResultCurve& curve : panel.curves) y.Take(curve.y);
  PlotLimits limits;
  if (!x.empty()) limits.x_min = x.low, limits.x_max = x.high;
  if (!y.empty()) limits.y_min = y.low, limits.y_max = y.high;
  RoundX(limits, length.x);
  if (panel.log_y) TakeDecades(limits);
  else RoundY(limits, length.y);
  return limits;
}

// Panels of one horizontal axis share its limits with the lowest.
bool SharesAxis(const DataPlotState& plot, const ResultPanel& panel) {
  return panel.x_name == PanelOf(plot).x_name;
}

// ---- Drawing
// What is in force between two values of x: a dashed line at either end, a thick one along the axis.
void DrawBands(const DataPlotState& plot, const ResultPanel& panel, PlotDraw draw) {
  constexpr float kThick = 0.06F;
  const float low = draw.page.y_origin, high = draw.page.y_end;
  const float axis = std::min(low, high) <= 0.0F && std::max(low, high) >= 0.0F ? 0.0F : low;
  dgColour(draw, ColourOf(plot, kBandColour));
  for (const auto& [from, to] : panel.bands) {
    SetDash(draw, kDashed);
    for (const float x : {from, to}) {
      const float at[] = {x, x}, y[] = {low, high};
      dgCurve(draw, at, y, 0);
    }
    SetDash(draw, 0);
    dgThickness(draw, kThick);
    const float x[] = {from, to}, y[] = {axis, axis};
    dgCurve(draw, x, y, 0);
    dgThickness(draw, 0);
  }
}

// A line is parted where there is no value.
void DrawParts(PlotDraw draw, const ResultCurve& curve, int mode) {
  const std::size_t n = std::min(curve.x.size(), curve.y.size());
  const auto is_there = [&](std::size_t i) { return std::isfinite(curve.x[i]) && std::isfinite(curve.y[i]); };
  for (std::size_t first = 0; first < n;) {
    std::size_t end = first;
    while (end < n && is_there(end)) ++end;
    const std::span x(curve.x.data() + first, end - first), y(curve.y.data() + first, end - first);
    if (mode == 0 && end > first) DrawThinned(draw, x, y);
    else if (end > first) dgCurve(draw, x, y, mode);
    first = end + 1;
  }
}

// Of points the size of the dots, of lines their dash.
PageNote NoteOf(const PlotLook& look, const DataPlotState& plot, const ResultPanel& panel, int index) {
  const ResultCurve& curve = panel.curves[static_cast<std::size_t>(index - 1)];
  PageNote note{curve.name, ColourOf(plot, index + 1)};
  if (curve.style == ResultStyle::points || plot.mark_every < 0) note.dot = kPointSize * plot.mark_size;
  else if (curve.style == ResultStyle::dashed) note.dash = kDashed;
  else if (panel.curves.size() > 1 && (look.dashed || !plot.colour_on)) note.dash = (index - 1) % kDashes;
  return note;
}

void DrawPanelCurve(const DataPlotState& plot, PlotDraw draw, const ResultCurve& curve, const PageNote& note) {
  dgColour(draw, note.colour);
  if (note.dot > 0.0F) {
    dgMarkerType(draw, kDot);
    dgMarkerScale(draw, note.dot);
    return DrawParts(draw, curve, -1);
  }
  dgCurveThickness(draw, plot.line_thickness);
  SetDash(draw, note.dash);
  if (note.dash == 0 || LookOf(draw.gks).dashed) DrawParts(draw, curve, 0);
  else dgCurve(draw, curve.x, curve.y, 0);
  SetDash(draw, 0);
  dgThickness(draw, 0);
}

void DrawPanel(const DataPlotState& plot, PlotDraw draw, const ResultPanel& panel) {
  DrawBands(plot, panel, draw);
  int index = 0;
  for (const ResultCurve& curve : panel.curves)
    DrawPanelCurve(plot, draw, curve, NoteOf(LookOf(draw.gks), plot, panel, ++index));
  dgColour(draw, 1);
}

void AddNotes(const PlotLook& look, const DataPlotState& plot, const ResultPanel& panel, std::vector<PageNote>& notes) {
  int index = 0;
  for (const ResultCurve& curve : panel.curves) {
    ++index;
    if (!curve.name.empty()) notes.push_back(NoteOf(look, plot, panel, index));
  }
  for (const std::string& note : panel.notes) notes.push_back({note});
}

std::vector<PageNote> NotesOf(const PlotLook& look, const DataPlotState& plot, const ResultPanel& panel) {
  std::vector<PageNote> notes;
  if (plot.legend != LegendUse::off) AddNotes(look, plot, panel, notes);
  return notes;
}

// What the widest of the legends needs right of the areas.
float LegendWidth(const DataPlotState& plot, PlotDraw draw, float letters) {
  float width = 0;
  for (const ResultPanel& panel : PanelsOf(plot))
    if (const std::vector<PageNote> notes = NotesOf(LookOf(draw.gks), plot, panel); !notes.empty())
      width = std::max(width, SizeOfNotes(draw, notes, letters).width + 2.0F * kLegendGap);
  return width;
}

// Of the legends, smaller where they would leave little to areas that fill the page.
float LegendLetters(const DataPlotState& plot, PlotDraw draw) {
  constexpr float kMost = 0.38F, kSmallest = 0.6F;  // of the page, of their size
  const float width = LegendWidth(plot, draw, plot.annot_size), room = kMost * draw.page.page_width;
  if (!LookOf(draw.gks).fills_page || !(width > room)) return plot.annot_size;
  return plot.annot_size * std::max(room / width, kSmallest);
}

// Right of the area, from its top.
void DrawLegend(const DataPlotState& plot, const ResultPanel& panel, PlotDraw draw) {
  const PlotPage& page = draw.page;
  const std::vector<PageNote> notes = NotesOf(LookOf(draw.gks), plot, panel);
  if (!notes.empty())
    PaperNotes(draw, notes, page.area_x + page.area_width + kLegendGap, page.area_y + page.area_height,
               LegendLetters(plot, draw));
}

PlotLimits StackLimits(const DataPlotState& plot, const ResultPanel& panel, AxesLength length) {
  Span x;
  TakeX(panel, x);
  PlotLimits limits = LimitsOf(panel, x, length);
  if (SharesAxis(plot, panel)) {
    limits.x_min = plot.axes.limits.x_min;
    limits.x_step = plot.axes.limits.x_step;
    limits.x_max = plot.axes.limits.x_max;
  }
  return limits;
}

bool NamedBelow(const PlotLook& look, const std::vector<ResultPanel>& panels, std::size_t i) {
  return look.panel_gap > 0.0F && i + 1 < panels.size() && panels[i].x_name == panels[i + 1].x_name;
}

struct Stack {  // page units
  float top = 0, width = 0, height = 0;
  std::vector<float> gaps;  // below each panel
};

Stack StackOf(const DataPlotState& plot, PlotDraw draw) {
  const PlotPage& page = draw.page;
  const std::vector<ResultPanel>& panels = PanelsOf(plot);
  Stack stack{
      page.area_y + page.area_height,
      std::min(page.area_width, page.page_width - page.area_x - LegendWidth(plot, draw, LegendLetters(plot, draw))),
      0,
      {}};
  const PlotLook& look = LookOf(draw.gks);
  int narrow = 0;
  for (std::size_t i = 0; i < panels.size(); ++i) {
    const bool is_narrow = NamedBelow(look, panels, i);
    stack.gaps.push_back(is_narrow ? look.panel_gap : kGap);
    narrow += is_narrow ? 1 : 0;
  }
  const auto count = static_cast<float>(panels.size()), narrow_gaps = static_cast<float>(narrow);
  const float gaps = kGap * (count - 1.0F - narrow_gaps) + look.panel_gap * narrow_gaps;
  stack.height = std::max((stack.top - kFoot - gaps) / count, kLeastPanel);
  return stack;
}

// The labels of all panels have room where the area takes what they leave.
void MakeRoomForAll(const DataPlotState& plot, PlotDraw draw) {
  if (!LookOf(draw.gks).fills_page) return;
  const Stack stack = StackOf(plot, draw);
  for (const ResultPanel& panel : PanelsOf(plot)) {
    const PlotLimits limits = StackLimits(plot, panel, {stack.width, stack.height});
    MakeRoomLeft(draw, limits.y_min, limits.y_step, limits.y_max, panel.log_y);
  }
}

// All panels, from the top of the area that was set up for one down to the foot of the page.
void DrawStack(const DataPlotState& plot, PlotDraw draw, const PanelFrame& frame) {
  MakeRoomForAll(plot, draw);
  const float left = draw.page.area_x;
  const Stack stack = StackOf(plot, draw);
  const std::vector<ResultPanel>& panels = PanelsOf(plot);
  float top = stack.top;
  for (std::size_t i = 0; i < panels.size(); ++i) {
    const ResultPanel& panel = panels[i];
    const PlotLimits limits = StackLimits(plot, panel, {stack.width, stack.height});
    dgAreaAt(draw, left, top - stack.height, stack.width, stack.height);
    dgCharHeight(draw, plot.text_size);  // a legend may have smaller letters
    const bool below = NamedBelow(LookOf(draw.gks), panels, i);
    const std::string y_name = CutToWidth(draw, panel.y_name, plot.text_size, stack.height + stack.gaps[i] / 2.0F);
    frame.axes(plot, {below ? std::string_view() : panel.x_name, y_name, panel.log_y}, limits, draw);
    DrawPanel(plot, draw, panel);
    DrawLegend(plot, panel, draw);
    top -= stack.height + stack.gaps[i];
  }
}

}  // namespace

const ResultPlot& ShownPanels(const DataPlotState& plot) {
  return RowOf(plot.kind).makes_panels ? plot.derived.panels : plot.result;
}

bool HasLogAxis(const DataPlotState& plot) {
  return (RowOf(plot.kind).makes_panels || plot.kind == PlotKind::result) && !PanelsOf(plot).empty() &&
         PanelOf(plot).log_y;
}

void PanelCurves(const DataPlotState& plot, std::vector<DrawnCurve>& curves) {
  if (!PanelsOf(plot).empty()) AddCurves(PanelOf(plot), curves);
}

void FitPanels(const DataPlotState& plot, PlotLimits& limits) {
  if (PanelsOf(plot).empty()) return;
  Span x;
  if (ShowsAll(plot)) {
    for (const ResultPanel& panel : PanelsOf(plot))
      if (SharesAxis(plot, panel)) TakeX(panel, x);
  } else TakeX(PanelOf(plot), x);
  limits = LimitsOf(PanelOf(plot), x, LengthOf(plot));
}

void PanelNames(const PlotFacts&, const DataPlotState& plot, PlotNames& names) {
  if (PanelsOf(plot).empty()) return;
  names.x = PanelOf(plot).x_name;
  names.y = PanelOf(plot).y_name;
  names.title = ShownPanels(plot).title;
}

void PanelNotes(const PlotFacts& facts, const DataPlotState& plot, std::vector<PageNote>& notes) {
  if (!PanelsOf(plot).empty() && !ShowsAll(plot)) AddNotes(facts.look, plot, PanelOf(plot), notes);
}

void DrawPanels(const PlotFacts&, const DataPlotState& plot, PlotDraw draw) {
  DrawPanel(plot, draw, PanelOf(plot));
}

bool DrawAllPanels(const DataPlotState& plot, PlotDraw draw, const PanelFrame& frame) {
  if (PanelsOf(plot).empty() || !ShowsAll(plot)) return false;
  DrawStack(plot, draw, frame);
  return true;
}

}  // namespace zaview
