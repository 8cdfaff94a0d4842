#include "base/real_scan.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <string_view>

#include "base/list_item.h"
#include "base/number_parse.h"

namespace zaview {
namespace {

// ---- The short path: sign, up to 19 digits with at most one point, exponent; then a blank or what else ends an item.

constexpr std::ptrdiff_t kPlainRoom = 64;   // bytes that PlainReal may look at
constexpr std::ptrdiff_t kMostDigits = 19;  // what 64 bits always hold
constexpr int kPowerReach = 60;
// Correctly rounded by the compiler.
constexpr std::array<double, 2 * kPowerReach + 1> kPowers = {
    1e-60, 1e-59, 1e-58, 1e-57, 1e-56, 1e-55, 1e-54, 1e-53, 1e-52, 1e-51, 1e-50, 1e-49, 1e-48, 1e-47, 1e-46, 1e-45,
    1e-44, 1e-43, 1e-42, 1e-41, 1e-40, 1e-39, 1e-38, 1e-37, 1e-36, 1e-35, 1e-34, 1e-33, 1e-32, 1e-31, 1e-30, 1e-29,
    1e-28, 1e-27, 1e-26, 1e-25, 1e-24, 1e-23, 1e-22, 1e-21, 1e-20, 1e-19, 1e-18, 1e-17, 1e-16, 1e-15, 1e-14, 1e-13,
    1e-12, 1e-11, 1e-10, 1e-9,  1e-8,  1e-7,  1e-6,  1e-5,  1e-4,  1e-3,  1e-2,  1e-1,  1e0,   1e1,   1e2,   1e3,
    1e4,   1e5,   1e6,   1e7,   1e8,   1e9,   1e10,  1e11,  1e12,  1e13,  1e14,  1e15,  1e16,  1e17,  1e18,  1e19,
    1e20,  1e21,  1e22,  1e23,  1e24,  1e25,  1e26,  1e27,  1e28,  1e29,  1e30,  1e31,  1e32,  1e33,  1e34,  1e35,
    1e36,  1e37,  1e38,  1e39,  1e40,  1e41,  1e42,  1e43,  1e44,  1e45,  1e46,  1e47,  1e48,  1e49,  1e50,  1e51,
    1e52,  1e53,  1e54,  1e55,  1e56,  1e57,  1e58,  1e59,  1e60};
constexpr std::array<std::uint64_t, 9> kTens = {1, 10, 100, 1'000, 10'000, 100'000, 1'000'000, 10'000'000, 100'000'000};

[[nodiscard]] unsigned DigitOf(char c) {
  return static_cast<unsigned>(static_cast<unsigned char>(c)) - '0';
}

[[nodiscard]] std::uint64_t EightCharacters(const char* p) {  // the first in the lowest byte
  std::uint64_t text = 0;
  std::memcpy(&text, p, sizeof text);
  return text;
}

// How many of eight characters are digits, up to the first that is none. A byte that is no digit gets its highest bit
// set by one of the two sums; carries reach only the bytes behind it.
[[nodiscard]] unsigned LeadingDigits(std::uint64_t text) {
  const std::uint64_t other = ((text + 0x4646464646464646U) | (text - 0x3030303030303030U)) & 0x8080808080808080U;
  return static_cast<unsigned>(std::countr_zero(other)) / 8;
}

// The first n (1 to 8) of eight characters as a number: pairs, then fours, then eight at a time.
[[nodiscard]] std::uint64_t FirstDigits(std::uint64_t text, unsigned n) {
  std::uint64_t v = (text ^ 0x3030303030303030U) << (64 - 8 * n);
  v = v * 10 + (v >> 8);
  constexpr std::uint64_t kPair = 0x000000FF000000FFU;
  return ((v & kPair) * 0x000F424000000064U + ((v >> 16) & kPair) * 0x0000271000000001U) >> 32;
}

// m * 10^exponent as the nearest 4-byte real. False where this can't be told from the product in double.
[[nodiscard]] bool NearestFloat(std::uint64_t m, int exponent, bool negative, float& value) {
  if (exponent < -kPowerReach || exponent > kPowerReach) return false;
  // Three roundings: the product is less than 3 units of its last place off. The 29 bits that a 4-byte real lacks tell
  // whether a midpoint of two such reals is that near.
  const double product = static_cast<double>(m) * kPowers[static_cast<std::size_t>(exponent + kPowerReach)];
  constexpr std::uint64_t kLackingBits = (1U << 29) - 1;
  constexpr std::uint64_t kMidpoint = 1U << 28;
  constexpr std::uint64_t kDoubt = 8;
  const std::uint64_t lacking = std::bit_cast<std::uint64_t>(product) & kLackingBits;
  if (lacking - (kMidpoint - kDoubt) <= 2 * kDoubt) return false;
  constexpr double kSmallestNormal = 1.18E-38;
  constexpr double kLargest = 3.40E38;
  if (m != 0 && !(product > kSmallestNormal && product < kLargest)) return false;
  value = static_cast<float>(negative ? -product : product);
  return true;
}

// Where the plain real at p ends; null if it is none or needs the general path. kPlainRoom bytes can be read at p.
[[nodiscard]] inline const char* PlainReal(const char* p, float& value) {
  const bool negative = *p == '-';
  if (negative || *p == '+') ++p;
  const char* const first = p;
  std::uint64_t m = 0;
  for (unsigned digit = DigitOf(*p); digit <= 9 && p - first <= kMostDigits; digit = DigitOf(*++p)) m = m * 10 + digit;
  std::ptrdiff_t digits = p - first;
  int exponent = 0;
  if (*p == '.') {
    const char* const fraction = ++p;
    for (int eights = 0; eights < 2; ++eights) {
      const std::uint64_t text = EightCharacters(p);
      const unsigned n = LeadingDigits(text);
      if (n == 0) break;
      m = m * kTens[n] + FirstDigits(text, n);
      p += n;
      if (n < 8) break;
    }
    exponent = -static_cast<int>(p - fraction);
    digits += p - fraction;
  }
  if (digits == 0 || digits > kMostDigits) return nullptr;
  if (*p == 'E' || *p == 'e' || *p == 'D' || *p == 'd') {
    ++p;
    const bool smaller = *p == '-';
    if (smaller || *p == '+') ++p;
    const char* const power = p;
    int e = 0;
    for (unsigned digit = DigitOf(*p); digit <= 9 && p - power < 3; digit = DigitOf(*++p))
      e = e * 10 + static_cast<int>(digit);
    if (p == power) return nullptr;
    exponent += smaller ? -e : e;
  }
  if (!EndsItem(*p) || !NearestFloat(m, exponent, negative, value)) return nullptr;
  return p;
}

// Takes plain reals apart by blanks and line ends as long as there are such. Returns where it stopped.
const char* TakePlainReals(const char* p, const char* finish, std::span<float> values, ListScan& list) {
  if constexpr (std::endian::native != std::endian::little) return p;
  if (finish - p < kPlainRoom) return p;
  const char* const last = finish - kPlainRoom;
  std::size_t given = list.given;
  while (given < values.size()) {
    while (p <= last && (*p == ' ' || *p == '\n')) ++p;
    if (p > last) break;
    const char* const behind = PlainReal(p, values[given]);
    if (behind == nullptr) break;
    p = behind;
    ++given;
  }
  if (given > list.given) {
    list.begun = true;
    list.comma = false;
    list.given = given;
  }
  return p;
}

// ---- The general path

void GiveValues(std::uint64_t repeat, float value, std::span<float> values, ListScan& list) {
  const auto n = static_cast<std::size_t>(std::min<std::uint64_t>(repeat, values.size() - list.given));
  std::fill_n(values.begin() + static_cast<std::ptrdiff_t>(list.given), n, value);
  list.given += n;
  list.begun = true;
}

// The item that begins at p: moves p behind it, or gives the reason why not. `complete` stands for "go on".
[[nodiscard]] ScanEnd TakeItem(const char*& p, const char* finish, bool last_block, std::span<float> values,
                               ListScan& list) {
  const char* const end = std::find_if(p, finish, EndsItem);
  const auto size = static_cast<std::size_t>(end - p);
  if (size > kLongestItem) return ScanEnd::error;
  if (end == finish && !last_block) return ScanEnd::more;
  const std::string_view token(p, size);
  RepeatedItem item;
  float value = 0;
  if (!SplitRepeat(token, item) || !(item.null || ParseFloat(item.value, value)))
    return end == finish && BeginsNumber(token) ? ScanEnd::file_end : ScanEnd::error;
  GiveValues(item.repeat, value, values, list);
  list.comma = false;
  p = end;
  return ScanEnd::complete;
}

// A separator, a slash or an item at p. `complete` stands for "go on".
[[nodiscard]] ScanEnd TakeNext(const char*& p, const char* finish, bool last_block, std::span<float> values,
                               ListScan& list) {
  switch (*p) {
    case ' ':
    case '\t':
    case '\n':
      break;
    case '\r':
      list.part = ListScan::Part::behind_return;
      break;
    case ',':
      if (list.comma) GiveValues(1, 0.0F, values, list);
      list.begun = list.comma = true;
      break;
    case '/':
      GiveValues(kManyItems, 0.0F, values, list);
      break;
    default:
      return TakeItem(p, finish, last_block, values, list);
  }
  ++p;
  return ScanEnd::complete;
}

// The block ends at a place where nothing is cut.
[[nodiscard]] ScanEnd EndOfBlock(bool last_block, const ListScan& list) {
  if (!last_block) return ScanEnd::more;
  if (list.part == ListScan::Part::last_line) return ScanEnd::complete;
  return list.begun ? ScanEnd::file_end : ScanEnd::empty;
}

}  // namespace

ScanResult ScanReals(const char* begin, const char* finish, bool last_block, std::span<float> values, ListScan& list) {
  const char* p = begin;
  for (;;) {
    if (list.part == ListScan::Part::items) p = TakePlainReals(p, finish, values, list);
    if (list.given == values.size()) list.part = ListScan::Part::last_line;
    if (p == finish) break;
    if (list.part == ListScan::Part::items) {
      const ScanEnd end = TakeNext(p, finish, last_block, values, list);
      if (end != ScanEnd::complete) return {end, p};
      continue;
    }
    const void* const line_end = std::memchr(p, '\n', static_cast<std::size_t>(finish - p));
    p = line_end == nullptr ? finish : static_cast<const char*>(line_end) + 1;
    if (line_end == nullptr) break;
    if (list.part == ListScan::Part::last_line) {
      list = {};
      return {ScanEnd::complete, p};
    }
    list.part = ListScan::Part::items;
  }
  const ScanEnd end = EndOfBlock(last_block, list);
  if (end == ScanEnd::complete) list = {};
  return {end, p};
}

}  // namespace zaview
