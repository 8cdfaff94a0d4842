// menu_pictures SAMPLES FOLDER: the option menus of each view beside the view, as PNG files.
// Drawn in memory; the menus are opened by their keys.
#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "base/platform_posix.h"
#include "case/read/read_output_file.h"
#include "frame/session.h"
#include "gks/picture/picture_file.h"
#include "gks/window/gks_window.h"
#include "gks/window/window_offscreen.h"
#include "menu/file_selector.h"
#include "menu/menu_window.h"
#include "views/data_plot/data_plot.h"
#include "views/frame/ordered_run.h"
#include "views/frame/plot_session.h"
#include "views/geometry/geometry_view.h"
#include "views/menus/menus.h"
#include "views/state/start_plot.h"

namespace {

using namespace zaview;

constexpr unsigned char kDesk = 112, kEdge = 40;
constexpr int kMargin = 12, kWindow = 560;

struct Screen {  // top row first
  int width = 2400, height = 1200;
  std::vector<unsigned char> rgb = std::vector<unsigned char>(static_cast<std::size_t>(width * height * 3), kDesk);
  int left = width, top = height, right = 0, bottom = 0;  // of all windows

  void Put(int x, int y, const unsigned char* colour) {
    if (x < 0 || y < 0 || x >= width || y >= height) return;
    std::copy_n(colour, 3, rgb.begin() + (static_cast<std::ptrdiff_t>(y) * width + x) * 3);
  }
  void Frame(const WindowPlace& at) {
    constexpr unsigned char edge[] = {kEdge, kEdge, kEdge};
    for (int x = -1; x <= at.width; ++x) Put(at.x + x, at.y - 1, edge), Put(at.x + x, at.y + at.height, edge);
    for (int y = -1; y <= at.height; ++y) Put(at.x - 1, at.y + y, edge), Put(at.x + at.width, at.y + y, edge);
  }
  // bottom row first
  void Add(const WindowPlace& at, const std::vector<unsigned char>& picture) {
    Frame(at);
    for (int y = 0; y < at.height; ++y)
      for (int x = 0; x < at.width; ++x)
        Put(at.x + x, at.y + y, &picture[static_cast<std::size_t>(((at.height - 1 - y) * at.width + x) * 3)]);
    left = std::min(left, at.x);
    top = std::min(top, at.y);
    right = std::max(right, at.x + at.width);
    bottom = std::max(bottom, at.y + at.height);
  }
  bool Write(const Platform& platform, const std::string& name) {
    const int x0 = std::max(left - kMargin, 0), y0 = std::max(top - kMargin, 0);
    const int x1 = std::min(right + kMargin, width), y1 = std::min(bottom + kMargin, height);
    std::vector<unsigned char> part;
    for (int y = y1 - 1; y >= y0; --y) {
      const auto row = rgb.begin() + (static_cast<std::ptrdiff_t>(y) * width + x0) * 3;
      part.insert(part.end(), row, row + (x1 - x0) * 3);
    }
    return WritePicture(platform, name, PictureFormat::png, x1 - x0, y1 - y0, part);
  }
};

struct KeyOf {
  int key = 0;
  unsigned modifiers = 0;
};

struct Scene {
  const char* name;
  const char* file;
  PlotModule module = PlotModule::data_plot;
  PlotRequest plot{};
  std::vector<KeyOf> keys;
  void (*then)(Session& session) = nullptr;  // what no key opens
};

void OpenPoint(Session& s) {
  InvokePointMenu(s, MenuMode::open);
}
void OpenQuantities(Session& s) {
  InvokeQntMenu(s, {});
}
void OpenColours(Session& s) {
  InvokeColorMenu(s, {});
}
void OpenMessage(Session& s) {
  static_cast<void>(InvokeMessageWindow(s, {"File written"}));
}
// As a press of the item does it that asks for a file.
void OpenFiles(Session& s) {
  for (const OptionPlace& place : s.menus.places)
    if (place.option->kind == OptionKind::file)
      return dgFileSelector(s.menus.kit, {place.menu, place.element, place.item}, kFileWrite, "");
}

constexpr KeyOf kOptions{'o', kAltKey}, kCurves{'s', kAltKey}, kSteps{' ', kAltKey}, kReverse{18, kControlKey};
constexpr QuantityRequest kHeave{.iqnt = 1, .curve = 3};

const std::vector<Scene>& Scenes() {
  static const std::vector<Scene> scenes = {
      {"menu_history", "irregular_head.out", PlotModule::data_plot, {PlotKind::history, kHeave}, {kOptions, kCurves}},
      {"menu_histogram",
       "irregular_head.out",
       PlotModule::data_plot,
       {PlotKind::histogram, kHeave},
       {kOptions, kReverse}},
      {"menu_trajectory", "quartering.out", PlotModule::data_plot, {PlotKind::trajectory, kHeave}, {kOptions}},
      {"menu_correlation",
       "irregular_head.out",
       PlotModule::data_plot,
       {PlotKind::autocorrelation, kHeave},
       {kOptions}},
      {"menu_interval", "sea_1.out", PlotModule::data_plot, {PlotKind::interval, kHeave, true}, {kOptions, kCurves}},
      {"menu_loads",
       "irregular_head.out",
       PlotModule::data_plot,
       {PlotKind::load_dist, {.iqnt = 13}},
       {kOptions, kSteps}},
      {"menu_animation", "quartering.out", PlotModule::animation, {}, {kOptions, kSteps}},
      {"menu_geometry", "quartering.out", PlotModule::geometry, {}, {kOptions, kReverse}},
      {"menu_geometry_3d", "quartering.out", PlotModule::geometry, {}, {{'V'}, kOptions}},
      {"menu_covariance", "irregular_head.out", PlotModule::data_plot, {PlotKind::autocovariance, kHeave}, {kOptions}},
      {"menu_point", "irregular_head.out", PlotModule::data_plot, {PlotKind::history, kHeave}, {}, OpenPoint},
      {"menu_quantities", "quartering.out", PlotModule::animation, {}, {}, OpenQuantities},
      {"menu_colours", "quartering.out", PlotModule::animation, {}, {}, OpenColours},
      {"menu_message", "quartering.out", PlotModule::geometry, {}, {}, OpenMessage},
      {"menu_files", "irregular_head.out", PlotModule::data_plot, {PlotKind::history, kHeave}, {kOptions}, OpenFiles},
      {"menu_help", "quartering.out", PlotModule::geometry, {}, {{'h'}}},
  };
  return scenes;
}

bool Read(Session& s, const std::string& name) {
  ReadRequest request;
  request.name = name;
  return read_output_file(request, s.platform, s.run, s.output, s.case_store, s.ensemble) == ReadOutcome::ok;
}

void Enter(Session& s, const Scene& scene) {
  if (scene.module == PlotModule::data_plot) static_cast<void>(StartPlot(s, scene.plot, 0));
  else static_cast<void>(StartView(s, scene.module, 0));
  if (scene.module == PlotModule::animation) EnterAnimation(s);
  else if (scene.module == PlotModule::geometry) GeoPlotInit(s);
  else zaviewinit(s);
}

bool Draw(const Scene& scene, const std::string& samples, const std::string& folder) {
  OffscreenWindows* const windows = MakeOffscreenWindows();
  Session s;
  s.platform = PosixPlatform();
  s.platform.window = OffscreenWindowSystem(windows);
  s.platform.window.offscreen = false;  // menus are wanted
  s.platform.choose_window = [](const Platform& machine) { return machine.window; };
  s.run.skip_prompt = SkipPrompt::silent;
  SetHooks(s);
  if (!Read(s, samples + '/' + scene.file)) return false;
  if (scene.plot.of_ensemble)
    for (const char* more : {"/sea_2.out", "/sea_3.out"})
      if (!Read(s, samples + more)) return false;
  glResizeWindow(s.platform, s.gks, kWindow, kWindow * 3 / 4);
  Enter(s, scene);
  for (const KeyOf& key : scene.keys) FeedEvent(*windows, {FedEvent::Kind::key, 1, key.key, key.modifiers});
  gksTop(s.platform, s.gks, "zaview");
  if (scene.then != nullptr) {
    scene.then(s);
    s.platform.window.main_loop(s.platform.window.self);
  }

  Screen screen;
  int x = kMargin;
  const auto add = [&](int id) {
    WindowPlace at = s.platform.window.place(s.platform.window.self, id);
    at.x = x;
    at.y = kMargin;
    x += at.width + kMargin;
    std::vector<unsigned char> rgb(static_cast<std::size_t>(at.width * at.height * 3));
    if (ReadOffscreenPicture(*windows, id, at.width, at.height, rgb.data())) screen.Add(at, rgb);
  };
  add(s.gks.window.id);
  for (const MenuSlot& slot : s.menus.kit.slots)
    if (slot.id != 0) add(slot.id);
  const bool written = screen.Write(s.platform, folder + '/' + scene.name + ".png");
  gksMenuClose(s.menus.kit, 0);
  return written;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("usage : menu_pictures SAMPLES FOLDER\n", stderr);
    return 2;
  }
  bool all = true;
  for (const Scene& scene : Scenes())
    if (!Draw(scene, argv[1], argv[2])) {
      std::fprintf(stderr, "menu_pictures: no %s.png\n", scene.name);
      all = false;
    }
  return all ? 0 : 1;
}
