// Pictures of a run in files and in a video, with a second thread and without: the same bytes, the same faults.
#include "gks/picture/run_output.h"

#include <string>
#include <vector>

#include "gks/picture/dump_names.h"
#include "unit/gks/drawing.h"

namespace zaview {
namespace {

// A run whose pictures are bars, each longer than the one before.
struct BarRun : Drawing {
  RunOutputOrder order;
  std::vector<std::string> shown;  // the pixels of each picture

  BarRun(const std::string& name, int count, bool apart) : Drawing(40, 30) {
    fake.program = "ffmpeg";
    EXPECT_NE(OrderOfName(name, order), name.empty());
    order.count = count;
    order.apart = apart;
  }
  void Show(int i) {
    Clear();
    Fill({1, 2.0F + static_cast<float>(i), 2.0F + static_cast<float>(i), 1}, {5, 5, 20, 20});
    Read();
    shown.emplace_back(rgb.begin(), rgb.end());
  }
  // How many pictures were taken; "end" of it: the whole run was.
  std::string Run() {
    RunOutputPtr output = BeginRunOutput(platform, order);
    if (output == nullptr) return "none";
    for (int i = 0; i < order.count; ++i) {
      Show(i);
      if (!PutPicture(*output, width, height)) return std::to_string(i);
    }
    return FinishRunOutput(std::move(output)) ? "end" : "all";
  }
};

TEST(RunOutput, PicturesAreNumberedInARow) {
  // clang-format off
  const struct { const char *name, *there; int count; const char *first, *last; } cases[] = {
      {"", "", 3, "dump0001.png", "dump0003.png"},
      {"", "dump0003.png", 2, "dump0001.png", "dump0002.png"},
      {"", "dump0003.png", 3, "dump0004.png", "dump0006.png"},
      {"a/r.png", "a/r0002.png", 12, "a/r0001.png", "a/r0012.png"},  // its own names are replaced
      {"r.BMP", "", 2, "r0001.BMP", "r0002.BMP"}, {"v1.2.gif", "", 1, "v1.20001.gif", "v1.20001.gif"},
  };
  // clang-format on
  for (const auto& c : cases) {
    std::string bytes;
    for (const bool apart : {true, false}) {
      BarRun run(c.name, c.count, apart);
      if (*c.there != '\0') run.fake.Put(c.there, "here");
      run.fake.directories.insert("a");
      EXPECT_EQ(run.Run(), "end") << run.fake.output;
      EXPECT_TRUE(run.fake.output.find(std::string(c.first) + "\n") <= run.fake.output.find(c.last));
      EXPECT_EQ(run.fake.files.contains(c.first) && run.fake.files.contains(c.last), true) << run.fake.output;
      const bool kept = run.order.kind == RunPictures::numbered && *c.there != '\0';
      EXPECT_EQ(run.fake.files.size(), static_cast<std::size_t>(c.count) + (kept ? 1U : 0U));
      EXPECT_TRUE(!kept || run.fake.Bytes(c.there) == "here");
      std::string all;
      for (const auto& [name, file] : run.fake.files) all += name + file.bytes;
      EXPECT_TRUE(apart || all == bytes) << c.name;
      bytes = all;
      // Each file holds its own picture.
      std::string one;
      for (const std::string& rgb : run.shown) {
        const auto* const data = reinterpret_cast<const unsigned char*>(rgb.data());
        ASSERT_TRUE(EncodePicture(run.order.format, 40, 30, {data, rgb.size()}, one));
        EXPECT_NE(all.find(one), std::string::npos);
      }
    }
  }
}

TEST(RunOutput, NamesOfFivePlacesAreAllOfOneLength) {
  BarRun run("r.png", 12345, true);
  RunOutputPtr output = BeginRunOutput(run.platform, run.order);
  run.Show(0);
  EXPECT_TRUE(PutPicture(*output, 40, 30) && FinishRunOutput(std::move(output)));
  EXPECT_TRUE(run.fake.files.contains("r00001.png"));
}

TEST(RunOutput, EndsWithThePictureThatFails) {
  for (const bool apart : {true, false}) {
    BarRun run("r.png", 5, apart);
    run.fake.Put("r0003.png", "old", 0444);
    EXPECT_EQ(run.Run(), "3");  // told when the next one comes
    EXPECT_NE(run.fake.output.find("r0003.png\nERROR - Picture can't be written : r0003.png\n"), std::string::npos);
    EXPECT_EQ(run.fake.files.size(), 3U);
    EXPECT_EQ(run.fake.Bytes("r0003.png"), "old");
    EXPECT_EQ(run.fake.OpenHandles(), 0U);
    BarRun full("", 3, apart);
    full.fake.room = 20;
    EXPECT_EQ(full.Run(), "1");
    EXPECT_TRUE(full.fake.files.empty());
  }
  BarRun many("", 4, true);
  for (int n = 3; n <= kLastDump; n += 4) many.fake.Put(DumpName(n, "png"), "");
  EXPECT_EQ(many.Run(), "none");
  EXPECT_EQ(many.fake.output,
            " GKSDUMP failed - no more png files\n"
            "ERROR - 4 pictures, and not so many numbers in a row are free : STEP_INCREMENT makes fewer of them\n");
}

// Somebody else's picture takes the number that came next.
TEST(RunOutput, GoesOnBehindANumberThatWasTakenMeanwhile) {
  BarRun run("", 3, true);
  RunOutputPtr output = BeginRunOutput(run.platform, run.order);
  for (int i = 0; i < 3; ++i) {
    run.Show(i);
    if (i == 1) run.fake.Put("dump0002.png", "theirs");
    EXPECT_TRUE(PutPicture(*output, 40, 30));
  }
  EXPECT_TRUE(FinishRunOutput(std::move(output)));
  EXPECT_EQ(run.fake.Bytes("dump0002.png"), "theirs");
  EXPECT_TRUE(run.fake.files.contains("dump0003.png") && run.fake.files.contains("dump0004.png"));
}

TEST(RunOutput, AVideoAppearsWhenItIsWhole) {
  for (const bool apart : {true, false}) {
    BarRun run("a/run.mp4", 3, apart);
    run.fake.Put("a/run.mp4", "old");
    run.order.rate = 12.5;
    EXPECT_EQ(run.Run(), "end") << run.fake.output;
    EXPECT_EQ(run.fake.Bytes("a/run.mp4"), run.shown[0] + run.shown[1] + run.shown[2]);
    EXPECT_EQ(run.fake.files.size(), 1U);
    EXPECT_EQ(run.fake.output, "DumpWindow - Writing MP4 file a/run.mp4\n");
    std::string words;
    for (const std::string& word : run.fake.words) words += word + " ";
    for (const char* part : {"-s 40x30 -r 12.5 -i ", "-movflags +faststart -f mp4 file:a/.zaview-"})
      EXPECT_NE(words.find(part), std::string::npos) << words;
  }
}

TEST(RunOutput, AVideoThatFailsLeavesTheOldOne) {
  constexpr std::size_t kFrame = 40 * 30 * 3;
  // clang-format off
  const struct { std::size_t feeds; const char *program, *last_words, *ends, *said; bool writes = true; } cases[] = {
      {100 * kFrame, "ffmpeg", "No space left", "all", "ERROR - Video can't be written : run.mkv (No space left)\n"},
      {2 * kFrame, "ffmpeg", "Broken", "3", "ERROR - Video can't be written : run.mkv (Broken)\n"},
      {100 * kFrame, "", "", "none", "ERROR - ffmpeg not found\n"},
      {100 * kFrame, "ffmpeg", "", "all", "ERROR - Video can't be written : run.mkv\n", false},
  };
  // clang-format on
  for (const auto& c : cases) {
    for (const bool apart : {true, false}) {
      BarRun run("run.mkv", 4, apart);
      run.fake.Put("run.mkv", "old");
      run.fake.feeds = c.feeds;
      run.fake.program = c.program;
      run.fake.last_words = c.last_words;
      run.fake.writes = c.writes;
      EXPECT_EQ(run.Run(), c.ends);
      EXPECT_NE(run.fake.output.find(c.said), std::string::npos) << run.fake.output;
      EXPECT_EQ(run.fake.Bytes("run.mkv"), "old");
      EXPECT_EQ(run.fake.files.size(), 1U);
    }
  }
  BarRun dropped("run.avi", 4, true);
  {
    const RunOutputPtr output = BeginRunOutput(dropped.platform, dropped.order);
    dropped.Show(0);
    EXPECT_TRUE(PutPicture(*output, 40, 30));
    EXPECT_FALSE(PutPicture(*output, 20, 30));  // of another size
  }
  EXPECT_TRUE(dropped.fake.files.empty());
  EXPECT_EQ(BeginRunOutput(dropped.platform, {.kind = RunPictures::video, .name = "no/run.mp4"}), nullptr);
  dropped.fake.Put("d/run.mp4", "old");
  dropped.fake.no_new_files_in = {"d"};
  EXPECT_EQ(BeginRunOutput(dropped.platform, {.kind = RunPictures::video, .name = "d/run.mp4"}), nullptr);
  EXPECT_TRUE(dropped.fake.output.ends_with(
      "Video can't be written : d/run.mp4 (a video needs a plain file in a folder that takes new ones)\n"));
  EXPECT_EQ(dropped.fake.Bytes("d/run.mp4"), "old");
}

}  // namespace
}  // namespace zaview
