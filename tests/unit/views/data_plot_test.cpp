#include "views/data_plot/data_plot.h"

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "../case/small_case.h"
#include "case/quantity_catalogue.h"
#include "gks/plot/page_text.h"
#include "plot_view.h"
#include "views/data_plot/plot_type.h"
#include "views/data_plot/stat_overlay.h"

namespace zaview {
namespace {

constexpr unsigned kWhite = 0xFFFFFF, kRed = 0xFF0000, kGreen = 0x00FF00;

// Steps 5 to 44, shown: component i of quantity 1 is 10 + 5 i + s in metres for i to 3, time 0.25 s.
struct SmallView : PlotView {
  explicit SmallView(int width = 500, int height = 400) : PlotView("", width, height) {
    CaseStore& store = session.case_store;
    store = SmallCase(5, 40);
    AddLoads(store, 5, 40);
    session.output = SettingsFor(store);
  }
};

void ExpectLimits(const PlotLimits& got, const PlotLimits& want, const std::string& row) {
  EXPECT_NEAR(got.x_min, want.x_min, 1e-3) << row;
  EXPECT_NEAR(got.x_step, want.x_step, 1e-3) << row;
  EXPECT_NEAR(got.x_max, want.x_max, 1e-3) << row;
  EXPECT_NEAR(got.y_min, want.y_min, 1e-3) << row;
  EXPECT_NEAR(got.y_step, want.y_step, 1e-3) << row;
  EXPECT_NEAR(got.y_max, want.y_max, 1e-3) << row;
}

TEST(DataPlotAxes, Component) {
  // clang-format off
  const struct Row { PlotKind kind; int iqnt, component; bool all_hidden; int want; } rows[] = {
      {PlotKind::history, 1, 0, false, 0}, {PlotKind::history, 1, 0, true, 1},  // nothing would be left
      {PlotKind::history, 1, 6, true, 6}, {PlotKind::history, 1, 7, false, 0},  // of a quantity with more of them
      {PlotKind::history, 23, 1, false, 0},  // the only one
      {PlotKind::load_dist, 13, 0, false, 0},
  };
  // clang-format on
  SmallView view;
  for (const Row& row : rows) {
    view.Choose(row.kind, row.iqnt, row.component);
    view.plot().hidden.assign(6, row.all_hidden ? 1 : 0);
    zaviewsetaxes(view.session);
    EXPECT_EQ(view.plot().plot_component, row.want) << row.iqnt << ' ' << row.component;
    EXPECT_EQ(view.session.run.plot_module, PlotModule::data_plot);
    if (row.iqnt != 23) continue;  // its heading tells the only curve, though all are shown
    PlotNames names;
    PlotTypeOf(row.kind).names(FactsOf(view.session), view.plot(), names);
    EXPECT_EQ(names.title.substr(names.title.find(',')),
              ", " + CurveLabel(view.session.case_store, view.session.output, 23, 1));
  }
}

TEST(DataPlotAxes, HistoryLimits) {
  // clang-format off
  const struct Row { const char* name; int component; bool by_index, match; int stride; PlotLimits want; } rows[] = {
      {"one", 1, false, false, 1, {1.25F, 1, 11, 20, 10, 60}},  // x as the data have it
      {"by index", 1, true, false, 1, {5, 5, 44, 20, 10, 60}},
      {"every other step by index", 1, true, false, 2, {5, 5, 43, 20, 10, 60}},
      {"matched", 1, false, true, 1, {1.25F, 1, 11, 20, 10, 70}},  // component 3 ends at 69
      {"all", 0, false, false, 1, {1.25F, 1, 11, 20, 10, 70}},
  };
  // clang-format on
  SmallView view;
  // Time steps of 0.25.
  for (std::size_t k = 0; k < 40; ++k)
    view.session.case_store.time.component[0][k] =
        0.25F * static_cast<float>(5 + k) / view.session.output.units.scales.T;
  for (const Row& row : rows) {
    view.session.output.reading.step_stride = row.stride;
    view.Choose(PlotKind::history, 1, row.component);
    view.plot().x_axis_by_index = row.by_index;
    view.plot().match_scales = row.match;
    zaviewsetaxes(view.session);
    PlotLimits want = row.want;
    want.x_step = view.plot().axes.limits.x_step;
    ExpectLimits(view.plot().axes.limits, want, row.name);
  }
}

TEST(DataPlotAxes, FitPassesOverWhatIsNotFinite) {
  SmallView view;
  std::vector<float>& y = view.session.case_store.pmgg.component[0];
  y[0] = std::numeric_limits<float>::quiet_NaN();
  y[39] = std::numeric_limits<float>::infinity();
  view.Make(PlotKind::history, 1, 1);
  PlotLimits limits;
  ASSERT_TRUE(FitAxes(view.plot(), FitOver::all_steps, limits));
  EXPECT_NEAR(limits.y_min, 21, 1e-3);
  EXPECT_NEAR(limits.y_max, 58, 1e-3);
  view.plot().axes.limits.x_min = view.plot().derived.history.x[10];
  view.plot().axes.limits.x_max = view.plot().derived.history.x[20];
  ASSERT_TRUE(FitAxes(view.plot(), FitOver::shown_steps, limits));
  EXPECT_NEAR(limits.y_min, 30, 1e-3);
  EXPECT_NEAR(limits.y_max, 40, 1e-3);
  ASSERT_TRUE(FitAxes(view.plot(), FitOver::all_steps, limits));
  EXPECT_EQ(limits.x_min, view.plot().derived.history.x.front());  // all steps, whatever their values
  EXPECT_EQ(limits.x_max, view.plot().derived.history.x.back());
  y.assign(40, std::numeric_limits<float>::quiet_NaN());
  ForgetData(view.plot());
  zaviewsetaxes(view.session);
  EXPECT_FALSE(FitAxes(view.plot(), FitOver::all_steps, limits));
  view.Show();  // an empty graph, not a failure
}

// What is out of date is known by what it was made of, whoever changed it: no flag is set anywhere.
TEST(DataPlotAxes, DataAndLimitsAreMadeAnewWithWhatTheyDependOn) {
  struct Row {
    const char* name;
    PlotKind kind;
    void (*change)(Session& s);
    bool made, fitted, fitted_if_zoomed;
  };
  using enum PlotKind;
  const Row rows[] = {
      {"nothing", history, [](Session&) {}, false, false, false},
      {"looks", history, [](Session& s) { s.data_plot.grid_on = s.data_plot.numbers_on = true; }, false, false, false},
      {"pan", autocorrelation, [](Session& s) { Pan(s.data_plot.axes, 0.1F, 0); }, false, false, false},
      {"component", history, [](Session& s) { s.data_plot.plot_component = 2; }, false, true, true},
      {"component", histogram, [](Session& s) { s.data_plot.plot_component = 2; }, true, true, true},
      {"cut", load_dist, [](Session& s) { s.data_plot.plot_component = 2; }, false, false, false},
      {"quantity", history, [](Session& s) { s.data_plot.quantity.iqnt = 2; }, true, true, true},
      {"point", history, [](Session& s) { s.data_plot.quantity.point[0] = 3; }, true, true, true},
      {"quantity", trajectory, [](Session& s) { s.data_plot.quantity.iqnt = 2; }, false, false, false},
      {"case", history, [](Session& s) { ++s.case_store.serial; }, true, true, true},
      {"unit", history, [](Session& s) { s.output.units.scales.position.fill(2); }, true, true, true},
      {"sign", trajectory, [](Session& s) { s.output.units.cnvfac[1] = -1; }, true, true, true},
      {"steps", history, [](Session& s) { s.case_store.last_step = 20; }, true, true, false},
      {"skip", histogram, [](Session& s) { s.case_store.skip_effective = 3; }, true, true, false},
      {"wave", trajectory, [](Session& s) { s.data_plot.wave_overlay = true; }, false, false, false},
      {"rate", histogram, [](Session& s) { s.statistics.histogram.rate = 2; }, true, true, false},
      {"rate", autocovariance, [](Session& s) { s.statistics.histogram.rate = 2; }, false, false, false},
      {"cutoff", autocorrelation, [](Session& s) { s.output.statistics.autocorrelation_cutoff = 0.2F; }, true, true,
       false},
      {"step", load_dist, [](Session& s) { s.case_store.current_step = 9; }, false, false, false},
      {"length", history, [](Session& s) { s.data_plot.axis_length.x = 4; }, false, true, false},
      {"aspect", trajectory, [](Session& s) { s.data_plot.keep_aspect = false; }, false, true, false},
      {"matched", history, [](Session& s) { s.data_plot.match_scales = true; }, false, true, false},
      {"another kind", history, [](Session& s) { s.data_plot.kind = trajectory; }, true, true, true},
  };
  constexpr float kMark = -77;
  for (const Row& row : rows) {
    for (const bool zoomed : {false, true}) {
      SmallView view;
      view.Make(row.kind, row.kind == load_dist ? 13 : 1, 1);
      DataPlotState& plot = view.plot();
      plot.derived.history.labels = {"kept"};
      plot.derived.variance = kMark;
      plot.derived.bar_x.assign(1, kMark);
      plot.axes.fitted.y_max = kMark;
      if (zoomed) plot.axes.use = LimitsUse::changed;
      row.change(view.session);
      zaviewsetaxes(view.session);
      const DataPlotDerived& d = plot.derived;
      const bool kept = d.history.labels == std::vector<std::string>{"kept"} && d.variance == kMark &&
                        d.bar_x == std::vector<float>{kMark};
      EXPECT_EQ(kept, !row.made) << row.name << static_cast<int>(row.kind);
      EXPECT_EQ(plot.axes.fitted.y_max != kMark, zoomed ? row.fitted_if_zoomed : row.fitted)
          << row.name << static_cast<int>(row.kind) << zoomed;
    }
  }
}

TEST(DataPlotAxes, LimitsAreKeptOrCarriedOver) {
  SmallView view;
  for (const bool keep : {false, true}) {
    view.plot().keep_scale = keep;
    view.Make(PlotKind::history, 1, 0);
    view.plot().hidden[2] = 1;
    view.plot().axes.limits.y_max = view.plot().axes.fitted.y_max = 1000;
    view.plot().quantity.iqnt = 2;
    zaviewsetaxes(view.session);
    EXPECT_EQ(view.plot().axes.limits.y_max == 1000, keep);
    EXPECT_EQ(view.plot().hidden[2], 0);  // curves of another quantity
    view.plot().axes.limits.y_max = 500;
    Session& s = view.session;
    EXPECT_TRUE(ChangeQuantity(s.platform.console, s.case_store, s.output.point, view.plot(), 1, /*carry=*/true));
    zaviewsetaxes(view.session);
    EXPECT_EQ(view.plot().axes.limits.y_max, 500);
    EXPECT_EQ(view.plot().axes.use, LimitsUse::changed);  // a click outside fits them
  }
}

TEST(DataPlotAxes, ChangeQuantity) {
  // clang-format off
  const struct Row { PlotKind kind; int from, direction, want; bool point = false, missile = false; } rows[] = {
      {PlotKind::history, 1, 1, 2}, {PlotKind::history, 14, 1, 23},  // kinds that the case has not
      {PlotKind::history, 33, 1, 39},  // files and tables only
      {PlotKind::history, 1, -1, 47},  // no missile was given
      {PlotKind::history, 1, -1, 47, true}, {PlotKind::history, 1, -1, 48, true, true},
      {PlotKind::history, 26, 1, 33},  // no point was given
      {PlotKind::history, 26, 1, 27, true}, {PlotKind::load_dist, 14, 1, 23},
      {PlotKind::load_dist, 24, 1, 13},  // round and round
      {PlotKind::load_dist, 13, -1, 24}, {PlotKind::trajectory, 1, 1, 1},
  };
  // clang-format on
  for (const Row& row : rows) {
    SmallView view;
    view.Choose(row.kind, row.from, 0);
    Session& s = view.session;
    s.output.point = {row.point, row.missile, {1, 2, 3}, {1, 0, 0, 0}};
    const bool changed =
        ChangeQuantity(s.platform.console, s.case_store, s.output.point, view.plot(), row.direction, false);
    EXPECT_EQ(view.plot().quantity.iqnt, row.want) << row.from;
    EXPECT_EQ(changed, row.want != row.from);
    EXPECT_EQ(view.plot().quantity.point[1], IsPointQuantity(row.want) && changed ? 2.0 : 0.0);
  }
}

TEST(DataPlotAxes, WhatCannotBeShownLeavesTheView) {
  // clang-format off
  const struct Row { PlotKind kind; int iqnt; const char* said; } rows[] = {
      {PlotKind::history, 15, "ERROR - Quantity 15 not valid for this output file\n"},
      {PlotKind::load_dist, 1, "ERROR - Quantity 1 not valid for this output file\n"},
  };
  // clang-format on
  for (const Row& row : rows) {
    SmallView view;
    view.Choose(row.kind, row.iqnt, 0);
    view.session.run.redraw = true;
    zaviewsetaxes(view.session);
    EXPECT_EQ(view.session.run.plot_module, PlotModule::none);
    EXPECT_FALSE(view.session.run.redraw);
    EXPECT_EQ(view.fake.output, row.said);
  }
}

// The curve runs through the area from its lower left to a 40th below its upper right corner: 8 by 5.5 on a page of 11
// by 8.5, which is 500 by 386 pixels.
TEST(DataPlotPicture, CurveStandsWhereTheAxesSay) {
  constexpr double kUnit = 500.0 / 11;
  SmallView view;
  view.Show(PlotKind::history, 1, 1);
  Box red = view.Pixels(kRed);
  EXPECT_NEAR(red.left, 1.5 * kUnit, 2);
  EXPECT_NEAR(red.right - red.left, 8 * kUnit, 2);
  EXPECT_NEAR(red.bottom - red.top, 5.5 * kUnit * 39 / 40, 2);
  const int lit = view.Pixels(kWhite).count;
  EXPECT_GT(lit, 0);

  view.plot().colour_on = false;
  view.Show();
  EXPECT_EQ(view.Pixels(kRed).count, 0);
  EXPECT_GT(view.Pixels(kWhite).count, lit);

  view.plot().colour_on = true;
  view.plot().axes.limits = {5, 1, 6, 20, 10, 60};
  view.plot().axes.use = LimitsUse::changed;
  view.Show();  // steeper now, cut at the ends
  red = view.Pixels(kRed);
  EXPECT_NEAR(red.right - red.left, 8 * kUnit, 2);
  EXPECT_LT(red.bottom - red.top, 5.5 * kUnit * 0.2);
}

TEST(DataPlotPicture, ReverseVideoIsAskedForOnce) {
  const bool want[] = {true, true, false, true};
  const int asked[] = {1, 0, 2, 3};
  SmallView view;
  view.Choose(PlotKind::history, 1, 1);
  for (std::size_t i = 0; i < std::size(asked); ++i) {
    view.session.run.plot_colours = asked[i];
    view.Show();
    EXPECT_EQ(view.At(3, 396), want[i] ? kWhite : 0U) << i;
    EXPECT_EQ(view.session.run.plot_colours, 0);
    EXPECT_FALSE(view.session.run.redraw);
  }
}

// Nothing is cut at the edges of the page, however long the texts or large the numbers.
TEST(DataPlotPicture, TextsStayOnThePage) {
  struct Row {
    const char* name;
    int width, height;
    void (*set)(PlotView&);
  };
  const auto none = [](PlotView&) {};
  const auto long_title = [](PlotView& v) { v.session.case_store.control.DESCR = std::string(80, 'W'); };
  const auto large = [](PlotView& v) { v.session.output.units.scales.position.fill(-3.0e14F); };
  const auto small = [](PlotView& v) { v.session.output.units.scales.position.fill(-3.0e-9F); };
  const auto large_text = [](PlotView& v) { v.plot().text_size = v.plot().annot_size = 0.25F; };
  const Row rows[] = {
      {"plain", 500, 400, none},
      {"long title", 500, 400, long_title},
      {"long title", 1100, 850, long_title},
      {"huge values", 500, 400, large},
      {"huge values", 320, 240, large},
      {"tiny values", 1100, 850, small},
      {"large text", 500, 400, large_text},
  };
  for (const Row& row : rows) {
    SmallView view(row.width, row.height);
    view.plot().numbers_on = view.plot().values_in_legend = true;
    view.plot().show_stats = 1;
    row.set(view);
    view.Show(PlotKind::history, 1, 3);
    const Box texts = view.Pixels(kWhite);
    EXPECT_GT(texts.left, 0) << row.name;
    EXPECT_GT(texts.top, 0) << row.name;
    EXPECT_LT(texts.right, row.width - 1) << row.name;
    EXPECT_LT(texts.bottom, row.height - 1) << row.name;
  }
}

// Each colour of lines is seen on either background: at least 3 to 1, as guidelines for graphics want it.
TEST(DataPlotPicture, LinesAreSeenOnEitherBackground) {
  const auto luminance = [](unsigned rgb) {
    double sum = 0;
    const double weight[] = {0.0722, 0.7152, 0.2126};
    for (const double w : weight) {
      const double part = static_cast<double>(rgb & 0xFFU) / 255.0;
      sum += w * (part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4));
      rgb >>= 8U;
    }
    return sum;
  };
  for (const bool white : {false, true}) {
    SmallView view;
    view.session.run.plot_colours = white ? 3 : 2;
    view.Show(PlotKind::history, 1, 1);
    for (int index = 2; index <= 15; ++index) {
      const double line = luminance(view.Ink(index));
      EXPECT_GE(white ? 1.05 / (line + 0.05) : (line + 0.05) / 0.05, 2.95) << index << white;
    }
  }
}

// One step, and a ship that stays where it is: a dot.
TEST(DataPlotPicture, WhatHasNoLengthIsADot) {
  for (const PlotKind kind : {PlotKind::history, PlotKind::trajectory}) {
    SmallView view;
    view.session.case_store.last_step = 5;
    view.Show(kind, 1, 1);
    const Box dot = view.Pixels(kRed);
    EXPECT_GE(dot.count, 2);  // beside those of its smooth edge
    EXPECT_LT(dot.right - dot.left, 12);
  }
}

// Names where several curves are drawn, unless a script says otherwise; dashes where there are no colours.
TEST(DataPlotPicture, SeveralCurvesCanBeToldApart) {
  // clang-format off
  const struct { int component; LegendUse legend; bool values; std::vector<std::string> want; } rows[] = {
      {1, LegendUse::automatic, false, {}}, {1, LegendUse::on, false, {"1 pmgg(1)"}},
      {1, LegendUse::automatic, true, {"1 pmgg(1) = 59"}}, {0, LegendUse::off, false, {}},
      {0, LegendUse::automatic, false, {"2 pmgg(2), m", "3 pmgg(3), m"}},
  };
  // clang-format on
  SmallView view;
  for (const auto& row : rows) {
    view.Make(PlotKind::history, 1, row.component);
    view.plot().hidden = {1, 0, 0, 1, 1, 1};
    view.plot().legend = row.legend;
    view.plot().values_in_legend = row.values;
    std::vector<PageNote> notes;
    kHistoryPlot.notes(FactsOf(view.session), view.plot(), notes);
    std::vector<std::string> got;
    for (const PageNote& note : notes) got.push_back(note.text);
    EXPECT_EQ(got, row.want);
  }
  view.plot().colour_on = false;
  for (int i = 1; i <= 6; ++i) EXPECT_EQ(DashOf(ClassicLook(), view.plot(), i), i - 1);
  view.plot().colour_on = true;
  EXPECT_EQ(DashOf(ClassicLook(), view.plot(), 3), 0);
  gksSetStyle(view.session.gks, PictureStyle::report);
  for (int i = 1; i <= 6; ++i) EXPECT_EQ(DashOf(LookOf(view.session.gks), view.plot(), i), i - 1);
  view.plot().plot_component = 3;
  EXPECT_EQ(DashOf(LookOf(view.session.gks), view.plot(), 3), 0);  // nothing to tell it from
}

// Printed as large as an A4 with margins allows, by its shape upright or not.
TEST(DataPlotPicture, LettersOfAPageCanBeReadInPrint) {
  SmallView view;
  view.Choose(PlotKind::history, 1, 3);
  GksState& gks = view.session.gks;
  gksSetStyle(gks, PictureStyle::report);
  for (const auto& [rows, columns] : {std::pair{1, 2}, {2, 2}, {4, 2}, {3, 1}}) {
    gks.sheet.rows = rows;
    gks.sheet.columns = columns;
    gks.paint = RecordingPaint(gks.recording, gks.window.width, gks.window.height);
    zaviewsetaxes(view.session);
    zaviewrender(view.session);
    const double across = gks.window.width * columns, up = gks.window.height * rows;
    const double print = std::max(std::min(535 / across, 782 / up), std::min(782 / across, 535 / up));
    double largest = 0;
    for (const RecordedItem& item : gks.recording.items) largest = std::max<double>(largest, item.size);
    EXPECT_TRUE(largest * print > 7 && largest * print < 9) << rows << " " << columns << " " << largest * print;
  }
}

TEST(DataPlotPicture, MarksEveryNth) {
  SmallView view;
  view.Choose(PlotKind::history, 1, 1);
  int before = 0;
  for (const int every : {-20, -10, -1}) {  // more and more of them, without the line
    view.plot().mark_every = every;
    view.Show();
    EXPECT_GT(view.Pixels(kRed).count, before) << every;
    before = view.Pixels(kRed).count;
  }
}

// Right of the area, but in it where the labels of the wave's axis stand there.
TEST(DataPlotPicture, NumbersKeepClearOfOtherLabels) {
  PlotView view("irregular_head.out");
  view.Choose(PlotKind::history, 1, 0);
  view.plot().numbers_on = true;
  for (const bool wave : {false, true}) {
    view.plot().wave_overlay = wave;
    view.Show();
    const PlotPage& page = view.session.page;
    const int right = static_cast<int>((page.area_x + page.area_width) * 500.0F / page.page_width);
    EXPECT_EQ(view.Pixels(kRed).right > right + 2, !wave);
  }
}

// ---- Statistics over a curve
TEST(StatOverlay, LinesAndTexts) {
  struct Row {
    int show;
    std::vector<float> x;
    std::vector<float> lines;
    std::vector<std::string> texts;
  };
  std::vector<float> swing;  // five times up to 3 and down to -1: mean 1, variance 40/9
  for (int i = 0; i < 5; ++i) swing.insert(swing.end(), {3.0F, -1.0F});
  // clang-format off
  const Row rows[] = {
      {0, swing, {}, {}},
      {1, swing, {1, 3, -1}, {"Mean (avg)  = 1", "Avg top 1/3 = 3", "Avg bot 1/3 = -1", "1/3 Amp Avg = 2",
       "Dbl Amp Avg = 4"}},
      {2, swing, {1}, {"Mean (avg)  = 1", "No peaks found"}},
      {1, {2, 2, 2, 2}, {2}, {"Mean (avg)  = 2", "No peaks found"}},
      {3, swing, {1, 3.10819F, -1.10819F}, {"Mean (avg)  = 1", "StDev       = 2.108185", "Variance    = 4.444445",
       "SSA= 4.21637"}},
      {4, swing, {1, 3, -1}, {"Mean (avg)  = 1", "Maximum = 3", "Minimum = -1"}},
  };
  // clang-format on
  for (const Row& row : rows) {
    StatOverlay overlay;
    MakeStatOverlay(row.show, row.x, 0.95F, overlay);
    EXPECT_EQ(overlay.texts, row.texts) << row.show;
    ASSERT_EQ(overlay.lines.size(), row.lines.size()) << row.show;
    for (std::size_t i = 0; i < row.lines.size(); ++i) EXPECT_NEAR(overlay.lines[i].y, row.lines[i], 1e-5) << row.show;
  }
}

TEST(StatOverlay, NeedsOneCurveAndPoints) {
  SmallView view;
  view.Choose(PlotKind::history, 2, 0);
  view.plot().show_stats = 4;
  view.session.output.reading.skip_terminal = 100;
  view.Show();
  EXPECT_EQ(view.fake.output, "");  // several curves: no statistics
  view.plot().plot_component = 3;
  view.Show();
  EXPECT_EQ(view.fake.output, std::string(kOverlaySkipped) + "\n");
}

// Panning and new looks draw what stands; other data, curves and statistics make it anew.
TEST(StatOverlay, IsMadeOnce) {
  const std::string kept = "kept";
  SmallView view;
  view.Choose(PlotKind::history, 2, 3);
  view.plot().show_stats = 4;
  void (*const changes[])(DataPlotState & plot) = {
      [](DataPlotState& plot) { Pan(plot.axes, 0.1F, 0); },
      [](DataPlotState& plot) { plot.stats_at = StatsPlace::above; },
      [](DataPlotState& plot) { ForgetData(plot); },
      [](DataPlotState& plot) { plot.show_stats = 3; },
      [](DataPlotState& plot) { plot.plot_component = 2; },
  };
  for (std::size_t i = 0; i < std::size(changes); ++i) {
    view.Show();
    view.plot().derived.overlay.texts = {kept};
    changes[i](view.plot());
    view.Show();
    EXPECT_EQ(view.plot().derived.overlay.texts[0] == kept, i < 2) << i;
  }
}

// ---- Trajectories
// A box hull, 0.4 long and 0.1 wide, about the centre of gravity, cut half way up.
void GiveHull(CaseStore& store) {
  const Triple& g = store.ships[0].centre;
  HullSurface side;
  side.KSTA = 5;
  side.KWL = 2;
  const double ring[5][2] = {{0.2, 0.05}, {-0.2, 0.05}, {-0.2, -0.05}, {0.2, -0.05}, {0.2, 0.05}};
  for (const auto& corner : ring)
    for (const double z : {-0.1, 0.1}) side.points.push_back({g[0] + corner[0], g[1] + corner[1], z});
  store.hull.surfaces = {side};
  store.hull_tried = Tried::there;
}

TEST(Trajectory, UnitsAreAsLongOnBothAxes) {
  SmallView view;
  GiveHull(view.session.case_store);
  view.session.case_store.pmgg.component[5].assign(40, 0.0F);
  view.Show(PlotKind::trajectory, 1, 0);
  const PlotLimits& l = view.plot().axes.limits;
  EXPECT_NEAR((l.x_max - l.x_min) / 8, (l.y_max - l.y_min) / 5.5, 1e-3);
  // The track runs from (20, 25) to (59, 64) and the hull is 40 long.
  EXPECT_LE(l.x_min, 0);
  EXPECT_GE(l.x_max, 79);
  SmallView small;  // the heading leaves less room
  small.plot().text_size = 0.6F;
  small.Show(PlotKind::trajectory, 1, 0);
  EXPECT_LT(small.session.page.area_height, 5.4F);
  EXPECT_NEAR(small.session.page.area_width / 8, small.session.page.area_height / 5.5F, 1e-3);
  view.plot().keep_aspect = false;
  ForgetLimits(view.plot().axes);
  zaviewsetaxes(view.session);
  ExpectLimits(l, {0, 10, 80, 20, 10, 70}, "round numbers about 0 to 79 and 20 to 69");
}

// Hull pixels: as long as the ship along the heading, as wide as it across.
TEST(Trajectory, HullPointsWhereTheShipHeads) {
  for (const bool turned : {false, true}) {
    SmallView view(1100, 850);
    GiveHull(view.session.case_store);
    view.session.case_store.pmgg.component[5].assign(40, turned ? 1.5707963F : 0.0F);
    view.Choose(PlotKind::trajectory, 1, 0);
    view.plot().marked_steps = {25};
    view.Show();
    const PlotLimits& l = view.plot().axes.limits;
    const double metre = 800.0 / (l.x_max - l.x_min);
    const Box hull = view.Pixels(kGreen);
    EXPECT_NEAR(hull.right - hull.left, (turned ? 10 : 40) * metre, 3);
    EXPECT_NEAR(hull.bottom - hull.top, (turned ? 40 : 10) * metre, 3);
    view.plot().show_ship = false;
    view.Show();
    EXPECT_EQ(view.Pixels(kGreen).count, 0);
  }
}

TEST(Trajectory, StepsWithAHull) {
  // clang-format off
  const struct Row { int every, stride; std::vector<int> marked, want; } rows[] = {
      {0, 1, {}, {5, 9, 13, 18, 22, 26, 31, 35, 39, 44}},  // ten from end to end
      {15, 1, {}, {5, 20, 35}}, {15, 4, {}, {5, 17, 29, 41}},  // whole strides
      {3, 1, {40, 7, 99}, {7, 40}},  // those not in use don't count
      {3, 5, {12, 13}, {10}},  // the point before, once
  };
  // clang-format on
  SmallView view;
  for (const Row& row : rows) {
    view.session.output.reading.step_stride = row.stride;
    view.plot().geometry_every = row.every;
    view.plot().marked_steps = row.marked;
    view.Make(PlotKind::trajectory, 1, 0);
    std::vector<int> steps;
    for (const HullPlace& hull : view.plot().derived.hulls) steps.push_back(hull.step);
    EXPECT_EQ(steps, row.want) << row.every << ' ' << row.stride;
  }
}

TEST(Trajectory, Table) {
  SmallView view;
  view.session.case_store.last_step = 6;
  view.session.output.writing.separator = Separator::comma;
  view.session.output.units.cnvfac[1] = -1;
  view.Make(PlotKind::trajectory, 1, 0);
  OutputFile out;
  ASSERT_TRUE(OpenOutput(view.session.platform, "", OpenHow::replace, out));
  EXPECT_EQ(kTrajectoryPlot.write(SourceOf(view.session), view.plot(), out), DataFault::none);
  const std::string& text = view.fake.output;
  EXPECT_NE(text.find("Trajectory for ZAVO file run.out\nTime,pmgg(1),pmgg(2)\n"), std::string::npos) << text;
  EXPECT_NE(text.find(",20.00000,-25.00000\n"), std::string::npos) << text;
  EXPECT_NE(text.find(",21.00000,-26.00000\n"), std::string::npos) << text;
}

// ---- Loads: kind 1 at cut i and step s is 0.001 i + 0.0001 s in 1025 9.81 100^3 N.
TEST(LoadPlot, PresentValueAndRange) {
  constexpr double kForce = 1025 * 9.81 * 1.0e6;
  // clang-format off
  const struct Row { int step, stride, now; } rows[] = {
      {10, 1, 10}, {99, 1, 44},  // not beyond the last
      {10, 7, 10},  // a step that is no point
  };
  // clang-format on
  SmallView view;
  for (const Row& row : rows) {
    view.session.case_store.current_step = row.step;
    view.session.output.reading.step_stride = row.stride;
    view.Make(PlotKind::load_dist, 13, 0);
    const DataPlotDerived& d = view.plot().derived;
    EXPECT_EQ(d.cut, (std::vector<float>{25.0F, -12.5F}));
    const int last = 5 + 39 / row.stride * row.stride;
    for (std::size_t i = 0; i < 2; ++i) {
      const double cut = 0.001 * static_cast<double>(i + 1);
      EXPECT_NEAR(d.load[i] / kForce, cut + 0.0001 * row.now, 1e-8);
      EXPECT_NEAR(d.load_least[i] / kForce, cut + 0.0005, 1e-8);
      EXPECT_NEAR(d.load_largest[i] / kForce, cut + 0.0001 * last, 1e-8);
    }
  }
  view.plot().hidden = {1, 0};
  view.session.case_store.current_step = 11;  // a step alone needs no flag
  zaviewsetaxes(view.session);
  EXPECT_EQ(view.plot().derived.cut, std::vector<float>{-12.5F});
  EXPECT_NEAR(view.plot().derived.load[0] / kForce, 0.0031, 1e-8);
  view.Show();
  const int lit = view.Pixels(kWhite).count;
  view.plot().plot_component = 1;  // selected: its cut, and two notes, as it is left out
  view.Show();
  EXPECT_GT(view.Pixels(kWhite).count, lit + 300);
  EXPECT_GT(view.Pixels(kWhite).bottom, 375);  // the page ends at 386
  PlotNames names;
  kLoadPlot.names(FactsOf(view.session), view.plot(), names);
  EXPECT_EQ(names.note.substr(0, 14), "Step 11 Time= ");
}

TEST(DataPlot, ImpulsiveRuns) {
  for (const char* sample : {"impulse_responses.out", "transient_added_mass.out"}) {
    PlotView view(sample);
    view.Choose(PlotKind::history, 1, 3);
    view.plot().show_stats = 4;
    view.Show();
    EXPECT_EQ(view.session.run.plot_module, PlotModule::data_plot) << view.fake.output;
    EXPECT_GT(view.Pixels(kGreen).count, 100) << sample;  // the line of the maximum
  }
}

TEST(PlotParts, ShortNumber) {
  // clang-format off
  const struct Row { float value; const char* text; } rows[] = {
      {0, "0"}, {20, "20"}, {-12.345678F, "-12.3457"}, {1.0e12F, "1e12"}, {-1.5e-9F, "-1.5e-9"},
      {-1.234e-9F, "-1.23e-9"}, {-2.07123e7F, "-2.071e7"}, {-INFINITY, "-3.4e38"}, {-NAN, "0"},
  };
  // clang-format on
  for (const Row& row : rows) EXPECT_EQ(ShortNumber(row.value), row.text);
}

}  // namespace
}  // namespace zaview
