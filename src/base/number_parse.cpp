#include "base/number_parse.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <fast_float/fast_float.h>
#include <iterator>
#include <limits>
#include <string_view>

#include "base/text.h"

namespace zaview {
namespace {

// More digits than any midpoint of neighbouring doubles has (767). What stands behind them can only tell "exactly
// this" from "a little more", so one further digit 1 stands for all of it.
constexpr std::size_t kKeptDigits = 800;
constexpr std::int64_t kFarExponent = 100'000;  // beyond this a value is 0 or too large, whatever its digits
constexpr double kLargest = 3.4028235E38;

struct Decimal {  // value = (-1)^negative * digits[0, count) * 10^exponent, the first digit is not 0
  bool negative = false;
  std::size_t count = 0;
  std::int64_t exponent = 0;
  char digits[kKeptDigits + 1];  // deliberate: not cleared, only the first `count` are looked at
};
constexpr std::size_t kExponentText = 16;

[[nodiscard]] bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}
[[nodiscard]] bool IsSign(char c) {
  return c == '+' || c == '-';
}
[[nodiscard]] bool IsExponentLetter(char c) {
  return c == 'E' || c == 'e' || c == 'D' || c == 'd';
}

// Digits with at most one point from text[i] on; leaves i behind them. False if there is no digit.
bool TakeDigits(std::string_view text, std::size_t& i, Decimal& d) {
  bool any = false, point = false, rest = false;
  for (; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '.' && !point) {
      point = true;
      continue;
    }
    if (!IsDigit(c)) break;
    any = true;
    if (point) --d.exponent;
    if (d.count == 0 && c == '0') continue;
    if (d.count < kKeptDigits) {
      d.digits[d.count++] = c;
    } else {
      ++d.exponent;
      rest |= c != '0';
    }
  }
  if (rest) {
    d.digits[d.count++] = '1';
    --d.exponent;
  }
  return any;
}

// The exponent that text[i] begins, up to the end of the text. False if this is none.
bool TakeExponent(std::string_view text, std::size_t i, Decimal& d) {
  if (IsExponentLetter(text[i])) ++i;
  else if (!IsSign(text[i])) return false;
  const bool negative = i < text.size() && text[i] == '-';
  if (i < text.size() && IsSign(text[i])) ++i;
  if (i == text.size()) return false;
  std::int64_t e = 0;
  for (; i < text.size(); ++i) {
    if (!IsDigit(text[i])) return false;
    // Larger than any count of digits in memory: a long string of zeros may still bring it back.
    if (e < std::numeric_limits<std::int64_t>::max() / 16) e = e * 10 + (text[i] - '0');
  }
  d.exponent += negative ? -e : e;
  return true;
}

bool TakeDecimal(std::string_view token, Decimal& d) {
  std::size_t i = 0;
  if (!token.empty() && IsSign(token[0])) {
    d.negative = token[0] == '-';
    i = 1;
  }
  if (!TakeDigits(token, i, d)) return false;
  return i == token.size() || TakeExponent(token, i, d);
}

template <typename Real>
Real Magnitude(const Decimal& d) {
  if (d.count == 0) return 0;
  char text[sizeof d.digits + kExponentText];
  char* end = std::copy_n(d.digits, d.count, text);
  *end++ = 'E';
  end = std::to_chars(end, std::end(text), std::clamp(d.exponent, -kFarExponent, kFarExponent)).ptr;
  Real value = 0;
  fast_float::from_chars(text, end, value);  // too small gives 0, too large infinity
  return value;
}

// NaN, Inf, Infinity with an optional sign.
template <typename Real>
bool TakeSpecial(std::string_view token, Real& value) {
  const bool negative = !token.empty() && token[0] == '-';
  if (!token.empty() && IsSign(token[0])) token.remove_prefix(1);
  if (token.size() != 3 && token.size() != 8) return false;
  const std::string word = Capitals(token);
  if (word == "NAN") value = std::numeric_limits<Real>::quiet_NaN();
  else if (word == "INF" || word == "INFINITY") value = std::numeric_limits<Real>::infinity();
  else return false;
  if (negative) value = -value;
  return true;
}

