// The hull on its track and the sea about it, step by step, for a general viewer: XML files of VTK ("VTK File Formats",
// in The VTK User's Guide), arrays in binary, with a collection that tells their times.
#pragma once

#include <string_view>

#include "base/platform.h"
#include "case/case_store.h"
#include "case/output_settings.h"

namespace zaview {

inline constexpr std::string_view kVtkWritten = "Hull and sea written to {}.pvd and its files";

// root.pvd names root_hull_N.vtp (a surface of polygons; cell data "above": 1 where a cell's middle is out of the
// water) and root_sea_N.vts (a surface over 3 by 2 lengths around the ship; point data "elevation"), N the step. Earth
// axes, z up, output lengths. The steps in use. Without a hull there is the sea alone, without waves it is flat. False:
// told; the files of steps that were done stay, without the collection.
[[nodiscard]] bool WriteRunVtk(const Platform& platform, const OutputSettings& settings, std::string_view root,
                               CaseStore& store);

}  // namespace zaview
