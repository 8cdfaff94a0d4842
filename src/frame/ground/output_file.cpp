#include "frame/ground/output_file.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include <fmt/format.h>

#include "base/grow.h"
#include "base/text.h"

namespace zaview {

namespace {

constexpr std::size_t kPendingBytes = std::size_t{256} * 1024;  // written in pieces of this size
constexpr std::size_t kGathered = 65536;                        // bytes of rows for one write
constexpr int kBesideNames = 1000;  // left over by runs that were killed, or in use by others
constexpr std::string_view kStandardOutput = "/dev/stdout";
constexpr std::string_view kWasRead = "this run has read that file";
constexpr std::string_view kDirectory = "Is a directory";
constexpr std::string_view kLeftOver = "its folder is full of files .zaview-*.part of runs that were killed";

std::string BesideName(const std::string& target, int number) {
  const std::size_t slash = target.rfind('/');
  const std::string_view directory =
      slash == std::string::npos ? std::string_view() : std::string_view(target).substr(0, slash + 1);
  return fmt::format("{}.zaview-{}.part", directory, number);
}

bool OpenBeside(const Files& files, const FileFacts& facts, OutputFile& out) {
  for (int number = 0; number < kBesideNames; ++number) {
    std::string name = BesideName(facts.target, number);
    out.file = files.open_write(files.self, name, WriteHow::create_new, facts.exists ? facts.mode : 0);
    if (out.file != kNoFile) {
      out.beside = std::move(name);
      return true;
    }
    if (!files.facts(files.self, name).exists) return false;  // the folder takes no new file
  }
  out.why = kLeftOver;
  return false;
}

bool FolderTakesFiles(const Files& files, const std::string& target) {
  const std::size_t slash = target.rfind('/');
  std::string folder = slash == std::string::npos ? "." : target.substr(0, std::max<std::size_t>(slash, 1));
  return files.facts(files.self, folder).takes_files;
}

bool OpenInPlace(const Files& files, const FileFacts& facts, OutputFile& out) {
  out.file = files.open_write(files.self, facts.target, WriteHow::append, 0);
  out.made = !facts.exists;
  return out.file != kNoFile;
}

bool MayBeWritten(const Files& files, const std::string& name) {
  const FileHandle file = files.open_write(files.self, name, WriteHow::append, 0);
  return file != kNoFile && files.close(files.self, file);
}

bool OpenTarget(const Files& files, const FileFacts& facts, OutputFile& out) {
  const bool in_place = facts.exists && !facts.plain;
  if (in_place || out.how == OpenHow::append) return OpenInPlace(files, facts, out);
  // A write-protected file is not to be replaced, although its folder would allow it.
  if (facts.exists && !MayBeWritten(files, facts.target)) return false;
  if (OpenBeside(files, facts, out)) return true;
  // In place only where the folder takes no new file. Where it would, but there is no room or no handle left, an old
  // file written in place could be lost.
  if (facts.exists && FolderTakesFiles(files, facts.target)) return false;
  out.cut_first = facts.exists;
  return OpenInPlace(files, facts, out);
}

// A call for the file that is over now: the first that failed tells why.
void Note(OutputFile& out, bool done) {
  if (done || out.failed) return;
  out.failed = true;
  out.why = out.platform->files.why(out.platform->files.self);
}

void Flush(OutputFile& out) {
  const Files& files = out.platform->files;
  if (out.failed || out.pending.empty()) return;
  if (out.cut_first) Note(out, files.resize(files.self, out.file, 0));
  out.cut_first = false;
  if (!out.failed) Note(out, files.write(files.self, out.file, out.pending));
  out.pending.clear();
}

// All in one write; what a full disk took of it is cut off again.
void FlushAppended(OutputFile& out) {
  const Files& files = out.platform->files;
  const FileFacts before = files.facts(files.self, out.target);
  Flush(out);
  if (out.failed && before.plain) static_cast<void>(files.resize(files.self, out.file, before.size));
}

// A plain file, whose old content goes.
bool Replaces(const OutputFile& out) {
  return !out.beside.empty() || out.cut_first;
}

void RemoveTraces(const OutputFile& out) {
  const Files& files = out.platform->files;
  if (!out.beside.empty()) static_cast<void>(files.remove(files.self, out.beside));
  if (out.made && files.facts(files.self, out.target).size == 0)
    static_cast<void>(files.remove(files.self, out.target));
}

}  // namespace

OutputFile::~OutputFile() {
  DiscardOutput(*this);
}

OutputFile::OutputFile(OutputFile&& other) noexcept : OutputFileParts(std::move(other)) {
  other.file = kNoFile;
}

OutputFile& OutputFile::operator=(OutputFile&& other) noexcept {
  if (this == &other) return *this;
  DiscardOutput(*this);
  OutputFileParts::operator=(std::move(other));
  other.file = kNoFile;
  return *this;
}

bool OpenOutput(const Platform& platform, std::string_view name, OpenHow how, OutputFile& out) {
  out = OutputFile{};
  out.platform = &platform;
  out.name = name;
  out.how = how;
  // Standard output by its file name would pass the console's own buffer by, or empty a log it is sent to.
  out.to_console = IsBlank(name) || name == kStandardOutput;
  if (out.to_console) return true;
  const FileFacts facts = platform.files.facts(platform.files.self, out.name);
  out.target = facts.target;
  out.had_text = how == OpenHow::append && facts.exists && facts.size > 0;
  if (facts.was_read || facts.directory) {
    out.why = facts.was_read ? kWasRead : kDirectory;
    return false;
  }
  const bool opened = OpenTarget(platform.files, facts, out);
  if (opened) out.why.clear();
  else if (out.why.empty()) out.why = platform.files.why(platform.files.self);
  return opened;
}

void WriteOutput(OutputFile& out, std::string_view text) {
  if (out.to_console) {
    const Console& console = out.platform->console;
    (console.write_table != nullptr ? console.write_table : console.write)(console.self, text);
    return;
  }
  if (out.failed) return;
  out.failed = !Guarded([&] { return out.pending += text, true; }, false);
  if (out.failed) out.why = kWhyNoMemory;
  if (out.how == OpenHow::replace && out.pending.size() >= kPendingBytes) Flush(out);
}

void WriteGathered(OutputFile& out, std::string& text) {
  if (text.size() < kGathered) return;
  WriteOutput(out, text);
  text.clear();
}

bool CloseOutput(OutputFile& out) {
  if (out.to_console) {
    out.platform->console.flush(out.platform->console.self);
    return true;
  }
  if (out.file == kNoFile) return false;
  const Files& files = out.platform->files;
  if (out.how == OpenHow::append) FlushAppended(out);
  else Flush(out);
  // A file written in place with nothing is an empty file.
  if (out.cut_first && !out.failed) Note(out, files.resize(files.self, out.file, 0));
  Note(out, files.close(files.self, std::exchange(out.file, kNoFile)));
  if (!out.failed && !out.beside.empty()) Note(out, files.rename(files.self, out.beside, out.target));
  if (out.failed) RemoveTraces(out);
  return !out.failed;
}

void DiscardOutput(OutputFile& out) {
  if (out.to_console || out.file == kNoFile) return;
  static_cast<void>(out.platform->files.close(out.platform->files.self, std::exchange(out.file, kNoFile)));
  RemoveTraces(out);
}

bool SpoilEachOther(const OutputFile& one, const OutputFile& other) {
  if (one.file == kNoFile || other.file == kNoFile || !(Replaces(one) || Replaces(other))) return false;
  return std::filesystem::path(one.target).lexically_normal() == std::filesystem::path(other.target).lexically_normal();
}

}  // namespace zaview
