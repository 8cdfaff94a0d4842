// What statistics are made with.
#pragma once

#include "case/output_settings.h"
#include "case/settings/setting.h"

namespace zaview {

[[nodiscard]] SettingFault SetProbability(float p, StatisticSettings& statistics);  // 0 < p <= 1
// Of confidence intervals: by the formula (0), or by a bootstrap (1) of so many resamples, as the seed draws them.
[[nodiscard]] SettingFault SetIntervalMethod(int method, StatisticSettings& statistics);
inline constexpr int kFewestResamples = 100, kMostResamples = 100'000, kMostSeed = 1'000'000;
[[nodiscard]] SettingFault SetResamples(int resamples, StatisticSettings& statistics);
[[nodiscard]] SettingFault SetSeed(int seed, StatisticSettings& statistics);             // 0 to kMostSeed
[[nodiscard]] SettingFault SetCutoff(float correlation, StatisticSettings& statistics);  // above 0, below 1
[[nodiscard]] SettingFault SetSampleRate(int rate, StatisticSettings& statistics);       // 1 and above
[[nodiscard]] SettingFault SetNdtfLength(float length, StatisticSettings& statistics);   // output units; 0: of the hull
[[nodiscard]] SettingFault SetNdtfBeam(float beam, StatisticSettings& statistics);

inline constexpr float kMostSegment = 1.0e9F;
[[nodiscard]] SettingFault SetSpectrumSegment(float time, StatisticSettings& statistics);  // output time; 0: usual

inline constexpr float kMostExtremeHours = 1.0e6F;
inline constexpr int kMostRainflowBins = 10'000;
[[nodiscard]] SettingFault SetExtremeHours(float hours, StatisticSettings& statistics);  // above 0, to the most
[[nodiscard]] SettingFault SetExtremeQuantile(float probability, StatisticSettings& statistics);  // above 0, below 1
[[nodiscard]] SettingFault SetRainflowBins(int bins, StatisticSettings& statistics);              // 1 to the most

}  // namespace zaview
