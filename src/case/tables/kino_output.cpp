#include "case/tables/kino_output.h"

#include <array>
#include <cmath>
#include <iterator>
#include <span>

#include "base/angles.h"
#include "base/data_fault.h"
#include "base/message.h"
#include "base/number_format.h"
#include "base/number_parse.h"
#include "base/text.h"
#include "case/kino_motions.h"
#include "case/wave_at_cg.h"
#include "geometry/read_geometry.h"
#include "waves/kino_sea.h"

namespace zaview {
namespace {

inline constexpr std::string_view kNotImpulsive = "ERROR - KINO output not relevant for impulsive motion";
inline constexpr std::string_view kNotIrf = "ERROR - KINO output not relevant for IRF calculation";
inline constexpr std::string_view kNoMotions = "ERROR - no column of the table is a motion";
inline constexpr std::string_view kTransformation[] = {
    "To use this file with geometry specified in ZAVO input coordinates,",
    "an initial transformation must be specified:"};

constexpr double kUsualGravity = 9.81;  // what a viewer takes if it is told nothing
constexpr double kSameGravity = 0.001;  // of it

// ---- The transformation of input geometry

struct ViewerTransformation {
  Triple gshift{}, gorig{}, grot_deg{};
  double lf_scale = 1;
};

ViewerTransformation TransformationOf(const OutputSettings& settings, const CaseStore& c) {
  const ControlRecords& control = c.control;
  ViewerTransformation viewer;
  viewer.gorig = control.GORIG;
  viewer.gshift = control.GSHIFT;
  const auto ship = static_cast<std::size_t>(c.ship - 1);
  for (std::size_t i = 0; i < 3; ++i) {
    viewer.grot_deg[i] = control.GROT[i] / control.ANGIN * kDegrees;
    if (ship < c.ships.size()) viewer.gshift[i] -= c.ships[ship].centre[i] * control.LENIN;
  }
  viewer.lf_scale = AsWritten(settings.units.LENOUT) / control.LENIN;
  return viewer;
}

std::string Number(double value) {
  return SentenceNumber(static_cast<float>(value));
}

std::string Numbers(const Triple& v) {
  return fmt::format("{} {} {}", Number(v[0]), Number(v[1]), Number(v[2]));
}

// ---- The viewer's commands

struct PrefixRow {
  std::string_view prefix, option;
};
constexpr PrefixRow kPrefixes[] = {{"NASTRAN:", "-nastran"}, {"nastran:", "-nastran"}, {"HARLEND:", "-hrl"},
                                   {"harlend:", "-hrl"},     {"HRL:", "-hrl"},         {"hrl:", "-hrl"},
                                   {"SHAPE:", "-zavo"},      {"shape:", "-zavo"}};

template <typename... Args>
void AppendLine(std::string& text, fmt::format_string<Args...> line, Args&&... args) {
  fmt::format_to(std::back_inserter(text), line, std::forward<Args>(args)...);
  text += '\n';
}

void AppendGeometry(std::string& text, std::string_view name) {
  std::string_view option = "-zavo";
  for (const PrefixRow& row : kPrefixes) {
    if (!StartsWith(name, row.prefix)) continue;
    option = row.option;
    name.remove_prefix(row.prefix.size());
    break;
  }
  AppendLine(text, "{} {}", option, name);
}

void AppendTriple(std::string& text, std::string_view option, const Triple& v) {
  if (v != Triple{}) AppendLine(text, "{}{}", option, Numbers(v));
}

// Step and factor become time and factor.
void AppendWaveScale(std::string& text, const OutputSettings& settings, const WaveScaling& scaling) {
  if (scaling.WSCSTP.empty()) return;
  text += "-wave_scale";
  for (std::size_t i = 0; i < scaling.WSCSTP.size(); ++i) {
    const double time = scaling.TINIT + (scaling.WSCSTP[i] - 1.0) * scaling.DTH;
    fmt::format_to(std::back_inserter(text), " {} {}", Number(time * settings.units.scales.T),
                   Number(scaling.WSCFAC[i]));
  }
  text += '\n';
}

std::string ViewerCommands(const OutputSettings& settings, const CaseStore& c, std::string_view sea_name) {
  std::string text;
  AppendLine(text, "!KINO command file for data from ZAVO output file {}", c.file_name);
  if (SplitGeometryName(c.control.FGEOM).format != GeometryFormat::none) {
    AppendGeometry(text, Trim(c.control.FGEOM));
    if (c.control.SYMINP == 1) text += "-mirror_lf\n";
    const ViewerTransformation viewer = TransformationOf(settings, c);
    AppendTriple(text, "-gshift ", viewer.gshift);
    AppendTriple(text, "-gorig  ", viewer.gorig);
    AppendTriple(text, "-grot   ", viewer.grot_deg);
    if (viewer.lf_scale != 1) AppendLine(text, "-lf_scale {}", Number(viewer.lf_scale));
  }
  AppendLine(text, "-sea {}", sea_name);
  const KinoSeaUnits units = KinoUnitsOf(settings);
  if (std::fabs(units.g - kUsualGravity) > kSameGravity * kUsualGravity) AppendLine(text, "-grav {}", Number(units.g));
  if (c.seaway.WDEPTH > 0) AppendLine(text, "-depth {}", Number(c.seaway.WDEPTH * units.L));
  AppendWaveScale(text, settings, c.seaway.scaling);
  return text;
}

// ---- The set

struct SetFile {
  std::string_view extension, open_fault, writing;
};
constexpr SetFile kMotions = {".mot", "ERROR opening KINO motion data file {}{}", "Writing KINO motion data to {}"};
constexpr SetFile kSeaway = {".sea", "ERROR opening KINO seaway data file {}{}", "Writing KINO seaway data to {}"};
constexpr SetFile kCommands = {".kno0", "ERROR opening KINO command file {}{}", "Writing KINO commands to {}"};
inline constexpr std::string_view kWriteFault = "ERROR writing KINO file {}{}";

// body(out) writes the file; false (told) gives it up.
template <typename Body>
bool WriteSetFile(const Platform& platform, const SetFile& row, const std::string& stem, Body body) {
  const std::string name = stem + std::string(row.extension);
  OutputFile out;
  if (!OpenOutput(platform, name, OpenHow::replace, out)) {
    Say(platform.console, fmt::runtime(row.open_fault), name, Because(out.why));
    return false;
  }
  Say(platform.console, fmt::runtime(row.writing), name);
  if (!body(out)) {
    DiscardOutput(out);
    return false;
  }
  if (CloseOutput(out)) return true;
  Say(platform.console, kWriteFault, name, Because(out.why));
  return false;
}

}  // namespace

KinoSeaUnits KinoUnitsOf(const OutputSettings& settings) {
  return {AsWritten(settings.units.GRAVOUT), AsWritten(settings.units.LENOUT)};
}

void WriteKinoMotions(const OutputSettings& settings, const CaseStore& case_store, OutputFile& out) {
  const CaseStore& c = case_store;
  const KinoSeaUnits units = KinoUnitsOf(settings);
  const double T = std::sqrt(units.L / units.g);
  std::string text = out.had_text ? "\n" : "";
  AppendLine(text, "!KINO motion data from ZAVO output file {}", c.file_name);
  AppendLine(text, "{}", DefaultNumber(settings.units.LENOUT));
  const std::int64_t stride = std::max(1, settings.reading.step_stride);
  for (std::int64_t i = c.first_step; i <= c.last_step; i += stride) {
    const int step = static_cast<int>(i);
    std::array<double, 7> row{c.time.at(1, step) * T};
    for (int k = 1; k <= 6; ++k) row[static_cast<std::size_t>(k)] = c.pmgg.at(k, step) * (k <= 3 ? units.L : kDegrees);
    AppendKinoStep(text, row);
    WriteGathered(out, text);
  }
  WriteOutput(out, text);
}

bool WriteKinoSeaway(const Console& console, const OutputSettings& settings, CaseStore& case_store, OutputFile& out) {
  if (EnsureSeaway(console, case_store) != WaveAnswer::ok) return false;
  std::string text;
  if (!KINOSE(case_store.control, case_store.seaway, KinoUnitsOf(settings), case_store.file_name, text)) {
    SayLine(console, kReportNoMemory);
    return false;
  }
  if (out.had_text) WriteOutput(out, "\n");
  WriteOutput(out, text);
  return true;
}

void SayKinoTransformation(const Console& console, const OutputSettings& settings, const CaseStore& case_store) {
  if (SplitGeometryName(case_store.control.FGEOM).format == GeometryFormat::none) return;
  const ViewerTransformation viewer = TransformationOf(settings, case_store);
  SayLines(console, kTransformation);
  Say(console, "-gshift {}", Numbers(viewer.gshift));
  Say(console, "-gorig {}", Numbers(viewer.gorig));
  Say(console, "-grot  {}", Numbers(viewer.grot_deg));
  Say(console, "-lf_scale {}", Number(viewer.lf_scale));
}

KinoSet write_kino_files(const Platform& platform, std::string_view root, const OutputSettings& settings,
                         CaseStore& case_store) {
  if (!case_store.time_history()) {
    SayLine(platform.console, case_store.tadm_case ? kNotImpulsive : kNotIrf);
    return KinoSet::refused;
  }
  if (!case_store.motions_known) {
    SayLine(platform.console, kNoMotions);
    return KinoSet::refused;
  }
  if (EnsureSeaway(platform.console, case_store) != WaveAnswer::ok) return KinoSet::failed;
  const std::string stem(IsBlank(root) ? std::string_view(case_store.base_name) : Trim(root));
  const bool written =
      WriteSetFile(platform, kMotions, stem,
                   [&](OutputFile& out) {
                     WriteKinoMotions(settings, case_store, out);
                     return true;
                   }) &&
      WriteSetFile(platform, kSeaway, stem,
                   [&](OutputFile& out) { return WriteKinoSeaway(platform.console, settings, case_store, out); }) &&
      WriteSetFile(platform, kCommands, stem, [&](OutputFile& out) {
        WriteOutput(out, ViewerCommands(settings, case_store, stem + std::string(kSeaway.extension)));
        return true;
      });
  return written ? KinoSet::ok : KinoSet::failed;
}

}  // namespace zaview
