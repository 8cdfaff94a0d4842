#include "case/read/kino_input.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

#include "base/data_fault.h"
#include "base/message.h"
#include "base/number_format.h"
#include "base/number_parse.h"
#include "base/text.h"
#include "case/kino_motions.h"
#include "case/output_scales.h"
#include "case/read/default_skip.h"
#include "case/read/ensemble_match.h"
#include "case/read/finish_case_read.h"
#include "case/read/kino_case.h"
#include "case/wave_at_cg.h"
#include "frame/ground/file_dialogue.h"
#include "frame/ground/input_file.h"
#include "frame/ground/prompts.h"
#include "geometry/read_geometry.h"
#include "waves/incident_wave.h"
#include "waves/kino_sea.h"

namespace zaview {
namespace {

constexpr std::string_view kBeginning = "Beginning alternative data input (QUIT to abort)";
constexpr std::string_view kComplete = "Text file data input complete...";
constexpr std::string_view kAskMotions = "Enter an KINO format motions file";
constexpr std::string_view kAskSeaway = "Enter an KINO seaway file name, CALM for no wave, or QUIT to abort";
constexpr std::string_view kAskGravity = "Enter gravitational constant =>";
constexpr std::string_view kAskDensity = "Enter water density =>";
constexpr std::string_view kReenter = "Illegal value - re-enter";
constexpr std::string_view kAskGeometry =
    "Enter a ZAVO input geometry file name\n"
    "  -or-  a SIMPLE format mesh file as SIMPLE:filename\n"
    "  -or-  a NASTRAN mesh file as NASTRAN:filename\n"
    "  -or-  a HRL/HARLEND geometry input file as HRL:filename\n"
    "  -or-  NONE to continue without geometry\n"
    "  -or-  QUIT to abort";
constexpr std::string_view kAskReference = "Enter position of motion reference point in geometry coordinates=>";
constexpr std::string_view kAskCentre = "Enter position of center of gravity in geometry coordinates=>";
constexpr std::string_view kAskPoint = "Enter position of motion reference point=>";

constexpr std::string_view kReadingMotions = "Reading motions data from KINO file {}";
constexpr std::string_view kNoMotions = "ERROR opening KINO motions file {}{}";
constexpr std::string_view kMotionsUnreadable = "ERROR reading KINO motions file {}";
constexpr std::string_view kNoSteps = "ERROR - no time steps read from file";
constexpr std::string_view kNotIncreasing[] = {"ERROR - time values in specified motion data file not increasing.",
                                               "        File may be of incorrect format."};
constexpr std::string_view kNoHistoryMemory = "ERROR allocating time history data, istat= 1";
constexpr std::string_view kCalm = "CALM or blank name specified for Seaway file: incident wave set to calm";
constexpr std::string_view kNoSeaway = "ERROR opening Seaway file: {}{}";
constexpr std::string_view kQualifier = "Format qualifier >{}< name >{}";
constexpr std::string_view kUnknownQualifier = "ERROR - unrecognzied format qualifier ({}) for geometry input file";
constexpr std::string_view kBadGravity = "ERROR - illegal value specified for gravitational constant: {}";
constexpr std::string_view kBadDensity = "ERROR - illegal value specified for water density : {}";

constexpr std::string_view kSeawayExtension = ".sea";
constexpr std::string_view kQualifiers[] = {"ZAVO",    "zavo",    "SIMPLE",  "simple", "NASTRAN",
                                            "nastran", "HARLEND", "harlend", "HRL",    "hrl"};

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
  if (fault == MotionsFault::not_increasing) SayLines(console, kNotIncreasing);
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

// The file is read where it is named, but its frequencies wait for the gravity: then it is read again, in silence as
// long as that goes well.
bool TakeSeawayAgain(const Platform& platform, std::string_view given, KinoCase& kino) {
  Platform silent = platform;
  silent.console.write = [](void*, std::string_view) {};
  silent.console.flush = [](void*) {};
  return TakeSeaway(silent, given, kino.g, kino) || TakeSeaway(platform, given, kino.g, kino);
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
    SayLine(platform.console, kGeometrySkipped);
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
    Say(platform.console, kGeometryNotOpen, file, WhyGeometryNotOpened(platform.files, kino.geometry, {}));
  if (status == GeometryStatus::skipped) {
    SayLine(platform.console, kGeometrySkipped);
    kino.geometry.clear();
  }
  return status == GeometryStatus::ok || status == GeometryStatus::skipped;
}

// ---- The case takes its place

KinoInput Accept(const Platform& platform, const RunState& run, KinoCase& kino, Into into) {
  const Console& console = platform.console;
  CaseStore fresh;
  const KinoBuild build = BuildKinoCase(kino, fresh);
  if (build != KinoBuild::ok) {
    SayLine(console, build == KinoBuild::no_history_memory ? kNoHistoryMemory : kReportNoMemory);
    return KinoInput::abandoned;
  }
  SayLeftOut(console, fresh.wave);
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
    SayLine(platform.console, kNameWanted);
  }
  return false;
}

bool AskPositive(const Console& console, std::string_view prompt, double& value) {
  float number = 0;
  while (ask_real(console, prompt, false, number) == Answer::ok) {
    value = AsWritten(number);
    if (IsPositive(value)) return true;
    SayLine(console, kReenter);
  }
  return false;
}

bool AskPoint(const Console& console, std::string_view prompt, Vector3& point) {
  std::array<float, 3> numbers{};
  if (VINPUT(console, prompt, false, numbers) != Answer::ok) return false;
  std::transform(numbers.begin(), numbers.end(), point.begin(), AsWritten);
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
