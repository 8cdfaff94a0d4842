// Wave spectra S(w), one-sided, in input units (length^2 time), and the frequencies that stand for them. Pure, double.
#pragma once

#include <cstdint>
#include <vector>

#include "control/control_records.h"

namespace zaview {

enum class SpectrumKind : std::uint8_t { bretschneider, jonswap, ochi };

struct Spectrum {  // everything formed once
  SpectrumKind kind = SpectrumKind::bretschneider;
  double g = 9.81;
  int modes = 1;                // Ochi: 1 or 2
  double w0[2] = {0, 0};        // modal frequencies, ascending
  double H[2] = {0, 0};         // significant heights of the modes
  double L[2] = {0, 0};         // Ochi: shapes
  double A = 0, B = 0;          // Bretschneider: A/w^5 exp(-B/w^4)
  double alpha = 0, gamma = 1;  // JONSWAP
};

// exp(x) with the argument clipped: 0 below -30, 1.0686474e13 above 30.
[[nodiscard]] double ClippedExp(double x);

// ISEA 2, 6, 7, 8 with the parameters of the seaway. False: the parameters give no spectrum.
[[nodiscard]] bool MakeSpectrum(const SeawayInput& seaway, double g, Spectrum& spectrum);
[[nodiscard]] double SpectrumAt(const Spectrum& spectrum, double w);

struct FrequencyRequest {
  int NFREQ = 0;
  bool even_spacing = false;      // distribution 2
  double cutoff = -1;             // SPEC_CUTOFF; 0 or less: 0.001
  double freq1 = -1, freq2 = -1;  // SPEC_FREQ1, 2 in input units; second not above the first: found from the cut-off
};

struct Frequencies {                // NFREQ entries
  std::vector<double> w, S, width;  // width: first and last a full gap, inner ones half the span of their neighbours
  std::vector<double> sppt;         // first gap above a peak over the last below it, one entry a peak; clustered only
};

// The frequencies of a spectrum. False: memory is out, or no range can be found.
[[nodiscard]] bool SPECTR(const Spectrum& spectrum, const FrequencyRequest& request, Frequencies& frequencies);

// The central widths of ascending w.
void FindWidths(const std::vector<double>& w, std::vector<double>& width);

}  // namespace zaview
