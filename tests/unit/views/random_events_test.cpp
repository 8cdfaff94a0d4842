// Thousands of keys, clicks and new sizes in no sense of order, over all kinds of plot, the hull and the animation.
// Nothing may break, and "q" still leaves the view. ZAVIEW_EVENTS: how many (a long run by hand: 100000, built with
// sanitizers).
#include <cstdlib>
#include <random>
#include <string>

#include "frame/ground/zaview_exit.h"
#include "geometry_picture.h"
#include "gks/window/gks_window.h"
#include "views/frame/plot_session.h"
#include "views/state/run_pictures.h"
#include "views/state/start_plot.h"

namespace zaview {
namespace {

constexpr int kEvents = 1500;

struct Storm : Views {
  std::mt19937 random{20240417};
  int views_left = 0;
  bool over = false;
  bool animation = false;

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

  FedEvent AnyEvent() {
    constexpr int kSpecial[] = {kKeyLeft, kKeyUp, kKeyRight, kKeyDown, kKeyPageUp, kKeyPageDown, kKeyEnd, kKeyF1};
    FedEvent event;
    event.x = Below(220) - 10;
    event.y = Below(180) - 10;
    event.modifiers = Below(4) == 0 ? static_cast<unsigned>(Below(8)) : 0U;
    const int what = Below(100);
    if (what < 2) {
      event.kind = FedEvent::Kind::reshape;
      event.x = 1 + Below(200);
      event.y = 1 + Below(160);
    } else if (what < 35) {
      event.kind = FedEvent::Kind::mouse;
      event.code = 1 + Below(3);
    } else if (what < 45) {
      event.code = kSpecial[Below(std::size(kSpecial))];
    } else if (what < 55) {
      event.code = Below(2) == 0 ? 13 : 27;  // out of a question
    } else {
      event.code = Below(50) == 0 ? 'q' : Below(256);
      if (event.code == 'Q') event.code = 'q';
    }
    return event;
  }

  int Run(int events) {
    Current() = this;
    glResizeWindow(session.platform, session.gks, 200, 160);
    Start();
    for (int i = 0; i < events; ++i) FeedEvent(*windows, AnyEvent());
    return Views::Run();
  }
};

int Wanted() {
  const char* set = std::getenv("ZAVIEW_EVENTS");
  return set == nullptr ? kEvents : std::atoi(set);
}

void WeatherStorm(Storm& storm, int share = 1) {
  // The loop ends with its events, as nobody is left to make more; then the view is left as ever.
  EXPECT_EQ(storm.Run(Wanted() / share), kRunFailed) << storm.fake.output;
  EXPECT_GT(storm.views_left, 3 / share);
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
  constexpr int kSlower = 2;
  Storm storm({"irregular_head.out"});
  storm.animation = true;
  WeatherStorm(storm, kSlower);
}

}  // namespace
}  // namespace zaview
