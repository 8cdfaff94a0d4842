// A page of several pictures: while it is open each picture of the main window that is ordered becomes its next cell.
#pragma once

#include <string_view>
#include <vector>

#include "base/platform.h"
#include "gks/kernel/gks_state.h"

namespace zaview {

inline constexpr int kMostCells = 100;

// name: an SVG, PDF or PNG file. False, and nothing is done: another ending, no cells or more than kMostCells. What an
// open page holds is dropped.
[[nodiscard]] bool BeginSheet(GksState& gks, int rows, int columns, std::string_view name);
// The recording of the present picture becomes a cell; the last one finishes the page. False: as below, there is no
// recording, or a PNG page of such cells would be too large, which closes it.
[[nodiscard]] bool AddToSheet(const Platform& platform, GksState& gks);
// Writes what there is and closes the page. False: it isn't written, which has been said; true of a page that isn't
// open.
[[nodiscard]] bool FinishSheet(const Platform& platform, GksState& gks);

// One or several recordings to a file; says so. False: it isn't written, which has been said.
[[nodiscard]] bool WriteRecordings(const Platform& platform, std::string_view name,
                                   const std::vector<const PictureRecording*>& cells, int columns);

}  // namespace zaview
