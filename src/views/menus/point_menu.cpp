// The point of ship-fixed quantities, and the coefficients of missiles.
#include <array>

#include "case/quantity_catalogue.h"
#include "case/settings/point_settings.h"
#include "views/menus/option_builder.h"
#include "views/state/motion_settings.h"

namespace zaview {

namespace {

constexpr std::string_view kShipFixed = "Point for ship-fixed point motions:";
constexpr std::string_view kOfMissile = "Point for missile motion/load calc:";
constexpr std::string_view kInput = "Point must be specified in INPUT coordinates";
constexpr std::string_view kInputUnits = "Point must be specified in INPUT coordinates and units";
constexpr std::string_view kCoefficients = "Coefficients for missile motion/loads";
constexpr int kMissileLoad = 48;

// What is shown of the point is made anew: the keys of its data have the point in them. Graphs of other points, as a
// script may have chosen them, stay.
void UseEverywhere(Session& s, const std::array<double, 3>& before) {
  UsePoint(s.output.point, s.data_plot.quantity);
  MoveGraphPoint(s.motion_view, before, s.output.point);
}

template <std::size_t i>
constexpr OptionBinding Coordinate = {
    [](Session& s, int) { return OptionValue{.real = static_cast<float>(s.output.point.point[i])}; },
    [](Session& s, const OptionEvent& event) {
      const std::array<double, 3> before = s.output.point.point;
      SetPointCoordinate(i, static_cast<double>(event.real), s.output.point);
      UseEverywhere(s, before);
      return std::string_view();
    }};

template <std::size_t i>
constexpr OptionBinding Coefficient = {[](Session& s, int) { return OptionValue{.real = s.output.point.missile[i]}; },
                                       [](Session& s, const OptionEvent& event) {
                                         SetMissileCoefficient(i, event.real, s.output.point);
                                         UseEverywhere(s, s.output.point.point);
                                         return std::string_view();
                                       }};

OptionValue WhatFor(Session& s, int) {
  const bool missile = s.run.plot_module == PlotModule::data_plot && s.data_plot.quantity.iqnt == kMissileLoad;
  return {.text = std::string(missile ? kOfMissile : kShipFixed)};
}

// Units are worth a word where lengths are shown in others.
OptionValue Axes(Session& s, int) {
  const bool same = s.output.units.LENOUT == s.case_store.control.LENIN;
  return {.text = std::string(same ? kInput : kInputUnits)};
}

bool HasMissiles(const Session& s, int) {
  return s.case_store.time_history() && QuantityValid(s.case_store, kMissileLoad);
}

constexpr OptionItem kRows[] = {
    {.kind = OptionKind::text, .value = {WhatFor, nullptr}},
    Row("X: "),
    Real("", Coordinate<0>),
    Real(" Y: ", Coordinate<1>),
    Real(" Z: ", Coordinate<2>),
    {.kind = OptionKind::text, .value = {Axes, nullptr}},
    {.kind = OptionKind::separator, .stands = HasMissiles},
    {.kind = OptionKind::text, .text = kCoefficients, .stands = HasMissiles},
    Row("A0: ", kAlways, HasMissiles),
    Real("", Coefficient<0>),
    Real(" A1: ", Coefficient<1>),
    Real(" A2: ", Coefficient<2>),
    Real(" A3: ", Coefficient<3>),
};

constexpr OptionBlock kBlocks[] = {{kRows}};

}  // namespace

ViewOptions PointOptions(const Session&) {
  return {kBlocks, kAlways};
}

}  // namespace zaview
