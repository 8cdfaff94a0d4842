#include "analysis/crane/crane_files.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <string_view>

#include "base/angles.h"
#include "base/grow.h"
#include "base/number_format.h"
#include "base/table_text.h"
#include "base/text.h"
#include "base/vectors.h"
#include "geometry/hull_cells.h"

namespace zaview {
namespace {

constexpr std::string_view kTitle = "ZAVO crane and cargo model output";
constexpr std::string_view kGeometryTitle = "ZAVO crane and cable geometry";
constexpr std::string_view kThreeDof[] = {"NOTE: In 3-DOF model, cargo CG assumed to be at cable end",
                                          "      and cargo rotations cannot be modeled",
                                          "      Setting CRANE_RCARGO and CRANE_ACARGO to (0.0,0.0,0.0)"};
constexpr std::string_view kGlobal = "- Initial positions are in global coordinates";
constexpr std::string_view kNotFedBack =
    "- Motions of the ship are given: tensions of cables do not act on it (CRANE_IFRC 1)";

constexpr double kRounding = 1e-12;  // of the reference length: what is left of a sum that is 0

double LengthOut(double length, double L) {
  return std::abs(length) < kRounding ? 0.0 : Finite(length * L);
}

struct Report {
  const OutputScales& scales;
  double T = 1;  // as scales.T, not rounded
  std::string text{};

