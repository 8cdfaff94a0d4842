// Wave spectra S(w), one-sided, over w in radians a unit of time, in input units (length^2 time): their integral is the
// variance of the elevation. And the frequencies that stand for them. Pure, double.
//   Bretschneider  S = A/w^5 exp(-B/w^4), A = 486 H^2/T^4, B = 1948.2/T^4 (C. L. Bretschneider, Wave variability and
//                  wave spectra for wind-generated gravity waves, 1959); by height alone that of a fully developed sea
//                  (W. J. Pierson and L. Moskowitz, J. Geophysical Research 69, 1964)
//   JONSWAP        S = alpha g^2/w^5 exp(-1.25 (w0/w)^4) gamma^exp(-(w - w0)^2/(2 sigma^2 w0^2)), sigma 0.07 up to
//                  w0, 0.09 above (K. Hasselmann and others, Deutsche Hydrographische Zeitschrift A8 12, 1973)
//   Ochi           S = sum over 1 or 2 modes of (q w0^4)^L H^2/(4 Gamma(L) w^(4L+1)) exp(-q (w0/w)^4), q = (4L + 1)/4
//                  (M. K. Ochi and E. N. Hubble, Six-parameter wave spectra, 15th Coastal Engineering Conference, 1976)
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
  double w0[2] = {0, 0};        // modal frequencies, ascending, input units
  double H[2] = {0, 0};         // significant heights of the modes, input units
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
  double freq1 = -1, freq2 = -1;  // SPEC_FREQ1, 2 in input units; second not above the first: both ends by the cut-off;
                                  // first below 0 (not set): the low end by it
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
