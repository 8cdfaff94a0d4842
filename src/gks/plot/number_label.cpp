#include "gks/plot/number_label.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include <fmt/format.h>

namespace zaview {

namespace {

// From this size on a number has so many decimals; each bound is where one more would round to a longer text. A minus
// sign takes the room of one.
struct Decimals {
  float from = 0;
  int count = 0;
};
constexpr Decimals kPositive[] = {{999.95F, 0}, {99.995F, 1}, {9.9995F, 2}, {0.99995F, 3}, {0.00995F, 4}};
constexpr Decimals kNegative[] = {{99.95F, 0}, {9.995F, 1}, {0.9995F, 2}, {0.009995F, 3}};
constexpr float kLongest = 99999.5F, kLongestNegative = 9999.5F;  // from here on five characters hold no integer
constexpr double kRoundsToTen = 9.95;                             // with one decimal

template <std::size_t n>
int DecimalsOf(const Decimals (&table)[n], float size) {
  for (const Decimals& row : table)
    if (size >= row.from) return row.count;
  return -1;
}

std::string PowerOfTen(float v) {
  const double value = static_cast<double>(v);
  int e = static_cast<int>(std::floor(std::log10(std::abs(value))));
  if (std::abs(value / std::pow(10.0, e)) > kRoundsToTen) ++e;
  return fmt::format("{:.1f}E{:+d}", value / std::pow(10.0, e), e);
}

constexpr double kOff = 0.01;  // of a step, that a label may be
constexpr int kMostDecimals = 9;
constexpr double kNearlyTen = 1e-6;  // of a decade: 1e-4 in 4 bytes is a little less
constexpr std::size_t kPlain = 7;    // characters of a plain number that are nobody's trouble

// Of the values over 10^power.
int DecimalsFor(std::span<const float> values, double step, int power) {
  for (int decimals = 0; decimals < kMostDecimals; ++decimals) {
    const double unit = std::pow(10.0, power - decimals);
    const auto is_close = [&](float value) {
      const double v = static_cast<double>(value);
      return std::abs(std::round(v / unit) * unit - v) <= kOff * step;
    };
    if (std::all_of(values.begin(), values.end(), is_close)) return decimals;
  }
  return kMostDecimals;
}

std::size_t LongestLabel(std::span<const float> values, AxisFormat format) {
  std::size_t longest = 0;
  for (const float value : values) longest = std::max(longest, dgAxisLabel(value, format).size());
  return longest;
}

}  // namespace

AxisFormat dgAxisFormat(std::span<const float> values, float step) {
  double unit = std::abs(static_cast<double>(step));
  const auto [low, high] = std::minmax_element(values.begin(), values.end());
  if (!values.empty() && *low < *high)  // an axis may be shorter than a step
    unit = std::min(unit, static_cast<double>(*high) - static_cast<double>(*low));
  const AxisFormat plain = {DecimalsFor(values, unit, 0), 0};
  double largest = 0.0;
  for (const float value : values) largest = std::max(largest, std::abs(static_cast<double>(value)));
  if (!(largest > 0.0) || !std::isfinite(largest)) return plain;
  const int power = static_cast<int>(std::floor(std::log10(largest) + kNearlyTen));
  const AxisFormat with_power = {DecimalsFor(values, unit, power), power};
  const std::size_t length = LongestLabel(values, plain);
  return power == 0 || length <= kPlain || length <= LongestLabel(values, with_power) ? plain : with_power;
}

std::string dgAxisLabel(float value, AxisFormat format) {
  if (!std::isfinite(value)) return dgFormatNumber(value, 0);
  std::string text = fmt::format("{:.{}f}", static_cast<double>(value) / std::pow(10.0, format.power), format.decimals);
  const bool is_zero = text.find_first_of("123456789") == std::string::npos;
  if (is_zero && text.front() == '-') text.erase(0, 1);
  return format.power == 0 || is_zero ? text : fmt::format("{}E{:+d}", text, format.power);
}

std::string dgFormatNumber(float v, float c) {
  if (std::isnan(v)) return "NaN";
  if (std::isinf(v)) return v > 0.0F ? "Inf" : "-Inf";
  const float size = std::abs(v);
  if (v == 0.0F || size <= c) return " 0.00";
  if (size >= (v > 0.0F ? kLongest : kLongestNegative)) return PowerOfTen(v);
  const int decimals = v > 0.0F ? DecimalsOf(kPositive, size) : DecimalsOf(kNegative, size);
  if (decimals < 0) return PowerOfTen(v);
  std::string text = fmt::format("{:.{}f}", v, decimals);
  if (text.size() > 5) text.erase(text.find('0'), 1);  // the one ahead of the point
  return text;
}

}  // namespace zaview
