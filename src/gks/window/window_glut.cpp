#define GL_GLEXT_PROTOTYPES
#include "gks/window/window_glut.h"

#include <X11/Xlib.h>
#include <algorithm>
#include <csetjmp>
#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <map>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include <GL/freeglut.h>
#include <GL/glext.h>
#include <fmt/format.h>

#include "base/message.h"
#include "frame/ground/zaview_exit.h"
#include "gks/picture/picture_buffer.h"
#include "gks/window/gks_window.h"

namespace zaview {

namespace {

constexpr std::string_view kNoMode = "DISPLAY mode not supported";
constexpr std::string_view kLost = "GLGKS - connection to the display lost";
constexpr fmt::string_view kLibraryError = "GLGKS - {}";

constexpr int kMainWindow = 1;
constexpr unsigned kAfterHide = 1;            // ms; a hide takes effect only in the library's own turn
constexpr unsigned kLookForInterrupts = 200;  // ms

struct Row {
  int glut = 0;               // the library's number
  int width = 0, height = 0;  // of the window; the picture follows when one is begun
  bool pending = false;       // to be displayed
  bool hide_queued = false;
  PictureImage image;
  SceneBuffer scene;  // gone with the window's context
};

struct GlutWindows {
  const Platform* platform = nullptr;
  Display* probe = nullptr;  // our own connection, until the library has one: a server may start afresh without any
  std::jmp_buf refused;      // where a failed start of the library goes on
  bool starting = false;
  std::string why;  // of its failure
  WindowEvents events;
  std::map<int, Row> rows;  // by window number of ours
  unsigned generation = 1;
  bool started = false;
  bool opening = false;  // the library's errors mean that there will be no window
  bool double_buffered = true;
  bool pump_armed = false;
};

// The callbacks of the library carry no data.
GlutWindows* glut_windows = nullptr;  // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)

GlutWindows& Of(void* self) {
  return *static_cast<GlutWindows*>(self);
}

Row* Find(GlutWindows& windows, int id) {
  const auto found = windows.rows.find(id);
  return found == windows.rows.end() ? nullptr : &found->second;
}

// 0: none of ours.
int IdOf(const GlutWindows& windows, int glut) {
  for (const auto& [id, row] : windows.rows)
    if (row.glut == glut) return id;
  return 0;
}

// Makes a window current. At the end the one before is current again, unless that is gone.
class InWindow {
 public:
  InWindow(const GlutWindows& windows, const Row& row) : windows_(windows), before_(glutGetWindow()) {
    if (before_ != row.glut) glutSetWindow(row.glut);
  }
  ~InWindow() {
    if (before_ != glutGetWindow() && IdOf(windows_, before_) != 0) glutSetWindow(before_);
  }
  InWindow(const InWindow&) = delete;
  InWindow& operator=(const InWindow&) = delete;

