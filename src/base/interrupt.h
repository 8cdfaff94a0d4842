// Ctrl-C. The handler only counts; who reads from the console, or goes from one command to the next, looks. One Ctrl-C
// gives up what is being asked or run, two with no input between them end the program.
#pragma once

namespace zaview {

// Counts from here on. A program that was started with interrupts ignored (in the background) goes on ignoring them.
void CatchInterrupts();
[[nodiscard]] bool InterruptPending();
[[nodiscard]] bool InterruptedTwice();
[[nodiscard]] bool TakeInterrupt();  // was one pending? It counts on towards the second.
void NoteInput();                    // the user did something else: the next Ctrl-C is the first again

// While it lives, the signals that would leave an edited line's terminal behind are noted as well.
class TerminalSignals {
 public:
  TerminalSignals();
  ~TerminalSignals();
  TerminalSignals(const TerminalSignals&) = delete;
  TerminalSignals& operator=(const TerminalSignals&) = delete;
};
// What came, each told once. `end` is the signal that asks the program to end; 0: none.
struct TerminalEvents {
  bool suspend = false;  // Ctrl-Z
  bool resized = false;
  int end = 0;
};
[[nodiscard]] TerminalEvents TakeTerminalEvents();
void SuspendProgram();  // comes back when it is continued

enum class Waited : unsigned char { input, signal };
// Waits until `file` can be read without waiting, or ended. A signal between looking and waiting is not lost.
[[nodiscard]] Waited WaitForInput(int file);

}  // namespace zaview
