// Files of one work whose names are a root and an extension each. All are opened ahead of the work; they appear when it
// is done.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "base/platform.h"
#include "case/case_store.h"
#include "frame/ground/output_file.h"

namespace zaview {

inline constexpr std::string_view kAskRoot = "Enter root name for output files";

struct RootFile {
  std::string_view extension;
  std::string_view writing, written;  // said of the name when it is opened, and when it is there; blank: nothing
};

struct RootFiles {
  std::vector<RootFile> rows;
  std::vector<OutputFile> out;  // a file a row
};

// root blank: the case's base name. False: one can't be opened, which is said; nothing is left of the others.
[[nodiscard]] bool OpenRootFiles(const Platform& platform, const CaseStore& case_store, std::string_view root,
                                 std::span<const RootFile> rows, RootFiles& files);
// False: one could not be written, which is said; those behind it stay as they were.
[[nodiscard]] bool CloseRootFiles(const Console& console, RootFiles& files);
void DiscardRootFiles(RootFiles& files);

}  // namespace zaview
