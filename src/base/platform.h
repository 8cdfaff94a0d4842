// The machine as this program sees it: console, files and clock, each a small record of function pointers.
// `self` is handed back on every call. platform_posix.h fills the real ones; a test fills its own.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/window_system.h"

namespace zaview {

struct Console {
  void* self = nullptr;
  // One line of input without its end; false at the end of input (line is then untouched).
  bool (*read_line)(void* self, std::string& line) = nullptr;
  void (*write)(void* self, std::string_view text) = nullptr;
  void (*flush)(void* self) = nullptr;
  bool input_is_terminal = false;  // false: answers are echoed, so that a piped log reads like a session
  // The progress line of a long load; on anything but a terminal both do nothing.
  void (*show_progress)(void* self, std::string_view text) = nullptr;
  void (*remove_progress)(void* self) = nullptr;
  // Has the user pressed Ctrl-C since this was last asked? read_line is then false at once, so that the question that
  // waits can ask this to tell Ctrl-C from the end of the input. Null: never.
  bool (*take_interrupt)(void* self) = nullptr;
  // To the error output, at once; a test may leave it out.
  void (*write_error)(void* self, std::string_view text) = nullptr;
  // The table that a blank file name sends here; null: as any other text.
  void (*write_table)(void* self, std::string_view text) = nullptr;
  bool trace = false;  // routines tell their names (-debug_flow)
};

[[nodiscard]] inline bool TakeInterrupt(const Console& console) {
  return console.take_interrupt != nullptr && console.take_interrupt(console.self);
}

using FileHandle = int;
inline constexpr FileHandle kNoFile = -1;

enum class WriteHow : std::uint8_t { create_new, truncate, append };  // create_new fails if the name exists

struct FileFacts {
  bool exists = false;
  bool plain = false;  // a regular file (links are followed)
  bool directory = false;
  bool takes_files = false;  // a directory in which new files may be made
  std::int64_t size = -1;    // bytes; -1 where there is no such thing (pipes)
  unsigned mode = 0;         // permission bits
  std::string target;        // the name behind all links; the name itself if it is no link
  bool was_read = false;     // this run has opened this file to read it, under this name or another
};

struct DirectoryEntry {
  std::string name;
  bool directory = false;  // links are followed
};

struct Files {
  void* self = nullptr;
  FileHandle (*open_read)(void* self, const std::string& name) = nullptr;  // kNoFile for directories as well
  std::int64_t (*read)(void* self, FileHandle file, char* to, std::size_t size) = nullptr;  // 0 at the end, -1: fault
  // mode: permission bits the file gets; 0: those of any new file, an old one keeps its own.
  FileHandle (*open_write)(void* self, const std::string& name, WriteHow how, unsigned mode) = nullptr;
  bool (*write)(void* self, FileHandle file, std::string_view bytes) = nullptr;  // all or false
  bool (*resize)(void* self, FileHandle file, std::int64_t size) = nullptr;
  bool (*close)(void* self, FileHandle file) = nullptr;  // false: what was written is not safe
  FileFacts (*facts)(void* self, const std::string& name) = nullptr;
  bool (*rename)(void* self, const std::string& from, const std::string& to) = nullptr;
  bool (*remove)(void* self, const std::string& name) = nullptr;
  // What is in a directory ("" is the working directory), in no order; false if it can't be listed.
  bool (*list)(void* self, const std::string& directory, std::vector<DirectoryEntry>& entries) = nullptr;
  std::string (*working_directory)(void* self) = nullptr;  // blank: it is gone
  std::string (*why)(void* self) = nullptr;  // the last of these calls that failed did so: "Permission denied"
};

struct Clock {
  void* self = nullptr;
  double (*seconds)(void* self) = nullptr;  // since any fixed moment, steady
};

using ChildHandle = int;
inline constexpr ChildHandle kNoChild = -1;

// Programs of the machine, started without a shell, that read what this one makes. A child is one thread's at a time.
struct Programs {
  void* self = nullptr;
  bool (*there)(void* self, const std::string& name) = nullptr;  // on the PATH
  // words: the program's name and its arguments. Its input comes from write, its output goes nowhere. kNoChild: it
  // can't be started.
  ChildHandle (*start)(void* self, const std::vector<std::string>& words) = nullptr;
  bool (*write)(void* self, ChildHandle child, std::string_view bytes) = nullptr;  // all, or false: it reads no more
  // Ends its input and waits for it. False: it failed. said: the last line that it wrote to its error output.
  bool (*finish)(void* self, ChildHandle child, std::string& said) = nullptr;
  void (*stop)(void* self, ChildHandle child) = nullptr;  // at once, whatever it is doing
};

struct Platform {
  Console console;
  Files files;
  Programs programs;  // null pointers: there are none
  Clock clock;
  WindowSystem window;  // in memory, until choose_window has been asked
  // The window system of this machine: of its display, else platform.window. Asked at the first view; null: no
  // graphics.
  WindowSystem (*choose_window)(const Platform& platform) = nullptr;
  const char* (*environment)(void* self, const char* name) = nullptr;  // null: not set
  void* self = nullptr;
  void (*exit)(void* self, int status) = nullptr;  // does not come back
};

}  // namespace zaview
