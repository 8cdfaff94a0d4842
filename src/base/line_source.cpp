#include "base/line_source.h"

#include <algorithm>
#include <cstring>

#include "base/grow.h"

namespace zaview {
namespace {

constexpr std::size_t kLineRoom = 65'536;  // bytes asked for at a time when reading by lines

}  // namespace

void StartStream(BlockStream& stream, const Files& files, FileHandle file) {
  stream = {};
  stream.files = &files;
  stream.file = file;
}

void StartStream(BlockStream& stream, std::string_view text) {
  stream = {};
  stream.buffer.assign(text.begin(), text.end());
  stream.end = text.size();
  stream.at_end = true;
}

bool FillStream(BlockStream& stream, std::size_t room) {
  if (stream.at_end) return false;
  const std::size_t left = stream.end - stream.begin;
  if (stream.begin > 0) std::memmove(stream.buffer.data(), stream.buffer.data() + stream.begin, left);
  stream.begin = 0;
  stream.end = left;
  if (stream.buffer.size() - left < room) {
    // Exactly what is asked for: doubling a large block would count as memory of the case.
    if (room > stream.buffer.max_size() - left || !Reserve(stream.buffer, left + room) ||
        !Grow(stream.buffer, left + room)) {
      stream.at_end = stream.fault = true;
      return false;
    }
  }
  const std::int64_t count =
      stream.files->read(stream.files->self, stream.file, stream.buffer.data() + left, stream.buffer.size() - left);
  if (count <= 0) {
    stream.at_end = true;
    stream.fault = count < 0;
    return false;
  }
  stream.end += static_cast<std::size_t>(count);
  return true;
}

bool NextRawLine(LineSource& source, std::string_view& line) {
  if (source.again) {
    source.again = false;
    line = source.line;
    return true;
  }
  BlockStream& stream = *source.stream;
  source.line.clear();
  bool any = false, returned = false;
  const std::int64_t begin = stream.offset;
  for (;;) {
    if (stream.offset - begin > static_cast<std::int64_t>(kLongestLine)) {
      stream.begin = stream.end;
      stream.at_end = stream.fault = true;
      return false;
    }
    if (stream.begin == stream.end && !FillStream(stream, kLineRoom)) break;
    any = true;
    const char* const text = stream.buffer.data() + stream.begin;
    const std::size_t available = stream.end - stream.begin;
    const void* const found = std::memchr(text, '\n', available);
    const std::size_t size =
        found == nullptr ? available : static_cast<std::size_t>(static_cast<const char*>(found) - text);
    if (!returned) {
      std::string_view piece(text, size);
      const std::size_t cut = piece.find('\r');
      returned = cut != std::string_view::npos;
      piece = piece.substr(0, std::min(cut, kKeptLine - source.line.size()));
      source.line.append(piece);
    }
    const std::size_t taken = size + (found == nullptr ? 0 : 1);
    stream.begin += taken;
    stream.offset += static_cast<std::int64_t>(taken);
    if (found != nullptr) break;
  }
  if (!any) return false;
  ++source.line_number;
  line = source.line;
  return true;
}

}  // namespace zaview
