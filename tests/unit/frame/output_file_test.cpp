#include "frame/output_file.h"

#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "base/platform_posix.h"
#include "fake_platform.h"

namespace zaview {
namespace {

struct OutputCase {
  const char* what;
  void (*prepare)(FakePlatform& fake);
  OpenHow how;
  bool opens, closes;
  std::string_view content;  // of d/t at the end
};

TEST(OutputFile, WhatIsLeftBehind) {
  const OutputCase cases[] = {
      {"new",                            [](FakePlatform& f) { f.Put("d/other", ""); },                                 OpenHow::replace, true,  true,  "new\n"      },
      {"old replaced",                   [](FakePlatform& f) { f.Put("d/t", "old\n"); },                                OpenHow::replace, true,  true,  "new\n"      },
      {"appended",                       [](FakePlatform& f) { f.Put("d/t", "old\n"); },                                OpenHow::append,  true,  true,  "old\nnew\n" },
      {"no directory",                   [](FakePlatform&) {},                                                          OpenHow::replace, false, false, "(no file)"  },
      {"a directory",                    [](FakePlatform& f) { f.Put("d/t/x", ""); },                                   OpenHow::append,  false, false, "(no file)"  },
      {"write-protected",                [](FakePlatform& f) { f.Put("d/t", "old\n", 0444); },                          OpenHow::replace, false, false,
       "old\n"                                                                                                                                                       },
      {"disk full",                      [](FakePlatform& f) { f.Put("d/t", "old\n"), f.room = 2; },                    OpenHow::replace, true,  false, "old\n"      },
      {"disk full, append",              [](FakePlatform& f) { f.Put("d/t", "old\n"), f.room = 2; },                    OpenHow::append,  true,  false,
       "old\n"                                                                                                                                                       },
      {"disk full, appended to nothing", [](FakePlatform& f) { f.Put("d/x", ""), f.room = 2; },                         OpenHow::append,  true,
       false,                                                                                                                                           "(no file)"  },
      {"close fails",                    [](FakePlatform& f) { f.Put("d/t", "old\n"), f.close_fails = true; },          OpenHow::replace, false,
       false,                                                                                                                                           "old\n"      },
      {"rename fails",                   [](FakePlatform& f) { f.Put("d/t", "old\n"), f.rename_fails = true; },         OpenHow::replace, true,
       false,                                                                                                                                           "old\n"      },
      {"folder takes no file",           [](FakePlatform& f) { f.Put("d/t", "older\n"), f.no_new_files_in = {"d"}; },
       OpenHow::replace,                                                                                                                  true,  true,  "new\n"      },
      {"nor a new target",               [](FakePlatform& f) { f.Put("d/x", ""), f.no_new_files_in = {"d"}; },          OpenHow::replace,
       false,                                                                                                                                    false, "(no file)"  },
      {"no handle left",                 [](FakePlatform& f) { f.Put("d/t", "older\n"), f.no_handles = true; },
       OpenHow::replace,                                                                                                                  false, false, "older\n"    },
      {"a device keeps its content",     [](FakePlatform& f) { f.Put("d/t", "sent\n"), f.files["d/t"].plain = false; },
       OpenHow::replace,                                                                                                                  true,  true,  "sent\nnew\n"},
  };
  for (const OutputCase& c : cases) {
    SCOPED_TRACE(c.what);
    FakePlatform fake;
    c.prepare(fake);
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
  fake.Put("d/t", "old\n", 0640);
  fake.links["link"] = "d/t";
  const Platform platform = fake.Get();
  OutputFile out;
  ASSERT_TRUE(OpenOutput(platform, "link", OpenHow::replace, out));
  const std::string piece(300'000, 'x');
  WriteOutput(out, piece);
  WriteOutput(out, piece);
  EXPECT_EQ(fake.Bytes("d/t"), "old\n");
  ASSERT_TRUE(CloseOutput(out));
  EXPECT_EQ(fake.Bytes("d/t"), piece + piece);
  EXPECT_EQ(fake.files["d/t"].mode, 0640U);
  EXPECT_EQ(fake.files.count("link"), 0U);  // still a link

  ASSERT_TRUE(OpenOutput(platform, "d/t", OpenHow::append, out));
  EXPECT_TRUE(out.had_text);
  WriteOutput(out, "more");
  DiscardOutput(out);
  EXPECT_EQ(fake.Bytes("d/t"), piece + piece);
  ASSERT_TRUE(OpenOutput(platform, "d/u", OpenHow::append, out));
  EXPECT_FALSE(out.had_text);
  DiscardOutput(out);
  EXPECT_EQ(fake.Bytes("d/u"), "(no file)");
}

TEST(OutputFile, BlankNameIsTheConsole) {
  FakePlatform fake;
  const Platform platform = fake.Get();
  OutputFile out;
  ASSERT_TRUE(OpenOutput(platform, "  ", OpenHow::replace, out));
  WriteOutput(out, "a\n");
  EXPECT_TRUE(CloseOutput(out));
  EXPECT_EQ(fake.output, "a\n");
}

// The same on real files: modes, links, pipes.
struct RealFolder {
  std::filesystem::path path;
  RealFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "zaview-test-XXXXXX").string();
    path = ::mkdtemp(pattern.data());
  }
  ~RealFolder() { std::filesystem::remove_all(path); }
  [[nodiscard]] std::string Name(const char* name) const { return (path / name).string(); }
  [[nodiscard]] std::string Bytes(const char* name) const {
    std::ostringstream bytes;
    bytes << std::ifstream(path / name).rdbuf();
    return bytes.str();
  }
};

bool WriteReal(const Platform& platform, const std::string& name, OpenHow how, std::string_view text) {
  OutputFile out;
  if (!OpenOutput(platform, name, how, out)) return false;
  WriteOutput(out, text);
  return CloseOutput(out);
}

TEST(OutputFile, RealFiles) {
  const RealFolder folder;
  const Platform platform = PosixPlatform();
  ASSERT_TRUE(WriteReal(platform, folder.Name("t"), OpenHow::replace, "one\n"));
  ::chmod(folder.Name("t").c_str(), 0600);
  std::filesystem::create_symlink("t", folder.path / "link");
  std::filesystem::create_symlink("later", folder.path / "dangling");
  ASSERT_TRUE(WriteReal(platform, folder.Name("link"), OpenHow::replace, "two\n"));
  ASSERT_TRUE(WriteReal(platform, folder.Name("link"), OpenHow::append, "three\n"));
  ASSERT_TRUE(WriteReal(platform, folder.Name("dangling"), OpenHow::replace, "four\n"));
  EXPECT_EQ(folder.Bytes("t"), "two\nthree\n");
  EXPECT_EQ(folder.Bytes("later"), "four\n");
  EXPECT_TRUE(std::filesystem::is_symlink(folder.path / "link"));
  EXPECT_TRUE(std::filesystem::is_symlink(folder.path / "dangling"));
  struct stat facts {};
  ::stat(folder.Name("t").c_str(), &facts);
  EXPECT_EQ(facts.st_mode & 07777U, 0600U);
  EXPECT_FALSE(WriteReal(platform, folder.path.string(), OpenHow::replace, "x"));
  EXPECT_FALSE(WriteReal(platform, folder.Name("none/t"), OpenHow::replace, "x"));
  EXPECT_TRUE(WriteReal(platform, "/dev/null", OpenHow::replace, "x"));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path), {}), 4);
}

TEST(OutputFile, RealPipe) {
  const RealFolder folder;
  const Platform platform = PosixPlatform();
  ASSERT_EQ(::mkfifo(folder.Name("pipe").c_str(), 0600), 0);
  const int reader = ::open(folder.Name("pipe").c_str(), O_RDONLY | O_NONBLOCK);
  ASSERT_TRUE(WriteReal(platform, folder.Name("pipe"), OpenHow::replace, "through\n"));
  char got[16];
  EXPECT_EQ(::read(reader, got, sizeof got), 8);
  ::close(reader);
  EXPECT_TRUE(std::filesystem::is_fifo(folder.path / "pipe"));
}

}  // namespace
}  // namespace zaview
