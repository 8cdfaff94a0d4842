// A child process behind a pseudo terminal, or behind a plain line where none is wanted: what a user types, and what
// the screen gets.
#pragma once

#include <cerrno>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <functional>
#include <poll.h>
#include <pty.h>
#include <string>
#include <string_view>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>
#include <utility>

#include <gtest/gtest.h>

namespace zaview {

enum class Over : unsigned char { terminal, plain_line };

class PseudoTerminal {
 public:
  // The child has a folder of its own, where its history goes as well; it ends with what `work` returns.
  PseudoTerminal(const std::filesystem::path& folder, const std::function<int()>& work, Over over = Over::terminal) {
    child_ = over == Over::terminal ? ForkBehindTerminal() : ForkBehindLine();
    if (child_ != 0) return;
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);  // nobody is left to end it
    ::signal(SIGINT, SIG_DFL);           // whatever started the tests ignores
    std::filesystem::current_path(folder);
    ::setenv("TERM", "xterm", 1);
    ::setenv("LC_ALL", "C.UTF-8", 1);
    ::setenv("HOME", folder.c_str(), 1);
    ::setenv("XDG_STATE_HOME", (folder / "state").c_str(), 1);
    std::exit(work());
  }
  ~PseudoTerminal() {
    if (child_ > 0) {
      ::kill(child_, SIGKILL);
      ::waitpid(child_, nullptr, 0);
    }
    ::close(master_);
  }
  PseudoTerminal(const PseudoTerminal&) = delete;
  PseudoTerminal& operator=(const PseudoTerminal&) = delete;

  void Type(std::string_view keys) const {
    EXPECT_EQ(::write(master_, keys.data(), keys.size()), static_cast<ssize_t>(keys.size()));
  }
  // Waits for `text` behind what was waited for before.
  void Expect(std::string_view text) {
    while (screen_.find(text, seen_) == std::string::npos)
      if (!ReadMore()) {
        FAIL() << "no '" << text << "' on the screen behind\n" << screen_.substr(seen_);
        return;
      }
    seen_ = screen_.find(text, seen_) + text.size();
  }
  void Answer(std::string_view prompt, std::string_view keys) {
    Expect(prompt);
    Type(keys);
  }
  void Resize(unsigned short columns) const {  // the program gets a SIGWINCH
    const winsize size{24, columns, 0, 0};
    EXPECT_EQ(::ioctl(master_, TIOCSWINSZ, &size), 0);
  }
  // Exit status; -n: ended by signal n, -SIGKILL also where nothing has come for a minute.
  [[nodiscard]] int End() {
    constexpr int kNone = -1000;  // no status of a program
    if (child_ < 0) return kNone;
    constexpr int kHangs = 60'000;  // ms
    while (ReadMore(kHangs)) {
    }
    if (is_silent_) ::kill(child_, SIGKILL);
    int status = 0;
    if (::waitpid(std::exchange(child_, -1), &status, 0) < 0) return kNone;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
  }
  [[nodiscard]] pid_t Child() const { return child_; }
  [[nodiscard]] bool LinesAreCooked() const {
    termios mode{};
    return ::tcgetattr(master_, &mode) == 0 && (mode.c_lflag & ICANON) != 0 && (mode.c_lflag & ECHO) != 0;
  }
  [[nodiscard]] const std::string& Screen() const { return screen_; }

 private:
  pid_t ForkBehindTerminal() {
    winsize size{24, 80, 0, 0};
    return ::forkpty(&master_, nullptr, nullptr, &size);
  }
  pid_t ForkBehindLine() {
    int ends[2] = {-1, -1};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) return -1;
    master_ = ends[0];
    const pid_t child = ::fork();
    for (const int file : {STDIN_FILENO, STDOUT_FILENO})
      if (child == 0) ::dup2(ends[1], file);
    ::close(ends[1]);
    return child;
  }
  bool ReadMore(int patience = 10'000) {  // ms
    pollfd wanted{master_, POLLIN, 0};
    char bytes[4096];
    is_silent_ = ::poll(&wanted, 1, patience) <= 0;
    if (is_silent_) return false;
    const ssize_t n = ::read(master_, bytes, sizeof bytes);  // fails when the child is gone
    if (n > 0) screen_.append(bytes, static_cast<std::size_t>(n));
    return n > 0;
  }

  int master_ = -1;
  pid_t child_ = -1;
  bool is_silent_ = false;
  std::string screen_;
  std::size_t seen_ = 0;
};

}  // namespace zaview
