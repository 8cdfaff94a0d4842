// An X server of a test's own, without a window manager, and what a user does there to the program's window. Keys go to
// the window as events, wherever the pointer is. Everything waits for a state, with a limit, never for a time.
#pragma once

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <string>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <utility>

#include <gtest/gtest.h>

namespace zaview {

class XServer {
 public:
  XServer() {
    int number[2] = {-1, -1};
    if (::pipe2(number, O_CLOEXEC) != 0) return;
    server_ = ::fork();
    if (server_ == 0) Serve(number[1]);
    ::close(number[1]);
    pollfd wanted{number[0], POLLIN, 0};
    char text[16] = "";
    if (::poll(&wanted, 1, kPatience_ms) == 1 && ::read(number[0], text, sizeof text - 1) > 0)
      name_ = ":" + std::to_string(std::atoi(text));
    ::close(number[0]);
    if (name_.empty()) return;
    ::XSetErrorHandler([](::Display*, ::XErrorEvent*) { return 0; });  // windows go while we look at them
    display_ = ::XOpenDisplay(name_.c_str());
  }
  ~XServer() { End(); }
  XServer(const XServer&) = delete;
  XServer& operator=(const XServer&) = delete;

  [[nodiscard]] bool Runs() const { return display_ != nullptr; }
  [[nodiscard]] const std::string& Name() const { return name_; }

  void End() {
    if (display_ != nullptr) ::XCloseDisplay(std::exchange(display_, nullptr));
    if (server_ > 0) {
      ::kill(server_, SIGKILL);
      ::waitpid(std::exchange(server_, -1), nullptr, 0);
    }
  }

  [[nodiscard]] bool IsShown() {
    ::XWindowAttributes facts{};
    const ::Window window = Find();
    return window != 0 && ::XGetWindowAttributes(display_, window, &facts) != 0 && facts.map_state == IsViewable;
  }
  void WaitUntil(bool shown) {
    for (int i = 0; i < kPatience_ms / kLook_ms && IsShown() != shown; ++i) Rest();
    EXPECT_EQ(IsShown(), shown);
  }
  void Key(::KeySym key, unsigned held = 0) {
    ::XEvent event{};
    event.xkey.type = KeyPress;
    event.xkey.window = Find();
    event.xkey.root = ::XDefaultRootWindow(display_);
    event.xkey.same_screen = 1;
    event.xkey.keycode = ::XKeysymToKeycode(display_, key);
    event.xkey.state = held;
    Send(event, KeyPressMask);
  }
  void PressCloseButton() {
    ::XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = Find();
    event.xclient.message_type = ::XInternAtom(display_, "WM_PROTOCOLS", 0);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(::XInternAtom(display_, "WM_DELETE_WINDOW", 0));
    Send(event, 0);
  }
  void Resize(unsigned width, unsigned height) {
    ::XResizeWindow(display_, Find(), width, height);
    ::XSync(display_, 0);
  }
  // A window over the whole screen, in front of those that come later as well if it is raised again.
  void Cover() {
    const int screen = ::XDefaultScreen(display_);
    if (cover_ == 0)
      cover_ = ::XCreateSimpleWindow(display_, ::XDefaultRootWindow(display_), 0, 0,
                                     static_cast<unsigned>(::XDisplayWidth(display_, screen)),
                                     static_cast<unsigned>(::XDisplayHeight(display_, screen)), 0, 0, 0);
    ::XMapRaised(display_, cover_);
    ::XSync(display_, 0);
  }

 private:
  static constexpr int kPatience_ms = 10'000, kLook_ms = 2;

  [[noreturn]] static void Serve(int number) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    ::fcntl(number, F_SETFD, 0);
    const int nowhere = ::open("/dev/null", O_RDWR);
    for (const int file : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) ::dup2(nowhere, file);
    const std::string to = std::to_string(number);
    ::execlp("Xvfb", "Xvfb", "-displayfd", to.c_str(), "-screen", "0", "1280x1024x24", "-nolisten", "tcp", "-noreset",
             nullptr);
    ::_exit(127);
  }
  static void Rest() { std::this_thread::sleep_for(std::chrono::milliseconds(kLook_ms)); }

  // The window with the program's name; 0: there is none.
  ::Window Look() {
    ::Window root = 0, parent = 0, *children = nullptr, found = 0;
    unsigned count = 0;
    if (::XQueryTree(display_, ::XDefaultRootWindow(display_), &root, &parent, &children, &count) == 0) return 0;
    for (unsigned i = 0; i < count; ++i) {
      char* name = nullptr;
      if (::XFetchName(display_, children[i], &name) == 0) continue;
      if (std::string(name) == "zaview") found = children[i];
      ::XFree(name);
    }
    if (children != nullptr) ::XFree(children);
    return found;
  }
  ::Window Find() {
    ::Window found = Look();
    for (int i = 0; i < kPatience_ms / kLook_ms && found == 0; ++i) {
      Rest();
      found = Look();
    }
    EXPECT_NE(found, 0U) << "no window";
    return found;
  }
  void Send(::XEvent& event, long mask) {
    ::XSendEvent(display_, event.xany.window, 0, mask, &event);
    ::XSync(display_, 0);
  }

  pid_t server_ = -1;
  std::string name_;
  ::Display* display_ = nullptr;
  ::Window cover_ = 0;
};

}  // namespace zaview
