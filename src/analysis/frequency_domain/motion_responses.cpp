#include "analysis/frequency_domain/motion_responses.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "base/linear_system.h"

namespace zaview {
namespace {

constexpr std::size_t kUnknowns = 2 * kModes;

struct Place {  // between two components of a table
  bool inside = false;
  std::size_t lower = 0;
  double share = 0;  // of the upper one
};

Place Find(const std::vector<double>& w, double x) {
  if (w.empty() || !(x >= w.front()) || x > w.back()) return {};
  if (w.size() == 1) return {true, 0, 0};
  const auto upper = std::upper_bound(w.begin() + 1, w.end() - 1, x);
  const auto lower = static_cast<std::size_t>(upper - w.begin()) - 1;
  return {true, lower, (x - w[lower]) / (w[lower + 1] - w[lower])};
}

double Between(const Place& place, double lower, double upper) {
  return lower + place.share * (upper - lower);
}

std::size_t Upper(const Place& place) {
  return place.share == 0 ? place.lower : place.lower + 1;
}

struct Equations {  // 12 unknowns: xr, then xi
  std::array<double, kUnknowns * kUnknowns> matrix{};
  std::array<double, kUnknowns> right{};
  double& at(std::size_t i, std::size_t j) { return matrix[i * kUnknowns + j]; }
};

// R = C - ae^2 (A + M) and I = -ae B: [R -I; I R] for a force Fr cos + Fi sin.
void PutMotion(const ResponseModel& model, const RadiationTable& table, const std::array<bool, kModes>& moves,
               double ae, Equations& e) {
  const auto j = static_cast<std::size_t>(table.motion - 1);
  const Place place = Find(table.w, ae);
  for (std::size_t i = 0; i < kModes; ++i) {
    if (!moves[i]) continue;
    CoefficientPair c;
    if (place.inside) {
      const CoefficientPair low = CoefficientsAt(CoefficientForm::plain, table, model.parts, i, place.lower);
      const CoefficientPair high = CoefficientsAt(CoefficientForm::plain, table, model.parts, i, Upper(place));
      c = {Between(place, low.A, high.A), Between(place, low.B, high.B)};
    }
    const double R = model.parts.C[i][j] - ae * ae * (c.A + model.M[i][j]);
    const double I = -ae * c.B;
    e.at(i, j) = e.at(i + kModes, j + kModes) = R;
    e.at(i, j + kModes) = -I;
    e.at(i + kModes, j) = I;
  }
}

void PutForces(const ExcitationTable& table, const std::array<bool, kModes>& moves, double ae, Equations& e) {
  const Place place = Find(table.we, ae);
  for (std::size_t i = 0; i < kModes && place.inside; ++i) {
    if (!moves[i]) continue;
    const ForcePair low = ExcitationAt(WavePart::total, table, i, place.lower);
    const ForcePair high = ExcitationAt(WavePart::total, table, i, Upper(place));
    e.right[i] = Between(place, low.real, high.real);
    e.right[i + kModes] = Between(place, low.imaginary, high.imaginary);
  }
}

}  // namespace

int BranchOf(const HeadingGroup& group, double w) {
  const double tau = group.tau;
  if (!group.following || !(tau > 0)) return 1;
  const double we = w - tau * w * w;
  if (we < 0) return 3;
  const double s = std::sqrt(std::max(0.0, 1 - 4 * tau * we));
  const double first = (1 - s) / (2 * tau), second = (1 + s) / (2 * tau);
  return std::abs(second - w) < std::abs(first - w) ? 2 : 1;
}

bool MotionResponse(const ResponseModel& model, const HeadingGroup& group, double w, ResponseRow& row) {
  row = ResponseRow{};
  row.w = w;
  row.we = w - group.tau * w * w;
  const int index = group.branch_table[static_cast<std::size_t>(BranchOf(group, w) - 1)];
  if (index < 0) return false;
  const double ae = std::abs(row.we);
  std::array<bool, kModes> moves{};
  for (const RadiationTable& table : model.radiation) moves[static_cast<std::size_t>(table.motion - 1)] = true;

  Equations e;
  for (std::size_t i = 0; i < kModes; ++i)
    if (!moves[i]) e.at(i, i) = e.at(i + kModes, i + kModes) = 1;
  for (const RadiationTable& table : model.radiation) PutMotion(model, table, moves, ae, e);
  PutForces(model.excitation[static_cast<std::size_t>(index)], moves, ae, e);
  if (ae == 0 || !SolveLinear(e.matrix, e.right)) return true;
  for (std::size_t i = 0; i < kModes; ++i) row.motion[i] = PolarOf(e.right[i], e.right[i + kModes]);
  return true;
}

std::vector<double> EvenFrequencies(double low, double high, int count) {
  std::vector<double> w;
  for (int i = 0; i < count; ++i) w.push_back(count > 1 ? low + (high - low) * i / (count - 1) : low);
  if (count > 1) w.back() = high;
  return w;
}

}  // namespace zaview
