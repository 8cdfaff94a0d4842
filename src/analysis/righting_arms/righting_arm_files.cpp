#include "analysis/righting_arms/righting_arm_files.h"

#include <cmath>
#include <iterator>
#include <vector>

#include "base/angles.h"
#include "base/message.h"
#include "base/number_format.h"
#include "base/text.h"

namespace zaview {
namespace {

struct DirectionTexts {
  std::string_view title, statistics_head, curve_head;
  std::string_view arm, GM, maximum, at, vanish, negative_vanish, curve;  // on the console
};
constexpr DirectionTexts kTransverse = {
    "Righting arm (GZ) curve calculation for dynamic stability analysis",
    "   Time         Effective GZ  Effective GM     Max. +GZ  @ Heel     Max. -GZ  @ Heel   +Vanish   -Vanish    Roll",
    "Heel   Arm",
    "Current   GZ=",
    "Effective GM=",
    "Maximum  GZ=",
    "at heel=",
    "Vanishing stability at +heel=",
    "Vanishing stability at -heel=",
    "Righting moment/arm curve"};
constexpr DirectionTexts kLongitudinal = {
    "Righting arm (GZL) curve calculation for dynamic stability analysis",
    "   Time         Effective GZ  Effective GM     Max. +GZ  @ Trim     Max. -GZ  @ Trim   +Vanish   -Vanish    Pitch",
    "Pitch  Arm",
    "Current   GZL=",
    "Effective GML=",
    "Maximum  GZL=",
    "at trim=",
    "Vanishing stability at +trim=",
    "Vanishing stability at -trim=",
    "Pitch righting moment/arm curve"};

constexpr std::string_view kVolumeHead =
    "   Time           GM (vol)      GM (Pres)     Volume        Fz/rho*g      LCB (local)   VCB          WP area";
constexpr std::string_view kWaterlineTitle = "Waterling geometry from dynamic stability analysis";
constexpr std::string_view kStep = "Time step {}  time= {}";

constexpr int kCount = 8;                                           // columns of a number of segments
constexpr int kAngle = 7;                                           // columns of a heel
constexpr int kStatistics[] = {13, 13, 13, 13, 7, 13, 7, 9, 9, 9};  // columns
constexpr bool kIsAngle[] = {false, false, false, false, true, false, true, true, true, true};

const DirectionTexts& TextsOf(const ArmTables& tables) {
  return tables.direction == ArmDirection::transverse ? kTransverse : kLongitudinal;
}

// Three places, none of them negative zero.
std::string AngleText(double angle_deg) {
  const std::string text = fmt::format("{:.3f}", static_cast<double>(Finite(static_cast<float>(angle_deg))));
  return text == "-0.000" ? "0.000" : text;
}

void AppendAngle(std::string& text, Separator separator, double angle_deg, int width) {
  const std::string angle = AngleText(angle_deg);
  if (separator == Separator::space) fmt::format_to(std::back_inserter(text), "{:>{}}", angle, width);
  else text += angle;
}

void AppendNumber(std::string& text, Separator separator, double value, int width = kCellWidth) {
  const auto cell = static_cast<float>(value);
  if (separator == Separator::space) AppendPaddedCell(text, cell, width);
  else AppendCell(text, cell);
}

void AppendNumbers(std::string& text, Separator separator, std::span<const double> values) {
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (i > 0) text += static_cast<char>(separator);
    AppendNumber(text, separator, values[i]);
  }
  text += '\n';
}

// As it stands, or cut into its names, which are two blanks apart or more.
void AppendHead(std::string& text, Separator separator, std::string_view head) {
  if (separator == Separator::space) {
    text.append(head).append("\n");
    return;
  }
  bool first = true;
  for (std::string_view rest = Trim(head); !rest.empty(); first = false) {
    std::size_t end = rest.find("  ");
    if (end == std::string_view::npos) end = rest.size();
    if (!first) text += static_cast<char>(separator);
    text += QuotedName(separator, rest.substr(0, end));
    rest = Trim(rest.substr(end));
  }
  text += '\n';
}

void AppendStepLine(std::string& text, const RightingArmStep& step) {
  fmt::format_to(std::back_inserter(text), kStep, step.step, Shown{step.time});
  text += '\n';
}

void AppendCurve(std::string& text, const ArmTables& tables, const RightingArmStep& step) {
  AppendStepLine(text, step);
  const std::string_view head = TextsOf(tables).curve_head;
  if (tables.separator == Separator::space) text.append(head);
  else text.append(head.substr(0, head.find(' '))).append(1, static_cast<char>(tables.separator)).append("Arm");
  text += '\n';
  VisitRows(step.curve, [&](const ArmRow& row) {
    AppendAngle(text, tables.separator, row.angle_deg, kAngle);
    text += static_cast<char>(tables.separator);
    AppendNumber(text, tables.separator, row.arm * tables.LENOUT);
    text += '\n';
  });
}

void AppendStatistics(std::string& text, const ArmTables& tables, const RightingArmStep& step) {
  const ArmStatistics& s = step.statistics;
  const double own = tables.direction == ArmDirection::transverse ? step.attitude.roll : step.attitude.pitch;
  const double L = tables.LENOUT;
  const double values[] = {
      step.time,     s.effective_arm * L, s.effective_GM * L, s.max_arm * L,         s.max_angle_deg,
      s.min_arm * L, s.min_angle_deg,     s.vanish_deg,       s.negative_vanish_deg, own * kDegrees};
  for (std::size_t i = 0; i < std::size(values); ++i) {
    if (i > 0) text += static_cast<char>(tables.separator);
    if (kIsAngle[i]) AppendAngle(text, tables.separator, values[i], kStatistics[i]);
    else AppendNumber(text, tables.separator, values[i], kStatistics[i]);
  }
  text += '\n';
}

void AppendVolume(std::string& text, const ArmTables& tables, const RightingArmStep& step) {
  const Hydrostatics& h = step.curve.upright;
  const double L = tables.LENOUT;
  const Rotation R = ShipToGlobal(step.attitude.roll, step.attitude.pitch, 0);
  const Vector3 B = ToShip(R, h.wet.B);
  const double values[] = {step.time,
                           h.GM_volume * L,
                           h.GM_pressure * L,
                           h.wet.V * L * L * L,
                           h.force[2] * L * L * L,
                           (B[0] + step.centre[0]) * L,
                           (h.wet.B[2] + step.attitude.cg[2]) * L,
                           h.wet.Awp * L * L};
  AppendNumbers(text, tables.separator, values);
}

void AppendWaterline(std::string& text, const ArmTables& tables, const RightingArmStep& step) {
  AppendNumber(text, tables.separator, step.time);
  const int width = tables.separator == Separator::space ? kCount : 0;
  fmt::format_to(std::back_inserter(text), "{}{:>{}}\n", static_cast<char>(tables.separator),
                 step.curve.waterline.size(), width);
  for (const WaterlineSegment& segment : step.curve.waterline) {
    double values[6] = {};
    for (std::size_t i = 0; i < 6; ++i) values[i] = segment[i / 3][i % 3] * tables.LENOUT;
    AppendNumbers(text, tables.separator, values);
  }
}

struct FileForm {
  void (*append)(std::string& text, const ArmTables& tables, const RightingArmStep& step);
  bool blocks;  // an empty line between two
};
constexpr FileForm kForms[kArmFiles] = {
    {AppendCurve, true}, {AppendStatistics, false}, {AppendVolume, false}, {AppendWaterline, true}};

}  // namespace

