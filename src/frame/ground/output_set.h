// Several files of one work: all are opened ahead of it, and appear when it is done. What goes wrong is said, and the
// others are discarded then.
#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "frame/ground/output_file.h"

namespace zaview {

inline constexpr std::string_view kSameOutput = "ERROR - the analysis has two output files of this name: {}";

// not_open, not_written, same_name: what is said, with slots for the name and, of the first two, the reason.
[[nodiscard]] bool OpenAll(const Platform& platform, std::span<const std::string> names, std::string_view not_open,
                           std::vector<OutputFile>& files);
// False: two of them are one file.
[[nodiscard]] bool AreDifferent(const Console& console, std::span<const OutputFile> files, std::string_view same_name);
// Files that were never opened are passed over; written, if there is one, is told the place of each that is there now.
// False: one could not be written; those behind it stay as they were.
[[nodiscard]] bool CloseAll(const Console& console, std::span<OutputFile> files,
                            const std::function<void(std::size_t)>& written = {},
                            std::string_view not_written = kOutputNotWritten);
void DiscardAll(std::span<OutputFile> files);

}  // namespace zaview
