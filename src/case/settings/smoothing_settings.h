// Smoothing: of what is shown, or of the records in store.
#pragma once

#include "base/platform.h"
#include "case/case_store.h"
#include "case/ensemble_store.h"
#include "case/output_settings.h"
#include "case/settings/setting.h"

namespace zaview {

inline constexpr int kCubicSmoothing = 3;  // the option that has a window
inline constexpr int kLeastWindow = 5;

[[nodiscard]] SettingFault SetSmoothing(int option, SmoothingSettings& smoothing);       // 0 to 3
[[nodiscard]] SettingFault SetSmoothingWindow(int width, SmoothingSettings& smoothing);  // kLeastWindow and above

// Option 1, or 3 with its window, of every record: statistics of an ensemble must not mix smoothed records with others.
// An interrupt ends it, told.
[[nodiscard]] SettingFault SmoothRecords(const Console& console, int option, int width, CaseStore& case_store,
                                         EnsembleStore& ensemble);

}  // namespace zaview
