#include "views/motion/motion_events.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "analysis/run_events.h"
#include "case/case_hull.h"
#include "case/point_motion.h"
#include "geometry/deck_edge.h"
#include "gks/kernel/gks_draw.h"
#include "views/motion/motion_graphs.h"

namespace zaview {

namespace {

constexpr double kReferenceLength = 1;  // of what is non-dimensional

PlotDataKey KeyOf(const MotionViewState& view, const PlotSource& source) {
  const CaseStore& store = source.store;
  PlotDataKey key;
  key.subject.kind = PlotKind::history;
  key.subject.case_serial = store.serial;
  key.subject.component = view.mark_point ? 1 : 0;
  if (view.mark_point) key.subject.point = source.output.point.point;
  key.records.push_back({store.serial, store.first_step, store.last_step});
  return key;
}

double LengthOf(const ClosedHull& hull) {
  const auto [aft, fore] = std::minmax_element(hull.vertices.begin(), hull.vertices.end(),
                                               [](const Vector3& a, const Vector3& b) { return a[0] < b[0]; });
  return hull.vertices.empty() ? 0.0 : (*fore)[0] - (*aft)[0];
}

bool ClosedHullOf(const PlotSource& source, ClosedHull& hull) {
  return EnsureHull(source.platform, source.store) && CloseHull(source.store.hull, kReferenceLength, hull) &&
         LengthOf(hull) > 0;
}

void MakeEvents(const PlotSource& source, const MotionViewState& view, std::vector<RunEvent>& events) {
  CaseStore& store = source.store;
  const auto used = [&store](const StepHistory& history, int component) {
    return history.range(component, store.first_step, store.last_step);
  };
  RunHistories run;
  run.first_step = store.first_step;
  run.time = used(store.time, 1);
  run.roll = used(store.pmgg, 4);
  run.pitch = used(store.pmgg, 5);
  run.gaps = store.gaps;
  ClosedHull hull;
  const bool has_hull = ClosedHullOf(source, hull);
  if (has_hull) run.slam_velocity *= std::sqrt(LengthOf(hull));
  const bool waves = (has_hull || view.mark_point) && EnsureSeaway(source.console(), store) == WaveAnswer::ok;
  if (waves && view.mark_point && NodePointMot(source.console(), source.output, source.output.point.point, store) &&
      RelativePointMot(source.console(), store) == WaveAnswer::ok)
    run.point_immersion = used(store.point_motion, 13);
  std::vector<Vector3> edge;
  std::vector<float> deck;
  if (waves && has_hull && FindDeckEdge(hull, kReferenceLength, edge) && !edge.empty() &&
      DeckImmersion(source.console(), store, edge, deck) == WaveAnswer::ok)
    run.deck_immersion = deck;
  (void)FindEvents(run, events);  // as many as there was memory for
}

// ---- The bar
constexpr float kTick = 0.6F, kGap = 0.3F, kDescent = 0.25F;  // letter heights
constexpr float kMargin = 0.01F;                              // of the window

constexpr int kPens[] = {2, 6, 9, 9, 4, 4};  // by RunEventKind: red, cyan, orange, blue

struct BarPlace {
  float letter = 0, left = 0, right = 0, y = 0;  // of its line
  double t0 = 0, t1 = 1;
  std::string first, last;
};

BarPlace PlaceOfBar(const MotionViewState& view, const PlotFacts& facts, PlotDraw draw) {
  BarPlace place;
  place.letter = LetterHeight(draw, view.text_size);
  place.t0 = static_cast<double>(OutputTime(facts, facts.store.first_step));
  place.t1 = static_cast<double>(OutputTime(facts, facts.store.last_step));
  place.first = ShortNumber(static_cast<float>(place.t0));
  place.last = ShortNumber(static_cast<float>(place.t1));
  const float margin = kMargin * draw.page.page_width, gap = kGap * place.letter;
  place.left = margin + TextWidth(draw, place.first, view.text_size) + 2 * gap;
  place.right = draw.page.page_width - margin - TextWidth(draw, place.last, view.text_size) - 2 * gap;
  place.y = 2 * gap;
  return place;
}

float XOf(const BarPlace& place, const PlotFacts& facts, int step) {
  const double range = place.t1 - place.t0;
  const double part = range > 0 ? (static_cast<double>(OutputTime(facts, step)) - place.t0) / range : 0.0;
  return place.left + static_cast<float>(part) * (place.right - place.left);
}

void Line(PlotDraw draw, float x0, float y0, float x1, float y1) {
  const float x[] = {x0, x1}, y[] = {y0, y1};
  GPL(draw.gks, x, y);
}

// Ticks of all; letters of the rare events first, then of others where there is room left.
void DrawTicks(const MotionViewState& view, const PlotFacts& facts, const BarPlace& place, PlotDraw draw) {
  const float top = place.y + kTick * place.letter;
  std::vector<float> taken;
  for (const bool frequent : {false, true})
    for (const RunEvent& event : view.events.list) {
      if ((event.kind == RunEventKind::slam || event.kind == RunEventKind::deck_wet) != frequent) continue;
      if (event.step < facts.store.first_step || event.step > facts.store.last_step) continue;
      const float x = XOf(place, facts, event.step);
      UsePen(draw, kPens[static_cast<std::size_t>(event.kind)]);
      Line(draw, x, place.y, x, top);
      const auto near = [&](float other) { return std::abs(other - x) < place.letter; };
      if (std::any_of(taken.begin(), taken.end(), near)) continue;
      taken.push_back(x);
      PageText(draw, std::string_view(&RowOf(event.kind).letter, 1), x, top + kDescent * place.letter, view.text_size,
               TextSide::centre);
    }
}

}  // namespace

void UpdateMotionEvents(const PlotSource& source, MotionViewState& view) {
  PlotDataKey key = KeyOf(view, source);
  if (view.events.made_of == key) return;
  MakeEvents(source, view, view.events.list);
  view.events.made_of = std::move(key);
}

float EventBarDepth(const MotionViewState& view, PlotDraw draw) {
  return view.show_events ? (2 * kGap + kTick + 1 + kDescent) * LetterHeight(draw, view.text_size) : 0.0F;
}

void DrawEventBar(const MotionViewState& view, const PlotFacts& facts, PlotDraw draw) {
  if (!view.show_events) return;
  const float depth = EventBarDepth(view, draw);
  PlainPaper(draw, 0, 0, draw.page.page_width, depth);
  const BarPlace place = PlaceOfBar(view, facts, draw);
  const float gap = kGap * place.letter, base = place.y - kDescent * place.letter;
  dgSelectGraf(draw, 0);
  dgThickness(draw, 0);
  UsePen(draw, kInkColour);
  Line(draw, place.left, place.y, place.right, place.y);
  PageText(draw, place.first, place.left - gap, base, view.text_size, TextSide::right);
  PageText(draw, place.last, place.right + gap, base, view.text_size, TextSide::left);
  DrawTicks(view, facts, place, draw);
  UsePen(draw, kInkColour);
  const float x = XOf(place, facts, facts.store.current_step), wide = 0.3F * place.letter;
  const float xs[] = {x, x + wide, x - wide}, ys[] = {place.y, place.y - 2 * wide, place.y - 2 * wide};
  GFA(draw.gks, xs, ys);
  Line(draw, x, place.y, x, depth);
}

int StepOnEventBar(const MotionViewState& view, const PlotFacts& facts, float x, float y, PlotDraw draw) {
  if (!view.show_events || y > EventBarDepth(view, draw)) return 0;
  const BarPlace place = PlaceOfBar(view, facts, draw);
  if (x < place.left - place.letter || x > place.right + place.letter) return 0;
  const auto further = [&](int a, int b) {
    return std::abs(XOf(place, facts, a) - x) > std::abs(XOf(place, facts, b) - x);
  };
  int low = facts.store.first_step, high = facts.store.last_step;
  while (high - low > 1) {
    const int middle = low + (high - low) / 2;
    (XOf(place, facts, middle) <= x ? low : high) = middle;
  }
  return further(low, high) ? high : low;
}

}  // namespace zaview
