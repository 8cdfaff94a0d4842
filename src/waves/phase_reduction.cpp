#include "waves/phase_reduction.h"

#include "base/vector_clones.h"

namespace zaview {
namespace {

// The clamped quarter is stored on the way: one loop over both would branch at the clamp and lose its vectors.
ZAVIEW_VECTOR_CLONES
void TakeBlock(const double* psi, float* c, float* s) {
  float quarter[kPhasesAtOnce];
  for (std::size_t i = 0; i < kPhasesAtOnce; ++i) quarter[i] = CosQuarter(psi[i]);
  for (std::size_t i = 0; i < kPhasesAtOnce; ++i) c[i] = QuarterSine(quarter[i]);
  for (std::size_t i = 0; i < kPhasesAtOnce; ++i) quarter[i] = SinQuarter(psi[i]);
  for (std::size_t i = 0; i < kPhasesAtOnce; ++i) s[i] = QuarterSine(quarter[i]);
}

}  // namespace

void SinesAndCosines(std::span<const double> psi, float* c, float* s) {
  for (std::size_t i = 0; i < psi.size(); i += kPhasesAtOnce) TakeBlock(psi.data() + i, c + i, s + i);
}

}  // namespace zaview
