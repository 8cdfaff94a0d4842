// Sessions of the real program with its window on a display: what drawing in memory can't tell.
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <png.h>

#include "project_places.h"
#include "pseudo_terminal.h"
#include "x_display.h"

namespace zaview {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kMenu = "Select option=>", kQuantity = "Select =>", kHelp = "Hit the 'h' key for HELP";

struct WindowSession : testing::Test, TemporaryFolder {
  XServer server;

  WindowSession() { fs::copy(ProjectFile("samples/irregular_head.out"), Name("run.out")); }
  void SetUp() override {
    if (!server.Runs()) GTEST_SKIP() << "there is no Xvfb";
  }

  // What the child runs: the program, with its window on the server or, without a name, in memory.
  static int Program(const std::string& display, std::vector<std::string> words) {
    if (display.empty()) ::unsetenv("DISPLAY");
    else ::setenv("DISPLAY", display.c_str(), 1);
    ::setenv("LIBGL_ALWAYS_SOFTWARE", "1", 1);
    ::setenv("GALLIUM_DRIVER", "llvmpipe", 1);
    ::setenv("LSAN_OPTIONS", ("print_suppressions=0:suppressions=" + ProjectFile("tests/e2e/lsan.supp")).c_str(),
             1);  // of the driver
    return RunTestedProgram(std::move(words));
  }
  [[nodiscard]] std::function<int()> Run(std::vector<std::string> words) const {
    return [name = server.Name(), words = std::move(words)] { return Program(name, words); };
  }
  void Script(const std::string& name, std::string_view lines) const { std::ofstream(Name(name)) << lines; }
  [[nodiscard]] std::string Size(const std::string& name) const {  // of a picture
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_file(&image, Name(name).c_str()) == 0) return "no picture";
    png_image_free(&image);
    return std::to_string(image.width) + "x" + std::to_string(image.height);
  }
};

void Begin(PseudoTerminal& t) {
  t.Answer("How many time steps to skip=>", "\n");
  t.Answer("Hit RETURN to continue...", "\n");
}

// From the menu to a view, and back to the question for the next one.
void OpenView(PseudoTerminal& t, XServer& server) {
  t.Answer(kMenu, "1\n");
  t.Answer(kQuantity, "1\n");
  t.Expect(kHelp);
  EXPECT_TRUE(server.WaitForPicture());
}
void ComeBack(PseudoTerminal& t, XServer& server) {
  t.Expect(kQuantity);
  EXPECT_FALSE(server.IsShown());  // by now, not some time later
  t.Type("0\n");
}

TEST_F(WindowSession, MenuScriptAndViewsTakeTurns) {
  Script("s", "PLOT_HISTORY MOT 3 one.png\nPLOT_HISTORY MOT 5\n");
  for (const Over over : {Over::plain_line, Over::terminal}) {
    for (const bool covered : {false, true}) {
      SCOPED_TRACE(covered);
      fs::remove(Name("one.png"));
      XServer own;
      PseudoTerminal t(
          path, [&] { return Program(own.Name(), {"run.out"}); }, over);
      Begin(t);
      OpenView(t, own);
      if (covered) own.Cover();
      own.Key('q');
      ComeBack(t, own);
      t.Answer(kMenu, "13\n");
      t.Answer("(Return to cancel):", "s\n");
      t.Expect("DumpWindow - Writing PNG file one.png");
      t.Expect("PLOT_HISTORY MOT 5");
      EXPECT_TRUE(own.WaitForWindow());
      own.Key('q');
      t.Expect("ZAVIEW continuing...");
      t.Expect(kMenu);
      EXPECT_FALSE(own.IsShown());
      t.Type("0\n");
      EXPECT_EQ(t.End(), 0);
      EXPECT_EQ(Size("one.png"), "500x400");
    }
  }
}

TEST_F(WindowSession, PicturesAreThoseOfAMachineWithoutADisplay) {
  for (const std::string name : {"shown", "memory"}) {
    Script(name, "PLOT_HISTORY MOT 3 " + name + ".png\nPLOT_TRAJECTORY " + name + ".bmp\nPLOT_HISTOGRAM MOT 3 " + name +
                     ".gif\n");
    PseudoTerminal t(path, [&] { return Program(name == "shown" ? server.Name() : "", {"run.out", "-script", name}); });
    EXPECT_EQ(t.End(), 0) << t.Screen();
  }
  for (const char* end : {".png", ".bmp", ".gif"}) {
    EXPECT_GT(FileBytes(Name(std::string("shown") + end)).size(), 1000U);
    EXPECT_EQ(FileBytes(Name(std::string("shown") + end)), FileBytes(Name(std::string("memory") + end))) << end;
  }
}

// A menu, the option of the text menu whose view has it, the key that opens it there; or, from the first item of the
// options menu, how many items back the one is that opens it.
struct MenuWay {
  const char* title;
  const char* view;
  unsigned long key;
  unsigned held = 0;
  int back = 0;
  bool has_caret = false;  // "q" is text there
};

