#include "case/derived_arrays.h"

#include <array>
#include <cmath>
#include <iterator>
#include <span>

#include "base/rotation.h"
#include "case/ship_pose.h"
#include "case/size_history.h"
#include "control/input_scales.h"

namespace zaview {
namespace {

enum class Turn : unsigned char { copy, to_global, to_ship };

Vector3 Turned(const Rotation& R, Turn turn, const Vector3& v) {
  return turn == Turn::to_global ? ToGlobal(R, v) : ToShip(R, v);
}

// Each triple of `from` in the axes that `turns` names for it.
bool TurnTriples(const CaseStore& c, const StepHistory& from, std::span<const Turn> turns, StepHistory& to) {
  if (from.component.size() < 3 * turns.size() || !SizeHistory(c, 3 * turns.size(), to)) return false;
  const std::size_t steps = StepsInStore(c);
  for (std::size_t k = 0; k < turns.size(); ++k)
    if (turns[k] == Turn::copy)
      for (std::size_t i = 3 * k; i < 3 * k + 3; ++i) to.component[i] = from.component[i];
  for (std::size_t s = 0; s < steps; ++s) {
    const Rotation R = ShipToGlobal(c.pmgg.component[3][s], c.pmgg.component[4][s], c.pmgg.component[5][s]);
    for (std::size_t k = 0; k < turns.size(); ++k) {
      if (turns[k] == Turn::copy) continue;
      const std::vector<float>* triple = &from.component[3 * k];
      const Vector3 turned = Turned(R, turns[k], {triple[0][s], triple[1][s], triple[2][s]});
      for (std::size_t i = 0; i < 3; ++i) to.component[3 * k + i][s] = static_cast<float>(turned[i]);
    }
  }
  return true;
}

bool MakeMotion(CaseStore& c) {
  if (!SizeHistory(c, 6, c.motion)) return false;
  const InputScales scales = InputScalesOf(c.control);
  const double advance = SteadyAdvance(c);
  for (std::size_t i = 0; i < 6; ++i) {
    const double start = c.control.PMGIN[i] * (i < 3 ? scales.length : scales.angle);
    const double growth = i == 0 ? advance : 0.0;
    const std::vector<float>& pmgg = c.pmgg.component[i];
    std::vector<float>& motion = c.motion.component[i];
    for (std::size_t s = 0; s < motion.size(); ++s) {
      const double steps_since_start = static_cast<double>(c.first_read - 1) + static_cast<double>(s);
      motion[s] = static_cast<float>(pmgg[s] - start - growth * steps_since_start);
    }
  }
  return true;
}

bool MakeManeuver(CaseStore& c) {
  if (!SizeHistory(c, 6, c.maneuver)) return false;
  std::vector<std::vector<float>>& out = c.maneuver.component;
  for (std::size_t s = 0; s < out[0].size(); ++s) {
    const double vx = c.vmg.component[0][s];
    const double vy = c.vmg.component[1][s];
    const double yaw = c.pmgg.component[5][s];
    const double speed = std::sqrt(vx * vx + vy * vy);
    const double u = vx * std::cos(yaw) + vy * std::sin(yaw);
    const double v = vy * std::cos(yaw) - vx * std::sin(yaw);
    out[0][s] = static_cast<float>(speed);
    out[1][s] = speed == 0 ? 0.0F : static_cast<float>(std::atan2(v, u));
  }
  out[2] = c.pmgg.component[5];
  const StepHistory* trailing[] = {&c.rudder_cmd, &c.rudder_ang, &c.prop_rps};
  for (std::size_t i = 0; i < 3; ++i)
    if (!trailing[i]->component.empty()) out[3 + i] = trailing[i]->component[0];
  return true;
}

bool MakeForceShip(CaseStore& c) {
  constexpr std::array<Turn, 10> turns = [] {
    std::array<Turn, 10> all{};
    all.fill(Turn::to_ship);
    return all;
  }();
  return TurnTriples(c, c.force, turns, c.force_ship);
}

constexpr Turn kVmgshp[] = {Turn::to_ship, Turn::copy};
constexpr Turn kVmgg[] = {Turn::copy, Turn::to_global};
constexpr Turn kAccg[] = {Turn::to_global, Turn::to_global};

struct DerivedRow {  // in the order of Derived
  bool DerivedCache::*built;
  bool (*make)(CaseStore& case_store);
  StepHistory CaseStore::*history;
};
constexpr DerivedRow kDerived[] = {
    {&DerivedCache::motion, MakeMotion, &CaseStore::motion},
    {&DerivedCache::vmgshp, [](CaseStore& c) { return TurnTriples(c, c.vmg, kVmgshp, c.vmgshp); }, &CaseStore::vmgshp},
    {&DerivedCache::vmgg, [](CaseStore& c) { return TurnTriples(c, c.vmg, kVmgg, c.vmgg); }, &CaseStore::vmgg},
    {&DerivedCache::accg, [](CaseStore& c) { return TurnTriples(c, c.acc, kAccg, c.accg); }, &CaseStore::accg},
    {&DerivedCache::force_ship, MakeForceShip, &CaseStore::force_ship},
    {&DerivedCache::maneuver, MakeManeuver, &CaseStore::maneuver},
};

}  // namespace

std::optional<Derived> DerivedOf(StepHistory CaseStore::*history) {
  for (std::size_t i = 0; i < std::size(kDerived); ++i)
    if (kDerived[i].history == history) return static_cast<Derived>(i);
  return std::nullopt;
}

bool EnsureDerived(CaseStore& case_store, Derived what) {
  const DerivedRow& row = kDerived[static_cast<std::size_t>(what)];
  if (!(case_store.built.*row.built)) {
    case_store.built.*row.built = row.make(case_store);
    ClearGaps(case_store, case_store.*row.history);
  }
  return case_store.built.*row.built;
}

void DropDerived(CaseStore& case_store) {
  for (StepHistory* history :
       {&case_store.motion, &case_store.vmgshp, &case_store.vmgg, &case_store.accg, &case_store.force_ship,
        &case_store.maneuver, &case_store.point_motion, &case_store.eta_cg, &case_store.eta_origin})
    *history = StepHistory{};
  case_store.built = DerivedCache{};
}

}  // namespace zaview
