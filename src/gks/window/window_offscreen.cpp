#define EGL_NO_X11
#include "gks/window/window_offscreen.h"

#include <EGL/egl.h>
#include <EGL/eglext.h>
#include <deque>
#include <dlfcn.h>
#include <map>
#include <new>
#include <utility>

#include "base/opened_library.h"
#include "gks/picture/picture_buffer.h"

namespace zaview {

namespace {

constexpr std::string_view kNoLibrary = "libEGL.so.1 not found";
constexpr std::string_view kNoOpenGl = "no OpenGL configuration";
constexpr int kMainWindow = 1;
constexpr const char* kLibrary = "libEGL.so.1";

struct EglCalls {
  decltype(&eglGetProcAddress) get_proc_address = nullptr;
  decltype(&eglInitialize) initialize = nullptr;
  decltype(&eglBindAPI) bind_api = nullptr;
  decltype(&eglChooseConfig) choose_config = nullptr;
  decltype(&eglCreateContext) create_context = nullptr;
  decltype(&eglDestroyContext) destroy_context = nullptr;
  decltype(&eglMakeCurrent) make_current = nullptr;
};

struct Row {
  int x = 0, y = 0;           // of the window on a screen that isn't there
  int width = 0, height = 0;  // of the window; the picture follows when one is begun
  bool shown = true;
  bool sized = true, uncovered = true;  // to be told by reshape and visible
  bool pending = true, damaged = true;
  PictureImage image;
  SceneBuffer scene;
};

}  // namespace

struct OffscreenWindows {
  EglCalls egl;
  EGLDisplay display = EGL_NO_DISPLAY;
  EGLContext context = EGL_NO_CONTEXT;
  bool started = false, has_opengl = false;
  WindowEvents events;
  std::map<int, Row> rows;
  std::deque<FedEvent> fed;
  int current = 0;
  unsigned generation = 1;
  bool idle_on = false;
};

namespace {

OffscreenWindows& Of(void* self) {
  return *static_cast<OffscreenWindows*>(self);
}

Row* Find(OffscreenWindows& windows, int id) {
  const auto found = windows.rows.find(id);
  return found == windows.rows.end() ? nullptr : &found->second;
}

// ---- EGL

// The library stays open to the end of the process: the driver's threads and its end-of-process work are in it.
bool OpenLibrary(EglCalls& egl) {
  void* const library = dlopen(kLibrary, RTLD_NOW | RTLD_GLOBAL);
  if (library == nullptr) return false;
  return Load(library, "eglGetProcAddress", egl.get_proc_address) && Load(library, "eglInitialize", egl.initialize) &&
         Load(library, "eglDestroyContext", egl.destroy_context) && Load(library, "eglBindAPI", egl.bind_api) &&
         Load(library, "eglChooseConfig", egl.choose_config) && Load(library, "eglCreateContext", egl.create_context) &&
         Load(library, "eglMakeCurrent", egl.make_current);
}

bool OpenDisplay(OffscreenWindows& windows) {
  // The default display needs a window system; only the platform call gives one without.
  const auto get_display =
      reinterpret_cast<PFNEGLGETPLATFORMDISPLAYEXTPROC>(windows.egl.get_proc_address("eglGetPlatformDisplayEXT"));
  if (get_display == nullptr) return false;
  windows.display = get_display(EGL_PLATFORM_SURFACELESS_MESA, nullptr, nullptr);
  return windows.display != EGL_NO_DISPLAY && windows.egl.initialize(windows.display, nullptr, nullptr) == EGL_TRUE;
}

bool OpenContext(OffscreenWindows& windows) {
  const EglCalls& egl = windows.egl;
  if (egl.bind_api(EGL_OPENGL_API) != EGL_TRUE) return false;
  constexpr EGLint kWanted[] = {EGL_SURFACE_TYPE, 0, EGL_RENDERABLE_TYPE, EGL_OPENGL_BIT, EGL_NONE};
  EGLConfig config = nullptr;
  EGLint count = 0;
  if (egl.choose_config(windows.display, kWanted, &config, 1, &count) != EGL_TRUE || count < 1) return false;
  windows.context = egl.create_context(windows.display, config, EGL_NO_CONTEXT, nullptr);
  if (windows.context == EGL_NO_CONTEXT) return false;
  return egl.make_current(windows.display, EGL_NO_SURFACE, EGL_NO_SURFACE, windows.context) == EGL_TRUE;
}

// ---- The calls of the record

bool Start(void* self, const WindowEvents& events, std::string& why) {
  if (self == nullptr) {
    why = "ERROR - no memory for windows";
    return false;
  }
  OffscreenWindows& windows = Of(self);
  if (!std::exchange(windows.started, true)) windows.events = events;
  return true;
}

// The library and its driver cost more than most pictures: they wait for the first one that needs them.
bool StartOpenGl(OffscreenWindows& windows, std::string& why) {
  if (windows.has_opengl) return true;
  if (!OpenLibrary(windows.egl)) {
    why = kNoLibrary;
    return false;
  }
  if (!OpenDisplay(windows) || !OpenContext(windows)) {
    why = kNoOpenGl;
    return false;
  }
  windows.has_opengl = true;
  return true;
}

// Of another window system in the process there may be a context as well.
void EnterContext(const OffscreenWindows& windows) {
  static_cast<void>(windows.egl.make_current(windows.display, EGL_NO_SURFACE, EGL_NO_SURFACE, windows.context));
}

void FreeScene(const OffscreenWindows& windows, Row& row) {
  if (!windows.has_opengl) return;
  EnterContext(windows);
  FreeSceneBuffer(row.scene);
}

int CreateWindow(void* self, const std::string&, int x, int y, int width, int height) {
  OffscreenWindows& windows = Of(self);
  if (!windows.started || width < 1 || height < 1) return 0;
  int id = kMainWindow;
  while (Find(windows, id) != nullptr) ++id;
  Row row;
  row.x = x;
  row.y = y;
  row.width = width;
  row.height = height;
  windows.rows.emplace(id, std::move(row));
  windows.current = id;
  return id;
}

void DestroyWindow(void* self, int id) {
  OffscreenWindows& windows = Of(self);
  Row* const row = Find(windows, id);
  if (row == nullptr) return;
  FreeScene(windows, *row);
  windows.rows.erase(id);
  if (windows.current == id) windows.current = 0;
}

void PostRedisplay(void* self, int id) {
  Row* const row = Find(Of(self), id);
  if (row != nullptr) row->pending = true;
}

void SetShown(void* self, int id, bool shown) {
  Row* const row = Find(Of(self), id);
  if (row == nullptr || row->shown == shown) return;
  row->shown = shown;
  row->uncovered = true;
  if (!shown) return;
  row->pending = true;  // a window that comes up is drawn, as on a display
  row->damaged = true;
}

void Show(void* self, int id) {
  SetShown(self, id, true);
}
void Hide(void* self, int id) {
  SetShown(self, id, false);
}

void ReshapeWindow(void* self, int id, int width, int height) {
  Row* const row = Find(Of(self), id);
  if (row == nullptr || width < 1 || height < 1) return;
  row->width = width;
  row->height = height;
  row->sized = true;
  row->pending = true;
  row->damaged = true;
}

void MoveWindow(void* self, int id, int x, int y) {
  Row* const row = Find(Of(self), id);
  if (row == nullptr) return;
  row->x = x;
  row->y = y;
}

WindowPlace Place(void* self, int id) {
  const Row* const row = Find(Of(self), id);
  return row == nullptr ? WindowPlace{} : WindowPlace{row->x, row->y, row->width, row->height};
}

WindowPlace Screen(void*) {
  return {0, 0, kOffscreenWidth, kOffscreenHeight};
}

int SetCurrent(void* self, int id) {
  OffscreenWindows& windows = Of(self);
  const int before = windows.current;
  windows.current = id;
  return before;
}

PictureImage* BeginImage(void* self, int id) {
  OffscreenWindows& windows = Of(self);
  Row* const row = Find(windows, id);
  if (row == nullptr) return nullptr;
  windows.current = id;
  return MakeImage(row->image, row->width, row->height) ? &row->image : nullptr;
}

bool BeginScene(void* self, int id, bool smooth, std::string& why) {
  OffscreenWindows& windows = Of(self);
  Row* const row = Find(windows, id);
  if (row == nullptr || !StartOpenGl(windows, why)) return false;
  EnterContext(windows);
  return BindSceneBuffer(row->scene, row->width, row->height, smooth, why);
}

PictureImage* EndScene(void* self, int id, std::string& why) {
  Row* const row = Find(Of(self), id);
  if (row == nullptr) return nullptr;
  return ReadSceneBuffer(row->scene, row->image, why) ? &row->image : nullptr;
}

void Present(void*, int) {}

bool ReadMainPicture(void* self, int width, int height, unsigned char* rgb) {
  return ReadOffscreenPicture(Of(self), kMainWindow, width, height, rgb);
}

void SetIdle(void* self, bool on) {
  Of(self).idle_on = on;
}
unsigned ContextGeneration(void* self) {
  return Of(self).generation;
}

// ---- Events. A handler may create and destroy windows: rows are looked up anew after every call.

// True: something was told to this window.
bool TellOne(OffscreenWindows& windows, int id) {
  Row& row = windows.rows.at(id);
  const WindowEvents& events = windows.events;
  if (std::exchange(row.sized, false)) {
    if (events.reshape != nullptr) events.reshape(events.self, id, row.width, row.height);
    return true;
  }
  if (std::exchange(row.uncovered, false)) {
    if (events.visible != nullptr) events.visible(events.self, id, row.shown);
    return true;
  }
  if (!std::exchange(row.pending, false)) return false;
  const bool damaged = std::exchange(row.damaged, false);
  if (events.display != nullptr) events.display(events.self, id, damaged);
  return true;
}

bool TellWindows(OffscreenWindows& windows) {
  for (const auto& [id, row] : windows.rows)
    if (row.sized || row.uncovered || row.pending) return TellOne(windows, id);
  return false;
}

void Close(OffscreenWindows& windows, int id) {
  if (Find(windows, id) == nullptr) return;
  DestroyWindow(&windows, id);
  if (id == kMainWindow) ++windows.generation;
  if (windows.events.closed != nullptr) windows.events.closed(windows.events.self, id);
}

void TellFed(OffscreenWindows& windows, const FedEvent& event) {
  const WindowEvents& events = windows.events;
  Row* const row = Find(windows, event.id);
  if (row == nullptr) return;
  windows.current = event.id;
  switch (event.kind) {
    case FedEvent::Kind::key:
      if (events.key != nullptr) events.key(events.self, event.id, event.code, event.modifiers, event.x, event.y);
      return;
    case FedEvent::Kind::mouse:
      if (events.mouse != nullptr) events.mouse(events.self, event.id, event.code, event.modifiers, event.x, event.y);
      return;
    case FedEvent::Kind::release:
      if (events.release != nullptr && event.id != kMainWindow)
        events.release(events.self, event.id, event.code, event.modifiers, event.x, event.y);
      return;
    case FedEvent::Kind::drag:
      if (events.drag != nullptr && event.id != kMainWindow) events.drag(events.self, event.id, event.x, event.y);
      return;
    case FedEvent::Kind::reshape:
      ReshapeWindow(&windows, event.id, event.x, event.y);
      return;
    case FedEvent::Kind::close:
      Close(windows, event.id);
      return;
  }
}

void MainLoop(void* self) {
  OffscreenWindows& windows = Of(self);
  for (;;) {
    if (TellWindows(windows)) continue;
    if (!windows.fed.empty()) {
      const FedEvent event = windows.fed.front();
      windows.fed.pop_front();
      TellFed(windows, event);
      continue;
    }
    if (!windows.idle_on || windows.events.idle == nullptr) return;
    windows.events.idle(windows.events.self);
  }
}

}  // namespace

OffscreenWindows* MakeOffscreenWindows() {
  return new (std::nothrow) OffscreenWindows;
}

void FreeOffscreenWindows(OffscreenWindows* windows) {
  if (windows == nullptr) return;
  for (auto& [id, row] : windows->rows) FreeScene(*windows, row);
  if (windows->has_opengl) {
    // The display stays open: it is the same one for all of a process.
    static_cast<void>(windows->egl.make_current(windows->display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT));
    static_cast<void>(windows->egl.destroy_context(windows->display, windows->context));
  }
  delete windows;
}

WindowSystem OffscreenWindowSystem(OffscreenWindows* windows) {
  WindowSystem system;
  system.self = windows;
  system.start = Start;
  system.create_window = CreateWindow;
  system.destroy_window = DestroyWindow;
  system.main_loop = MainLoop;
  system.post_redisplay = PostRedisplay;
  system.show = Show;
  system.hide = Hide;
  system.raise = [](void*, int) {};
  system.reshape_window = ReshapeWindow;
  system.move_window = MoveWindow;
  system.place = Place;
  system.screen = Screen;
  system.set_current = SetCurrent;
  system.begin_image = BeginImage;
  system.begin_scene = BeginScene;
  system.end_scene = EndScene;
  system.present = Present;
  system.read_picture = ReadMainPicture;
  system.set_idle = SetIdle;
  system.context_generation = ContextGeneration;
  system.offscreen = true;
  return system;
}

void FeedEvent(OffscreenWindows& windows, const FedEvent& event) {
  windows.fed.push_back(event);
}

bool ReadOffscreenPicture(OffscreenWindows& windows, int id, int width, int height, unsigned char* rgb) {
  const Row* const row = Find(windows, id);
  return row != nullptr && ReadImage(row->image, width, height, rgb);
}

bool IsOffscreenWindowShown(const OffscreenWindows& windows, int id) {
  const auto found = windows.rows.find(id);
  return found != windows.rows.end() && found->second.shown;
}

}  // namespace zaview
