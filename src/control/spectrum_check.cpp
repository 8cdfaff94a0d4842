#include "control/spectrum_check.h"

#include <algorithm>
#include <cstdint>
#include <span>

#include "base/message.h"
#include "base/number_format.h"

namespace zaview {
namespace {

constexpr std::string_view kEvenHeadings[] = {"WRN139 - For spectral wave definition, NHEAD must be odd.",
                                              "         Specified value will be modified"};
constexpr std::string_view kFewFrequencies[] = {"WRN139 - For spectral wave definition, NFREQ < 5 will result in a",
                                                "         very coarse frequency distribution"};
constexpr std::string_view kFewHeadings[] = {"WRN139 - For spectral wave definition, NHEAD < 5 will result in a",
                                             "         very coarse heading distribution"};
constexpr std::string_view kWideSpread[] = {"WRN139 - Short-crested sea definition has NHEAD*SPREAD > 360 degrees",
                                            "         This may result in an unrealistic seaway"};

constexpr std::string_view kNoFrequencies = " Number of frequencies NFREQ= {}";
constexpr std::string_view kTooManyComponents = " Number of components NFREQ*NHEAD= {} is limited to {}";

constexpr int kFewest = 5;          // frequencies or headings
constexpr double kNoSpread = 1e-5;  // degrees: headings are then laid over a half circle
constexpr double kFullCircle = 360;

struct SpectrumValue {
  std::string_view label;
  double value = 0;
};

// All must be above 0.
int CheckValues(const Console& console, std::span<const SpectrumValue> values, std::string_view words) {
  const auto bad = [](const SpectrumValue& row) { return !(row.value > 0); };
  if (std::none_of(values.begin(), values.end(), bad)) return 0;
  SayLine(console, words);
  for (const SpectrumValue& row : values)
    if (bad(row)) Say(console, "{} {}", row.label, Shown{static_cast<float>(row.value)});
  return 1;
}

int CheckKind(const Console& console, const SeawayInput& sea, std::string_view words) {
  // clang-format off
  const SpectrumValue wind[] = {
      {" Wind Speed VWIND10=", sea.VWIND10}, {" Fetch FETCH=", sea.FETCH},
      {" Peakedness Parameter PEAKPRM=", sea.PEAKPRM}};
  const SpectrumValue ochi[] = {
      {" Significant Wave Height SIGWHT1=", sea.SIGWHT1}, {" Modal Period TMODAL1=", sea.TMODAL1},
      {" Shape Parameter SHAPE1=", sea.SHAPE1},
      {" Significant Wave Height SIGWHT2=", sea.SIGWHT2}, {" Modal Period TMODAL2=", sea.TMODAL2},
      {" Shape Parameter SHAPE2=", sea.SHAPE2}};
  const SpectrumValue height[] = {
      {" Significant Wave Height SIGWHT=", sea.SIGWHT}, {" Modal Period TOMODAL=", sea.TOMODAL},
      {" Peakedness Parameter PEAKPRM=", sea.PEAKPRM}};
  // clang-format on
  switch (sea.ISEA) {
    case 2:
      return CheckValues(console, std::span(height).first(1), words);  // TMODAL 0 is one that follows from the height
    case 6:
      return CheckValues(console, wind, words);
    case 7:
      return CheckValues(console, std::span(ochi).first(sea.SIGWHT2 == 0 ? 3 : 6), words);  // height 0: no second mode
    case 8:
      return CheckValues(console, height, words);
    default:
      return 0;
  }
}

int CheckNumbers(const Console& console, const SeawayInput& sea, const SpectrumWords& words) {
  const std::int64_t components = std::int64_t{sea.NFREQ} * std::max(1, sea.NHEAD);
  const bool none = sea.NFREQ < 1 && words.frequencies.empty();
  if (!none && components <= kMostComponents) return 0;
  SayLine(console, words.values);
  if (none) Say(console, kNoFrequencies, sea.NFREQ);
  else Say(console, kTooManyComponents, components, kMostComponents);
  return 1;
}

void WarnOfSpectrum(const Console& console, const SeawayInput& sea) {
  if (sea.NHEAD > 0 && sea.NHEAD % 2 == 0) SayLines(console, kEvenHeadings);
  if (sea.NFREQ < kFewest) SayLines(console, kFewFrequencies);
  if (sea.NHEAD > 1 && sea.NHEAD < kFewest) SayLines(console, kFewHeadings);
  if (sea.NHEAD > 1 && sea.SPREAD > kNoSpread && sea.NHEAD * sea.SPREAD > kFullCircle) SayLines(console, kWideSpread);
}

}  // namespace

int CheckSpectrum(const Console& console, const SeawayInput& sea, const SpectrumWords& words) {
  int errors = CheckKind(console, sea, words.values);
  if (sea.NHEAD < 1 && !words.headings.empty()) {
    SayLine(console, words.headings);
    ++errors;
  }
  if (sea.NFREQ < 2 && !words.frequencies.empty()) {
    SayLine(console, words.frequencies);
    ++errors;
  }
  errors += CheckNumbers(console, sea, words);
  if (errors == 0) WarnOfSpectrum(console, sea);
  return errors;
}

}  // namespace zaview
