// Spectral density of a record by averaged modified periodograms: P. D. Welch, The use of fast Fourier transform for
// the estimation of power spectra, IEEE Transactions on Audio and Electroacoustics 15 (1967). Pure, in double.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace zaview {

struct WelchSpectrum {
  std::size_t segment = 0;  // samples
  int segments = 0;         // that were averaged
  double dw = 0;            // rad per unit of time from line to line
  std::vector<double> S;    // one-sided density at k dw, k = 0 .. segment/2: unit squared by rad per time
  double freedom = 0;       // degrees of freedom of each line
};

// x: stretches of one record, samples dt apart. The mean of all is taken off; segments of `segment` samples (4 and
// above, even) overlap by half and are tapered by w(j) = (1 - cos(2 pi j/segment))/2; what is left at the end stays
// out. With P(k) the square of the size of a segment's transform, S(k) = 2 dt P(k)/(2 pi sum w^2), half of that at both
// ends, averaged over the segments. Degrees of freedom: 2 segments/(1 + 2 r (1 - 1/segments)), r = 1/36 the square of
// the correlation of neighbours' tapers. False: no stretch holds a segment, or memory is out.
[[nodiscard]] bool FindWelchSpectrum(std::span<const std::span<const float>> x, double dt, std::size_t segment,
                                     WelchSpectrum& out);

// Segments for a record of n samples if nobody chose: an eighth of it, at least 256 samples, at most half of it; even.
[[nodiscard]] std::size_t UsualSegment(std::size_t n);

// Factors of a line's density that give the limits which hold its true value with this probability (0 .. 0.999999, cut
// to that): freedom/chi^2 at (1 + probability)/2 and at (1 - probability)/2, R. B. Blackman and J. W. Tukey, The
// measurement of power spectra, Bell System Technical Journal 37 (1958). Freedom above 0.
struct DensityLimits {
  double low = 1, high = 1;
};
[[nodiscard]] DensityLimits LimitsOfDensity(double freedom, double probability);

struct SpectralMoments {  // m(i) = sum of w^i S dw over all lines but the first
  double m_1 = 0, m0 = 0, m1 = 0, m2 = 0, m4 = 0;
  double w_peak = 0;  // of the parabola through the highest line and its neighbours
};
[[nodiscard]] SpectralMoments MomentsOf(const WelchSpectrum& spectrum);

// sqrt(1 - m2^2/(m0 m4)), D. E. Cartwright and M. S. Longuet-Higgins, Proc. Royal Society A 237 (1956); and
// sqrt(m0 m2/m1^2 - 1), M. S. Longuet-Higgins, J. Geophysical Research 80 (1975). 0 of nothing.
[[nodiscard]] double BandwidthEpsilon(const SpectralMoments& m);
[[nodiscard]] double BandwidthNu(const SpectralMoments& m);

}  // namespace zaview
