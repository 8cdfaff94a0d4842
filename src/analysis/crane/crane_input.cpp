#include "analysis/crane/crane_input.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <string_view>

#include "analysis/do_or_say.h"
#include "base/clean_text.h"
#include "base/message.h"
#include "base/text.h"
#include "control/control_lines.h"
#include "control/control_text.h"
#include "geometry/geometry_text.h"

namespace zaview {
namespace {

constexpr std::string_view kReading = "Reading crane input file {}";
constexpr std::string_view kMissing = "Crane input file {} does not exist - cable & cargo option disabled...";
constexpr std::string_view kNotOpen = "ERROR opening crane & cargo model input file {}{}";
constexpr std::string_view kUnreadable = "Crane model input error - group {} can't be read";
constexpr std::string_view kIncomplete = "Crane model input error - the file ends ahead of group {}";
constexpr std::string_view kTooLong = "Crane model input error - the file is too long";
constexpr std::string_view kNotPositive = "Crane model input error - {} must be positive";
constexpr std::string_view kNotDefinite = "Crane model input error - CRANE_ICARGO must be positive definite";
constexpr std::string_view kNotEqual = "Crane model input error - cables must have equal properties";
constexpr std::string_view kShortCommand =
    "Crane model input error - commanded cable lengths CRANE_BANG(4) must be positive";
constexpr std::string_view kManyCommands =
    "Crane model input error - more than MXBANG commanded boom angles/cable lengths";
constexpr std::string_view kTimesFall = "Crane model input error - times of commands CRANE_BANG(1) must not decrease";
constexpr std::string_view kUnrecognized = "Unrecognized value ({}) for {}";
constexpr std::string_view kIllegalCables = "Illegal value ({}) for CRANE_NCBL, MAXCBL={}";
constexpr std::string_view kNegative = "Illegal (negative) value ({}) for {}";

constexpr int kMostCommands = 100;  // MXBANG

constexpr std::string_view kThreeDof = "3-DOF (Cable swing X, swing Y, stretch)";
constexpr std::string_view kSixDof = "6-DOF (Cable swing X, swing Y, stretch, + 3 cargo rotations)";

// ---- Reading

struct Reader {
  const Console& console;
  const std::string& name;
  std::vector<CleanLine> lines;
  CleanLists text{};
};

bool SayAtLine(const Reader& reader) {
  Say(reader.console, kAtGeometryLine, reader.text.line_number(), reader.name);
  return false;
}

bool Judge(Reader& reader, std::string_view group, ListStatus status, bool finite) {
  if (status == ListStatus::ok && finite) return true;
  if (status == ListStatus::end_of_file) Say(reader.console, kIncomplete, group);
  else Say(reader.console, kUnreadable, group);
  return SayAtLine(reader);
}

bool Integers(Reader& reader, std::string_view group, std::span<int> values) {
  return Judge(reader, group, ReadIntegers(ListsOf(reader.text), values), true);
}

bool Integer(Reader& reader, std::string_view group, int& value) {
  return Integers(reader, group, std::span(&value, 1));
}

bool Reals(Reader& reader, std::string_view group, std::span<double> values) {
  const ListStatus status = ReadReals(ListsOf(reader.text), values);
  return Judge(reader, group, status,
               std::all_of(values.begin(), values.end(), [](double x) { return std::isfinite(x); }));
}

// A value that chooses: one of first..last.
bool Choice(Reader& reader, std::string_view group, std::string_view field, int first, int last, int& value) {
  if (!Integer(reader, group, value)) return false;
  if (value >= first && value <= last) return true;
  Say(reader.console, kUnrecognized, value, field);
  return SayAtLine(reader);
}

bool ReadModel(Reader& reader, CraneInput& input) {  // group 01
  std::array<int, 4> values{};
  if (!Integers(reader, "01", values)) return false;
  input.DOF = values[0];
  input.NCBL = values[1];
  input.IFRC = values[2];
  input.ISTP = values[3];
  const Console& console = reader.console;
  if (input.DOF != 3 && input.DOF != 6) Say(console, kUnrecognized, input.DOF, "CRANE_DOF");
  else if (input.NCBL < 1 || input.NCBL > static_cast<int>(kMaxCables))
    Say(console, kIllegalCables, input.NCBL, kMaxCables);
  else if (input.IFRC != 0 && input.IFRC != 1) Say(console, kUnrecognized, input.IFRC, "CRANE_IFRC");
  else if (input.ISTP < 0) Say(console, kNegative, input.ISTP, "CRANE_ISTP");
  else return true;
  return SayAtLine(reader);
}

bool ReadCargo(Reader& reader, CraneInput& input) {  // group 02
  std::array<double, 9> inertia{};
  if (!Reals(reader, "02", std::span(&input.MCARGO, 1)) || !Reals(reader, "02", inertia)) return false;
  for (std::size_t i = 0; i < inertia.size(); ++i) input.ICARGO[i / 3][i % 3] = inertia[i];
  return true;
}

bool ReadCables(Reader& reader, CraneInput& input) {  // group 03
  if (!Choice(reader, "03", "CRANE_INCABLE", kElasticCable, kRigidCable, input.INCABLE)) return false;
  const std::size_t n = input.INCABLE == kElasticCable ? 3 : input.INCABLE == kCableByStretch ? 2 : 1;
  Triple first{};
  for (int cable = 0; cable < input.NCBL; ++cable) {
    Triple values{};
    if (!Reals(reader, "03", std::span(values).first(n))) return false;
    if (cable == 0) first = values;
    if (values == first) continue;
    SayLine(reader.console, kNotEqual);
    return SayAtLine(reader);
  }
  input.LCABL0 = first[0];
  if (input.INCABLE == kElasticCable) {
    input.ACABL = first[1];
    input.ECABL = first[2];
  }
  if (input.INCABLE == kCableByStretch) input.R0 = first[1];
  return true;
}

bool ReadBooms(Reader& reader, CraneInput& input) {  // groups 04 and 05
  const auto cables = static_cast<std::size_t>(input.NCBL);
  for (std::size_t b = 0; b < cables; ++b)
    if (!Reals(reader, "04", input.RBASE0[b])) return false;
  if (!Choice(reader, "05", "CRANE_INBOOM", kBoomTip, kBoomAngles, input.INBOOM)) return false;
  for (std::size_t b = 0; b < cables; ++b)
    if (!Reals(reader, "05", input.boom[b])) return false;
  return true;
}

bool ReadCargoPlace(Reader& reader, CraneInput& input) {  // groups 06 and 07
  return Choice(reader, "06", "CRANE_INCARGO", kCargoSwing, kCargoPoint, input.INCARGO) &&
         Reals(reader, "06", input.cargo) && Reals(reader, "06", input.RCARGO) && Reals(reader, "06", input.ACARGO) &&
         Reals(reader, "06", input.XCARGO) && Reals(reader, "07", input.DMPCBL);
}

bool ReadCommands(Reader& reader, CraneInput& input) {  // group 08
  if (!Choice(reader, "08", "CRANE_ICNTRL", 0, 1, input.ICNTRL)) return false;
  if (input.ICNTRL == 0) return true;
  int NBANG = 0;
  if (!Reals(reader, "08", input.RTLIM) || !Reals(reader, "08", input.ACLIM) || !Reals(reader, "08", input.LIMIT) ||
      !Integer(reader, "08", NBANG))
    return false;
  if (NBANG < 0 || NBANG > kMostCommands) {
    if (NBANG < 0) Say(reader.console, kNegative, NBANG, "CRANE_NBANG");
    else SayLine(reader.console, kManyCommands);
    return SayAtLine(reader);
  }
  input.BANG.resize(static_cast<std::size_t>(NBANG));
  return std::all_of(input.BANG.begin(), input.BANG.end(),
                     [&reader](std::array<double, 4>& command) { return Reals(reader, "08", command); });
}

bool ReadGeometryChoice(Reader& reader, CraneInput& input) {  // groups 09 and 10; the latter may be missing
  if (!Choice(reader, "09", "CRANE_GTOPT", 0, 1, input.GTOPT)) return false;
  CleanLists& text = reader.text;
  if (text.next < text.lines.size()) input.BOAT_FGEOM = TextField(text.lines[text.next++].text, kNameLength);
  return true;
}

// ---- What can't be

bool Positive(const Console& console, double value, std::string_view field) {
  if (value > 0) return true;
  Say(console, kNotPositive, field);
  return false;
}

bool CommandsGood(const Console& console, const CraneInput& input) {
  const auto& BANG = input.BANG;
  bool good = true;
  if (std::any_of(BANG.begin(), BANG.end(), [](const auto& command) { return !(command[3] > 0); })) {
    SayLine(console, kShortCommand);
    good = false;
  }
  if (!std::is_sorted(BANG.begin(), BANG.end(), [](const auto& a, const auto& b) { return a[0] < b[0]; })) {
    SayLine(console, kTimesFall);
    good = false;
  }
  return good;
}

bool ValuesGood(const Console& console, const CraneInput& input) {
  bool good = Positive(console, input.MCARGO, "CRANE_MCARGO");
  Matrix3 inverse;
  if (input.DOF == 6 && !InvertInertia(input.ICARGO, inverse)) {
    SayLine(console, kNotDefinite);
    good = false;
  }
  good = Positive(console, input.LCABL0, "CRANE_LCABL0") && good;
  if (input.INCABLE == kElasticCable) {
    good = Positive(console, input.ACABL, "CRANE_ACABL") && good;
    good = Positive(console, input.ECABL, "CRANE_ECABL") && good;
  }
  if (input.INCABLE == kCableByStretch) good = Positive(console, input.R0, "CRANE_R0") && good;
  return CommandsGood(console, input) && good;
}

bool ReadGroups(const Platform& platform, const std::string& name, CraneInput& input) {
  Reader reader{platform.console, name, {}};
  const CleanFault fault = CopyCleanText(platform.files, name, nullptr, reader.lines);
  if (fault == CleanFault::too_long) SayLine(platform.console, kTooLong);
  else if (fault != CleanFault::none) Say(platform.console, kNotOpen, name, WhyNotOpened(platform.files, name));
  if (fault != CleanFault::none) return false;
  Say(platform.console, kReading, name);
  reader.text.lines = reader.lines;
  return ReadModel(reader, input) && ReadCargo(reader, input) && ReadCables(reader, input) &&
         ReadBooms(reader, input) && ReadCargoPlace(reader, input) && ReadCommands(reader, input) &&
         ReadGeometryChoice(reader, input) && ValuesGood(platform.console, input);
}

// ---- The model as a text

struct Writer {
  std::string text;

