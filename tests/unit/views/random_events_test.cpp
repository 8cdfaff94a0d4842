// Thousands of keys, clicks and new sizes in no sense of order, over all kinds of plot, the hull and the animation, and
// their menus; a run goes on between them. Nothing may break, and "q" still leaves the view. ZAVIEW_EVENTS: how many (a
// long run by hand: 100000, built with sanitizers).
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include "frame/ground/zaview_exit.h"
#include "geometry_picture.h"
#include "gks/window/gks_window.h"
#include "views/frame/plot_session.h"
#include "views/state/run_pictures.h"
#include "views/state/start_plot.h"
#include "views/state/step_run.h"

namespace zaview {
namespace {

constexpr int kEvents = 1000;

struct Storm : Views {
  std::mt19937 random{20240417};
  int views_left = 0;
  bool over = false;
  bool animation = false;
  int left = 0;                // events
  int presses = 0, steps = 0;  // that reached a menu; of runs

  int Below(int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); }

  Storm(std::initializer_list<const char*> samples) : Views(samples) {
    session.plot_session.run_sync = false;
    PutBox(session.case_store);
    session.dialogue = [](Session& s) { Of(s).Continue(); };
  }

  // The session is a member: what surrounds it is found by its place.
  static Storm*& Current() {
    static Storm* current = nullptr;
    return current;
  }
  static Storm& Of(Session&) { return *Current(); }

  // In place of the text menu: another plot, of any kind and quantity.
  void Continue() {
    ++views_left;
    if (over) {
      session.run.exit_requested = true;
      return;
    }
    fake.output.clear();
    fake.files.clear();  // of the keys w and W
    session.run.plot_suboption = 0;
    Start();
  }
  void Start() {
    constexpr int kQuantityOfLoads = 13, kOneIn = 4;
    if (animation) {
      EXPECT_TRUE(StartAnimation(session, {}, 0)) << fake.output;
      return;
    }
    if (Below(kOneIn) == 0) {
      EXPECT_TRUE(StartView(session, PlotModule::geometry, 0)) << fake.output;
      return;
    }
    PlotRequest wanted;
    wanted.kind = static_cast<PlotKind>(1 + Below(kPlotKinds - 1));
    wanted.quantity.iqnt = wanted.kind == PlotKind::load_dist ? kQuantityOfLoads + Below(4) : 1 + Below(10);
    wanted.quantity.curve = Below(7);
    wanted.of_ensemble = Below(2) == 0;
    wanted.statistic = 1 + Below(4);
    EXPECT_TRUE(StartPlot(session, wanted, 0)) << fake.output;
  }

