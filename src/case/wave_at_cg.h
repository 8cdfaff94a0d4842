// The seaway of the case in store, built on first need, and its elevation at the CG and at the global origin.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "base/platform.h"
#include "case/case_store.h"

namespace zaview {

inline constexpr std::string_view kNoWaveData = "Incident wave data will not be available";

// Reads the phase files that a spectral seaway names, of $OPTIONS: and of $ADDSEA:, into case_store.phases. False
// (told): one of them can't be read.
[[nodiscard]] bool ReadPhaseLists(const Platform& platform, CaseStore& case_store);

enum class WaveAnswer : std::uint8_t { ok, no_wave, no_memory };  // no_wave: told

// Makes case_store.seaway and case_store.wave.
[[nodiscard]] WaveAnswer EnsureSeaway(const Console& console, CaseStore& case_store);

// Makes eta_cg and eta_origin for all steps in store: at pmgg(1:2) of the step and at global (0, 0), at the stored
// time, with the wave scale of the step; 0 in gaps. Says what is calculated.
[[nodiscard]] WaveAnswer IncidentWaveAtCG(const Console& console, CaseStore& case_store);

// eta[s] of step first_read + s at (x[s], y[s]). EnsureSeaway must have been ok.
[[nodiscard]] WaveAnswer WaveAlong(const Console& console, const CaseStore& case_store, std::span<const float> x,
                                   std::span<const float> y, std::span<float> eta);

}  // namespace zaview
