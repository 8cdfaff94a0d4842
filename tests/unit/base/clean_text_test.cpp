#include "base/clean_text.h"

#include <gtest/gtest.h>

#include "fake_platform.h"

namespace zaview {
namespace {

struct CleanCase {
  const char* fault;  // that this row would catch
  std::string bytes;
  std::vector<std::string> full, clean;
};

TEST(CleanText, CommentsAndEnds) {
  const CleanCase cases[] = {
      {"comment in column 1 leaves an empty line", "!a\nb\n", {"!a", "b"}, {"b"}},
      {"quotes protect a comment sign", "a \"x!y\"\n", {"a \"x!y\""}, {"a \"x"}},
      {"a blank ahead of the sign is dropped with it", " !a\n", {" !a"}, {" "}},
      {"END_OF_FILE in column 2 ends", " END_OF_FILE\nb\n", {" END_OF_FILE", "b"}, {" END_OF_FILE", "b"}},
      {"END_OF_FILE with more behind it", "a\nEND_OF_FILES\nb\n", {"a"}, {"a"}},
      {"lower case ends", "end_of_file\n", {"end_of_file"}, {"end_of_file"}},
      {"CR keeps what stands behind it", "a\rb\r\n\rc\n", {"a", ""}, {"a", ""}},
      {"a last line without its end is lost", "a\nb", {"a", "b"}, {"a", "b"}},
      {"no text at all", "", {}, {}},
      {"a long line runs over", std::string(300, 'x') + "\n", {std::string(256, 'x')}, {std::string(256, 'x')}},
  };
  for (const CleanCase& c : cases) {
    FakePlatform fake;
    fake.Put("t", c.bytes);
    std::vector<std::string> full;
    std::vector<std::string> texts;
    std::vector<CleanLine> clean;
    ASSERT_EQ(CopyCleanText(fake.Get().files, "t", &full, clean), CleanFault::none);
    for (const CleanLine& line : clean) texts.push_back(line.text);
    EXPECT_EQ(full, c.full) << c.fault;
    EXPECT_EQ(texts, c.clean) << c.fault;
    EXPECT_EQ(fake.OpenHandles(), 0U);
  }
}

TEST(CleanText, LineNumbersAndMissingFile) {
  FakePlatform fake;
  fake.Put("t", "!\n!\nfirst\n");
  std::vector<CleanLine> clean;
  ASSERT_EQ(CopyCleanText(fake.Get().files, "t", nullptr, clean), CleanFault::none);
  ASSERT_EQ(clean.size(), 1U);
  EXPECT_EQ(clean[0].number, 3);
  EXPECT_EQ(CopyCleanText(fake.Get().files, "none", nullptr, clean), CleanFault::cannot_open);
}

}  // namespace
}  // namespace zaview
