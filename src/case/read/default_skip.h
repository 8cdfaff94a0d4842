// How many initial steps statistics leave out by default.
#pragma once

#include "base/platform.h"
#include "case/case_store.h"
#include "case/output_settings.h"
#include "frame/ground/run_state.h"

namespace zaview {

// The sea's part in it, non-dimensional. frequency 0: none (calm, or a sea without one period).
enum class SeaPeriod : unsigned char { none, regular, composite, spectral, no_clue };
struct DominantWave {
  SeaPeriod kind = SeaPeriod::none;
  double frequency = 0;  // of the wave, not of encounter
  double heading = 0;    // radians
};
// Regular and composite seas: the wave of largest |amplitude|, the first of equals; a spectrum: its modal frequency, of
// two modes that of the larger height.
[[nodiscard]] DominantWave FindDominantWave(const ControlRecords& control);

// Sets case_store.skip_effective, at most last_step - 1; asks, prints or is silent as run.skip_prompt says. Needs the
// scales and the trims of the case. The longer of the period of encounter and that of forced motion gives the count
// that is offered; silently 300, half the run, or that count. A user's own skip_initial and impulsive runs leave all
// as it is.
void ChooseDefaultSkip(const Console& console, const RunState& run, const OutputSettings& settings,
                       CaseStore& case_store);

}  // namespace zaview
