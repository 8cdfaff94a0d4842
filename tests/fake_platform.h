// A machine in memory for tests: queued input lines, captured output, files, a clock that stands still. For real files
// put PosixPlatform().files into the record that Get() gives.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <deque>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "base/platform.h"

namespace zaview {

struct FakeExit {  // thrown where the program would end
  int status = 0;
};

struct FakePlatform {
  std::deque<std::string> input;  // lines still to be read; none left: end of input
  std::string output;             // all that was written to the console
  bool input_is_terminal = false;
  bool window_available = false;
  WindowSystem window;  // what choose_window gives
  std::map<std::string, std::string> environment;
  double seconds = 0.0;
  std::string progress;  // the progress line now shown, if any

  struct File {
    std::string bytes;
    unsigned mode = 0644;
    bool plain = true;
  };
  std::map<std::string, File> files;
  std::set<std::string> directories{"", "/"};  // made on the fly for files put in with Put
  std::map<std::string, std::string> links;    // name to target
  std::string working_directory = "/";
  std::set<std::string> read;  // files that were opened to be read

  // A program of the machine: what it reads is in the file of its last word ("file:name") when it ends.
  std::string program;             // its name; blank: there is none
  std::vector<std::string> words;  // with which it was started last
  std::string fed;
  std::size_t feeds = ~std::size_t{0};  // bytes that it takes before it fails
  std::string last_words;               // of its error output; it fails if there are any
  bool writes = true;                   // else its file stays empty

  // Faults on demand.
  std::set<std::string> no_new_files_in;  // directories
  std::set<std::string> refused;          // names that can't be opened for writing, directories that can't be listed
  bool no_handles = false;                // no new file can be made, although its directory would take it
  std::int64_t room = -1;                 // bytes that may still be written to files; -1: no end
  bool close_fails = false;
  bool rename_fails = false;
  std::string why;  // of all these, in words

  void Put(const std::string& name, std::string bytes, unsigned mode = 0644) {
    files[name] = {std::move(bytes), mode, true};
    for (std::size_t slash = name.find('/', 1); slash != std::string::npos; slash = name.find('/', slash + 1))
      directories.insert(name.substr(0, slash));
  }
  void Type(std::string_view lines) {  // each with its line end
    for (std::size_t end = lines.find('\n'); end != std::string_view::npos; end = lines.find('\n')) {
      input.emplace_back(lines.substr(0, end));
      lines.remove_prefix(end + 1);
    }
  }
  [[nodiscard]] std::string Bytes(const std::string& name) const {
    const auto found = files.find(name);
    return found == files.end() ? "(no file)" : found->second.bytes;
  }
  [[nodiscard]] std::size_t OpenHandles() const {
    return static_cast<std::size_t>(
        std::count_if(handles.begin(), handles.end(), [](const Handle& handle) { return handle.open; }));
  }
  [[nodiscard]] Platform Get();

  struct Handle {
    std::string name;
    std::size_t at = 0;
    bool open = false;
  };
  std::vector<Handle> handles;

