// Lines of a file, read strictly forward through one buffer of blocks; never a mapped file. The source knows where
// each line begins, so that faults can be named and the step reader can go on behind the header.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/platform.h"

namespace zaview {

struct BlockStream {
  const Files* files = nullptr;
  FileHandle file = kNoFile;
  std::vector<char> buffer;  // bytes buffer[begin, end) are read and not yet taken
  std::size_t begin = 0;
  std::size_t end = 0;
  std::int64_t offset = 0;  // of buffer[begin] in the file
  bool at_end = false;      // no more bytes behind buffer[end)
  bool fault = false;       // a read failed: treated as the end, told by the caller
};

// Takes over an open file. Close is the caller's.
void StartStream(BlockStream& stream, const Files& files, FileHandle file);
// The bytes of a text in place of a file's.
void StartStream(BlockStream& stream, std::string_view text);

// Reads more behind buffer[end), first moving what is left to the front or growing the buffer to hold at least
// `room` more bytes. False if nothing more came. Memory running out counts as a fault.
bool FillStream(BlockStream& stream, std::size_t room);

struct LineSource {
  BlockStream* stream = nullptr;
  std::int64_t line_number = 0;  // of the line given last, from 1
  std::string line;              // the line given last, as far as it is kept
  bool again = false;            // set: the line given last is given once more
};

inline constexpr std::size_t kKeptLine = 1U << 20U;      // columns kept of a line; the rest is passed over
inline constexpr std::size_t kLongestLine = 64U << 20U;  // a longer one is no text: counts as a fault of the file

// The next raw line: up to LF, a CR and all behind it dropped; a last line without LF is a line. False at the end.
[[nodiscard]] bool NextRawLine(LineSource& source, std::string_view& line);

}  // namespace zaview
