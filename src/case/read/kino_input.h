// A case from separate files: motions (KINO .mot), seaway (KINO .sea), geometry. It holds positions only, no forces:
// VERSION 0, NSHIP 1, no sectional loads.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "base/platform.h"
#include "case/case_store.h"
#include "case/ensemble_store.h"
#include "case/output_settings.h"
#include "frame/ground/run_state.h"

namespace zaview {

enum class KinoInput : std::uint8_t { ok, abandoned };  // abandoned (told): the case stays as before

struct KinoFiles {
  // seaway blank or CALM: calm; geometry blank or NONE: none. Motions and seaway may lack .mot and .sea.
  std::string motions, seaway, geometry;
  double g = 0, rho = 0;
  std::array<double, 3> reference{}, centre{};  // geometry coordinates: motion reference point, centre of gravity
};

// READ_KINO_FILES.
[[nodiscard]] KinoInput ReadKinoFiles(const Platform& platform, const KinoFiles& files, const RunState& run,
                                      OutputSettings& settings, CaseStore& case_store, EnsembleStore& ensemble);

// The dialogue behind the answers KINO and TEXT at the file prompt.
[[nodiscard]] KinoInput AskForKinoFiles(const Platform& platform, const RunState& run, OutputSettings& settings,
                                        CaseStore& case_store, EnsembleStore& ensemble);

}  // namespace zaview
