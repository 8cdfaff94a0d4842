#include "case/point_motion.h"

#include "base/message.h"
#include "base/number_format.h"
#include "base/rotation.h"
#include "case/size_history.h"
#include "geometry/input_transform.h"

namespace zaview {
namespace {

inline constexpr std::string_view kCalculating = "Calculating motion for ship fixed point...";

Vector3 Sum(const Vector3& a, const Vector3& b) {
  return {a[0] + b[0], a[1] + b[1], a[2] + b[2]};
}

Vector3 Triple3(const StepHistory& history, std::size_t first, std::size_t s) {
  return {history.component[first][s], history.component[first + 1][s], history.component[first + 2][s]};
}

void Put(StepHistory& history, std::size_t first, std::size_t s, const Vector3& v) {
  for (std::size_t i = 0; i < 3; ++i) history.component[first + i][s] = static_cast<float>(v[i]);
}

}  // namespace

bool NodePointMot(const Console& console, const OutputSettings& settings, const std::array<double, 3>& point,
                  CaseStore& case_store) {
  CaseStore& c = case_store;
  if (c.built.point_motion && c.built.point == point) return true;
  c.built.point_motion = false;

  const Vector3 ship = InputToShip(c.control, point);
  const auto shown = [&](std::size_t i) { return Shown{static_cast<float>(ship[i] * settings.LENOUT)}; };
  SayLine(console, kCalculating);
  Say(console, "Initial static coordinates {} {} {}", shown(0), shown(1), shown(2));

  Vector3 r = ship;  // from the CG
  if (const auto ship_index = static_cast<std::size_t>(c.ship - 1); ship_index < c.ships.size())
    for (std::size_t i = 0; i < 3; ++i) r[i] -= c.ships[ship_index].centre[i];
  if (!SizeHistory(c, 9, c.point_motion)) return false;
  for (std::size_t s = 0; s < StepsInStore(c); ++s) {
    const Vector3 angles = Triple3(c.pmgg, 3, s);
    const Rotation R = ShipToGlobal(angles[0], angles[1], angles[2]);
    const Vector3 w = Triple3(c.vmg, 3, s);
    const Vector3 w_rate = Triple3(c.acc, 3, s);
    const Vector3 w_x_r = Cross(w, r);
    const Vector3 a_ship = Sum(Sum(Triple3(c.acc, 0, s), Cross(w_rate, r)), Cross(w, w_x_r));
    Put(c.point_motion, 0, s, Sum(Triple3(c.pmgg, 0, s), ToGlobal(R, r)));
    Put(c.point_motion, 3, s, Sum(Triple3(c.vmg, 0, s), ToGlobal(R, w_x_r)));
    Put(c.point_motion, 6, s, ToGlobal(R, a_ship));
  }
  ClearGaps(c, c.point_motion);
  c.built.point = point;
  c.built.point_motion = true;
  return true;
}

}  // namespace zaview