TEST_F(WindowSession, MenusAreWholeOnTheScreenAndGoWithTheView) {
  constexpr char kOptions[] = "Plot Options";
  const MenuWay ways[] = {{kOptions, "1", 'o', kAltHeld},
                          {kOptions, "5", kF2Key},
                          {kOptions, "12", 'o', kAltHeld},
                          {"Curve Selection", "1", 's', kAltHeld},
                          {"Curve Selection", "1", kF3Key},
                          {"Time Step", "5", kF4Key},
                          {"Time Step", "5", ' ', kAltHeld},
                          {"Help", "5", 'h'},
                          {"Point Input", "5", kF2Key, 0, 7},
                          {"Select", "5", kF2Key, 0, 14},  // a colour
                          {"Select", "5", kF2Key, 0, 16},  // a quantity
                          {"File Selector", "1", kF2Key, 0, 7, true}};
  fs::copy(ProjectFile("samples/quartering.out"), Name("ship.out"));
  fs::copy(ProjectFile("samples/ship.geo"), Name("ship.geo"));
  PseudoTerminal t(path, Run({"ship.out"}));
  Begin(t);
  t.Expect(kMenu);
  for (const MenuWay& way : ways) {
    SCOPED_TRACE(std::string(way.title) + " of " + way.view);
    const bool of_quantity = way.view == std::string_view("1");
    t.Type(std::string(way.view) + "\n");
    if (of_quantity) t.Answer(kQuantity, "1\n");
    ASSERT_TRUE(server.WaitForPicture());
    server.Key(way.key, way.held);
    if (way.back > 0) {
      ASSERT_GE(server.WaitForInk(kOptions).colours, 2U);
      server.Key(kTabKey, 0, kOptions);
      for (int i = 0; i < way.back; ++i) server.Key(kLeftKey, 0, kOptions);
      server.Key(kReturnKey, 0, kOptions);
    }
    const XLook look = server.WaitForInk(way.title);
    EXPECT_TRUE(look.on_screen);
    ASSERT_GE(look.colours, 2U);
    server.Key('q', 0, way.has_caret ? kMainTitle : way.title);
    t.Expect(of_quantity ? kQuantity : kMenu);
    ASSERT_EQ(server.ShownWindows(), 0);
    if (of_quantity) t.Type("0\n");
    if (of_quantity) t.Expect(kMenu);
  }
  t.Type("0\n");
  EXPECT_EQ(t.End(), 0);
}

TEST_F(WindowSession, CloseButtonLeavesTheView) {
  PseudoTerminal t(path, Run({"run.out"}));
  Begin(t);
  for (int i = 0; i < 2; ++i) {  // the window that stands in can be closed as well
    OpenView(t, server);
    server.PressCloseButton();
    ComeBack(t, server);
  }
  t.Answer(kMenu, "0\n");
  EXPECT_EQ(t.End(), 0);
}

TEST_F(WindowSession, CloseButtonLosesNoPicture) {
  Script("s", "FOR i IN SEQ 1 12 DO\n  PLOT_HISTORY MOT 3 p{i}.png\nDONE\n");
  PseudoTerminal t(path, Run({"run.out", "-script", "s"}));
  for (int i = 1; i < 12; ++i) {
    t.Expect("Writing PNG file p" + std::to_string(i) + ".png");
    server.PressCloseButton();
  }
  EXPECT_EQ(t.End(), 0) << t.Screen();
  for (int i = 1; i <= 12; ++i) EXPECT_EQ(Size("p" + std::to_string(i) + ".png"), "500x400");
}

TEST_F(WindowSession, DrawsAndDumpsAtTheSizeOfTheWindow) {
  PseudoTerminal t(path, Run({"run.out"}));
  Begin(t);
  OpenView(t, server);
  const unsigned sizes[][2] = {{720, 610}, {1500, 1200}, {90, 70}};  // the second one is larger than the screen
  for (const auto& size : sizes) {
    server.Resize(size[0], size[1]);
    server.Key('r');
    server.Key('W', kShiftHeld);
    t.Expect("DumpWindow - Writing PNG file dump000");
  }
  server.Key('q');
  ComeBack(t, server);
  t.Answer(kMenu, "0\n");
  EXPECT_EQ(t.End(), 0);
  for (std::size_t i = 0; i < std::size(sizes); ++i)
    EXPECT_EQ(Size("dump000" + std::to_string(i + 1) + ".png"),
              std::to_string(sizes[i][0]) + "x" + std::to_string(sizes[i][1]));
}

