#include "base/line_source.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace zaview {
namespace {

struct Bytes {  // a file or pipe that gives at most `most` bytes a time, then a fault if `broken`
  std::string text;
  std::size_t most = 1;
  bool broken = false;
  std::size_t at = 0;
  Files files;
  BlockStream stream;
  LineSource source{&stream, 0, {}};
  explicit Bytes(std::string all, std::size_t most_at_once) : text(std::move(all)), most(most_at_once) {
    files.self = this;
    files.read = [](void* self, FileHandle, char* to, std::size_t size) {
      auto& me = *static_cast<Bytes*>(self);
      const std::size_t n = std::min({size, me.most, me.text.size() - me.at});
      if (n == 0 && me.broken) return std::int64_t{-1};
      std::memcpy(to, me.text.data() + me.at, n);
      me.at += n;
      return static_cast<std::int64_t>(n);
    };
    StartStream(stream, files, 0);
  }
};

TEST(LineSource, LinesWhereTheyBeginAndFaults) {
  const std::string text = std::string("a b\n\ncr\rdropped\r\n\r\nnul") + '\0' + "x\nlast";
  const std::vector<std::string> expected = {"a b", "", "cr", "", std::string("nul\0x", 5), "last"};
  for (const std::size_t most : {std::size_t{1}, std::size_t{4}, std::size_t{1000}}) {
    Bytes bytes(text, most);
    bytes.broken = most == 4;  // a fault ends the file
    std::string_view line;
    for (std::size_t i = 0; i < expected.size(); ++i) {
      ASSERT_TRUE(NextRawLine(bytes.source, line));
      EXPECT_EQ(line, expected[i]);
      EXPECT_EQ(bytes.source.line_number, static_cast<std::int64_t>(i + 1));
      const auto behind = static_cast<std::size_t>(bytes.stream.offset);
      EXPECT_TRUE(i + 1 == expected.size() ? behind == text.size() : text[behind - 1] == '\n') << behind;
    }
    EXPECT_FALSE(NextRawLine(bytes.source, line));
    EXPECT_EQ(bytes.stream.fault, bytes.broken);
  }
}

TEST(LineSource, LongLinesAreKeptInPart) {
  Bytes bytes(std::string(3'000'000, 'x') + "\nshort\n", 100'000);
  std::string_view line;
  ASSERT_TRUE(NextRawLine(bytes.source, line));
  EXPECT_EQ(line, std::string(kKeptLine, 'x'));
  EXPECT_LT(bytes.stream.buffer.size(), 200'000U);  // the memory doesn't follow the line
  ASSERT_TRUE(NextRawLine(bytes.source, line));
  EXPECT_EQ(line, "short");
  EXPECT_EQ(bytes.stream.offset, 3'000'007);
}

}  // namespace
}  // namespace zaview
