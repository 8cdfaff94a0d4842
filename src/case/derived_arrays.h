// Histories that follow from the ones read, each made on first need for all steps in store. Rotations in double from
// the stored 4-byte values, rounded once. R = Rz(yaw) Ry(pitch) Rx(roll) of pmgg(4:6):
//   motion = pmgg - PMGIN, surge less USHIP DTH (i-1);  vmgshp(1:3) = R' vmg(1:3);  vmgg(4:6) = R vmg(4:6);
//   accg = R acc (both triples);  force_ship = R' force (both triples of each slot);
//   maneuver: speed, slip, heading, rudder_cmd, rudder_ang, prop_rps.
#pragma once

#include <optional>

#include "case/case_store.h"

namespace zaview {

enum class Derived : unsigned char { motion, vmgshp, vmgg, accg, force_ship, maneuver };

[[nodiscard]] std::optional<Derived> DerivedOf(StepHistory CaseStore::*history);  // none: it is not one of these
[[nodiscard]] bool EnsureDerived(CaseStore& case_store, Derived what);            // false: out of memory
void DropDerived(CaseStore& case_store);

}  // namespace zaview