void WriteArmHead(const ArmTables& tables, ArmFile kind, OutputFile& out) {
  std::string text = out.had_text ? "\n" : "";
  text.append(kind == ArmFile::waterline ? kWaterlineTitle : TextsOf(tables).title).append("\n");
  if (kind == ArmFile::statistics) AppendHead(text, tables.separator, TextsOf(tables).statistics_head);
  if (kind == ArmFile::volume) AppendHead(text, tables.separator, kVolumeHead);
  WriteOutput(out, text);
}

void WriteArmStep(const ArmTables& tables, ArmFile kind, const RightingArmStep& step, bool first, OutputFile& out) {
  const FileForm& form = kForms[static_cast<std::size_t>(kind)];
  std::string text = form.blocks && !first ? "\n" : "";
  form.append(text, tables, step);
  WriteOutput(out, text);
}

void SayArmStep(const Console& console, const RightingArmStep& step) {
  Say(console, kStep, step.step, Shown{step.time});
}

void SayArmStatistics(const Console& console, const ArmTables& tables, const RightingArmStep& step) {
  const DirectionTexts& texts = TextsOf(tables);
  const ArmStatistics& s = step.statistics;
  const auto length = [&tables](double value) { return Shown{static_cast<float>(value * tables.LENOUT)}; };
  Say(console, "{} {}", texts.arm, length(s.effective_arm));
  Say(console, "{} {}", texts.GM, length(s.effective_GM));
  Say(console, "{} {} {} {}", texts.maximum, length(s.max_arm), texts.at, AngleText(s.max_angle_deg));
  Say(console, "{} {} {} {}", texts.maximum, length(s.min_arm), texts.at, AngleText(s.min_angle_deg));
  Say(console, "{} {}", texts.vanish, AngleText(s.vanish_deg));
  Say(console, "{} {}", texts.negative_vanish, AngleText(s.negative_vanish_deg));
}

void SayArmCurve(const Console& console, const ArmTables& tables, const RightingArmStep& step) {
  const DirectionTexts& texts = TextsOf(tables);
  SayLine(console, texts.curve);
  SayLine(console, texts.curve_head);
  VisitRows(step.curve, [&](const ArmRow& row) {
    std::string text;
    AppendAngle(text, Separator::space, row.angle_deg, kAngle);
    text += ' ';
    AppendNumber(text, Separator::space, row.arm * tables.LENOUT);
    SayLine(console, text);
  });
}

}  // namespace zaview
