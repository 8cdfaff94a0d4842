#include "case/read/table_input.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "base/angles.h"
#include "base/grow.h"
#include "base/line_source.h"
#include "base/message.h"
#include "base/number_format.h"
#include "base/text.h"
#include "case/read/ensemble_match.h"
#include "case/read/finish_case_read.h"
#include "case/read/table_columns.h"
#include "case/read/table_steps.h"
#include "case/read/table_units.h"
#include "case/size_history.h"
#include "control/input_scales.h"
#include "waves/incident_wave.h"

namespace zaview {
namespace {

inline constexpr std::string_view kReading = "Reading measured data from table {}";
inline constexpr std::string_view kRead = "Time steps {} through {} read from table {}";
inline constexpr std::string_view kColumn = " {:>3} - {}";
inline constexpr std::string_view kMoreColumns = "       and {} more";
inline constexpr std::string_view kMotions = "Motions among the columns: {}";
inline constexpr std::string_view kMotionsNotThere = "Motions that no column has are 0: {}";
inline constexpr std::string_view kNoMotions = "No column is a motion of the ship: all are shown as MEASURED";
inline constexpr std::string_view kNoUnit = "Taken in {}, as the heading has no unit: {}";
inline constexpr std::string_view kWrongUnit = "WARNING - {} is not taken as a motion: its unit is {}";
inline constexpr std::string_view kTwice = "WARNING - {} is not taken as a motion: {} is the same one";
inline constexpr std::string_view kUnknownTime = "WARNING - times are taken as seconds";
inline constexpr std::string_view kMissing =
    "WARNING - steps without a row: {}, at most {} at a stretch; filled in by straight lines";
inline constexpr std::string_view kUneven = "WARNING - time steps from {} to {}: resampled at {} by straight lines";
inline constexpr std::string_view kFromFirst = "WARNING - times are counted from the first row, {:.15g}";
inline constexpr std::string_view kGaps =
    "WARNING - gaps in column {}: {}, at most {} at a stretch; filled in by straight lines";
inline constexpr std::string_view kLongGap =
    "WARNING - column {} is left out: a gap of {} steps from line {} on, more than {} are not filled in";
inline constexpr std::string_view kFurther = "WARNING - line {} begins another table, which is not read";
inline constexpr std::string_view kCut = "WARNING - the row at line {}, the last, is not complete: left out";
inline constexpr std::string_view kHole =
    "ERROR - {} steps without a row ahead of line {} of {}, more than {} are not filled in";
inline constexpr std::string_view kNoColumns = "ERROR - no column of {} is left";
inline constexpr std::string_view kUnreadable = "ERROR reading table {}";
inline constexpr std::string_view kNoMemory = "ERROR allocating time history data, istat= 1";

struct FaultText {
  TableFaultKind kind;
  std::string_view text;  // of what stands there
};
constexpr FaultText kFaults[] = {
    {TableFaultKind::empty, "no text"},
    {TableFaultKind::no_text, "no letters of one byte (a table in UTF-16 must be saved as UTF-8)"},
    {TableFaultKind::no_heading, "no heading ahead of the numbers {}"},
    {TableFaultKind::no_separator, "no comma, semicolon or tab in the heading {}"},
    {TableFaultKind::no_time, "no column with the name time or t in the heading {}"},
    {TableFaultKind::only_time, "no column but the time in the heading {}"},
    {TableFaultKind::no_name, "no name of the column"},
    {TableFaultKind::too_many_columns, "too many columns"},
    {TableFaultKind::fields, "a row has another number of fields than the heading"},
    {TableFaultKind::number, "no number: {}"},
    {TableFaultKind::no_time_value, "a row without a time"},
    {TableFaultKind::not_increasing, "time not increasing: {}"},
    {TableFaultKind::no_rows, "no rows behind the heading"},
    {TableFaultKind::too_many_rows, "too many rows"},
};

constexpr std::string_view kEndings[] = {".CSV", ".TSV"};
constexpr std::size_t kListed = 20;  // columns told one by one
constexpr std::size_t kSix = 6;
constexpr double kFoot = 0.3048;
constexpr double kLargest = std::numeric_limits<float>::max();

constexpr std::array<std::array<std::string_view, 6>, kSix> kMotionNames = {{
    {"SURGE", "X", "PMGG(1)", "MOTION(1)"},
    {"SWAY", "Y", "PMGG(2)", "MOTION(2)"},
    {"HEAVE", "Z", "PMGG(3)", "MOTION(3)"},
    {"ROLL", "PHI", "PMGG(4)", "MOTION(4)", "ROT_X", "HEEL"},
    {"PITCH", "THETA", "PMGG(5)", "MOTION(5)", "ROT_Y", "TRIM"},
    {"YAW", "PSI", "PMGG(6)", "MOTION(6)", "ROT_Z", "HEADING"},
}};
constexpr std::array<std::string_view, kSix> kMotionWords = {"surge", "sway", "heave", "roll", "pitch", "yaw"};

struct Table {
  std::string name;
  TableHead head;
  TableRows rows;
  TableSampling sampling;
  double first_time = 0;          // seconds, as it is kept
  double time_factor = 1;         // of the unit of the times, to seconds
  std::vector<std::size_t> from;  // columns of the case: their index in the heading
};

struct CaseUnits {  // of the case
  double g = 9.81, rho = 1025, length = 1, angle = kDegrees;
  bool feet = false;
};

void AppendWord(std::string& list, std::string_view word) {
  if (!list.empty()) list += ", ";
  list += word;
}

// ---- What is wrong, what has been made up

void SayFault(const Console& console, const TableFault& fault, const std::string& name) {
  if (fault.kind == TableFaultKind::out_of_memory) return SayLine(console, kNoMemory);
  if (fault.kind == TableFaultKind::read_error) return Say(console, kUnreadable, name);
  for (const FaultText& row : kFaults) {
    if (row.kind != fault.kind) continue;
    std::string text = "ERROR - " + fmt::format(fmt::runtime(row.text), fault.text);
    if (fault.line > 0) text += fmt::format(" at line {}", fault.line);
    if (fault.column > 0) text += fmt::format(", column {}", fault.column);
    Say(console, "{}{} {}", text, fault.line > 0 ? " of" : " in", name);
  }
}

bool CheckSampling(const Console& console, const Table& table) {
  const TableSampling& s = table.sampling;
  if (s.hole > kMostFilled) {
    Say(console, kHole, s.hole, s.hole_line, table.name, kMostFilled);
    return false;
  }
  if (s.spacing == Spacing::rows_missing) Say(console, kMissing, s.missing, s.hole);
  const auto shown = [](double value) { return Shown{static_cast<float>(value)}; };
  if (s.spacing == Spacing::uneven) Say(console, kUneven, shown(s.shortest), shown(s.longest), shown(s.step));
  return true;
}

// ---- The columns

bool ReadTable(const Platform& platform, FileHandle file, Table& table) {
  const Console& console = platform.console;
  BlockStream stream;
  StartStream(stream, platform.files, file);
  LineSource source;
  source.stream = &stream;
  TableFault fault = ReadTableHead(source, table.head);
  if (fault.kind == TableFaultKind::none) fault = ReadTableRows(source, table.head, table.rows);
  if (fault.kind != TableFaultKind::none) {
    SayFault(console, fault, table.name);
    return false;
  }
  if (table.rows.cut_line > 0) Say(console, kCut, table.rows.cut_line);
  if (table.rows.further_line > 0) Say(console, kFurther, table.rows.further_line);
  table.sampling = FindSampling(table.rows);
  return CheckSampling(console, table);
}

// Of each column its samples at all steps; one with a long gap is left out.
bool TakeColumns(const Console& console, const Table& table, std::vector<std::size_t>& from, CaseStore& c) {
  c.measured.first = c.first_read;
  for (std::size_t i = 0; i < table.head.names.size(); ++i) {
    if (i == table.head.time_column) continue;
    std::vector<float> samples;
    ColumnGaps gaps;
    if (!SampleColumn(table.rows, table.sampling, i, samples, gaps)) {
      SayLine(console, kNoMemory);
      return false;
    }
    const std::string& name = table.head.names[i];
    if (gaps.longest > kMostFilled) {
      Say(console, kLongGap, name, gaps.longest, gaps.line, kMostFilled);
      continue;
    }
    if (gaps.cells > 0) Say(console, kGaps, name, gaps.cells, gaps.longest);
    c.measured_columns.push_back({name, table.head.units[i]});
    c.measured.component.push_back(std::move(samples));
    from.push_back(i);
  }
  if (from.empty()) Say(console, kNoColumns, table.name);
  return !from.empty();
}

void SayColumns(const Console& console, const CaseStore& c) {
  for (std::size_t i = 0; i < std::min(kListed, c.measured_columns.size()); ++i) {
    const auto& [name, unit] = c.measured_columns[i];
    Say(console, kColumn, i + 1, unit.empty() ? name : fmt::format("{}, {}", name, unit));
  }
  if (c.measured_columns.size() > kListed) Say(console, kMoreColumns, c.measured_columns.size() - kListed);
}

// ---- Units and times

bool Near(double value, double low, double high) {
  return value >= low && value <= high;
}

CaseUnits UnitsOf(const OutputSettings& settings, bool has_case) {
  const OutputUnits& output = settings.units;
  CaseUnits units;
  units.feet = Near(output.GRAVOUT, 32.0, 32.4);
  if (has_case || output.user_scale[3]) units.angle = output.ANGOUT;
  if (!units.feet && !Near(output.GRAVOUT, 9.7, 9.9)) return units;
  units.g = output.GRAVOUT;
  units.rho = output.RHOOUT;
  units.length = output.LENOUT;
  return units;
}

// Where 4-byte reals can't tell the times apart, they count from the first row.
void SettleTimes(const Console& console, Table& table) {
  constexpr double kPartOfStep = 0.01;
  const std::string& unit = table.head.units[table.head.time_column];
  const TableUnit known = FindTableUnit(unit);
  if (known.kind == TableUnitKind::time) table.time_factor = known.factor;
  else if (!unit.empty()) SayLine(console, kUnknownTime);
  const TableSampling& s = table.sampling;
  table.first_time = s.first * table.time_factor;
  const double last = s.first + static_cast<double>(s.steps) * s.step;
  const double size = std::max(std::fabs(s.first), std::fabs(last));
  const bool told_apart = size * std::numeric_limits<float>::epsilon() <= kPartOfStep * s.step;
  if (told_apart || std::fabs(s.first) < last - s.first) return;
  Say(console, kFromFirst, s.first);
  table.first_time = 0;
}

// ---- Motions

std::optional<std::size_t> MotionOf(std::string_view name) {
  const std::string capitals = Capitals(name);
  for (std::size_t i = 0; i < kSix; ++i)
    for (const std::string_view word : kMotionNames[i])
      if (!word.empty() && word == capitals) return i;
  return std::nullopt;
}

// Shown in output units: what a number of the column is times this. 0: its unit is none of a motion.
double ToOutput(const TableUnit& unit, bool rotation, const CaseUnits& units) {
  if (unit.kind == TableUnitKind::none) return 1;
  if (rotation) return unit.kind == TableUnitKind::angle ? unit.factor * units.angle : 0;
  return unit.kind == TableUnitKind::length ? unit.factor / (units.feet ? kFoot : 1) : 0;
}

struct MotionColumns {
  std::array<std::optional<std::size_t>, kSix> column;  // of the case
  std::array<double, kSix> factor{};                    // to output units
  [[nodiscard]] bool any() const {
    return std::any_of(column.begin(), column.end(), [](const auto& c) { return c.has_value(); });
  }
};

MotionColumns FindMotions(const Console& console, const CaseStore& c, const CaseUnits& units) {
  MotionColumns motions;
  for (std::size_t i = 0; i < c.measured_columns.size(); ++i) {
    const auto& [name, unit] = c.measured_columns[i];
    const std::optional<std::size_t> slot = MotionOf(name);
    if (!slot) continue;
    TableUnit known = FindTableUnit(unit);
    if (known.kind == TableUnitKind::none && !unit.empty()) known.kind = TableUnitKind::other;
    const double factor = ToOutput(known, *slot >= 3, units);
    std::optional<std::size_t>& column = motions.column[*slot];
    if (factor == 0) {
      Say(console, kWrongUnit, name, unit);
    } else if (column) {
      Say(console, kTwice, name, c.measured_columns[*column].name);
    } else {
      column = i;
      motions.factor[*slot] = factor;
    }
  }
  return motions;
}

std::string AngleName(const CaseUnits& units) {
  if (std::fabs(units.angle - kDegrees) < 0.001) return "deg";
  return units.angle == 1 ? "rad" : "units of ANGOUT";
}

void SayMotions(const Console& console, const CaseStore& c, const MotionColumns& motions, const CaseUnits& units) {
  if (!motions.any()) return SayLine(console, kNoMotions);
  std::string there, not_there, lengths, angles;
  for (std::size_t i = 0; i < kSix; ++i) {
    AppendWord(motions.column[i] ? there : not_there, kMotionWords[i]);
    if (motions.column[i] && c.measured_columns[*motions.column[i]].unit.empty())
      AppendWord(i < 3 ? lengths : angles, kMotionWords[i]);
  }
  Say(console, kMotions, there);
  if (!not_there.empty()) Say(console, kMotionsNotThere, not_there);
  if (!lengths.empty()) Say(console, kNoUnit, units.feet ? "ft" : "m", lengths);
  if (!angles.empty()) Say(console, kNoUnit, AngleName(units), angles);
}

// ---- The case

void FillControl(const Table& table, const CaseUnits& units, ControlRecords& control) {
  control.DESCR = Trim(table.head.title);
  control.MOTYPE = 0;
  control.NSTEP = static_cast<int>(table.sampling.steps);
  control.TINIT = table.first_time;
  control.DTH = table.sampling.step * table.time_factor;
  control.GRAVIN = control.GRAVOUT = units.g;
  control.RHOIN = control.RHOOUT = units.rho;
  control.LENIN = control.LENOUT = units.length;
  control.ANGIN = control.ANGOUT = units.angle;
}

float Rounded(double value) {
  return static_cast<float>(std::clamp(value, -kLargest, kLargest));
}

// As shown, they are what the table has: stored values are without the scale and the sign of the output.
bool FillHistories(const OutputUnits& output, const MotionColumns& motions, CaseStore& c) {
  if (!SizeHistory(c, 1, c.time) || !SizeHistory(c, kSix, c.pmgg)) return false;
  if (!SizeHistory(c, kSix, c.vmg) || !SizeHistory(c, kSix, c.acc)) return false;
  const double scale = InputScalesOf(c.control).time;
  std::vector<float>& time = c.time.component[0];
  for (std::size_t s = 0; s < time.size(); ++s)
    time[s] = Rounded((c.control.TINIT + static_cast<double>(s) * c.control.DTH) * scale);
  for (std::size_t i = 0; i < kSix; ++i) {
    if (!motions.column[i]) continue;
    const std::vector<float>& of_table = c.measured.component[*motions.column[i]];
    const double shown = i < 3 ? c.control.LENOUT : c.control.ANGOUT;
    const double factor = motions.factor[i] / (shown * (output.cnvfac[i] < 0 ? -1 : 1));
    std::transform(of_table.begin(), of_table.end(), c.pmgg.component[i].begin(),
                   [factor](float value) { return Rounded(value * factor); });
    c.control.PMGIN[i] = c.pmgg.component[i][0] * shown;
  }
  return true;
}

std::string BaseOf(std::string_view name) {
  constexpr std::size_t kEnding = 4;
  name.remove_prefix(name.rfind('/') + 1);
  return std::string(name.substr(0, name.size() - kEnding));
}

bool BuildCase(const Console& console, const OutputSettings& settings, const CaseUnits& units, Table& table,
               CaseStore& c) {
  c.file_name = table.name;
  c.base_name = BaseOf(table.name);
  c.NSHIP = 1;
  c.ships.resize(1);
  c.kino_input = true;
  c.holds = {false, false, false, false, false};
  c.first_read = 1;
  c.last_read = c.nstep_expected = static_cast<int>(table.sampling.steps);
  SettleTimes(console, table);
  FillControl(table, units, c.control);
  if (!TakeColumns(console, table, table.from, c)) return false;
  table.rows = {};
  SayColumns(console, c);
  const MotionColumns motions = FindMotions(console, c, units);
  SayMotions(console, c, motions, units);
  c.motions_known = motions.any();
  if (!FillHistories(settings.units, motions, c) || !PrepareIncidentWave(c.seaway, c.wave)) {
    SayLine(console, kNoMemory);
    return false;
  }
  c.seaway_tried = Tried::there;
  c.hull_tried = Tried::failed;
  return true;
}

}  // namespace

bool IsTableName(std::string_view name) {
  const std::string capitals = Capitals(name.substr(name.size() - std::min<std::size_t>(4, name.size())));
  return name.size() > 4 && std::find(std::begin(kEndings), std::end(kEndings), capitals) != std::end(kEndings);
}

TableInput ReadTableFile(const Platform& platform, FileHandle file, const std::string& name, EnsembleMode ensemble_mode,
                         OutputSettings& settings, CaseStore& case_store, EnsembleStore& ensemble) {
  const Console& console = platform.console;
  Table table;
  table.name = name;
  Say(console, kReading, name);
  if (!ReadTable(platform, file, table)) return TableInput::failed;
  CaseStore fresh;
  if (!BuildCase(console, settings, UnitsOf(settings, case_store.has_case), table, fresh)) return TableInput::failed;
  Say(console, kRead, 1, fresh.last_read, name);
  fresh.has_case = true;
  finish_case_read(console, settings, fresh);
  match_case_to_ensemble(console, ensemble_mode, fresh, ensemble, case_store);
  return TableInput::ok;
}

}  // namespace zaview
