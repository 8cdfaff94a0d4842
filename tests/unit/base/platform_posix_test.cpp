#include "base/platform_posix.h"

#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace zaview {
namespace {

struct Folder {
  std::string path = (std::filesystem::temp_directory_path() / "zaview-test-XXXXXX").string();
  Folder() { EXPECT_NE(::mkdtemp(path.data()), nullptr); }
  ~Folder() { std::filesystem::remove_all(path); }
  [[nodiscard]] std::string Name(std::string_view name) const { return path + "/" + std::string(name); }
};

struct ChildRun {
  std::string output;
  int status = -1;
};

// Runs `work` in a process of its own whose standard input holds `input`. listen: its output is read to the end, else
// nobody reads it.
ChildRun InChild(std::string_view input, bool listen, void (*work)(const Platform&, const Folder&),
                 const Folder& folder) {
  int in[2], out[2];
  EXPECT_EQ(::pipe(in) | ::pipe(out), 0);
  EXPECT_EQ(::write(in[1], input.data(), input.size()), static_cast<ssize_t>(input.size()));
  ::close(in[1]);
  const pid_t child = ::fork();
  if (child == 0) {
    ::dup2(in[0], STDIN_FILENO);
    ::dup2(out[1], STDOUT_FILENO);
    for (const int file : {in[0], out[0], out[1]}) ::close(file);
    const Platform platform = PosixPlatform();
    work(platform, folder);
    platform.exit(platform.self, 7);
  }
  ::close(in[0]);
  ::close(out[1]);
  ChildRun run;
  if (!listen) ::close(out[0]);
  char piece[4096];
  for (ssize_t n = 1; listen && n > 0;) {
    n = ::read(out[0], piece, sizeof piece);
    if (n > 0) run.output.append(piece, static_cast<std::size_t>(n));
  }
  if (listen) ::close(out[0]);
  int status = 0;
  ::waitpid(child, &status, 0);
  run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return run;
}

TEST(PlatformPosix, LinesGoThrough) {
  const Folder folder;
  const auto echo = [](const Platform& p, const Folder&) {
    std::string line = "untouched";
    while (p.console.read_line(p.console.self, line)) p.console.write(p.console.self, "<" + line + ">\n");
    p.console.write(p.console.self, line);  // still the last one
    p.console.show_progress(p.console.self, "not on a pipe");
  };
  const std::string long_line(10'000, 'x');  // cut, and the next line is whole
  const ChildRun run = InChild("a\n\n" + long_line + "\nlast", true, echo, folder);
  EXPECT_EQ(run.output, "<a>\n<>\n<" + long_line.substr(0, 4096) + ">\n<last>\nlast");
  EXPECT_EQ(run.status, 7);
}

TEST(PlatformPosix, ClosedConsoleEndsTheRunAndLeavesNoTemporary) {
  const Folder folder;
  const auto work = [](const Platform& p, const Folder& f) {
    static_cast<void>(p.files.open_write(p.files.self, f.Name("part"), WriteHow::create_new, 0));
    ASSERT_TRUE(p.files.facts(p.files.self, f.Name("part")).exists);
    const std::string text(100'000, 'x');
    for (int i = 0; i < 100; ++i) p.console.write(p.console.self, text);
    p.console.flush(p.console.self);
  };
  EXPECT_EQ(InChild("", false, work, folder).status, 1);
  EXPECT_FALSE(std::filesystem::exists(folder.Name("part")));
}

TEST(PlatformPosix, ClosedStandardFilesAreNotReused) {
  const Folder folder;
  const auto work = [](const Platform&, const Folder& f) {
    ::close(STDOUT_FILENO);
    const Platform p = PosixPlatform();
    const FileHandle file = p.files.open_write(p.files.self, f.Name("t"), WriteHow::truncate, 0);
    p.console.write(p.console.self, "console text");
    p.console.flush(p.console.self);
    static_cast<void>(p.files.write(p.files.self, file, "file"));
    static_cast<void>(p.files.close(p.files.self, file));
  };
  EXPECT_EQ(InChild("", true, work, folder).status, 7);
  EXPECT_EQ(std::filesystem::file_size(folder.Name("t")), 4U);
}

TEST(PlatformPosix, WhatCanBeOpened) {
  const Folder folder;
  const Platform platform = PosixPlatform();
  const Files& files = platform.files;
  EXPECT_EQ(files.open_read(files.self, folder.path), kNoFile);  // a directory
  EXPECT_EQ(files.open_read(files.self, folder.Name("none")), kNoFile);
  EXPECT_EQ(files.open_read(files.self, ""), kNoFile);

  const FileHandle made = files.open_write(files.self, folder.Name("t"), WriteHow::create_new, 0600);
  ASSERT_NE(made, kNoFile);
  EXPECT_TRUE(files.write(files.self, made, "12345"));
  EXPECT_TRUE(files.resize(files.self, made, 3));
  EXPECT_TRUE(files.close(files.self, made));
  EXPECT_FALSE(files.close(files.self, made));
  EXPECT_EQ(files.open_write(files.self, folder.Name("t"), WriteHow::create_new, 0), kNoFile);
  EXPECT_EQ(files.open_write(files.self, folder.path, WriteHow::append, 0), kNoFile);

  const FileHandle read = files.open_read(files.self, folder.Name("t"));
  char bytes[8];
  EXPECT_EQ(files.read(files.self, read, bytes, sizeof bytes), 3);
  EXPECT_EQ(files.read(files.self, read, bytes, sizeof bytes), 0);
  EXPECT_TRUE(files.close(files.self, read));

  std::vector<std::string> names;
  EXPECT_TRUE(files.list(files.self, folder.path, names));
  EXPECT_EQ(names.size(), 3U);  // with . and ..
  EXPECT_FALSE(files.list(files.self, folder.Name("t"), names));
}

TEST(PlatformPosix, FactsFollowLinks) {
  const Folder folder;
  const Platform platform = PosixPlatform();
  const Files& files = platform.files;
  std::filesystem::create_directory(folder.Name("d"));
  ASSERT_TRUE(files.close(files.self, files.open_write(files.self, folder.Name("d/t"), WriteHow::truncate, 0)));
  std::filesystem::create_symlink("t", folder.Name("d/near"));
  std::filesystem::create_symlink("d/near", folder.Name("far"));
  std::filesystem::create_symlink("nothing", folder.Name("dangling"));
  std::filesystem::create_symlink("loop", folder.Name("loop"));
  const struct {
    std::string_view name, target;
    bool exists, plain, directory;
  } cases[] = {
      {"far",      "d/t",     true,  true,  false},
      {"d",        "d",       true,  false, true },
      {"dangling", "nothing", false, false, false},
      {"loop",     "loop",    false, false, false}
  };
  for (const auto& c : cases) {
    const FileFacts facts = files.facts(files.self, folder.Name(c.name));
    EXPECT_EQ(facts.target, folder.Name(c.target));
    EXPECT_EQ(facts.exists, c.exists) << c.name;
    EXPECT_EQ(facts.plain, c.plain) << c.name;
    EXPECT_EQ(facts.directory, c.directory) << c.name;
  }
  const FileFacts device = files.facts(files.self, "/dev/null");
  EXPECT_TRUE(device.exists && !device.plain && device.size == -1);
}

}  // namespace
}  // namespace zaview
