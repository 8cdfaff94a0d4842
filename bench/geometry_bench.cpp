// How long does a redraw of a hull of 5000 elements in space take, sorted and painted into 800 x 600 pixels? To be
// smooth under the keys: 50 ms at most. Its place in the picture is compared with the formulas before it is timed.
#include <cmath>
#include <cstdlib>
#include <vector>

#include <benchmark/benchmark.h>

#include "frame/session.h"
#include "views/geometry/geometry_view.h"
#include "window_in_memory.h"

namespace {

using namespace zaview;

constexpr int kWidth = 800, kHeight = 600, kAround = 50, kAlong = 100;

// An ellipsoid of 100 x 20 x 12.
void PutHull(CaseStore& store) {
  HullMesh& mesh = store.hull.mesh;
  const auto node = [](int i, int j) { return i * kAround + j % kAround + 1; };
  for (int i = 0; i <= kAlong; ++i)
    for (int j = 0; j < kAround; ++j) {
      const double a = M_PI * i / kAlong, b = 2 * M_PI * j / kAround;
      mesh.nodes.push_back({50 * std::cos(a), 10 * std::sin(a) * std::cos(b), 6 * std::sin(a) * std::sin(b)});
    }
  for (int i = 0; i < kAlong; ++i)
    for (int j = 0; j < kAround; ++j)
      mesh.elements.push_back({{node(i, j), node(i + 1, j), node(i + 1, j + 1), node(i, j + 1)}});
  store.has_case = true;
  store.hull_tried = Tried::there;
}

struct View {
  Session session;

  View() {
    OpenWindowInMemory(kWidth, kHeight, session.platform, session.gks);
    PutHull(session.case_store);
    GeometryViewState& view = session.geometry_view;
    view.geo_3d = view.own_radius = view.own_centre = true;
    view.show_title = false;
    view.view = {{}, 90, 0, 30, 200, false};
  }
  void Draw() {
    gksBeginPicture(session.platform.window, session.gks);
    GeoRender(session);
  }
};

// 100 long and 12 high from port: half the height, 200 tan 15, are 300 pixels.
bool IsRight(View& view) {
  view.Draw();
  std::vector<unsigned char> rgb(kWidth * kHeight * 3);
  const WindowSystem& window = view.session.platform.window;
  if (!window.read_picture(window.self, kWidth, kHeight, rgb.data())) return false;
  int left = kWidth, right = -1, low = kHeight, high = -1;
  for (int y = 0; y < kHeight; ++y)
    for (int x = 0; x < kWidth; ++x)
      if (rgb[static_cast<std::size_t>(3 * (y * kWidth + x) + 2)] > 0) {
        left = std::min(left, x), right = std::max(right, x);
        low = std::min(low, y), high = std::max(high, y);
      }
  const double unit = 300 / (200 * std::tan(M_PI / 12));
  return std::abs(right - left - 100 * unit) < 4 && std::abs(high - low - 12 * unit) < 4;
}

void Redraw(benchmark::State& state) {
  View view;
  if (!IsRight(view)) return state.SkipWithError("the hull stands elsewhere");
  GeometryViewState& looks = view.session.geometry_view;
  looks.view.view_azimuth = 35;
  looks.view.view_elevation = 25;
  looks.view.view_radius = 150;
  looks.geo_solid = state.range(0) != 0;
  for (auto _ : state) view.Draw();
}
BENCHMARK(Redraw)->Arg(0)->Arg(1)->ArgName("solid")->Unit(benchmark::kMillisecond);

}  // namespace
