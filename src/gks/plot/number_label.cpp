#include "gks/plot/number_label.h"

#include <cmath>

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

}  // namespace

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
