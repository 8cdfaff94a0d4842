#include "case/settings/smoothing_settings.h"

#include "case/read/ensemble_match.h"
#include "case/smooth_stored.h"

namespace zaview {

SettingFault SetSmoothing(int option, SmoothingSettings& smoothing) {
  if (option < 0 || option > kCubicSmoothing) return SettingFault::illegal;
  smoothing.option = option;
  return SettingFault::none;
}

SettingFault SetSmoothingWindow(int width, SmoothingSettings& smoothing) {
  if (width < kLeastWindow) return SettingFault::illegal;
  smoothing.window = width;
  return SettingFault::none;
}

SettingFault SmoothRecords(const Console& console, int option, int width, CaseStore& case_store,
                           EnsembleStore& ensemble) {
  if (option != 1 && (option != kCubicSmoothing || width < kLeastWindow)) return SettingFault::illegal;
  const auto smooth = [&](CaseStore& record) {
    const bool done = SmoothStored(console, option, option == 1 ? kLeastWindow : width, record);
    MarkChanged(ensemble, record);
    return done;
  };
  bool going_on = smooth(case_store);
  for (std::size_t i = 0; i < ensemble.record.size() && going_on; ++i)
    if (static_cast<int>(i) + 1 != ensemble.irec) going_on = smooth(ensemble.record[i]);
  return SettingFault::none;
}

}  // namespace zaview
