#include "base/clean_text.h"

#include <gtest/gtest.h>

#include "fake_platform.h"

namespace zaview {
namespace {

struct CleanCase {
  const char* fault;               // that this row would catch
  std::string bytes, full, clean;  // the lines that are expected, with a / behind each
};

TEST(CleanText, CommentsAndEnds) {
  const std::string long_line(300, 'x');
  const std::string kept = long_line.substr(0, 256) + "/";
  const CleanCase cases[] = {
      {"comment in column 1 leaves an empty line",     "!a\nb\n",              "!a/b/",           "b/"             },
      {"quotes protect a comment sign",                "a \"x!y\"\n",          "a \"x!y\"/",      "a \"x/"         },
      {"a blank ahead of the sign is dropped with it", " !a\n",                " !a/",            " /"             },
      {"END_OF_FILE in column 2 ends",                 " END_OF_FILE\nb\n",    " END_OF_FILE/b/", " END_OF_FILE/b/"},
      {"END_OF_FILE needs a word end",                 "a\nEND_OF_FILES\nb\n", "a/",              "a/"             },
      {"lower case ends",                              "end_of_file\n",        "end_of_file/",    "end_of_file/"   },
      {"CR keeps what stands behind it",               "a\rb\r\n\rc\n",        "a//",             "a//"            },
      {"a last line without its end is lost",          "a\nb",                 "a/b/",            "a/b/"           },
      {"no text at all",                               "",                     "",                ""               },
      {"a long line runs over",                        long_line,              kept,              kept             },
  };
  for (const CleanCase& c : cases) {
    FakePlatform fake;
    fake.Put("t", c.bytes);
    std::vector<std::string> full;
    std::vector<CleanLine> clean;
    ASSERT_EQ(CopyCleanText(fake.Get().files, "t", &full, clean), CleanFault::none);
    std::string full_text;
    std::string clean_text;
    for (const std::string& line : full) full_text += line + "/";
    for (const CleanLine& line : clean) clean_text += line.text + "/";
    EXPECT_EQ(full_text, c.full) << c.fault;
    EXPECT_EQ(clean_text, c.clean) << c.fault;
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

  Files broken = fake.Get().files;
  broken.read = [](void*, FileHandle, char*, std::size_t) { return std::int64_t{-1}; };
  EXPECT_EQ(CopyCleanText(broken, "t", nullptr, clean), CleanFault::read_error) << "must not pass for a short text";
}

}  // namespace
}  // namespace zaview
