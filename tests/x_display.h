// An X server of a test's own, without a window manager, and what a user does there to the program's window. Keys go to
// the window as events, wherever the pointer is. Everything waits for a state, with a limit, never for a time.
#pragma once

#include <cstddef>
#include <string>
#include <sys/types.h>

struct _XDisplay;
union _XEvent;

namespace zaview {

inline constexpr unsigned kShiftHeld = 1, kAltHeld = 8;
inline constexpr unsigned long kTabKey = 0xFF09, kReturnKey = 0xFF0D, kLeftKey = 0xFF51, kF2Key = 0xFFBF,
                               kF3Key = 0xFFC0, kF4Key = 0xFFC1;
inline constexpr const char* kMainTitle = "zaview";

struct XLook {              // of a window
  bool on_screen = false;   // the whole of it
  std::size_t colours = 0;  // 0 if it shows no margins, as a new one that shows for a moment what was there before
};

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
  [[nodiscard]] bool WaitForPicture();                       // a new window stands black on the screen for a moment
  [[nodiscard]] XLook WaitForInk(const std::string& title);  // more than one colour, in the window of that title
  [[nodiscard]] int ShownWindows();
  void Key(unsigned long key, unsigned held = 0, const std::string& title = kMainTitle);
  void PressCloseButton();
  void Resize(unsigned width, unsigned height);
  void Cover();  // by a window as large as the screen

 private:
  unsigned long Look(const std::string& title = kMainTitle);
  unsigned long Find(const std::string& title = kMainTitle);
  [[nodiscard]] bool IsMapped(unsigned long window);
  [[nodiscard]] XLook LookAt(unsigned long window);
  [[nodiscard]] bool HasPicture();
  [[nodiscard]] bool WaitFor(bool (XServer::*what)());
  void Send(_XEvent& event, long mask);

  pid_t server_ = -1;
  std::string name_;
  _XDisplay* display_ = nullptr;
};

}  // namespace zaview
