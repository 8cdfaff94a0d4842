#include "base/interrupt.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <poll.h>
#include <pthread.h>

namespace zaview {

namespace {

// A handler is told nothing but the number of its signal.
struct Caught {
  volatile std::sig_atomic_t interrupts = 0;  // since the last input, two at most
  volatile std::sig_atomic_t answered = 0;    // of these
  volatile std::sig_atomic_t suspend = 0, resized = 0, end = 0;
};
Caught caught;  // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)

constexpr std::array kTerminalSignals = {SIGTSTP, SIGWINCH, SIGTERM, SIGHUP};
using SavedActions = std::array<struct sigaction, kTerminalSignals.size()>;
SavedActions saved_actions;  // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)

void Note(int signal) {
  if (signal == SIGINT && caught.interrupts < 2) caught.interrupts = caught.interrupts + 1;
  else if (signal == SIGTSTP) caught.suspend = 1;
  else if (signal == SIGWINCH) caught.resized = 1;
  else if (signal != SIGINT) caught.end = signal;
}

// Without SA_RESTART: a read that waits comes back.
void Catch(int signal, struct sigaction* old) {
  struct sigaction action {};
  action.sa_handler = Note;
  sigemptyset(&action.sa_mask);
  ::sigaction(signal, &action, old);
}

bool AnythingCaught() {
  return InterruptPending() || caught.suspend != 0 || caught.resized != 0 || caught.end != 0;
}

}  // namespace

void CatchInterrupts() {
  struct sigaction old {};
  if (::sigaction(SIGINT, nullptr, &old) == 0 && old.sa_handler == SIG_IGN) return;
  Catch(SIGINT, nullptr);
}

bool InterruptPending() {
  return caught.interrupts > caught.answered;
}

bool InterruptedTwice() {
  return caught.interrupts >= 2;
}

bool TakeInterrupt() {
  const bool pending = InterruptPending();
  caught.answered = caught.interrupts;
  return pending;
}

void NoteInput() {
  caught.interrupts = 0;
  caught.answered = 0;
}

TerminalSignals::TerminalSignals() {
  for (std::size_t i = 0; i < kTerminalSignals.size(); ++i) {
    ::sigaction(kTerminalSignals[i], nullptr, &saved_actions[i]);
    if (saved_actions[i].sa_handler != SIG_IGN) Catch(kTerminalSignals[i], nullptr);
  }
}

TerminalSignals::~TerminalSignals() {
  for (std::size_t i = 0; i < kTerminalSignals.size(); ++i)
    ::sigaction(kTerminalSignals[i], &saved_actions[i], nullptr);
}

TerminalEvents TakeTerminalEvents() {
  const TerminalEvents events{caught.suspend != 0, caught.resized != 0, caught.end};
  caught.suspend = 0;
  caught.resized = 0;
  return events;
}

void SuspendProgram() {
  struct sigaction normal {
  }, noted{};
  normal.sa_handler = SIG_DFL;
  sigemptyset(&normal.sa_mask);
  ::sigaction(SIGTSTP, &normal, &noted);
  static_cast<void>(std::raise(SIGTSTP));
  ::sigaction(SIGTSTP, &noted, nullptr);
}

Waited WaitForInput(int file) {
  sigset_t held, before;
  sigemptyset(&held);
  sigaddset(&held, SIGINT);
  for (const int signal : kTerminalSignals) sigaddset(&held, signal);
  pthread_sigmask(SIG_BLOCK, &held, &before);
  pollfd wanted{file, POLLIN, 0};
  int ready = -1;
  if (!AnythingCaught()) ready = ::ppoll(&wanted, 1, nullptr, &before);
  const bool by_signal = AnythingCaught() || (ready < 0 && errno == EINTR);
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
  return by_signal ? Waited::signal : Waited::input;
}

}  // namespace zaview
