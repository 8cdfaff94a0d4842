#include "analysis/sea_view/wave_analysis.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>

#include "analysis/do_or_say.h"
#include "analysis/sea_view/root_files.h"
#include "base/message.h"
#include "base/number_format.h"
#include "base/side_by_side.h"
#include "base/table_text.h"
#include "case/ship_pose.h"
#include "case/wave_at_cg.h"
#include "frame/ground/progress_line.h"
#include "geometry/input_hull.h"
#include "waves/wave_elevation.h"
#include "waves/wave_scale.h"
#include "waves/wave_sums.h"

namespace zaview {
namespace {

constexpr RootFile kFiles[] = {{".wvt", "", "Elevations along CL written to: "},
                               {".wvp", "", "Wave feature points written to: "},
                               {".wvc", "", "Wave celerity written to: "}};
constexpr std::string_view kLineHead = "Wave along ship longitudinal axis";
constexpr std::string_view kFeatureHead = "Wave feature points";
constexpr std::string_view kCelerityTitle = "Wave celerity via instantaneous frequency";
constexpr std::string_view kCelerityHead = "Time   Xcg    Elev_cg   Celerity_cg   Celerity_avg";
constexpr std::string_view kCelerityNames[] = {"Time", "Xcg", "Elev_cg", "Celerity_cg", "Celerity_avg"};
constexpr std::string_view kNoMemory = "ERROR allocate wave analysis arrays";
constexpr std::string_view kInterrupted = "Wave analysis interrupted at time step {}";
constexpr std::string_view kRoutine = "IncidentWaveCelerity";
constexpr std::size_t kPoints = 101;  // of the line
constexpr std::size_t kStepsAtOnce = 32;

struct LineStep {  // non-dimensional
  double time = 0, x = 0, y = 0, yaw = 0;
  std::vector<double> eta, slope;  // along the line
  double eta_cg = 0, celerity_cg = 0, celerity_avg = 0;
};

struct LineWork {
  const OutputSettings& settings;
  const std::vector<int> steps;
  const CaseStore& store;
  std::vector<double> s{};  // of the points, from the CG towards the bow
};

// From the least to the largest x of the hull; without a hull the reference length about the CG.
std::vector<double> PointsOfLine(const CaseStore& c) {
  double stern = -0.5;
  double bow = 0.5;
  if (c.hull_tried == Tried::there && !c.hull.empty()) {
    const HullBox box = BoxOf(c.hull, 0, /*mirrored=*/false);
    stern = box.low[0] - ShipCentre(c)[0];
    bow = box.high[0] - ShipCentre(c)[0];
  }
  std::vector<double> s(kPoints);
  for (std::size_t i = 0; i < kPoints; ++i)
    s[i] = stern + (bow - stern) * static_cast<double>(i) / static_cast<double>(kPoints - 1);
  return s;
}

// The mean of the celerity, weighted by N, the envelope squared, by trapezoids.
double WeightedMean(const std::vector<double>& celerity, const std::vector<double>& N) {
  constexpr double kNoEnvelope = 1e-20;
  double above = 0.0;
  double below = 0.0;
  double most = 0.0;
  for (std::size_t i = 0; i < N.size(); ++i) {
    const double weight = i == 0 || i + 1 == N.size() ? 0.5 : 1.0;
    above += weight * N[i] * celerity[i];
    below += weight * N[i];
    most = std::max(most, N[i]);
  }
  return most < kNoEnvelope ? 0.0 : above / below;
}

void EvaluateStep(const LineWork& work, int step, LineStep& line) {
  const CaseStore& c = work.store;
  const ShipPose pose = PoseAtStep(c, step);
  line.time = static_cast<double>(c.time.at(1, step));
  line.x = pose.cg[0];
  line.y = pose.cg[1];
  line.yaw = static_cast<double>(c.pmgg.at(6, step));
  const double along[2] = {std::cos(line.yaw), std::sin(line.yaw)};
  std::vector<Vector3> points;
  for (const double s : work.s) points.push_back({line.x + s * along[0], line.y + s * along[1], 0.0});
  points.push_back({line.x, line.y, 0.0});  // the CG behind the line
  std::vector<double> eta(points.size()), slope(points.size()), celerity(points.size()), N(points.size());
  CelerityTerms out;
  out.eta = eta;
  out.d1 = slope;
  out.celerity = celerity;
  out.envelope = N;
  const WaveMoment moment{line.time, WaveScaleAtStep(c.seaway.scaling, step).scale};
  (void)IncidentWaveCelerity(c.wave, moment, points, along, out);  // a seaway that it takes
  line.eta_cg = eta.back();
  line.celerity_cg = celerity.back();
  for (std::vector<double>* values : {&eta, &slope, &celerity, &N}) values->pop_back();
  line.celerity_avg = WeightedMean(celerity, N);
  line.eta = std::move(eta);
  line.slope = std::move(slope);
}

// ---- Crest and steepest slope

struct Followed {  // along the heading, in global coordinates
  bool known = false;
  double P = 0;
};

struct Features {
  Followed crest, face;
  double time = 0, celerity = 0;  // of the step ahead
};

double AlongHeading(const LineStep& line) {
  return line.x * std::cos(line.yaw) + line.y * std::sin(line.yaw);
}

WaveFeature Follow(const LineWork& work, const LineStep& line, bool steepest, double moved, Followed& followed) {
  const double P_cg = AlongHeading(line);
  followed.P += moved;
  const WaveFeature found =
      FindFeature(work.s, steepest ? line.slope : line.eta, {followed.known, followed.P - P_cg, steepest});
  if (found.there) followed = {true, P_cg + found.s};
  return found;
}

struct StepFeatures {
  WaveFeature crest, face;
};
StepFeatures FollowStep(const Console& console, const LineWork& work, const LineStep& line, Features& features) {
  const double moved = features.celerity * (line.time - features.time);
  StepFeatures found;
  const auto index = [&](const WaveFeature& feature) {
    return 1 + std::lround((feature.s - work.s.front()) / (work.s[1] - work.s.front()));
  };
  const auto place = [&](const WaveFeature& feature) {
    return Shown{static_cast<float>(line.x + feature.s * std::cos(line.yaw))};
  };
  const bool crest_known = features.crest.known;
  found.crest = Follow(work, line, false, moved, features.crest);
  if (found.crest.there)
    Trace(console, "{}{} xpeak= {}", crest_known ? "Closest peak at iwpt1= " : "Peak at iwpt= ", index(found.crest),
          place(found.crest));
  const bool face_known = features.face.known;
  found.face = Follow(work, line, true, moved, features.face);
  if (found.face.there)
    Trace(console, "{}{} xface= {}",
          face_known ? "Closest slope peak at iwpt2= " : "Slope peak at iwpt= ", index(found.face), place(found.face));
  features.time = line.time;
  features.celerity = line.celerity_cg;
  return found;
}

// ---- Tables

struct LineTexts {
  std::string wave, features, celerity;
};

void AppendHeads(const LineWork& work, const TableLayout& layout, LineTexts& texts) {
  texts.wave.append(kLineHead).append("\n");
  std::vector<float> places;
  for (const double s : work.s)
    places.push_back(static_cast<float>(s * static_cast<double>(work.settings.units.LENOUT)));
  AppendRow(texts.wave, layout, places);
  texts.features.append(kFeatureHead).append("\n");
  texts.celerity.append(kCelerityTitle).append("\n");
  if (layout.separator == Separator::space) texts.celerity.append(kCelerityHead).append("\n");
  else
    AppendHeading(texts.celerity, layout,
                  std::vector<std::string>(std::begin(kCelerityNames), std::end(kCelerityNames)));
}

void AppendStep(const LineWork& work, const TableLayout& layout, const LineStep& line, const StepFeatures& found,
                LineTexts& texts, WaveAnalysisResult& result) {
  const auto L = static_cast<double>(work.settings.units.LENOUT);
  const double speed = std::sqrt(static_cast<double>(work.settings.units.GRAVOUT) * L);
  const auto length = [L](double value) { return static_cast<float>(value * L); };
  const auto x_of = [&](const WaveFeature& feature) {
    return feature.there ? length(line.x + feature.s * std::cos(line.yaw)) : 0.0F;
  };
  const auto time = static_cast<float>(line.time * static_cast<double>(work.settings.units.scales.T));
  std::vector<float> elevations = {time};
  for (const double eta : line.eta) elevations.push_back(length(eta));
  AppendRow(texts.wave, layout, elevations);
  AppendRow(texts.features, layout,
            std::array{time, x_of(found.crest), length(found.crest.value), x_of(found.face),
                       static_cast<float>(found.face.value)});
  result.time.push_back(time);
  result.elevation.push_back(length(line.eta_cg));
  result.celerity_cg.push_back(static_cast<float>(line.celerity_cg * speed));
  result.celerity_avg.push_back(static_cast<float>(line.celerity_avg * speed));
  AppendRow(
      texts.celerity, layout,
      std::array{time, length(line.x), result.elevation.back(), result.celerity_cg.back(), result.celerity_avg.back()});
}

// False (told): interrupted.
bool WriteSteps(const Platform& platform, const LineWork& work, RootFiles& files, WaveAnalysisResult& result) {
  const TableLayout layout{work.settings.writing.separator, {}};
  LineTexts texts;
  AppendHeads(work, layout, texts);
  std::string* const text_of[] = {&texts.wave, &texts.features, &texts.celerity};
  Features features;
  ProgressLine progress = StartProgress(platform, "Wave analysis");
  const std::size_t count = work.steps.size();
  bool good = true;
  for (std::size_t first = 0; first < count && good; first += kStepsAtOnce) {
    std::vector<LineStep> lines(std::min(kStepsAtOnce, count - first));
    SideBySide(lines.size(), 0, [&](std::size_t i) { EvaluateStep(work, work.steps[first + i], lines[i]); });
    for (const LineStep& line : lines) {
      AppendStep(work, layout, line, FollowStep(platform.console, work, line, features), texts, result);
      for (std::size_t f = 0; f < files.out.size(); ++f) WriteGathered(files.out[f], *text_of[f]);
    }
    ShowProgress(progress, static_cast<double>(first + lines.size()) / static_cast<double>(count));
    if (!TakeInterrupt(platform.console)) continue;
    Say(platform.console, kInterrupted, work.steps[first + lines.size() - 1]);
    good = false;
  }
  EndProgress(progress);
  for (std::size_t f = 0; f < files.out.size(); ++f) WriteOutput(files.out[f], *text_of[f]);
  return good;
}

// False (told): these waves have no local frequency.
bool TakesWaves(const Console& console, const IncidentWave& wave) {
  const WaveKind kind = KindOf(wave);
  if (kind == WaveKind::unknown) {
    Say(console, kUnknownKindIn, kRoutine, wave.ISEA);
    Say(console, kUnknownKindInEnd, kRoutine);
  } else if (wave.ISEA == 4) {
    Say(console, kNoAlternativeWaves, kRoutine);
  } else if (kind == WaveKind::second_order) {
    Say(console, kNoIrregularStokes, kRoutine);
  } else if (kind == WaveKind::stokes) {
    Say(console, kNoRegularStokes, kRoutine);
  } else {
    return true;
  }
  return false;
}

// ---- The picture

constexpr float kFarOut = 5.0F;  // times the median: where the local wave number goes through 0 there is no celerity

// The curve without what would leave no room for the rest of it.
ResultCurve WithoutSpikes(std::string_view name, const std::vector<float>& time, const std::vector<float>& celerity) {
  std::vector<float> magnitudes;
  for (const float c : celerity) magnitudes.push_back(std::abs(c));
  const auto middle = magnitudes.begin() + static_cast<std::ptrdiff_t>(magnitudes.size() / 2);
  std::nth_element(magnitudes.begin(), middle, magnitudes.end());
  ResultCurve curve{std::string(name), time, celerity};
  for (float& c : curve.y)
    if (std::abs(c) > kFarOut * *middle) c = std::numeric_limits<float>::quiet_NaN();
  return curve;
}

}  // namespace

WaveFeature FindFeature(const std::vector<double>& s, const std::vector<double>& values, const FeatureSearch& search) {
  WaveFeature best;
  const auto height = [&](std::size_t i) { return search.steepest ? std::abs(values[i]) : values[i]; };
  for (std::size_t i = 1; i + 1 < values.size(); ++i) {
    if (!(height(i) > height(i - 1) && height(i) >= height(i + 1))) continue;
    const double bend = (height(i) - height(i - 1)) + (height(i) - height(i + 1));
    const double lean = height(i + 1) - height(i - 1);
    const double top = height(i) + lean * lean / (8.0 * bend);
    const WaveFeature feature{true, s[i] + 0.5 * lean / bend * (s[i + 1] - s[i]),
                              std::copysign(top, search.steepest ? values[i] : top)};
    const bool better = search.following ? std::abs(feature.s - search.near) < std::abs(best.s - search.near)
                                         : (search.steepest ? std::abs(feature.value) > std::abs(best.value)
                                                            : feature.value > best.value);
    if (!best.there || better) best = feature;
  }
  return best;
}

bool WriteWaveAnalysis(const Platform& platform, const OutputSettings& settings, const StepRange& steps,
                       std::string_view root, CaseStore& case_store, WaveAnalysisResult& result) {
  const Console& console = platform.console;
  const WaveAnswer answer = EnsureSeaway(console, case_store);
  if (answer == WaveAnswer::no_memory) SayLine(console, kNoMemory);
  if (answer != WaveAnswer::ok || !TakesWaves(console, case_store.wave)) return false;
  RootFiles files;
  if (!OpenRootFiles(platform, case_store, root, kFiles, files)) return false;
  result = {};
  const auto write = [&] {
    const LineWork work{settings, StepsOf(case_store, steps), case_store, PointsOfLine(case_store)};
    return WriteSteps(platform, work, files, result);
  };
  if (DoOrSay(console, kNoMemory, write)) return CloseRootFiles(console, files);
  DiscardRootFiles(files);
  return false;
}

ResultPlot WaveAnalysisPlot(const WaveAnalysisResult& result) {
  ResultPlot plot{.title = "Waves along the ship", .panels = {}};
  if (result.time.empty()) return plot;
  ResultPanel celerity{
      .x_name = "Time", .y_name = "Celerity along the heading", .curves = {}, .bands = {}, .notes = {}};
  celerity.curves.push_back(WithoutSpikes("At the CG", result.time, result.celerity_cg));
  celerity.curves.push_back(WithoutSpikes("Along the ship", result.time, result.celerity_avg));
  celerity.curves.back().style = ResultStyle::dashed;
  ResultPanel elevation{.x_name = "Time", .y_name = "Elevation at the CG", .curves = {}, .bands = {}, .notes = {}};
  elevation.curves.push_back({"", result.time, result.elevation});
  plot.panels = {std::move(celerity), std::move(elevation)};
  return plot;
}

}  // namespace zaview
