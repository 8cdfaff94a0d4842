#include "frame/ground/file_dialogue.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "fake_platform.h"
#include "frame/ground/wildcards.h"

namespace zaview {
namespace {

// old.out and old.txt ("old") exist; "new" is written to the file that is chosen.
TEST(FileDialogue, Questions) {
  const FileQuestion in{FileUse::input, "File", ".out"}, out{FileUse::output, "File", ""};
  const FileQuestion console_out{FileUse::output, "File", "", FileForm::formatted, true};
  const std::string over = "File old.txt\nFile old.txt already exists\nOverwrite? (y/n/append)";
  const struct {
    FileQuestion question;
    std::string_view input, name;  // "quit" for aborted
    std::string output;
    std::string_view content;  // of old.txt
  } cases[] = {
      {in, "old\n", "old.out", "File old\n", "old\n"},
      {in, "none\n\nquit\n", "quit",
       "File none\nERROR - File none does not exist ... re-specify\nFile\n"
       " file specification aborted ... re-specify\nFile quit\n",
       "old\n"},
      {in, "", "quit", "File\n", "old\n"},
      {out, "old.txt\n?\nn\nnew.txt\n", "new.txt",
       over + " ?\nOverwrite? (y/n/append) n\n file not overwritten ... re-specify\nFile new.txt\n", "old\n"},
      {out, "old.txt\n", "quit", over + "\n", "old\n"},
      {out, "old.txt\ny\n", "old.txt", over + " y\n", "new\n"},
      {out, "old.txt\na\n", "old.txt", over + " a\n", "old\nnew\n"},
      {out, "old.txt append\n", "old.txt", "File old.txt append\n", "old\nnew\n"},
      {out, "no/where\nquit\n", "quit", "File no/where\nERROR opening file no/where ... re-specify\nFile quit\n",
       "old\n"},
      {console_out, "BLANK\n", "", "File BLANK\nnew\n", "old\n"},
      {out, "a b APPEND UNFORMATTED\n", "a b", "File a b APPEND UNFORMATTED\n", "old\n"},
  };
  for (const auto& c : cases) {
    FakePlatform fake;
    fake.Put("old.out", "");
    fake.Put("old.txt", "old\n");
    fake.Type(c.input);
    const Platform platform = fake.Get();
    ChosenFile chosen;
    const bool opened = OPNFIL(platform, c.question, chosen) == FileAnswer::opened;
    EXPECT_EQ(opened ? chosen.name : "quit", c.name);
    if (opened && c.question.use == FileUse::output) {
      WriteOutput(chosen.out, "new\n");
      EXPECT_TRUE(CloseOutput(chosen.out));
    }
    EXPECT_EQ(fake.output, c.output);
    EXPECT_EQ(fake.Bytes("old.txt"), c.content) << c.input;
  }
}

TEST(Wildcards, Matches) {
  for (const char* name : {"a*", "?", "x[a]"}) EXPECT_TRUE(has_wildcards(name)) << name;
  for (const char* name : {"[", "]a[", "a.out", ""}) EXPECT_FALSE(has_wildcards(name)) << name;
  FakePlatform fake;
  for (const char* name : {"run2.out", "run10.out", "Run.out", ".run.out", "run.outu", "s/a1.out", "s/b1.out",
                           "s/.c1.out", "t/a1.out", "/abs/x.out", "r[.out"})
    fake.Put(name, "");
  fake.directories.insert("run.d.out");
  // clang-format off
  const std::pair<const char*, const char*> cases[] = {
      {"run*.out", "run10.out run2.out"},  // by byte, no directory
      {"*.out", "Run.out r[.out run10.out run2.out"}, {".*.out", ".run.out"},
      {"?/[ab]1.out", "s/a1.out s/b1.out t/a1.out"}, {"s/[!a]*", "s/b1.out"}, {"/abs/*.out", "/abs/x.out"},
      {"run2.out/*", ""}, {"s/", ""},
      {"*r*r*r*r*r*u*u*u*u*n*n*n*n*1*1*1*0*0*0*.*.*.*o*o*o*u*u*t*t*b", ""},  // must not take for ever
  };
  // clang-format on
  for (const auto& [pattern, expected] : cases) {
    std::vector<std::string> names = {"left over"};
    list_matching_files(fake.Get().files, pattern, names);
    EXPECT_EQ(fmt::format("{}", fmt::join(names, " ")), expected) << pattern;
  }
}

}  // namespace
}  // namespace zaview
