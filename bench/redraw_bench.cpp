// One redraw of six curves of 200 000 steps in a window of 1100 x 850 pixels: dense curves as their extremes a column
// of pixels, against all points. The two pictures are equal before they are timed.
#include <cmath>
#include <cstdlib>
#include <vector>

#include <benchmark/benchmark.h>

#include "gks/plot/dense_curve.h"
#include "gks/plot/plot_layer.h"
#include "window_in_memory.h"

namespace {

using namespace zaview;

constexpr int kWidth = 1100, kHeight = 850, kCurves = 6;
constexpr std::size_t kSteps = 200000;

struct Picture {
  Platform platform;
  GksState gks;
  PlotPage page;
  std::vector<float> t;
  std::vector<std::vector<float>> curves;

  Picture() {
    OpenWindowInMemory(kWidth, kHeight, platform, gks);
    for (std::size_t i = 0; i < kSteps; ++i) t.push_back(static_cast<float>(i) * 0.1F);
    for (int c = 0; c < kCurves; ++c) {
      std::vector<float> y;
      for (const float x : t) y.push_back(std::sin(x * 0.6F + static_cast<float>(c)) + std::sin(x * 0.37F));
      curves.push_back(y);
    }
  }
  void Draw(bool thin) {
    const PlotDraw draw{platform, gks, page};
    gksBeginPicture(platform.window, gks);
    static_cast<void>(dgFrame(draw, 2));
    static_cast<void>(dgFrame(draw, 1));
    dgNoFrame(draw);
    dgPage(draw, 11, 8.5F);
    dgArea(draw, 8, 5.5F);
    dgXName(draw, "Time");
    dgYName(draw, "x");
    dgGraf(draw, 0, 5000, 20000, -2, 0.5F, 2);
    for (std::size_t c = 0; c < curves.size(); ++c) {
      dgColour(draw, static_cast<int>(c) + 2);
      CurvePoints few;
      if (thin && ThinCurve(gks, t, curves[c], false, few)) dgCurve(draw, few.x, few.y, 0);
      else dgCurve(draw, t, curves[c], 0);
    }
    static_cast<void>(dgFrame(draw, -3));
  }
  std::vector<unsigned char> Pixels() {
    std::vector<unsigned char> rgb(static_cast<std::size_t>(kWidth * kHeight) * 3);
    if (!platform.window.read_picture(platform.window.self, kWidth, kHeight, rgb.data())) std::abort();
    return rgb;
  }
};

void Redraw(benchmark::State& state) {
  static Picture picture;
  picture.Draw(true);
  const std::vector<unsigned char> thin = picture.Pixels();
  picture.Draw(false);
  if (thin != picture.Pixels()) return state.SkipWithError("the pictures differ");
  for (auto _ : state) {
    picture.Draw(state.range(0) == 1);
    benchmark::DoNotOptimize(picture.Pixels().data());  // waits for the driver
  }
}
BENCHMARK(Redraw)->ArgName("thinned")->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
