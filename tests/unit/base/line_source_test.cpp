#include "base/line_source.h"

#include <algorithm>
#include <cstring>
#include <string>

#include <gtest/gtest.h>

namespace zaview {
namespace {

struct Bytes {  // a file or pipe that gives at most `most` bytes a time
  std::string text;
  std::size_t most = 1;
  std::size_t at = 0;
  Files files;
  BlockStream stream;
  LineSource source{&stream, 0, {}};
  explicit Bytes(std::string all, std::size_t most_at_once) : text(std::move(all)), most(most_at_once) {
    files.self = this;
    files.read = [](void* self, FileHandle, char* to, std::size_t size) {
      auto& me = *static_cast<Bytes*>(self);
      const std::size_t n = std::min({size, me.most, me.text.size() - me.at});
      std::memcpy(to, me.text.data() + me.at, n);
      me.at += n;
      return static_cast<std::int64_t>(n);
    };
    StartStream(stream, files, 0);
  }
};

TEST(LineSource, WhatStandsBehindAReturnIsDroppedInWhateverPieces) {
  for (const std::size_t most : {1U, 4U, 1000U}) {
    Bytes bytes(std::string("cr\rdropped\r\n\r\nnul") + '\0' + "x\nlast", most);
    std::string_view line;
    for (const std::string& expected :
         {std::string("cr"), std::string(), std::string("nul\0x", 5), std::string("last")})
      EXPECT_TRUE(NextRawLine(bytes.source, line) && line == expected) << line;
    EXPECT_FALSE(NextRawLine(bytes.source, line));
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
