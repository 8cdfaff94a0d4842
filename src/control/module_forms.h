// The modules whose fields are known. Each form stands in the modules_<kind>.cpp that its subject names.
#pragma once

#include "base/grow.h"
#include "control/module_io.h"

namespace zaview {

// modules_sea.cpp
extern const ModuleForm kAddedSeawayForm, kWaveTableForm, kSurfacePointsForm;
// modules_hull.cpp
extern const ModuleForm kAddedGeometryForm, kYCutLoadsForm, kStabilityStepsForm, kVortexLatticeForm;
// modules_force.cpp
extern const ModuleForm kCommandsForm, kExternalForceForm, kRudderRollForm;

template <auto array>
bool ResizeModule(ControlRecords& records, std::size_t entries) {
  return Grow(records.*array, entries);
}
template <auto array>
std::size_t ModuleEntries(const ControlRecords& records) {
  return (records.*array).size();
}

inline std::int64_t ModuleCount(const ModuleState& state) {
  return state.count;
}

}  // namespace zaview