template <typename Real>
bool ParseReal(std::string_view token, Real& value) {
  Decimal d;
  if (!TakeDecimal(token, d)) return TakeSpecial(token, value);
  const Real magnitude = Magnitude<Real>(d);
  // Just above the limit a text still rounds to the largest 4-byte real: only the double shows it.
  if (magnitude >= static_cast<Real>(kLargest) && Magnitude<double>(d) > kLargest) return false;
  value = d.negative ? -magnitude : magnitude;
  return true;
}

}  // namespace

bool ParseFloat(std::string_view token, float& value) {
  return ParseReal(token, value);
}

bool ParseDouble(std::string_view token, double& value) {
  return ParseReal(token, value);
}

bool ParseInteger(std::string_view token, int& value) {
  Decimal d;
  if (!TakeDecimal(token, d)) return false;
  while (d.count > 0 && d.digits[d.count - 1] == '0') {
    --d.count;
    ++d.exponent;
  }
  if (d.count == 0) {
    value = 0;
    return true;
  }
  constexpr std::int64_t kIntDigits = 10;
  const auto count = static_cast<std::int64_t>(d.count);
  if (d.exponent < 0 || d.exponent > kIntDigits || count + d.exponent > kIntDigits) return false;
  std::int64_t whole = 0;
  for (std::size_t i = 0; i < d.count; ++i) whole = whole * 10 + (d.digits[i] - '0');
  for (std::int64_t i = 0; i < d.exponent; ++i) whole *= 10;
  if (d.negative) whole = -whole;
  if (whole < std::numeric_limits<int>::min() || whole > std::numeric_limits<int>::max()) return false;
  value = static_cast<int>(whole);
  return true;
}

namespace {

// Where the number at text[i] ends, i itself if none begins there. What is left without digits behind an exponent
// letter belongs to the number, but not to its value: value_end is before it.
std::size_t NumberEnd(std::string_view text, std::size_t i, std::size_t& value_end) {
  const std::size_t begin = i;
  const auto digit_at = [text](std::size_t k) { return k < text.size() && IsDigit(text[k]); };
  if (IsSign(text[i])) ++i;
  if (!digit_at(i) && !(i < text.size() && text[i] == '.' && digit_at(i + 1))) return begin;
  while (digit_at(i)) ++i;
  if (i < text.size() && text[i] == '.') ++i;
  while (digit_at(i)) ++i;
  value_end = i;
  if (i == text.size() || !IsExponentLetter(text[i])) return i;
  ++i;
  if (i < text.size() && IsSign(text[i])) ++i;
  if (!digit_at(i)) return i;
  while (digit_at(i)) ++i;
  value_end = i;
  return i;
}

}  // namespace

ParseEnd parse_real(std::string_view text, std::size_t& position, double& value) {
  for (std::size_t i = position; i < text.size(); ++i) {
    std::size_t value_end = i;
    const std::size_t end = NumberEnd(text, i, value_end);
    if (end == i) continue;
    if (!ParseDouble(text.substr(i, value_end - i), value)) return ParseEnd::none;  // too large for anything here
    position = end;
    return IsBlank(text.substr(end)) ? ParseEnd::end : ParseEnd::more;
  }
  return ParseEnd::none;
}

double AsWritten(float value) {
  constexpr std::size_t kLongestFloat = 32;  // more characters than any shortest text has
  char text[kLongestFloat];
  const char* const end = std::to_chars(text, std::end(text), value).ptr;
  double number = value;
  std::from_chars(text, end, number);
  return number;
}

int RoundToInt(double value) {
  if (std::isnan(value)) return 0;
  const double nearest = std::round(value);
  if (nearest >= static_cast<double>(std::numeric_limits<int>::max())) return std::numeric_limits<int>::max();
  if (nearest <= static_cast<double>(std::numeric_limits<int>::min())) return std::numeric_limits<int>::min();
  return static_cast<int>(nearest);
}

}  // namespace zaview
