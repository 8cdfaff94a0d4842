// Response amplitude operators of the six motions: the linear equations of motion at one frequency after the other.
// Non-dimensional, so that a response is over the wave amplitude by the length. Pure; a failure to allocate is thrown.
#pragma once

#include <array>
#include <vector>

#include "analysis/frequency_domain/irf_transforms.h"

namespace zaview {

struct HeadingGroup {  // all that was read for one heading, head seas and following ones apart
  bool following = false;
  double heading = 0;                           // degrees
  double tau = 0;                               // U cos(heading): we = w - tau w^2
  std::array<int, 3> branch_table{-1, -1, -1};  // into ResponseModel::excitation; -1: not read
};

struct ResponseModel {
  SixBySix M{};  // rigid body, about the centre of gravity
  IndependentParts parts;
  std::vector<RadiationTable> radiation;  // one a motion at most: these move, the others don't
  std::vector<ExcitationTable> excitation;
  std::vector<HeadingGroup> headings;
};

// Head seas, and following ones without speed, have branch 1 alone. Else 3 where the wave is overtaken (we < 0), 2 if
// w is nearer to the higher of the two waves that are met at |we|.
[[nodiscard]] int BranchOf(const HeadingGroup& group, double w);

struct ResponseRow {
  double w = 0, we = 0;  // wave and encounter frequency
  std::array<Polar, kModes> motion{};
};
// (C - ae^2 (A + M)) and ae B about x = xr cos ae t + xi sin ae t, ae = |we|; A, B and the forces are linear between
// the frequencies of their tables, and 0 outside. Singular: 0. False: nothing was read for the branch of that wave.
[[nodiscard]] bool MotionResponse(const ResponseModel& model, const HeadingGroup& group, double w, ResponseRow& row);

// count frequencies from low to high, both ends in; one: the lowest.
[[nodiscard]] std::vector<double> EvenFrequencies(double low, double high, int count);

}  // namespace zaview
