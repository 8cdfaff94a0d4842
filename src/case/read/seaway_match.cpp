#include "case/read/seaway_match.h"

namespace zaview {
namespace {

Match ByPhases(bool components_agree, bool phases_agree) {
  if (!components_agree) return Match::none;
  return phases_agree ? Match::identical : Match::realization;
}

Match Compare(const AlternativeWaves& a, const AlternativeWaves& b) {
  return ByPhases(a.KX == b.KX && a.KY == b.KY && a.AMP == b.AMP && a.FREQ == b.FREQ && a.HEAD == b.HEAD,
                  a.PHASE == b.PHASE);
}

Match Compare(const WaveModes& a, const WaveModes& b) {
  return ByPhases(a.WAVE_HEAD == b.WAVE_HEAD && a.MODE_AMP == b.MODE_AMP && a.MODE_FREQ == b.MODE_FREQ,
                  a.MODE_PHASE == b.MODE_PHASE);
}

Match Compare(const WaveComponents& a, const WaveComponents& b) {
  return ByPhases(a.FREQW == b.FREQW && a.AMPW0 == b.AMPW0 && a.HEADW == b.HEADW, a.PHASEW == b.PHASEW);
}

}  // namespace

Match CompareSeaways(const Seaway& held, const Seaway& fresh) {
  if (held.ISEA != fresh.ISEA) return Match::none;
  if (held.ISEA == 4) return Compare(held.alternative, fresh.alternative);
  if (held.ISEA == 5) return Compare(held.modes, fresh.modes);
  return Compare(held.waves, fresh.waves);
}

}  // namespace zaview