// A run of the animation that nobody watches, with the window closed now and then, and without a display.
TEST_F(WindowSession, RunsOfTheAnimationLoseNoStep) {
  for (const std::string name : {"shown", "memory"}) {
    Script(name, "SET_STEPS 1 9\nANIMATE_MOTIONS " + name + ".png\n");
    PseudoTerminal t(path, [&] { return Program(name == "shown" ? server.Name() : "", {"run.out", "-script", name}); });
    for (int i = 2; i < 9 && name == "shown"; i += 3) {
      t.Expect("Writing PNG file shown000" + std::to_string(i) + ".png");
      server.PressCloseButton();
    }
    EXPECT_EQ(t.End(), 0) << t.Screen();
  }
  for (int i = 1; i <= 9; ++i) {
    const std::string number = "000" + std::to_string(i) + ".png";
    EXPECT_EQ(Size("memory" + number), "500x400");
    EXPECT_EQ(FileBytes(Name("shown" + number)), FileBytes(Name("memory" + number))) << i;
    EXPECT_NE(FileBytes(Name("memory" + number)), FileBytes(Name("memory0009.png")).substr(i == 9 ? 1 : 0)) << i;
  }
  EXPECT_FALSE(fs::exists(Name("shown0010.png")));
}

TEST_F(WindowSession, PicturesOfARunAreWholeWhenTheDisplayIsLost) {
  XServer own;
  PseudoTerminal t(path, [&] { return Program(own.Name(), {"run.out", "-command", "ANIMATE_MOTIONS auto"}); });
  t.Expect("Writing PNG file dump0007.png");
  own.End();
  EXPECT_EQ(t.End(), 1) << t.Screen();
  int whole = 0;
  for (const fs::directory_entry& file : fs::directory_iterator(path)) {
    const std::string name = file.path().filename();
    const bool picture = name.rfind("dump", 0) == 0;
    EXPECT_TRUE(!picture || Size(name) == "500x400") << name;
    whole += picture ? 1 : 0;
    EXPECT_EQ(name.find(".part"), std::string::npos) << name;
  }
  EXPECT_GE(whole, 6);
}

// As the program that reads videos finds them.
TEST_F(WindowSession, AVideoHasAFrameAStep) {
  if (std::system("ffmpeg -version > /dev/null 2>&1 && ffprobe -version > /dev/null 2>&1") != 0)
    GTEST_SKIP() << "there is no ffmpeg";
  Script("s",
         "SET_STEPS 1 12\nWINDOW_SIZE 301 201\nANIMATE_MOTIONS a.mp4\nANIMATE_MOTIONS b.webm\n"
         "ANIMATE_MOTIONS c.avi\nANIMATE_OPTION SYNC 0.5\nANIMATE_MOTIONS d.mkv\n");
  PseudoTerminal t(path, [&] { return Program("", {"run.out", "-script", "s"}); });
  EXPECT_EQ(t.End(), 0) << t.Screen();
  for (const auto& [name, rate] : {std::pair{"a.mp4", "4/1"}, {"b.webm", "4/1"}, {"c.avi", "4/1"}, {"d.mkv", "8/1"}}) {
    const std::string probe =
        "ffprobe -v error -count_frames -select_streams v -show_entries "
        "stream=width,height,r_frame_rate,nb_read_frames -of csv=p=0 " +
        Name(name) + " > " + Name("probe");
    ASSERT_EQ(std::system(probe.c_str()), 0);
    EXPECT_EQ(FileBytes(Name("probe")), std::string("302,202,") + rate + ",12\n") << name;
  }
}

// While a view is up, and while a question waits.
TEST_F(WindowSession, EndsWhenTheDisplayIsLost) {
  for (const bool in_view : {true, false}) {
    XServer own;
    PseudoTerminal t(path, [&] { return Program(own.Name(), {"run.out"}); });
    Begin(t);
    OpenView(t, own);
    if (!in_view) {
      own.Key('q');
      t.Expect(kQuantity);
    }
    own.End();
    if (!in_view) t.Type("1\n");
    t.Expect("GLGKS - connection to the display lost");
    EXPECT_EQ(t.End(), 1);
  }
}

TEST_F(WindowSession, AnInterruptEndsAView) {
  PseudoTerminal t(path, Run({"run.out"}));
  Begin(t);
  OpenView(t, server);
  t.Type("\003");
  EXPECT_EQ(t.End(), -SIGINT);
}

// A server that starts afresh when its last client leaves, as wrappers around one command start it.
TEST_F(WindowSession, PlotsOnAServerThatStartsAfresh) {
  XServer own(Lives::afresh);
  for (int i = 0; i < 20; ++i) {
    PseudoTerminal t(path, [&] { return Program(own.Name(), {"run.out", "-command", "PLOT_HISTORY MOT 3 a.png"}); });
    ASSERT_EQ(t.End(), 0) << t.Screen();
    EXPECT_TRUE(fs::remove(Name("a.png")));
  }
}

TEST_F(WindowSession, ADisplayThatIsNotThereIsNone) {
  PseudoTerminal t(path, [] { return Program(":4999", {"run.out", "-command", "PLOT_HISTORY MOT 3"}); });
  t.Expect("GLGKS - no display");
  t.Expect("GLGKS - Error Initializing Window...");
  EXPECT_EQ(t.End(), 1);
}

}  // namespace
}  // namespace zaview
