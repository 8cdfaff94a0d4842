#include "gks/window/side_windows.h"

#include <string>
#include <vector>

#include "base/grow.h"
#include "base/platform.h"

namespace zaview {

namespace {

const WindowSystem& Windows(const GksState& gks) {
  return gks.platform->window;
}

GksSideWindow* FindSide(GksState& gks, int id) {
  for (GksSideWindow& row : gks.side_windows)
    if (row.id == id) return &row;
  return nullptr;
}

}  // namespace

void PostSide(GksState& gks, int id) {
  if (FindSide(gks, id) != nullptr) Windows(gks).post_redisplay(Windows(gks).self, id);
}

void DisplaySide(GksState& gks, int id) {
  const GksSideWindow* const row = FindSide(gks, id);
  if (row == nullptr) return;
  PictureImage* const image = Windows(gks).begin_image(Windows(gks).self, id);
  if (image == nullptr) return;
  row->display(row->self, ImagePaint(*image), row->width, row->height);
  Windows(gks).present(Windows(gks).self, id);
}

bool KeyOfSide(GksState& gks, int id, int code, unsigned modifiers) {
  const GksSideWindow* const row = FindSide(gks, id);
  if (row == nullptr) return true;
  gks.modifiers = modifiers;
  const bool taken = row->key(row->self, code);
  gks.modifiers = 0;
  PostSide(gks, id);
  return taken;
}

void MouseOfSide(GksState& gks, int id, int button, unsigned modifiers, int x, int y) {
  const GksSideWindow* const row = FindSide(gks, id);
  if (row == nullptr) return;
  gks.modifiers = modifiers;
  row->mouse(row->self, button, x, y);
  gks.modifiers = 0;
  PostSide(gks, id);
}

void ReleaseOfSide(GksState& gks, int id, int button, unsigned modifiers, int x, int y) {
  const GksSideWindow* const row = FindSide(gks, id);
  if (row == nullptr || row->release == nullptr) return;
  gks.modifiers = modifiers;
  row->release(row->self, button, x, y);
  gks.modifiers = 0;
  PostSide(gks, id);
}

void DragOfSide(GksState& gks, int id, int x, int y) {
  const GksSideWindow* const row = FindSide(gks, id);
  if (row == nullptr || row->drag == nullptr) return;
  row->drag(row->self, x, y);
  PostSide(gks, id);
}

void ReshapeSide(GksState& gks, int id, int width, int height) {
  GksSideWindow* const row = FindSide(gks, id);
  if (row == nullptr) return;
  row->width = width;
  row->height = height;
  if (row->resized != nullptr) row->resized(row->self, width, height);
  PostSide(gks, id);
}

// The row is gone ahead of its handler, which may open the window anew.
void CloseSide(GksState& gks, int id) {
  const GksSideWindow* const found = FindSide(gks, id);
  if (found == nullptr) return;
  const GksSideWindow row = *found;
  std::erase_if(gks.side_windows, [id](const GksSideWindow& side) { return side.id == id; });
  row.closed(row.self);
}

int gksOpenSideWindow(const Platform& platform, GksState& gks, std::string_view title, int x, int y,
                      const GksSideWindow& row) {
  const WindowSystem& windows = platform.window;
  if (gks.window.id == 0 || windows.offscreen || !Reserve(gks.side_windows, gks.side_windows.size() + 1)) return 0;
  const int id = windows.create_window(windows.self, std::string(title), x, y, row.width, row.height);
  if (id == 0) return 0;
  gks.side_windows.push_back(row);
  gks.side_windows.back().id = id;
  static_cast<void>(windows.set_current(windows.self, gks.window.id));
  return id;
}

void gksCloseSideWindow(const Platform& platform, GksState& gks, int id) {
  if (std::erase_if(gks.side_windows, [id](const GksSideWindow& row) { return row.id == id; }) > 0)
    platform.window.destroy_window(platform.window.self, id);
}

}  // namespace zaview
