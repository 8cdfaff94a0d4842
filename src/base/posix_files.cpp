// The files of a Unix machine.
#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

#include "base/posix_machine.h"

namespace zaview {

bool WriteAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(file, bytes.data(), std::min(bytes.size(), static_cast<std::size_t>(SSIZE_MAX)));
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

ssize_t ReadSome(int file, char* to, std::size_t size) {
  for (;;) {
    const ssize_t n = ::read(file, to, std::min(size, static_cast<std::size_t>(SSIZE_MAX)));
    if (n >= 0 || errno != EINTR) return n;
  }
}

void RemoveUnfinishedFiles(const PosixMachine& machine) {
  for (const std::string& name : machine.unfinished) ::unlink(name.c_str());
  struct stat facts {};
  for (const auto& [file, name] : machine.made_in_place)
    if (::stat(name.c_str(), &facts) == 0 && S_ISREG(facts.st_mode) && facts.st_size == 0) ::unlink(name.c_str());
}

namespace {

constexpr mode_t kNewFileMode = 0666;  // less what the user's mask takes away
constexpr int kLinkHops = 40;          // as the system itself: a longer chain is a loop

// done, of a call that has just been made.
bool Noted(void* self, bool done) {
  if (!done) MachineOf(self).fault = errno;
  return done;
}

FileHandle OpenFault(PosixMachine& machine, int fault) {
  machine.fault = fault;
  return kNoFile;
}

bool WasRead(const PosixMachine& machine, const struct stat& facts) {
  return std::find(machine.read.begin(), machine.read.end(), std::pair(facts.st_dev, facts.st_ino)) !=
         machine.read.end();
}

FileHandle OpenRead(void* self, const std::string& name) {
  PosixMachine& machine = MachineOf(self);
  const int file = ::open(name.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY);
  struct stat facts {};
  const bool known = file >= 0 && ::fstat(file, &facts) == 0;
  if (!known || S_ISDIR(facts.st_mode)) {
    const int fault = known ? EISDIR : errno;
    if (file >= 0) ::close(file);
    return OpenFault(machine, fault);
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
  MachineOf(self).unfinished.reserve(MachineOf(self).unfinished.size() + 1);
  MachineOf(self).made_in_place.reserve(MachineOf(self).made_in_place.size() + 1);
  const int file =
      ::open(name.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY | ways[static_cast<std::size_t>(how)], kNewFileMode);
  if (file < 0) return OpenFault(MachineOf(self), errno);
  if (how == WriteHow::create_new || may_make) ForgetRead(MachineOf(self), file);
  if (mode != 0) static_cast<void>(::fchmod(file, mode));  // refused by some file systems: no reason to fail
  if (how == WriteHow::create_new) MachineOf(self).unfinished.push_back(std::move(kept));
  else if (may_make) MachineOf(self).made_in_place.emplace_back(file, std::move(kept));
  return file;
}

bool WriteFile(void* self, FileHandle file, std::string_view bytes) {
  return Noted(self, WriteAll(file, bytes));
}

bool ResizeFile(void* self, FileHandle file, std::int64_t size) {
  return Noted(self, ::ftruncate(file, size) == 0);
}

bool CloseFile(void* self, FileHandle file) {
  auto& made = MachineOf(self).made_in_place;
  made.erase(std::remove_if(made.begin(), made.end(), [&](const auto& entry) { return entry.first == file; }),
             made.end());
  return Noted(self, ::close(file) == 0 || errno == EINTR);
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
  facts.was_read = WasRead(MachineOf(self), found);
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
  if (!Noted(self, std::rename(from.c_str(), to.c_str()) == 0)) return false;
  Forget(MachineOf(self), from);
  Forget(MachineOf(self), to);
  return true;
}

bool Remove(void* self, const std::string& name) {
  Forget(MachineOf(self), name);
  return Noted(self, ::unlink(name.c_str()) == 0);
}

// The kind stands in the entry itself, but for links, and on file systems that don't tell.
bool IsDirectoryEntry(int directory, const dirent& entry) {
  if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) return entry.d_type == DT_DIR;
  struct stat found {};
  return ::fstatat(directory, entry.d_name, &found, 0) == 0 && S_ISDIR(found.st_mode);
}

bool List(void*, const std::string& directory, std::vector<DirectoryEntry>& entries) {
  const std::unique_ptr<DIR, int (*)(DIR*)> open(::opendir(directory.empty() ? "." : directory.c_str()), ::closedir);
  if (open == nullptr) return false;
  while (const dirent* entry = ::readdir(open.get()))
    entries.push_back({entry->d_name, IsDirectoryEntry(::dirfd(open.get()), *entry)});
  return true;
}

std::string WorkingDirectory(void*) {
  std::error_code fault;
  return std::filesystem::current_path(fault).string();
}

std::string Why(void* self) {
  return std::strerror(MachineOf(self).fault);
}

}  // namespace

Files PosixFiles(PosixMachine& machine) {
  return {&machine, OpenRead, ReadFile, OpenWrite, WriteFile,        ResizeFile, CloseFile,
          Facts,    Rename,   Remove,   List,      WorkingDirectory, Why};
}

}  // namespace zaview
