#include "gks/window/gks_window.h"

#include <string>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include "base/message.h"
#include "gks/kernel/gks_control.h"
#include "gks/kernel/gks_transform.h"
#include "gks/picture/picture_sheet.h"
#include "gks/picture/recorded_picture.h"
#include "gks/picture/window_dump.h"
#include "gks/window/side_windows.h"
#include "gks/window/text_screen.h"

namespace zaview {

namespace {

constexpr fmt::string_view kCause = "GLGKS - {}";
constexpr std::string_view kNoGraphics = "graphics are not available";
constexpr std::string_view kNoDisplay =
    "no display: plots can only be written to files (name one behind the plot command; from the menu: GLDUMPONLY=yes)";
constexpr std::string_view kNobody = "no display: nobody can leave this view";

constexpr std::string_view kNoSmooth = "WARNING - There is no library for smooth pictures, they are drawn as ever";

constexpr int kDumpOption = 2;  // numbered GIF, if the order names nothing else
constexpr int kLeave = 'q';

GksState& Of(void* self) {
  return *static_cast<GksState*>(self);
}
const WindowSystem& Windows(const GksState& gks) {
  return gks.platform->window;
}

bool IsDumping(const GksState& gks) {
  return gks.dump.dump_only || gks.dump.waiting;
}

// A view that is fully covered rests. Pictures for files, and what comes after a view, wait for nobody.
bool MayDraw(const GksState& gks) {
  return gks.window.visible || gks.window.hidden || IsDumping(gks);
}

void Post(const GksState& gks) {
  gksPostRedisplay(*gks.platform, gks);
}

void ForceDisplay(GksState& gks) {
  gks.window.force = true;
  Post(gks);
}

void SetIdle(const Platform& platform, GksState& gks, bool on) {
  gks.window.idle_on = on;
  platform.window.set_idle(platform.window.self, on);
}

void Hide(const Platform& platform, GksState& gks) {
  platform.window.hide(platform.window.self, gks.window.id);
  gks.window.shown = false;
  gks.window.hidden = true;
}

// Only from hidden to shown: every show is answered by a display.
void ShowIfWanted(GksState& gks) {
  if (!gks.window.shown || !std::exchange(gks.window.hidden, false)) return;
  Windows(gks).show(Windows(gks).self, gks.window.id);
}

// The window isn't to be seen before a view has something to show.
void Greet(GksState& gks) {
  gks.window.greeted = true;
  gksBeginPicture(Windows(gks), gks);
  GCLRWK(gks);
  Hide(*gks.platform, gks);
  Post(gks);
}

void LeaveView(GksState& gks) {
  gks.hooks.keyboard(gks.hooks.self, kLeave, 0.0F, 0.0F);
  Post(gks);
}

bool Store(GksState& gks) {
  if (gks.sheet.open()) gks.dump.name.clear();
  return GKSDUMP(*gks.platform, gks, kDumpOption);
}

void Dump(GksState& gks) {
  const GksHooks& hooks = gks.hooks;
  const AfterPicture after = hooks.take_picture == nullptr ? AfterPicture::store : hooks.take_picture(hooks.self);
  gks.dump.idle_count = 0;
  if (after == AfterPicture::another) return ForceDisplay(gks);
  if (after == AfterPicture::store && !Store(gks)) gks.dump.failed = true;
  gks.dump.waiting = false;
  gks.screen = TextScreen{};
  SetIdle(*gks.platform, gks, false);
  LeaveView(gks);
}

double Now(const GksState& gks) {
  const Clock& clock = gks.platform->clock;
  return clock.seconds(clock.self);
}

// On a display the first drawing of a window may not be whole: the second one goes into the file.
void DumpWhenDrawn(GksState& gks) {
  constexpr int kCalls = 2;
  if (Now(gks) < gks.window.resize_until) return;
  if (++gks.dump.idle_count < kCalls) ForceDisplay(gks);
  else Dump(gks);
}

// In memory every drawing is whole, and nobody looks at it.
void DumpSoon(GksState& gks) {
  if (Windows(gks).offscreen) Dump(gks);
  else SetIdle(*gks.platform, gks, true);
}

// ---- What the window system calls

void OnDisplay(void* self, int id, bool damaged) {
  GksState& gks = Of(self);
  if (id != gks.window.id) return DisplaySide(gks, id);
  if (!gks.window.greeted) {
    Greet(gks);
    return;
  }
  if (!MayDraw(gks)) return;
  if (damaged && gks.window.shown) gks.window.force = true;
  gksBeginDrawing(*gks.platform, gks);
  const bool force = std::exchange(gks.window.force, false);
  if (gks.screen.mode == ScreenMode::plot) gks.hooks.render(gks.hooks.self, force);
  else DrawTextScreen(*gks.platform, gks);
  if (IsDumping(gks) && gks.window.shown) DumpSoon(gks);
  ShowIfWanted(gks);
}

void OnReshape(void* self, int id, int width, int height) {
  GksState& gks = Of(self);
  if (width < 1 || height < 1) return;
  if (id != gks.window.id) return ReshapeSide(gks, id, width, height);
  gks.window.width = width;
  gks.window.height = height;
  gks.window.resize_until = 0;
  ForceDisplay(gks);
}

void OnVisible(void* self, int id, bool on) {
  GksState& gks = Of(self);
  if (on) PostSide(gks, id);
  if (id != gks.window.id) return;
  gks.window.visible = on;
  if (!on) return;
  if (gks.window.idle_on) SetIdle(*gks.platform, gks, true);
  ForceDisplay(gks);
}

// Keys and clicks are meant for the picture at the window's size, as it is about to be drawn.
void DrawIfStale(GksState& gks) {
  const GksWindow& window = gks.window;
  if (window.force && window.shown && !window.hidden) OnDisplay(&gks, window.id, false);
}

void OnKey(void* self, int id, int code, unsigned modifiers, int x, int y) {
  GksState& gks = Of(self);
  if (IsDumping(gks)) return;  // nobody is to come between a view and its picture
  if (id != gks.window.id && KeyOfSide(gks, id, code, modifiers)) return;
  if (code == kKeyHome || code == kKeyInsert) return;  // of type-ins alone
  DrawIfStale(gks);
  gks.modifiers = modifiers;
  gksKey(gks, code, x, y);
  gks.modifiers = 0;
  Post(gks);
}

void OnMouse(void* self, int id, int button, unsigned modifiers, int x, int y) {
  GksState& gks = Of(self);
  if (IsDumping(gks)) return;
  if (id != gks.window.id) return MouseOfSide(gks, id, button, modifiers, x, y);
  if (gks.screen.mode != ScreenMode::plot) return;
  DrawIfStale(gks);
  gks.modifiers = modifiers;
  const GksPoint world = gksToWorld(gks, x, y);
  gks.hooks.mouse(gks.hooks.self, button, world.x, world.y);
  gks.modifiers = 0;
}

// Buttons spring back while a picture is made, too.
void OnRelease(void* self, int id, int button, unsigned modifiers, int x, int y) {
  ReleaseOfSide(Of(self), id, button, modifiers, x, y);
}

void OnDrag(void* self, int id, int x, int y) {
  if (!IsDumping(Of(self))) DragOfSide(Of(self), id, x, y);
}

bool OpenWindow(GksState& gks) {
  const WindowSystem& windows = Windows(gks);
  GksWindow& window = gks.window;
  window.id = windows.create_window(windows.self, window.title, window.x, window.y, window.width, window.height);
  window.visible = window.shown = window.hidden = window.greeted = false;
  return window.id != 0;
}

// Closed by the user: a new one, hidden at once, stands in for it, and the view is left. A picture that is waited for
// is drawn in there.
void OnClosed(void* self, int id) {
  GksState& gks = Of(self);
  if (id != gks.window.id) return CloseSide(gks, id);
  if (!OpenWindow(gks)) return;
  gks.window.greeted = true;
  Hide(*gks.platform, gks);
  gks.dump.idle_count = 0;
  gks.hooks.close_menus(gks.hooks.self);
  gks.screen = TextScreen{};
  gks.window.force = true;
  if (IsDumping(gks)) Post(gks);
  else LeaveView(gks);
}

void OnIdle(void* self) {
  GksState& gks = Of(self);
  if (!MayDraw(gks)) {
    Windows(gks).set_idle(Windows(gks).self, false);  // until it can be seen again
    return;
  }
  if (gks.window.force) return;  // still to be drawn
  if (IsDumping(gks)) {
    DumpWhenDrawn(gks);
    return;
  }
  if (gks.screen.mode != ScreenMode::plot) {  // run mode rests behind a text screen
    Windows(gks).set_idle(Windows(gks).self, false);
    return;
  }
  if (gks.hooks.idle(gks.hooks.self)) Post(gks);
}

WindowEvents EventsOf(GksState& gks) {
  WindowEvents events;
  events.self = &gks;
  events.display = OnDisplay;
  events.reshape = OnReshape;
  events.visible = OnVisible;
  events.key = OnKey;
  events.mouse = OnMouse;
  events.release = OnRelease;
  events.drag = OnDrag;
  events.closed = OnClosed;
  events.idle = OnIdle;
  return events;
}

// ---- Recorded pictures

void ShowRecording(void* self) {
  PictureRecording& recording = *static_cast<PictureRecording*>(self);
  if (recording.shown != nullptr) static_cast<void>(DrawRecorded(recording, *recording.shown));
}

// Without a display a picture that goes into a vector file, or onto a page, needs no pixels.
bool NeedsPixels(const Platform& platform, const GksState& gks) {
  if (!platform.window.offscreen || !gks.dump.waiting) return true;
  PictureFormat format{};
  return !gks.sheet.open() && !(FormatOfName(gks.dump.name, format) && IsVector(format));
}

// ---- Opening

bool Refuse(const Console& console, std::string_view cause) {
  Say(console, kCause, cause);
  SayLine(console, kNoWindow);
  return false;
}

}  // namespace

void gksReadEnvironment(const Platform& platform, GksState& gks) {
  if (std::exchange(gks.environment_read, true)) return;
  GksEnvironment environment;
  if (platform.environment != nullptr) {
    const auto value = [&](const char* name) { return platform.environment(platform.self, name); };
    environment = {value("GLREVERSE"), value("GLBITFONT"), value("GLWINDOWSIZE"), value("GLDUMPONLY")};
  }
  gksTakeEnvironment(platform.console, environment, gks);
}

bool gksReady(Platform& platform, GksState& gks) {
  gksReadEnvironment(platform, gks);
  const bool started = gks.platform != nullptr;
  WindowSystem windows = platform.window;
  if (!started) windows = platform.choose_window == nullptr ? WindowSystem{} : platform.choose_window(platform);
  if (windows.start == nullptr) return Refuse(platform.console, kNoGraphics);
  if (windows.offscreen && !IsDumping(gks)) return Refuse(platform.console, kNoDisplay);
  if (started) return true;
  std::string why;
  bool ready = windows.start(windows.self, EventsOf(gks), why);
  if (!ready && IsDumping(gks) && platform.window.start != nullptr) {  // a picture for a file needs no display
    windows = platform.window;
    ready = windows.start(windows.self, EventsOf(gks), why);
  }
  if (!ready) return Refuse(platform.console, why);
  platform.window = windows;
  gks.platform = &platform;
  return true;
}

void gksTop(const Platform& platform, GksState& gks, std::string_view title) {
  gks.window.title = title;
  if (!OpenWindow(gks)) {
    SayLine(platform.console, kNoWindow);
    return;
  }
  platform.window.main_loop(platform.window.self);
  static_cast<void>(Refuse(platform.console, kNobody));
}

void glResizeWindow(const Platform& platform, GksState& gks, int width, int height) {
  if (width < 1 || height < 1) return;
  if (gks.window.id == 0) {
    gks.window.width = width;
    gks.window.height = height;
    gks.window.size_is_fixed = true;
    return;
  }
  platform.window.reshape_window(platform.window.self, gks.window.id, width, height);
  gksPostRedisplay(platform, gks);
  if (platform.window.offscreen) {  // nobody can refuse: the view that comes next has this size
    gks.window.width = width;
    gks.window.height = height;
    return;
  }
  constexpr double kPatience = 1.0;  // seconds; a window manager may want another size
  if (width != gks.window.width || height != gks.window.height) gks.window.resize_until = Now(gks) + kPatience;
}

void gksBeginDrawing(const Platform& platform, GksState& gks) {
  gksBeginPicture(platform.window, gks);
  if (!IsRecorded(gks) || gks.paint.self == nullptr) return;
  const bool pixels = NeedsPixels(platform, gks), smooth = !pixels || CanDrawRecorded();
  if (!smooth && !std::exchange(gks.smooth_warned, true)) SayLine(platform.console, kNoSmooth);
  if (!smooth && !IsDumping(gks)) return;
  PictureImage& image = *static_cast<PictureImage*>(gks.paint.self);
  gks.recording.shown = pixels ? &image : nullptr;
  gks.paint = RecordingPaint(gks.recording, image.width, image.height);
  gks.paint.finish = ShowRecording;
}

void gksPostRedisplay(const Platform& platform, const GksState& gks) {
  if (gks.window.id != 0) platform.window.post_redisplay(platform.window.self, gks.window.id);
}

void gksWindowShow(GksState& gks) {
  gks.window.shown = true;
}

void gksWindowHideNow(const Platform& platform, GksState& gks) {
  if (gks.window.id == 0) return;
  gks.hooks.close_menus(gks.hooks.self);
  Hide(platform, gks);
  gks.window.force = true;
  gksPostRedisplay(platform, gks);
}

void gksIdleOn(const Platform& platform, GksState& gks) {
  if (!gks.dump.dump_only) SetIdle(platform, gks, true);
}

void gksIdleOff(const Platform& platform, GksState& gks) {
  if (!gks.dump.dump_only && gks.window.idle_on) SetIdle(platform, gks, false);
}

GksModifiers gksMouseButtons(const GksState& gks) {
  if (gks.dump.dump_only) return {};
  const auto down = [&](unsigned key) { return (gks.modifiers & key) != 0; };
  return {down(kShiftKey), down(kControlKey), down(kAltKey)};
}

void gksReverseToggle(const Platform& platform, GksState& gks) {
  gksSetReverse(gks, !gks.window.reverse_video);
  gksPostRedisplay(platform, gks);
}

void gksReverseOff(GksState& gks) {
  gksSetReverse(gks, false);
}

void gksReverseOn(GksState& gks) {
  gksSetReverse(gks, true);
}

bool gksReverseQuery(const GksState& gks) {
  return gks.window.reverse_video;
}

}  // namespace zaview
