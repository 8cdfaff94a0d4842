// An X server of a test's own, without a window manager, and what a user does there to the program's window. Keys go to
// the window as events, wherever the pointer is. Everything waits for a state, with a limit, never for a time.
#pragma once

#include <string>
#include <sys/types.h>

struct _XDisplay;
union _XEvent;

namespace zaview {

inline constexpr unsigned kShiftHeld = 1;

enum class Lives : unsigned char { on, afresh };  // when its last client leaves

class XServer {
 public:
  explicit XServer(Lives lives = Lives::on);  // afresh: nobody looks at it, Name is all there is
  ~XServer() { End(); }
  XServer(const XServer&) = delete;
  XServer& operator=(const XServer&) = delete;

  [[nodiscard]] bool Runs() const { return !name_.empty(); }
  [[nodiscard]] const std::string& Name() const { return name_; }  // of the display
  void End();

  [[nodiscard]] bool IsShown();
  [[nodiscard]] bool WaitForWindow();
  [[nodiscard]] bool WaitForPicture();  // a new window stands black on the screen for a moment
  void Key(char key, unsigned held = 0);
  void PressCloseButton();
  void Resize(unsigned width, unsigned height);
  void Cover();  // by a window as large as the screen

 private:
  unsigned long Look();
  unsigned long Find();
  [[nodiscard]] bool HasPicture();
  [[nodiscard]] bool WaitFor(bool (XServer::*what)());
  void Send(_XEvent& event, long mask);

  pid_t server_ = -1;
  std::string name_;
  _XDisplay* display_ = nullptr;
};

}  // namespace zaview
