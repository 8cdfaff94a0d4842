// What a crane run has to tell: a report, the motions as a table, the geometry for viewers. Global axes without sign
// factors, output units, angles in degrees.
#pragma once

#include <string>

#include "analysis/crane/crane_run.h"
#include "analysis/result_plot.h"
#include "case/output_settings.h"
#include "frame/ground/output_file.h"

namespace zaview {

// Properties of cables, where crane and cargo start, what is assumed: lines, each with its end.
[[nodiscard]] std::string CraneReport(const OutputSettings& settings, const CraneInput& input, const CraneRun& run);
// The largest tension of the run, a line.
[[nodiscard]] std::string TensionReport(const OutputSettings& settings, const CraneRun& run);

// A row a step: time, tip of the first boom, the cables' end less it, Euler angles of the cargo.
void WriteCraneMotions(const OutputSettings& settings, const CraneRun& run, OutputFile& out);

// KINO geometry: a comment; per step its time and number of polylines, and of each its points. A polyline a cable,
// base - tip - cargo, and one a panel of the cargo.
void WriteCraneGeometry(const OutputSettings& settings, const CraneRun& run, OutputFile& out);

// Slew and luff, swing of the first cable about the vertical, tensions, over time. No panels where memory is out.
[[nodiscard]] ResultPlot CranePlot(const OutputSettings& settings, const CraneRun& run);

}  // namespace zaview
