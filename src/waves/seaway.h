// The seaway of a case as the evaluation takes it: non-dimensional by the reference length and gravity, 4-byte lists,
// phases and headings in degrees. Made from the control data (components.h) or from a KINO seaway file (kino_sea.h).
// Data only.
#pragma once

#include <cstddef>
#include <vector>

namespace zaview {

struct WaveComponents {  // parallel arrays, NWAVES entries: headings outside, frequencies inside
  std::vector<float> FREQW, PHASEW, AMPW0, HEADW;
  [[nodiscard]] std::size_t size() const { return FREQW.size(); }
};

struct AlternativeWaves {  // ISEA 4, WAVEDIM1 x WAVEDIM2 entries, second index fastest
  std::vector<float> KX, KY, AMP, PHASE, FREQ, HEAD;
  int WAVEDIM1 = 0, WAVEDIM2 = 0;
};

struct WaveModes {  // ISEA 5
  std::vector<float> MODE_AMP, MODE_PHASE, MODE_FREQ;
  float WAVE_HEAD = 0;
};

struct WaveScaling {  // factor of all amplitudes in time; none listed: 1
  std::vector<double> WSCSTP,
      WSCFAC;                 // absolute step indices (from a KINO file: places between steps as well), factors
  double TINIT = 0, DTH = 0;  // non-dimensional: step i is at TINIT + (i - 1) DTH
};

struct Seaway {
  int ISEA = 0;          // 0 calm, 1 linear components (also what the spectra 2, 6, 7, 8 become), 3, 4, 5
  int WSPEC = 0;         // order of ISEA 3, 0 to 5
  double WDEPTH = 0;     // 0: deep
  WaveComponents waves;  // ISEA 1; ISEA 3: one
  AlternativeWaves alternative;
  WaveModes modes;
  WaveScaling scaling;
};

struct IncidentWave {  // what is formed once per seaway
  int ISEA = 0;
  int order = 0;                        // Stokes order
  double depth = 0;                     // 0: deep
  std::vector<double> kx, ky, k, w, p;  // k cos b, k sin b, k, frequency, phase in radians
  std::vector<float> a;                 // amplitudes, unscaled
  std::size_t left_out = 0;             // components that have an amplitude, but no frequency or length to run with
  [[nodiscard]] std::size_t size() const { return a.size(); }
};

struct PhaseLists {            // angles read from phase files, degrees; empty: none named
  std::vector<float> primary;  // SPEC_PHASEFILE of $OPTIONS:
  std::vector<float> added;    // of $ADDSEA:
};

}  // namespace zaview
