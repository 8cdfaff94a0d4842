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

// Places of one list, as ModuleField::list gives them.
template <typename... T>
bool ModulePlaces(FieldList& list, T&... fields) {
  list.AddAll(fields...);
  return true;
}

// Entry i of a repeated list, made if it is the next one; null when memory is out.
template <typename T>
T* ModuleEntryAt(std::vector<T>& entries, std::size_t i) {
  if (i >= entries.size() && !Grow(entries, i + 1)) return nullptr;
  return &entries[i];
}

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
