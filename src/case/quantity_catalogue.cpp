#include "case/quantity_catalogue.h"

#include <algorithm>
#include <iterator>
#include <span>

#include <fmt/format.h>

#include "base/number_format.h"

namespace zaview {
namespace {

using enum QuantityNeed;
using S = ScaleKind;

constexpr S pos = S::position, vel = S::velocity, acc = S::acceleration, force = S::force, shear = S::load_force,
            moment = S::load_moment, eta = S::elevation, own = S::maneuver;
constexpr QuantityNeed other = other_force;

// clang-format off
constexpr QuantityRow kCatalogue[] = {
  {1,  "Position of CG",                                 "Position of CG",             6,  pos,      none,      0, "pmgg"},
  {2,  "Velocity of CG",                                 "Velocity of CG",             6,  vel,      none,      0, "vmg"},
  {3,  "Acceleration in ship coordinates",               "Acceleration (ship)",        6,  acc,      none,      0, "acc"},
  {4,  "Unsteady motion in global coordinates",          "Unsteady motion",            6,  pos,      none,      0, "motion"},
  {5,  "Velocity in ship coordinates",                   "Velocity (ship)",            6,  vel,      none,      0, "vmgshp"},
  {6,  "Total force/moment in global coordinates",       "Total force/moment",         6,  force,    none,      0, "Ftotal"},
  {7,  "Hydrodynamic force",                             "Hydrodynamic force",         6,  force,    none,      0, "hdpfor"},
  {8,  "Linear    Hydrodynamic force",                   "Linear Hydro force",         6,  force,    none,      0, "hdpfor"},
  {9,  "Nonlinear Hydrodynamic force",                   "Nonlinear Hydro force",      6,  force,    none,      0, "hdpfor"},
  {10, "HS + FK   Hydrodynamic force",                   "HS+FK force",                6,  force,    none,      0, "hdpfor"},
  {11, "Other (non-hydro) pressure force",               "Non-hydro force",            6,  force,    other,     0, "othfor"},
  {12, "External (non-pressure) force",                  "Non-pressure force",         6,  force,    other,     0, "extfor"},
  {13, "Vertical Shear Force",                           "Vertical Shear Force",       0,  shear,    x_cuts,    1, ""},
  {14, "Vertical Bending Moment",                        "Vertical Bending Moment",    0,  moment,   x_cuts,    1, ""},
  {15, "Horizontal Shear Force",                         "Horizontal Shear Force",     0,  shear,    x_cuts,    2, ""},
  {16, "Horizontal Bending Moment",                      "Horizontal Bending Moment",  0,  moment,   x_cuts,    2, ""},
  {17, "Compression Force",                              "Compression Force",          0,  shear,    x_cuts,    3, ""},
  {18, "Torsional Moment",                               "Torsional Moment",           0,  moment,   x_cuts,    3, ""},
  {19, "Vertical Shear Force (Y cut)",                   "Vertical Shear (Y cut)",     0,  shear,    y_cuts,    4, ""},
  {20, "Vertical Bending Moment (Y cut)",                "Vertical Bending (Y cut)",   0,  moment,   y_cuts,    4, ""},
  {21, "Horizontal Shear Force (Y cut)",                 "Horizontal Shear (Y cut)",   0,  shear,    y_cuts,    5, ""},
  {22, "Horizontal Bending Moment (Y cut)",              "Horizontal Bending (Y cut)", 0,  moment,   y_cuts,    5, ""},
  {23, "Compression Force (Y cut)",                      "Compression (Y cut)",        0,  shear,    y_cuts,    6, ""},
  {24, "Torsional Moment (Y cut)",                       "Torsion (Y cut)",            0,  moment,   y_cuts,    6, ""},
  {25, "Incident Wave Elevation at CG",                  "Incident Wave at CG",        1,  eta,      wave,      0, ""},
  {26, "Incident Wave Elevation at Origin",              "Incident Wave at Origin",    1,  eta,      wave,      0, ""},
  {27, "Motion (position) of a ship-fixed point",        "Point Motion (position)",    3,  S::point, point,     0, ""},
  {28, "Velocity of a ship-fixed point",                 "Point Velocity",             4,  S::point, point,     0, ""},
  {29, "Acceleration of a ship-fixed point",             "Point Acceleration",         4,  S::point, point,     0, ""},
  {30, "Relative motion of a ship-fixed point",          "Point Relative motion",      4,  S::point, wave,      0, ""},
  {31, "Velocity/accel of a point (input coords)",       "Point Velocity/accel",       9,  S::point, point,     0, ""},
  {32, "Velocity/accel+grav of a point (input coords)",  "Point Velocity/accel+grav",  9,  S::point, point,     0, ""},
  {33, "Maneuvering (speed, rudder, etc.)",              "Maneuvering (speed, etc.)",  6,  own,      none,      0, ""},
  {34, "KINO motions file",                              "KINO motions file",          0,  S::none,  file_only, 0, ""},
  {35, "KINO seaway file",                               "KINO seaway file",           0,  S::none,  file_only, 0, ""},
  {36, "Mot/Vel/Acc     of a ship-fixed point",          "Point Mot/Vel/Acc",          18, S::point, file_only, 0, ""},
  {37, "Mot/Vel/Acc/Etc of a ship-fixed point",          "Point Mot/Vel/Acc/Etc",      21, S::point, file_only, 0, ""},
  {38, "Mot/Vel/Acc     of a point (input coords)",      "Point Motion (input)",       18, S::point, file_only, 0, ""},
  {39, "Velocity in global coordinates",                 "Velocity (global)",          6,  vel,      none,      0, "vmgg"},
  {40, "Acceleration in global coordinates",             "Acceleration (global)",      6,  acc,      none,      0, "accg"},
  {41, "Total force/moment in ship-fixed coords",        "Total force/moment (ship)",  6,  force,    none,      0, "Ftotals"},
  {42, "Hydrodynamic force (ship coords)",               "Hydrodynamic force (ship)",  6,  force,    none,      0, "hdpfors"},
  {43, "Linear    Hydrodynamic force (ship coords)",     "Linear Hydro force (ship)",  6,  force,    none,      0, "hdpfors"},
  {44, "Nonlinear Hydrodynamic force (ship coords)",     "Nonlin Hydro force (ship)",  6,  force,    none,      0, "hdpfors"},
  {45, "HS + FK   Hydrodynamic force (ship coords)",     "HS+FK force (ship)",         6,  force,    none,      0, "hdpfors"},
  {46, "Other (non-hydro) pressure force (ship coords)", "Non-hydro force (ship)",     6,  force,    other,     0, "othfors"},
  {47, "External (non-pressure) force (ship coords)",    "Non-pressure force (ship)",  6,  force,    other,     0, "extfors"},
  {48, "Missile Motion/Load",                            "Missile Motion/Load",        1,  S::point, missile,   0, ""},
};
// clang-format on

constexpr bool RowsStandAtTheirNumbers() {
  for (std::size_t i = 0; i < std::size(kCatalogue); ++i)
    if (kCatalogue[i].iqnt != static_cast<int>(i) + 1) return false;
  return std::size(kCatalogue) == kQuantities;
}
static_assert(RowsStandAtTheirNumbers());

// Curve names of the quantities without a stem.
constexpr std::string_view kWaveCg[] = {"Eta"};
constexpr std::string_view kWaveOrigin[] = {"Eta0"};
constexpr std::string_view kPosition[] = {"X", "Y", "Z"};
constexpr std::string_view kVelocity[] = {"Vx", "Vy", "Vz", "Vmag"};
constexpr std::string_view kAcceleration[] = {"dVx/dt", "dVy/dt", "dVz/dt", "dVmag/dt"};
constexpr std::string_view kRelative[] = {"Xrel", "Yrel", "Zrel", "deltaZ"};
constexpr std::string_view kNine[] = {"X", "Y", "Z", "Vx", "Vy", "Vz", "dVx/dt", "dVy/dt", "dVz/dt"};
constexpr std::string_view kManeuver[] = {"Speed", "Slip Angle", "Heading", "Rudder Cmd", "Rudder Ang", "Prop RPS"};
constexpr std::string_view kPointList[] = {  // 36 and 38 stop ahead of the last three
    "X",      "Y",          "Z",           "Rot_X",     "Rot_Y",   "Rot_Z",       "Vx",
    "Vy",     "Vz",         "V_roll",      "V_pitch",   "V_yaw",   "dVx/dt",      "dVy/dt",
    "dVz/dt", "dV_roll/dt", "dV_pitch/dt", "dV_yaw/dt", "Wave@CG", "Rudder_Defl", "Prop RPS"};
constexpr std::string_view kMissile[] = {"Load"};

std::span<const std::string_view> CurveNames(int iqnt) {
  switch (iqnt) {
    case 25:
      return kWaveCg;
    case 26:
      return kWaveOrigin;
    case 27:
      return kPosition;
    case 28:
      return kVelocity;
    case 29:
      return kAcceleration;
    case 30:
      return kRelative;
    case 31:
    case 32:
      return kNine;
    case 33:
      return kManeuver;
    case 36:
    case 37:
    case 38:
      return kPointList;
    case 48:
      return kMissile;
    default:
      return {};
  }
}

inline constexpr std::string_view kTransientLabel = "Transient Added Mass";
inline constexpr std::string_view kResponseLabel = "Impulse Response Function";

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
bool FollowsFromPositions(int iqnt) {
  constexpr int kThese[] = {1, 4, 25, 26, 27, 30};
  return std::find(std::begin(kThese), std::end(kThese), iqnt) != std::end(kThese);
}

bool KindActive(const std::vector<int>& kinds, int kind) {
  return std::find(kinds.begin(), kinds.end(), kind) != kinds.end();
}

}  // namespace

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
  if (row->need == y_cuts) return KindActive(loads.y_kinds, row->load_kind) ? loads.nycut : 0;
  return row->curves;
}

