#include "base/number_format.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

namespace zaview {

namespace {

constexpr int kDigits = 7;
constexpr std::size_t kCellRoom = 48;  // more than any number takes

// 10^k for k = kLeastPower .. kLeastPower + size - 1, each the nearest double: what brings any 4-byte value between
// 10^6 and 10^7.
constexpr int kLeastPower = -32;
constexpr std::array<double, 85> kPowersOfTen = {
    1e-32, 1e-31, 1e-30, 1e-29, 1e-28, 1e-27, 1e-26, 1e-25, 1e-24, 1e-23, 1e-22, 1e-21, 1e-20, 1e-19, 1e-18,
    1e-17, 1e-16, 1e-15, 1e-14, 1e-13, 1e-12, 1e-11, 1e-10, 1e-9,  1e-8,  1e-7,  1e-6,  1e-5,  1e-4,  1e-3,
    1e-2,  1e-1,  1e0,   1e1,   1e2,   1e3,   1e4,   1e5,   1e6,   1e7,   1e8,   1e9,   1e10,  1e11,  1e12,
    1e13,  1e14,  1e15,  1e16,  1e17,  1e18,  1e19,  1e20,  1e21,  1e22,  1e23,  1e24,  1e25,  1e26,  1e27,
    1e28,  1e29,  1e30,  1e31,  1e32,  1e33,  1e34,  1e35,  1e36,  1e37,  1e38,  1e39,  1e40,  1e41,  1e42,
    1e43,  1e44,  1e45,  1e46,  1e47,  1e48,  1e49,  1e50,  1e51,  1e52};

double Scaled(double magnitude, int exponent) {
  return magnitude * kPowersOfTen[static_cast<std::size_t>(kDigits - 1 - exponent - kLeastPower)];
}

struct Decimal {
  std::uint32_t digits = 0;  // seven of them, 10^6 .. 10^7 - 1
  int exponent = 0;          // of the first digit
};

// The seven digits of a positive finite value. Scaling in double is wrong by less than 1e-8 of the last digit, so the
// rounding is certain unless the rest is that near to a half; false there.
bool ToSevenDigits(float value, Decimal& out) {
  constexpr double kUnsure = 1e-6;
  const double magnitude = static_cast<double>(value);
  const int binary = static_cast<int>(std::bit_cast<std::uint64_t>(magnitude) >> 52) - 1023;
  int exponent = (binary * 1233) >> 12;  // binary log10(2), rounded down: right or one too small
  double scaled = Scaled(magnitude, exponent);
  if (scaled >= 1e7) scaled = Scaled(magnitude, ++exponent);
  std::uint32_t digits = static_cast<std::uint32_t>(scaled);
  const double rest = scaled - static_cast<double>(digits);
  if (std::fabs(rest - 0.5) < kUnsure) return false;
  if (rest > 0.5) ++digits;
  if (digits == 10'000'000) {
    digits = 1'000'000;
    ++exponent;
  }
  out = {digits, exponent};
  return true;
}

constexpr auto kPairs = [] {
  std::array<char, 200> pairs{};
  for (std::size_t i = 0; i < 100; ++i) {
    pairs[2 * i] = static_cast<char>('0' + i / 10);
    pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
  }
  return pairs;
}();

void PutPair(char* to, std::uint32_t pair) {
  std::memcpy(to, &kPairs[2 * static_cast<std::size_t>(pair)], 2);
}

char* PutBytes(char* to, std::string_view bytes) {
  std::memcpy(to, bytes.data(), bytes.size());
  return to + bytes.size();
}

char* PutDecimal(char* to, const Decimal& decimal) {
  char text[kDigits];
  text[0] = static_cast<char>('0' + decimal.digits / 1'000'000);
  PutPair(text + 1, decimal.digits / 10'000 % 100);
  PutPair(text + 3, decimal.digits / 100 % 100);
  PutPair(text + 5, decimal.digits % 100);
  const std::string_view digits(text, kDigits);
  const int exponent = decimal.exponent;
  if (exponent >= 0 && exponent < kDigits) {
    const std::size_t whole = static_cast<std::size_t>(exponent) + 1;
    to = PutBytes(to, digits.substr(0, whole));
    *to++ = '.';
    return PutBytes(to, whole == kDigits ? std::string_view("0") : digits.substr(whole));
  }
  if (exponent < 0 && exponent >= -4) {
    to = PutBytes(to, std::string_view("0.000").substr(0, static_cast<std::size_t>(1 - exponent)));
    return PutBytes(to, digits);
  }
  *to++ = text[0];
  *to++ = '.';
  to = PutBytes(to, digits.substr(1));
  *to++ = 'E';
  *to++ = exponent < 0 ? '-' : '+';
  PutPair(to, static_cast<std::uint32_t>(std::abs(exponent)));
  return to + 2;
}

std::size_t PutCell(char* const to, float any) {
  const float value = Finite(any);
  if (value == 0.0F) return static_cast<std::size_t>(PutBytes(to, "0.000000") - to);
  Decimal decimal;
  if (!ToSevenDigits(std::fabs(value), decimal))
    return static_cast<std::size_t>(fmt::format_to(to, "{:#.7G}", value) - to);
  char* end = to;
  if (value < 0) *end++ = '-';
  end = PutDecimal(end, decimal);
  return static_cast<std::size_t>(end - to);
}

}  // namespace

float Finite(float value) {
  constexpr float kMost = std::numeric_limits<float>::max();
  return std::isnan(value) ? 0.0F : std::clamp(value, -kMost, kMost);
}

double Finite(double value) {
  constexpr double kMost = std::numeric_limits<double>::max();
  return std::isnan(value) ? 0.0 : std::clamp(value, -kMost, kMost);
}

void AppendCell(std::string& out, float value) {
  char cell[kCellRoom];
  out.append(cell, PutCell(cell, value));
}

void AppendPaddedCell(std::string& out, float value, int width) {
  char cell[kCellRoom];
  const std::size_t size = PutCell(cell, value);
  const std::size_t columns = static_cast<std::size_t>(std::max(width, 0));
  if (size < columns) out.append(columns - size, ' ');
  out.append(cell, size);
}

std::string SentenceNumber(float value) {
  return fmt::format("{:.7g}", Finite(value) + 0.0F);
}

std::string DefaultNumber(float value) {
  return fmt::format("{}", Finite(value) + 0.0F);
}

}  // namespace zaview
