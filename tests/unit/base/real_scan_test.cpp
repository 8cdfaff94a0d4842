#include "base/real_scan.h"

#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace zaview {
namespace {

struct Scanned {
  ScanEnd end;
  std::vector<float> values;
  std::ptrdiff_t at;
};

// The text in pieces: each call sees `piece` bytes more, and what was not taken is shown again from its own buffer, so
// that a read outside of it shows under a sanitizer.
Scanned Scan(const std::string& text, std::size_t n, std::size_t piece) {
  Scanned out{ScanEnd::more, std::vector<float>(n, 77.0F), 0};
  ListScan list;
  std::size_t taken = 0, shown = std::min(piece, text.size());
  while (out.end == ScanEnd::more) {
    const std::vector<char> block(&text[taken], &text[shown]);
    const ScanResult result =
        ScanReals(block.data(), block.data() + block.size(), shown == text.size(), out.values, list);
    taken += static_cast<std::size_t>(result.at - block.data());
    out.end = result.end;
    shown = std::min(shown + piece, text.size());
  }
  out.at = static_cast<std::ptrdiff_t>(taken);
  return out;
}

TEST(RealScan, ListRules) {
  const float inf = std::numeric_limits<float>::infinity(), nan = std::nanf("");
  // clang-format off
  const struct {
    std::string text;
    ScanEnd end;
    std::vector<float> values;
    std::ptrdiff_t at;  // -1: the end of the text
  } cases[] = {
      {"\n \t\r\n 1\n\n2\t3 rest ! of line\nnext", ScanEnd::complete, {1, 2, 3}, 28},
      {"1,\n 2\n,3\n", ScanEnd::complete, {1, 2, 3}, -1}, {",2,,\n9", ScanEnd::complete, {0, 2, 0}, 5},
      {"2*1.5 4\n", ScanEnd::complete, {1.5F, 1.5F, 4}, -1},
      {"99999999999999999999999*-2 4\n5", ScanEnd::complete, {-2, -2, -2}, 29},
      {"1 2 \r 3\n4\n", ScanEnd::complete, {1, 2, 4}, -1}, {"1 2 3\r\n4", ScanEnd::complete, {1, 2, 3}, 7},
      {"1 -nan Inf\n", ScanEnd::complete, {1, nan, inf}, -1},
      {"1D2 1.5-3 .5\n", ScanEnd::complete, {100, 1.5E-3F, 0.5F}, -1}, {"1 2 3.5E-", ScanEnd::file_end, {1, 2}, 4},
      {"1 2 4*-.", ScanEnd::file_end, {1, 2}, 4}, {",", ScanEnd::file_end, {0}, -1},
      {" \n\t\n \r x", ScanEnd::empty, {}, -1}, {"1 **** 3\n", ScanEnd::error, {1}, 2},
      {"1 0*5 3\n", ScanEnd::error, {1}, 2}, {"1 1.5E 3\n", ScanEnd::error, {1}, 2},
      {"1 2*3*4 3\n", ScanEnd::error, {1}, 2}, {"1 1E39 3\n", ScanEnd::error, {1}, 2},
      {"1 ! 3\n", ScanEnd::error, {1}, 2},  // no comments in step records
  };
  // clang-format on
  for (const auto& c : cases) {
    const bool ends =
        c.end == ScanEnd::complete || c.end == ScanEnd::error;  // then more text may follow: the short path
    for (const std::size_t pad : {0U, ends && c.text.back() == '\n' ? 200U : 0U}) {
      for (const std::size_t piece : {1U, 3U, 1000U}) {
        const Scanned got = Scan(c.text + std::string(pad, ' '), 3, piece);
        EXPECT_EQ(got.end, c.end) << c.text;
        EXPECT_EQ(got.at, c.at < 0 ? static_cast<std::ptrdiff_t>(c.text.size()) : c.at) << c.text;
        for (std::size_t i = 0; i < c.values.size(); ++i)
          EXPECT_TRUE(got.values[i] == c.values[i] || (std::isnan(got.values[i]) && std::isnan(c.values[i])))
              << c.text << " value " << i << " is " << got.values[i];
      }
    }
  }
}

TEST(RealScan, LongItemsAndLines) {
  const std::string digits = "0." + std::string(100'000, '3') + " 2\n";
  EXPECT_EQ(Scan(digits, 2, 70'000).values, (std::vector<float>{1.0F / 3.0F, 2.0F}));
  const std::string line = "1 2" + std::string(300'000, 'x') + "\n";
  EXPECT_EQ(Scan(line, 1, 1000).at, static_cast<std::ptrdiff_t>(line.size()));
  EXPECT_EQ(Scan(std::string(1'000'002, '1') + " ", 1, 600'000).end, ScanEnd::error);
}

std::string Printed(int digits, double value) {
  char text[64];
  std::snprintf(text, sizeof text, "%.*E", digits, value);
  return text;
}

// Edges, each length of whole part and fraction, and texts beside the midpoints of neighbours, the last one nearly on
// it: as strtof of the C library.
TEST(RealScan, RoundsCorrectly) {
  std::vector<std::string> texts = {"16777217", "16777217.0", "16777219", "33554434",      "-0.0E5",
                                    "0E99",     "1.4E-45",    "7.0E-46",  "3.40282346E38", "1.17549421E-38"};
  for (int k = -60; k < 32; ++k)
    for (const char* mantissa : {"1", "9.999999999999999999", "0.00001", "1.8446744073709551615", "1234567.875"})
      texts.push_back(mantissa + ("E" + std::to_string(k)));
  for (std::size_t n = 1; n <= 25; ++n) {
    const std::string digits = std::string("1234567890123456789012345").substr(0, n);
    texts.insert(texts.end(), {digits, digits + ".", "." + digits, "-7." + digits, digits + "." + digits});
  }
  std::mt19937 random(3);
  std::uniform_int_distribution<std::uint32_t> bits(0, 0x7F7FFFFEU);  // 0 and all finite ones but the largest
  for (int i = 0; i < 20'000; ++i) {
    const std::uint32_t b = bits(random);
    const auto low = static_cast<double>(std::bit_cast<float>(b));
    const double middle = 0.5 * (low + static_cast<double>(std::bit_cast<float>(b + 1)));
    texts.insert(texts.end(), {Printed(i % 11, -low * 0.9), Printed(8, low)});
    for (const int digits : {15, 16, 17, 18, 45})
      for (const double towards : {middle, 0.0, 1E39})
        texts.push_back(Printed(digits, std::nextafter(middle, towards)));
  }

  std::string block;
  for (const std::string& text : texts) block += ' ' + text;
  block += '\n' + std::string(100, ' ');
  std::vector<float> values(texts.size());
  ListScan list;
  const ScanResult result = ScanReals(block.data(), block.data() + block.size(), false, values, list);
  ASSERT_EQ(result.end, ScanEnd::complete) << std::string(result.at, 30);
  for (std::size_t i = 0; i < texts.size(); ++i)
    ASSERT_EQ(std::bit_cast<std::uint32_t>(values[i]),
              std::bit_cast<std::uint32_t>(std::strtof(texts[i].c_str(), nullptr)))
        << texts[i] << " gave " << values[i];
}

}  // namespace
}  // namespace zaview
