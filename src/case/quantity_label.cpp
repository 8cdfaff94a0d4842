#include "case/quantity_label.h"

#include <cmath>

#include <fmt/format.h>

#include "base/number_format.h"
#include "case/quantity_catalogue.h"

namespace zaview {
namespace {

constexpr std::string_view kLogic = "LOGIC ERROR in setqntlabel";

std::string Coordinates(const QuantityRequest& request) {
  std::string text;
  for (const double coordinate : request.point) {
    if (!text.empty()) text += ' ';
    text += SentenceNumber(static_cast<float>(coordinate));
  }
  return text;
}

bool Near(double value, double low, double high) {
  return value >= low && value <= high;
}

struct UnitSystem {
  double g_low, g_high, rho_low, rho_high;
  std::string_view length, force, moment;
};
// The first row that fits. Density 0 to infinity: the unit of mass isn't known, so neither is that of force.
constexpr double kAny = 1.0e30;
constexpr UnitSystem kSystems[] = {
    {9.7, 9.9, 990, 1040, "m", "N", "N-m"},         // kg/m^3
    {9.7, 9.9, 0.99, 1.04, "m", "kN", "kN-m"},      // t/m^3
    {32.0, 32.4, 1.92, 2.02, "ft", "lb", "ft-lb"},  // slug/ft^3
    {9.7, 9.9, 0, kAny, "m", "", ""},               //
    {32.0, 32.4, 0, kAny, "ft", "", ""},            //
};

// Null: not known. One factor from input to output in gravity and length, so that lengths are in the unit of gravity.
const UnitSystem* SystemOf(const CaseStore& c, const OutputUnits& units) {
  constexpr double kSame = 0.02;
  const ControlRecords& r = c.control;
  if (!(r.GRAVIN > 0 && r.LENIN > 0)) return nullptr;
  const double factor = (units.LENOUT / r.LENIN) / (units.GRAVOUT / r.GRAVIN);
  if (!(std::fabs(factor - 1) < kSame)) return nullptr;
  for (const UnitSystem& system : kSystems)
    if (Near(units.GRAVOUT, system.g_low, system.g_high) && Near(units.RHOOUT, system.rho_low, system.rho_high))
      return &system;
  return nullptr;
}

std::string_view AngleUnit(const OutputUnits& units) {
  if (std::fabs(units.ANGOUT - 57.29578F) < 0.001F) return "deg";
  return std::fabs(units.ANGOUT - 1.0F) < 1.0e-5F ? "rad" : "";
}

// Of a translation or a rotation, per second so many times.
std::string Kinematic(const UnitSystem* system, const OutputUnits& units, bool rotation, int rate) {
  constexpr std::string_view kPer[] = {"", "/s", "/s^2"};
  const std::string_view base = rotation ? AngleUnit(units) : system == nullptr ? "" : system->length;
  if (base.empty() || (rate > 0 && system == nullptr)) return {};
  return fmt::format("{}{}", base, kPer[rate]);
}

std::string UnitOf(const CaseStore& c, const OutputUnits& units, const CurvePlace& curve) {
  if (curve.group->form == CurveForm::measured) {
    const auto column = static_cast<std::size_t>(curve.place);
    return column < c.measured_columns.size() ? c.measured_columns[column].unit : std::string{};
  }
  const UnitSystem* system = SystemOf(c, units);
  const bool rotation = curve.group->slot + static_cast<std::size_t>(curve.place) >= 3;
  switch (curve.group->scale) {
    case ScaleKind::position:
      return Kinematic(system, units, rotation, 0);
    case ScaleKind::velocity:
      return Kinematic(system, units, rotation, 1);
    case ScaleKind::acceleration:
      return Kinematic(system, units, rotation, 2);
    case ScaleKind::length:
      return Kinematic(system, units, false, 0);
    case ScaleKind::speed:
      return Kinematic(system, units, false, 1);
    case ScaleKind::acceleration_length:
      return Kinematic(system, units, false, 2);
    case ScaleKind::angle:
      return Kinematic(system, units, true, 0);
    case ScaleKind::rps:
      return system == nullptr ? "" : "1/s";
    case ScaleKind::force:
      return std::string(system == nullptr ? "" : rotation ? system->moment : system->force);
    case ScaleKind::load_force:
      return std::string(system == nullptr ? "" : system->force);
    case ScaleKind::load_moment:
      return std::string(system == nullptr ? "" : system->moment);
    case ScaleKind::none:
      break;
  }
  return {};
}

}  // namespace

std::string setqntlabel(const CaseStore& case_store, const QuantityRequest& request) {
  if (!case_store.time_history()) return std::string(QuantityLabel(case_store, request.iqnt));
  const QuantityRow* row = FindQuantity(request.iqnt);
  if (row == nullptr) return std::string(kLogic);
  if (!IsPointQuantity(request.iqnt) || row->title.empty())
    return std::string(row->title.empty() ? row->long_label : row->title);
  std::string text = fmt::format("{}{}", row->title, Coordinates(request));
  if (row->need != QuantityNeed::missile) return text;
  text += ", C=";
  for (const float coefficient : request.missile) text += ' ' + SentenceNumber(coefficient);
  return text;
}

std::string PointNote(const CaseStore& case_store, const QuantityRequest& request) {
  if (!case_store.time_history() || !IsPointQuantity(request.iqnt)) return {};
  return " point= " + Coordinates(request);
}

std::string CurveUnit(const CaseStore& case_store, const OutputSettings& settings, int iqnt, int curve) {
  const QuantityRow* row = case_store.time_history() ? FindQuantity(iqnt) : nullptr;
  if (row == nullptr) return {};
  const int first = curve == 0 ? 1 : curve;
  const int last = curve == 0 ? CurveCount(case_store, iqnt) : curve;
  std::string unit;
  for (int i = first; i <= last; ++i) {
    const CurvePlace place = FindCurve(*row, i);
    std::string of_this = place.group == nullptr ? "" : UnitOf(case_store, settings.units, place);
    if (i > first && of_this != unit) return {};
    unit = std::move(of_this);
  }
  return unit;
}

std::string_view LengthUnit(const CaseStore& case_store, const OutputSettings& settings) {
  const UnitSystem* system = SystemOf(case_store, settings.units);
  return system == nullptr ? std::string_view{} : system->length;
}

std::string_view TimeUnit(const CaseStore& case_store, const OutputSettings& settings) {
  return LengthUnit(case_store, settings).empty() ? "" : "s";
}

std::string WithUnit(std::string_view text, std::string_view unit) {
  return unit.empty() ? std::string(text) : fmt::format("{}, {}", text, unit);
}

}  // namespace zaview
