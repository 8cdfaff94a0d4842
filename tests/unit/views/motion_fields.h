// The settings of the animation and of its run as numbers with names, for tables of what changes them.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "frame/session.h"

namespace zaview {

inline double Length(const Session& s) {
  return static_cast<double>(s.output.units.scales.position[0]);
}
// R = 1.1 r / sin(aperture/2), r half the length where no hull is known; the window is wider than high.
inline double Fitting(const Session& s) {
  return 1.1 * 0.5 * Length(s) / std::sin(s.motion_view.view.view_width / 360.0 * std::numbers::pi);
}

struct MotionField {
  std::string_view name;
  double (*value)(const Session& s);
};
template <auto MotionViewState::*field>
double Of(const Session& s) {
  return static_cast<double>(s.motion_view.*field);
}
template <auto Camera::*field>
double Eye(const Session& s) {
  return static_cast<double>(s.motion_view.view.*field);
}
template <double ScenePoint::*axis>  // in radii
double Centre(const Session& s) {
  return s.motion_view.view.view_centre.*axis / Fitting(s);
}
template <auto PlotSessionState::*field>
double Running(const Session& s) {
  return static_cast<double>(s.plot_session.*field);
}
template <std::size_t graph, auto MotionGraph::*field>
double Graph(const Session& s) {
  return static_cast<double>(s.motion_view.graphs[graph].*field);
}
// clang-format off
inline constexpr MotionField kMotionFields[] = {
    {"azimuth", Eye<&Camera::view_azimuth>}, {"elevation", Eye<&Camera::view_elevation>},
    {"aperture", Eye<&Camera::view_width>}, {"perspective", Eye<&Camera::perspective>},
    {"radius", [](const Session& s) { return s.motion_view.view.view_radius / Fitting(s); }},
    {"x", Centre<&ScenePoint::x>}, {"y", Centre<&ScenePoint::y>}, {"z", Centre<&ScenePoint::z>},
    {"stand", Of<&MotionViewState::stand>}, {"solid", Of<&MotionViewState::hull_solid>},
    {"colour", Of<&MotionViewState::hull_colour>}, {"rudders", Of<&MotionViewState::show_rudders>},
    {"track", Of<&MotionViewState::show_track>}, {"waterline", Of<&MotionViewState::show_waterline>},
    {"centres", Of<&MotionViewState::show_centres>}, {"sea", Of<&MotionViewState::fs_solid>},
    {"horizon", Of<&MotionViewState::horizon>}, {"opacity", Of<&MotionViewState::fs_opacity>},
    {"grid", [](const Session& s) { return static_cast<double>(s.motion_view.fs_grid_size) / (1.5 * Length(s)); }},
    {"shading", Of<&MotionViewState::shading_on>}, {"ambient", Of<&MotionViewState::ambient>},
    {"title", Of<&MotionViewState::show_title>}, {"time", Of<&MotionViewState::show_time>},
    {"text", Of<&MotionViewState::text_size>}, {"thick", Of<&MotionViewState::line_thickness>},
    {"events", Of<&MotionViewState::show_events>}, {"sync", Running<&PlotSessionState::run_sync>},
    {"factor", Running<&PlotSessionState::run_sync_factor>}, {"run", Running<&PlotSessionState::run_on>},
    {"dump", Running<&PlotSessionState::run_dump>}, {"t0", Running<&PlotSessionState::run_t0>},
    {"step", [](const Session& s) { return static_cast<double>(s.case_store.current_step); }},
    {"background", [](const Session& s) { return static_cast<double>(s.run.plot_colours); }},
    {"module", [](const Session& s) { return static_cast<double>(s.run.plot_module); }},
    {"exit", [](const Session& s) { return static_cast<double>(s.run.exit_requested); }},
    {"wire", Of<&MotionViewState::hull_wire>}, {"glass", Of<&MotionViewState::body_transparent>},
    {"sea_wire", Of<&MotionViewState::fs_wire>}, {"point", Of<&MotionViewState::mark_point>},
    {"graph_thick", Of<&MotionViewState::graph_thickness>}, {"frame_too", Of<&MotionViewState::frame_too>},
    {"late", Running<&PlotSessionState::sync_real_time>},
    {"first", [](const Session& s) { return static_cast<double>(s.case_store.first_step); }},
    {"last", [](const Session& s) { return static_cast<double>(s.case_store.last_step); }},
    {"on2", Graph<1, &MotionGraph::on>}, {"on3", Graph<2, &MotionGraph::on>},
    {"qnt3", [](const Session& s) { return static_cast<double>(s.motion_view.graphs[2].request.iqnt); }},
    {"crv3", [](const Session& s) { return static_cast<double>(s.motion_view.graphs[2].request.curve); }},
    {"colour3", Graph<2, &MotionGraph::colour>}, {"blank3", Graph<2, &MotionGraph::blank>},
    {"scroll3", Graph<2, &MotionGraph::scroll>}, {"bar3", Graph<2, &MotionGraph::time_bar>},
    {"mark3", Graph<2, &MotionGraph::mark>}, {"value3", Graph<2, &MotionGraph::value>},
    {"seconds3", Graph<2, &MotionGraph::scroll_time>},
    {"popup", [](const Session& s) { return static_cast<double>(s.motion_view.popup.open); }},
};
// clang-format on

inline std::vector<double> FieldsOf(const Session& s) {
  std::vector<double> values;
  for (const MotionField& field : kMotionFields) values.push_back(field.value(s));
  return values;
}

inline void ExpectFields(const std::vector<double>& got, const std::vector<double>& want, std::string_view which) {
  for (std::size_t i = 0; i < want.size(); ++i)
    EXPECT_NEAR(got[i], want[i], 1.0e-5 * std::max(1.0, std::abs(want[i]))) << which << ": " << kMotionFields[i].name;
}

}  // namespace zaview
