#include "control/options_module.h"

#include <algorithm>
#include <iterator>

#include <fmt/format.h>

#include "base/message.h"
#include "base/number_parse.h"
#include "base/text.h"
#include "control/control_lines.h"
#include "control/control_text.h"

namespace zaview {
namespace {

constexpr std::string_view kIllegal = "ERR??? - Illegal {}: {}= {}";

constexpr auto kInteger = OptionKind::integer;
constexpr auto kReal = OptionKind::real;
constexpr auto kText = OptionKind::text;

// clang-format off
constexpr OptionRow kOptions[] = {
    {{"IACCOPT"}, kInteger, "!IACCOPT - option for computing accelerations"},
    {{"ICULPN"}, kInteger, "!ICULPN - option for culling panels"},
    {{"ICUTWL"}, kInteger, "!ICUTWL - option for cutting panels at the waterline"},
    {{"IDWL"}, kInteger, "!IDWL - option for the design waterline"},
    {{"IEKZOPT"}, kInteger, "!IEKZOPT  - option for computing exponential incident wave decay term"},
    {{"IFSCNTOPT"}, kInteger, "!IFSCNTOPT - option for free surface control points"},
    {{"FSDIFFAC"}, kReal, "!FSDIFFAC - factor for free surface differences"},
    {{"IFSELLOPT"}, kInteger, "!IFSELLOPT - option for elliptic free surface grid"},
    {{"IGF"}, kInteger, "!IGF - option for computing the Green function"},
    {{"IGMMATCH"}, kInteger, "!IGMMATCH - option for matching metacentric height"},
    {{"LAYER"}, kInteger, "!LAYER - option for layers of the free surface"},
    {{"LOADEXTFOPT"}, kInteger, "!LOADEXTFOPT - option for external forces in sectional loads"},
    {{"FINVFSOPT"}, kInteger, "!FINVFSOPT - option for free surface effects on fins"},
    {{"DNEAR"}, kReal, "!DNEAR - distance within which panels are near"},
    {{"SMOOTHOPT"}, kInteger, "!SMOOTHOPT - option for smoothing"},
    {{"SPEC_CUTOFF"}, kReal, "!SPEC_CUTOFF - Cutoff ratio for discretizing incident wave spectrum"},
    {{"SPEC_FREQ1"}, kReal, "!SPEC_FREQ1 - Lower frequency for discretizing incident wave spectrum"},
    {{"SPEC_FREQ2"}, kReal, "!SPEC_FREQ2 - Upper frequency for discretizing incident wave spectrum"},
    {{"SPEC_DISTOPT"}, kInteger, "!SPEC_DISTOPT - Frequency distribution option for discretizing incident wave spectrum",
     "spectral frequency distribution option", -1, 3},
    {{"SPEC_SPREADOPT"}, kInteger, "!SPEC_spreadOPT - Spreading option for spectrum-based incident wave",
     "spectral spreading option", -1, 2},
    {{"SPEC_PHASEOPTION", "SPEC_PHASEOPT"}, kInteger,
     "!SPEC_PHASEOPTION - Phase option for spectrum-based incident wave", "spectral phase option", -1, 4},
    {{"SPEC_PHASEFILE"}, kText, "!SPEC_PHASEFILE - File of phases for spectrum-based incident wave"},
    {{"FAUXOUT"}, kText, "!FAUXOUT - File for auxiliary output"},
    {{"FOUT_STEP"}, kInteger, "!FOUT_STEP - Steps between records of the primary output"},
    {{"MOTION_SHIFT"}, kReal, "!MOTION_SHIFT - Shift of the motions in time"},
    {{"ROLL_MAX"}, kReal, "!ROLL_MAX - Roll angle at which the calculation ends, greatest"},
    {{"ROLL_MIN"}, kReal, "!ROLL_MIN - Roll angle at which the calculation ends, least"},
    {{"PITCH_MAX"}, kReal, "!PITCH_MAX - Pitch angle at which the calculation ends, greatest"},
    {{"PITCH_MIN"}, kReal, "!PITCH_MIN - Pitch angle at which the calculation ends, least"},
    {{"POUTVELOPT"}, kInteger, "!POUTVELOPT - option for velocities in pressure output"},
    {{"RUDXFLWRECV"}, kReal, "!RUDXFLWRECV - Flow straightening at the rudder, sway velocity"},
    {{"RUDXFLWRECR"}, kReal, "!RUDXFLWRECR - Flow straightening at the rudder, yaw rate"},
    {{"HYDR_XG"}, kReal, "!HYDR_XG - Reference for hydrodynamic forces along the ship"},
    {{"THEAD"}, kReal, "!THEAD - Time to come to the heading"},
};
// clang-format on

// Comments of the form !NAME - text stand ahead of an option and are written anew.
bool IsOptionComment(std::string_view line) {
  std::string_view name;
  std::string_view rest;
  SplitOption(line.substr(1), name, rest);
  return FindOptionRow(Capitals(name)) != nullptr && StartsWith(rest, "-");
}

struct OptionValue {
  std::string text;
  int whole = 0;
  double real = 0;
};

bool ReadValue(OptionKind kind, std::string_view rest, OptionValue& value) {
  value.text = TextField(rest, kNameLength);
  const std::string_view item = FirstOptionItem(value.text);
  if (kind == OptionKind::integer) return ParseInteger(item, value.whole);
  return kind == OptionKind::text || ParseDouble(item, value.real);
}

// NAME and value; the line as it is if that can't be said in the same line again, or is more than one item.
std::string OptionLine(const OptionRow& row, std::string_view rest, const std::string& line) {
  OptionValue value;
  if (!ReadValue(row.kind, rest, value)) return line;
  if (row.kind == OptionKind::text) {
    std::string own = fmt::format("{} ", row.names.name);
    AppendControlText(value.text, own, ":=");
    own.resize(TrimEnd(own.substr(0, own.size() - 1)).size());
    return own.size() > kControlLine ? line : own;
  }
  if (FirstOptionItem(value.text).size() < value.text.size()) return line;
  std::string own = fmt::format("{:<16} ", row.names.name);
  if (row.kind == OptionKind::integer) AppendControlItem(&value.whole, own);
  else AppendControlItem(&value.real, own);
  return own;
}

}  // namespace

const OptionRow* FindOptionRow(std::string_view name) {
  const auto row = std::find_if(std::begin(kOptions), std::end(kOptions), [name](const OptionRow& known) {
    return !name.empty() && (known.names.name == name || known.names.other == name);
  });
  return row == std::end(kOptions) ? nullptr : row;
}

bool OptionsAreGood(const ModuleText& module) {
  return std::all_of(module.lines.begin(), module.lines.end(), [](const std::string& line) {
    if (IsCommentLine(line)) return true;
    std::string_view name;
    std::string_view rest;
    SplitOption(WithoutComment(line), name, rest);
    const OptionRow* row = FindOptionRow(Capitals(name));
    OptionValue value;
    return row == nullptr || ReadValue(row->kind, rest, value);
  });
}

void WriteOptions(const ModuleText& module, std::string& text) {
  const auto out = std::back_inserter(text);
  for (const std::string& line : module.lines) {
    if (IsCommentLine(line)) {
      if (!IsOptionComment(line)) fmt::format_to(out, "{}\n", line);
      continue;
    }
    std::string_view name;
    std::string_view rest;
    SplitOption(WithoutComment(line), name, rest);
    const OptionRow* row = FindOptionRow(Capitals(name));
    if (row == nullptr) fmt::format_to(out, "{}\n", line);
    else fmt::format_to(out, "{}\n{}\n", row->comment, OptionLine(*row, rest, line));
  }
}

int CheckOptions(const Console& console, const ControlRecords& records) {
  int errors = 0;
  for (const OptionRow& row : kOptions) {
    if (row.subject.empty()) continue;
    const int value = IntegerOption(records, row.names);
    if (value >= row.low && value <= row.high) continue;
    Say(console, kIllegal, row.subject, row.names.name, value);
    ++errors;
  }
  return errors;
}

}  // namespace zaview
