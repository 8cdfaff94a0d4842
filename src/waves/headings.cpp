#include "waves/headings.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

#include "base/grow.h"

namespace zaview {
namespace {

constexpr double kLeastSpread = 1e-5;  // degrees
constexpr double kGrowth = 1.1;
constexpr int kFourthPower = 2;  // SPEC_SPREADOPT
constexpr int kMostHeadings = 1'000'001;
constexpr int kMostFanned = 10'001;  // the innermost of more would be too narrow for a number

double WeightOf(double c, double theta, int SPEC_SPREADOPT) {
  const double cosine = std::cos(c * theta);
  const double square = cosine * cosine;
  return SPEC_SPREADOPT == kFourthPower ? c * 0.84882635 * square * square : c * 0.63661975 * square;
}

// Widths of the fan over +-90 degrees, from one side to the other.
void FanWidths(std::size_t half, std::vector<double>& width) {
  const double d =
      (std::numbers::pi / 2.0) / ((std::pow(kGrowth, static_cast<double>(half) + 1.0) - 1.0) / (kGrowth - 1.0) - 0.5);
  for (std::size_t k = 0; k <= half; ++k)
    width[half - k] = width[half + k] = d * std::pow(kGrowth, static_cast<double>(k));
}

}  // namespace

bool LayHeadings(int NHEAD, double SPREAD, int SPEC_SPREADOPT, Headings& headings) {
  const bool equal = SPREAD > kLeastSpread;
  int n = std::clamp(NHEAD, 1, equal ? kMostHeadings : kMostFanned);
  if (n % 2 == 0) ++n;
  const auto count = static_cast<std::size_t>(n);
  const std::size_t half = count / 2;
  if (!Grow(headings.offset, count) || !Grow(headings.share, count)) return false;
  if (n == 1) {
    headings.offset[0] = 0;
    headings.share[0] = 1;
    return true;
  }
  const double c = equal ? 180.0 / (n * SPREAD) : 1.0;
  std::vector<double> width;
  if (!Grow(width, count)) return false;
  if (equal) std::fill(width.begin(), width.end(), SPREAD * std::numbers::pi / 180.0);
  else FanWidths(half, width);
  double theta = equal ? -static_cast<double>(half) * width[0] : width[0] / 2.0 - std::numbers::pi / 2.0;
  for (std::size_t j = 0; j < count; ++j) {
    headings.offset[j] = j == half ? 0.0 : theta;  // the middle is the mean heading itself, whatever the rounding
    headings.share[j] = WeightOf(c, headings.offset[j], SPEC_SPREADOPT) * width[j];
    if (j + 1 < count) theta += (width[j] + width[j + 1]) / 2.0;
  }
  return true;
}

}  // namespace zaview
