// The crane and cargo analysis, from the model's file to the files of its results.
#pragma once

#include <string>

#include "analysis/crane/crane_run.h"
#include "case/output_settings.h"
#include "frame/ground/output_file.h"

namespace zaview {

struct CraneWork {
  const Platform& platform;
  const OutputSettings& settings;
  const CaseStore& store;
};

struct CraneFiles {  // open; null: not wanted
  OutputFile* motions = nullptr;
  OutputFile* geometry = nullptr;
};

// Reads the model and echoes it. False: told.
[[nodiscard]] bool TakeCraneInput(const Platform& platform, const std::string& name, CraneInput& input);

// Reports, simulates and writes. Files are closed, or discarded if it fails. False: told; run then has steps if they
// are all there, and only a file could not be written.
[[nodiscard]] bool RunCrane(const CraneWork& work, const CraneInput& input, const std::string& name, CraneFiles files,
                            CraneRun& run);

// The dialogue: asks for the model's file, then for those of the results. run has steps if it has been simulated.
void AskCrane(const CraneWork& work, CraneRun& run);

}  // namespace zaview
