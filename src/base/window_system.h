// The graphics window as this program sees it: a record of function pointers with three fillings, GLUT on a display,
// one in memory without any, and that one fed with events by a test. Window 1 is the main window, menu windows follow.
// All on one thread.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zaview {

// Modifier keys held down at an event.
inline constexpr unsigned kShiftKey = 1, kControlKey = 2, kAltKey = 4;

// Keys: letters as ASCII (Control and a letter: 1 to 26), and these.
inline constexpr int kKeyLeft = 65361, kKeyUp = 65362, kKeyRight = 65363, kKeyDown = 65364, kKeyPageUp = 1104,
                     kKeyPageDown = 1105, kKeyHome = 1106, kKeyEnd = 1107, kKeyInsert = 1108, kKeyF1 = 1001;

// Buttons: left, middle, right, and the two ways of the wheel.
inline constexpr int kWheelUp = 4, kWheelDown = 5;

struct WindowEvents {  // filled by whoever opens the window
  void* self = nullptr;
  void (*display)(void* self, int id, bool damaged) = nullptr;
  void (*reshape)(void* self, int id, int width, int height) = nullptr;
  void (*visible)(void* self, int id, bool on) = nullptr;
  void (*key)(void* self, int id, int code, unsigned modifiers, int x, int y) = nullptr;
  // Presses of 1, 2, 3; in menu windows of the wheel too. Null pointers below: nobody wants them.
  void (*mouse)(void* self, int id, int button, unsigned modifiers, int x, int y) = nullptr;
  void (*release)(void* self, int id, int button, unsigned modifiers, int x, int y) = nullptr;  // menu windows only
  void (*drag)(void* self, int id, int x, int y) = nullptr;  // moved with a button down; menu windows only
  void (*closed)(void* self, int id) = nullptr;
  void (*idle)(void* self) = nullptr;
};

struct WindowPlace {
  int x = 0, y = 0, width = 0, height = 0;  // pixels of the screen, y down
};

enum class Font : std::uint8_t {
  helvetica_10,
  helvetica_12,
  fixed_8_13,
  fixed_9_15,
  helvetica_18,
  times_24,
  sans_10,  // these three with smooth edges
  sans_12,
  mono_13,
  stroke
};

struct PictureImage {
  int width = 0, height = 0;
  std::vector<unsigned char> rgb;  // width x height x 3 bytes, bottom row first
};

struct WindowSystem {
  void* self = nullptr;
  // False, with the cause in `why`: nothing can be drawn. A second start does nothing.
  bool (*start)(void* self, const WindowEvents& events, std::string& why) = nullptr;
  int (*create_window)(void* self, const std::string& title, int x, int y, int width, int height) = nullptr;
  void (*destroy_window)(void* self, int id) = nullptr;
  void (*main_loop)(void* self) = nullptr;  // comes back only offscreen, when nothing is left to be done
  void (*post_redisplay)(void* self, int id) = nullptr;
  void (*show)(void* self, int id) = nullptr;
  void (*hide)(void* self, int id) = nullptr;
  void (*raise)(void* self, int id) = nullptr;  // above all others
  void (*reshape_window)(void* self, int id, int width, int height) = nullptr;
  void (*move_window)(void* self, int id, int x, int y) = nullptr;  // its upper left corner
  WindowPlace (*place)(void* self, int id) = nullptr;
  WindowPlace (*screen)(void* self) = nullptr;
  int (*set_current)(void* self, int id) = nullptr;  // the one before
  // A picture of the window's size begins: an image in memory that the caller draws into, until the next one begins or
  // the window goes. Null: memory is out.
  PictureImage* (*begin_image)(void* self, int id) = nullptr;
  // What is drawn with OpenGL between these two stands in that image behind the second, over all that it held. Smooth:
  // with several samples a pixel, where the driver has them. False or null, with the cause in `why`: it can't be done.
  bool (*begin_scene)(void* self, int id, bool smooth, std::string& why) = nullptr;
  PictureImage* (*end_scene)(void* self, int id, std::string& why) = nullptr;
  void (*present)(void* self, int id) = nullptr;  // a picture is complete
  // The picture of the main window that was begun last, as in a PictureImage. False: it has not got that size (a
  // reshape counts from the next picture), or can't be read.
  bool (*read_picture)(void* self, int width, int height, unsigned char* rgb) = nullptr;
  void (*set_idle)(void* self, bool on) = nullptr;
  // Counted up when a window was replaced and everything kept in its context is gone.
  unsigned (*context_generation)(void* self) = nullptr;
  bool offscreen = false;  // no keys, no mouse, no menus
};

}  // namespace zaview
