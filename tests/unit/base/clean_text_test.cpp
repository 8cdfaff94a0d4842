#include "base/clean_text.h"

#include <gtest/gtest.h>

#include "fake_platform.h"

namespace zaview {
namespace {

TEST(CleanText, CommentsAndEnds) {
  const std::string long_line(300, 'x');
  const std::string kept = long_line.substr(0, 256) + "/";
  const struct {
    const char* rule;
    std::string bytes, full, clean;  // the lines that are expected, with a / behind each
    int first;                       // line number of the first clean one
  } cases[] = {
      {"comments in column 1 leave empty lines", "!a\n!\nb\n", "!a/!/b/", "b/", 3},
      {"quotes don't protect a comment sign", "a \"x!y\"\n", "a \"x!y\"/", "a \"x/", 1},
      {"a blank ahead of the sign is dropped with it", " !a\n", " !a/", " /", 1},
      {"END_OF_FILE in column 2 is text", " END_OF_FILE\nb\n", " END_OF_FILE/b/", " END_OF_FILE/b/", 1},
      {"END_OF_FILE needs no word end", "a\nEND_OF_FILES\nb\n", "a/", "a/", 1},
      {"lower case doesn't end", "end_of_file\n", "end_of_file/", "end_of_file/", 1},
      {"CR drops what stands behind it", "a\rb\r\n\rc\n", "a//", "a//", 1},
      {"a last line needs no end", "a\nb", "a/b/", "a/b/", 1},
      {"no text at all", "", "", "", 0},
      {"a long line is cut", long_line, kept, kept, 1},
  };
  FakePlatform fake;
  for (const auto& c : cases) {
    fake.Put("t", c.bytes);
    std::vector<std::string> full;
    std::vector<CleanLine> clean;
    ASSERT_EQ(CopyCleanText(fake.Get().files, "t", &full, clean), CleanFault::none);
    std::string full_text, clean_text;
    for (const std::string& line : full) full_text += line + "/";
    for (const CleanLine& line : clean) clean_text += line.text + "/";
    EXPECT_EQ(full_text, c.full) << c.rule;
    EXPECT_EQ(clean_text, c.clean) << c.rule;
    EXPECT_EQ(clean.empty() ? 0 : clean[0].number, c.first) << c.rule;
  }
  EXPECT_EQ(fake.OpenHandles(), 0U);
  std::vector<CleanLine> clean;
  EXPECT_EQ(CopyCleanText(fake.Get().files, "none", nullptr, clean), CleanFault::cannot_open);
  Files broken = fake.Get().files;
  broken.read = [](void*, FileHandle, char*, std::size_t) { return std::int64_t{-1}; };
  EXPECT_EQ(CopyCleanText(broken, "t", nullptr, clean), CleanFault::read_error) << "must not pass for a short text";
}

}  // namespace
}  // namespace zaview
