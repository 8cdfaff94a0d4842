// A case in memory with known histories: value(component i, step s) of each history is a straight line, so that
// expected numbers can be made by any other program. L 100, g 9.81, rho 1025, degrees shown.
#pragma once

#include <cstddef>

#include "case/case_store.h"
#include "case/output_scales.h"
#include "case/output_settings.h"

namespace zaview {

// a + b i + c s, i from 1, s the absolute step.
inline void FillLine(StepHistory& history, int components, int first, int n, double a, double b, double c) {
  history.first = first;
  history.component.assign(static_cast<std::size_t>(components), {});
  for (int i = 1; i <= components; ++i)
    for (int k = 0; k < n; ++k)
      history.component[static_cast<std::size_t>(i - 1)].push_back(static_cast<float>(a + b * i + c * (first + k)));
}

inline CaseStore SmallCase(int first, int n) {
  CaseStore c;
  c.has_case = true;
  c.file_name = "run.out";
  c.NSHIP = 1;
  c.ships.resize(1);
  c.ships[0].centre = {0.01, 0.0, -0.0125};
  ControlRecords& r = c.control;
  r.NSTEP = c.nstep_expected = first + n - 1;
  r.DTH = 0.25;
  r.USHIP = 7.5;
  r.PMGIN = {1.0, 2.0, -1.25, 3.0, 4.0, 5.0};
  r.GRAVIN = r.GRAVOUT = 9.81;
  r.LENIN = r.LENOUT = 100.0;
  r.ANGIN = r.ANGOUT = 57.29578;
  r.GORIG = {0.0, 0.0, 6.25};
  c.first_read = c.first_step = c.current_step = first;
  c.last_read = c.last_step = first + n - 1;
  FillLine(c.time, 1, first, n, 0.0, 0.0, 0.0783);
  FillLine(c.pmgg, 6, first, n, 0.1, 0.05, 0.01);
  FillLine(c.vmg, 6, first, n, -0.2, 0.07, 0.02);
  FillLine(c.acc, 6, first, n, 0.3, -0.04, 0.005);
  FillLine(c.force, 30, first, n, 0.001, 0.0001, -0.00005);
  FillLine(c.rudder_cmd, 1, first, n, 0.1, 0.0, 0.001);
  FillLine(c.rudder_ang, 1, first, n, 0.2, 0.0, 0.001);
  FillLine(c.prop_rps, 1, first, n, 2.0, 0.0, 0.001);
  return c;
}

// Two X cuts with vertical loads, one Y cut with torsion.
inline void AddLoads(CaseStore& c, int first, int n) {
  c.loads.NBCA = 2;
  c.loads.nycut = 1;
  c.loads.x_kinds = {1};
  c.loads.y_kinds = {6};
  c.control.XMC = std::vector<Triple>{Triple{25.0, 0.0, 6.25}, Triple{-12.5, 0.0, 6.25}};
  c.control.ycut.XMCY = std::vector<Triple>{Triple{0.0, 2.5, 6.25}};
  FillLine(c.load_force[0], 2, first, n, 0.0, 0.001, 0.0001);
  FillLine(c.load_moment[0], 2, first, n, 0.0, -0.002, 0.0001);
  FillLine(c.load_force[5], 1, first, n, 0.0, 0.003, 0.0001);
  FillLine(c.load_moment[5], 1, first, n, 0.0, 0.004, 0.0001);
}

inline OutputSettings SettingsFor(const CaseStore& c) {
  OutputSettings settings;
  AdoptFileScales(settings, c);
  return settings;
}

}  // namespace zaview
