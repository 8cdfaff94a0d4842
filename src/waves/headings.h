// The headings of a short-crested sea about its mean heading, with the weight and width of each. Pure, double.
#pragma once

#include <vector>

namespace zaview {

struct Headings {
  std::vector<double> offset;  // from the mean heading, radians, ascending
  std::vector<double> share;   // weight times width: the part of the energy
};

// NHEAD headings, one more if even, at least one. SPREAD above 1e-5 degrees: so far apart, over c theta in +-90 degrees
// with c = 180/(NHEAD SPREAD); else over +-90 degrees, widths growing by 1.1 from the middle, 10001 at most. Weights
// cos^2, or cos^4 with SPEC_SPREADOPT 2; not normalised. False: memory is out.
[[nodiscard]] bool LayHeadings(int NHEAD, double SPREAD, int SPEC_SPREADOPT, Headings& headings);

}  // namespace zaview
