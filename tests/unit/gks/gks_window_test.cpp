#include "gks/window/gks_window.h"
#include "gks/window/side_windows.h"

#include <string>

#include "unit/gks/view_window.h"

namespace zaview {
namespace {

using enum FedEvent::Kind;

constexpr const char* kNoDisplay =
    "GLGKS - no display: plots can only be written to files (name one behind the plot command; from the menu: "
    "GLDUMPONLY=yes)\nGLGKS - Error Initializing Window...\n";
constexpr const char* kNobody =
    "GLGKS - no display: nobody can leave this view\nGLGKS - Error Initializing Window...\n";

WindowSystem FailingWindow() {
  WindowSystem window;
  window.start = [](void*, const WindowEvents&, std::string& why) {
    why = "libEGL.so.1 not found";
    return false;
  };
  return window;
}

TEST(GksWindow, SaysWhyAViewCannotBeShown) {
  ViewWindow v(false);
  const Platform platform = v.platform;
  v.platform.choose_window = nullptr;
  EXPECT_FALSE(gksReady(v.platform, v.gks));
  EXPECT_EQ(v.fake.output, "GLGKS - graphics are not available\nGLGKS - Error Initializing Window...\n");
  v.platform = platform;

  std::swap(v.fake.window, v.platform.window);
  v.fake.window = FailingWindow();
  v.fake.output.clear();
  EXPECT_FALSE(gksReady(v.platform, v.gks));
  EXPECT_EQ(v.fake.output, "GLGKS - libEGL.so.1 not found\nGLGKS - Error Initializing Window...\n");

  gksSetDumpOption(v.gks, "x.png");
  EXPECT_TRUE(gksReady(v.platform, v.gks));  // a display that fails: the picture is drawn in memory
  EXPECT_TRUE(v.platform.window.offscreen);
  v.gks.platform = nullptr;
  v.gks.dump = DumpOrder{};

  v.fake.window = v.platform.window;
  v.fake.output.clear();
  EXPECT_FALSE(gksReady(v.platform, v.gks));
  EXPECT_EQ(v.fake.output, kNoDisplay);
  gksSetDumpOption(v.gks, "x.png");
  EXPECT_TRUE(gksReady(v.platform, v.gks));  // what failed is tried again
  v.gks.dump = DumpOrder{};
  EXPECT_FALSE(gksReady(v.platform, v.gks));
  EXPECT_EQ(v.fake.output, std::string(kNoDisplay) + kNoDisplay);
}

TEST(GksWindow, ReadsTheEnvironmentOnce) {
  ViewWindow v(false);
  v.fake.environment = {{"GLREVERSE", "on"}, {"GLWINDOWSIZE", "640x480"}, {"GLDUMPONLY", "yes"}, {"GLBITFONT", "off"}};
  EXPECT_TRUE(gksReady(v.platform, v.gks));
  EXPECT_TRUE(gksReverseQuery(v.gks) && v.gks.dump.dump_only && !v.gks.window.bitmap_font);
  EXPECT_EQ(v.gks.window.width, 640);
  gksReverseToggle(v.platform, v.gks);
  v.gks.dump.dump_only = false;
  v.gks.dump.waiting = true;
  EXPECT_TRUE(gksReady(v.platform, v.gks));
  EXPECT_FALSE(gksReverseQuery(v.gks) || v.gks.dump.dump_only);

  ViewWindow sized;
  sized.fake.environment = {{"GLWINDOWSIZE", "640x480"}};
  glResizeWindow(sized.platform, sized.gks, 320, 200);
  glResizeWindow(sized.platform, sized.gks, 0, 200);
  EXPECT_EQ(sized.Run({}), "draw all 320x200; ");
}

TEST(GksWindow, ShowsAViewAndComesBackToTheMenuHidden) {
  ViewWindow v;
  v.orders = {""};
  const std::string entry = "draw all 500x400; ";
  EXPECT_EQ(v.Run({}), entry);
  EXPECT_EQ(v.State(), "shown");
  EXPECT_EQ(v.fake.output, kNobody);
  EXPECT_EQ(v.Run({{key, 1, 'x'}, {key, 1, 'q'}}),
            "key 120 at 0.00 1.00; draw 500x400; key 113 at 0.00 1.00; menus; menu hidden; " + entry);
  EXPECT_EQ(v.Run({{key, 1, 'q'}}), "key 113 at 0.00 1.00; menus; menu hidden; end; ");
}

TEST(GksWindow, TellsClicksAndKeysInTheWorldWithWhatIsHeld) {
  ViewWindow v;
  v.Run({});
  GSWKVP(v.gks, {0, 500, 0, 400});
  GSWN(v.gks, 1, {0, 10, -1, 1});
  EXPECT_EQ(v.Run({{key, 1, 19, kShiftKey | kControlKey, 250, 200}, {mouse, 1, 2, kAltKey, 50, 0}}),
            "key 19 at 5.00 0.00 shift control; draw 500x400; mouse 2 at 1.00 1.00 alt; ");
  EXPECT_EQ(v.Held(), "");
  EXPECT_EQ(v.Run({{key, 1, 'p'}, {mouse, 1, 1, 0, 5, 5}, {key, 1, 'q'}, {key, 1, 13}}),
            "key 112 at 0.00 1.00; answer 'q'; draw all 500x400; ");
  v.gks.dump.dump_only = true;
  EXPECT_EQ(v.Run({{key, 1, 'x'}, {mouse, 1, 1}}), "");
  v.gks.modifiers = kAltKey;
  EXPECT_EQ(v.Held(), "");
}

TEST(GksWindow, DrawsAtTheSizeThatTheWindowGets) {
  ViewWindow v;
  v.Run({});
  EXPECT_EQ(v.Run({{key, 1, 'l'}}), "key 108 at 0.00 1.00; draw all 300x200; ");
  EXPECT_EQ(v.Run({{reshape, 1, 0, 0, 90, 80}}), "draw all 90x80; ");
  std::vector<unsigned char> rgb(90 * 80 * 3);
  EXPECT_TRUE(v.platform.window.read_picture(v.platform.window.self, 90, 80, rgb.data()));
}

// A key of the user never comes between a view and the picture that is ordered of it.
TEST(GksWindow, TakesNoKeyWhileAPictureIsOrdered) {
  ViewWindow v;
  v.orders = {"second.png"};
  gksSetDumpOption(v.gks, "first.png");
  EXPECT_EQ(
      v.Run({{key, 1, 'p'}, {key, 1, 'q'}}),
      "draw all 500x400; key 113 at 0.00 0.00; menus; menu hidden; draw all 500x400; key 113 at 0.00 0.00; menus; "
      "menu hidden; end; ");
  EXPECT_NE(v.fake.Bytes("first.png"), v.fake.Bytes("nothing"));
  EXPECT_EQ(v.fake.Bytes("first.png"), v.fake.Bytes("second.png"));
}

// Run mode: no idle call while a question stands, and on with it behind the answer.
TEST(GksWindow, RestsBehindATextScreen) {
  ViewWindow v;
  v.Run({});
  EXPECT_EQ(v.Run({
                {key, 1, 'p'},
            }),
            "key 112 at 0.00 1.00; ");
  v.idle_calls = 2;
  gksIdleOn(v.platform, v.gks);
  EXPECT_EQ(v.Run({}), "");
  EXPECT_EQ(v.Run({{key, 1, 13}}), "answer ''; draw all 500x400; idle; draw 500x400; idle; ");
}

// On a display the second drawing is stored, in memory the first; each order counts once.
TEST(GksWindow, WritesTheOrderedPictureAndLeavesTheView) {
  const std::string one = "draw all 500x400; key 113 at 0.00 0.00; menus; menu hidden; ";
  for (const bool on_display : {true, false}) {
    ViewWindow v(on_display);
    v.orders = {"two.gif", "on", ""};
    gksSetDumpOption(v.gks, "one.png");
    EXPECT_EQ(v.Run({}), one + one + one + one + "end; ");
    if (on_display) EXPECT_GE(v.drawn, 8);
    else EXPECT_EQ(v.drawn, 4);
    EXPECT_EQ(v.fake.output,
              "DumpWindow - Writing PNG file one.png\nDumpWindow - ppm2gif gl.png two.gif\n"
              "DumpWindow - ppm2gif gl.png dump0001.gif\nDumpWindow - ppm2gif gl.png dump0002.gif\n");
    EXPECT_EQ(v.fake.files.size(), 5U);  // and gl.png
    EXPECT_FALSE(v.gks.dump.waiting || v.gks.window.idle_on);
  }
}

TEST(GksWindow, ClosedByTheUserIsLeftOrDrawnInANewOne) {
  ViewWindow v;
  v.orders = {"x.png"};
  v.Run({{key, 1, 'p'}});
  // The question goes; the picture of the next view waits for the window that stands in.
  EXPECT_EQ(v.Run({{close, 1}, {close, 1}}),
            "menus; key 113 at 0.00 0.00; menus; menu hidden; draw all 500x400; menus; draw all 500x400; "
            "key 113 at 0.00 0.00; menus; menu hidden; end; ");
  EXPECT_EQ(v.platform.window.context_generation(v.platform.window.self), 3U);
  EXPECT_NE(v.fake.Bytes("x.png"), "(no file)");
}

TEST(GksWindow, RestsWhileItIsCoveredButNeverAheadOfAFile) {
  ViewWindow v;
  v.orders = {"x.png"};
  v.Run({});
  EXPECT_EQ(v.Run({{key, 1, 'i'}}), "key 105 at 0.00 1.00; draw 500x400; idle; draw 500x400; idle; ");
  EXPECT_EQ(v.Run({{key, 1, 'i'}, {key, 1, 'c'}}), "key 105 at 0.00 1.00; draw 500x400; key 99 at 0.00 1.00; ");
  v.platform.window.show(v.platform.window.self, 1);
  EXPECT_EQ(v.Run({}), "draw all 500x400; idle; draw 500x400; idle; ");
  EXPECT_EQ(v.State(), "shown");
  EXPECT_EQ(v.Run({{key, 1, 'c'}, {key, 1, 'x'}, {key, 1, 'q'}}),
            "key 99 at 0.00 1.00; key 120 at 0.00 1.00; key 113 at 0.00 1.00; menus; menu hidden; draw all 500x400; "
            "key 113 at 0.00 0.00; menus; menu hidden; end; ");
  EXPECT_NE(v.fake.Bytes("x.png"), "(no file)");
}

// A menu beside the view: each gets its own events, and the view the keys that the menu has no use for.
TEST(GksWindow, SideWindowsHaveHandlersOfTheirOwn) {
  ViewWindow v;
  GksSideWindow row;
  row.self = &v;
  row.width = 60;
  row.height = 40;
  row.display = [](void* self, const GksPaint& paint, int width, int height) {
    paint.clear(paint.self, {1, 0, 0});
    ViewWindow::Of(self).Tell("menu {}x{}", width, height);
  };
  row.key = [](void* self, int key) {
    ViewWindow& view = ViewWindow::Of(self);
    if (key == 'x') view.Tell("menu key{}", view.Held());
    if (key == 'k') gksCloseSideWindow(view.platform, view.gks, 2);
    return key == 'x' || key == 'k';
  };
  row.mouse = [](void* self, int button, int x, int y) { ViewWindow::Of(self).Tell("click {} {} {}", button, x, y); };
  row.closed = [](void* self) { ViewWindow::Of(self).Tell("closed"); };
  EXPECT_EQ(gksOpenSideWindow(v.platform, v.gks, "menu", 0, 0, row), 0);  // ahead of the main window
  v.Run({});
  EXPECT_EQ(gksOpenSideWindow(v.platform, v.gks, "menu", 0, 0, row), 2);
  EXPECT_EQ(v.Run({}), "menu 60x40; ");
  EXPECT_EQ(
      v.Run({{key, 2, 'x', kAltKey}, {key, 2, 'z', kShiftKey}, {mouse, 2, 1, 0, 5, 6}}),
      "menu key alt; menu 60x40; key 122 at 0.00 1.00 shift; draw 500x400; menu 60x40; click 1 5 6; menu 60x40; ");
  EXPECT_EQ(v.Run({{reshape, 2, 0, 0, 30, 20}, {mouse, 1, 3, 0, 0, 0}}), "menu 30x20; mouse 3 at 0.00 1.00; ");
  std::vector<unsigned char> rgb(30 * 20 * 3);
  EXPECT_TRUE(ReadOffscreenPicture(*v.windows, 2, 30, 20, rgb.data()));
  EXPECT_EQ(rgb[0], 255);
  EXPECT_EQ(v.Run({{close, 2}, {key, 2, 'x'}}), "closed; ");
  EXPECT_EQ(gksOpenSideWindow(v.platform, v.gks, "menu", 0, 0, row), 2);
  EXPECT_EQ(v.Run({{key, 2, 'k'}, {key, 2, 'x'}}), "menu 60x40; ");
  EXPECT_TRUE(v.gks.side_windows.empty());
}

}  // namespace
}  // namespace zaview
