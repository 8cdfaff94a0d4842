// The geometry as it was input, in two dimensions on the plot layer or in space (PlotModule::geometry).
#pragma once

#include "frame/session.h"
#include "views/state/option_row.h"
#include "views/state/view_key.h"

namespace zaview {

void GeoPlotInit(Session& session);                             // entry; the messages unless a script runs
void GeoRender(Session& session);                               // in two dimensions or in space, as the state has it
void GeoMouse(Session& session, int button, float x, float y);  // page units in space, else those of the graph
void BeforeGeometryKey(Session& session);                       // any key ends what the mouse began
[[nodiscard]] ViewKeys GeometryKeys(const Session& session);
[[nodiscard]] ViewOptions GeometryOptions(const Session& session);

}  // namespace zaview