 private:
  const GlutWindows& windows_;
  int before_;
};

// Calls of the library without a current window end the program.
void EnterMainWindow(GlutWindows& windows) {
  if (const Row* row = Find(windows, kMainWindow)) glutSetWindow(row->glut);
}

// ---- Errors

// The library can't go on, and must not be gone back to. A start that failed is left by a jump over its own frames,
// which are plain C; everything else ends the program.
void OnLibraryError(const char* format, va_list arguments) {
  GlutWindows& windows = *glut_windows;
  char text[256] = "";
  static_cast<void>(std::vsnprintf(text, sizeof text, format, arguments));
  std::string_view line = text;
  while (!line.empty() && line.back() == '\n') line.remove_suffix(1);
  if (std::exchange(windows.starting, false)) {
    windows.why = line;
    std::longjmp(windows.refused, 1);
  }
  Say(windows.platform->console, kLibraryError, line);
  if (windows.opening) SayLine(windows.platform->console, kNoWindow);
  zaview_exit(*windows.platform, kRunFailed);
}

// The X library ends the process if this comes back. No call of OpenGL from here on.
int OnDisplayLost(Display*) {
  SayLine(glut_windows->platform->console, kLost);
  zaview_exit(*glut_windows->platform, kRunFailed);
}

// ---- Display calls of our own: a hidden or covered window gets none from the library, and what was posted is lost.

void ArmPump(GlutWindows& windows, unsigned milliseconds);

bool TakeHides(GlutWindows& windows) {
  bool any = false;
  for (auto& [id, row] : windows.rows) any |= std::exchange(row.hide_queued, false);
  return any;
}

void TellDisplay(GlutWindows& windows, int id, bool damaged) {
  Row* const row = Find(windows, id);
  if (row == nullptr) return;
  row->pending = false;
  if (windows.events.display != nullptr) windows.events.display(windows.events.self, id, damaged);
}

void Pump(int) {
  GlutWindows& windows = *glut_windows;
  windows.pump_armed = false;
  if (TakeHides(windows)) {
    ArmPump(windows, kAfterHide);
    return;
  }
  std::vector<int> due;
  for (const auto& [id, row] : windows.rows)
    if (row.pending) due.push_back(id);
  for (const int id : due) {  // a handler may create and destroy windows
    const Row* const row = Find(windows, id);
    if (row == nullptr || !row->pending) continue;
    glutSetWindow(row->glut);
    TellDisplay(windows, id, false);
  }
}

void ArmPump(GlutWindows& windows, unsigned milliseconds) {
  if (std::exchange(windows.pump_armed, true)) return;
  glutTimerFunc(milliseconds, Pump, 0);
}

// Ctrl-C ends the program while a view is up: no question is there to be given up.
void LookForInterrupts(int) {
  const Platform& platform = *glut_windows->platform;
  if (TakeInterrupt(platform.console)) zaview_exit(platform, kRunInterrupted);
  glutTimerFunc(kLookForInterrupts, LookForInterrupts, 0);
}

// ---- Callbacks of the library, each of the window that is current

int CurrentId() {
  return IdOf(*glut_windows, glutGetWindow());
}

unsigned Modifiers() {
  const int held = glutGetModifiers();
  unsigned modifiers = 0;
  if ((held & GLUT_ACTIVE_SHIFT) != 0) modifiers |= kShiftKey;
  if ((held & GLUT_ACTIVE_CTRL) != 0) modifiers |= kControlKey;
  if ((held & GLUT_ACTIVE_ALT) != 0) modifiers |= kAltKey;
  return modifiers;
}

void OnDisplay() {
  TellDisplay(*glut_windows, CurrentId(), true);
}

void OnReshape(int width, int height) {
  GlutWindows& windows = *glut_windows;
  const int id = CurrentId();
  Row* const row = Find(windows, id);
  if (row == nullptr) return;
  row->width = width;
  row->height = height;
  // The buffers of the window take their new size with a swap.
  if (windows.double_buffered) glutSwapBuffers();
  if (windows.events.reshape != nullptr) windows.events.reshape(windows.events.self, id, width, height);
}

void OnVisible(int state) {
  const WindowEvents& events = glut_windows->events;
  if (events.visible != nullptr) events.visible(events.self, CurrentId(), state == GLUT_VISIBLE);
}

void SendKey(int code, int x, int y) {
  const WindowEvents& events = glut_windows->events;
  if (events.key != nullptr) events.key(events.self, CurrentId(), code, Modifiers(), x, y);
}

void OnKey(unsigned char key, int x, int y) {
  SendKey(key, x, y);
}

// Others are nobody's: the modifier keys among them, which come alone ahead of their letter.
void OnSpecialKey(int key, int x, int y) {
  constexpr int kDelete = 127;
  constexpr std::pair<int, int> kKeys[] = {{GLUT_KEY_LEFT, kKeyLeft},      {GLUT_KEY_UP, kKeyUp},
                                           {GLUT_KEY_RIGHT, kKeyRight},    {GLUT_KEY_DOWN, kKeyDown},
                                           {GLUT_KEY_PAGE_UP, kKeyPageUp}, {GLUT_KEY_PAGE_DOWN, kKeyPageDown},
                                           {GLUT_KEY_HOME, kKeyHome},      {GLUT_KEY_END, kKeyEnd},
                                           {GLUT_KEY_INSERT, kKeyInsert},  {GLUT_KEY_DELETE, kDelete}};
  if (key >= GLUT_KEY_F1 && key <= GLUT_KEY_F12) {
    SendKey(key - GLUT_KEY_F1 + kKeyF1, x, y);
    return;
  }
  const auto* const found = std::find_if(std::begin(kKeys), std::end(kKeys), [key](auto k) { return k.first == key; });
  if (found != std::end(kKeys)) SendKey(found->second, x, y);
}

void OnMouse(int button, int state, int x, int y) {
  const WindowEvents& events = glut_windows->events;
  const int id = CurrentId(), number = button + 1;  // the library's buttons 3 and 4 are the wheel
  if (number < 1 || number > (id == kMainWindow ? GLUT_RIGHT_BUTTON + 1 : kWheelDown)) return;
  const auto tell = state == GLUT_DOWN ? events.mouse : id == kMainWindow ? nullptr : events.release;
  if (tell != nullptr) tell(events.self, id, number, Modifiers(), x, y);
}

void OnMotion(int x, int y) {
  const WindowEvents& events = glut_windows->events;
  if (events.drag != nullptr) events.drag(events.self, CurrentId(), x, y);
}

// By the user: windows that we destroy have no row any more. Picture and lists went with the window's context.
void OnClose() {
  GlutWindows& windows = *glut_windows;
  const int id = CurrentId();
  if (windows.rows.erase(id) == 0) return;
  if (id == kMainWindow) ++windows.generation;
  else EnterMainWindow(windows);
  if (windows.events.closed != nullptr) windows.events.closed(windows.events.self, id);
}

void OnIdle() {
  GlutWindows& windows = *glut_windows;
  EnterMainWindow(windows);
  if (windows.events.idle != nullptr) windows.events.idle(windows.events.self);
}

// ---- Pictures

void BringToWindow(const PictureImage& image) {
  glViewport(0, 0, image.width, image.height);
  glDisable(GL_DEPTH_TEST);
  glWindowPos2i(0, 0);
  glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
  glDrawPixels(image.width, image.height, GL_RGB, GL_UNSIGNED_BYTE, image.rgb.data());
}

// ---- The calls of the record

// Double buffers and depth, else a single one.
bool ChooseMode(GlutWindows& windows) {
  for (const bool twice : {true, false}) {
    glutInitDisplayMode(twice ? GLUT_DOUBLE | GLUT_DEPTH : GLUT_SINGLE | GLUT_RGB);
    windows.double_buffered = twice;
    if (glutGet(GLUT_DISPLAY_MODE_POSSIBLE) == 1) return true;
  }
  return false;
}

// False, with the cause in `why`: there is no such display any more.
bool StartLibrary(GlutWindows& windows) {
  // The library takes words of its own from the command line and ends the program on some: it gets none.
  int count = 1;
  char name[] = "zaview";
  char* words[] = {name, nullptr};
  glutInitErrorFunc(OnLibraryError);
  static_cast<void>(XSetIOErrorHandler(OnDisplayLost));
  windows.starting = true;
  if (setjmp(windows.refused) != 0) return false;
  glutInit(&count, words);
  windows.starting = false;
  glutSetOption(GLUT_ACTION_ON_WINDOW_CLOSE, GLUT_ACTION_CONTINUE_EXECUTION);
  // At the end of the process the library closes its windows: nobody may take that for the user.
  static_cast<void>(std::atexit([] { glut_windows->rows.clear(); }));
  windows.started = true;
  return true;
}

void CloseProbe(GlutWindows& windows) {
  if (windows.probe != nullptr) static_cast<void>(XCloseDisplay(std::exchange(windows.probe, nullptr)));
}

bool Start(void* self, const WindowEvents& events, std::string& why) {
  GlutWindows& windows = Of(self);
  if (windows.events.self != nullptr) return true;
  const bool started = windows.started || StartLibrary(windows);
  CloseProbe(windows);
  if (!started) {
    why = windows.why;
    return false;
  }
  windows.opening = true;
  if (!ChooseMode(windows)) {
    why = kNoMode;
    return false;
  }
  windows.events = events;
  return true;
}

int CreateWindow(void* self, const std::string& title, int x, int y, int width, int height) {
  GlutWindows& windows = Of(self);
  if (!windows.started || width < 1 || height < 1) return 0;
  windows.opening = true;
  glutInitWindowSize(width, height);
  glutInitWindowPosition(x, y);
  Row row;
  row.glut = glutCreateWindow(title.c_str());
  windows.opening = false;
  if (row.glut < 1) return 0;
  row.width = width;
  row.height = height;
  int id = kMainWindow;
  while (Find(windows, id) != nullptr) ++id;
  windows.rows.emplace(id, std::move(row));
  glutDisplayFunc(OnDisplay);
  glutReshapeFunc(OnReshape);
  glutVisibilityFunc(OnVisible);
  glutKeyboardFunc(OnKey);
  glutSpecialFunc(OnSpecialKey);
  glutMouseFunc(OnMouse);
  glutCloseFunc(OnClose);
  glDrawBuffer(windows.double_buffered ? GL_BACK : GL_FRONT);
  if (id == kMainWindow) glutSetCursor(GLUT_CURSOR_CROSSHAIR);
  else glutMotionFunc(OnMotion);
  return id;
}

void DestroyWindow(void* self, int id) {
  GlutWindows& windows = Of(self);
  const Row* const row = Find(windows, id);
  if (row == nullptr) return;
  const int glut = row->glut, before = glutGetWindow();
  windows.rows.erase(id);
  glutDestroyWindow(glut);
  if (before != glut && IdOf(windows, before) != 0) glutSetWindow(before);
  else EnterMainWindow(windows);
}

void MainLoop(void* self) {
  GlutWindows& windows = Of(self);
  EnterMainWindow(windows);
  glutTimerFunc(kLookForInterrupts, LookForInterrupts, 0);
  glutMainLoop();
}

void PostRedisplay(void* self, int id) {
  GlutWindows& windows = Of(self);
  Row* const row = Find(windows, id);
  if (row == nullptr) return;
  row->pending = true;
  ArmPump(windows, 0);
}

void Show(void* self, int id) {
  GlutWindows& windows = Of(self);
  Row* const row = Find(windows, id);
  if (row == nullptr) return;
  row->hide_queued = false;
  const InWindow in(windows, *row);
  glutShowWindow();
}

void Hide(void* self, int id) {
  GlutWindows& windows = Of(self);
  Row* const row = Find(windows, id);
  if (row == nullptr) return;
  row->hide_queued = true;
  const InWindow in(windows, *row);
  glutHideWindow();
}

void ReshapeWindow(void* self, int id, int width, int height) {
  GlutWindows& windows = Of(self);
  const Row* const row = Find(windows, id);
  if (row == nullptr || width < 1 || height < 1) return;
  const InWindow in(windows, *row);
  glutReshapeWindow(width, height);
}

void MoveWindow(void* self, int id, int x, int y) {
  GlutWindows& windows = Of(self);
  const Row* const row = Find(windows, id);
  if (row == nullptr) return;
  const InWindow in(windows, *row);
  glutPositionWindow(x, y);
}

void Raise(void* self, int id) {
  GlutWindows& windows = Of(self);
  const Row* const row = Find(windows, id);
  if (row == nullptr) return;
  const InWindow in(windows, *row);
  glutPopWindow();
}

WindowPlace Place(void* self, int id) {
  GlutWindows& windows = Of(self);
  const Row* const row = Find(windows, id);
  if (row == nullptr) return {};
  const InWindow in(windows, *row);
  return {glutGet(GLUT_WINDOW_X), glutGet(GLUT_WINDOW_Y), row->width, row->height};
}

WindowPlace Screen(void*) {
  return {0, 0, glutGet(GLUT_SCREEN_WIDTH), glutGet(GLUT_SCREEN_HEIGHT)};
}

int SetCurrent(void* self, int id) {
  GlutWindows& windows = Of(self);
  const int before = IdOf(windows, glutGetWindow());
  if (const Row* row = Find(windows, id)) glutSetWindow(row->glut);
  return before;
}

PictureImage* BeginImage(void* self, int id) {
  GlutWindows& windows = Of(self);
  Row* const row = Find(windows, id);
  if (row == nullptr) return nullptr;
  if (glutGetWindow() != row->glut) glutSetWindow(row->glut);
  return MakeImage(row->image, row->width, row->height) ? &row->image : nullptr;
}

bool BeginScene(void* self, int id, bool smooth, std::string& why) {
  GlutWindows& windows = Of(self);
  Row* const row = Find(windows, id);
  if (row == nullptr) return false;
  if (glutGetWindow() != row->glut) glutSetWindow(row->glut);
  return BindSceneBuffer(row->scene, row->width, row->height, smooth, why);
}

PictureImage* EndScene(void* self, int id, std::string& why) {
  GlutWindows& windows = Of(self);
  Row* const row = Find(windows, id);
  if (row == nullptr) return nullptr;
  const InWindow in(windows, *row);
  return ReadSceneBuffer(row->scene, row->image, why) ? &row->image : nullptr;
}

void Present(void* self, int id) {
  GlutWindows& windows = Of(self);
  const Row* const row = Find(windows, id);
  if (row == nullptr) return;
  const InWindow in(windows, *row);
  BringToWindow(row->image);
  if (windows.double_buffered) glutSwapBuffers();
  else glFlush();
}

bool ReadPicture(void* self, int width, int height, unsigned char* rgb) {
  const Row* const row = Find(Of(self), kMainWindow);
  return row != nullptr && ReadImage(row->image, width, height, rgb);
}

void SetIdle(void*, bool on) {
  glutIdleFunc(on ? OnIdle : nullptr);
}

unsigned ContextGeneration(void* self) {
  return Of(self).generation;
}

// Does a display answer that OpenGL can draw on? The connection stays until the library has its own.
bool OpenProbe(GlutWindows& windows) {
  if (windows.started) return true;
  if (windows.probe == nullptr) windows.probe = XOpenDisplay(nullptr);
  if (windows.probe == nullptr) return false;
  int opcode = 0, event = 0, error = 0;
  if (XQueryExtension(windows.probe, "GLX", &opcode, &event, &error) != 0) return true;
  CloseProbe(windows);
  return false;
}

}  // namespace

WindowSystem GlutWindowSystem(const Platform& platform) {
  if (glut_windows == nullptr) glut_windows = new (std::nothrow) GlutWindows;  // to the end of the process
  WindowSystem system;
  if (glut_windows == nullptr || !OpenProbe(*glut_windows)) return system;
  glut_windows->platform = &platform;
  system.self = glut_windows;
  system.start = Start;
  system.create_window = CreateWindow;
  system.destroy_window = DestroyWindow;
  system.main_loop = MainLoop;
  system.post_redisplay = PostRedisplay;
  system.show = Show;
  system.hide = Hide;
  system.raise = Raise;
  system.reshape_window = ReshapeWindow;
  system.move_window = MoveWindow;
  system.place = Place;
  system.screen = Screen;
  system.set_current = SetCurrent;
  system.begin_image = BeginImage;
  system.begin_scene = BeginScene;
  system.end_scene = EndScene;
  system.present = Present;
  system.read_picture = ReadPicture;
  system.set_idle = SetIdle;
  system.context_generation = ContextGeneration;
  return system;
}

}  // namespace zaview
