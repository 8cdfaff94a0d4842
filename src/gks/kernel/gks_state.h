// All state of the GKS kernel. Data only.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/window_system.h"
#include "gks/kernel/gks_paint.h"
#include "gks/kernel/paint_recording.h"

namespace zaview {

struct Platform;

inline constexpr int GKS_MAX_COLORS = 256;
inline constexpr int kTransforms = 10;

struct GksRectangle {
  float xmin = 0, xmax = 1, ymin = 0, ymax = 1;
};

struct GksTransform {
  GksRectangle window, viewport;  // world; normalized
  float x_sign = 1, y_sign = 1;
};

enum class GksLevel : std::uint8_t { closed, open, workstation, active };  // GKS values 0 to 3

struct GksAttributes {
  int polyline_colour = 1, marker_colour = 1, text_colour = 1, fill_colour = 1;
  int line_style = 0;    // 0 solid, 1 to 4 stippled
  float line_width = 1;  // scale, at least 1
  int marker_type = 0;   // 0 to 21
  float marker_scale = 1;
  float char_height = 0.14F;  // world units
  float up_x = 0, up_y = 1;
  float text_rotation = 0;  // degrees
  int align_x = 0, align_y = 0;
  bool turn_bitmap = false;  // letters of a bitmap font that read upward turn with them; else they stay level
  int fill_style = 0;
  bool clip = true;
  bool between_pixels = false;  // lines and areas aren't moved to whole pixels: faces that meet, and their edges
};

struct GksWindow {
  int width = 500, height = 400, x = 100, y = 100;  // pixels
  int id = 0;                                       // 0: not there yet
  std::string title;
  bool reverse_video = false, bitmap_font = true;
  bool size_is_fixed = false;  // chosen by the program: the environment is not asked
  bool visible = false;        // as the window system tells
  bool shown = false;          // wanted on the screen
  bool hidden = false;         // by the program itself
  bool force = false;          // the next display draws whatever the view thinks
  double resize_until = 0;     // clock: a new size was ordered, pictures wait for it until then
  bool idle_on = false;        // idle calls are wanted; they rest while nothing can be seen
  bool greeted = false;        // its first display is over
};

enum class ScreenMode : std::int8_t { plot = -1, text = 0, free = 1, integer = 2, real = 3, one_key = 4 };

struct TextScreen {
  ScreenMode mode = ScreenMode::plot;
  std::vector<std::string> lines;
  int first = 0, last = -1;  // shown
  std::string prompt, fallback, typed;
};

// classic: as the system has always drawn; report: white, smooth, the plot fills the page.
enum class PictureStyle : std::uint8_t { classic, report };

struct PictureSheet {         // several pictures on one page, filled row by row
  int rows = 0, columns = 0;  // 0: there is no page open
  std::string name;           // of its file
  std::vector<PictureRecording> cells;
  [[nodiscard]] bool open() const { return rows > 0; }
};

struct DumpOrder {
  bool dump_only = false;  // every view is dumped and left
  bool waiting = false;    // the next one is
  std::string name;        // blank: a numbered one
  int idle_count = 0;
  bool failed = false;  // a picture couldn't be written
};

// What becomes of a picture that is complete, in dump-only mode or by an order.
enum class AfterPicture : std::uint8_t {
  store,    // into the file of the order, and the view is left
  another,  // a run took it and wants the next one drawn
  leave     // a run took its last one
};

// The kernel's calls upward, filled once by whoever starts the graphics. Clicks in the world of the selected
// transformation.
struct GksHooks {
  void* self = nullptr;
  void (*render)(void* self, bool force) = nullptr;
  void (*mouse)(void* self, int button, float x, float y) = nullptr;
  void (*keyboard)(void* self, int key, float x, float y) = nullptr;
  bool (*idle)(void* self) = nullptr;                  // true: display again
  AfterPicture (*take_picture)(void* self) = nullptr;  // null: all are stored
  void (*screen_input)(void* self, std::string_view text) = nullptr;
  void (*close_menus)(void* self) = nullptr;
};

// A window beside the main one, a menu for instance, and who handles it. A handler may open and close windows, its own
// as well.
struct GksSideWindow {
  void* self = nullptr;
  int id = 0, width = 0, height = 0;  // pixels, as the window system has them
  void (*display)(void* self, const GksPaint& paint, int width, int height) = nullptr;
  bool (*key)(void* self, int key) = nullptr;                     // false: it is one for the view in the main window
  void (*mouse)(void* self, int button, int x, int y) = nullptr;  // presses, of the wheel too; pixels
  void (*closed)(void* self) = nullptr;                           // by the user: it is gone
  // Null: nobody wants them.
  void (*release)(void* self, int button, int x, int y) = nullptr;
  void (*drag)(void* self, int x, int y) = nullptr;  // moved with a button down
  void (*resized)(void* self, int width, int height) = nullptr;
};

struct GksState {
  const Platform* platform = nullptr;  // whose window system was started, by gksReady
  bool environment_read = false;
  GksPaint paint;  // of the picture that was begun last
  GksLevel level = GksLevel::closed;
  GksWindow window;
  std::array<GksTransform, kTransforms> transform{};
  int selected = 1;
  GksRectangle ws_window, ws_viewport;  // the latter in pixels
  GksAttributes attribute;
  std::array<GksColour, GKS_MAX_COLORS + 1> colour{};
  bool colour_warned = false;
  TextScreen screen;
  DumpOrder dump;
  PictureStyle style = PictureStyle::classic;
  PictureRecording recording;  // of the present picture, where it is drawn so
  PictureSheet sheet;
  bool smooth_warned = false;  // there is no library for smooth pictures, which has been said
  GksHooks hooks;
  std::vector<GksSideWindow> side_windows;
  unsigned modifiers = 0;  // keys held down at the event that is being handled
};

}  // namespace zaview
