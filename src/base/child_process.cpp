#include "base/child_process.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <spawn.h>
#include <string_view>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

#include "base/grow.h"

namespace zaview {

namespace {

constexpr int kPipeBytes = 1 << 20;  // in place of 64 kB: fewer turns between the two programs
constexpr off_t kLastBytes = 4096;   // of the error output that are looked through

void Close(int& file) {
  if (file >= 0) static_cast<void>(::close(std::exchange(file, -1)));
}

// In a group of its own, so that Ctrl-C at the terminal is this program's affair alone; a broken pipe ends it.
bool Spawn(const std::vector<std::string>& words, int input, int errors, pid_t& id) {
  std::vector<char*> arguments;
  if (!Reserve(arguments, words.size() + 1)) return false;
  for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t files;
  posix_spawnattr_t how;
  if (::posix_spawn_file_actions_init(&files) != 0) return false;
  if (::posix_spawnattr_init(&how) != 0) {
    ::posix_spawn_file_actions_destroy(&files);
    return false;
  }
  sigset_t usual;
  ::sigemptyset(&usual);
  ::sigaddset(&usual, SIGPIPE);
  const bool ready = ::posix_spawn_file_actions_adddup2(&files, input, STDIN_FILENO) == 0 &&
                     ::posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, "/dev/null", O_WRONLY, 0) == 0 &&
                     ::posix_spawn_file_actions_adddup2(&files, errors, STDERR_FILENO) == 0 &&
                     ::posix_spawnattr_setsigdefault(&how, &usual) == 0 && ::posix_spawnattr_setpgroup(&how, 0) == 0 &&
                     ::posix_spawnattr_setflags(&how, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETPGROUP) == 0;
  const bool started = ready && ::posix_spawnp(&id, arguments[0], &files, &how, arguments.data(), environ) == 0;
  ::posix_spawnattr_destroy(&how);
  ::posix_spawn_file_actions_destroy(&files);
  return started;
}

int WaitFor(pid_t id) {
  int status = 0;
  while (::waitpid(id, &status, 0) < 0)
    if (errno != EINTR) return -1;
  return status;
}

// The last line that holds anything.
std::string LastLine(int file) {
  const off_t size = ::lseek(file, 0, SEEK_END);
  std::string text(static_cast<std::size_t>(size < 0 ? 0 : size < kLastBytes ? size : kLastBytes), ' ');
  const ssize_t n = ::pread(file, text.data(), text.size(), size - static_cast<off_t>(text.size()));
  text.resize(static_cast<std::size_t>(n < 0 ? 0 : n));
  const std::size_t end = text.find_last_not_of(" \t\r\n");
  if (end == std::string::npos) return {};
  const std::size_t before = text.find_last_of("\r\n", end);
  const std::size_t begin = before == std::string::npos ? 0 : before + 1;
  return text.substr(begin, end + 1 - begin);
}

ChildProcess* Find(Children& children, ChildHandle child) {
  const bool known = child >= 0 && static_cast<std::size_t>(child) < children.size();
  return known && children[static_cast<std::size_t>(child)].id != 0 ? &children[static_cast<std::size_t>(child)]
                                                                    : nullptr;
}

void GiveBack(ChildProcess& child) {
  Close(child.input);
  Close(child.errors);
  child.id = 0;
}

}  // namespace

bool IsOnPath(const std::string& name) {
  const char* const set = std::getenv("PATH");
  std::string_view path = set == nullptr ? "" : set;
  while (!path.empty()) {
    const std::size_t end = std::min(path.find(':'), path.size());
    std::string file(path.substr(0, end));
    file.append(file.empty() ? "./" : "/").append(name);
    struct stat facts {};
    if (::access(file.c_str(), X_OK) == 0 && ::stat(file.c_str(), &facts) == 0 && S_ISREG(facts.st_mode)) return true;
    path.remove_prefix(std::min(end + 1, path.size()));
  }
  return false;
}

ChildHandle StartChild(Children& children, const std::vector<std::string>& words) {
  if (words.empty() || !Reserve(children, children.size() + 1)) return kNoChild;
  int ends[2] = {-1, -1};
  if (::pipe2(ends, O_CLOEXEC) != 0) return kNoChild;
  static_cast<void>(::fcntl(ends[1], F_SETPIPE_SZ, kPipeBytes));
  ChildProcess child;
  child.input = ends[1];
  child.errors = ::memfd_create("errors", MFD_CLOEXEC);
  const bool started = child.errors >= 0 && Spawn(words, ends[0], child.errors, child.id);
  Close(ends[0]);
  if (!started) {
    GiveBack(child);
    return kNoChild;
  }
  children.push_back(child);
  return static_cast<ChildHandle>(children.size()) - 1;
}

int InputOfChild(const Children& children, ChildHandle child) {
  return child < 0 || static_cast<std::size_t>(child) >= children.size()
             ? -1
             : children[static_cast<std::size_t>(child)].input;
}

bool FinishChild(Children& children, ChildHandle handle, std::string& said) {
  ChildProcess* const child = Find(children, handle);
  if (child == nullptr) return false;
  Close(child->input);
  const int status = WaitFor(child->id);
  said = LastLine(child->errors);
  GiveBack(*child);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

void StopChild(Children& children, ChildHandle handle) {
  ChildProcess* const child = Find(children, handle);
  if (child == nullptr) return;
  static_cast<void>(::kill(child->id, SIGKILL));
  static_cast<void>(WaitFor(child->id));
  GiveBack(*child);
}

void StopChildren(const Children& children) {
  for (const ChildProcess& child : children) {
    if (child.id == 0) continue;
    static_cast<void>(::kill(child.id, SIGKILL));
    static_cast<void>(WaitFor(child.id));
  }
}

}  // namespace zaview
