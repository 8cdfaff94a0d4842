#include "waves/wave_sums.h"

#include <algorithm>
#include <cmath>

#include "base/vector_clones.h"
#include "waves/phase_reduction.h"
#include "waves/stokes.h"

namespace zaview {
namespace {

constexpr std::size_t kLanes = 4;                 // component i is added to lane i mod 4
constexpr std::size_t kPart = 2 * kPhasesAtOnce;  // components taken at once at one point; a multiple of the lanes

struct Lists {
  const double *kx, *ky, *w, *p;
  const float* a;
  std::size_t n;
};

Lists ListsOf(const IncidentWave& wave, std::size_t from = 0) {
  return {wave.kx.data() + from, wave.ky.data() + from, wave.w.data() + from,
          wave.p.data() + from,  wave.a.data() + from,  wave.size() - from};
}

// Quarters are stored on the way, as in phase_reduction.cpp.
ZAVIEW_VECTOR_CLONES
void LaneSums(const Lists& list, const PointBlock& block, float* eta) {
  float lanes[kLanes][kSideBySide] = {};
  for (std::size_t i = 0; i < list.n; ++i) {
    float quarter[kSideBySide];
    for (std::size_t j = 0; j < kSideBySide; ++j) {
      const double psi = ((list.kx[i] * block.x[j] + list.ky[i] * block.y[j]) - list.w[i] * block.t[j]) + list.p[i];
      quarter[j] = CosQuarter(psi);
    }
    float* lane = lanes[i % kLanes];
    for (std::size_t j = 0; j < kSideBySide; ++j) lane[j] += (list.a[i] * block.scale[j]) * QuarterSine(quarter[j]);
  }
  for (std::size_t j = 0; j < kSideBySide; ++j) eta[j] = (lanes[0][j] + lanes[1][j]) + (lanes[2][j] + lanes[3][j]);
}

struct Part {  // components at one point, filled with components of amplitude 0 up to a multiple of the lanes
  std::size_t n = 0;
  std::array<float, kPart> c, s;             // of the phase
  std::array<float, kPart> a, kx, ky, k, w;  // a scaled
  std::array<float, kPart> C, S;             // depth factors
};

void FillPart(const IncidentWave& wave, std::size_t from, const WavePlace& place, Part& part) {
  const Lists list = ListsOf(wave, from);
  const std::size_t n = std::min(list.n, kPart);
  std::array<double, kPart> psi{};
  part.n = (n + kLanes - 1) / kLanes * kLanes;
  for (std::size_t i = 0; i < n; ++i) {
    psi[i] = PhaseOf(wave, from + i, place.x, place.y, place.t);
    part.a[i] = list.a[i] * place.scale;
    part.kx[i] = static_cast<float>(list.kx[i]);
    part.ky[i] = static_cast<float>(list.ky[i]);
    part.k[i] = static_cast<float>(wave.k[from + i]);
    part.w[i] = static_cast<float>(list.w[i]);
  }
  for (std::size_t i = n; i < part.n; ++i) {
    part.a[i] = part.kx[i] = part.ky[i] = part.k[i] = 0.0F;
    part.w[i] = 1.0F;
    part.C[i] = part.S[i] = 0.0F;
  }
  SinesAndCosines(psi, part.c.data(), part.s.data());
}

// Written with falling exponentials alone, cosh k(z'+h)/cosh kh doesn't overflow in any depth.
void FillDepthFactors(const IncidentWave& wave, std::size_t from, double z, bool decays, Part& part) {
  const std::size_t n = std::min(wave.size() - from, kPart);
  const double h = wave.depth;
  for (std::size_t i = 0; i < n; ++i) {
    const double k = wave.k[from + i];
    if (h > 0.0) {
      const double down = Decay(k * z);
      const double up = Decay(-k * (z + 2.0 * h));
      const double both = 1.0 + Decay(-2.0 * k * h);
      part.C[i] = static_cast<float>((down + up) / both);
      part.S[i] = static_cast<float>((down - up) / both);
    } else {
      part.C[i] = part.S[i] = decays ? static_cast<float>(Decay(k * z)) : 1.0F;
    }
  }
}

using Lanes = std::array<float, kLanes>;
float Total(const Lanes& s) {
  return (s[0] + s[1]) + (s[2] + s[3]);
}

struct PotentialLanes {
  Lanes phi{}, t{}, x{}, y{}, z{}, xx{}, xy{}, xz{}, yy{}, yz{}, zz{};
};

void AddPotential(const Part& part, PotentialLanes& sum) {
  for (std::size_t i = 0; i < part.n; i += kLanes) {
    for (std::size_t l = 0; l < kLanes; ++l) {
      const std::size_t n = i + l;
      const float b = part.a[n] / part.w[n];
      const float bx = b * part.kx[n];
      const float by = b * part.ky[n];
      const float bk = b * part.k[n];
      const float Cs = part.C[n] * part.s[n];
      const float Cc = part.C[n] * part.c[n];
      const float Sc = part.S[n] * part.c[n];
      sum.phi[l] += b * Cs;
      sum.t[l] -= part.a[n] * Cc;
      sum.x[l] += bx * Cc;
      sum.y[l] += by * Cc;
      sum.z[l] += bk * (part.S[n] * part.s[n]);
      sum.xx[l] -= (bx * part.kx[n]) * Cs;
      sum.xy[l] -= (bx * part.ky[n]) * Cs;
      sum.yy[l] -= (by * part.ky[n]) * Cs;
      sum.xz[l] += (bx * part.k[n]) * Sc;
      sum.yz[l] += (by * part.k[n]) * Sc;
      sum.zz[l] += (bk * part.k[n]) * Cs;
    }
  }
}

}  // namespace

WaveKind KindOf(const IncidentWave& wave) {
  switch (wave.ISEA) {
    case 0:
      return WaveKind::calm;
    case 1:
    case 2:
    case 4:
    case 6:
    case 7:
    case 8:
      return WaveKind::linear;
    case 3:
      return wave.order > 0 ? WaveKind::stokes : WaveKind::linear;
    case 5:
      return WaveKind::second_order;
    default:
      return WaveKind::unknown;
  }
}

double Decay(double v) {
  if (v < -30.0) return 0.0;
  return v >= 0.0 ? 1.0 : std::exp(v);
}

double StretchedDepth(double z, double eta, bool stretch, double h) {
  if (!(h > 0.0)) return std::min(stretch ? z - eta : z, 0.0);
  if (stretch && z > -h && eta > -h) z -= ((h + z) * eta) / (eta + h);
  return std::max(std::min(z, 0.0), -h);
}

BlockValues SumElevations(const IncidentWave& wave, const PointBlock& block) {
  BlockValues eta;
  LaneSums(ListsOf(wave), block, eta.data());
  return eta;
}

void SumSlopes(const IncidentWave& wave, const WavePlace& place, PointWave& out) {
  Lanes x{};
  Lanes y{};
  Part part;
  for (std::size_t from = 0; from < wave.size(); from += kPart) {
    FillPart(wave, from, place, part);
    for (std::size_t i = 0; i < part.n; ++i) {
      x[i % kLanes] -= (part.a[i] * part.kx[i]) * part.s[i];
      y[i % kLanes] -= (part.a[i] * part.ky[i]) * part.s[i];
    }
  }
  out.eta_x = Total(x);
  out.eta_y = Total(y);
}

void SumPotential(const IncidentWave& wave, const WavePlace& place, double z_stretched, bool decays, PointWave& out) {
  PotentialLanes sum;
  Part part;
  for (std::size_t from = 0; from < wave.size(); from += kPart) {
    FillPart(wave, from, place, part);
    FillDepthFactors(wave, from, z_stretched, decays, part);
    AddPotential(part, sum);
  }
  out.phi = Total(sum.phi);
  out.phi_t = Total(sum.t);
  out.phi_x = Total(sum.x);
  out.phi_y = Total(sum.y);
  out.phi_z = Total(sum.z);
  out.xx = Total(sum.xx);
  out.xy = Total(sum.xy);
  out.xz = Total(sum.xz);
  out.yy = Total(sum.yy);
  out.yz = Total(sum.yz);
  out.zz = Total(sum.zz);
}

BlockValues BlockElevations(const IncidentWave& wave, WaveKind kind, const PointBlock& block) {
  BlockValues eta{};
  if (kind == WaveKind::calm || wave.size() == 0) return eta;
  if (kind != WaveKind::stokes) eta = SumElevations(wave, block);
  if (kind == WaveKind::linear) return eta;
  for (std::size_t j = 0; j < block.n; ++j) {
    const WavePlace place{block.x[j], block.y[j], 0.0, block.t[j], block.scale[j]};
    if (kind == WaveKind::stokes) {
      eta[j] = StokesElevation(wave, place);
    } else {
      eta[j] += SecondOrderElevation(wave, place);
    }
  }
  return eta;
}

}  // namespace zaview
