#include "base/large_pages.h"

#include <algorithm>
#include <cstdint>

#include <gtest/gtest.h>

namespace zaview {
namespace {

// Rooms of all sizes, half of them filled, in any order and lying in one another: nothing that they hold may change.
TEST(LargePages, WhatIsThereStays) {
  std::vector<std::vector<std::uint32_t>> columns;
  std::vector<Room> rooms;
  for (const std::size_t n : {0U, 1U, 1000U, 40'000U, 600'000U, 33'000U, 3'000'000U, 33'000U, 33'000U}) {
    columns.emplace_back().reserve(n);
    for (std::uint32_t i = 0; i < n / 2; ++i) columns.back().push_back(i * 2'654'435'761U);
    rooms.insert(rooms.begin(), {columns.back().data(), n * sizeof(std::uint32_t)});
  }
  rooms.push_back({columns[6].data() + 1000, 1});
  rooms.push_back({});
  for (int i = 0; i < 2; ++i) UseLargePages(rooms);
  EXPECT_TRUE(std::is_sorted(rooms.begin(), rooms.end(),
                             [](const Room& a, const Room& b) { return std::less<>()(a.begin, b.begin); }));
  for (std::vector<std::uint32_t>& column : columns) {
    column.resize(column.capacity() / 2 * 2, 7);
    for (std::uint32_t i = 0; i < column.size(); ++i)
      ASSERT_EQ(column[i], i < column.size() / 2 ? i * 2'654'435'761U : 7U);
  }
}

TEST(LargePages, TooManyBytesAreLeftAlone) {
  const char byte = 1;
  std::vector<Room> rooms = {{&byte, SIZE_MAX / 2}, {&byte, SIZE_MAX / 2}, {&byte, SIZE_MAX}};
  UseLargePages(rooms);
  EXPECT_EQ(byte, 1);
}

}  // namespace
}  // namespace zaview