  void Line(std::string_view line) { text.append(line).append("\n"); }
  void Value(std::string_view label, double value) {
    fmt::format_to(std::back_inserter(text), "{} {}\n", label, Shown{static_cast<float>(value)});
  }
  void Vector(std::string_view label, const Vector3& v, double scale) {
    const auto shown = [&](std::size_t i) { return Shown{static_cast<float>(LengthOut(v[i], scale))}; };
    fmt::format_to(std::back_inserter(text), "{} {} {} {}\n", label, shown(0), shown(1), shown(2));
  }
  [[nodiscard]] double length() const { return scales.position[0]; }
};

void AppendCables(const CraneInput& input, const CraneModel& m, Report& report) {
  const bool rigid = input.INCABLE == kRigidCable;
  const double stretch = rigid ? 0.0 : StaticStretch(m);
  const double length = m.length + stretch;
  if (rigid) report.Line(kRigidCables);
  report.Value("Cable stretch under static load -", stretch * report.length());
  report.Value("Cable length  under static load -", length * report.length());
  if (!rigid) {
    const double k = m.EA / m.length;
    const double w = std::sqrt(static_cast<double>(m.cables) * k / m.mass);
    report.Value("Cable spring constant           -", k * report.scales.force[0] / report.length());
    report.Value("Cable nat. frequency in stretch -", w / report.T);
    report.Value("Cable nat. period in stretch    -", kTwoPi / w * report.T);
  }
  const double swing = std::sqrt(m.gravity / length);
  report.Value("Approx nat. frequency in swing  -", swing / report.T);
  report.Value("Approx nat. period in swing     -", kTwoPi / swing * report.T);
}

void AppendPlaces(const CraneRun& run, Report& report) {
  const CraneModel& m = run.model;
  for (std::size_t b = 0; b < m.cables; ++b) {
    report.Vector("Crane initial base position     -", run.start.base[b], report.length());
    report.Vector("Crane initial boom tip position -", run.start.tip[b], report.length());
    report.Value("Crane boom length               -", m.booms[b].length * report.length());
    report.Value("Crane boom slew angle           -", m.booms[b].slew * kDegrees);
    report.Value("Crane boom luff angle           -", m.booms[b].luff * kDegrees);
  }
  report.Vector("Cargo ref pt initial position   -", run.start.end, report.length());
  report.Vector("Cargo ref pt initial velocity   -", run.start_velocity, report.scales.velocity[0]);
  report.Vector("Cargo CG wrt reference point    -", m.s, report.length());
  report.Vector("Cargo rotation wrt reference pt -", m.start.euler, kDegrees);
}

// ---- Heads of the table

constexpr std::string_view kTimeHead = " Time         ";
constexpr std::string_view kGroups[] = {"------1st Boom Tip (Global) --------- ",
                                        "-- Cargo Position wrt 1st Boom Tip -- ",
                                        "---------- Cargo Rotation ------------"};
constexpr std::string_view kNames[] = {"     X            Y            Z       ",
                                       "    dX           dY           dZ       ", "   Rot_X        Rot_Y        Rot_Z"};

// Each over the middle of its three columns.
void AppendHead(std::string& text, std::string_view first, std::span<const std::string_view> groups) {
  constexpr int kColumn = kCellWidth + 1, kGroup = 3 * kColumn - 2;
  std::string line = fmt::format("{:<{}}", first, kColumn);
  for (const std::string_view group : groups) fmt::format_to(std::back_inserter(line), "  {:<{}}", group, kGroup);
  text.append(TrimEnd(line)).append("\n");
}

// ---- Geometry

void AppendPolyline(std::string& text, std::span<const Vector3> points, bool closed, double L) {
  fmt::format_to(std::back_inserter(text), "{}\n", points.size() + (closed ? 1 : 0));
  const auto append = [&](const Vector3& p) {
    fmt::format_to(std::back_inserter(text), "{:.9g} {:.9g} {:.9g}\n", LengthOut(p[0], L), LengthOut(p[1], L),
                   LengthOut(p[2], L));
  };
  std::for_each(points.begin(), points.end(), append);
  if (closed) append(points.front());
}

std::vector<HullCell> PanelsOf(const Hull& cargo) {
  std::vector<HullCell> panels;
  VisitCells(cargo, [&panels](const HullCell& cell) { panels.push_back(cell); });
  return panels;
}

void AppendPanel(std::string& text, const HullCell& panel, const CraneSnapshot& at, double L) {
  HullCell moved = panel;
  for (Vector3& p : moved.corner) p = Plus(at.end, ToGlobal(at.Q, p));
  AppendPolyline(text, moved.ring(), true, L);
}

// ---- Picture

ResultPlot MakePlot(const OutputSettings& settings, const CraneRun& run) {
  const OutputScales& scales = settings.units.scales;
  ResultPlot plot;
  if (run.steps.empty()) return plot;
  std::vector<float> time(run.time);
  for (float& t : time) t *= scales.T;
  const auto curve = [&](std::string name, auto value) {
    ResultCurve made{std::move(name), time, {}};
    for (const CraneSnapshot& at : run.steps) made.y.push_back(static_cast<float>(value(at)));
    return made;
  };
  const auto swing = [](const CraneSnapshot& at, std::size_t axis) {
    const Vector3 r = Minus(at.end, at.tip[0]);
    return std::atan2(r[axis], -r[2]) * kDegrees;
  };
  plot.title = "Crane and cargo";
  plot.panels.resize(3);
  plot.panels[0] = {"Time",
                    "Boom (deg)",
                    {curve("Slew", [](const auto& m) { return m.slew * kDegrees; }),
                     curve("Luff", [](const auto& m) { return m.luff * kDegrees; })},
                    {},
                    {}};
  plot.panels[1] = {
      "Time",
      "Swing (deg)",
      {curve("X", [&](const auto& m) { return swing(m, 0); }), curve("Y", [&](const auto& m) { return swing(m, 1); })},
      {},
      {}};
  plot.panels[2] = {"Time", "Tension", {}, {}, {}};
  for (std::size_t b = 0; b < run.model.cables; ++b)
    plot.panels[2].curves.push_back(curve(run.model.cables == 1 ? "" : fmt::format("Cable {}", b + 1),
                                          [&](const auto& m) { return m.tension[b] * scales.force[0]; }));
  return plot;
}

}  // namespace

std::string CraneReport(const OutputSettings& settings, const CraneInput& input, const CraneRun& run) {
  const OutputUnits& units = settings.units;
  Report report{units.scales, std::sqrt(static_cast<double>(units.LENOUT) / static_cast<double>(units.GRAVOUT))};
  if (input.DOF == 3)
    for (const std::string_view line : kThreeDof) report.Line(line);
  report.Line("Crane & cargo model quantities:");
  AppendCables(input, run.model, report);
  AppendPlaces(run, report);
  report.Line("Notes:");
  report.Line(kGlobal);
  if (input.IFRC != 0) report.Line(kNotFedBack);
  return report.text;
}

std::string TensionReport(const OutputSettings& settings, const CraneRun& run) {
  double largest = 0;
  std::size_t at = 0;
  for (std::size_t i = 0; i < run.steps.size(); ++i) {
    const auto& tension = run.steps[i].tension;
    const double here = *std::max_element(tension.begin(), tension.end());
    if (here <= largest) continue;
    largest = here;
    at = i;
  }
  if (run.steps.empty()) return {};
  const OutputScales& scales = settings.units.scales;
  return fmt::format("Largest tension of a cable      - {} at time {}\n",
                     Shown{static_cast<float>(largest * scales.force[0])}, Shown{run.time[at] * scales.T});
}

void WriteCraneMotions(const OutputSettings& settings, const CraneRun& run, OutputFile& out) {
  constexpr std::size_t kColumns = 10;
  const Separator separator = settings.writing.separator;
  std::string text = out.had_text ? "\n" : "";
  text.append(kTitle).append("\n");
  TableLayout layout{separator, std::vector<int>(kColumns, kCellWidth)};
  if (separator == Separator::space) {
    AppendHead(text, kTimeHead, kGroups);
    AppendHead(text, "", kNames);
  } else {
    const std::array<std::string, kColumns> names = {"Time", "X",  "Y",     "Z",     "dX",
                                                     "dY",   "dZ", "Rot_X", "Rot_Y", "Rot_Z"};
    AppendHeading(text, layout, names);
  }
  const OutputScales& scales = settings.units.scales;
  for (std::size_t i = 0; i < run.steps.size(); ++i) {
    const CraneSnapshot& at = run.steps[i];
    const Vector3 hanging = Minus(at.end, at.tip[0]), euler = EulerOf(at.Q);
    std::array<float, kColumns> cells{run.time[i] * scales.T};
    for (std::size_t k = 0; k < 3; ++k) {
      cells[1 + k] = static_cast<float>(LengthOut(at.tip[0][k], scales.position[0]));
      cells[4 + k] = static_cast<float>(LengthOut(hanging[k], scales.position[0]));
      cells[7 + k] = static_cast<float>(euler[k] * kDegrees);
    }
    AppendRow(text, layout, cells);
    WriteGathered(out, text);
  }
  WriteOutput(out, text);
}

void WriteCraneGeometry(const OutputSettings& settings, const CraneRun& run, OutputFile& out) {
  const OutputScales& scales = settings.units.scales;
  const double L = scales.position[0];
  const std::vector<HullCell> panels = PanelsOf(run.cargo);
  std::string text = out.had_text ? "\n" : "";
  text.append(kGeometryTitle).append("\n");
  for (std::size_t i = 0; i < run.steps.size(); ++i) {
    const CraneSnapshot& at = run.steps[i];
    fmt::format_to(std::back_inserter(text), "{:.9g} {}\n", Finite(run.time[i] * scales.T),
                   run.model.cables + panels.size());
    for (std::size_t b = 0; b < run.model.cables; ++b)
      AppendPolyline(text, std::array{at.base[b], at.tip[b], at.end}, false, L);
    for (const HullCell& panel : panels) {
      AppendPanel(text, panel, at, L);
      WriteGathered(out, text);
    }
    WriteGathered(out, text);
  }
  WriteOutput(out, text);
}

ResultPlot CranePlot(const OutputSettings& settings, const CraneRun& run) {
  return Guarded([&] { return MakePlot(settings, run); }, ResultPlot{});
}

}  // namespace zaview
