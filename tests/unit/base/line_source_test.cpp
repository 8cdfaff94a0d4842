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
  }
};

TEST(LineSource, LinesAndWhereTheyBegin) {
  const std::string text = std::string("a b\n\ncr\rdropped\r\n\r\nnul") + '\0' + "x\nlast";
  const std::vector<std::string> expected = {"a b", "", "cr", "", std::string("nul\0x", 5), "last"};
  for (const std::size_t most : {std::size_t{1}, std::size_t{4}, std::size_t{1000}}) {
    Bytes bytes(text, most);
    BlockStream stream;
    StartStream(stream, bytes.files, 0);
    LineSource source{&stream, 0, {}};
    std::string_view line;
    for (std::size_t i = 0; i < expected.size(); ++i) {
      ASSERT_TRUE(NextRawLine(source, line));
      EXPECT_EQ(line, expected[i]);
      EXPECT_EQ(source.line_number, static_cast<std::int64_t>(i + 1));
      const std::size_t behind = i + 1 == expected.size() ? text.size() : static_cast<std::size_t>(stream.offset);
      EXPECT_EQ(static_cast<std::size_t>(stream.offset), behind);
      if (behind < text.size()) {
        EXPECT_EQ(text[behind - 1], '\n');
      }
    }
    EXPECT_FALSE(NextRawLine(source, line));
    EXPECT_FALSE(stream.fault);
  }
}

TEST(LineSource, LongLinesAreKeptInPart) {
  Bytes bytes(std::string(3'000'000, 'x') + "\nshort\n", 100'000);
  BlockStream stream;
  StartStream(stream, bytes.files, 0);
  LineSource source{&stream, 0, {}};
  std::string_view line;
  ASSERT_TRUE(NextRawLine(source, line));
  EXPECT_EQ(line, std::string(kKeptLine, 'x'));
  EXPECT_LT(stream.buffer.size(), 200'000U);  // the memory doesn't follow the line
  ASSERT_TRUE(NextRawLine(source, line));
  EXPECT_EQ(line, "short");
  EXPECT_EQ(stream.offset, 3'000'007);
}

TEST(LineSource, FaultsEndTheFile) {
  Bytes bytes("one\ntw", 1000);
  bytes.broken = true;
  BlockStream stream;
  StartStream(stream, bytes.files, 0);
  LineSource source{&stream, 0, {}};
  std::string_view line;
  EXPECT_TRUE(NextRawLine(source, line) && line == "one");
  EXPECT_TRUE(NextRawLine(source, line) && line == "tw");
  EXPECT_FALSE(NextRawLine(source, line));
  EXPECT_TRUE(stream.fault && stream.at_end);
}

TEST(LineSource, FillKeepsWhatIsNotTaken) {
  Bytes bytes("0123456789", 4);
  BlockStream stream;
  StartStream(stream, bytes.files, 0);
  ASSERT_TRUE(FillStream(stream, 8));
  stream.begin += 3;
  stream.offset += 3;
  ASSERT_TRUE(FillStream(stream, 8));
  EXPECT_EQ(std::string(stream.buffer.data() + stream.begin, stream.buffer.data() + stream.end), "34567");
  EXPECT_EQ(stream.offset, 3);
  EXPECT_TRUE(FillStream(stream, 1));
  EXPECT_FALSE(FillStream(stream, 1));
  EXPECT_TRUE(stream.at_end && !stream.fault);
}

}  // namespace
}  // namespace zaview
