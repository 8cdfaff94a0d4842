#include "views/geometry/geometry_view.h"

namespace zaview {

void GeoPlotInit(Session&) {}

void GeoRender(Session&) {}

void GeoMouse(Session&, int, float, float) {}

void BeforeGeometryKey(Session&) {}

ViewKeys GeometryKeys(const Session&) {
  return {};
}

}  // namespace zaview