bool QuantityValid(const CaseStore& case_store, int iqnt) {
  if (!case_store.time_history()) return case_store.has_data() && CurveCount(case_store, iqnt) > 0;
  const QuantityRow* row = FindQuantity(iqnt);
  if (row == nullptr || !case_store.has_steps()) return false;
  if (IsKinoFile(iqnt)) return true;
  if (case_store.kino_input && !FollowsFromPositions(iqnt)) return false;
  const bool forces = row->scale == S::force;
  if (forces && case_store.force.component.empty()) return false;
  if (row->need == other_force && !case_store.has_other_force) return false;
  return CurveCount(case_store, iqnt) > 0;
}

float CutCoordinate(const CaseStore& case_store, const OutputSettings& settings, int iqnt, int cut) {
  const ControlRecords& control = case_store.control;
  const bool y = iqnt >= 19;
  const std::vector<Triple>& cuts = y ? control.ycut.XMCY : control.XMC;
  const auto index = static_cast<std::size_t>(cut - 1);
  if (cut < 1 || index >= cuts.size()) return 0.0F;
  return static_cast<float>(cuts[index][y ? 1 : 0] * settings.units.LENOUT / control.LENIN);
}

std::string CurveLabel(const CaseStore& case_store, const OutputSettings& settings, int iqnt, int curve) {
  if (!case_store.time_history()) return ImpulsiveCurveLabel(case_store, iqnt, curve);
  const QuantityRow* row = FindQuantity(iqnt);
  if (row == nullptr || curve < 1) return {};
  if (row->load_kind != 0)
    return fmt::format("{}, {}={}", row->scale == S::load_force ? "Force" : "Moment", row->need == x_cuts ? 'X' : 'Y',
                       Shown{CutCoordinate(case_store, settings, iqnt, curve)});
  if (!row->curve.empty()) return fmt::format("{}({})", row->curve, curve);
  const std::span<const std::string_view> names = CurveNames(iqnt);
  return static_cast<std::size_t>(curve) > names.size() ? std::string{}
                                                        : std::string(names[static_cast<std::size_t>(curve - 1)]);
}

bool IsKinoFile(int iqnt) {
  return iqnt == kKinoMotions || iqnt == kKinoSeaway;
}

bool IsPointQuantity(int iqnt) {
  return (iqnt >= 27 && iqnt <= 32) || (iqnt >= 36 && iqnt <= 38) || iqnt == 48;
}

}  // namespace zaview
