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

}  // namespace zaview
