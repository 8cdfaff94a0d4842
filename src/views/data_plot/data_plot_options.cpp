// The options of the data plot: the rows of its menu, in their order.
#include <limits>

#include "case/settings/smoothing_settings.h"
#include "case/settings/statistic_settings.h"
#include "views/data_plot/data_plot.h"
#include "views/data_plot/data_plot_keys.h"
#include "views/state/axes_limits.h"
#include "views/state/plot_looks.h"
#include "views/state/plot_scopes.h"
#include "views/state/plot_selection.h"
#include "views/state/step_counts.h"

namespace zaview {

namespace {

constexpr std::string_view kNotWritten = "File not written - the console tells why";
constexpr float kAboveZero = std::numeric_limits<float>::min();

using Plot = DataPlotState;
using Request = HistogramRequest;

template <auto... path>
constexpr OptionBinding PlotFlag = Flag<&Session::data_plot, path...>;
template <auto... path>
constexpr OptionBinding PlotNumber = Number<&Session::data_plot, path...>;
template <auto value, auto... path>
constexpr OptionBinding PlotChoice = Choice<value, &Session::data_plot, path...>;
template <auto value, auto field>
constexpr OptionBinding BarChoice = Choice<value, &Session::statistics, &StatisticsState::histogram, field>;

std::string_view Said(SettingFault fault) {
  return fault == SettingFault::none ? std::string_view() : kIllegalIgnored;
}

template <bool (*verb)(Session&)>
std::string_view Do(Session& s, const OptionEvent&) {
  (void)verb(s);
  return {};
}

template <bool (*verb)(AxesState&)>
std::string_view OnAxes(Session& s, const OptionEvent&) {
  (void)verb(s.data_plot.axes);
  return {};
}

// ---- Axes
// As the next display has them.
template <float PlotLimits::*limit>
constexpr OptionBinding kLimit = {[](Session& s, int) {
                                    if (s.run.plot_module == PlotModule::data_plot) zaviewsetaxes(s);
                                    return OptionValue{.real = s.data_plot.axes.limits.*limit};
                                  },
                                  [](Session& s, const OptionEvent& event) {
                                    const bool taken =
                                        TakeLimit(s.data_plot.axes, limit, event.real, LengthOf(s.data_plot));
                                    return taken ? std::string_view() : kIllegalIgnored;
                                  }};

template <float AxesLength::*axis>
constexpr OptionBinding kLength = {[](Session& s, int) { return OptionValue{.real = LengthOf(s.data_plot).*axis}; },
                                   [](Session& s, const OptionEvent& event) {
                                     Plot& plot = s.data_plot;
                                     (plot.*RowOf(plot.kind).length).*axis = event.real;
                                     return std::string_view();
                                   }};

constexpr OptionBinding kByIndex = {
    [](Session& s, int) { return OptionValue{.integer = s.data_plot.x_axis_by_index ? 1 : 0}; }, Do<SwitchStepAxis>};

// Two choices as bits of one option.
template <int bit>
constexpr OptionBinding kAxisBit = {
    [](Session& s, int) { return OptionValue{.integer = s.data_plot.axis_option & bit}; },
    [](Session& s, const OptionEvent&) {
      s.data_plot.axis_option ^= bit;
      return std::string_view();
    }};
constexpr int kUpright = 1, kFrame = 2;

bool CanStandUpright(const Session& s, int) {
  return !s.gks.window.bitmap_font;
}

// ---- Curves
template <CurveMarks marks>
constexpr OptionBinding kMarks = {
    [](Session& s, int) { return OptionValue{.integer = MarksOf(s.data_plot) == marks ? 1 : 0}; },
    [](Session& s, const OptionEvent&) {
      SetMarks(s.data_plot, marks);
      return std::string_view();
    }};

constexpr OptionBinding kMarkEvery = {[](Session& s, int) { return OptionValue{.integer = s.data_plot.mark_base}; },
                                      [](Session& s, const OptionEvent& event) {
                                        SetMarkBase(s.data_plot, event.integer);
                                        return std::string_view();
                                      }};

// ---- What is shown of a record
bool HasSteps(const Session& s, int) {
  return s.case_store.has_steps();
}

template <int option>
constexpr OptionBinding kSmoothing = {
    [](Session& s, int) { return OptionValue{.integer = s.output.smoothing.option == option ? 1 : 0}; },
    [](Session& s, const OptionEvent&) { return Said(SetSmoothing(option, s.output.smoothing)); }};

constexpr OptionBinding kSmoothingWindow = {
    [](Session& s, int) { return OptionValue{.integer = s.output.smoothing.window}; },
    [](Session& s, const OptionEvent& event) { return Said(SetSmoothingWindow(event.integer, s.output.smoothing)); }};

constexpr OptionBinding kStride = {
    [](Session& s, int) { return OptionValue{.integer = s.output.reading.step_stride}; },
    [](Session& s, const OptionEvent& event) { return SetStepStride(s, event.integer); }};

// ---- Single kinds
bool HasRecords(const Session& s, int) {
  return s.ensemble.nrec > 1;
}

OptionValue RecordsRead(Session& s, int) {
  return {.text = fmt::format(" {} record(s) have been read", s.ensemble.nrec)};
}

constexpr OptionBinding kHullSpacing = {
    [](Session& s, int) { return OptionValue{.integer = HullSpacing(s.data_plot)}; },
    [](Session& s, const OptionEvent& event) {
      if (event.integer > MostHullSpacing(s.case_store)) return kIllegalIgnored;
      SetHullSpacing(s.data_plot, s.case_store, event.integer);
      return std::string_view();
    }};

constexpr OptionBinding kRate = {
    [](Session& s, int) { return OptionValue{.integer = s.output.statistics.autocorrelation_rate}; },
    [](Session& s, const OptionEvent& event) { return Said(SetSampleRate(event.integer, s.output.statistics)); }};

constexpr OptionBinding kCutoff = {
    [](Session& s, int) { return OptionValue{.real = s.output.statistics.autocorrelation_cutoff}; },
    [](Session& s, const OptionEvent& event) { return Said(SetCutoff(event.real, s.output.statistics)); }};

constexpr OptionBinding kProbability = {
    [](Session& s, int) { return OptionValue{.real = s.output.statistics.confidence_probability}; },
    [](Session& s, const OptionEvent& event) { return Said(SetProbability(event.real, s.output.statistics)); }};

constexpr OptionBinding kByBootstrap = {
    [](Session& s, int) {
      return OptionValue{.integer = s.output.statistics.interval_method == IntervalMethod::bootstrap ? 1 : 0};
    },
    [](Session& s, const OptionEvent& event) { return Said(SetIntervalMethod(event.integer, s.output.statistics)); }};

constexpr OptionBinding kResamples = {
    [](Session& s, int) { return OptionValue{.integer = s.output.statistics.bootstrap_resamples}; },
    [](Session& s, const OptionEvent& event) { return Said(SetResamples(event.integer, s.output.statistics)); }};

constexpr OptionBinding kSeed = {
    [](Session& s, int) { return OptionValue{.integer = s.output.statistics.bootstrap_seed}; },
    [](Session& s, const OptionEvent& event) { return Said(SetSeed(event.integer, s.output.statistics)); }};

constexpr OptionBinding kHours = {
    [](Session& s, int) { return OptionValue{.real = s.output.statistics.extreme_hours}; },
    [](Session& s, const OptionEvent& event) { return Said(SetExtremeHours(event.real, s.output.statistics)); }};

constexpr OptionBinding kQuantile = {
    [](Session& s, int) { return OptionValue{.real = s.output.statistics.extreme_quantile}; },
    [](Session& s, const OptionEvent& event) { return Said(SetExtremeQuantile(event.real, s.output.statistics)); }};
constexpr float kBelowOne = 0.999999F;

constexpr OptionBinding kRangeBins = {
    [](Session& s, int) { return OptionValue{.integer = s.output.statistics.rainflow_bins}; },
    [](Session& s, const OptionEvent& event) { return Said(SetRainflowBins(event.integer, s.output.statistics)); }};

constexpr OptionBinding kSegment = {
    [](Session& s, int) { return OptionValue{.real = s.output.statistics.spectrum_segment}; },
    [](Session& s, const OptionEvent& event) { return Said(SetSpectrumSegment(event.real, s.output.statistics)); }};

constexpr OptionBinding kNormalized = {
    [](Session& s, int) { return OptionValue{.integer = s.data_plot.kind == PlotKind::autocorrelation ? 1 : 0}; },
    [](Session& s, const OptionEvent& event) {
      (void)NormalizeByVariance(s.data_plot, event.integer != 0);
      return std::string_view();
    }};

constexpr OptionBinding kFractions = {
    [](Session& s, int) { return OptionValue{.integer = s.statistics.histogram.counts ? 0 : 1}; },
    [](Session& s, const OptionEvent& event) {
      s.statistics.histogram.counts = event.integer == 0;
      return std::string_view();
    }};

// ---- Measuring and writing
std::string_view ClearMeasured(Session& s, const OptionEvent&) {
  s.data_plot.axes.measure.on = false;
  return {};
}

constexpr OptionBinding kFile = {
    [](Session& s, int) { return OptionValue{.integer = kFileWrite, .text = s.data_plot.file_name}; },
    [](Session& s, const OptionEvent& event) {
      s.data_plot.file_name = event.text;
      return WritePlotData(s, event.text) ? std::string_view() : kNotWritten;
    }};
constexpr int kFileColumns = 36;

constexpr KeyScope kOfRecords = kAlways & ~kResult;

// Columns at which items stand below each other.
constexpr OptionItem kFirstColumn = Tab(16), kSecondColumn = Tab(30), kThirdColumn = Tab(44);

constexpr OptionItem kAxes[] = {
    Row("Axes"),
    kFirstColumn,
    Label("Minimum"),
    kSecondColumn,
    Label("Increment"),
    kThirdColumn,
    Label("Maximum"),
    Row("Horz"),
    kFirstColumn,
    Real({}, kLimit<&PlotLimits::x_min>, {}, kNoArrows),
    kSecondColumn,
    Real({}, kLimit<&PlotLimits::x_step>, {}, kNoArrows),
    kThirdColumn,
    Real({}, kLimit<&PlotLimits::x_max>, {}, kNoArrows),
    Row("Vert"),
    kFirstColumn,
    Real({}, kLimit<&PlotLimits::y_min>, {}, kNoArrows),
    kSecondColumn,
    Real({}, kLimit<&PlotLimits::y_step>, {}, kNoArrows),
    kThirdColumn,
    Real({}, kLimit<&PlotLimits::y_max>, {}, kNoArrows),
    Row(),
    kFirstColumn,
    Button("Fit X", Do<FitX>),
    Button("Fit Y", Do<FitShownY>),
    Button("Keep zoom", OnAxes<KeepLimits>),
    Button("Undo zoom", OnAxes<UndoZoom>),
    Row({}, kTrajectory),
    kFirstColumn,
    Check("Preserve geometry scale", PlotFlag<&Plot::keep_aspect>),
    Row({}, kOfComponents),
    kFirstColumn,
    Check("Keep axis limits when changing quantity", PlotFlag<&Plot::keep_scale>),
    Row({}, kHistory),
    kFirstColumn,
    Check("Same scales for all curves", PlotFlag<&Plot::match_scales>),
    Check("By time step", kByIndex),
    Row("Axis Lengths: X="),
    kFirstColumn,
    Real({}, kLength<&AxesLength::x>, {kAboveZero}),
    Real(" Y=", kLength<&AxesLength::y>, {kAboveZero}),
    Row(),
    kFirstColumn,
    Check("Vert 0 line", PlotFlag<&Plot::vertical_zero>),
    Check("Horz 0 line", PlotFlag<&Plot::horizontal_zero>),
    Check("Grid", PlotFlag<&Plot::grid_on>),
    Check("Frame", kAxisBit<kFrame>),
    If(CanStandUpright, Check("Upright", kAxisBit<kUpright>)),
    Separator(),
};

constexpr OptionItem kLooks[] = {
    Row("Curves:", kMarked),
    kFirstColumn,
    Radio("Line", kMarks<CurveMarks::line>),
    Radio("Line+Pts", kMarks<CurveMarks::line_and_points>),
    Radio("Points; Point Freq", kMarks<CurveMarks::points>),
    Integer({}, kMarkEvery, {1}),
    Row("Line Thickness="),
    kFirstColumn,
    Real({}, PlotNumber<&Plot::line_thickness>, {0, kMostThickness}, 0.01F),
    Check("Color", PlotFlag<&Plot::colour_on>),
    In(kNumbered, Check("Number curves", PlotFlag<&Plot::numbers_on>)),
    Row("Text:"),
    kFirstColumn,
    Check("Quantity", PlotFlag<&Plot::texts, &PlotTexts::quantity>),
    Check("File", PlotFlag<&Plot::texts, &PlotTexts::file>),
    Check("Axis Labels", PlotFlag<&Plot::texts, &PlotTexts::axes>),
    Check("Mode, etc.", PlotFlag<&Plot::texts, &PlotTexts::mode>),
    Row("Legend:", kHistory),
    kFirstColumn,
    Radio("Automatic", PlotChoice<LegendUse::automatic, &Plot::legend>),
    Radio("On", PlotChoice<LegendUse::on, &Plot::legend>),
    Radio("Off", PlotChoice<LegendUse::off, &Plot::legend>),
    Check("Values", PlotFlag<&Plot::values_in_legend>),
    Row("Size: Titles"),
    kFirstColumn,
    Real({}, PlotNumber<&Plot::text_size>, {kLeastText, kMostText}),
    Real(" Legend", PlotNumber<&Plot::annot_size>, {kLeastText, kMostText}),
    In(kSized, Label(" Points")),
    In(kSized, Real({}, PlotNumber<&Plot::mark_size>, {kLeastMark, kMostMark})),
    Separator(),
};

constexpr OptionItem kBars[] = {
    Row("Vertical scale:", kHistogram),
    kFirstColumn,
    Check("N/Ntot", kFractions),
    Row("Bars:", kHistogram),
    kFirstColumn,
    Radio("Outline", PlotChoice<HistogramStyle::line, &Plot::hist_rendering>),
    Radio("Fill", PlotChoice<HistogramStyle::filled, &Plot::hist_rendering>),
    Radio("Fill+Outline", PlotChoice<HistogramStyle::outlined, &Plot::hist_rendering>),
    Row("Data to use:", kHistogram),
    kFirstColumn,
    Radio("Signed values", BarChoice<HistogramData::signed_values, &Request::data>),
    Radio("Absolute values", BarChoice<HistogramData::absolute, &Request::data>),
    Radio("Positive values", BarChoice<HistogramData::positive, &Request::data>),
    Row("Sampling rate:", kHistogram),
    kFirstColumn,
    Integer({}, Number<&Session::statistics, &StatisticsState::histogram, &Request::rate>, {1}),
    Label("(in time steps)"),
    Row("Theoretical distribution overlay:", kHistogram),
    Row({}, kHistogram),
    Radio("None", BarChoice<Overlay::none, &Request::overlay>),
    Radio("Uniform", BarChoice<Overlay::uniform, &Request::overlay>),
    Radio("Normal", BarChoice<Overlay::normal, &Request::overlay>),
    Radio("Gramm-Charlier", BarChoice<Overlay::gramm_charlier, &Request::overlay>),
    Radio("Rayleigh", BarChoice<Overlay::rayleigh, &Request::overlay>),
    Radio("Exponential", BarChoice<Overlay::exponential, &Request::overlay>),
};

constexpr OptionItem kTracks[] = {
    Row("Plot hull waterline every", kTrajectory),
    Integer({}, kHullSpacing, {1}),
    Label("steps "),
    Check("Show", PlotFlag<&Plot::show_ship>),
    Row("Size factor", kTrajectory),
    kFirstColumn,
    Real({}, PlotNumber<&Plot::geometry_scale>, {kLeastShip, kMostShip}),
    Check("Mark time", PlotFlag<&Plot::time_labels_on>),
};

constexpr OptionItem kCorrelations[] = {
    Row("Sampling rate:", kCorrelation),
    kFirstColumn,
    Integer({}, kRate, {1}),
    Label("steps"),
    Row("Cutoff value for dependence time calc:", kCorrelation),
    Real({}, kCutoff, {kAboveZero}, 0.01F),
    Row({}, kCorrelation),
    Check("Normalize by variance (AutoCorrelation)", kNormalized),
    Row("Probability=", kInterval),
    kFirstColumn,
    Real({}, kProbability, {kAboveZero, 1}, 0.01F),
    Row("Method:", kInterval),
    kFirstColumn,
    Check("Bootstrap;", kByBootstrap),
    Integer("resamples", kResamples, {kFewestResamples, kMostResamples}),
    Integer("seed", kSeed, {0, kMostSeed}),
    Row("# records for many record scheme:", kInterval, HasRecords),
    Integer({}, Number<&Session::statistics, &StatisticsState::nmany>, {0}),
    Label({}, RecordsRead),
};

constexpr OptionItem kSpectrumItems[] = {
    Row("Segments of", kSpectrum),
    kFirstColumn,
    Real({}, kSegment, {0, kMostSegment}),
    Label("(time; 0: an eighth of the record)"),
};

constexpr OptionItem kExtremeItems[] = {
    Row("Largest value in", kExtremes),
    kFirstColumn,
    Real({}, kHours, {kAboveZero, kMostExtremeHours}),
    Label("hours "),
    Real("Quantile", kQuantile, {kAboveZero, kBelowOne}, 0.01F),
    Row("Probability=", kExtremes),
    kFirstColumn,
    Real({}, kProbability, {kAboveZero, 1}, 0.01F),
};

constexpr OptionItem kRainflowItems[] = {
    Row("Bins of ranges:", kRainflow),
    kFirstColumn,
    Integer({}, kRangeBins, {1, kMostRainflowBins}),
};

constexpr OptionItem kRecords[] = {
    Row("Statistics:", kHistory),
    kFirstColumn,
    Radio("None", PlotChoice<0, &Plot::show_stats>),
    Radio("1/3rd peaks", PlotChoice<1, &Plot::show_stats>),
    Radio("1/10th peaks", PlotChoice<2, &Plot::show_stats>),
    Row({}, kHistory),
    kFirstColumn,
    Radio("StDev/Var/SSA", PlotChoice<3, &Plot::show_stats>),
    Radio("Avg/Min/Max", PlotChoice<4, &Plot::show_stats>),
    Label(" (single curve plot)"),
    Row("Location", kHistory),
    kFirstColumn,
    Radio("Bottom", PlotChoice<StatsPlace::bottom, &Plot::stats_at>),
    Radio("Below", PlotChoice<StatsPlace::below, &Plot::stats_at>),
    Radio("Above", PlotChoice<StatsPlace::above, &Plot::stats_at>),
    Row("Point skip; beg", kHistory | kOneCurve, HasSteps),
    kFirstColumn,
    Integer({}, StepCountOf<StepEnd::skip_first>, {0}),
    Integer(" end", StepCountOf<StepEnd::skip_last>, {0}),
    Label("(statistics only)"),
    Row("Point trim; beg", kOfRecords, HasSteps),
    kFirstColumn,
    Integer({}, StepCountOf<StepEnd::trim_first>, {0}),
    Integer(" end", StepCountOf<StepEnd::trim_last>, {0}),
    Label("(all output)"),
    Row("Every", kOfRecords, HasSteps),
    kFirstColumn,
    Integer({}, kStride, {1}),
    Label("step(s)"),
    Row("Smoothing:", kOfRecords),
    kFirstColumn,
    Radio("Off", kSmoothing<0>),
    Radio("Local", kSmoothing<1>),
    Radio("Fourier", kSmoothing<2>),
    Radio("Cubic; steps", kSmoothing<kCubicSmoothing>),
    Integer({}, kSmoothingWindow, {kLeastWindow}),
    Separator(),
    Row("Measure mode:"),
    kFirstColumn,
    Check("Closest point", PlotFlag<&Plot::axes, &AxesState::measure, &MeasureState::closest>),
    Button("Clear", ClearMeasured),
    Row(),
    {.kind = OptionKind::file, .text = "Write Data to File", .value = kFile, .width = kFileColumns},
    In(kHistory, Check("Unformatted", PlotFlag<&Plot::unformatted>)),
};

constexpr OptionBlock kBlocks[] = {{kAxes},          {kLooks},        {kBars},          {kTracks}, {kCorrelations},
                                   {kSpectrumItems}, {kExtremeItems}, {kRainflowItems}, {kRecords}};

}  // namespace

ViewOptions DataPlotOptions(const Session& session) {
  return {kBlocks, ScopeOf(session.data_plot.kind)};
}

}  // namespace zaview
