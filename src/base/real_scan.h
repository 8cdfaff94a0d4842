// The fast road for histories: lists of 4-byte reals straight out of blocks of text, by the rules of list_read.h
// (null items are 0: each list starts from zeros). Blank-separated plain numbers take a short path of ours, everything
// else the general one; both give the correctly rounded 4-byte value.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace zaview {

enum class ScanEnd : std::uint8_t {
  complete,  // all values read; `at` is behind the line that gave the last one
  more,      // the block ends inside the list; what stands before `at` is taken, what is left is one cut item at most
  file_end,  // the file ends inside the list
  error,     // `at` is the first byte of the item that is no number
  empty      // the file ends before the list begins (only blank lines are left)
};

struct ScanResult {
  ScanEnd end = ScanEnd::empty;
  const char* at = nullptr;
};

struct ListScan {  // how far a list has come; a fresh one begins a list
  enum class Part : std::uint8_t { items, behind_return, last_line };
  Part part = Part::items;
  std::size_t given = 0;  // values so far
  bool begun = false;     // there was more than blank lines
  bool comma = true;      // a comma here stands for a null item
};

// One list of values.size() reals from [begin, finish), or what is left of it: after `more` call again with the bytes
// from `at` on and those behind them, the same values and list. last_block: the file ends at finish. Complete makes
// the list a fresh one.
[[nodiscard]] ScanResult ScanReals(const char* begin, const char* finish, bool last_block, std::span<float> values,
                                   ListScan& list);

}  // namespace zaview
