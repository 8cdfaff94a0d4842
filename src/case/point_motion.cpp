#include "case/point_motion.h"

#include "base/message.h"
#include "base/number_format.h"
#include "base/rotation.h"
#include "case/ship_pose.h"
#include "case/size_history.h"
#include "geometry/input_transform.h"

namespace zaview {
namespace {

constexpr std::string_view kCalculating = "Calculating motion for ship fixed point...";

Vector3 Sum(const Vector3& a, const Vector3& b) {
  return {a[0] + b[0], a[1] + b[1], a[2] + b[2]};
}

Vector3 Triple3(const StepHistory& history, std::size_t first, std::size_t s) {
  return {history.component[first][s], history.component[first + 1][s], history.component[first + 2][s]};
}

void Put(StepHistory& history, std::size_t first, std::size_t s, const Vector3& v) {
  for (std::size_t i = 0; i < 3; ++i) history.component[first + i][s] = static_cast<float>(v[i]);
}

constexpr std::size_t kPointColumns = 13;

}  // namespace

bool NodePointMot(const Console& console, const OutputSettings& settings, const std::array<double, 3>& point,
                  CaseStore& case_store) {
  CaseStore& c = case_store;
  if (c.built.point_motion && c.built.point == point) return true;
  c.built.point_motion = c.built.relative_motion = false;

  const Vector3 ship = InputToShip(c.control, point);
  const auto shown = [&](std::size_t i) { return Shown{static_cast<float>(ship[i] * settings.units.LENOUT)}; };
  SayLine(console, kCalculating);
  Say(console, "Initial static coordinates {} {} {}", shown(0), shown(1), shown(2));

  const Vector3 r = FromCentre(c, ship);
  if (!SizeHistory(c, kPointColumns, c.point_motion)) return false;
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

WaveAnswer RelativePointMot(const Console& console, CaseStore& case_store) {
  CaseStore& c = case_store;
  if (c.built.relative_motion) return WaveAnswer::ok;
  if (const WaveAnswer answer = EnsureSeaway(console, c); answer != WaveAnswer::ok) return answer;
  std::vector<std::vector<float>>& column = c.point_motion.component;
  std::vector<float>& eta = column[12];  // its place until deltaZ is formed
  if (const WaveAnswer answer = WaveAlong(console, c, column[0], column[1], eta); answer != WaveAnswer::ok)
    return answer;

  const double advance = SteadyAdvance(c);
  const Vector3 from_centre = FromCentre(c, InputToShip(c.control, c.built.point));
  const Vector3 start = ShipToEarth(PoseAtStart(c), from_centre);  // the point where the initial position puts it
  for (std::size_t s = 0; s < eta.size(); ++s) {
    const double steps_since_start = static_cast<double>(c.first_read - 1) + static_cast<double>(s);
    // Not the place in store, which is rounded: far out, little is left of it.
    const Vector3 p = ShipToEarth(PoseAtStep(c, c.first_read + static_cast<int>(s)), from_centre);
    const double wave = eta[s];
    Put(c.point_motion, 9, s, {p[0] - start[0] - advance * steps_since_start, p[1] - start[1], p[2] - start[2] - wave});
    eta[s] = static_cast<float>(wave - p[2]);
  }
  ClearGaps(c, c.point_motion);
  c.built.relative_motion = true;
  return WaveAnswer::ok;
}

}  // namespace zaview
