// A case from a table of measured data (table_columns.h): every column a curve of MEASURED, and columns with names of
// motions the motions of the ship as well. It holds no forces, sea or hull: VERSION 0, NSHIP 1.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/platform.h"
#include "case/case_store.h"
#include "case/ensemble_store.h"
#include "case/output_settings.h"
#include "frame/ground/run_state.h"  // EnsembleMode

namespace zaview {

// A name that ends in .csv or .tsv, in letters of any case.
[[nodiscard]] bool IsTableName(std::string_view name);

enum class TableInput : std::uint8_t { ok, failed };  // failed (told): the case stays as before

// Reads an open file; the caller closes it. Motions: surge, sway, heave, roll, pitch, yaw; x, y, z, phi, theta, psi;
// pmgg(1) .. pmgg(6), motion(1) .. motion(6), Rot_X .. as WRITE_HISTORY heads them. They are taken in the signs of the
// output and, where the heading has no unit, in those of the output: metres or feet, as its gravity says, and ANGOUT.
// Gravity, density and length of the case are those of the output, if they are of a usual system, else 9.81, 1025, 1.
[[nodiscard]] TableInput ReadTableFile(const Platform& platform, FileHandle file, const std::string& name,
                                       EnsembleMode ensemble_mode, OutputSettings& settings, CaseStore& case_store,
                                       EnsembleStore& ensemble);

}  // namespace zaview
