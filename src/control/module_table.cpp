#include "control/module_table.h"

#include <algorithm>
#include <iterator>

#include <fmt/format.h>

#include "base/message.h"
#include "control/module_forms.h"
#include "control/options_module.h"

namespace zaview {
namespace {

constexpr std::string_view kIgnored = "WRN??? - Module {} ignored in input file for {}";
constexpr std::string_view kIgnoredOptions = "WRN??? - OPTIONS module inputs specified in ship {}";

constexpr bool kOnce = false;
constexpr bool kRepeats = true;
constexpr bool kOwn = false;  // each ship has its own
constexpr bool kOfRun = true;

// clang-format off
constexpr ModuleRow kModules[] = {
    {kOptionsModule, {}, {}, {}, "Calculation options", kOnce, kOfRun},
    {"2NDSHIP", {}, {}, "2NDSHIP", "2nd ship data", kOnce, kOwn},
    {kAddedGeometryModule, {}, {}, "ADDGEOM", "Additional geometry", kRepeats, kOfRun, &kAddedGeometryForm},
    {"ADDSEA", {}, {}, "ADDSEA", "Additional seaway", kOnce, kOfRun, &kAddedSeawayForm},
    {"ANTIROLLFIN", {}, {}, "ARF", "Anti-roll fin control", kRepeats, kOwn},
    {"ARTANK", {}, {}, "ARTK", "Antiroll tank", kRepeats, kOwn},
    {"CABLE", {}, {}, "CABLE", "Ship-ship cable", kRepeats, kOwn},
    {"COMMANDS", {}, {}, "COMMANDS", "Speed and other commands in time", kOnce, kOwn, &kCommandsForm},
    {"DAMPING", {}, {}, "DAMPING", "Supplemental damping", kOnce, kOwn},
    {"DIFFRACTION", {}, {}, "DIFFRACTION", "Diffraction transfer functions", kOnce, kOwn},
    {"DRAG_ELEMENT", "DRAGELEMENT", "DRAG_ELEM", "DRAGELEM", "Drag and added mass elements", kRepeats, kOwn},
    {"EXTFOR", {}, {}, "EXTFOR", "User specified external force", kRepeats, kOwn, &kExternalForceForm},
    {"FENDER", {}, {}, "FNDR", "Fender", kRepeats, kOwn},
    {"FINLIFT", "FINFLAP", {}, "FINLIFT", "Fin lift calculation", kRepeats, kOwn},
    {"FINOPTS", "FINOPT", {}, "FINOPTS", "Extended fin-like appendage definition", kOnce, kOwn},
    {"FLAPFOIL", {}, {}, "FLAP", "Flap foil", kRepeats, kOwn},
    {"FOILCONTROL", {}, {}, "FCTRL", "Foil controller", kRepeats, kOwn},
    {"FSARF", {}, {}, "FSARF", "Force-specified anti-rolling fin", kOnce, kOwn},
    {"GREENWATER", {}, {}, "GWTR", "Green water on deck", kOnce, kOwn},
    {"GZSTAB", {}, {}, "GZSTAB", "GZ stability calculation", kOnce, kOwn, &kStabilityStepsForm},
    {"HULLSTALLOPT", {}, {}, "HULLSTALLOPT", "Hull lift and drag post-stall model", kOnce, kOwn},
    {"IFSINTERP", {}, {}, "IFSINTERP", "Incident and disturbance wave interpolation points", kOnce, kOfRun,
     &kSurfacePointsForm},
    {"IMC", {}, {}, "IMC", "Vacuum mooring integrated controller", kOnce, kOwn},
    {"INFS", {}, {}, "INFS", "Input free surface", kOnce, kOfRun},
    {"INCPTR", "INTERCEPTOR", {}, "INCPTR", "Interceptor", kRepeats, kOwn},
    {"IWINTERP", {}, {}, "IWINTERP", "Incident wave interpolation", kOnce, kOfRun, &kWaveTableForm},
    {"LBODY_LOADS", {}, {}, "LBODY_LOADS", "Lifting body loads", kRepeats, kOwn},
    {"MANEUVERING", {}, {}, "MMG", "Modular maneuvering calculation", kOnce, kOwn},
    {"MOTSTAB", {}, {}, "MOTSTAB", "Motion stability perturbation", kOnce, kOwn},
    {"MOVEMASS", {}, {}, "MMAS", "Moving mass roll control", kRepeats, kOwn},
    {"NNDATA", {}, {}, "NNDATA", "Data for an external model", kOnce, kOwn},
    {"PMOVEMASS", {}, {}, "PMMAS", "Prescribed moving mass", kRepeats, kOwn},
    {"PROPCONTROL", {}, {}, "PROPCONTROL", "Additional propulsor control", kOnce, kOwn},
    {"PTO", {}, {}, "PTO", "Power take off", kRepeats, kOwn},
    {"RRSTAB", {}, {}, "RRSTAB", "Rudder roll stabilization", kOnce, kOwn, &kRudderRollForm},
    {"TANK", {}, {}, "TANK", "Internal tank", kRepeats, kOwn},
    {"PENDA", {}, {}, "PENDA", "Integrated vortex lattice calculation", kOnce, kOwn, &kVortexLatticeForm},
    {"VSS", {}, {}, "VSS", "Geometry group with its own motion", kRepeats, kOwn},
    {"WETDECK", {}, {}, "WETDECK", "Wet-deck calculation", kOnce, kOwn},
    {"WIND", {}, {}, "WIND", "Wind force calculation", kOnce, kOwn},
    {"YCUTLOADS", {}, {}, "YCUTLOADS", "Load cuts in the y direction", kOnce, kOwn, &kYCutLoadsForm},
};
// clang-format on

void AppendLines(const std::vector<std::string>& lines, std::string& text) {
  for (const std::string& line : lines) fmt::format_to(std::back_inserter(text), "{}\n", line);
}

}  // namespace

std::span<const ModuleRow> ModuleRows() {
  return kModules;
}

const ModuleRow* FindModule(std::string_view name) {
  const auto row = std::find_if(std::begin(kModules), std::end(kModules), [name](const ModuleRow& known) {
    return !name.empty() && (known.name == name || known.also == name || known.also_too == name);
  });
  return row == std::end(kModules) ? nullptr : row;
}

std::string ModuleHeader(const ModuleRow& row) {
  return fmt::format("!{} input module", row.purpose);
}

void WriteModules(const ControlRecords& records, std::string& text) {
  ControlRecords copy = records;  // the field lists give places to write to
  for (const ModuleText& module : copy.modules) {
    const ModuleRow* row = FindModule(module.name);
    if (row == nullptr) {
      fmt::format_to(std::back_inserter(text), "{}\n", module.header);
    } else {
      fmt::format_to(std::back_inserter(text), "{}\n${}:\n", ModuleHeader(*row), row->name);
    }
    if (row == nullptr || module.entry < 0) {
      AppendLines(module.lines, text);
    } else if (row->form == nullptr) {
      WriteOptions(module, text);
    } else {
      ModuleState state{copy, static_cast<std::size_t>(module.entry)};
      WriteModule(*row->form, module, state, text);
    }
  }
}

int CheckModules(const Console& console, const ControlRecords& records) {
  int errors = CheckOptions(console, records);
  for (const ModuleRow& row : kModules) {
    if (row.form != nullptr && row.form->check != nullptr) errors += row.form->check(console, records);
  }
  return errors;
}

void SayIgnoredModules(const Console& console, const ControlRecords& records, int ship) {
  for (const ModuleRow& row : kModules) {
    const bool given = std::any_of(records.modules.begin(), records.modules.end(),
                                   [&row](const ModuleText& module) { return module.name == row.name; });
    if (!given || !row.of_run) continue;
    if (row.name == kOptionsModule) Say(console, kIgnoredOptions, ship);
    else Say(console, kIgnored, row.name, ship);
  }
}

}  // namespace zaview
