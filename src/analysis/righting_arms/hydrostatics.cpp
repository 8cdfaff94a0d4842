#include "analysis/righting_arms/hydrostatics.h"

#include <algorithm>
#include <cmath>

#include "base/grow.h"
#include "control/control_records.h"
#include "geometry/triangle_means.h"

namespace zaview {
namespace {

constexpr double kReferenceLength = 1;  // lengths are non-dimensional

std::size_t CellsOf(const Hull& hull) {
  std::size_t cells = hull.mesh.elements.size();
  for (const HullSurface& surface : hull.surfaces)
    if (surface.KSTA > 1 && surface.KWL > 1)
      cells += static_cast<std::size_t>(surface.KSTA - 1) * static_cast<std::size_t>(surface.KWL - 1);
  return cells;
}

// Global place of a point r of the work.
Vector3 PlaceOf(const Attitude& attitude, double cos_yaw, double sin_yaw, const Vector3& r) {
  return {attitude.cg[0] + cos_yaw * r[0] - sin_yaw * r[1], attitude.cg[1] + sin_yaw * r[0] + cos_yaw * r[1],
          attitude.cg[2] + r[2]};
}

// Vertices and the water above them: they hold for every sinkage.
void PlaceVertices(const HydrostaticBody& body, const WaterSurface& water, const Attitude& attitude,
                   HydrostaticWork& work) {
  const std::size_t n = body.hull.vertices.size();
  work.r.resize(n);
  work.d.resize(n);
  work.places.resize(n);
  work.at_vertex.resize(n);
  const Rotation R = ShipToGlobal(attitude.roll, attitude.pitch, 0);
  const double cos_yaw = std::cos(attitude.yaw), sin_yaw = std::sin(attitude.yaw);
  for (std::size_t i = 0; i < n; ++i) {
    work.r[i] = ToGlobal(R, body.hull.vertices[i]);
    work.places[i] = PlaceOf(attitude, cos_yaw, sin_yaw, work.r[i]);
  }
  EvalWater(water, work.places, false, work.at_vertex, work.threads);
  work.at_centre.resize(body.hull.triangles.size());
  work.centre_known.assign(body.hull.triangles.size(), 0);
}

Vector3 CentreOf(const WetTriangle& t) {
  Vector3 c{};
  for (std::size_t k = 0; k < 3; ++k) c[k] = (t.r[0][k] + t.r[1][k] + t.r[2][k]) / 3;
  return c;
}

// The water above the panels; a whole triangle has its place whatever the sinkage is.
void FindWaterAtPanels(const WaterSurface& water, HydrostaticWork& work) {
  const std::vector<WetTriangle>& panels = work.wet.triangles;
  const double cos_yaw = std::cos(work.attitude.yaw), sin_yaw = std::sin(work.attitude.yaw);
  work.at_panel.resize(panels.size());
  work.places.clear();
  work.asked.clear();
  for (std::size_t i = 0; i < panels.size(); ++i) {
    if (panels[i].whole && work.centre_known[panels[i].of] != 0) {
      work.at_panel[i] = work.at_centre[panels[i].of];
      continue;
    }
    work.asked.push_back(static_cast<std::uint32_t>(i));
    work.places.push_back(PlaceOf(work.attitude, cos_yaw, sin_yaw, CentreOf(panels[i])));
  }
  work.answer.resize(work.asked.size());
  EvalWater(water, work.places, true, work.answer, work.threads);
  for (std::size_t j = 0; j < work.asked.size(); ++j) {
    const WetTriangle& panel = panels[work.asked[j]];
    work.at_panel[work.asked[j]] = work.answer[j];
    if (!panel.whole) continue;
    work.at_centre[panel.of] = work.answer[j];
    work.centre_known[panel.of] = 1;
  }
}

// Right-hand, its length the area.
Vector3 AreaVector(const WetTriangle& t) {
  Vector3 ab{}, ac{};
  for (std::size_t k = 0; k < 3; ++k) {
    ab[k] = (t.r[1][k] - t.r[0][k]) / 2;
    ac[k] = t.r[2][k] - t.r[0][k];
  }
  return Cross(ab, ac);
}

struct PanelPressure {
  Vector3 Q{};  // head times place
  double H = 0, fall = 1;
};

PanelPressure PressureOn(const WetTriangle& t, const WaterAt& at, double cg_z, bool decays) {
  const Vector3 c = CentreOf(t);
  const PressureHead head = HeadAt(at, cg_z + c[2], decays);
  const double mean = MeanOf(t.d);
  PanelPressure p{{}, head.H, head.fall};
  for (std::size_t k = 0; k < 3; ++k) {
    p.Q[k] = head.H * c[k];
    for (std::size_t i = 0; i < 3; ++i) p.Q[k] += (t.d[i] - mean) * (t.r[i][k] - c[k]) / 12;
  }
  return p;
}

double RollStiffness(const WetTriangle& t, const Vector3& nA) {
  const CornerValues y{t.r[0][1], t.r[1][1], t.r[2][1]}, z{t.r[0][2], t.r[1][2], t.r[2][2]};
  return MeanProduct(y, y) * nA[2] - MeanProduct(y, z) * nA[1];
}

void SumForce(const WaterSurface& water, bool with_stiffness, const HydrostaticWork& work, Hydrostatics& out) {
  double stiffness = 0;
  const bool decays = water.decays();
  for (std::size_t i = 0; i < work.wet.triangles.size(); ++i) {
    const WetTriangle& t = work.wet.triangles[i];
    const Vector3 nA = AreaVector(t);
    const PanelPressure p = PressureOn(t, work.at_panel[i], work.attitude.cg[2], decays);
    const Vector3 m = Cross(p.Q, nA);
    for (std::size_t k = 0; k < 3; ++k) {
      out.force[k] -= p.H * nA[k];
      out.moment[k] -= m[k];
    }
    if (with_stiffness) stiffness -= p.fall * RollStiffness(t, nA);
  }
  if (with_stiffness && out.force[2] != 0) out.GM_pressure = stiffness / out.force[2];
}

}  // namespace

BodyFault MakeHydrostaticBody(const Hull& hull, const Vector3& centre, HydrostaticBody& body) {
  body = HydrostaticBody{};
  if (hull.surfaces.size() > MAXCMP) return BodyFault::too_many_surfaces;
  if (hull.mesh.nodes.size() > MAXFEG || hull.mesh.elements.size() > MAXFEG) return BodyFault::too_many_elements;
  body.cells = CellsOf(hull);
  if (body.cells > MAXBP0) return BodyFault::too_many_panels;
  if (!CloseHull(hull, kReferenceLength, body.hull)) return BodyFault::no_memory;
  double low = 0, high = 0;
  for (std::size_t i = 0; i < body.hull.vertices.size(); ++i) {
    Vector3& p = body.hull.vertices[i];
    for (std::size_t k = 0; k < 3; ++k) p[k] -= centre[k];
    low = i == 0 ? p[0] : std::min(low, p[0]);
    high = i == 0 ? p[0] : std::max(high, p[0]);
  }
  body.length = high - low;
  return BodyFault::none;
}

bool HydrostaticPanels(const HydrostaticBody& body, const WaterSurface& water, const Attitude& attitude,
                       HydrostaticWork& work) {
  return Guarded(
      [&] {
        if (!work.made || !attitude.same_plan(work.attitude)) PlaceVertices(body, water, attitude, work);
        work.made = true;
        work.attitude = attitude;
        for (std::size_t i = 0; i < work.r.size(); ++i)
          work.d[i] = static_cast<double>(work.at_vertex[i].eta) - (attitude.cg[2] + work.r[i][2]);
        return WetHull(body.hull, work.r, work.d, work.wet);
      },
      false);
}

HydrostaticFault HydrostaticForce(const WaterSurface& water, int icalc, HydrostaticWork& work, Hydrostatics& out) {
  out = Hydrostatics{};
  if (icalc < kForceOnly || icalc > kAllHydrostatics) return HydrostaticFault::illegal_icalc;
  const bool found = Guarded([&] { return FindWaterAtPanels(water, work), true; }, false);
  if (!found) return HydrostaticFault::no_memory;
  SumForce(water, icalc == kAllHydrostatics, work, out);
  if (icalc == kForceOnly) return HydrostaticFault::none;
  out.wet = SumWetHull(work.wet);
  if (out.wet.V != 0 && out.wet.Awp != 0)
    out.GM_volume = (out.wet.Ixx - out.wet.Sy * out.wet.Sy / out.wet.Awp) / out.wet.V + out.wet.B[2];
  return HydrostaticFault::none;
}

HydrostaticFault EvalHydrostatics(const HydrostaticBody& body, const WaterSurface& water, const Attitude& attitude,
                                  int icalc, HydrostaticWork& work, Hydrostatics& out) {
  if (!HydrostaticPanels(body, water, attitude, work)) return HydrostaticFault::no_memory;
  return HydrostaticForce(water, icalc, work, out);
}

}  // namespace zaview
