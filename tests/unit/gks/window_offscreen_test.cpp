#include "gks/window/window_offscreen.h"

#include <string>
#include <vector>

#include <GL/gl.h>
#include <fmt/format.h>
#include <gtest/gtest.h>

#include "unit/gks/drawing.h"

namespace zaview {
namespace {

// Writes down what it is told, and does what a view would.
struct Watcher {
  OffscreenWindows* windows = MakeOffscreenWindows();
  WindowSystem system = OffscreenWindowSystem(windows);
  std::string told;
  int idle_calls = 0, stop_idle_at = 1;

  Watcher() {
    UseSoftwareDriver();
    WindowEvents events;
    events.self = this;
    events.display = [](void* self, int id, bool damaged) {
      Of(self).Tell("display {} {}", id, damaged ? "all" : "posted");
    };
    events.reshape = [](void* self, int id, int w, int h) { Of(self).Tell("reshape {} {}x{}", id, w, h); };
    events.visible = [](void* self, int id, bool on) { Of(self).Tell("visible {} {}", id, on); };
    events.key = [](void* self, int id, int code, unsigned modifiers, int, int) {
      Watcher& w = Of(self);
      w.Tell("key {} {} {}", id, code, modifiers);
      if (code == 'p') w.system.post_redisplay(w.system.self, id);
      if (code == 'h') w.system.hide(w.system.self, id);
      if (code == 's') w.system.show(w.system.self, id);
      if (code == 'i') w.system.set_idle(w.system.self, true);
      if (code == 'd') w.system.destroy_window(w.system.self, id);
    };
    events.mouse = [](void* self, int id, int button, unsigned, int x, int y) {
      Of(self).Tell("mouse {} {} at {} {}", id, button, x, y);
    };
    events.closed = [](void* self, int id) {
      Watcher& w = Of(self);
      const int next = w.system.create_window(w.system.self, "again", 0, 0, 40, 30);
      w.Tell("closed {}, now {} of {}", id, next, w.system.context_generation(w.system.self));
    };
    events.idle = [](void* self) {
      Watcher& w = Of(self);
      ++w.idle_calls;
      if (w.idle_calls >= w.stop_idle_at) w.system.set_idle(w.system.self, false);
      w.system.post_redisplay(w.system.self, 1);
      w.Tell("idle");
    };
    std::string why;
    EXPECT_EQ(system.create_window(system.self, "early", 0, 0, 10, 10), 0);
    EXPECT_TRUE(system.start(system.self, events, why)) << why;
    EXPECT_TRUE(system.start(system.self, {}, why));  // changes nothing
  }
  Watcher(const Watcher&) = delete;
  Watcher& operator=(const Watcher&) = delete;
  ~Watcher() { FreeOffscreenWindows(windows); }

  static Watcher& Of(void* self) { return *static_cast<Watcher*>(self); }
  template <typename... Args>
  void Tell(fmt::format_string<Args...> text, Args&&... args) {
    told += fmt::format(text, std::forward<Args>(args)...) + "; ";
  }
  std::string Run(const std::vector<FedEvent>& fed) {
    told.clear();
    for (const FedEvent& event : fed) FeedEvent(*windows, event);
    system.main_loop(system.self);
    return told;
  }
};

using enum FedEvent::Kind;

TEST(OffscreenWindow, TellsWhatIsPendingThenWhatIsFedThenIdle) {
  Watcher w;
  EXPECT_EQ(w.Run({}), "");
  EXPECT_EQ(w.system.create_window(w.system.self, "main", 0, 0, 20, 10), 1);
  EXPECT_EQ(w.Run({}), "reshape 1 20x10; visible 1 true; display 1 all; ");
  EXPECT_EQ(w.Run({{key, 1, 'p', kControlKey}, {mouse, 1, 2, 0, 5, 6}}),
            "key 1 112 2; display 1 posted; mouse 1 2 at 5 6; ");
  EXPECT_EQ(
      w.Run({{key, 1, 'h'}, {key, 1, 'p'}, {key, 1, 's'}}),
      "key 1 104 0; visible 1 false; key 1 112 0; display 1 posted; key 1 115 0; visible 1 true; display 1 all; ");
  EXPECT_EQ(w.Run({{key, 9, 'p'}, {reshape, 1, 0, 0, 30, 15}, {reshape, 1, 0, 0, 0, 15}}),
            "reshape 1 30x15; display 1 all; ");
  w.stop_idle_at = 2;
  EXPECT_EQ(w.Run({{key, 1, 'i'}, {mouse, 1, 1, 0, 0, 0}}),
            "key 1 105 0; mouse 1 1 at 0 0; idle; display 1 posted; idle; display 1 posted; ");
  EXPECT_EQ(w.Run({{close, 1}}), "closed 1, now 1 of 2; reshape 1 40x30; visible 1 true; display 1 all; ");
  EXPECT_EQ(w.system.create_window(w.system.self, "menu", 0, 0, 5, 5), 2);
  EXPECT_EQ(w.system.set_current(w.system.self, 1), 2);
  EXPECT_EQ(w.Run({{key, 2, 'd'}, {key, 2, 'p'}}), "reshape 2 5x5; visible 2 true; display 2 all; key 2 100 0; ");
}

// Of an image in memory, and of a scene that OpenGL draws in its place; smooth or not.
TEST(OffscreenWindow, PictureHasTheSizeOfTheWindowWhenItWasBegun) {
  for (const int way : {0, 1, 2}) {
    Watcher w;
    std::vector<unsigned char> rgb(40 * 40 * 3, 7);
    std::string why;
    const auto begin = [&] {
      if (w.system.begin_image(w.system.self, 1) == nullptr) return false;
      if (way == 0) return true;
      if (!w.system.begin_scene(w.system.self, 1, way == 2, why)) return false;
      glClearColor(0.2F, 0.4F, 0.6F, 1);
      glClear(GL_COLOR_BUFFER_BIT);
      return w.system.end_scene(w.system.self, 1, why) != nullptr;
    };
    const auto can_read = [&](int width, int height) {
      return w.system.read_picture(w.system.self, width, height, rgb.data());
    };
    EXPECT_FALSE(begin());
    EXPECT_EQ(w.system.create_window(w.system.self, "none", 0, 0, 0, 10), 0);
    EXPECT_EQ(w.system.create_window(w.system.self, "main", 0, 0, 20, 10), 1);
    EXPECT_FALSE(can_read(20, 10));
    EXPECT_TRUE(begin()) << why;
    EXPECT_TRUE(can_read(20, 10));
    for (const std::size_t pixel : {0U, 199U})
      for (const std::size_t part : {0U, 1U, 2U})
        EXPECT_EQ(rgb[3 * pixel + part], way == 0 ? 0 : 51 * (part + 1)) << way << " " << why;
    EXPECT_EQ(rgb[20 * 10 * 3], 7);
    w.system.reshape_window(w.system.self, 1, 40, 30);
    EXPECT_FALSE(can_read(40, 30));
    EXPECT_TRUE(begin());
    EXPECT_TRUE(can_read(40, 30));
    EXPECT_TRUE(why.empty());
    w.system.reshape_window(w.system.self, 1, 20000, 2);  // more than OpenGL can draw
    EXPECT_EQ(begin(), way == 0);
    EXPECT_EQ(why.empty(), way == 0);
    w.system.reshape_window(w.system.self, 1, 1 << 30, 1 << 30);  // more than anybody can
    EXPECT_FALSE(begin());
    EXPECT_FALSE(can_read(1 << 30, 1));
  }
}

}  // namespace
}  // namespace zaview
