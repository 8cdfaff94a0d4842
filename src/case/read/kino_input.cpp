#include "case/read/kino_input.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <span>
#include <string_view>
#include <utility>

#include "base/grow.h"
#include "base/message.h"
#include "base/number_format.h"
#include "base/number_parse.h"
#include "base/rotation.h"
#include "base/text.h"
#include "case/kino_motions.h"
#include "case/output_scales.h"
#include "case/read/default_skip.h"
#include "case/read/ensemble_match.h"
#include "case/read/finish_case_read.h"
#include "case/size_history.h"
#include "case/wave_at_cg.h"
#include "control/input_scales.h"
#include "frame/ground/input_file.h"
#include "frame/ground/prompts.h"
#include "geometry/read_geometry.h"
#include "waves/incident_wave.h"
#include "waves/kino_sea.h"

namespace zaview {
namespace {

inline constexpr std::string_view kBeginning = "Beginning alternative data input (QUIT to abort)";
inline constexpr std::string_view kComplete = "Text file data input complete...";
inline constexpr std::string_view kAskMotions = "Enter an KINO format motions file";
inline constexpr std::string_view kBlankName = " file specification aborted ... re-specify";
inline constexpr std::string_view kAskSeaway = "Enter an KINO seaway file name, CALM for no wave, or QUIT to abort";
inline constexpr std::string_view kAskGravity = "Enter gravitational constant =>";
inline constexpr std::string_view kAskDensity = "Enter water density =>";
inline constexpr std::string_view kReenter = "Illegal value - re-enter";
inline constexpr std::string_view kAskGeometry =
    "Enter a ZAVO input geometry file name\n"
    "  -or-  a SIMPLE format mesh file as SIMPLE:filename\n"
    "  -or-  a NASTRAN mesh file as NASTRAN:filename\n"
    "  -or-  a HRL/HARLEND geometry input file as HRL:filename\n"
    "  -or-  NONE to continue without geometry\n"
    "  -or-  QUIT to abort";
inline constexpr std::string_view kAskReference = "Enter position of motion reference point in geometry coordinates=>";
inline constexpr std::string_view kAskCentre = "Enter position of center of gravity in geometry coordinates=>";
inline constexpr std::string_view kAskPoint = "Enter position of motion reference point=>";

inline constexpr std::string_view kReadingMotions = "Reading motions data from KINO file {}";
inline constexpr std::string_view kNoMotions = "ERROR opening KINO motions file {}{}";
inline constexpr std::string_view kMotionsUnreadable = "ERROR reading KINO motions file {}";
inline constexpr std::string_view kNoSteps = "ERROR - no time steps read from file";
inline constexpr std::string_view kNotIncreasing[] = {
    "ERROR - time values in specified motion data file not increasing.", "        File may be of incorrect format."};
inline constexpr std::string_view kNoHistoryMemory = "ERROR allocating time history data, istat= 1";
inline constexpr std::string_view kNoMemory = "ERROR allocating memory - please report this to ZAVO developers";
inline constexpr std::string_view kCalm = "CALM or blank name specified for Seaway file: incident wave set to calm";
inline constexpr std::string_view kNoSeaway = "ERROR opening Seaway file: {}{}";
inline constexpr std::string_view kNoGeometry =
    "NONE or blank name specified for geometry file: skipping geometry input";
inline constexpr std::string_view kQualifier = "Format qualifier >{}< name >{}";
inline constexpr std::string_view kUnknownQualifier =
    "ERROR - unrecognzied format qualifier ({}) for geometry input file";
inline constexpr std::string_view kGeometryNotOpen = "ERROR opening geometry file: {}{}";
inline constexpr std::string_view kBadGravity = "ERROR - illegal value specified for gravitational constant: {}";
inline constexpr std::string_view kBadDensity = "ERROR - illegal value specified for water density : {}";

constexpr std::string_view kMotionsExtension = ".mot";
constexpr std::string_view kSeawayExtension = ".sea";
constexpr std::string_view kQualifiers[] = {"ZAVO",    "zavo",    "SIMPLE",  "simple", "NASTRAN",
                                            "nastran", "HARLEND", "harlend", "HRL",    "hrl"};
constexpr double kDegrees = 180 / std::numbers::pi;

struct KinoCase {    // what the files gave, as far as the input has come
  std::string name;  // of the motions file, as opened
  KinoMotions motions;
  Seaway seaway;
  std::string geometry;  // the geometry file as ReadGeometry takes it; blank: none
  Hull hull;             // input lengths
  double g = 0, rho = 0;
  Vector3 reference{}, centre{};
};

struct Into {  // what the case changes when it is complete
  OutputSettings& settings;
  CaseStore& case_store;
  EnsembleStore& ensemble;
};

bool IsOneOf(std::string_view word, std::string_view capitals, std::string_view small) {
  return word.empty() || word == capitals || word == small;
}

bool IsPositive(double value) {
  return value > 0 && std::isfinite(value);
}

// ---- Motions

void SayMotionsFault(const Console& console, MotionsFault fault, const std::string& name) {
  if (fault == MotionsFault::no_steps) SayLine(console, kNoSteps);
  if (fault == MotionsFault::out_of_memory) SayLine(console, kNoHistoryMemory);
  if (fault == MotionsFault::read_error) Say(console, kMotionsUnreadable, name);
  if (fault == MotionsFault::not_increasing)
    for (const std::string_view line : kNotIncreasing) SayLine(console, line);
}

bool TakeMotions(const Platform& platform, std::string_view given, KinoCase& kino) {
  const Console& console = platform.console;
  kino.name = Trim(given);
  constexpr std::string_view kEndings[] = {"", kMotionsExtension};
  const FoundFile found = OpenFirst(platform.files, kino.name, kEndings, std::string::npos);
  if (found.file == kNoFile) {
    Say(console, kNoMotions, kino.name, Because(found.why));
    return false;
  }
  kino.name = found.name;
  Say(console, kReadingMotions, kino.name);
  const MotionsFault fault = ReadKinoMotions(platform.files, found.file, kino.motions);
  (void)platform.files.close(platform.files.self, found.file);  // nothing was written
  if (!kino.motions.comment.empty()) Say(console, "Comment line: {}", kino.motions.comment);
  if (fault == MotionsFault::none) Say(console, "{} Time steps read", kino.motions.steps());
  SayMotionsFault(console, fault, kino.name);
  return fault == MotionsFault::none;
}

// ---- Seaway

bool TakeSeaway(const Platform& platform, std::string_view given, double g, KinoCase& kino) {
  std::string name(Trim(given));
  kino.seaway = Seaway{};
  if (IsOneOf(name, "CALM", "calm")) {
    SayLine(platform.console, kCalm);
    return true;
  }
  const Files& files = platform.files;
  const std::string longer = name + std::string(kSeawayExtension);
  if (!files.facts(files.self, name).exists && files.facts(files.self, longer).exists) name = longer;
  const KinoSeaStatus status = ReadKinoSeaway(platform, name, {g, kino.motions.length}, kino.seaway);
  if (status == KinoSeaStatus::cannot_open) Say(platform.console, kNoSeaway, name, WhyNotOpened(platform.files, name));
  return status == KinoSeaStatus::ok;
}

// The file is read where it is named, but its frequencies wait for the gravity: then it is read again, in silence.
bool TakeSeawayAgain(const Platform& platform, std::string_view given, KinoCase& kino) {
  Platform silent = platform;
  silent.console.write = [](void*, std::string_view) {};
  silent.console.flush = [](void*) {};
  if (TakeSeaway(silent, given, kino.g, kino)) return true;
  Say(platform.console, kNoSeaway, Trim(given), "");
  return false;
}

// ---- Geometry

// ReadGeometry knows the format by the same prefixes, but for that of its own.
bool SplitQualifier(const Console& console, std::string_view given, std::string& name, std::string& file) {
  name = file = given;
  const std::size_t colon = given.find(':');
  if (colon == std::string_view::npos) return true;
  const std::string_view word = Trim(given.substr(0, colon));
  file = Trim(given.substr(colon + 1));
  Say(console, kQualifier, word, file);
  if (std::find(std::begin(kQualifiers), std::end(kQualifiers), word) == std::end(kQualifiers)) {
    Say(console, kUnknownQualifier, word);
    return false;
  }
  name = Capitals(word) == "ZAVO" ? file : fmt::format("{}:{}", word, file);
  return true;
}

bool TakeGeometry(const Platform& platform, std::string_view given, KinoCase& kino) {
  const std::string_view trimmed = Trim(given);
  if (IsOneOf(trimmed, "NONE", "none")) {
    SayLine(platform.console, kNoGeometry);
    return true;
  }
  std::string file;
  if (!SplitQualifier(platform.console, trimmed, kino.geometry, file)) return false;
  GeometryRequest request;
  request.name = kino.geometry;
  request.to_the_end = true;
  request.LENIN = kino.motions.length;
  const GeometryStatus status = ReadGeometry(platform, request, kino.hull);
  if (status == GeometryStatus::cannot_open)
    Say(platform.console, kGeometryNotOpen, file, WhyNotOpened(platform.files, std::string(file)));
  if (status == GeometryStatus::skipped) {
    SayLine(platform.console, kNoGeometry);
    kino.geometry.clear();
  }
  return status == GeometryStatus::ok || status == GeometryStatus::skipped;
}

// ---- The case

// A control text for what the files tell: everything in input units, which are those of the motions file.
void FillControl(const KinoCase& kino, ControlRecords& control) {
  const KinoMotions& motions = kino.motions;
  const std::vector<double>& time = motions.column[0];
  control.DESCR = Trim(std::string_view(motions.comment).substr(StartsWith(motions.comment, "!") ? 1 : 0));
  control.FGEOM = kino.geometry;
  control.MOTYPE = 0;
  control.NSTEP = static_cast<int>(motions.steps());
  control.TINIT = time.front();
  control.DTH = time.size() > 1 ? (time.back() - time.front()) / static_cast<double>(time.size() - 1) : 0;
  control.GRAVIN = control.GRAVOUT = kino.g;
  control.RHOIN = control.RHOOUT = kino.rho;
  control.LENIN = control.LENOUT = motions.length;
  control.ANGIN = control.ANGOUT = kDegrees;
  control.RGRAV = kino.centre;
}

// The file tells times, the case counts steps.
void ScaleBySteps(double TINIT, double DTH, WaveScaling& scaling) {
  if (!(DTH > 0)) DTH = 1;  // a single step: any length will do
  for (double& position : scaling.WSCSTP) {
    const double time = scaling.TINIT + (position - 1) * scaling.DTH;
    position = 1 + (time - TINIT) / DTH;
  }
  scaling.TINIT = TINIT;
  scaling.DTH = DTH;
}

// The components as the control data of a run would list them.
bool FillSeawayRecord(const Seaway& sea, ControlRecords& control) {
  const InputScales scales = InputScalesOf(control);
  SeawayInput& record = control.seaway;
  control.WDEPTH = sea.WDEPTH / scales.length;
  record.ISEA = sea.ISEA;
  record.WSPEC = sea.WSPEC;
  record.WAVEDIM1 = sea.alternative.WAVEDIM1;
  record.WAVEDIM2 = sea.alternative.WAVEDIM2;
  record.WAVE_HEAD = sea.modes.WAVE_HEAD;
  const WaveScaling& scaling = sea.scaling;
  const std::size_t factors = scaling.WSCSTP.size();
  record.NWSC = static_cast<int>(factors);
  record.WSCFAC = scaling.WSCFAC;
  if (!Grow(record.WSCSTP, factors)) return false;
  for (std::size_t i = 0; i < factors; ++i) record.WSCSTP[i] = RoundToInt(scaling.WSCSTP[i]);
  if (!Grow(record.waves, sea.waves.size()) || !Grow(record.alternative, sea.alternative.FREQ.size()) ||
      !Grow(record.modes, sea.modes.MODE_FREQ.size()))
    return false;
  for (std::size_t i = 0; i < record.waves.size(); ++i)
    record.waves[i] = {sea.waves.FREQW[i] / scales.frequency, sea.waves.PHASEW[i], sea.waves.AMPW0[i] / scales.length,
                       sea.waves.HEADW[i]};
  const AlternativeWaves& a = sea.alternative;
  for (std::size_t i = 0; i < record.alternative.size(); ++i)
    record.alternative[i] = {a.KX[i] * scales.length,      a.KY[i] * scales.length,
                             a.AMP[i] / scales.length,     a.PHASE[i],
                             a.FREQ[i] / scales.frequency, a.HEAD[i]};
  for (std::size_t i = 0; i < record.modes.size(); ++i)
    record.modes[i] = {sea.modes.MODE_AMP[i] / scales.length, sea.modes.MODE_PHASE[i],
                       sea.modes.MODE_FREQ[i] / scales.frequency};
  return true;
}

// From the reference point to the CG: position + R (centre - reference).
bool FillHistories(const KinoCase& kino, CaseStore& c) {
  constexpr std::size_t kSix = 6;
  if (!SizeHistory(c, 1, c.time) || !SizeHistory(c, kSix, c.pmgg)) return false;
  // Nothing is known of these: QuantityValid refuses all that would show them.
  if (!SizeHistory(c, kSix, c.vmg) || !SizeHistory(c, kSix, c.acc)) return false;
  const double L = kino.motions.length;
  const double time_scale = InputScalesOf(c.control).time;
  Vector3 offset{};
  for (std::size_t i = 0; i < 3; ++i) offset[i] = kino.centre[i] - kino.reference[i];
  const bool shifted = offset != Vector3{};
  for (std::size_t s = 0; s < kino.motions.steps(); ++s) {
    const auto of_file = [&](std::size_t i) { return kino.motions.column[i][s]; };
    c.time.component[0][s] = static_cast<float>(of_file(0) * time_scale);
    std::array<float, 3> angles{};
    for (std::size_t i = 0; i < 3; ++i)
      c.pmgg.component[3 + i][s] = angles[i] = static_cast<float>(of_file(4 + i) / kDegrees);
    Vector3 moved{};
    if (shifted) moved = ToGlobal(ShipToGlobal(angles[0], angles[1], angles[2]), offset);
    for (std::size_t i = 0; i < 3; ++i) c.pmgg.component[i][s] = static_cast<float>((of_file(1 + i) + moved[i]) / L);
  }
  for (std::size_t i = 0; i < kSix; ++i) c.control.PMGIN[i] = c.pmgg.component[i][0] * (i < 3 ? L : kDegrees);
  return true;
}

void ScaleHull(double factor, Hull& hull) {
  const auto scale = [factor](std::vector<Vector3>& points) {
    for (Vector3& p : points)
      for (double& x : p) x *= factor;
  };
  for (HullSurface& surface : hull.surfaces) scale(surface.points);
  scale(hull.mesh.nodes);
}

// Ship axes are the geometry coordinates.
bool BuildCase(const Console& console, KinoCase& kino, CaseStore& c) {
  c.file_name = "KINO file " + kino.name;
  const std::string_view name = std::string_view(kino.name).substr(kino.name.rfind('/') + 1);
  const bool has_extension = name.size() > kMotionsExtension.size() &&
                             name.substr(name.size() - kMotionsExtension.size()) == kMotionsExtension;
  c.base_name = name.substr(0, name.size() - (has_extension ? kMotionsExtension.size() : 0));
  c.NSHIP = 1;
  c.kino_input = true;
  c.holds = {false, false, false, false, false};
  FillControl(kino, c.control);
  c.first_read = 1;
  c.last_read = c.nstep_expected = c.control.NSTEP;
  c.ships.resize(1);
  for (std::size_t i = 0; i < 3; ++i) c.ships[0].centre[i] = kino.centre[i] / kino.motions.length;
  if (!FillHistories(kino, c)) {
    SayLine(console, kNoHistoryMemory);
    return false;
  }
  const InputScales scales = InputScalesOf(c.control);
  c.seaway = std::move(kino.seaway);
  ScaleBySteps(c.control.TINIT * scales.time, c.control.DTH * scales.time, c.seaway.scaling);
  c.seaway_tried = Tried::there;
  if (!FillSeawayRecord(c.seaway, c.control) || !PrepareIncidentWave(c.seaway, c.wave)) {
    SayLine(console, kNoMemory);
    return false;
  }
  SayLeftOut(console, c.wave);
  c.hull = std::move(kino.hull);
  ScaleHull(1 / kino.motions.length, c.hull);
  c.hull_tried = kino.geometry.empty() ? Tried::failed : Tried::there;
  return true;
}

KinoInput Accept(const Platform& platform, const RunState& run, KinoCase& kino, Into into) {
  const Console& console = platform.console;
  CaseStore fresh;
  if (!BuildCase(console, kino, fresh)) return KinoInput::abandoned;
  SayLine(console, kComplete);
  into.settings.units.user_scale[0] = into.settings.units.user_scale[1] =
      false;  // this gravity and density are the user's, too
  AdoptFileScales(into.settings, fresh);
  (void)ApplyTrim(into.settings, fresh);  // the default skip stays inside it
  ChooseDefaultSkip(console, run, into.settings, fresh);
  fresh.has_case = true;
  finish_case_read(console, into.settings, fresh);
  if (run.do_eta) (void)IncidentWaveAtCG(console, fresh);  // told
  match_case_to_ensemble(console, run.ensemble_mode, fresh, into.ensemble, into.case_store);
  return KinoInput::ok;
}

// ---- The dialogue

bool AskForMotions(const Platform& platform, KinoCase& kino) {
  std::string name;
  while (ask_text(platform.console, kAskMotions, "", name) == Answer::ok) {
    if (!IsBlank(name)) return TakeMotions(platform, name, kino);
    SayLine(platform.console, kBlankName);
  }
  return false;
}

// The number that was typed, not the 4-byte value nearest to it.
double AsTyped(float number) {
  double value = number;
  (void)ParseDouble(DefaultNumber(number), value);
  return value;
}

bool AskPositive(const Console& console, std::string_view prompt, double& value) {
  float number = 0;
  while (ask_real(console, prompt, false, number) == Answer::ok) {
    value = AsTyped(number);
    if (IsPositive(value)) return true;
    SayLine(console, kReenter);
  }
  return false;
}

bool AskPoint(const Console& console, std::string_view prompt, Vector3& point) {
  std::array<float, 3> numbers{};
  if (VINPUT(console, prompt, false, numbers) != Answer::ok) return false;
  std::transform(numbers.begin(), numbers.end(), point.begin(), AsTyped);
  return true;
}

bool AskForSea(const Platform& platform, KinoCase& kino) {
  const Console& console = platform.console;
  std::string name;
  if (ask_text(console, kAskSeaway, "", name) != Answer::ok) return false;
  if (!TakeSeaway(platform, name, KinoSeaUnits{}.g, kino)) return false;
  if (!AskPositive(console, kAskGravity, kino.g) || !AskPositive(console, kAskDensity, kino.rho)) return false;
  return kino.seaway.ISEA == 0 || TakeSeawayAgain(platform, name, kino);
}

bool AskForGeometry(const Platform& platform, KinoCase& kino) {
  const Console& console = platform.console;
  std::string name;
  if (ask_text(console, kAskGeometry, "", name) != Answer::ok || !TakeGeometry(platform, name, kino)) return false;
  if (!kino.geometry.empty())
    return AskPoint(console, kAskReference, kino.reference) && AskPoint(console, kAskCentre, kino.centre);
  if (!AskPoint(console, kAskPoint, kino.reference)) return false;
  kino.centre = kino.reference;
  return true;
}

}  // namespace

KinoInput ReadKinoFiles(const Platform& platform, const KinoFiles& files, const RunState& run, OutputSettings& settings,
                        CaseStore& case_store, EnsembleStore& ensemble) {
  KinoCase kino;
  kino.g = files.g;
  kino.rho = files.rho;
  kino.reference = files.reference;
  kino.centre = files.centre;
  if (!IsPositive(kino.g)) Say(platform.console, kBadGravity, Shown{static_cast<float>(kino.g)});
  if (!IsPositive(kino.rho)) Say(platform.console, kBadDensity, Shown{static_cast<float>(kino.rho)});
  if (!IsPositive(kino.g) || !IsPositive(kino.rho)) return KinoInput::abandoned;
  const bool taken = TakeMotions(platform, files.motions, kino) && TakeSeaway(platform, files.seaway, kino.g, kino) &&
                     TakeGeometry(platform, files.geometry, kino);
  return taken ? Accept(platform, run, kino, {settings, case_store, ensemble}) : KinoInput::abandoned;
}

KinoInput AskForKinoFiles(const Platform& platform, const RunState& run, OutputSettings& settings,
                          CaseStore& case_store, EnsembleStore& ensemble) {
  SayLine(platform.console, kBeginning);
  KinoCase kino;
  const bool taken = AskForMotions(platform, kino) && AskForSea(platform, kino) && AskForGeometry(platform, kino);
  return taken ? Accept(platform, run, kino, {settings, case_store, ensemble}) : KinoInput::abandoned;
}

}  // namespace zaview
