#include "control/check_control_records.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string_view>

#include "base/message.h"
#include "base/text.h"
#include "control/module_table.h"
#include "control/options_lookup.h"
#include "control/read_control_records.h"
#include "control/record_rows.h"
#include "control/spectrum_check.h"

namespace zaview {
namespace {

constexpr std::string_view kBodyType = "ERR100 - Body hydrodynamics type ZVOTYP= {} invalid : 1<=ZVOTYP<=4";
constexpr std::string_view kMotionType = "ERR101 - Motion type MOTYPE= {} invalid : 0<=MOTYPE<=2";
constexpr std::string_view kStokesOrder = "ERR107 - Stokes wave order WSPEC= {} invalid : 0<=WSPEC<=5";
constexpr SpectrumWords kSpectrumWords = {"ERR108 - Illegal parameter value(s) for incident wave spectrum:"};
constexpr std::string_view kTooManyCuts[] = {"ERR132 - Number of load cuts NBCA= {} is limited",
                                             "         by dimensioning parameter MAXBCA= {}"};
constexpr std::string_view kTooManyMassPoints[] = {"ERR133 - Number of mass points NBMX= {} is limited",
                                                   "         by dimensioning parameter MAXBMP= {}"};
constexpr std::string_view kTooManyComponents[] = {"ERR141 - Too many components specified in the input control file:",
                                                   "         MAXCMP= {}  while NCOMP0= {}"};
constexpr std::string_view kScalingTimes = "ERR154 - Number of incident wave scale factor times NWSC = {}";
constexpr std::string_view kScalingOrder = "ERR154 - Incident wave scale factor times WSCSTP must ascend";
constexpr std::string_view kNoRestartFile =
    "ERR173 - A non-blank restart file FRST must be specified for restarts (IRST>0)";
constexpr std::string_view kTooManyFins[] = {"ERR175 - Number of wing-like appendages NFIN= {} is limited",
                                             "         by dimensioning parameter MXFIN= {}"};
constexpr std::string_view kTooManyBilgeKeels[] = {"ERR176 - Number of plate-like appendages NBK= {} is limited",
                                                   "         by dimensioning parameter MXBK= {}"};
constexpr std::string_view kWaterDepth = "ERR190 - Water depth, WDEPTH, must be zero (for deep water) or positive";
constexpr std::string_view kStokesDepth = "ERR191 - Stokes waves (ISEA=3) can only be used in deep water (WDEPTH=0.0)";
constexpr std::string_view kStokesSurface =
    "ERR192 - Stokes waves cannot currently be used with the 2nd order free surface (NLFS>0)";
constexpr std::string_view kNotWithIrf =
    "ERR198 - {} (ISEA={}) cannot be used with IRF-based hydrodynamics (MIXED=-2,2)";
constexpr std::string_view kBadFrequencies[] = {"ERR199 - Seaway specified with illegal freqency(s):",
                                                "{} specified component waves have non-positive frequencies"};
constexpr std::string_view kOldOrigin[] = {"WRN260 - Initial transformation rotation origin (GORIG) modified to",
                                           "         accomodate different definition in ZAVO version 3.1.0",
                                           "         Here GORIG is used as it stands: check where the hull is"};
constexpr std::string_view kTooOld[] = {"ERR230 - ZAVO version {} is no longer supported",
                                        "         Files from version {} to {} are supported"};
constexpr std::string_view kTooNew[] = {"WRN231 - File is from a newer version ({}) than this program ({})",
                                        "         File read or processing may fail"};

constexpr int kOriginChanged = 310;  // VERSION

// Tells a fault of lines without values; the number of errors it is.
int Tell(const Console& console, std::span<const std::string_view> lines) {
  SayLines(console, lines);
  return 1;
}
int Tell(const Console& console, std::string_view line) {
  return Tell(console, {&line, 1});
}

int CheckFrequencies(const Console& console, const SeawayInput& sea) {
  const auto bad = std::count_if(sea.waves.begin(), sea.waves.end(),
                                 [](const WaveComponentInput& wave) { return !(wave.FREQW > 0); });
  if (bad == 0) return 0;
  SayLine(console, kBadFrequencies[0]);
  Say(console, kBadFrequencies[1], bad);
  return 1;
}

int CheckStokesWave(const Console& console, const ControlRecords& records) {
  int errors = 0;
  const int order = records.seaway.WSPEC;
  if (order < 0 || order > 5) {
    Say(console, kStokesOrder, order);
    ++errors;
  }
  if (records.WDEPTH > 0) errors += Tell(console, kStokesDepth);
  if (IntegerOption(records, {"NLFS"}) > 0) errors += Tell(console, kStokesSurface);
  return errors;
}

// Kinds of which the impulse response functions, which are linear and of single frequencies, know nothing.
int CheckIrfSea(const Console& console, const ControlRecords& records) {
  constexpr std::string_view kKinds[] = {"Stokes waves", "Alternative linear waves", "2nd order Stokes waves"};
  const int kind = records.seaway.ISEA;
  if (kind < 3 || kind > 5 || std::abs(static_cast<std::int64_t>(records.MIXED)) != 2) return 0;
  Say(console, kNotWithIrf, kKinds[kind - 3], kind);
  return 1;
}

int SayNoWaves(const Console& console, std::string_view count, std::size_t waves) {
  if (waves > 0) return 0;
  Say(console, kNoWaves, count, 0);
  return 1;
}

int CheckSeaway(const Console& console, const ControlRecords& records) {
  const SeawayInput& sea = records.seaway;
  int errors = CheckIrfSea(console, records);
  if (sea.NWSC < 0) {
    Say(console, kScalingTimes, sea.NWSC);
    ++errors;
  }
  if (!std::is_sorted(sea.WSCSTP.begin(), sea.WSCSTP.end())) errors += Tell(console, kScalingOrder);
  switch (sea.ISEA) {
    case 0:
      return errors;
    case 1:
      return errors + SayNoWaves(console, "NWAVES", sea.waves.size()) + CheckFrequencies(console, sea);
    case 3:
      return errors + CheckStokesWave(console, records) + CheckFrequencies(console, sea);
    case 4:
      return errors + SayNoWaves(console, "WAVEDIM1*WAVEDIM2", sea.alternative.size());
    case 5:
      return errors + SayNoWaves(console, "WAVE_NMODE", sea.modes.size());
    case 2:
    case 6:
    case 7:
    case 8:
      return errors + CheckSpectrum(console, sea, kSpectrumWords);
    default:
      Say(console, kSeawayKind, sea.ISEA);
      return errors + 1;
  }
}

// What belongs to the run, and stands in the first ship's text.
int CheckRunRecords(const Console& console, const ControlRecords& records) {
  int errors = 0;
  if (records.ZVOTYP < 1 || records.ZVOTYP > 4) {
    Say(console, kBodyType, records.ZVOTYP);
    ++errors;
  }
  if (records.MOTYPE < 0 || records.MOTYPE > 2) {
    Say(console, kMotionType, records.MOTYPE);
    ++errors;
  }
  if (records.IRST > 0 && IsBlank(records.FRST)) errors += Tell(console, kNoRestartFile);
  if (!(records.WDEPTH >= 0)) errors += Tell(console, kWaterDepth);
  return errors + CheckSeaway(console, records);
}

bool Above(std::size_t count, int limit) {
  return count > static_cast<std::size_t>(limit);
}

int CheckCounts(const Console& console, const ControlRecords& r) {
  int errors = 0;
  if (Above(r.components.size(), MAXCMP)) {
    SayLine(console, kTooManyComponents[0]);
    Say(console, kTooManyComponents[1], MAXCMP, r.components.size());
    ++errors;
  }
  if (Above(r.XMC.size(), MAXBCA)) {
    Say(console, kTooManyCuts[0], r.XMC.size());
    Say(console, kTooManyCuts[1], MAXBCA);
    ++errors;
  }
  if (Above(r.mass_points.size(), MAXBMP)) {
    Say(console, kTooManyMassPoints[0], r.mass_points.size());
    Say(console, kTooManyMassPoints[1], MAXBMP);
    ++errors;
  }
  if (Above(r.fins.size(), MXFIN)) {
    Say(console, kTooManyFins[0], r.fins.size());
    Say(console, kTooManyFins[1], MXFIN);
    ++errors;
  }
  if (Above(r.bilge_keels.size(), MXBK)) {
    Say(console, kTooManyBilgeKeels[0], r.bilge_keels.size());
    Say(console, kTooManyBilgeKeels[1], MXBK);
    ++errors;
  }
  return errors;
}

}  // namespace

int CheckShipRecords(const Console& console, const ControlRecords& records, int VERSION) {
  const bool has_origin = records.GORIG != Triple{};
  if (VERSION > 0 && VERSION < kOriginChanged && has_origin) Tell(console, kOldOrigin);
  return CheckCounts(console, records) + CheckModules(console, records);
}

int CheckControlRecords(const Console& console, const ControlRecords& records, int VERSION) {
  const int errors = CheckRunRecords(console, records);
  return errors + CheckShipRecords(console, records, VERSION);
}

void ReportVersion(const Console& console, int VERSION) {
  if (VERSION > 0 && VERSION < kOldestVersion) {
    Say(console, kTooOld[0], VERSION);
    Say(console, kTooOld[1], kOldestVersion, kProgramVersion);
  } else if (VERSION > kProgramVersion) {
    Say(console, kTooNew[0], VERSION, kProgramVersion);
    SayLine(console, kTooNew[1]);
  }
}

}  // namespace zaview
