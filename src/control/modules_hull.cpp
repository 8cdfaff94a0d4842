// Modules of the hull: more geometry, load cuts, stability steps, the lifting body's group.
#include "base/message.h"
#include "base/text.h"
#include "control/module_forms.h"

namespace zaview {
namespace {

using Index = std::size_t;
using C = ControlRecords;

constexpr std::string_view kNoFileName = "ERRADDGEOM01 - Blank file name not allowed for additional geometry input";

AddedGeometryInput& Added(ModuleState& s) {
  return s.records.added_geometry[s.entry];
}

// clang-format off
constexpr ModuleField kAddedGeometry[] = {
    {1, "!ADDGEOM01 CADDGEOMFILE - Source file for additional geometry",
     [](ModuleState& s) { return &Added(s).CADDGEOMFILE; }},
    {2, "!ADDGEOM02 NADDCMP SYMINP - number of components, =1 for symmetry in input", nullptr,
     [](ModuleState& s, Index, FieldList& f) { return Fields(f, s.count, Added(s).SYMINP); }},
    {3, "!ADDGEOM03 KCTYPE0 NEWWL0 KSPWL0 SPWL0 NEWST0 KSPST0 SPST0,1->NADDCMP", nullptr,
     [](ModuleState& s, Index i, FieldList& f) {
       GeometryComponentInput* c = EntryAt(Added(s).components, i);
       return c != nullptr &&
              Fields(f, c->KCTYPE0, c->NEWWL0, c->KSPWL0, c->SPWL0, c->NEWST0, c->KSPST0, c->SPST0);
     }, ModuleCount},
    {4, "!ADDGEOM04 GSHIFT(3), GORIG(3), GROT(3) - Input geometry transformation", nullptr,
     [](ModuleState& s, Index, FieldList& f) {
       AddedGeometryInput& a = Added(s);
       return Fields(f, a.GSHIFT, a.GORIG, a.GROT);
     }, nullptr, false, 3},
};

constexpr ModuleField kYCutLoads[] = {
    {1, "!YCUTLOADS01 IVMY IHMY ITMY NBCY", nullptr,
     [](ModuleState& s, Index, FieldList& f) {
       YCutLoads& y = s.records.ycut;
       return Fields(f, y.IVMY, y.IHMY, y.ITMY, s.count);
     }},
    {2, "!YCUTLOADS02 XMCY(123,1->NBCY)", nullptr,
     [](ModuleState& s, Index i, FieldList& f) {
       Triple* cut = EntryAt(s.records.ycut.XMCY, i);
       return cut != nullptr && Fields(f, *cut);
     }, ModuleCount},
};

constexpr ModuleField kStabilitySteps[] = {
    {1, "!GZSTAB01 GZSTABSTEPS - first and last step, increment", nullptr,
     [](ModuleState& s, Index, FieldList& f) {
       return Fields(f, s.records.stability_steps[s.entry].GZSTABSTEPS);
     }},
};

constexpr ModuleField kVortexLattice[] = {
    {1, "!PENDA01 PENDA_GROUPNAME - name of the geometry group",
     [](ModuleState& s) { return &s.records.vortex_lattice[s.entry].PENDA_GROUPNAME; }},
};
// clang-format on

int CheckAddedGeometry(const Console& console, const ControlRecords& records) {
  int errors = 0;
  for (const AddedGeometryInput& added : records.added_geometry) {
    if (!IsBlank(added.CADDGEOMFILE)) continue;
    SayLine(console, kNoFileName);
    ++errors;
  }
  return errors;
}

// The cuts are a plain member: there is always one entry.
bool ResizeYCutLoads(ControlRecords& records, std::size_t /*entries*/) {
  records.ycut = {};
  return true;
}

}  // namespace

const ModuleForm kAddedGeometryForm = {
    kAddedGeometry, ResizeModule<&C::added_geometry>, ModuleEntries<&C::added_geometry>,
    [](const ModuleState& s) { return s.records.added_geometry[s.entry].components.size(); }, CheckAddedGeometry};
const ModuleForm kYCutLoadsForm = {kYCutLoads, ResizeYCutLoads, [](const ControlRecords&) -> std::size_t { return 0; },
                                   [](const ModuleState& s) { return s.records.ycut.XMCY.size(); }};
const ModuleForm kStabilityStepsForm = {kStabilitySteps, ResizeModule<&C::stability_steps>,
                                        ModuleEntries<&C::stability_steps>};
const ModuleForm kVortexLatticeForm = {kVortexLattice, ResizeModule<&C::vortex_lattice>,
                                       ModuleEntries<&C::vortex_lattice>};

}  // namespace zaview