  // ---- Events
  FedEvent AnyKey(int window) {
    constexpr int kSpecial[] = {kKeyLeft,     kKeyUp,   kKeyRight, kKeyDown, kKeyPageUp,
                                kKeyPageDown, kKeyHome, kKeyEnd,   kKeyF1};
    constexpr int kOfMenus[] = {kKeyF1 + 1, kKeyF1 + 2, kKeyF1 + 3, 'h'};
    FedEvent event{.id = window};
    const int what = Below(45);
    if (what < 10) event.code = kSpecial[Below(std::size(kSpecial))];
    else if (what < 15) event.code = kOfMenus[Below(std::size(kOfMenus))];
    else if (what < 23) event.code = Below(2) == 0 ? 13 : 27;  // out of a question, a type-in
    else event.code = Below(50) == 0 ? 'q' : Below(256);
    if (event.code == 'Q') event.code = 'q';
    return event;
  }
  FedEvent AnyEvent() {
    FedEvent event{.x = Below(220) - 10, .y = Below(180) - 10};
    const int what = Below(100);
    if (what < 2) {
      event.kind = FedEvent::Kind::reshape;
      event.x = 1 + Below(200);
      event.y = 1 + Below(160);
    } else if (what < 35) {
      event.kind = FedEvent::Kind::mouse;
      event.code = 1 + Below(3);
    } else event = AnyKey(1);
    event.modifiers = Below(4) == 0 ? static_cast<unsigned>(Below(8)) : 0U;
    return event;
  }
  FedEvent AnyMenuEvent(const MenuSlot& slot) {
    constexpr int kDigits = 10, kTab = 9;
    FedEvent event{.id = slot.id, .x = Below(slot.width + 10) - 5, .y = Below(slot.height + 10) - 5};
    const int what = Below(100);
    event.code = 1;
    if (what < 45) {
      event.kind = FedEvent::Kind::mouse;
      ++presses;
      if (Below(8) == 0) event.code = 2 + Below(4);  // wheel too
    } else if (what < 60) event.kind = FedEvent::Kind::release;
    else if (what < 70) event.kind = FedEvent::Kind::drag;
    else if (what < 72) {
      event.kind = FedEvent::Kind::reshape;
      event.x = 1 + Below(700);
      event.y = 1 + Below(900);
    } else if (what < 73) event.kind = FedEvent::Kind::close;
    else if (what < 80) event = {.id = slot.id, .code = kTab};
    else if (what < 88) event = {.id = slot.id, .code = '0' + Below(kDigits)};
    else event = AnyKey(slot.id);
    event.modifiers = Below(8) == 0 ? static_cast<unsigned>(Below(8)) : 0U;
    return event;
  }
  void FeedSome(int count) {
    for (; count > 0 && left > 0; --count, --left) {
      std::vector<const MenuSlot*> open;
      for (const MenuSlot& slot : session.menus.kit.slots)
        if (slot.id != 0) open.push_back(&slot);
      const bool to_menu = !open.empty() && Below(3) > 0;
      FedEvent event =
          to_menu ? AnyMenuEvent(*open[static_cast<std::size_t>(Below(static_cast<int>(open.size())))]) : AnyEvent();
      if (open.empty() && Below(4) == 0) event = {.code = kKeyF1 + 1 + Below(3)};
      FeedEvent(*windows, event);
    }
  }
  // Between the steps of a run; at the end it stops, whatever its clock.
  bool Idle() {
    constexpr double kAStep = 0.5;  // seconds
    fake.seconds += kAStep;
    FeedSome(Below(3));
    if (left == 0) StopRun(session);
    else ++steps;
    return TopIdle(session);
  }

  int Run(int events) {
    Current() = this;
    left = events;
    session.gks.hooks.idle = [](void* self) { return Of(*static_cast<Session*>(self)).Idle(); };
    glResizeWindow(session.platform, session.gks, 200, 160);
    Start();
    int status = Views::Run();
    const WindowSystem& window = session.platform.window;
    while (left > 0 && status == kRunFailed) {  // where nothing is left to be done
      FeedSome(20);
      status = StatusOf([&] { window.main_loop(window.self); });
      if (status == -1) status = kRunFailed;
    }
    return status;
  }
};

int Wanted() {
  const char* set = std::getenv("ZAVIEW_EVENTS");
  return set == nullptr ? kEvents : std::atoi(set);
}

void WeatherStorm(Storm& storm, int share = 1) {
  // The loop ends with its events, as nobody is left to make more; then the view is left as ever.
  EXPECT_EQ(storm.Run(Wanted() / share), kRunFailed) << storm.fake.output;
  EXPECT_GT(storm.views_left, 0);
  EXPECT_GT(storm.presses, Wanted() / share / 10);
  storm.over = true;
  for (const int key : {27, static_cast<int>('q')}) {  // out of a question, out of the view
    FedEvent event;
    event.code = key;
    FeedEvent(*storm.windows, event);
  }
  const WindowSystem& window = storm.session.platform.window;
  EXPECT_EQ(storm.StatusOf([&] { window.main_loop(window.self); }), 0) << storm.fake.output;
}

TEST(RandomEvents, Ensemble) {
  Storm storm({"sea_1.out", "sea_2.out"});
  WeatherStorm(storm);
}

TEST(RandomEvents, Loads) {
  Storm storm({"irregular_head.out"});
  WeatherStorm(storm);
}

TEST(RandomEvents, Animation) {
  constexpr int kSlower = 3;
  Storm storm({"irregular_head.out"});
  storm.animation = true;
  WeatherStorm(storm, kSlower);
  EXPECT_GT(storm.steps, Wanted() / kSlower / 10);
}

}  // namespace
}  // namespace zaview