  void Comment(std::string_view line) { text.append("!").append(line).append("\n"); }
  void Integers(std::span<const int> values) {
    std::vector<int> copies(values.begin(), values.end());
    std::vector<ListItem> items;
    for (int& value : copies) items.emplace_back(&value);
    AppendControlList(items, kControlValues, text);
  }
  void Integer(int value) { Integers(std::span(&value, 1)); }
  void Reals(std::span<const double> values, std::size_t a_line = kControlValues) {
    std::vector<double> copies(values.begin(), values.end());
    std::vector<ListItem> items;
    for (double& value : copies) items.emplace_back(&value);
    AppendControlList(items, a_line, text);
  }
};

void WriteCables(const CraneInput& input, Writer& to) {
  constexpr std::string_view kFields[] = {"CRANE_LCABL0 CRANE_ACABL CRANE_ECABL, a line a cable",
                                          "CRANE_LCABL0 CRANE_R0, a line a cable", "CRANE_LCABL0, a line a cable"};
  to.Comment("03 CRANE_INCABLE");
  to.Integer(input.INCABLE);
  if (input.INCABLE == kRigidCable) to.Comment(kRigidCables);
  to.Comment(kFields[input.INCABLE - 1]);
  std::vector<double> values{input.LCABL0};
  if (input.INCABLE == kElasticCable) values.insert(values.end(), {input.ACABL, input.ECABL});
  if (input.INCABLE == kCableByStretch) values.push_back(input.R0);
  for (int cable = 0; cable < input.NCBL; ++cable) to.Reals(values);
}

void WriteBooms(const CraneInput& input, Writer& to) {
  const auto cables = static_cast<std::size_t>(input.NCBL);
  to.Comment("04 CRANE_RBASE0(3), a line a cable");
  for (std::size_t b = 0; b < cables; ++b) to.Reals(input.RBASE0[b]);
  to.Comment("05 CRANE_INBOOM");
  to.Integer(input.INBOOM);
  to.Comment(input.INBOOM == kBoomTip ? "CRANE_RBOOM0(3), a line a cable" : "CRANE_LBOOM slew luff, a line a cable");
  for (std::size_t b = 0; b < cables; ++b) to.Reals(input.boom[b]);
}

void WriteCargoPlace(const CraneInput& input, Writer& to) {
  to.Comment("06 CRANE_INCARGO");
  to.Integer(input.INCARGO);
  to.Comment(input.INCARGO == kCargoSwing ? "CRANE_SWING(3): azimuth, elevation, stretch" : "CRANE_RATPT(3)");
  to.Reals(input.cargo);
  to.Comment("CRANE_RCARGO(3)");
  to.Reals(input.RCARGO);
  to.Comment("CRANE_ACARGO(3)");
  to.Reals(input.ACARGO);
  to.Comment("CRANE_XCARGO(3)");
  to.Reals(input.XCARGO);
  to.Comment("07 CRANE_DMPCBL(6)");
  to.Reals(input.DMPCBL, 3);
}

void WriteCommands(const CraneInput& input, Writer& to) {
  to.Comment("08 CRANE_ICNTRL");
  to.Integer(input.ICNTRL);
  if (input.ICNTRL == 0) return;
  to.Comment("CRANE_RTLIM(4): luff, trolley, slew, cable");
  to.Reals(input.RTLIM);
  to.Comment("CRANE_ACLIM(4)");
  to.Reals(input.ACLIM);
  to.Comment("CRANE_LIMIT(8): low and high of each");
  to.Reals(input.LIMIT);
  to.Comment("CRANE_NBANG");
  to.Integer(static_cast<int>(input.BANG.size()));
  to.Comment("CRANE_BANG(4): time, slew, luff, cable length");
  for (const std::array<double, 4>& command : input.BANG) to.Reals(command);
}

}  // namespace

bool ReadCraneInput(const Platform& platform, const std::string& name, CraneInput& input) {
  input = CraneInput{};
  if (!platform.files.facts(platform.files.self, name).exists) {
    Say(platform.console, kMissing, name);
    return false;
  }
  if (DoOrSay(platform.console, kNoCraneMemory, [&] { return ReadGroups(platform, name, input); })) return true;
  SayLine(platform.console, kCraneAborted);
  return false;
}

std::string CraneInputText(const CraneInput& input) {
  Writer to;
  to.Comment("************* Echo of crane/cargo input data *************");
  to.Comment("01 CRANE_DOF CRANE_NCBL CRANE_IFRC CRANE_ISTP");
  to.Integers(std::array{input.DOF, input.NCBL, input.IFRC, input.ISTP});
  to.Comment(input.DOF == 3 ? kThreeDof : kSixDof);
  to.Comment("02 CRANE_MCARGO");
  to.Reals(std::span(&input.MCARGO, 1));
  to.Comment("CRANE_ICARGO(3,3)");
  for (const Triple& row : input.ICARGO) to.Reals(row);
  WriteCables(input, to);
  WriteBooms(input, to);
  WriteCargoPlace(input, to);
  WriteCommands(input, to);
  to.Comment("09 CRANE_GTOPT");
  to.Integer(input.GTOPT);
  to.Comment("10 BOAT_FGEOM");
  AppendControlText(input.BOAT_FGEOM, to.text);
  return to.text;
}

}  // namespace zaview
