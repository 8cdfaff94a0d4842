#include "views/motion/motion_overlay.h"

#include <cmath>
#include <string>

#include "plot_view.h"
#include "views/motion/motion_events.h"
#include "views/motion/motion_graphs.h"

namespace zaview {
namespace {

constexpr int kRed = 2, kOtherPaper = 30;

struct OverlayView : PlotView {  // over nothing, 1 m of heave with a period of 10 s
  MotionViewState& view = session.motion_view;

  explicit OverlayView(const std::string& sample = "forced_heave.out") : PlotView(sample, 1100, 850) {
    view.show_title = view.show_time = false;
  }
  MotionGraph& Graph(std::size_t i, int iqnt, int curve) {
    MotionGraph& graph = view.graphs[i];
    graph = MotionGraph{};
    graph.on = true;
    graph.request.iqnt = iqnt;
    graph.request.curve = curve;
    graph.colour = kRed;
    graph.time_bar = false;
    return graph;
  }
  void Update() { UpdateMotionGraphs(SourceOf(session), view); }
  void Draw() {
    Update();
    gksBeginPicture(session.platform.window, session.gks);
    const PlotDraw draw{session.platform, session.gks, session.page};
    ASSERT_TRUE(dgFrame(draw, 2));
    SetMotionPage(draw);
    GSCR(session.platform.console, session.gks, kOtherPaper, {0, 1, 0});
    UsePen(draw, kOtherPaper);
    const float x[] = {0, 11, 11, 0}, y[] = {0, 0, 8.5F, 8.5F};
    if (scene) GFA(session.gks, x, y);
    DrawMotionOverlay(view, FactsOf(session), draw);
    ASSERT_TRUE(dgFrame(draw, -3));
    Picture::Read(session.platform, session.gks);
  }
  Box Red() const {
    return BoxOf([](unsigned c) { return (c >> 16U) > 100 && (c & 0xFFFFU) < 0x1000 ? 1.0 : 0.0; });
  }
  Box White() const {
    return BoxOf([](unsigned c) { return c == 0xFFFFFF ? 1.0 : 0.0; });
  }
  bool scene = false;
};

TEST(MotionGraphs, EachInItsPartOfTheWindow) {
  const double at[kGraphs][2] = {{.01, .76}, {.68, .76}, {.01, .01}, {.68, .01}, {.345, .01}, {.345, .76}};
  for (std::size_t i = 0; i < kGraphs; ++i) {
    OverlayView v;
    v.scene = true;
    v.Graph(i, 1, 3);
    v.Draw();
    const Box paper = v.Pixels(0);  // black on the scene's green
    EXPECT_NEAR(paper.left, at[i][0] * 1100, 2) << i;
    EXPECT_NEAR(paper.right, (at[i][0] + .31) * 1100, 2) << i;
    EXPECT_NEAR(paper.bottom, 850 - at[i][1] * 850, 2) << i;
    EXPECT_NEAR(paper.top, 850 - (at[i][1] + .23) * 850, 2) << i;
    const Box curve = v.Red();
    EXPECT_GT(curve.count, 300) << i;
    EXPECT_TRUE(curve.left > paper.left && curve.right < paper.right && curve.top > paper.top &&
                curve.bottom < paper.bottom)
        << i;
    v.view.graphs[i].blank = false;
    v.Draw();
    EXPECT_LT(v.Pixels(0).count, 6000) << i << ": edges of texts and curve alone";
  }
}

// Limits -1 and 1 are the lower and upper edge of the area; the curve runs from edge to edge in time.
TEST(MotionGraphs, CurveBarAndMarkStandWhereTheStepIs) {
  OverlayView v;
  MotionGraph& graph = v.Graph(0, 4, 3);
  v.Draw();
  const Box whole = v.Red();
  EXPECT_EQ(graph.y_low, -1.0F);
  EXPECT_EQ(graph.y_high, 1.0F);
  graph.colour = 0;  // the paper's: bar and mark alone are left, frame and texts apart
  CaseStore& store = v.session.case_store;
  const auto added = [&](bool MotionGraph::*look) {  // where pixels become white with it
    graph.*look = false;
    v.Draw();
    const OverlayView::Picture before = v;
    graph.*look = true;
    v.Draw();
    Box box;
    for (int y = 0; y < v.height; ++y)
      for (int x = 0; x < v.width; ++x)
        if (v.At(x, y) > before.At(x, y) + 0x404040U) box.x += x, box.y += y, ++box.count;
    box.x /= box.count, box.y /= box.count;
    graph.*look = false;
    return box;
  };
  const int steps = store.last_step - store.first_step;
  for (const int step : {store.first_step + steps / 4, store.first_step + 2 * steps / 3}) {
    store.current_step = step;
    const double part = static_cast<double>(step - store.first_step) / steps;
    const double x = whole.left + part * (whole.right - whole.left);
    const double heave = std::sin(2 * M_PI * static_cast<double>(OutputTime(FactsOf(v.session), step)) / 10);
    const double middle = 0.5 * (whole.top + whole.bottom), half = 0.5 * (whole.bottom - whole.top);
    EXPECT_NEAR(added(&MotionGraph::time_bar).x, x, 1.5) << step;
    const Box mark = added(&MotionGraph::mark);
    EXPECT_GE(mark.count, 20) << step;
    EXPECT_NEAR(mark.x, x, 2) << step;
    EXPECT_NEAR(mark.y, middle - half * heave, 2.5) << step;
  }
}

TEST(MotionGraphs, AScrollingOneShowsNothingOfTheFuture) {
  OverlayView v;
  MotionGraph& graph = v.Graph(0, 4, 3);
  v.Draw();
  const Box whole = v.Red();
  graph.scroll = true;
  graph.scroll_time = 20;
  CaseStore& store = v.session.case_store;
  store.current_step = store.first_step;
  v.Draw();
  EXPECT_LE(v.Red().count, 3);
  const double step = static_cast<double>(OutputTime(FactsOf(v.session), store.first_step + 1));
  store.current_step += static_cast<int>(std::lround(10 / step));  // half of its time
  v.Draw();
  EXPECT_NEAR(v.Red().right, whole.right, 1);
  EXPECT_NEAR(v.Red().left, 0.5 * (whole.left + whole.right), 2.5);
}

TEST(MotionGraphs, DataAreMadeOnce) {
  OverlayView v;
  MotionGraph& graph = v.Graph(1, 1, 3);
  v.Update();
  const std::vector<float> made = graph.data.y[0];
  const auto again = [&] {
    graph.data.y[0][0] = 123;
    v.Update();
    return graph.data.y[0][0] != 123;
  };
  EXPECT_FALSE(again());
  v.session.case_store.current_step += 5;
  graph.scroll = graph.mark = true;
  EXPECT_FALSE(again());
  v.session.output.units.scales.position[2] *= 2;
  EXPECT_TRUE(again());
  EXPECT_EQ(graph.data.y[0][7], 2 * made[7]);
  ++v.session.case_store.first_step;
  EXPECT_TRUE(again());
  EXPECT_EQ(graph.data.y[0].size(), made.size() - 1);
}

TEST(MotionGraphs, WhatTheCaseLacksIsSwitchedOff) {
  OverlayView v;
  v.Graph(0, 19, 1);  // loads at Y cuts
  v.Graph(2, 1, 7);   // there are six
  v.Graph(3, 1, 3);
  v.Update();
  EXPECT_EQ(
      v.fake.output,
      "Graph 1 is switched off : no such data in this case\nGraph 3 is switched off : no such data in this case\n");
  EXPECT_FALSE(v.view.graphs[0].on || v.view.graphs[2].on);
  EXPECT_TRUE(v.view.graphs[3].on);
}

TEST(MotionOverlay, TitleAndTime) {
  OverlayView v;
  v.Draw();
  EXPECT_EQ(v.White().count, 0);
  v.view.show_time = true;
  v.Draw();
  const Box time = v.White();
  EXPECT_LT(time.bottom, 30);
  EXPECT_NEAR(0.5 * (time.left + time.right), 550, 6);
  v.session.case_store.current_step = v.session.case_store.last_step;
  v.Draw();
  EXPECT_EQ(v.White().left, time.left) << "as wide at every step";
  v.view.show_title = true;
  v.Draw();
  EXPECT_GT(v.White().bottom, time.bottom + 8);
  EXPECT_NEAR(0.5 * (v.White().left + v.White().right), 550, 4);
  v.Graph(5, 1, 3).colour = 0;
  const float size = v.view.text_size;
  v.Draw();
  const Box small = v.White();
  EXPECT_GT(small.bottom, 850 - .76 * 850) << "below the graph between the others";
  v.view.text_size = 2 * size;
  v.Draw();
  EXPECT_GT(v.White().bottom, small.bottom + 8);
}

TEST(MotionOverlay, DecimalsOfTheTime) {
  const struct {
    double step;
    int decimals;
  } cases[] = {{0.5, 2}, {0.25, 2}, {0.05, 2}, {0.125, 3}, {0.0125, 4}, {2, 2}, {0.2497, 2}, {1e-9, 6}};
  OverlayView v;
  CaseStore& store = v.session.case_store;
  v.session.output.units.scales.T = 1;
  for (const auto& c : cases) {
    std::vector<float>& time = store.time.component[0];
    for (std::size_t i = 0; i < time.size(); ++i) time[i] = static_cast<float>(c.step * static_cast<double>(i));
    EXPECT_EQ(TimeDecimals(FactsOf(v.session)), c.decimals) << c.step;
  }
}

TEST(MotionOverlay, BarOfEvents) {
  OverlayView v("roll_decay.out");
  const CaseStore& store = v.session.case_store;
  UpdateMotionEvents(SourceOf(v.session), v.view);
  ASSERT_EQ(v.view.events.list.size(), 2U) << v.fake.output;
  v.Draw();
  EXPECT_EQ(v.White().count, 0) << "off at first";
  v.view.show_events = true;
  const PlotDraw draw{v.session.platform, v.session.gks, v.session.page};
  for (const int step : {store.first_step, store.first_step + 70, store.last_step}) {
    v.session.case_store.current_step = step;
    v.Draw();
    const Box tick = v.BoxOf([](unsigned c) { return (c >> 16U) > 0xC0 && (c & 0xFFU) < 0x20 ? 1.0 : 0.0; });
    EXPECT_GT(tick.count, 20);
    Box mark;  // of the current step, below the line
    for (int x = 0; x < v.width; ++x)
      if (v.At(x, v.height - 4) == 0xFFFFFF && x > 30 && x < v.width - 45) mark.x += x, ++mark.count;
    const float x = static_cast<float>(mark.x / mark.count / 100);
    EXPECT_NEAR(StepOnEventBar(v.view, FactsOf(v.session), x, 0.05F, draw), step, 1) << step;
  }
  EXPECT_EQ(StepOnEventBar(v.view, FactsOf(v.session), 5, 4, draw), 0);
  EXPECT_EQ(StepOnEventBar(v.view, FactsOf(v.session), 0.01F, 0.05F, draw), 0);

  v.view.events.list.clear();
  UpdateMotionEvents(SourceOf(v.session), v.view);
  EXPECT_TRUE(v.view.events.list.empty()) << "made once";
  v.view.mark_point = true;
  UpdateMotionEvents(SourceOf(v.session), v.view);
  EXPECT_EQ(v.view.events.list.size(), 2U);
}

}  // namespace
}  // namespace zaview
