// A data plot in a window without a display: a session with a sample case in store, its picture as numbers.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "case/read/read_output_file.h"
#include "fake_platform.h"
#include "frame/session.h"
#include "gks/kernel/gks_control.h"
#include "gks/window/window_offscreen.h"
#include "project_places.h"
#include "views/data_plot/data_plot.h"
#include "views/state/axes_limits.h"
#include "views/state/plot_selection.h"

namespace zaview {

// Of the folder of samples.
inline std::string SampleBytes(const std::string& name) {
  std::ifstream in(ProjectFile("samples/") + name, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// Pixels are those of one driver on every machine.
inline void UseSoftwareDriver() {
  setenv("LIBGL_ALWAYS_SOFTWARE", "1", 1);
  setenv("GALLIUM_DRIVER", "llvmpipe", 1);
}

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

struct PixelBox {
  int left = 1000000, right = -1, top = 1000000, bottom = -1;  // y down, ends included
  int count = 0;
};

struct PlotView {
  FakePlatform fake;  // its output is what was said since the case was read
  OffscreenWindows* windows = MakeOffscreenWindows();
  Session session;
  std::vector<unsigned char> rgb;

  explicit PlotView(const std::string& sample, int width = 500, int height = 400) {
    UseSoftwareDriver();
    session.platform = fake.Get();
    if (!sample.empty()) Read(sample);
    Platform& platform = session.platform;
    platform.window = OffscreenWindowSystem(windows);
    std::string why;
    EXPECT_TRUE(platform.window.start(platform.window.self, {}, why)) << why;
    GksState& gks = session.gks;
    gks.window.width = width;
    gks.window.height = height;
    gks.window.id = platform.window.create_window(platform.window.self, "test", 0, 0, width, height);
    gksSetReverse(gks, false);
    session.run.plot_module = 1;
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

  // As a display of the frame does it. The picture is in rgb unless the view was left.
  void Show() {
    gksBeginPicture(session.platform.window, session.gks);
    zaviewsetaxes(session);
    if (session.run.plot_module == 0) return;
    zaviewrender(session);
    const int width = session.gks.window.width, height = session.gks.window.height;
    rgb.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 3, 0);
    EXPECT_TRUE(session.platform.window.read_picture(session.platform.window.self, width, height, rgb.data()));
  }

  [[nodiscard]] unsigned At(int x, int y) const {  // 0xRRGGBB, y down
    const auto i = static_cast<std::size_t>((session.gks.window.height - 1 - y) * session.gks.window.width + x) * 3;
    return static_cast<unsigned>(rgb[i]) << 16U | static_cast<unsigned>(rgb[i + 1]) << 8U | rgb[i + 2];
  }
  [[nodiscard]] unsigned Ink(int index) const {  // a colour of the plot as the picture has it
    const GksColour& colour = session.gks.colour[static_cast<std::size_t>(index)];
    const auto part = [](float value) { return static_cast<unsigned>(std::lround(value * 255.0F)); };
    return part(colour.red) << 16U | part(colour.green) << 8U | part(colour.blue);
  }
  // Of all pixels of a colour. In the dark mode the paper is 0, colour 1 white, 2 red, 3 green.
  [[nodiscard]] PixelBox Pixels(unsigned colour) const {
    PixelBox box;
    for (int y = 0; y < session.gks.window.height; ++y) {
      for (int x = 0; x < session.gks.window.width; ++x) {
        if (At(x, y) != colour) continue;
        box.left = std::min(box.left, x);
        box.right = std::max(box.right, x);
        box.top = std::min(box.top, y);
        box.bottom = std::max(box.bottom, y);
        ++box.count;
      }
    }
    return box;
  }
};

}  // namespace zaview
