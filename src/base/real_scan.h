// The fast road for histories: lists of 4-byte reals straight out of a block of text, by the rules of list_read.h
// (null items are 0: each list starts from zeros). Blank-separated plain numbers take a short path of ours, everything
// else the general one; both give the correctly rounded 4-byte value.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace zaview {

enum class ScanEnd : std::uint8_t {
  complete,   // all values read; `at` is behind the line that gave the last one
  more,       // the block ends inside the list (only if !last_block); nothing is taken
  file_end,   // the file ends inside the list
  error,      // `at` is the first byte of the item that is no number
  empty       // the file ends before the list begins (only blank lines are left)
};

struct ScanResult {
  ScanEnd end = ScanEnd::empty;
  const char* at = nullptr;
};

// One list of values.size() reals from [begin, finish). last_block: the file ends at finish.
[[nodiscard]] ScanResult ScanReals(const char* begin, const char* finish, bool last_block, std::span<float> values);

}  // namespace zaview
