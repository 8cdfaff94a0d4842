#include "case/quantity_catalogue.h"

#include <algorithm>
#include <iterator>

#include <fmt/format.h>

#include "base/number_format.h"

namespace zaview {
namespace {

using enum QuantityNeed;
using enum CurveForm;
using S = ScaleKind;
using C = CaseStore;
using Groups = CurveGroup[];

// ---- Names of curves without a stem

constexpr std::string_view kEta[] = {"Eta"}, kEta0[] = {"Eta0"}, kLoad[] = {"Load"}, kDeltaZ[] = {"deltaZ"};
constexpr std::string_view kVmag[] = {"Vmag"}, kAmag[] = {"dVmag/dt"};
constexpr std::string_view kXyz[] = {"X", "Y", "Z"}, kRelative[] = {"Xrel", "Yrel", "Zrel"};
constexpr std::string_view kV[] = {"Vx", "Vy", "Vz"}, kA[] = {"dVx/dt", "dVy/dt", "dVz/dt"};
constexpr std::string_view kTurns[] = {"Rot_X", "Rot_Y", "Rot_Z"}, kRates[] = {"V_roll", "V_pitch", "V_yaw"};
constexpr std::string_view kRateChanges[] = {"dV_roll/dt", "dV_pitch/dt", "dV_yaw/dt"};
constexpr std::string_view kSpeed[] = {"Speed"}, kRps[] = {"Prop RPS"}, kWave[] = {"Wave@CG"},
                           kDefl[] = {"Rudder_Defl"};
constexpr std::string_view kAngles[] = {"Slip Angle", "Heading", "Rudder Cmd", "Rudder Ang"};

// ---- Where curves come from: form, history, first component, curves, scale, slot, names

constexpr CurveGroup Six(StepHistory C::*history, S scale, std::string_view stem) {
  return {column, history, 1, 6, scale, 0, stem, {}};
}
constexpr CurveGroup Force(StepHistory C::*history, int first_slot, int n, std::string_view stem) {
  return {slots, history, 6 * (first_slot - 1) + 1, 6, S::force, 0, stem, {}, n};
}

constexpr Groups kPmgg = {Six(&C::pmgg, S::position, "pmgg")}, kVmg = {Six(&C::vmg, S::velocity, "vmg")};
constexpr Groups kAcc = {Six(&C::acc, S::acceleration, "acc")}, kMotion = {Six(&C::motion, S::position, "motion")};
constexpr Groups kVship = {Six(&C::vmgshp, S::velocity, "vmgshp")}, kVmgg = {Six(&C::vmgg, S::velocity, "vmgg")};
constexpr Groups kAccg = {Six(&C::accg, S::acceleration, "accg")};
constexpr Groups kTotal = {Force(&C::force, 1, 5, "Ftotal")}, kHydro = {Force(&C::force, 1, 2, "hdpfor")};
constexpr Groups kLinear = {Force(&C::force, 1, 1, "hdpfor")}, kNonlinear = {Force(&C::force, 2, 1, "hdpfor")};
constexpr Groups kHsFk = {Force(&C::force, 3, 1, "hdpfor")}, kOther = {Force(&C::force, 4, 1, "othfor")};
constexpr Groups kExternal = {Force(&C::force, 5, 1, "extfor")};
constexpr Groups kTotals = {Force(&C::force_ship, 1, 5, "Ftotals")}, kHydros = {Force(&C::force_ship, 1, 2, "hdpfors")};
constexpr Groups kLinears = {Force(&C::force_ship, 1, 1, "hdpfors")};
constexpr Groups kNonlinears = {Force(&C::force_ship, 2, 1, "hdpfors")};
constexpr Groups kHsFks = {Force(&C::force_ship, 3, 1, "hdpfors")}, kOthers = {Force(&C::force_ship, 4, 1, "othfors")};
constexpr Groups kExternals = {Force(&C::force_ship, 5, 1, "extfors")};
constexpr Groups kShear = {{cuts, nullptr, 1, 0, S::load_force, 0, "", {}}};
constexpr Groups kMoment = {{cuts, nullptr, 1, 0, S::load_moment, 0, "", {}}};
constexpr Groups kEtaCg = {{column, &C::eta_cg, 1, 1, S::length, 0, "", kEta}};
constexpr Groups kEtaOrigin = {{column, &C::eta_origin, 1, 1, S::length, 0, "", kEta0}};
constexpr Groups kMissile = {{missile_load, &C::point_motion, 7, 1, S::none, 0, "", kLoad}};

constexpr Groups kColumns = {{CurveForm::measured, &C::measured, 1, 0, S::none, 0, "", {}}};

constexpr CurveGroup kPointX = {column, &C::point_motion, 1, 3, S::position, 0, "", kXyz};
constexpr CurveGroup kPointV = {column, &C::point_motion, 4, 3, S::velocity, 0, "", kV};
constexpr CurveGroup kPointA = {column, &C::point_motion, 7, 3, S::acceleration, 0, "", kA};
constexpr CurveGroup kPointAg = {with_gravity, &C::point_motion, 7, 3, S::acceleration, 0, "", kA};
constexpr CurveGroup kEuler = {column, &C::pmgg, 4, 3, S::position, 3, "", kTurns};
constexpr CurveGroup kRate = {column, &C::vmg, 4, 3, S::velocity, 3, "", kRates};
constexpr CurveGroup kRateChange = {column, &C::acc, 4, 3, S::acceleration, 3, "", kRateChanges};

constexpr Groups kPointMot = {kPointX};
constexpr Groups kPointVel = {kPointV, {magnitude, &C::point_motion, 4, 1, S::speed, 0, "", kVmag}};
constexpr Groups kPointAcc = {kPointA, {magnitude, &C::point_motion, 7, 1, S::acceleration_length, 0, "", kAmag}};
constexpr Groups kPointRel = {{column, &C::point_motion, 10, 3, S::position, 0, "", kRelative},
                              {column, &C::point_motion, 13, 1, S::length, 0, "", kDeltaZ}};
constexpr Groups kPointIn = {kPointX, kPointV, kPointA}, kPointInG = {kPointX, kPointV, kPointAg};
constexpr Groups kPointAll = {kPointX, kEuler, kPointV, kRate, kPointA, kRateChange};
constexpr Groups kPointAll1 = {kPointX,
                               kEuler,
                               kPointV,
                               kRate,
                               kPointA,
                               kRateChange,
                               {column, &C::eta_cg, 1, 1, S::length, 0, "", kWave},
                               {column, &C::rudder_ang, 1, 1, S::angle, 0, "", kDefl},
                               {column, &C::prop_rps, 1, 1, S::rps, 0, "", kRps}};
constexpr Groups kManeuver = {{column, &C::maneuver, 1, 1, S::speed, 0, "", kSpeed},
                              {column, &C::maneuver, 2, 4, S::angle, 0, "", kAngles},
                              {column, &C::maneuver, 6, 1, S::rps, 0, "", kRps}};

// ---- The quantities: number, long and medium label, title, words, curves, need, kind of load

// clang-format off
constexpr QuantityRow kCatalogue[] = {
  {1,  "Position of CG",                                 "Position of CG",
       "", {"MOT", "PMG"}, kPmgg, none, 0},
  {2,  "Velocity of CG",                                 "Velocity of CG",
       "", {"VEL", "VMG"}, kVmg, none, 0},
  {3,  "Acceleration in ship coordinates",               "Acceleration (ship)",
       "", {"ACC"}, kAcc, none, 0},
  {4,  "Unsteady motion in global coordinates",          "Unsteady motion",
       "", {"UMOT"}, kMotion, none, 0},
  {5,  "Velocity in ship coordinates",                   "Velocity (ship)",
       "", {"VSHIP", "VELS"}, kVship, none, 0},
  {6,  "Total force/moment in global coordinates",       "Total force/moment",
       "", {"FTOT"}, kTotal, none, 0},
  {7,  "Hydrodynamic force",                             "Hydrodynamic force",
       "Hydrodynamic force in global coordinates", {"FHYD"}, kHydro, none, 0},
  {8,  "Linear    Hydrodynamic force",                   "Linear Hydro force",
       "Linear Hydrodynamic force in global coordinates", {"FLIN"}, kLinear, none, 0},
  {9,  "Nonlinear Hydrodynamic force",                   "Nonlinear Hydro force",
       "Nonlinear Hydrodynamic force in global coordinates", {"FNONLIN"}, kNonlinear, none, 0},
  {10, "HS + FK   Hydrodynamic force",                   "HS+FK force",
       "HS+FK Hydrodynamic force in global coordinates", {"FHSFK"}, kHsFk, none, 0},
  {11, "Other (non-hydro) pressure force",               "Non-hydro force",
       "Other pressure force in global coordinates", {"FOTH"}, kOther, other_force, 0},
  {12, "External (non-pressure) force",                  "Non-pressure force",
       "External (non-press) force in global coordinates", {"FEXT"}, kExternal, other_force, 0},
  {13, "Vertical Shear Force",                           "Vertical Shear Force",
       "", {"VSF"}, kShear, x_cuts, 1},
  {14, "Vertical Bending Moment",                        "Vertical Bending Moment",
       "", {"VBM"}, kMoment, x_cuts, 1},
  {15, "Horizontal Shear Force",                         "Horizontal Shear Force",
       "", {"HSF"}, kShear, x_cuts, 2},
  {16, "Horizontal Bending Moment",                      "Horizontal Bending Moment",
       "", {"HBM"}, kMoment, x_cuts, 2},
  {17, "Compression Force",                              "Compression Force",
       "", {"AXF"}, kShear, x_cuts, 3},
  {18, "Torsional Moment",                               "Torsional Moment",
       "", {"TRM"}, kMoment, x_cuts, 3},
  {19, "Vertical Shear Force (Y cut)",                   "Vertical Shear (Y cut)",
       "", {"VSFY"}, kShear, y_cuts, 4},
  {20, "Vertical Bending Moment (Y cut)",                "Vertical Bending (Y cut)",
       "", {"VBMY"}, kMoment, y_cuts, 4},
  {21, "Horizontal Shear Force (Y cut)",                 "Horizontal Shear (Y cut)",
       "", {"HSFY"}, kShear, y_cuts, 5},
  {22, "Horizontal Bending Moment (Y cut)",              "Horizontal Bending (Y cut)",
       "", {"HBMY"}, kMoment, y_cuts, 5},
  {23, "Compression Force (Y cut)",                      "Compression (Y cut)",
       "", {"AXFY"}, kShear, y_cuts, 6},
  {24, "Torsional Moment (Y cut)",                       "Torsion (Y cut)",
       "", {"TRMY"}, kMoment, y_cuts, 6},
  {25, "Incident Wave Elevation at CG",                  "Incident Wave at CG",
       "", {"WAV"}, kEtaCg, wave, 0},
  {26, "Incident Wave Elevation at Origin",              "Incident Wave at Origin",
       "", {"WAV0"}, kEtaOrigin, wave, 0},
  {27, "Motion (position) of a ship-fixed point",        "Point Motion (position)",
       "Motion of point ", {"POINT_MOT"}, kPointMot, point, 0},
  {28, "Velocity of a ship-fixed point",                 "Point Velocity",
       "Velocity of point ", {"POINT_VEL"}, kPointVel, point, 0},
  {29, "Acceleration of a ship-fixed point",             "Point Acceleration",
       "Acceleration of point ", {"POINT_ACC"}, kPointAcc, point, 0},
  {30, "Relative motion of a ship-fixed point",          "Point Relative motion",
       "Relative motion of point ", {"POINT_REL"}, kPointRel, wave, 0},
  {31, "Velocity/accel of a point (input coords)",       "Point Velocity/accel",
       "Combined motion of point ", {"POINT_VIN"}, kPointIn, point, 0},
  {32, "Velocity/accel+grav of a point (input coords)",  "Point Velocity/accel+grav",
       "Combined motion+gravity of point ", {"POINT_VING"}, kPointInG, point, 0},
  {33, "Maneuvering (speed, rudder, etc.)",              "Maneuvering (speed, etc.)",
       "", {"VMNVR"}, kManeuver, rudder, 0},
  {34, "KINO motions file",                              "KINO motions file",
       "", {"KINO_MOT"}, {}, file_only, 0},
  {35, "KINO seaway file",                               "KINO seaway file",
       "", {"KINO_SEA", "SEA"}, {}, file_only, 0},
  {36, "Mot/Vel/Acc     of a ship-fixed point",          "Point Mot/Vel/Acc",
       "", {"POINT_ALL"}, kPointAll, file_only, 0},
  {37, "Mot/Vel/Acc/Etc of a ship-fixed point",          "Point Mot/Vel/Acc/Etc",
       "", {"POINT_ALL1"}, kPointAll1, file_only, 0},
  {38, "Mot/Vel/Acc     of a point (input coords)",      "Point Motion (input)",
       "", {"POINT_ALLI"}, kPointAll, file_only, 0},
  {39, "Velocity in global coordinates",                 "Velocity (global)",
       "", {"VELG", "VMGG"}, kVmgg, none, 0},
  {40, "Acceleration in global coordinates",             "Acceleration (global)",
       "", {"ACCG"}, kAccg, none, 0},
  {41, "Total force/moment in ship-fixed coords",        "Total force/moment (ship)",
       "", {"FTOTS"}, kTotals, none, 0},
  {42, "Hydrodynamic force (ship coords)",               "Hydrodynamic force (ship)",
       "Hydrodynamic force in ship-fixed coords", {"FHYDS"}, kHydros, none, 0},
  {43, "Linear    Hydrodynamic force (ship coords)",     "Linear Hydro force (ship)",
       "Linear Hydrodynamic force in ship-fixed coords", {"FLINS"}, kLinears, none, 0},
  {44, "Nonlinear Hydrodynamic force (ship coords)",     "Nonlin Hydro force (ship)",
       "Nonlinear Hydrodynamic force in ship-fixed coords", {"FNONLINS"}, kNonlinears, none, 0},
  {45, "HS + FK   Hydrodynamic force (ship coords)",     "HS+FK force (ship)",
       "HS+FK Hydrodynamic force in ship-fixed coords", {"FHSFKS"}, kHsFks, none, 0},
  {46, "Other (non-hydro) pressure force (ship coords)", "Non-hydro force (ship)",
       "Other pressure force in ship-fixed coords", {"FOTHS"}, kOthers, other_force, 0},
  {47, "External (non-pressure) force (ship coords)",    "Non-pressure force (ship)",
       "External (non-press) force in ship-fixed coords", {"FEXTS"}, kExternals, other_force, 0},
  {48, "Missile Motion/Load",                            "Missile Motion/Load",
       "Missile Motion/Load of point ", {"POINT_MISS"}, kMissile, missile, 0},
  {49, "Measured columns of a table",                    "Measured columns",
       "", {"MEASURED"}, kColumns, table, 0},
};
// clang-format on

constexpr bool RowsStandAtTheirNumbers() {
  for (std::size_t i = 0; i < std::size(kCatalogue); ++i)
    if (kCatalogue[i].iqnt != static_cast<int>(i) + 1) return false;
  return std::size(kCatalogue) == kQuantities;
}
static_assert(RowsStandAtTheirNumbers());

constexpr std::string_view kTransientLabel = "Transient Added Mass";
constexpr std::string_view kResponseLabel = "Impulse Response Function";

bool IsTransient(int iqnt) {
  return iqnt == kTransientAddedMass || iqnt == kImpulse;
}

int ImpulsiveCurves(const CaseStore& case_store, int iqnt) {
  if (case_store.tadm_case)
    return IsTransient(iqnt) ? (iqnt == kImpulse ? case_store.fimp : case_store.tadm).components() : 0;
  if (iqnt < 1 || static_cast<std::size_t>(iqnt) > case_store.irfs.size()) return 0;
  const IrfBlock& irf = case_store.irfs[static_cast<std::size_t>(iqnt - 1)];
  return irf.force.components() + irf.froude_krylov.components();
}

std::string ImpulsiveCurveLabel(const CaseStore& case_store, int iqnt, int curve) {
  if (curve < 1 || curve > ImpulsiveCurves(case_store, iqnt)) return {};
  const std::string_view stem = case_store.irf_case ? "firf" : iqnt == kImpulse ? "fimp" : "tadm";
  return fmt::format("{}({})", stem, curve);
}

// Of a case from separate files nothing else is known.
bool FollowsFromPositions(const QuantityRow& row) {
  return !row.groups.empty() && std::all_of(row.groups.begin(), row.groups.end(), [](const CurveGroup& group) {
    return group.scale == S::position || group.scale == S::length;
  });
}

// Of waves a table tells what it measured, not what they are elsewhere.
bool FollowsFromTable(const CaseStore& c, const QuantityRow& row) {
  if (row.need == table) return true;
  return c.motions_known && row.need != wave && (row.iqnt == kKinoMotions || FollowsFromPositions(row));
}

bool KindActive(const std::vector<int>& kinds, int kind) {
  return std::find(kinds.begin(), kinds.end(), kind) != kinds.end();
}

bool StepsHold(const StepContents& holds, const QuantityRow& row) {
  const ScaleKind scale = ScaleOf(row);
  if (scale == S::force && !holds.force) return false;
  if (scale == S::load_moment && !holds.load_moment) return false;
  if (row.need == other_force) return holds.other_force;
  return row.need != rudder || holds.rudder;
}

}  // namespace

std::span<const QuantityRow> AllQuantities() {
  return kCatalogue;
}

const QuantityRow* FindQuantity(int iqnt) {
  return iqnt < 1 || iqnt > kQuantities ? nullptr : &kCatalogue[static_cast<std::size_t>(iqnt - 1)];
}

std::string_view cQntLong(int iqnt) {
  const QuantityRow* row = FindQuantity(iqnt);
  return row == nullptr ? std::string_view{} : row->long_label;
}

std::string_view cQntMed(int iqnt) {
  const QuantityRow* row = FindQuantity(iqnt);
  return row == nullptr ? std::string_view{} : row->medium_label;
}

CurvePlace FindCurve(const QuantityRow& row, int curve) {
  int place = curve - 1;
  if (place < 0) return {};
  for (const CurveGroup& group : row.groups) {
    if (group.curves == 0 || place < group.curves) return {&group, place};
    place -= group.curves;
  }
  return {};
}

ScaleKind ScaleOf(const QuantityRow& row) {
  return row.groups.empty() ? ScaleKind::none : row.groups.front().scale;
}

std::string_view QuantityLabel(const CaseStore& case_store, int iqnt) {
  if (case_store.time_history()) return cQntLong(iqnt);
  return case_store.tadm_case && iqnt == kTransientAddedMass ? kTransientLabel : kResponseLabel;
}

int CurveCount(const CaseStore& case_store, int iqnt) {
  if (!case_store.time_history()) return ImpulsiveCurves(case_store, iqnt);
  const QuantityRow* row = FindQuantity(iqnt);
  if (row == nullptr) return 0;
  const SectionLoads& loads = case_store.loads;
  if (row->need == x_cuts) return KindActive(loads.x_kinds, row->load_kind) ? loads.NBCA : 0;
  if (row->need == table) return case_store.measured.components();
  if (row->need == y_cuts) return KindActive(loads.y_kinds, row->load_kind) ? loads.nycut : 0;
  int curves = 0;
  for (const CurveGroup& group : row->groups) curves += group.curves;
  return row->need == rudder && !case_store.holds.prop_rps ? curves - 1 : curves;
}

bool QuantityValid(const CaseStore& case_store, int iqnt) {
  if (!case_store.time_history()) return case_store.has_data() && CurveCount(case_store, iqnt) > 0;
  const QuantityRow* row = FindQuantity(iqnt);
  if (row == nullptr || !case_store.has_steps()) return false;
  if (case_store.from_table() && !FollowsFromTable(case_store, *row)) return false;
  if (IsKinoFile(iqnt)) return true;
  if (case_store.kino_input && row->need != table && !FollowsFromPositions(*row)) return false;
  return StepsHold(case_store.holds, *row) && CurveCount(case_store, iqnt) > 0;
}

float CutCoordinate(const CaseStore& case_store, const OutputSettings& settings, int iqnt, int cut) {
  const ControlRecords& control = case_store.control;
  const QuantityRow* row = FindQuantity(iqnt);
  const bool y = row != nullptr && row->need == y_cuts;
  const std::vector<Triple>& at = y ? control.ycut.XMCY : control.XMC;
  const auto index = static_cast<std::size_t>(cut - 1);
  if (cut < 1 || index >= at.size()) return 0.0F;
  return static_cast<float>(at[index][y ? 1 : 0] * settings.units.LENOUT / control.LENIN);
}

std::string CurveLabel(const CaseStore& case_store, const OutputSettings& settings, int iqnt, int curve) {
  if (!case_store.time_history()) return ImpulsiveCurveLabel(case_store, iqnt, curve);
  const QuantityRow* row = FindQuantity(iqnt);
  if (row == nullptr) return {};
  const auto [group, place] = FindCurve(*row, curve);
  if (group == nullptr) return {};
  if (group->form == cuts)
    return fmt::format("{}, {}={}", group->scale == S::load_force ? "Force" : "Moment", row->need == x_cuts ? 'X' : 'Y',
                       Shown{CutCoordinate(case_store, settings, iqnt, curve)});
  if (group->form == CurveForm::measured) {
    const auto column = static_cast<std::size_t>(place);
    return column < case_store.measured_columns.size() ? case_store.measured_columns[column].name : std::string{};
  }
  if (!group->stem.empty()) return fmt::format("{}({})", group->stem, curve);
  return std::string(group->names[static_cast<std::size_t>(place)]);
}

bool IsKinoFile(int iqnt) {
  return iqnt == kKinoMotions || iqnt == kKinoSeaway;
}

bool IsPointQuantity(int iqnt) {
  const QuantityRow* row = FindQuantity(iqnt);
  return row != nullptr && !row->groups.empty() && row->groups.front().history == &CaseStore::point_motion;
}

bool PointGiven(const PointSettings& point, int iqnt) {
  const QuantityRow* row = FindQuantity(iqnt);
  if (row == nullptr || !IsPointQuantity(iqnt)) return true;
  return point.given && (row->need != QuantityNeed::missile || point.missile_given);
}

}  // namespace zaview
