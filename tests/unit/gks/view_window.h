// A window without a display and a view in it that writes down what it is told and does what a key says.
#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "gks/window/gks_window.h"
#include "gks/window/text_screen.h"
#include "unit/gks/drawing.h"

namespace zaview {

struct ViewWindow {
  FakePlatform fake;
  OffscreenWindows* windows = MakeOffscreenWindows();
  Platform platform;
  GksState gks;
  std::string told;
  bool in_view = true;
  std::deque<std::string> orders;  // of pictures, one for each further view; none left: the end
  int drawn = 0;
  int idle_calls = 0;  // still wanted

  explicit ViewWindow(bool as_on_display = true) {
    UseSoftwareDriver();
    fake.window_available = true;
    fake.window = OffscreenWindowSystem(windows);
    fake.window.offscreen = !as_on_display;
    platform = fake.Get();
    GksHooks& hooks = gks.hooks;
    hooks.self = this;
    hooks.render = [](void* self, bool force) { Of(self).Render(force); };
    hooks.mouse = [](void* self, int button, float x, float y) {
      Of(self).Tell("mouse {} at {:.2f} {:.2f}{}", button, x, y, Of(self).Held());
    };
    hooks.keyboard = [](void* self, int key, float x, float y) { Of(self).Key(key, x, y); };
    hooks.idle = [](void* self) {
      Of(self).Tell("idle");
      if (--Of(self).idle_calls > 0) return true;
      gksIdleOff(Of(self).platform, Of(self).gks);
      return false;
    };
    hooks.screen_input = [](void* self, std::string_view text) { Of(self).Tell("answer '{}'", text); };
    hooks.close_menus = [](void* self) { Of(self).Tell("menus"); };
  }
  ViewWindow(const ViewWindow&) = delete;
  ViewWindow& operator=(const ViewWindow&) = delete;
  ~ViewWindow() { FreeOffscreenWindows(windows); }

  static ViewWindow& Of(void* self) { return *static_cast<ViewWindow*>(self); }
  template <typename... Args>
  void Tell(fmt::format_string<Args...> text, Args&&... args) {
    const std::string line = fmt::format(text, std::forward<Args>(args)...) + "; ";
    if (line.rfind("draw", 0) != 0 || !told.ends_with(line)) told += line;  // drawn once more: nobody may count on it
  }
  [[nodiscard]] std::string Held() const {
    const GksModifiers held = gksMouseButtons(gks);
    return fmt::format("{}{}{}", held.shift ? " shift" : "", held.control ? " control" : "", held.alt ? " alt" : "");
  }
  [[nodiscard]] std::string State() const {
    return fmt::format("{}{}", IsOffscreenWindowShown(*windows, 1) ? "shown" : "hidden",
                       gks.window.idle_on ? " idle" : "");
  }

  void Render(bool force) {
    if (!in_view) {
      Tell("menu {}", State());
      if (orders.empty()) throw FakeExit{0};
      gksSetDumpOption(gks, orders.front());
      orders.pop_front();
      in_view = true;
    }
    gksWindowShow(gks);
    gksOpenTo(gks, GksLevel::active);
    GCLRWK(gks);
    ++drawn;
    Tell("draw{} {}x{}", force ? " all" : "", gks.window.width, gks.window.height);
  }
  void Key(int key, float x, float y) {
    Tell("key {} at {:.2f} {:.2f}{}", key, x, y, Held());
    if (key == 'q') {
      in_view = false;
      gksWindowHideNow(platform, gks);
    }
    if (key == 'c') platform.window.hide(platform.window.self, gks.window.id);  // as if something covered it
    if (key == 'i') {
      idle_calls = 2;
      gksIdleOn(platform, gks);
    }
    if (key == 'l') glResizeWindow(platform, gks, 300, 200);
    if (key == 'p') gksScreenPrompt(platform, gks, ScreenMode::free, "Name=>", "");
  }

  // What is told until the run ends or nothing is left to be done.
  std::string Run(const std::vector<FedEvent>& fed) {
    told.clear();
    for (const FedEvent& event : fed) FeedEvent(*windows, event);
    try {
      if (gks.window.id != 0) platform.window.main_loop(platform.window.self);
      else if (gksReady(platform, gks)) gksTop(platform, gks, "test");
    } catch (const FakeExit&) {
      Tell("end");
    }
    return std::exchange(told, {});
  }
};

}  // namespace zaview
