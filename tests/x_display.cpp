#include "x_display.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <set>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace zaview {

namespace {

constexpr int kPatience = 10'000, kLook = 2;  // ms

void Rest() {
  std::this_thread::sleep_for(std::chrono::milliseconds(kLook));
}

[[noreturn]] void Serve(int number, Lives lives) {
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  ::fcntl(number, F_SETFD, 0);
  const int nowhere = ::open("/dev/null", O_RDWR);
  for (const int file : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) ::dup2(nowhere, file);
  const std::string to = std::to_string(number);
  ::execlp("Xvfb", "Xvfb", "-displayfd", to.c_str(), "-screen", "0", "1280x1024x24", "-nolisten", "tcp",
           lives == Lives::on ? "-noreset" : "-reset", nullptr);
  ::_exit(127);
}

// Empty: it didn't start.
std::string ReadLine(int file) {
  std::string line;
  pollfd wanted{file, POLLIN, 0};
  char c = 0;
  while (::poll(&wanted, 1, kPatience) == 1 && ::read(file, &c, 1) == 1) {
    if (c == '\n') return line;
    line += c;
  }
  return "";
}

}  // namespace

XServer::XServer(Lives lives) {
  int number[2] = {-1, -1};
  if (::pipe2(number, O_CLOEXEC) != 0) return;
  server_ = ::fork();
  if (server_ == 0) Serve(number[1], lives);
  ::close(number[1]);
  const std::string line = ReadLine(number[0]);
  ::close(number[0]);
  if (line.empty()) return;
  name_ = ":" + line;
  if (lives == Lives::afresh) return;
  ::XSetErrorHandler([](Display*, XErrorEvent*) { return 0; });  // windows go while we look at them
  display_ = ::XOpenDisplay(name_.c_str());
}

void XServer::End() {
  if (display_ != nullptr) ::XCloseDisplay(std::exchange(display_, nullptr));
  if (server_ < 1) return;
  ::kill(server_, SIGKILL);
  ::waitpid(std::exchange(server_, -1), nullptr, 0);
}

// 0: there is none.
Window XServer::Look(const std::string& title) {
  Window root = 0, parent = 0, *children = nullptr, found = 0;
  unsigned count = 0;
  if (::XQueryTree(display_, XDefaultRootWindow(display_), &root, &parent, &children, &count) == 0) return 0;
  for (unsigned i = 0; i < count; ++i) {
    char* name = nullptr;
    if (::XFetchName(display_, children[i], &name) == 0) continue;
    if (title == name) found = children[i];
    ::XFree(name);
  }
  if (children != nullptr) ::XFree(children);
  return found;
}

Window XServer::Find(const std::string& title) {
  Window found = Look(title);
  for (int i = 0; i < kPatience / kLook && found == 0; ++i) {
    Rest();
    found = Look(title);
  }
  return found;
}

bool XServer::IsMapped(Window window) {
  XWindowAttributes facts{};
  return window != 0 && ::XGetWindowAttributes(display_, window, &facts) != 0 && facts.map_state == IsViewable;
}

bool XServer::IsShown() {
  return IsMapped(Look());
}

int XServer::ShownWindows() {
  Window root = 0, parent = 0, *children = nullptr;
  unsigned count = 0;
  if (::XQueryTree(display_, XDefaultRootWindow(display_), &root, &parent, &children, &count) == 0) return 0;
  int shown = 0;
  for (unsigned i = 0; i < count; ++i) shown += IsMapped(children[i]) ? 1 : 0;
  if (children != nullptr) ::XFree(children);
  return shown;
}

XLook XServer::LookAt(Window window) {
  XWindowAttributes facts{};
  if (!IsMapped(window) || ::XGetWindowAttributes(display_, window, &facts) == 0) return {};
  const int screen = XDefaultScreen(display_);
  XLook look;
  look.on_screen = facts.x >= 0 && facts.y >= 0 && facts.x + facts.width <= XDisplayWidth(display_, screen) &&
                   facts.y + facts.height <= XDisplayHeight(display_, screen);
  const auto width = static_cast<unsigned>(facts.width), height = static_cast<unsigned>(facts.height);
  XImage* const image =
      look.on_screen ? ::XGetImage(display_, window, 0, 0, width, height, AllPlanes, ZPixmap) : nullptr;
  if (image == nullptr) return look;
  std::set<unsigned long> colours, edges;  // edges: of the first and the last line
  for (int y = 0; y < facts.height; ++y)
    for (int x = 0; x < facts.width; ++x) {
      colours.insert(XGetPixel(image, x, y));
      if (y == 0 || y == facts.height - 1) edges.insert(XGetPixel(image, x, y));
    }
  XDestroyImage(image);
  if (edges.size() == 1) look.colours = colours.size();
  return look;
}

XLook XServer::WaitForInk(const std::string& title) {
  XLook look;
  for (int i = 0; i < kPatience / kLook && look.colours < 2; ++i) {
    Rest();
    look = LookAt(Look(title));
  }
  return look;
}

bool XServer::HasPicture() {
  constexpr int kEdge = 400;  // pixels that are looked at
  XImage* const image = IsShown() ? ::XGetImage(display_, Look(), 0, 0, kEdge, kEdge, AllPlanes, ZPixmap) : nullptr;
  if (image == nullptr) return false;
  bool any = false;
  for (int i = 0; i < kEdge * kEdge && !any; ++i) any = (XGetPixel(image, i % kEdge, i / kEdge) & 0xFFFFFFUL) != 0;
  XDestroyImage(image);
  return any;
}

bool XServer::WaitFor(bool (XServer::*what)()) {
  for (int i = 0; i < kPatience / kLook && !(this->*what)(); ++i) Rest();
  return (this->*what)();
}

bool XServer::WaitForWindow() {
  return WaitFor(&XServer::IsShown);
}
bool XServer::WaitForPicture() {
  return WaitFor(&XServer::HasPicture);
}

void XServer::Send(XEvent& event, long mask) {
  ::XSendEvent(display_, event.xany.window, 0, mask, &event);
  ::XSync(display_, 0);
}

void XServer::Key(unsigned long key, unsigned held, const std::string& title) {
  XEvent event{};
  event.xkey.type = KeyPress;
  event.xkey.window = Find(title);
  event.xkey.root = XDefaultRootWindow(display_);
  event.xkey.same_screen = 1;
  event.xkey.keycode = ::XKeysymToKeycode(display_, key);
  event.xkey.state = held;
  Send(event, KeyPressMask);
}

void XServer::PressCloseButton() {
  XEvent event{};
  event.xclient.type = ClientMessage;
  event.xclient.window = Look();  // the program may have come to its end
  if (event.xclient.window == 0) return;
  event.xclient.message_type = ::XInternAtom(display_, "WM_PROTOCOLS", 0);
  event.xclient.format = 32;
  event.xclient.data.l[0] = static_cast<long>(::XInternAtom(display_, "WM_DELETE_WINDOW", 0));
  Send(event, 0);
}

void XServer::Resize(unsigned width, unsigned height) {
  ::XResizeWindow(display_, Find(), width, height);
  ::XSync(display_, 0);
}

void XServer::Cover() {
  const int screen = XDefaultScreen(display_);
  const auto width = static_cast<unsigned>(XDisplayWidth(display_, screen));
  const auto height = static_cast<unsigned>(XDisplayHeight(display_, screen));
  ::XMapRaised(display_, ::XCreateSimpleWindow(display_, XDefaultRootWindow(display_), 0, 0, width, height, 0, 0, 0));
  ::XSync(display_, 0);
}

}  // namespace zaview
