#include "views/motion/motion_overlay.h"

#include <algorithm>
#include <cstddef>
#include <string>

#include <fmt/format.h>

#include "base/text.h"
#include "views/motion/motion_events.h"
#include "views/motion/motion_graphs.h"
#include "views/state/popup.h"

namespace zaview {

namespace {

constexpr float kPageWidth = 11.0F, kPageHeight = 8.5F;
constexpr float kPageMargin = 0.01F;  // of the window
constexpr std::string_view kTime = "Time=";

std::string TitleOf(const CaseStore& store) {
  const std::string_view title = Trim(store.control.DESCR);
  return std::string(title.empty() ? std::string_view(store.base_name) : title);
}

// "Time=" and its number, as wide at every step.
std::string TimeText(const PlotFacts& facts, int step) {
  const int decimals = TimeDecimals(facts);
  const auto text = [&](int of) { return fmt::format("{:.{}f}", OutputTime(facts, of), decimals); };
  const std::size_t width = std::max(text(facts.store.first_step).size(), text(facts.store.last_step).size());
  return fmt::format("{}{:>{}}", kTime, text(step), width);
}

struct HeadingPlace {
  float left = 0, right = 0, top = 0;
};

// Between the upper graphs if the title has room there, else below them.
HeadingPlace PlaceOfHeading(const MotionViewState& view, float title_width, PlotDraw draw) {
  const float margin = kPageMargin * draw.page.page_width;
  const PageBox first = PlaceOfGraph(0, 0, draw), second = PlaceOfGraph(1, 0, draw);
  const HeadingPlace below{margin, draw.page.page_width - margin, first.y};
  HeadingPlace place{below.left, below.right, first.y + first.height};
  if (view.graphs[5].on) return below;
  if (view.graphs[0].on) place.left += first.x + first.width;
  if (view.graphs[1].on) place.right = second.x - margin;
  // In the middle of the window all the same.
  const float half = std::min(0.5F * draw.page.page_width - place.left, place.right - 0.5F * draw.page.page_width);
  place.left = 0.5F * draw.page.page_width - half;
  place.right = 0.5F * draw.page.page_width + half;
  return title_width <= place.right - place.left ? place : below;
}

void DrawHeadings(const MotionViewState& view, const PlotFacts& facts, PlotDraw draw) {
  const float height = view.text_size;
  std::string title = view.show_title ? TitleOf(facts.store) : std::string{};
  const HeadingPlace place = PlaceOfHeading(view, TextWidth(draw, title, height), draw);
  const float middle = 0.5F * (place.left + place.right);
  float y = place.top;
  if (!title.empty()) {
    y -= LinePitch(draw, height);
    title = CutToWidth(draw, title, height, place.right - place.left);
    ClearText(draw, title, middle, y, height, TextSide::centre);
  }
  if (!view.show_time) return;
  const float width = TextWidth(draw, TimeText(facts, facts.store.last_step), view.text_size);
  y -= LinePitch(draw, view.text_size);
  ClearText(draw, TimeText(facts, facts.store.current_step), middle - 0.5F * width, y, view.text_size, TextSide::left);
}

}  // namespace

void SetMotionPage(PlotDraw draw) {
  const float W = static_cast<float>(draw.gks.window.width), H = static_cast<float>(draw.gks.window.height);
  const float unit = std::min(W / kPageWidth, H / kPageHeight);
  dgNoFrame(draw);
  dgPage(draw, W / unit, H / unit);
  dgArea(draw, W / unit, H / unit);
}

void DrawMotionOverlay(const MotionViewState& view, const PlotFacts& facts, PlotDraw draw) {
  SetMotionPage(draw);
  SetOverlayColours(draw);
  dgSelectGraf(draw, 0);
  DrawMotionGraphs(view, facts, EventBarDepth(view, draw), draw);
  DrawEventBar(view, facts, draw);
  DrawHeadings(view, facts, draw);
  DrawPopup(view.popup, kMotionPopup, draw);
}

}  // namespace zaview
