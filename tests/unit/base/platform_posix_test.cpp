#include "base/platform_posix.h"

#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "project_places.h"

namespace zaview {
namespace {

struct PlatformPosix : testing::Test, TemporaryFolder {};

TEST_F(PlatformPosix, LinesGoThrough) {
  const std::string long_line(10'000, 'x');  // cut, and the next line is whole
  std::ofstream(Name("in")) << "a\n\n" << long_line << "\nlast";
  const auto echo = [&] {
    ::dup2(::open(Name("in").c_str(), O_RDONLY), STDIN_FILENO);
    ::dup2(::open(Name("out").c_str(), O_WRONLY | O_CREAT, 0600), STDOUT_FILENO);
    const Platform p = PosixPlatform();
    std::string line = "untouched";
    while (p.console.read_line(p.console.self, line)) p.console.write(p.console.self, "<" + line + ">\n");
    p.console.write(p.console.self, line);  // still the last one
    p.console.show_progress(p.console.self, "not into a file");
    p.exit(p.self, 7);
  };
  EXPECT_EXIT(echo(), testing::ExitedWithCode(7), "");
  EXPECT_EQ(FileBytes(Name("out")), "<a>\n<>\n<" + long_line.substr(0, 4096) + ">\n<last>\nlast");
}

TEST_F(PlatformPosix, LostConsoleEndsTheRunAndLeavesNoTemporary) {
  const auto work = [&] {
    int out[2];
    if (::pipe(out) != 0) return;
    ::dup2(out[1], STDOUT_FILENO);
    ::close(out[0]);
    const Platform p = PosixPlatform();
    if (p.files.open_write(p.files.self, Name("part"), WriteHow::create_new, 0) == kNoFile) return;
    if (p.files.open_write(p.files.self, Name("whole"), WriteHow::create_new, 0) == kNoFile) return;
    if (!p.files.rename(p.files.self, Name("part"), Name("whole"))) return;
    if (p.files.open_write(p.files.self, Name("part"), WriteHow::create_new, 0) == kNoFile) return;
    p.console.write(p.console.self, std::string(10'000'000, 'x'));
    p.console.flush(p.console.self);
    ::_exit(7);
  };
  EXPECT_EXIT(work(), testing::ExitedWithCode(1), "");
  EXPECT_FALSE(std::filesystem::exists(Name("part")));
  EXPECT_TRUE(std::filesystem::exists(Name("whole")));  // a name that was taken, and its file then
}

TEST_F(PlatformPosix, ClosedStandardFilesAreNotReused) {
  const auto work = [&] {
    ::close(STDOUT_FILENO);
    const Platform p = PosixPlatform();
    const FileHandle file = p.files.open_write(p.files.self, Name("t"), WriteHow::truncate, 0);
    p.console.write(p.console.self, "console text");
    p.console.flush(p.console.self);
    static_cast<void>(p.files.write(p.files.self, file, "file"));
    p.exit(p.self, 7);
  };
  EXPECT_EXIT(work(), testing::ExitedWithCode(7), "");
  EXPECT_EQ(std::filesystem::file_size(Name("t")), 4U);
}

TEST_F(PlatformPosix, FactsFollowLinks) {
  const Platform platform = PosixPlatform();
  const Files& files = platform.files;
  std::filesystem::create_directory(Name("d"));
  ASSERT_TRUE(files.close(files.self, files.open_write(files.self, Name("d/t"), WriteHow::truncate, 0)));
  for (const auto& [to, name] :
       {std::pair{"t", "d/near"}, {"d/near", "far"}, {"nothing", "dangling"}, {"loop", "loop"}})
    std::filesystem::create_symlink(to, Name(name));
  const std::tuple<const char*, const char*, bool, bool, bool> cases[] = {{"far", "d/t", true, true, false},
                                                                          {"d", "d", true, false, true},
                                                                          {"dangling", "nothing", false, false, false},
                                                                          {"loop", "loop", false, false, false}};
  for (const auto& [name, target, exists, plain, directory] : cases) {
    const FileFacts f = files.facts(files.self, Name(name));
    EXPECT_EQ(std::tuple(f.target, f.exists, f.plain, f.directory), std::tuple(Name(target), exists, plain, directory));
  }
  std::vector<DirectoryEntry> entries;
  EXPECT_TRUE(files.list(files.self, Name(""), entries) && !files.list(files.self, Name("nowhere"), entries));
  for (const DirectoryEntry& entry : entries)
    if (entry.name == "far" || entry.name == "d" || entry.name == "loop") {
      EXPECT_EQ(entry.directory, entry.name == "d") << entry.name;
    }
  const FileFacts device = files.facts(files.self, "/dev/null");
  EXPECT_TRUE(device.exists && !device.plain && device.size == -1);
  EXPECT_EQ(files.open_read(files.self, path), kNoFile);
  EXPECT_EQ(files.why(files.self), "Is a directory");
  EXPECT_EQ(files.open_read(files.self, Name(std::string(300, 'n'))), kNoFile);
  EXPECT_EQ(files.why(files.self), "File name too long");
  EXPECT_EQ(files.open_write(files.self, Name("d/t"), WriteHow::create_new, 0), kNoFile);  // never over another
}

TEST_F(PlatformPosix, ProgramsAreFedThroughAPipe) {
  const Platform platform = PosixPlatform();
  const Programs& programs = platform.programs;
  EXPECT_TRUE(programs.there(programs.self, "sh"));
  EXPECT_FALSE(programs.there(programs.self, "no-such-program"));
  EXPECT_FALSE(programs.there(programs.self, ""));
  EXPECT_EQ(programs.start(programs.self, {"no-such-program"}), kNoChild);
  const std::string megabytes(3'000'000, 'x');
  // clang-format off
  const struct { const char* does; bool takes, ends; const char* said; } cases[] = {
      {"cat > \"$0\"", true, true, ""},
      {"cat > /dev/null; echo first >&2; echo ' the last ' >&2; echo >&2; exit 3", true, false, " the last"},
      {"exec <&-; echo full >&2; exit 1", false, false, "full"},  // reads nothing
      {"kill -9 $$", false, false, ""},
  };
  // clang-format on
  for (const auto& c : cases) {
    const ChildHandle child = programs.start(programs.self, {"sh", "-c", c.does, Name("a b'$c")});
    ASSERT_NE(child, kNoChild);
    EXPECT_EQ(programs.write(programs.self, child, megabytes), c.takes) << c.does;
    std::string said;
    EXPECT_EQ(programs.finish(programs.self, child, said), c.ends) << c.does;
    EXPECT_EQ(said, c.said);
  }
  EXPECT_EQ(FileBytes(Name("a b'$c")), megabytes);
  const ChildHandle sleeper = programs.start(programs.self, {"sleep", "1000"});
  programs.stop(programs.self, sleeper);
  std::string said;
  EXPECT_FALSE(programs.finish(programs.self, sleeper, said));
}

}  // namespace
}  // namespace zaview
