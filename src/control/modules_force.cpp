// Modules that act on the ship: commands in time, given forces, rudder roll stabilization.
#include "base/message.h"
#include "control/module_forms.h"

namespace zaview {
namespace {

using Index = std::size_t;
using C = ControlRecords;

constexpr std::string_view kTooManyForces[] = {
    "ERREXTFOR01 - Number of user specified external forces NEFOR= {} is limited",
    "            by dimensioning parameter MXEFOR= {}"};

// clang-format off
constexpr ModuleField kCommands[] = {
    {1, "!COMMANDS01 CMDS_SPD_NTIME - number of speed commands", nullptr,
     [](ModuleState& s, Index, FieldList& f) { return Fields(f, s.count); }},
    {2, "!COMMANDS02 CMDS_SPD_TIME CMDS_SPD - time and speed of each", nullptr,
     [](ModuleState& s, Index i, FieldList& f) {
       SpeedCommandInput* c = EntryAt(s.records.commands[s.entry].speeds, i);
       return c != nullptr && Fields(f, c->CMDS_SPD_TIME, c->CMDS_SPD);
     }, ModuleCount},
};

constexpr ModuleField kExternalForce[] = {
    {1, "!EXTFOR01 EXTFOROPT - system of the external force", nullptr,
     [](ModuleState& s, Index, FieldList& f) {
       return Fields(f, s.records.external_forces[s.entry].EXTFOROPT);
     }},
    {2, "!EXTFOR02 EXTFORVAL(1:6) - force and moment", nullptr,
     [](ModuleState& s, Index, FieldList& f) {
       return Fields(f, s.records.external_forces[s.entry].EXTFORVAL);
     }},
};

constexpr ModuleField kRudderRoll[] = {
    {1, "!RRSTAB01 RRSTABGAIN1 - gain on roll", nullptr,
     [](ModuleState& s, Index, FieldList& f) { return Fields(f, s.records.rudder_roll[s.entry].RRSTABGAIN1); }},
    {2, "!RRSTAB02 RRSTABGAIN2 - gain on roll rate", nullptr,
     [](ModuleState& s, Index, FieldList& f) { return Fields(f, s.records.rudder_roll[s.entry].RRSTABGAIN2); }},
};
// clang-format on

int CheckExternalForces(const Console& console, const ControlRecords& records) {
  const std::size_t count = records.external_forces.size();
  if (count <= MXEFOR) return 0;
  Say(console, kTooManyForces[0], count);
  Say(console, kTooManyForces[1], MXEFOR);
  return 1;
}

}  // namespace

const ModuleForm kCommandsForm = {kCommands, ResizeModule<&C::commands>, ModuleEntries<&C::commands>,
                                  [](const ModuleState& s) { return s.records.commands[s.entry].speeds.size(); }};
const ModuleForm kExternalForceForm = {kExternalForce, ResizeModule<&C::external_forces>,
                                       ModuleEntries<&C::external_forces>, nullptr, CheckExternalForces};
const ModuleForm kRudderRollForm = {kRudderRoll, ResizeModule<&C::rudder_roll>, ModuleEntries<&C::rudder_roll>};

}  // namespace zaview
