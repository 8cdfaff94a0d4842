#include "frame/ground/output_file.h"

#include <fcntl.h>
#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "base/platform_posix.h"
#include "fake_platform.h"
#include "project_places.h"

namespace zaview {
namespace {

// d/t holds "older", then a fault is made, "new" is written; what d/t is then. Blank: there was none.
TEST(OutputFile, WhatIsLeftBehind) {
  using Fake = FakePlatform;
  const OpenHow replace = OpenHow::replace, append = OpenHow::append;
  const struct {
    const char* what;
    const char* before;
    void (*fault)(Fake& f);
    OpenHow how;
    bool opens, closes;
    std::string_view content;
  } cases[] = {
      {"new", "", [](Fake&) {}, replace, true, true, "new\n"},
      {"old replaced", "older", [](Fake&) {}, replace, true, true, "new\n"},
      {"appended", "older", [](Fake&) {}, append, true, true, "oldernew\n"},
      {"no directory", "", [](Fake& f) { f.directories.erase("d"); }, replace, false, false, "(no file)"},
      {"a directory", "", [](Fake& f) { f.Put("d/t/x", ""); }, append, false, false, "(no file)"},
      {"write-protected", "older", [](Fake& f) { f.files["d/t"].mode = 0444; }, replace, false, false, "older"},
      {"disk full", "older", [](Fake& f) { f.room = 2; }, replace, true, false, "older"},
      {"disk full, append", "older", [](Fake& f) { f.room = 2; }, append, true, false, "older"},
      {"disk full, appended to nothing", "", [](Fake& f) { f.room = 2; }, append, true, false, "(no file)"},
      {"close fails", "older", [](Fake& f) { f.close_fails = true; }, replace, false, false, "older"},
      {"rename fails", "older", [](Fake& f) { f.rename_fails = true; }, replace, true, false, "older"},
      {"folder takes no file", "older", [](Fake& f) { f.no_new_files_in = {"d"}; }, replace, true, true, "new\n"},
      {"nor a new target", "", [](Fake& f) { f.no_new_files_in = {"d"}; }, replace, false, false, "(no file)"},
      {"no handle left", "older", [](Fake& f) { f.no_handles = true; }, replace, false, false, "older"},
      {"a file that was read", "older", [](Fake& f) { f.read = {"d/t"}; }, replace, false, false, "older"},
      {"the same, append", "older", [](Fake& f) { f.read = {"d/t"}; }, append, false, false, "older"},
      {"a device keeps its content", "older", [](Fake& f) { f.files["d/t"].plain = false; }, replace, true, true,
       "oldernew\n"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    FakePlatform fake;
    fake.Put("d/other", "");
    if (*c.before != '\0') fake.Put("d/t", c.before);
    c.fault(fake);
    const std::size_t others = fake.files.size() - fake.files.count("d/t");
    const Platform platform = fake.Get();
    OutputFile out;
    EXPECT_EQ(OpenOutput(platform, "d/t", c.how, out), c.opens);
    if (c.opens) {
      WriteOutput(out, "new\n");
      EXPECT_EQ(CloseOutput(out), c.closes);
    }
    EXPECT_EQ(fake.Bytes("d/t"), c.content);
    EXPECT_EQ(fake.files.size() - fake.files.count("d/t"), others);  // no temporary is left
    EXPECT_EQ(fake.OpenHandles(), 0U);
  }
}

TEST(OutputFile, NothingShowsBeforeTheEnd) {
  FakePlatform fake;
  fake.Put("d/t", "old\n");
  const Platform platform = fake.Get();
  OutputFile out;
  ASSERT_TRUE(OpenOutput(platform, "d/t", OpenHow::replace, out));
  const std::string piece(300'000, 'x');
  WriteOutput(out, piece);
  WriteOutput(out, piece);
  EXPECT_EQ(fake.Bytes("d/t"), "old\n");
  ASSERT_TRUE(CloseOutput(out));
  for (const char* name : {"d/t", "d/u"}) {  // appending, given up
    ASSERT_TRUE(OpenOutput(platform, name, OpenHow::append, out));
    EXPECT_EQ(out.had_text, name[2] == 't');
    WriteOutput(out, "more");
    DiscardOutput(out);
  }
  EXPECT_EQ(fake.Bytes("d/t"), piece + piece);
  EXPECT_EQ(fake.Bytes("d/u"), "(no file)");
}

// Names of runs that were killed are passed by; where all are taken that is the reason, and the old file stays.
TEST(OutputFile, LeftOverNamesAreTold) {
  FakePlatform fake;
  for (int number = 0; number < 999; ++number) fake.Put(fmt::format("/d/.zaview-{}.part", number), "");
  fake.Put("/d/t", "old");
  const Platform platform = fake.Get();
  OutputFile out;
  EXPECT_TRUE(OpenOutput(platform, "/d/t", OpenHow::replace, out));
  EXPECT_EQ(out.why, "");
  DiscardOutput(out);
  fake.Put("/d/.zaview-999.part", "");
  EXPECT_FALSE(OpenOutput(platform, "/d/t", OpenHow::replace, out));
  EXPECT_EQ(out.why, "its folder is full of files .zaview-*.part of runs that were killed");
  EXPECT_EQ(fake.Bytes("/d/t"), "old");
  fake.why = "Permission denied";
  fake.refused = {"/d/t"};
  EXPECT_FALSE(OpenOutput(platform, "/d/t", OpenHow::replace, out));
  EXPECT_EQ(out.why, "Permission denied");
}

TEST(OutputFile, TwoOfOneFileAreTold) {
  const TemporaryFolder folder;
  const Platform platform = PosixPlatform();
  struct Case {
    const char* name;
    OpenHow how;
    bool spoils;
  };
  for (const Case& c : {Case{"/.//t", OpenHow::replace, true}, Case{"/t", OpenHow::append, true},
                        Case{"/u", OpenHow::replace, false}}) {
    OutputFile one, other;
    ASSERT_TRUE(OpenOutput(platform, folder.path + "/t", OpenHow::replace, one));
    ASSERT_TRUE(OpenOutput(platform, folder.path + c.name, c.how, other));
    EXPECT_EQ(SpoilEachOther(one, other), c.spoils) << c.name;
    DiscardOutput(one);
    DiscardOutput(other);
  }
}

TEST(OutputFile, RealFilesKeepModesLinksAndPipes) {
  const TemporaryFolder folder;
  const std::string& path = folder.path;
  const Platform platform = PosixPlatform();
  const auto write = [&](const std::string& name, OpenHow how, std::string_view text) {
    OutputFile out;
    if (!OpenOutput(platform, name, how, out)) return false;
    WriteOutput(out, text);
    return CloseOutput(out);
  };
  ASSERT_TRUE(write(path + "/t", OpenHow::replace, "one\n"));
  ::chmod((path + "/t").c_str(), 0600);
  std::filesystem::create_symlink("t", path + "/link");
  std::filesystem::create_symlink("later", path + "/dangling");
  ASSERT_TRUE(write(path + "/link", OpenHow::replace, "two\n"));
  ASSERT_TRUE(write(path + "/link", OpenHow::append, "three\n"));
  ASSERT_TRUE(write(path + "/dangling", OpenHow::replace, "four\n"));
  EXPECT_EQ(FileBytes(path + "/t") + FileBytes(path + "/later"), "two\nthree\nfour\n");
  for (const char* name : {"/link", "/dangling"}) EXPECT_TRUE(std::filesystem::is_symlink(path + name));
  struct stat facts {};
  ::stat((path + "/t").c_str(), &facts);
  EXPECT_EQ(facts.st_mode & 07777U, 0600U);
  EXPECT_FALSE(write(path, OpenHow::replace, "x"));
  EXPECT_FALSE(write(path + "/none/t", OpenHow::replace, "x"));
  EXPECT_TRUE(write("/dev/null", OpenHow::replace, "x"));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(path), {}), 4);

  ASSERT_EQ(::mkfifo((path + "/pipe").c_str(), 0600), 0);
  const int reader = ::open((path + "/pipe").c_str(), O_RDONLY | O_NONBLOCK);
  ASSERT_TRUE(write(path + "/pipe", OpenHow::replace, "through\n"));
  char got[16];
  EXPECT_EQ(::read(reader, got, sizeof got), 8);
  ::close(reader);
  EXPECT_TRUE(std::filesystem::is_fifo(path + "/pipe"));
}

}  // namespace
}  // namespace zaview
