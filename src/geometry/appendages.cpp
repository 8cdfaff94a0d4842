#include "geometry/appendages.h"

#include <cmath>
#include <cstddef>
#include <numbers>

#include "base/vectors.h"
#include "control/input_scales.h"
#include "geometry/input_transform.h"

namespace zaview {
namespace {

// One without direction becomes 0.
Vector3 WithLength(const Vector3& v, double length) {
  const double present = std::sqrt(Dot(v, v));
  if (!(present > 0)) return {};
  return {v[0] / present * length, v[1] / present * length, v[2] / present * length};
}

struct Plate {
  Vector3 centre{}, span{}, chord{};  // as long as they are
};

Plate PlateOf(const ControlRecords& records, const AppendageInput& a) {
  const Vector3 span = WithLength(a.span, a.span_length);
  const double deflection = a.deflection * InputScalesOf(records).angle;
  return {a.centre, span, TurnedAbout(span, deflection, WithLength(a.chord, a.chord_length))};
}

PlateCorners CornersOf(const Plate& plate) {
  constexpr double kSides[4][2] = {{-0.5, -0.5}, {-0.5, 0.5}, {0.5, 0.5}, {0.5, -0.5}};
  PlateCorners corners{};
  for (std::size_t i = 0; i < corners.size(); ++i)
    for (std::size_t k = 0; k < 3; ++k)
      corners[i][k] = plate.centre[k] + kSides[i][0] * plate.span[k] + kSides[i][1] * plate.chord[k];
  return corners;
}

}  // namespace

Vector3 TurnedAbout(const Vector3& axis, double angle, const Vector3& v) {
  const Vector3 n = WithLength(axis, 1.0), across = Cross(n, v);
  if (!(Dot(n, n) > 0)) return v;
  const double c = std::cos(angle), s = std::sin(angle), along = Dot(n, v) * (1.0 - c);
  Vector3 turned{};
  for (std::size_t k = 0; k < 3; ++k) turned[k] = v[k] * c + across[k] * s + n[k] * along;
  return turned;
}

PlateCorners AppendageCorners(const ControlRecords& records, const AppendageInput& appendage) {
  return CornersOf(PlateOf(records, appendage));
}

PlateCorners ShipAppendage(const ControlRecords& records, const AppendageInput& appendage, double rudder_ang) {
  const InputTransform transform = TransformOf(records);
  Plate plate = PlateOf(records, appendage);
  plate.centre = InputToShip(transform, plate.centre);
  for (Vector3* v : {&plate.span, &plate.chord}) {
    *v = ToGlobal(transform.R, *v);
    for (double& part : *v) part /= transform.LENIN;
  }
  plate.chord = TurnedAbout({0, 0, 1}, rudder_ang, plate.chord);
  return CornersOf(plate);
}

bool IsRudder(const ControlRecords& records, const AppendageInput& fin, const Vector3& centre) {
  const InputTransform transform = TransformOf(records);
  const Vector3 span = ToGlobal(transform.R, WithLength(fin.span, 1.0));
  return InputToShip(transform, fin.centre)[0] < centre[0] && std::abs(span[2]) >= 0.5 * std::numbers::sqrt2;
}

}  // namespace zaview
