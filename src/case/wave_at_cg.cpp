#include "case/wave_at_cg.h"

#include <string>
#include <vector>

#include "base/grow.h"
#include "base/message.h"
#include "case/case_hull.h"
#include "case/size_history.h"
#include "control/options_lookup.h"
#include "control/spectrum_check.h"
#include "frame/ground/input_file.h"
#include "waves/components.h"
#include "waves/incident_wave.h"
#include "waves/phases.h"
#include "waves/wave_elevation.h"
#include "waves/wave_scale.h"

namespace zaview {
namespace {

constexpr std::string_view kAtBoth = "Calculating incident wave at CG/Origin...";
constexpr std::string_view kAtOrigin = "Calculating incident wave at Origin...";

WaveAnswer NoWave(const Console& console) {
  SayLine(console, kNoWaveData);
  return WaveAnswer::no_wave;
}

// Scale of every step in store; empty where it is 1 throughout.
bool ScalesOf(const CaseStore& c, std::vector<float>& scales) {
  const WaveScaling& scaling = c.seaway.scaling;
  if (scaling.WSCSTP.empty()) return true;
  if (!Grow(scales, StepsInStore(c))) return false;
  for (std::size_t s = 0; s < scales.size(); ++s)
    scales[s] = static_cast<float>(WaveScaleAtStep(scaling, c.first_read + static_cast<int>(s)).scale);
  return true;
}

constexpr OptionNames kPhaseFile{"SPEC_PHASEFILE"};
constexpr std::string_view kListHasNoUse[] = {
    "WRN??? - An input phase angle file has been specified via SPEC_PHASEFILE",
    "         but SPEC_PHASEOPTION has been set to use the pseudo-random",
    "         phase generator : the file is not used"};
constexpr int kGenerator = 4;  // the phase option that takes no list

bool ReadList(const Platform& platform, const CaseStore& c, const std::string& name, int option,
              std::vector<float>& phases) {
  if (name.empty()) return true;
  if (option == kGenerator) {
    SayLines(platform.console, kListHasNoUse);
    return true;
  }
  return ReadPhaseFile(platform, name, FolderOf(c.file_name), phases);
}

}  // namespace

bool ReadPhaseLists(const Platform& platform, CaseStore& case_store) {
  CaseStore& c = case_store;
  std::string name;
  if (IsSpectrum(c.control.seaway.ISEA) && FindOption(c.control, kPhaseFile, name) &&
      !ReadList(platform, c, name, PrimaryOptions(c.control).SPEC_PHASEOPTION, c.phases.primary))
    return false;
  if (c.control.added_seaway.empty()) return true;
  const AddedSeawayInput& added = c.control.added_seaway.front();
  return ReadList(platform, c, added.SPEC_PHASEFILE, added.SPEC_PHASEOPTION, c.phases.added);
}

WaveAnswer EnsureSeaway(const Console& console, CaseStore& case_store) {
  CaseStore& c = case_store;
  if (c.seaway_tried == Tried::there) return WaveAnswer::ok;
  if (c.seaway_tried == Tried::failed) return NoWave(console);
  const SeawayFault fault = GetZAVOSeaway(console, c.control, c.phases, c.seaway);
  const bool made = fault == SeawayFault::none && PrepareIncidentWave(c.seaway, c.wave);
  if (!made && fault != SeawayFault::bad_seaway) return WaveAnswer::no_memory;
  c.seaway_tried = made ? Tried::there : Tried::failed;
  SayLeftOut(console, c.wave);
  return made ? WaveAnswer::ok : NoWave(console);
}

WaveAnswer WaveAlong(const Console& console, const CaseStore& case_store, std::span<const float> x,
                     std::span<const float> y, std::span<float> eta) {
  std::vector<float> scales;
  if (!ScalesOf(case_store, scales)) return WaveAnswer::no_memory;
  const WaveFault fault = ElevationHistory(case_store.wave, case_store.time.component[0], x, y, scales, eta);
  return fault == WaveFault::none ? WaveAnswer::ok : NoWave(console);
}

WaveAnswer IncidentWaveAtCG(const Console& console, CaseStore& case_store) {
  CaseStore& c = case_store;
  if (c.built.eta_cg && c.built.eta_origin) return WaveAnswer::ok;
  const WaveAnswer answer = EnsureSeaway(console, c);
  if (answer != WaveAnswer::ok) return answer;

  SayLine(console, c.built.eta_cg ? kAtOrigin : kAtBoth);
  if (!c.built.eta_cg) {
    if (!SizeHistory(c, 1, c.eta_cg)) return WaveAnswer::no_memory;
    const WaveAnswer at_cg = WaveAlong(console, c, c.pmgg.component[0], c.pmgg.component[1], c.eta_cg.component[0]);
    if (at_cg != WaveAnswer::ok) return at_cg;
    ClearGaps(c, c.eta_cg);
    c.built.eta_cg = true;
  }
  std::vector<float> origin;
  if (!SizeHistory(c, 1, c.eta_origin) || !Grow(origin, StepsInStore(c))) return WaveAnswer::no_memory;
  const WaveAnswer at_origin = WaveAlong(console, c, origin, origin, c.eta_origin.component[0]);
  if (at_origin != WaveAnswer::ok) return at_origin;
  ClearGaps(c, c.eta_origin);
  c.built.eta_origin = true;
  return WaveAnswer::ok;
}

}  // namespace zaview
