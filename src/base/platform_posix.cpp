#include "base/platform_posix.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>
#include <vector>

#include "base/child_process.h"
#include "base/interrupt.h"
#include "base/line_editor.h"

namespace zaview {

namespace {

constexpr std::size_t kConsoleBuffer = 1 << 16;
constexpr std::size_t kKeptInputLine = 4096;  // columns kept of an input line; the rest is passed over
constexpr mode_t kNewFileMode = 0666;         // less what the user's mask takes away
constexpr int kEndedBySignal = 128;           // exit status, to which shells add the signal's number
constexpr int kLinkHops = 40;                 // as the system itself: a longer chain is a loop

struct PosixMachine {
  std::string out;       // console text not yet written
  std::vector<char> in;  // input read: [in_begin, in_end) is not yet taken
  std::size_t in_begin = 0, in_end = 0;
  bool at_terminal = false;  // both standard input and output: lines are edited
  LineEditor editor;         // made for the first line; null where the terminal can't
  bool editor_tried = false;
  bool progress_on_terminal = false;
  bool progress_shown = false;
  std::vector<std::string> unfinished;  // files made new and neither renamed nor removed: a run that is cut off by its
                                        // console takes them away
  std::vector<std::pair<FileHandle, std::string>> made_in_place;  // open files that were made under their own names
  std::vector<std::pair<dev_t, ino_t>> read;                      // plain files that were opened to be read
  int open_fault = 0;                                             // of the last open that failed
  Children children;
};

PosixMachine& Of(void* self) {
  return *static_cast<PosixMachine*>(self);
}

bool WriteAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(file, bytes.data(), std::min(bytes.size(), static_cast<std::size_t>(SSIZE_MAX)));
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

// A run that ends before its time: who still writes for it is stopped, and of its files what is not complete goes.
void RemoveUnfinished(const PosixMachine& machine) {
  StopChildren(machine.children);
  for (const std::string& name : machine.unfinished) ::unlink(name.c_str());
  struct stat facts {};
  for (const auto& [file, name] : machine.made_in_place)
    if (::stat(name.c_str(), &facts) == 0 && S_ISREG(facts.st_mode) && facts.st_size == 0) ::unlink(name.c_str());
}

ssize_t ReadSome(int file, char* to, std::size_t size) {
  for (;;) {
    const ssize_t n = ::read(file, to, std::min(size, static_cast<std::size_t>(SSIZE_MAX)));
    if (n >= 0 || errno != EINTR) return n;
  }
}

// Nobody listens to the console any more (a closed pipe, a full disk).
[[noreturn]] void EndWithoutConsole(const PosixMachine& machine) {
  RemoveUnfinished(machine);
  ::_exit(1);
}

void RemoveProgress(void* self) {
  PosixMachine& machine = Of(self);
  if (!machine.progress_shown) return;
  machine.progress_shown = false;
  WriteAll(STDERR_FILENO, "\r\033[K");
}

void ShowProgress(void* self, std::string_view text) {
  PosixMachine& machine = Of(self);
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
  PosixMachine& machine = Of(self);
  FlushBegin(machine, machine.at_terminal ? machine.out.rfind('\n') + 1 : machine.out.size());
}

void FlushAll(PosixMachine& machine) {
  FlushBegin(machine, machine.out.size());
}

void WriteConsole(void* self, std::string_view text) {
  PosixMachine& machine = Of(self);
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
  PosixMachine& machine = Of(self);
  bool got = false;
  if (!InterruptPending()) {
    EditorParts* const editor = Editor(machine);
    got = editor != nullptr ? ReadWithEditor(machine, *editor, line) : ReadPlainLine(machine, line);
  }
  if (InterruptedTwice()) EndEarly(machine, SIGINT);
  if (got) NoteInput();
  return got;
}

FileHandle OpenFault(PosixMachine& machine, int fault) {
  machine.open_fault = fault;
  return kNoFile;
}

bool WasRead(const PosixMachine& machine, const struct stat& facts) {
  return std::find(machine.read.begin(), machine.read.end(), std::pair(facts.st_dev, facts.st_ino)) !=
         machine.read.end();
}

FileHandle OpenRead(void* self, const std::string& name) {
  PosixMachine& machine = Of(self);
  const int file = ::open(name.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY);
  struct stat facts {};
  if (file < 0 || ::fstat(file, &facts) != 0) return OpenFault(machine, errno);
  if (S_ISDIR(facts.st_mode)) {
    ::close(file);
    return OpenFault(machine, EISDIR);
  }
  if (S_ISREG(facts.st_mode) && !WasRead(machine, facts)) machine.read.emplace_back(facts.st_dev, facts.st_ino);
  return file;
}

// A new file may have the place of one that was read and removed since.
void ForgetRead(PosixMachine& machine, FileHandle file) {
  struct stat facts {};
  if (::fstat(file, &facts) == 0) std::erase(machine.read, std::pair(facts.st_dev, facts.st_ino));
}

std::int64_t ReadFile(void*, FileHandle file, char* to, std::size_t size) {
  return ReadSome(file, to, size);
}

FileHandle OpenWrite(void* self, const std::string& name, WriteHow how, unsigned mode) {
  const bool may_make = how != WriteHow::create_new && ::access(name.c_str(), F_OK) != 0;
  const int ways[] = {O_CREAT | O_EXCL, O_CREAT | O_TRUNC, O_CREAT | O_APPEND};
  // What memory this takes it takes ahead of the file: none is left that nobody knows of.
  std::string kept = name;
  Of(self).unfinished.reserve(Of(self).unfinished.size() + 1);
  Of(self).made_in_place.reserve(Of(self).made_in_place.size() + 1);
  const int file =
      ::open(name.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY | ways[static_cast<std::size_t>(how)], kNewFileMode);
  if (file < 0) return OpenFault(Of(self), errno);
  if (how == WriteHow::create_new || may_make) ForgetRead(Of(self), file);
  if (mode != 0) static_cast<void>(::fchmod(file, mode));  // refused by some file systems: no reason to fail
  if (how == WriteHow::create_new) Of(self).unfinished.push_back(std::move(kept));
  else if (may_make) Of(self).made_in_place.emplace_back(file, std::move(kept));
  return file;
}

bool WriteFile(void*, FileHandle file, std::string_view bytes) {
  return WriteAll(file, bytes);
}

bool ResizeFile(void*, FileHandle file, std::int64_t size) {
  return ::ftruncate(file, size) == 0;
}

bool CloseFile(void* self, FileHandle file) {
  auto& made = Of(self).made_in_place;
  made.erase(std::remove_if(made.begin(), made.end(), [&](const auto& entry) { return entry.first == file; }),
             made.end());
  return ::close(file) == 0 || errno == EINTR;
}

// The name behind all links, also where it doesn't exist yet.
std::string BehindLinks(std::string name) {
  for (int hops = 0; hops < kLinkHops; ++hops) {
    char to[PATH_MAX];
    const ssize_t size = ::readlink(name.c_str(), to, sizeof to);
    if (size <= 0 || static_cast<std::size_t>(size) == sizeof to) return name;
    const std::string target(to, static_cast<std::size_t>(size));
    const std::size_t slash = name.rfind('/');
    name.erase(target[0] == '/' || slash == std::string::npos ? 0 : slash + 1);
    name += target;
  }
  return name;
}

FileFacts Facts(void* self, const std::string& name) {
  FileFacts facts;
  facts.target = name;
  struct stat found {};
  facts.exists = ::stat(name.c_str(), &found) == 0;
  if (!facts.exists) {
    facts.target = BehindLinks(name);
    return facts;
  }
  facts.plain = S_ISREG(found.st_mode);
  facts.directory = S_ISDIR(found.st_mode);
  facts.takes_files = facts.directory && ::access(name.c_str(), W_OK | X_OK) == 0;
  facts.mode = static_cast<unsigned>(found.st_mode) & 07777U;
  if (!facts.plain) return facts;
  facts.size = found.st_size;
  facts.was_read = WasRead(Of(self), found);
  facts.target = BehindLinks(name);
  // Links of the process table (/dev/fd/3) name an open file by a text that need not be its name: not to be replaced.
  struct stat behind {};
  const bool same =
      ::stat(facts.target.c_str(), &behind) == 0 && behind.st_dev == found.st_dev && behind.st_ino == found.st_ino;
  if (same && name.compare(0, 5, "/dev/") != 0 && name.compare(0, 6, "/proc/") != 0) return facts;
  facts.plain = false;
  facts.target = name;
  return facts;
}

void Forget(PosixMachine& machine, const std::string& name) {
  const auto found = std::find(machine.unfinished.begin(), machine.unfinished.end(), name);
  if (found != machine.unfinished.end()) machine.unfinished.erase(found);
}

bool Rename(void* self, const std::string& from, const std::string& to) {
  if (std::rename(from.c_str(), to.c_str()) != 0) return false;
  Forget(Of(self), from);
  Forget(Of(self), to);
  return true;
}

bool Remove(void* self, const std::string& name) {
  Forget(Of(self), name);
  return ::unlink(name.c_str()) == 0;
}

// The kind stands in the entry itself, but for links, and on file systems that don't tell.
bool IsDirectoryEntry(int directory, const dirent& entry) {
  if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) return entry.d_type == DT_DIR;
  struct stat found {};
  return ::fstatat(directory, entry.d_name, &found, 0) == 0 && S_ISDIR(found.st_mode);
}

bool List(void*, const std::string& directory, std::vector<DirectoryEntry>& entries) {
  DIR* const open = ::opendir(directory.empty() ? "." : directory.c_str());
  if (open == nullptr) return false;
  while (const dirent* entry = ::readdir(open))
    entries.push_back({entry->d_name, IsDirectoryEntry(::dirfd(open), *entry)});
  ::closedir(open);
  return true;
}

std::string WorkingDirectory(void*) {
  std::error_code fault;
  return std::filesystem::current_path(fault).string();
}

std::string Why(void* self) {
  return std::strerror(Of(self).open_fault);
}

double Seconds(void*) {
  timespec now{};
  ::clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

[[noreturn]] void Exit(void* self, int status) {
  FlushAll(Of(self));
  RemoveUnfinished(Of(self));
  if (status == kEndedBySignal + SIGINT) EndBySignal(Of(self), SIGINT);
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
                        FlushAll(Of(self));
                        static_cast<void>(WriteAll(STDERR_FILENO, text));
                      }};
  platform.files = {&machine, OpenRead, ReadFile, OpenWrite, WriteFile,        ResizeFile, CloseFile,
                    Facts,    Rename,   Remove,   List,      WorkingDirectory, Why};
  platform.programs = {
      &machine,
      [](void*, const std::string& name) { return IsOnPath(name); },
      [](void* self, const std::vector<std::string>& words) { return StartChild(Of(self).children, words); },
      [](void* self, ChildHandle child, std::string_view bytes) {
        return WriteAll(InputOfChild(Of(self).children, child), bytes);
      },
      [](void* self, ChildHandle child, std::string& said) { return FinishChild(Of(self).children, child, said); },
      [](void* self, ChildHandle child) { StopChild(Of(self).children, child); }};
  platform.clock = {&machine, Seconds};
  return platform;
}

}  // namespace zaview
