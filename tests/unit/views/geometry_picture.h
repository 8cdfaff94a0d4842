// A hull in store, and the geometry view of it in a window without a display.
#pragma once

#include <string>

#include "unit/views/plot_view.h"
#include "views/geometry/geometry_view.h"

namespace zaview {

// Half of a box 60 x 20 x 12 about (5, 0, 6), input axes, in two surfaces: its side, of 6 x 3 cells and type 4, and its
// bottom, of 6 x 2 cells. Two fins, a plate, a weight, two X cuts and a Y cut. 1 in store is 100.
inline void PutBox(CaseStore& store) {
  constexpr int kStations = 7, kSide = 4, kBottom = 3;
  store.has_case = true;
  store.hull = {};
  store.control.LENIN = 100;
  store.hull.half = true;
  for (const int KWL : {kSide, kBottom}) {
    HullSurface surface;
    surface.KSTA = kStations;
    surface.KWL = KWL;
    surface.resampling.KCTYPE0 = KWL == kSide ? 4 : 0;
    for (int i = 0; i < kStations; ++i)
      for (int j = 0; j < KWL; ++j) {
        const double part = static_cast<double>(j) / (KWL - 1), x = 35 - 10 * i;
        if (KWL == kSide) surface.points.push_back({x / 100, 0.1, 0.12 * part});
        else surface.points.push_back({x / 100, 0.1 * part, 0});
      }
    store.hull.surfaces.push_back(surface);
    surface.reflected = true;
    for (Vector3& p : surface.points) p[1] = -p[1];
    store.hull.surfaces.push_back(surface);
  }
  store.hull_tried = Tried::there;
  store.control.fins = {{{-20, 0, -2}, {0, 0, 1}, {1, 0, 0}, 4, 5, 0}, {{-15, 0, -2}, {0, 0, 1}, {1, 0, 0}, 4, 5, 0}};
  store.control.bilge_keels = {{{5, 11, 0}, {1, 0, 0}, {0, 1, 0}, 20, 2, 0}};
  store.control.mass_points.resize(1);
  store.control.mass_points[0].XMS = {0, 0, 5};
  store.control.XMC = {{-10, 0, 3}, {10, 0, 3}};
  store.control.ycut.XMCY = {{5, 5, 3}};
  store.control.RGRAV = {5, 0, 4};
}

struct GeometryPicture : PlotView {
  explicit GeometryPicture(int width = 800, int height = 600) : PlotView("", width, height) {
    PutBox(session.case_store);
    session.run.plot_module = PlotModule::geometry;
    GeoPlotInit(session);
    fake.output.clear();
  }
  GeometryViewState& view() { return session.geometry_view; }
  void Show() {  // as a display of the frame does it
    gksBeginPicture(session.platform.window, session.gks);
    GeoRender(session);
    Picture::Read(session.platform, session.gks);
  }
};

}  // namespace zaview
