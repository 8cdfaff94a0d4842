#include "case/ship_pose.h"

#include <cstddef>

#include "control/input_scales.h"

namespace zaview {

ShipPose PoseAtStep(const CaseStore& store, int step) {
  const auto real = [&](int i) { return static_cast<double>(store.pmgg.at(i, step)); };
  return {{real(1), real(2), real(3)}, ShipToGlobal(real(4), real(5), real(6))};
}

ShipPose PoseAtStart(const CaseStore& store) {
  const InputScales scales = InputScalesOf(store.control);
  const Sextet& start = store.control.PMGIN;
  return {{start[0] * scales.length, start[1] * scales.length, start[2] * scales.length},
          ShipToGlobal(start[3] * scales.angle, start[4] * scales.angle, start[5] * scales.angle)};
}

Vector3 ShipCentre(const CaseStore& store) {
  const auto ship = static_cast<std::size_t>(store.ship - 1);
  return ship < store.ships.size() ? store.ships[ship].centre : Vector3{};
}

Vector3 FromCentre(const CaseStore& store, const Vector3& ship) {
  const Vector3 centre = ShipCentre(store);
  return {ship[0] - centre[0], ship[1] - centre[1], ship[2] - centre[2]};
}

Vector3 ShipToEarth(const ShipPose& pose, const Vector3& from_centre) {
  Vector3 earth = ToGlobal(pose.R, from_centre);
  for (std::size_t i = 0; i < 3; ++i) earth[i] += pose.cg[i];
  return earth;
}

double SteadyAdvance(const CaseStore& store) {
  const InputScales scales = InputScalesOf(store.control);
  return store.control.USHIP * scales.velocity * (store.control.DTH * scales.time);
}

double StillWater(const CaseStore& store) {
  return ShipCentre(store)[2] - store.control.PMGIN[2] * InputScalesOf(store.control).length;
}

}  // namespace zaview
