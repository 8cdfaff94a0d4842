#include "case/settings/statistic_settings.h"

namespace zaview {
namespace {

template <typename T>
SettingFault Set(bool legal, T value, T& setting) {
  if (!legal) return SettingFault::illegal;
  setting = value;
  return SettingFault::none;
}

}  // namespace

SettingFault SetProbability(float p, StatisticSettings& statistics) {
  return Set(p > 0.0F && p <= 1.0F, p, statistics.confidence_probability);
}

SettingFault SetIntervalMethod(int method, StatisticSettings& statistics) {
  return Set(method == 0 || method == 1, static_cast<IntervalMethod>(method), statistics.interval_method);
}

SettingFault SetResamples(int resamples, StatisticSettings& statistics) {
  return Set(resamples >= kFewestResamples && resamples <= kMostResamples, resamples, statistics.bootstrap_resamples);
}

SettingFault SetSeed(int seed, StatisticSettings& statistics) {
  return Set(seed >= 0 && seed <= kMostSeed, seed, statistics.bootstrap_seed);
}

SettingFault SetCutoff(float correlation, StatisticSettings& statistics) {
  return Set(correlation > 0.0F && correlation < 1.0F, correlation, statistics.autocorrelation_cutoff);
}

SettingFault SetSampleRate(int rate, StatisticSettings& statistics) {
  return Set(rate > 0, rate, statistics.autocorrelation_rate);
}

SettingFault SetNdtfLength(float length, StatisticSettings& statistics) {
  return Set(length >= 0.0F, length, statistics.ndtf_length);
}

SettingFault SetNdtfBeam(float beam, StatisticSettings& statistics) {
  return Set(beam >= 0.0F, beam, statistics.ndtf_beam);
}

SettingFault SetSpectrumSegment(float time, StatisticSettings& statistics) {
  return Set(time >= 0.0F && time <= kMostSegment, time, statistics.spectrum_segment);
}

SettingFault SetExtremeHours(float hours, StatisticSettings& statistics) {
  return Set(hours > 0.0F && hours <= kMostExtremeHours, hours, statistics.extreme_hours);
}

SettingFault SetExtremeQuantile(float probability, StatisticSettings& statistics) {
  return Set(probability > 0.0F && probability < 1.0F, probability, statistics.extreme_quantile);
}

SettingFault SetRainflowBins(int bins, StatisticSettings& statistics) {
  return Set(bins >= 1 && bins <= kMostRainflowBins, bins, statistics.rainflow_bins);
}

}  // namespace zaview
