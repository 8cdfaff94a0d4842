#include "control/parse_modules.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/grow.h"
#include "base/message.h"
#include "base/text.h"
#include "control/module_table.h"
#include "control/options_module.h"
#include "frame/ground/input_file.h"

namespace zaview {
namespace {

constexpr std::string_view kNoMemory[] = {
    "ERR200 - Error opening text scratch file for parsing input modules",
    "         Input modules will not be included in", "         subsequent control file output",
    "         Post-processing tasks related to data from input modules", "         may not work correctly"};
constexpr std::string_view kBlankName = "WRN225 - Blank module name";
constexpr std::string_view kUnknown = "WRN225 - Unrecognized input module {}";
constexpr std::string_view kTwice[] = {"ERR213 - Input module {} specified more than once",
                                       "         Data for this module will be set to *last* specified module"};
constexpr std::string_view kRefusedName = "FLAPLIFT";
constexpr std::string_view kRefused[] = {"ERROR - FLAPLIFT temporarily disabled.",
                                         "        bitch at Ned if you want to use it"};
constexpr std::string_view kReading = " Reading input module {}";
constexpr std::string_view kNoModuleFile = "ERR212 - Error opening module file: {}{}";
constexpr std::string_view kLongModuleFile = "ERROR - module file is too long : {}";
constexpr std::string_view kParsing = "ERROR parsing module {}";
constexpr std::string_view kBadData = "ERR201 - Error reading data set {} of input module {}";
constexpr std::string_view kEndOfModule = "ERR202 - End-of-file reading data set {} of input module {}";
constexpr std::string_view kDimension = "ERR226 - Dimension error while parsing input module {}";
constexpr std::string_view kFatal = "ERR227 - Fatal data error while parsing input module {}";
constexpr std::string_view kIncomplete = "         Data for this module may be incomplete or incorrect";
constexpr std::string_view kSomeFailed[] = {
    "WARNING: One or more input modules could not be properly read;",
    "         Input for any unrecognized or misread modules will not be",
    "         correct in subsequent control file output",
    "         Post-processing tasks related to data from unrecognized or misread",
    "         modules may not work correctly"};

std::string ModuleName(std::string_view line) {
  line = TrimStart(WithoutComment(line));
  line.remove_prefix(1);  // the $
  return Capitals(Trim(line.substr(0, line.find(':'))));
}

// The file that a $ line names; blank for none.
std::string ModuleFile(std::string_view header) {
  header = WithoutComment(header);
  const std::size_t colon = header.find(':');
  if (colon == std::string_view::npos) return {};
  std::string name = TextField(header.substr(colon + 1), kNameLength);
  const std::string capitals = Capitals(name);
  return capitals == "DEFAULT" || capitals == "DEFAULTS" ? std::string() : name;
}

bool BeginsModule(std::string_view line) {
  if (IsCommentLine(line)) return false;
  line = TrimStart(line);
  return !line.empty() && line.front() == '$';
}

void DropHeaderComment(const std::string& name, std::vector<ModuleText>& modules) {
  const ModuleRow* row = FindModule(name);
  if (row == nullptr || modules.empty() || modules.back().lines.empty()) return;
  if (TrimEnd(modules.back().lines.back()) == ModuleHeader(*row)) modules.back().lines.pop_back();
}

// ---- Module files

// All that the files of a text may hold, the lines themselves counted: a text may name one file over and over.
struct FileRoom {
  std::size_t bytes = kModuleBytes;
};

enum class FileStatus : std::uint8_t { ok, not_opened, too_long };

FileHandle OpenModuleFile(const Files& files, const std::string& name, const std::string& run) {
  const std::string path = NamedFile(files, name, FolderOf(run));
  return path.empty() ? kNoFile : files.open_read(files.self, path);
}

// A module's own $ line may stand in its file ahead of the data; one behind them ends it.
FileStatus TakeLines(HeaderText& text, FileRoom& room, std::vector<std::string>& lines) {
  bool content = false;
  std::string_view line;
  while (NextTextLine(text, line) == TextEvent::line) {
    if (BeginsModule(line)) {
      if (content) break;
      continue;
    }
    content = content || (!IsCommentLine(line) && !IsBlank(WithoutComment(line)));
    const std::size_t size = line.size() + sizeof(std::string);
    if (size > room.bytes || !Grow(lines, lines.size() + 1)) return FileStatus::too_long;
    room.bytes -= size;
    lines.back() = line;
  }
  return text.ended == TextEvent::too_long ? FileStatus::too_long : FileStatus::ok;
}

FileStatus ReadModuleFile(const Files& files, const std::string& name, const std::string& run, FileRoom& room,
                          std::vector<std::string>& lines) {
  lines.clear();
  const FileHandle file = OpenModuleFile(files, name, run);
  if (file == kNoFile) return FileStatus::not_opened;
  BlockStream stream;
  StartStream(stream, files, file);
  LineSource source;
  source.stream = &stream;
  HeaderText text{&source};
  FileStatus status = TakeLines(text, room, lines);
  (void)files.close(files.self, file);
  if (status == FileStatus::ok && stream.fault) status = FileStatus::not_opened;
  if (status != FileStatus::ok) lines.clear();
  return status;
}

// ---- One module

// The module is kept as lines. What is said of it depends on why.
void SayFault(const Console& console, std::string_view name, ModuleFault fault, int set) {
  Say(console, kParsing, name);
  switch (fault) {
    case ModuleFault::bad_data:
      Say(console, kBadData, set, name);
      break;
    case ModuleFault::end_of_file:
      Say(console, kEndOfModule, set, name);
      SayLine(console, kIncomplete);
      break;
    case ModuleFault::dimension:
      Say(console, kDimension, name);
      SayLine(console, kIncomplete);
      break;
    default:
      Say(console, kFatal, name);
  }
}

ModuleFault ReadFields(const ModuleRow& row, ModuleText& module, ControlRecords& records, int& set) {
  module.entry = -1;
  if (row.name == kOptionsModule) {
    if (!OptionsAreGood(module)) return ModuleFault::bad_data;
    module.entry = 0;
    return ModuleFault::none;
  }
  if (row.form == nullptr) return ModuleFault::none;
  const std::size_t entry = row.repeats ? row.form->entries(records) : 0;
  ModuleState state{records, entry};
  if (!row.form->resize(records, entry) || !row.form->resize(records, entry + 1)) return ModuleFault::fatal;
  const ModuleFault fault = ReadModule(row.form->fields, module, state, set);
  if (fault == ModuleFault::none) module.entry = static_cast<int>(entry);
  else if (!row.form->resize(records, entry)) return ModuleFault::fatal;
  return fault;
}

struct ModuleReading {
  const Platform& platform;
  const std::string& run;
  ControlRecords& records;
  FileRoom room;
  bool failed = false;
};

// The row of a module that is to be read; null (told): it stays text.
const ModuleRow* RowOf(const Console& console, const ModuleText& module) {
  const ModuleRow* row = FindModule(module.name);
  if (row != nullptr) return row;
  if (module.name.empty()) SayLine(console, kBlankName);
  else if (module.name == kRefusedName) SayLines(console, kRefused);
  else Say(console, kUnknown, module.name);
  return nullptr;
}

void ReadOne(ModuleReading& reading, const ModuleRow& row, ModuleText& module) {
  const Console& console = reading.platform.console;
  Say(console, kReading, row.name);
  const std::string file = ModuleFile(module.header);
  FileStatus status = FileStatus::ok;
  if (!file.empty()) status = ReadModuleFile(reading.platform.files, file, reading.run, reading.room, module.lines);
  if (status == FileStatus::not_opened)
    Say(console, kNoModuleFile, file, WhyNoNamedFile(reading.platform.files, file, FolderOf(reading.run)));
  if (status == FileStatus::too_long) Say(console, kLongModuleFile, file);
  int set = 1;
  const ModuleFault fault = ReadFields(row, module, reading.records, set);
  if (fault != ModuleFault::none && status == FileStatus::ok) SayFault(console, row.name, fault, set);
  reading.failed = reading.failed || fault != ModuleFault::none || status != FileStatus::ok;
}

void ReadAll(ModuleReading& reading) {
  const Console& console = reading.platform.console;
  std::vector<ModuleText>& modules = reading.records.modules;
  std::vector<std::size_t> last(ModuleRows().size(), modules.size());  // place of a module that may stand once
  for (std::size_t i = 0; i < modules.size(); ++i) {
    const ModuleRow* row = RowOf(console, modules[i]);
    if (row == nullptr) {
      reading.failed = true;
      continue;
    }
    modules[i].name = row->name;
    std::size_t& before = last[static_cast<std::size_t>(row - ModuleRows().data())];
    if (!row->repeats && before < i) {
      Say(console, kTwice[0], row->name);
      SayLine(console, kTwice[1]);
      modules[before].superseded = true;
    }
    before = i;
    ReadOne(reading, *row, modules[i]);
  }
  std::erase_if(modules, [](const ModuleText& module) { return module.superseded; });
  if (reading.failed) SayLines(console, kSomeFailed);
}

}  // namespace

ModuleStatus KeepModules(HeaderText& text, std::vector<ModuleText>& modules) {
  std::size_t bytes = 0;
  std::string_view line;
  TextEvent event = NextTextLine(text, line);
  for (; event == TextEvent::line; event = NextTextLine(text, line)) {
    bytes += line.size();
    if (bytes > kModuleBytes) return ModuleStatus::too_long;
    if (BeginsModule(line)) {
      std::string name = ModuleName(line);
      DropHeaderComment(name, modules);
      if (!Grow(modules, modules.size() + 1)) return ModuleStatus::out_of_memory;
      modules.back().name = std::move(name);
      modules.back().header = line;
      continue;
    }
    if (modules.empty()) continue;
    std::vector<std::string>& kept = modules.back().lines;
    if (!Grow(kept, kept.size() + 1)) return ModuleStatus::out_of_memory;
    kept.back() = line;
  }
  return event == TextEvent::too_long ? ModuleStatus::too_long : ModuleStatus::ok;
}

void ParseModules(const Platform& platform, const std::string& run, ControlRecords& records) {
  ModuleReading reading{platform, run, records, {}};
  if (!Guarded([&] { return ReadAll(reading), true; }, false)) SayLines(platform.console, kNoMemory);
}

}  // namespace zaview
