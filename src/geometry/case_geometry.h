// All geometry of a case: the file of record 04, then those of $ADDGEOM: blocks.
#pragma once

#include <string_view>

#include "base/platform.h"
#include "control/control_records.h"
#include "geometry/hull.h"

namespace zaview {

// FGEOM, then each $ADDGEOM: block, reflected (SYMINP) and transformed each by its own shift, origin and rotation.
// folder: of the run file, looked in behind the working directory. Result in ship axes, non-dimensional. False: no hull
// (told why).
[[nodiscard]] bool ReadCaseGeometry(const Platform& platform, const ControlRecords& records, std::string_view folder,
                                    Hull& hull);

// The files of that geometry count as read from now on: nothing of this run is written over them, whether the hull is
// needed or not.
void HoldCaseGeometry(const Files& files, const ControlRecords& records, std::string_view folder);

}  // namespace zaview
