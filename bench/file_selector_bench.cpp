// The file selector in a directory of 10 000 names: open it and draw it. To take less than 100 ms.
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include "gks/picture/picture_buffer.h"
#include "menu/file_selector.h"
#include "menu/menu_build.h"
#include "menu/menu_draw.h"
#include "menu/menu_window.h"
#include "window_in_memory.h"

namespace {

using namespace zaview;
namespace fs = std::filesystem;

constexpr std::size_t kNames = 10000;

void OpenAndDraw(benchmark::State& state) {
  const fs::path folder = fs::temp_directory_path() / fmt::format("zaview_selector_{}", kNames);
  fs::create_directories(folder);
  for (std::size_t i = 0; i < kNames; ++i) std::ofstream(folder / fmt::format("a_run_of_some_length_{}.out", i)) << i;
  Platform platform;
  GksState gks;
  OpenWindowInMemory(500, 400, platform, gks);
  platform.window.offscreen = false;
  MenuToolkit kit;
  gksMenuAttach(kit, platform, gks, {});
  PictureImage image;
  for (auto _ : state) {
    dgFileSelector(kit, {}, 0, (folder / "").string());
    const int im = kit.files.menu;
    const MenuSlot& slot = SlotOf(kit, im);
    if (kit.files.shown.size() != kNames || !MakeImage(image, slot.width, slot.height))
      return state.SkipWithError("not all names are listed");
    DrawMenu(kit, im, ImagePaint(image), slot.width, slot.height);
    gksMenuClose(kit, im);
  }
  fs::remove_all(folder);
}
BENCHMARK(OpenAndDraw)->Unit(benchmark::kMillisecond);

}  // namespace
