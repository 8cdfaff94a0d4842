#include "analysis/motion_tests/upright_stability.h"

#include <vector>

#include "base/grow.h"
#include "base/rotation.h"
#include "case/ship_pose.h"
#include "geometry/closed_hull.h"
#include "geometry/wetted_hull.h"

namespace zaview {
namespace {

constexpr double kReferenceLength = 1;  // of what is non-dimensional

bool FindGM(const CaseStore& store, const UprightAttitude& attitude, double& GM) {
  ClosedHull closed;
  if (!CloseHull(store.hull, kReferenceLength, closed)) return false;
  const ShipPose pose{{0, 0, attitude.Z}, ShipToGlobal(0, attitude.pitch, 0)};
  std::vector<Vector3> r;
  std::vector<double> depth;
  for (const Vector3& vertex : closed.vertices) {
    r.push_back(ShipToEarth(pose, FromCentre(store, vertex)));
    depth.push_back(-r.back()[2]);
  }
  WettedHull wet;
  if (!WetHull(closed, r, depth, wet)) return false;
  const WetSums sums = SumWetHull(wet);
  if (!(sums.V > 0) || !(sums.Awp > 0)) return false;
  GM = (sums.Ixx - sums.Sy * sums.Sy / sums.Awp) / sums.V + sums.B[2] - attitude.Z;
  return true;
}

}  // namespace

bool GMTAtDraft(const CaseStore& store, const UprightAttitude& attitude, double& GM) {
  return Guarded([&] { return FindGM(store, attitude, GM); }, false);
}

}  // namespace zaview
