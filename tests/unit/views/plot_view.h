// A data plot in a window without a display: a session with a sample case in store, its picture as numbers.
#pragma once

#include <cmath>
#include <cstddef>
#include <initializer_list>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "case/read/read_output_file.h"
#include "frame/session.h"
#include "project_places.h"
#include "unit/gks/drawing.h"
#include "views/data_plot/data_plot.h"
#include "views/frame/plot_session.h"
#include "views/state/axes_limits.h"
#include "views/state/plot_selection.h"

namespace zaview {

// "irregular_head.out": another one joins it where it matches. What was said is forgotten.
inline void ReadSample(Session& session, FakePlatform& fake, const std::string& sample) {
  const std::string name = sample.find('/') == std::string::npos ? sample : sample.substr(sample.rfind('/') + 1);
  fake.Put(name, SampleBytes(sample));
  ReadRequest request;
  request.name = name;
  const ReadOutcome outcome =
      read_output_file(request, session.platform, session.run, session.output, session.case_store, session.ensemble);
  EXPECT_EQ(outcome, ReadOutcome::ok) << fake.output;
  fake.output.clear();
}

// Somebody at a window, with the first of these samples in store and the others beside it. What each event of theirs
// makes of the session is told by the end of the run.
struct Views {
  FakePlatform fake;
  OffscreenWindows* windows = MakeOffscreenWindows();
  Session session;

  explicit Views(std::initializer_list<const char*> samples) {
    UseSoftwareDriver();
    fake.window_available = true;
    fake.window = OffscreenWindowSystem(windows);
    fake.window.offscreen = false;
    session.platform = fake.Get();
    for (const char* sample : samples) ReadSample(session, fake, sample);
    SetHooks(session);
  }
  Views(const Views&) = delete;
  Views& operator=(const Views&) = delete;
  ~Views() { FreeOffscreenWindows(windows); }

  template <typename Loop>
  int StatusOf(Loop loop) {  // that it ends with
    try {
      loop();
    } catch (const FakeExit& end) {
      return end.status;
    }
    return -1;
  }
  int Run() {
    return StatusOf([this] { startgraphics(session); });
  }
};

struct PlotView : Picture {
  FakePlatform fake;  // its output is what was said since the case was read
  OffscreenWindows* windows = MakeOffscreenWindows();
  Session session;

  explicit PlotView(const std::string& sample, int width = 500, int height = 400) {
    session.platform = fake.Get();
    if (!sample.empty()) Read(sample);
    OpenWindow(windows, session.platform, session.gks, width, height);
    session.run.plot_module = PlotModule::data_plot;
  }
  PlotView(const PlotView&) = delete;
  PlotView& operator=(const PlotView&) = delete;
  ~PlotView() { FreeOffscreenWindows(windows); }

  void Read(const std::string& sample) { ReadSample(session, fake, sample); }

  DataPlotState& plot() { return session.data_plot; }

  // The kind of plot of a quantity, with everything to be made anew.
  void Choose(PlotKind kind, int iqnt, int component) {
    plot().kind = kind;
    plot().quantity.iqnt = iqnt;
    plot().plot_component = component;
    ForgetLimits(plot().axes);
    ForgetData(plot());
  }

  void Make(PlotKind kind, int iqnt, int component) {
    Choose(kind, iqnt, component);
    zaviewsetaxes(session);
  }
  void Show(PlotKind kind, int iqnt, int component) {
    Choose(kind, iqnt, component);
    Show();
  }

  // As a display of the frame does it. The picture is in rgb unless the view was left.
  void Show() {
    gksBeginPicture(session.platform.window, session.gks);
    zaviewsetaxes(session);
    if (session.run.plot_module == PlotModule::none) return;
    zaviewrender(session);
    Picture::Read(session.platform, session.gks);
  }

  [[nodiscard]] unsigned Ink(int index) const {  // a colour of the plot as the picture has it
    const GksColour& colour = session.gks.colour[static_cast<std::size_t>(index)];
    const auto part = [](float value) { return static_cast<unsigned>(std::lround(value * 255.0F)); };
    return part(colour.red) << 16U | part(colour.green) << 8U | part(colour.blue);
  }
  // Of all pixels of a colour. In the dark mode the paper is 0, colour 1 white, 2 red, 3 green.
  [[nodiscard]] Box Pixels(unsigned colour) const {
    return BoxOf([colour](unsigned of) { return of == colour ? 1.0 : 0.0; });
  }
};

// "field 3 other 1": these become what is wanted of the fields, rows with a name.
template <typename Fields, typename Number>
void TakeChanges(const Fields& fields, const char* changes, std::vector<Number>& want) {
  std::istringstream in(changes);
  std::string name;
  for (Number value = 0; in >> name >> value;) {
    std::size_t at = 0;
    while (at < std::size(fields) && fields[at].name != name) ++at;
    ASSERT_LT(at, std::size(fields)) << name;
    want[at] = value;
  }
}

// "g ^e ^E A-o Left S-PgUp Space": keys as a user would write them.
inline void Press(Session& session, const std::string& keys) {
  const std::pair<std::string_view, int> names[] = {{"Left", kKeyLeft}, {"Right", kKeyRight}, {"Up", kKeyUp},
                                                    {"Down", kKeyDown}, {"PgUp", kKeyPageUp}, {"PgDn", kKeyPageDown},
                                                    {"Space", ' '},     {"Esc", 27},          {"Back", 8},
                                                    {"F1", kKeyF1},     {"End", kKeyEnd}};
  std::istringstream in(keys);
  for (std::string word; in >> word;) {
    unsigned held = 0;
    std::string_view key = word;
    if (key.size() > 2 && key[1] == '-') {
      held = key[0] == 'A' ? kAltKey : kShiftKey;
      key.remove_prefix(2);
    }
    int code = static_cast<unsigned char>(key[0]);
    if (key.size() == 2 && key[0] == '^') {
      const bool capital = key[1] >= 'A' && key[1] <= 'Z';
      held |= kControlKey | (capital ? kShiftKey : 0U);
      code = key[1] - (capital ? 'A' : 'a') + 1;
    }
    for (const auto& [name, special] : names)
      if (key == name) code = special;
    session.gks.modifiers = held;
    PressKey(session, code);
    session.gks.modifiers = 0;
  }
}

}  // namespace zaview
