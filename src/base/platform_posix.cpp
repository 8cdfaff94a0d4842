#include "base/platform_posix.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <string_view>
#include <sys/types.h>
#include <unistd.h>
#include <utility>
#include <vector>

#include "base/child_process.h"
#include "base/interrupt.h"
#include "base/line_editor.h"
#include "base/posix_machine.h"

namespace zaview {

namespace {

constexpr std::size_t kConsoleBuffer = 1 << 16;
constexpr std::size_t kKeptInputLine = 4096;  // columns kept of an input line; the rest is passed over
constexpr int kEndedBySignal = 128;           // exit status, to which shells add the signal's number

// A run that ends before its time: who still writes for it is stopped, and of its files what is not complete goes.
void RemoveUnfinished(const PosixMachine& machine) {
  StopChildren(machine.children);
  RemoveUnfinishedFiles(machine);
}

// Nobody listens to the console any more (a closed pipe, a full disk).
[[noreturn]] void EndWithoutConsole(const PosixMachine& machine) {
  RemoveUnfinished(machine);
  ::_exit(1);
}

void RemoveProgress(void* self) {
  PosixMachine& machine = MachineOf(self);
  if (!machine.progress_shown) return;
  machine.progress_shown = false;
  WriteAll(STDERR_FILENO, "\r\033[K");
}

void ShowProgress(void* self, std::string_view text) {
  PosixMachine& machine = MachineOf(self);
  if (!machine.progress_on_terminal) return;
  machine.progress_shown = true;
  std::string line = "\r";
  line.append(text).append("\033[K");
  WriteAll(STDERR_FILENO, line);
}

void FlushBegin(PosixMachine& machine, std::size_t size) {
  if (size == 0) return;
  RemoveProgress(&machine);
  if (!WriteAll(STDOUT_FILENO, std::string_view(machine.out).substr(0, size))) EndWithoutConsole(machine);
  machine.out.erase(0, size);
}

// At a terminal the open line is held back: it may become a prompt, which the editor draws.
void FlushConsole(void* self) {
  PosixMachine& machine = MachineOf(self);
  FlushBegin(machine, machine.at_terminal ? machine.out.rfind('\n') + 1 : machine.out.size());
}

void FlushAll(PosixMachine& machine) {
  FlushBegin(machine, machine.out.size());
}

void WriteConsole(void* self, std::string_view text) {
  PosixMachine& machine = MachineOf(self);
  if (machine.out.size() + text.size() > kConsoleBuffer) FlushAll(machine);
  if (text.size() <= kConsoleBuffer) {
    machine.out += text;
    return;
  }
  if (!WriteAll(STDOUT_FILENO, text)) EndWithoutConsole(machine);
}

// So that whoever started the program knows what ended it: a loop of a shell around it ends too.
[[noreturn]] void EndBySignal(PosixMachine& machine, int signal) {
  machine.editor.reset();  // gives the terminal back
  static_cast<void>(std::signal(signal, SIG_DFL));
  static_cast<void>(std::raise(signal));
  std::exit(kEndedBySignal + signal);  // the signal is held back
}

// The user wants out, or the system wants us out: files that stand are whole, others leave nothing.
[[noreturn]] void EndEarly(PosixMachine& machine, int signal) {
  if (machine.at_terminal) machine.out += '\n';
  FlushAll(machine);
  RemoveUnfinished(machine);
  EndBySignal(machine, signal);
}

// False at the end of the input, or for an interrupt.
bool FillInput(PosixMachine& machine) {
  while (WaitForInput(STDIN_FILENO) == Waited::signal)
    if (InterruptPending()) return false;
  machine.in.resize(kConsoleBuffer);
  const ssize_t n = ReadSome(STDIN_FILENO, machine.in.data(), machine.in.size());
  machine.in_begin = 0;
  machine.in_end = n > 0 ? static_cast<std::size_t>(n) : 0;
  return n > 0;
}

bool ReadPlainLine(PosixMachine& machine, std::string& line) {
  FlushAll(machine);
  std::string kept;
  bool any = false;
  for (;;) {
    if (machine.in_begin == machine.in_end && !FillInput(machine)) break;
    any = true;
    const char* const begin = machine.in.data() + machine.in_begin;
    const char* const end = machine.in.data() + machine.in_end;
    const char* const line_end = std::find(begin, end, '\n');
    kept.append(begin, std::min(static_cast<std::size_t>(line_end - begin), kKeptInputLine - kept.size()));
    machine.in_begin += static_cast<std::size_t>(line_end - begin);
    if (line_end == end) continue;
    ++machine.in_begin;
    break;
  }
  if (InterruptPending()) return false;
  if (any) line = std::move(kept);
  return any;
}

EditorParts* Editor(PosixMachine& machine) {
  if (machine.at_terminal && !machine.editor_tried) machine.editor = MakeLineEditor();
  machine.editor_tried = true;
  return machine.editor.get();
}

bool ReadWithEditor(PosixMachine& machine, EditorParts& editor, std::string& line) {
  RemoveProgress(&machine);
  std::string prompt;
  machine.out.swap(prompt);
  std::string typed;
  int end_signal = 0;
  const EditEnd end = ReadEditedLine(editor, prompt, typed, end_signal);
  if (end == EditEnd::end_of_run) EndEarly(machine, end_signal);
  if (end != EditEnd::line) return false;
  line = std::move(typed);
  line.resize(std::min(line.size(), kKeptInputLine));
  return true;
}

bool ReadLine(void* self, std::string& line) {
  FlushConsole(self);
  PosixMachine& machine = MachineOf(self);
  bool got = false;
  if (!InterruptPending()) {
    EditorParts* const editor = Editor(machine);
    got = editor != nullptr ? ReadWithEditor(machine, *editor, line) : ReadPlainLine(machine, line);
  }
  if (InterruptedTwice()) EndEarly(machine, SIGINT);
  if (got) NoteInput();
  return got;
}

double Seconds(void*) {
  timespec now{};
  ::clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

[[noreturn]] void Exit(void* self, int status) {
  FlushAll(MachineOf(self));
  RemoveUnfinished(MachineOf(self));
  if (status == kEndedBySignal + SIGINT) EndBySignal(MachineOf(self), SIGINT);
  std::exit(status);
}

// A run may be started with its standard files closed; a file opened later must not become the console.
void FillStandardFiles() {
  for (int file = STDIN_FILENO; file <= STDERR_FILENO; ++file)
    if (::fcntl(file, F_GETFD) < 0) static_cast<void>(::open("/dev/null", file == STDIN_FILENO ? O_RDONLY : O_WRONLY));
}

}  // namespace

Platform PosixPlatform() {
  static PosixMachine machine;  // standard input and output are one a process themselves
  FillStandardFiles();
  static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
  CatchInterrupts();
  machine.at_terminal = ::isatty(STDIN_FILENO) == 1 && ::isatty(STDOUT_FILENO) == 1;
  machine.progress_on_terminal = ::isatty(STDERR_FILENO) == 1;

  Platform platform;
  platform.self = &machine;
  platform.exit = Exit;
  platform.environment = [](void*, const char* name) -> const char* { return std::getenv(name); };
  platform.console = {&machine,
                      ReadLine,
                      WriteConsole,
                      FlushConsole,
                      ::isatty(STDIN_FILENO) == 1,
                      ShowProgress,
                      RemoveProgress,
                      [](void*) { return TakeInterrupt(); },
                      [](void* self, std::string_view text) {
                        FlushAll(MachineOf(self));
                        static_cast<void>(WriteAll(STDERR_FILENO, text));
                      }};
  platform.files = PosixFiles(machine);
  platform.programs = {
      &machine,
      [](void*, const std::string& name) { return IsOnPath(name); },
      [](void* self, const std::vector<std::string>& words) { return StartChild(MachineOf(self).children, words); },
      [](void* self, ChildHandle child, std::string_view bytes) {
        return WriteAll(InputOfChild(MachineOf(self).children, child), bytes);
      },
      [](void* self, ChildHandle child, std::string& said) {
        return FinishChild(MachineOf(self).children, child, said);
      },
      [](void* self, ChildHandle child) { StopChild(MachineOf(self).children, child); }};
  platform.clock = {&machine, Seconds};
  return platform;
}

}  // namespace zaview