  static FakePlatform& Of(void* self) { return *static_cast<FakePlatform*>(self); }
  static std::string DirectoryOf(const std::string& name) {
    const std::size_t slash = name.rfind('/');
    return slash == std::string::npos ? "" : name.substr(0, slash == 0 ? 1 : slash);
  }
  [[nodiscard]] std::string Target(std::string name) const {
    for (int hops = 0; hops < 8 && links.count(name) != 0; ++hops) name = links.at(name);
    return name;
  }
  FileHandle Open(const std::string& name) {
    handles.push_back({name, 0, true});
    return static_cast<FileHandle>(handles.size()) - 1;
  }
  FileHandle OpenToWrite(const std::string& given, WriteHow how, unsigned mode) {
    const std::string name = Target(given);
    const bool exists = files.count(name) != 0;
    const std::string directory = DirectoryOf(name);
    if (refused.count(name) != 0 || directories.count(name) != 0) return kNoFile;
    if (exists && (how == WriteHow::create_new || (files[name].mode & 0200U) == 0)) return kNoFile;
    if (!exists && (no_handles || no_new_files_in.count(directory) != 0 || directories.count(directory) == 0))
      return kNoFile;
    if (!exists) files[name] = {"", mode == 0 ? 0644U : mode, true};
    if (how == WriteHow::truncate) files[name].bytes.clear();
    return Open(name);
  }
  bool Write(FileHandle file, std::string_view bytes) {
    std::string& to = files[handles[static_cast<std::size_t>(file)].name].bytes;
    const std::size_t fits = room < 0 ? bytes.size() : std::min(bytes.size(), static_cast<std::size_t>(room));
    to += bytes.substr(0, fits);
    if (room >= 0) room -= static_cast<std::int64_t>(fits);
    return fits == bytes.size();
  }
};

inline Platform FakePlatform::Get() {
  Platform p;
  p.self = this;
  p.exit = [](void*, int status) { throw FakeExit{status}; };
  if (window_available) p.choose_window = [](const Platform& platform) { return Of(platform.self).window; };
  p.environment = [](void* self, const char* name) -> const char* {
    const auto& set = Of(self).environment;
    const auto found = set.find(name);
    return found == set.end() ? nullptr : found->second.c_str();
  };
  p.clock = {this, [](void* self) { return Of(self).seconds; }};

  p.programs.self = this;
  p.programs.there = [](void* self, const std::string& name) { return Of(self).program == name; };
  p.programs.start = [](void* self, const std::vector<std::string>& words) {
    Of(self).words = words;
    Of(self).fed.clear();
    return ChildHandle{7};
  };
  p.programs.write = [](void* self, ChildHandle, std::string_view bytes) {
    Of(self).fed += bytes;
    return Of(self).fed.size() <= Of(self).feeds;
  };
  p.programs.finish = [](void* self, ChildHandle, std::string& said) {
    FakePlatform& fake = Of(self);
    fake.files[fake.words.back().substr(std::string_view("file:").size())].bytes = fake.writes ? fake.fed : "";
    said = fake.last_words;
    return said.empty();
  };
  p.programs.stop = [](void*, ChildHandle) {};

  p.console.self = this;
  p.console.input_is_terminal = input_is_terminal;
  p.console.read_line = [](void* self, std::string& line) {
    FakePlatform& fake = Of(self);
    if (fake.input.empty()) return false;
    line = fake.input.front();
    fake.input.pop_front();
    return true;
  };
  p.console.write = [](void* self, std::string_view text) { Of(self).output += text; };
  p.console.flush = [](void*) {};
  p.console.show_progress = [](void* self, std::string_view text) { Of(self).progress = text; };
  p.console.remove_progress = [](void* self) { Of(self).progress.clear(); };

  p.files.self = this;
  p.files.open_read = [](void* self, const std::string& name) {
    const std::string target = Of(self).Target(name);
    if (Of(self).files.count(target) == 0) return kNoFile;
    Of(self).read.insert(target);
    return Of(self).Open(target);
  };
  p.files.read = [](void* self, FileHandle file, char* to, std::size_t size) -> std::int64_t {
    Handle& handle = Of(self).handles[static_cast<std::size_t>(file)];
    const std::string& bytes = Of(self).files[handle.name].bytes;
    const std::size_t n = std::min(size, bytes.size() - std::min(handle.at, bytes.size()));
    std::memcpy(to, bytes.data() + handle.at, n);
    handle.at += n;
    return static_cast<std::int64_t>(n);
  };
  p.files.open_write = [](void* self, const std::string& name, WriteHow how, unsigned mode) {
    return Of(self).OpenToWrite(name, how, mode);
  };
  p.files.write = [](void* self, FileHandle file, std::string_view bytes) { return Of(self).Write(file, bytes); };
  p.files.resize = [](void* self, FileHandle file, std::int64_t size) {
    Of(self).files[Of(self).handles[static_cast<std::size_t>(file)].name].bytes.resize(static_cast<std::size_t>(size));
    return true;
  };
  p.files.close = [](void* self, FileHandle file) {
    Of(self).handles[static_cast<std::size_t>(file)].open = false;
    return !Of(self).close_fails;
  };
  p.files.facts = [](void* self, const std::string& name) {
    const FakePlatform& fake = Of(self);
    FileFacts facts;
    facts.target = fake.Target(name);
    facts.directory = fake.directories.count(facts.target) != 0;
    facts.exists = facts.directory;
    facts.takes_files = facts.directory && fake.no_new_files_in.count(facts.target) == 0;
    const auto found = fake.files.find(facts.target);
    if (found == fake.files.end()) return facts;
    facts.exists = true;
    facts.plain = found->second.plain;
    facts.mode = found->second.mode;
    facts.was_read = facts.plain && fake.read.count(facts.target) != 0;
    if (facts.plain) facts.size = static_cast<std::int64_t>(found->second.bytes.size());
    return facts;
  };
  p.files.rename = [](void* self, const std::string& from, const std::string& to) {
    FakePlatform& fake = Of(self);
    if (fake.rename_fails || fake.files.count(from) == 0) return false;
    fake.files[to] = fake.files[from];
    fake.files.erase(from);
    return true;
  };
  p.files.remove = [](void* self, const std::string& name) {
    return Of(self).links.erase(name) + Of(self).files.erase(name) != 0;
  };
  p.files.list = [](void* self, const std::string& given, std::vector<DirectoryEntry>& entries) {
    const FakePlatform& fake = Of(self);
    const std::string directory = fake.Target(given);
    if (fake.directories.count(directory) == 0 || fake.refused.count(directory) != 0) return false;
    const auto add = [&](const std::string& name, bool is_directory) {
      if (name.empty() || name == directory || DirectoryOf(name) != directory) return;
      const std::size_t slash = name.rfind('/');
      entries.push_back({slash == std::string::npos ? name : name.substr(slash + 1), is_directory});
    };
    for (const auto& entry : fake.files) add(entry.first, false);
    for (const auto& link : fake.links) add(link.first, fake.directories.count(link.second) != 0);
    for (const std::string& name : fake.directories) add(name, true);
    return true;
  };
  p.files.working_directory = [](void* self) { return Of(self).working_directory; };
  p.files.why = [](void* self) { return Of(self).why; };
  return p;
}

}  // namespace zaview
