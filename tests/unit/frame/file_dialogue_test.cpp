#include "frame/file_dialogue.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "fake_platform.h"
#include "frame/file_units.h"
#include "frame/wildcards.h"

namespace zaview {
namespace {

struct DialogueCase {
  FileQuestion question;
  std::string_view input;
  FileAnswer answer;
  std::string_view name;
  std::string_view output;
};

// old.out and old.txt ("old") exist. What is written is "new".
TEST(FileDialogue, Questions) {
  const FileQuestion in{FileUse::input, "Enter file", ".out"};
  const FileQuestion out{FileUse::output, "Enter file", ""};
  const FileQuestion console_out{FileUse::output, "Enter file", "", FileForm::formatted, true};
  const FileQuestion form{FileUse::output, "Enter file", "", FileForm::asked};
  const DialogueCase cases[] = {
      {in,          "old\n",                    FileAnswer::opened,  "old.out", "Enter file old\n"                   },
      {in,          "none\n\nquit\n",           FileAnswer::aborted, "",
       "Enter file none\nERROR - File none does not exist ... re-specify\nEnter file\n"
       " file specification aborted ... re-specify\nEnter file quit\n"                                               },
      {in,          "",                         FileAnswer::aborted, "",        "Enter file\n"                       },
      {out,         "old.txt\n?\nn\nnew.txt\n", FileAnswer::opened,  "new.txt",
       "Enter file old.txt\nFile old.txt already exists\nOverwrite? (y/n/append) ?\nOverwrite? (y/n/append) n\n"
       " file not overwritten ... re-specify\nEnter file new.txt\n"                                                  },
      {out,         "old.txt\n",                FileAnswer::aborted, "",
       "Enter file old.txt\nFile old.txt already exists\nOverwrite? (y/n/append)\n"                                  },
      {out,         "no/where\nquit\n",         FileAnswer::aborted, "",
       "Enter file no/where\nERROR opening file no/where ... re-specify\nEnter file quit\n"                          },
      {console_out, "BLANK\n",                  FileAnswer::opened,  "",        "Enter file BLANK\n"                 },
      {form,        "a b\nx\nu\n",              FileAnswer::opened,  "a b",
       "Enter file a b\nFormatted or Unformatted file? (F/U) x\nFormatted or Unformatted file? (F/U) u\n"            },
      {form,        "a b APPEND UNFORMATTED\n", FileAnswer::opened,  "a b",     "Enter file a b APPEND UNFORMATTED\n"},
      {form,        "APPEND\nF\n",              FileAnswer::opened,  "APPEND",
       "Enter file APPEND\nFormatted or Unformatted file? (F/U) F\n"                                                 },
  };
  for (const DialogueCase& c : cases) {
    FakePlatform fake;
    fake.Put("old.out", "");
    fake.Put("old.txt", "old\n");
    fake.Type(c.input);
    const Platform platform = fake.Get();
    ChosenFile chosen;
    EXPECT_EQ(OPNFIL(platform, c.question, chosen), c.answer);
    EXPECT_EQ(c.answer == FileAnswer::opened ? chosen.name : "", c.name);
    EXPECT_EQ(fake.output, c.output);
    DiscardOutput(chosen.out);
    EXPECT_EQ(fake.Bytes("old.txt"), "old\n");
  }
}

TEST(FileDialogue, OverwriteAnswers) {
  const struct {
    std::string_view input;
    std::string_view content;
  } cases[] = {
      {"old.txt\ny\n",     "new\n"     },
      {"old.txt\na\n",     "old\nnew\n"},
      {"old.txt append\n", "old\nnew\n"}
  };
  for (const auto& c : cases) {
    FakePlatform fake;
    fake.Put("old.txt", "old\n");
    fake.Type(c.input);
    const Platform platform = fake.Get();
    ChosenFile chosen;
    ASSERT_EQ(OPNFIL(platform, {FileUse::output, "?", ""}, chosen), FileAnswer::opened);
    WriteOutput(chosen.out, "new\n");
    EXPECT_TRUE(CloseOutput(chosen.out));
    EXPECT_EQ(fake.Bytes("old.txt"), c.content);
  }
}

TEST(FileDialogue, ProgrammingErrorsAreTold) {
  FakePlatform fake;
  const Platform platform = fake.Get();
  ChosenFile chosen;
  EXPECT_EQ(OPNFIL(platform, {static_cast<FileUse>(3), "?", ""}, chosen), FileAnswer::aborted);
  OutputFile out;
  EXPECT_FALSE(OPNAUX(platform, "x", static_cast<AuxiliaryMode>(9), out));
  EXPECT_EQ(fake.output,
            "Programming ERROR - invalid INOUT= 3 in OPNFIL\n    contact program developer\n"
            "LOGIC ERROR - invalid INIT in OPNAUX\n");
}

TEST(FileDialogue, AuxiliaryModes) {
  FakePlatform fake;
  fake.Put("old", "old");
  const Platform platform = fake.Get();
  OutputFile out;
  EXPECT_FALSE(OPNAUX(platform, "old", AuxiliaryMode::create, out));
  ASSERT_TRUE(OPNAUX(platform, "old", AuxiliaryMode::append, out));
  WriteOutput(out, "+");
  ASSERT_TRUE(CloseOutput(out));
  EXPECT_EQ(fake.Bytes("old"), "old+");
  ASSERT_TRUE(OPNAUX(platform, "old", AuxiliaryMode::replace, out));
  ASSERT_TRUE(CloseOutput(out));
  EXPECT_EQ(fake.Bytes("old"), "");
}

TEST(FileUnits, PoolRunsOutAndRefills) {
  FakePlatform fake;
  const Console console = fake.Get().console;
  FileUnits units;
  std::array<int, 90> pool{};
  UNITLIST(console, units, pool);
  EXPECT_EQ(fake.output, "");
  std::array<int, 2> more{};
  UNITLIST(console, units, more);
  EXPECT_EQ(more[0], pool.back() + 1);
  EXPECT_EQ(more[1], more[0] + 1);
  EXPECT_EQ(fake.output, "WRN??? - Ran out of I/O Unit numbers\nWRN??? - Ran out of I/O Unit numbers\n");
  FreeUnit(units, pool[17]);
  UNITLIST(console, units, std::span(more).first(1));
  EXPECT_EQ(more[0], pool[17]);
}

TEST(Wildcards, WhatIsOne) {
  const struct {
    std::string_view name;
    bool wild;
  } cases[] = {
      {"a*",    true },
      {"?",     true },
      {"x[a]",  true },
      {"[",     false},
      {"]a[",   false},
      {"a.out", false},
      {"",      false}
  };
  for (const auto& c : cases) EXPECT_EQ(has_wildcards(c.name), c.wild) << c.name;
}

TEST(Wildcards, Matches) {
  FakePlatform fake;
  for (const char* name : {"run2.out", "run10.out", "Run.out", ".run.out", "run.outu", "s/a1.out", "s/b1.out",
                           "s/.c1.out", "t/a1.out", "/abs/x.out", "r[.out"})
    fake.Put(name, "");
  fake.directories.insert("run.d.out");
  const struct {
    const char* pattern;
    std::string_view names;  // joined
  } cases[] = {
      {"run*.out",                                                     "run10.out run2.out"                        }, // by byte, no directory
      {"*.out",                                                        "Run.out r[.out run10.out run2.out"         },
      {".*.out",                                                       ".run.out"                                  },
      {"?/[ab]1.out",                                                  "s/a1.out s/b1.out t/a1.out"                },
      {"s/[!a]*",                                                      "s/b1.out"                                  },
      {"/abs/*.out",                                                   "/abs/x.out"                                },
      {"run2.out/*",                                                   ""                                          },
      {"s/",                                                           ""                                          },
      {"*",                                                            "Run.out r[.out run.outu run10.out run2.out"},
      {"*r*r*r*r*r*u*u*u*u*n*n*n*n*1*1*1*0*0*0*.*.*.*o*o*o*u*u*t*t*b", ""                                          }, // must not take for ever
  };
  for (const auto& c : cases) {
    std::vector<std::string> names = {"left over"};
    list_matching_files(fake.Get().files, c.pattern, names);
    EXPECT_EQ(fmt::format("{}", fmt::join(names, " ")), c.names) << c.pattern;
  }
}

}  // namespace
}  // namespace zaview
