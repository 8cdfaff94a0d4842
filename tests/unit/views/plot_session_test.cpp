#include "views/plot_session.h"

#include <string_view>

#include "frame/zaview_exit.h"
#include "plot_view.h"
#include "script/start_plot.h"

namespace zaview {
namespace {

constexpr int kEnter = 13;
const PlotRequest kHeave{
    .quantity = {.iqnt = 1, .curve = 3}
};

struct Views {  // with somebody there
  FakePlatform fake;
  OffscreenWindows* windows = MakeOffscreenWindows();
  Session session;

  Views() {
    UseSoftwareDriver();
    fake.window_available = true;
    fake.window = OffscreenWindowSystem(windows);
    fake.window.offscreen = false;
    session.platform = fake.Get();
    ReadSample(session, fake, "irregular_head.out");
    SetHooks(session);
  }
  Views(const Views&) = delete;
  Views& operator=(const Views&) = delete;
  ~Views() { FreeOffscreenWindows(windows); }

  void Press(std::string_view keys) const {
    for (const char key : keys) FeedEvent(*windows, {.code = key == '\n' ? kEnter : key});
  }
  void Close() const { FeedEvent(*windows, {.kind = FedEvent::Kind::close}); }
  int Run() {
    try {
      startgraphics(session);
    } catch (const FakeExit& end) {
      return end.status;
    }
  }
};

void ExitNext(Session& session) {
  session.run.exit_requested = true;
}

// A bare RETURN says yes to the question that stood there: it may not do so where it ends the help.
TEST(PlotSession, AQuestionGoesWithItsWindow) {
  Views v;
  v.fake.Put("old.txt", "old");
  v.session.dialogue = [](Session& s) {
    EXPECT_TRUE(StartPlot(s, kHeave, 0));
    s.dialogue = ExitNext;
  };
  EXPECT_TRUE(StartPlot(v.session, kHeave, 0));
  v.Press("wold.txt\n");
  v.Close();
  v.Press("h\n\n\n\n\n\n\n\nq");
  EXPECT_EQ(v.Run(), kRunOk) << v.fake.output;
  EXPECT_EQ(v.fake.Bytes("old.txt"), "old");
}

// The name was for this picture, not for the next one that the user stores.
TEST(PlotSession, APictureThatCannotBeMadeForgetsItsName) {
  Views v;
  v.session.dialogue = [](Session& s) {
    EXPECT_TRUE(s.run.plot_failed);
    EXPECT_TRUE(StartPlot(s, kHeave, 0));
    EXPECT_FALSE(s.run.plot_failed);
    s.dialogue = ExitNext;
  };
  v.session.output.confidence_probability = 1.5F;
  v.session.gks.dump.waiting = true;
  v.session.gks.dump.name = "x.png";
  EXPECT_TRUE(StartPlot(v.session, {.kind = PlotKind::interval, .quantity = kHeave.quantity}, 0));
  v.Press("Wq");
  EXPECT_EQ(v.Run(), kRunOk) << v.fake.output;
  EXPECT_FALSE(v.fake.files.contains("x.png"));
  EXPECT_TRUE(v.fake.files.contains("dump0001.png"));
}

// In dump-only mode a plot of the menu has nobody to fail for: the script that comes next doesn't.
TEST(PlotSession, AFailedPictureIsForgottenByTheNextPlot) {
  Views v;
  v.fake.environment["GLDUMPONLY"] = "yes";
  v.session.dialogue = [](Session& s) {
    EXPECT_TRUE(s.gks.dump.failed);
    FakePlatform::Of(s.platform.self).room = -1;
    EXPECT_TRUE(StartPlot(s, kHeave, 1));
    s.dialogue = ExitNext;
  };
  v.fake.room = 100;
  EXPECT_TRUE(StartPlot(v.session, kHeave, 0));
  EXPECT_EQ(v.Run(), kRunOk) << v.fake.output;
  EXPECT_FALSE(v.session.gks.dump.failed);
  EXPECT_TRUE(v.fake.files.contains("dump0001.gif"));
}

}  // namespace
}  // namespace zaview
