#include "analysis/curves/spectrum_report.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <string>
#include <vector>

#include "analysis/curves/curve_stretches.h"
#include "base/angles.h"
#include "base/message.h"
#include "base/number_format.h"
#include "base/table_text.h"
#include "case/quantity_label.h"
#include "stats/welch_spectrum.h"

namespace zaview {
namespace {

constexpr std::string_view kTooManySkipped = "ERR495 - Too many steps skipped or trimmed in spectrum";
constexpr std::string_view kNoMemory = "ERR493 - Error allocating working arrays for spectrum";
constexpr std::string_view kTooShort = "ERROR - the record is too short for a spectrum by segments of {} steps";
constexpr std::string_view kShortSegment =
    "ERROR - no spectrum: the segments that are set hold {} steps, at least {} are needed";
constexpr std::string_view kNoRecord = "ERROR - no spectrum: the record has no two values in succession";
constexpr std::string_view kUneven = "ERROR - no spectrum: the time steps are not equal";

constexpr std::size_t kLeastSegment = 4;  // steps

struct CurveSpectrum {
  WelchSpectrum welch;
  SpectralMoments m;
  DensityLimits limits;
  double probability = 0;  // of the limits
  double dt = 0;
};

bool IsEven(std::span<const CurveStretch> stretches, double dt) {
  constexpr double kPart = 0.01;  // of a step; times have few digits
  for (const CurveStretch& s : stretches) {
    const double length = static_cast<double>(s.t.back()) - static_cast<double>(s.t.front());
    if (std::abs(length - dt * static_cast<double>(s.t.size() - 1)) > kPart * length) return false;
    for (std::size_t i = 1; i < s.t.size(); ++i)
      if (!(std::abs(static_cast<double>(s.t[i]) - static_cast<double>(s.t[i - 1]) - dt) < 0.5 * dt)) return false;
  }
  return true;
}

std::size_t LongestOf(std::span<const CurveStretch> stretches) {
  std::size_t longest = 0;
  for (const CurveStretch& s : stretches) longest = std::max(longest, s.x.size());
  return longest;
}

std::size_t SegmentOf(const StatWork& work, std::size_t longest, double dt) {
  const auto wanted = static_cast<double>(work.settings.statistics.spectrum_segment);
  if (!(wanted > 0)) return UsualSegment(longest);
  return static_cast<std::size_t>(std::min(wanted / dt + 0.5, 1.0e9)) / 2 * 2;
}

DataFault Make(const StatWork& work, const QuantityRequest& request, CurveSpectrum& spectrum) {
  if (const DataFault fault = LoadEnsemble(work, request, kTooManySkipped); fault != DataFault::none) return fault;
  std::vector<CurveStretch> stretches;
  AppendLoadedStretches(work, stretches);
  if (!stretches.empty()) {
    const std::span<const float> t = stretches.front().t;
    spectrum.dt = (static_cast<double>(t.back()) - static_cast<double>(t.front())) / static_cast<double>(t.size() - 1);
  }
  if (stretches.empty() || !(spectrum.dt > 0) || !IsEven(stretches, spectrum.dt)) {
    SayLine(work.console(), stretches.empty() ? kNoRecord : kUneven);
    return DataFault::said;
  }
  const std::size_t longest = LongestOf(stretches), segment = SegmentOf(work, longest, spectrum.dt);
  if (segment < kLeastSegment && longest >= 2 * kLeastSegment) {
    Say(work.console(), fmt::runtime(kShortSegment), segment, kLeastSegment);
    return DataFault::said;
  }
  // Asked first: the room for a segment would be taken and filled, however long it is.
  if (segment > longest || !FindWelchSpectrum(SamplesOf(stretches), spectrum.dt, segment, spectrum.welch)) {
    Say(work.console(), fmt::runtime(kTooShort), segment);
    return DataFault::said;
  }
  spectrum.m = MomentsOf(spectrum.welch);
  spectrum.probability = static_cast<double>(work.settings.statistics.confidence_probability);
  spectrum.limits = LimitsOfDensity(spectrum.welch.freedom, spectrum.probability);
  return DataFault::none;
}

std::string NameOf(const StatWork& work, const QuantityRequest& request) {
  return EnsembleCurveName(work.settings, request, work.cases) + PointNote(work.current(), request);
}

std::string TitleOf(const StatWork& work, const QuantityRequest& request) {
  const int records = work.cases.count();
  if (records > 1) return fmt::format("Spectrum of {}; {} records", NameOf(work, request), records);
  return fmt::format("Spectrum of {} for ZAVO file {}", NameOf(work, request), work.current().file_name);
}

// ---- What follows from the moments

struct Figure {
  std::string_view name;
  double (*value)(const CurveSpectrum& s);
  bool shown;  // beside the plot
};
double Ratio(double a, double b) {
  return b > 0 ? a / b : 0.0;
}
constexpr Figure kFigures[] = {
    {"m-1", [](const CurveSpectrum& s) { return s.m.m_1; }, false},
    {"m0", [](const CurveSpectrum& s) { return s.m.m0; }, false},
    {"m1", [](const CurveSpectrum& s) { return s.m.m1; }, false},
    {"m2", [](const CurveSpectrum& s) { return s.m.m2; }, false},
    {"m4", [](const CurveSpectrum& s) { return s.m.m4; }, false},
    {"Hs= 4 sqrt(m0)", [](const CurveSpectrum& s) { return 4.0 * std::sqrt(s.m.m0); }, true},
    {"Tp= 2 pi/w of the peak", [](const CurveSpectrum& s) { return Ratio(kTwoPi, s.m.w_peak); }, true},
    {"Tz= 2 pi sqrt(m0/m2)", [](const CurveSpectrum& s) { return kTwoPi * std::sqrt(Ratio(s.m.m0, s.m.m2)); }, true},
    {"T1= 2 pi m0/m1", [](const CurveSpectrum& s) { return kTwoPi * Ratio(s.m.m0, s.m.m1); }, true},
    {"Te= 2 pi m-1/m0", [](const CurveSpectrum& s) { return kTwoPi * Ratio(s.m.m_1, s.m.m0); }, false},
    {"Bandwidth epsilon", [](const CurveSpectrum& s) { return BandwidthEpsilon(s.m); }, true},
    {"Bandwidth nu", [](const CurveSpectrum& s) { return BandwidthNu(s.m); }, true},
};

void WriteTable(const StatWork& work, const QuantityRequest& request, const CurveSpectrum& spectrum, OutputFile& out) {
  std::string text = out.had_text ? "\n" : "";
  const WelchSpectrum& welch = spectrum.welch;
  fmt::format_to(std::back_inserter(text),
                 "{}\nSegments= {}, of {} steps, half overlapping, Hann window\nDegrees of freedom= {}\n"
                 "Probability of limits of S(w)= {}\n",
                 TitleOf(work, request), welch.segments, welch.segment, ShownOf(welch.freedom),
                 ShownOf(spectrum.probability));
  for (const Figure& figure : kFigures) {
    const bool has_formula = figure.name.find('=') != std::string_view::npos;
    fmt::format_to(std::back_inserter(text), "{}{}= {}\n", figure.name, has_formula ? " " : "",
                   ShownOf(figure.value(spectrum)));
  }
  const std::string names[] = {"w (rad/time)", "f (1/time)", "S(w)", "S(f)", "S(w) low", "S(w) high"};
  const TableLayout layout = LayoutFor(work.settings.writing.separator, names);
  AppendHeading(text, layout, names);
  for (std::size_t k = 0; k < welch.S.size(); ++k) {
    const double w = static_cast<double>(k) * welch.dw;
    const float cells[] = {static_cast<float>(w),
                           static_cast<float>(w / kTwoPi),
                           static_cast<float>(welch.S[k]),
                           static_cast<float>(kTwoPi * welch.S[k]),
                           static_cast<float>(spectrum.limits.low * welch.S[k]),
                           static_cast<float>(spectrum.limits.high * welch.S[k])};
    AppendRow(text, layout, cells);
    WriteGathered(out, text);
  }
  WriteOutput(out, text);
}

// Of the densities from the first on: those below which all but a thousandth of the variance lies.
std::size_t CountShown(const CurveSpectrum& spectrum) {
  constexpr double kShown = 0.999;
  const std::vector<double>& S = spectrum.welch.S;
  const double wanted = kShown * spectrum.m.m0;
  double sum = 0;
  std::size_t k = 1;
  for (; k + 1 < S.size() && sum < wanted; ++k) sum += S[k] * spectrum.welch.dw;
  return std::min(k + 1, S.size());
}

DataFault MakePlot(const StatWork& work, const QuantityRequest& request, ResultPlot& plot) {
  CurveSpectrum spectrum;
  if (const DataFault fault = Make(work, request, spectrum); fault != DataFault::none) return fault;
  plot.title = fmt::format("Spectrum: {}", NameOf(work, request));
  ResultPanel panel;
  panel.x_name = "w (rad/time)";
  const std::string unit = CurveUnit(work.current(), work.settings, request.iqnt, request.curve);
  panel.y_name = unit.empty() ? "S(w)" : fmt::format("S(w) ({}^2 time/rad)", unit);
  ResultCurve curve;
  ResultCurve low{"low limit", {}, {}, ResultStyle::dashed}, high{"high limit", {}, {}, ResultStyle::dashed};
  const std::size_t shown = CountShown(spectrum);
  for (std::size_t k = 0; k < shown; ++k) {
    curve.x.push_back(static_cast<float>(static_cast<double>(k) * spectrum.welch.dw));
    curve.y.push_back(static_cast<float>(spectrum.welch.S[k]));
    low.y.push_back(static_cast<float>(spectrum.limits.low * spectrum.welch.S[k]));
    high.y.push_back(static_cast<float>(spectrum.limits.high * spectrum.welch.S[k]));
  }
  low.x = high.x = curve.x;
  curve.name = "density";
  for (ResultCurve* drawn : {&curve, &low, &high}) panel.curves.push_back(std::move(*drawn));
  for (const Figure& figure : kFigures)
    if (figure.shown)
      panel.notes.push_back(
          fmt::format("{}: {:.4g}", figure.name.substr(0, figure.name.find('=')), figure.value(spectrum)));
  panel.notes.push_back(fmt::format("{} segments", spectrum.welch.segments));
  panel.notes.push_back(fmt::format("{:.3g} degrees of freedom", spectrum.welch.freedom));
  panel.notes.push_back(fmt::format("limits of probability {:.3g}", spectrum.probability));
  plot.panels.push_back(std::move(panel));
  return DataFault::none;
}

}  // namespace

DataFault MakeSpectrumPlot(const StatWork& work, const QuantityRequest& request, ResultPlot& plot) {
  plot = ResultPlot{};
  return MakeOrSay(work.console(), kNoMemory, [&] { return MakePlot(work, request, plot); });
}

DataFault WriteSpectrum(const StatWork& work, const QuantityRequest& request, OutputFile& out) {
  return MakeOrSay(work.console(), kNoMemory, [&] {
    CurveSpectrum spectrum;
    const DataFault fault = Make(work, request, spectrum);
    if (fault == DataFault::none) WriteTable(work, request, spectrum, out);
    return fault;
  });
}

}  // namespace zaview
