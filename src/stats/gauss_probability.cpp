#include "stats/gauss_probability.h"

#include <cmath>

namespace zaview {

namespace {

constexpr int kIntervals = 500;
constexpr float kEndWeight = 0.19947115F;   // half of 1/sqrt(2 pi)
constexpr float kInnerWeight = 0.3989423F;  // 1/sqrt(2 pi)
constexpr float kTolerance = 1.0e-5F;       // in P
constexpr float kBracketStep = 0.5F;
constexpr float kBracketEnd = 10.0F;  // P may stay below 1 for Pa = 1
constexpr int kEvaluations = 500;

// P(x) between -x and x by the trapezoid rule.
float Probability(float x) {
  const float h = x / static_cast<float>(kIntervals);
  float s = kEndWeight;
  for (int i = 1; i < kIntervals; ++i) {
    const float t = static_cast<float>(i) * h;
    s += kInnerWeight * std::exp(-(t * t) / 2.0F);
  }
  s += kEndWeight * std::exp(-(x * x) / 2.0F);
  return 2.0F * (s * h);
}

}  // namespace

bool getGaussPDFka(float Pa, float& ka) {
  ka = 0.0F;
  if (!(Pa > 0.0F && Pa <= 1.0F)) return false;
  float xlo = 0.0F;
  float Plo = 0.0F;
  float xhi = 0.0F;
  float Phi = 0.0F;
  int evaluations = 0;
  while (Phi < Pa && xhi < kBracketEnd) {
    xlo = xhi;
    Plo = Phi;
    xhi += kBracketStep;
    Phi = Probability(xhi);
    ++evaluations;
  }
  float x = xhi;
  float P = Phi;
  while (P >= Plo && Phi >= Pa && std::abs(Pa - P) > kTolerance && evaluations < kEvaluations) {
    x = ((Pa - Plo) * xhi + (Phi - Pa) * xlo) / (Phi - Plo);
    P = Probability(x);
    ++evaluations;
    if (P < Pa) {
      xlo = x;
      Plo = P;
    } else {
      xhi = x;
      Phi = P;
    }
  }
  ka = x;
  return true;
}

}  // namespace zaview
