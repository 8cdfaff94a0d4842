// Settings of the geometry views of which something is said, for keys and menu alike. True: the picture is to be drawn
// again.
#pragma once

#include "frame/session.h"

namespace zaview {

void SayColouring(Session& session);   // by what components are coloured now
bool SwitchNormals(Session& session);  // a mesh has none to be shown
bool SwitchBuffer(Session& session);   // of lines in space

}  // namespace zaview
