#include "menu/file_selector.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include "base/grow.h"
#include "base/message.h"
#include "base/platform.h"
#include "base/text.h"
#include "menu/menu_build.h"
#include "menu/menu_window.h"
#include "menu/type_in.h"

namespace zaview {

namespace {

constexpr std::string_view kTitle = "File Selector";
constexpr std::string_view kOnlyOne = "WARNING - Only one file selector can be open at a time";
constexpr fmt::string_view kBadMode = "ERROR - Invalid mode specifier in dgFileSelector: {}";
constexpr std::string_view kNoWorkingDirectory = "ERROR determining working directory in dgFileGetFileList()";
constexpr std::string_view kBadDirectory = "Directory appears to be invalid or non-existent";
constexpr std::string_view kPending = "Overwrite/Selection confirmation pending - input ignored";
constexpr std::string_view kBlankName = "File selector aborted - blank file name...";
constexpr std::string_view kBadChoice = "File selector aborted - bad directory...";
constexpr std::string_view kNoMoreSlashes = "LOGIC ERROR - no more slashes in relative path";
constexpr std::string_view kLogic = "LOGIC ERROR in dgFileSelectorInput";

constexpr std::string_view kShownBad = "Directory is invalid or non-existent";
constexpr std::string_view kShownExists = "File exists - hit Confirm to overwrite or Cancel to re-specify";
constexpr std::string_view kShownNotThere = "File does not exist - hit Confirm to select or Cancel to re-specify";

constexpr int kToWrite = 1, kToRead = 2, kLastMode = 3;
constexpr int kColumns = 40, kLines = 20, kNameLength = 256, kFilterLength = 128;
constexpr int kRed = 2;
constexpr std::string_view kUp = "..";

// Elements of the menu, in order; and items of its rows.
enum Element : int { kDirRow = 1, kDirList, kFileList, kFileRow, kFilterRow, kStatusRow, kButtons };
enum Item : int { kField = 2, kRefresh = 3, kSelectOrConfirm = 1, kCancel = 2 };

std::string Joined(const std::string& directory, std::string_view name) {
  return fmt::format("{}{}{}", directory, directory.ends_with('/') ? "" : "/", name);
}

// Names that were listed may have a \ of their own.
bool PathOf(const Platform& platform, const FileSelector& selector, std::string_view name, std::string& path) {
  path = Joined(selector.current_dir, name);
  const bool listed =
      name.find('\\') != std::string_view::npos && platform.files.facts(platform.files.self, path).exists;
  return listed || ResolvePath(selector.current_dir, name, path);
}

bool IsConfirming(const FileSelector& selector) {
  return selector.overwrite_pending || selector.notexist_pending;
}

void FilterFiles(FileSelector& selector) {
  selector.shown.clear();
  selector.selected_file = 0;
  if (!Reserve(selector.shown, selector.files.size())) return;
  for (const std::string& name : selector.files)
    if (dgFileSelectorFilter(selector.filter, name)) selector.shown.push_back(name);
}

void ReadDirectory(MenuToolkit& kit) {
  FileSelector& selector = kit.files;
  selector.bad_directory = !dgFileGetFileList(*kit.platform, selector);
  if (selector.bad_directory) SayLine(kit.platform->console, kBadDirectory);
  FilterFiles(selector);
}

// ---- The menu

void AddList(MenuToolkit& kit, const std::vector<std::string>& names, int selected, int style) {
  gksMenuSelectionList(kit, kOneInBox, std::max(static_cast<int>(names.size()), 1), selected, kLines);
  gksMenuSetAttribute(kit, MenuAttribute::style, style);
  for (std::size_t i = 0; i < names.size(); ++i) gksMenuAddListItem(kit, names[i], static_cast<int>(i) + 1);
}

void AddField(MenuToolkit& kit, std::string_view label, const std::string& value, int length) {
  constexpr int kLabelColumns = 7;
  gksMenuButtonRow(kit, kPlainRow, 3);
  gksMenuAddItem(kit, MenuItemType::label, label, kLabelColumns);
  gksMenuAddItem(kit, MenuItemType::text, value, length);
  gksMenuSetAttribute(kit, MenuAttribute::width, kColumns);
}

std::string_view StatusOf(const FileSelector& selector) {
  if (selector.overwrite_pending) return kShownExists;
  if (selector.notexist_pending) return kShownNotThere;
  return selector.bad_directory ? kShownBad : std::string_view();
}

void dgFileSelectorInput(void* self, const MenuEvent& event);

bool Build(MenuToolkit& kit) {
  const FileSelector& selector = kit.files;
  const int im = gksMenuInit(kit, kTitle);
  if (im == 0) return false;
  gksMenuSetHandler(kit, {&kit, dgFileSelectorInput});
  SlotOf(kit, im).list_keys = SlotOf(kit, im).escape_tells = true;
  AddField(kit, "Dir.:", selector.current_dir, kNameLength);
  gksMenuAddItem(kit, MenuItemType::button, "Refresh");
  AddList(kit, selector.directories, selector.selected_directory, kMovedByKeys);
  AddList(kit, selector.shown, selector.selected_file, 0);
  AddField(kit, "File  :", selector.file_name, kNameLength);
  AddField(kit, "Filter:", selector.filter, kFilterLength);
  gksMenuButtonRow(kit, kPlainRow, 1);
  gksMenuAddItem(kit, MenuItemType::label, StatusOf(selector));
  gksMenuSetAttribute(kit, MenuAttribute::colour, kRed);
  gksMenuButtonRow(kit, kDialogueRow, 2);
  gksMenuAddItem(kit, MenuItemType::button, IsConfirming(selector) ? "Confirm" : "Select");
  gksMenuAddItem(kit, MenuItemType::button, "Cancel");
  if (!gksMenuStart(kit, /*raise=*/false)) return false;
  kit.files.menu = kit.sub_menu = im;
  return true;
}

// ---- The end

// The selector is gone and its caller hears again.
void Free(MenuToolkit& kit) {
  const FileSelector selector = std::exchange(kit.files, FileSelector{});
  kit.sub_menu = 0;
  gksMenuEnable(kit, selector.caller.menu);
}

void End(MenuToolkit& kit, bool with_result) {
  const FileSelector selector = kit.files;
  gksMenuClose(kit, selector.menu);  // Free, by its event
  MenuRowItem* const item = gksMenuItemAt(kit, selector.caller);
  if (!with_result || item == nullptr) return;
  std::string path;
  static_cast<void>(PathOf(*kit.platform, selector, selector.file_name, path));
  item->text = path;
  MenuEvent event;
  event.menu = selector.caller.menu;
  event.element = selector.caller.element;
  event.item = selector.caller.item;
  event.change = MenuChange::file;
  event.text = item->text;
  PostMenu(kit, event.menu);
  TellApplication(kit, event);
}

void Abort(MenuToolkit& kit, std::string_view why) {
  SayLine(kit.platform->console, why);
  End(kit, false);
}

// A name with a directory in it takes the selector there.
void Select(MenuToolkit& kit) {
  FileSelector& selector = kit.files;
  if (IsBlank(selector.file_name)) return Abort(kit, kBlankName);
  if (selector.bad_directory) return Abort(kit, kBadChoice);
  const Files& files = kit.platform->files;
  std::string path;
  if (!PathOf(*kit.platform, selector, selector.file_name, path)) return SayLine(kit.platform->console, kNoMoreSlashes);
  const FileFacts facts = files.facts(files.self, path);
  const std::string folder = path.substr(0, std::max<std::size_t>(path.rfind('/'), 1));
  if (selector.mode == kToWrite && (facts.directory || !files.facts(files.self, folder).directory)) {
    selector.bad_directory = true;
    static_cast<void>(Build(kit));
    selector.bad_directory = false;  // of the name alone
    return;
  }
  selector.overwrite_pending = selector.mode == kToWrite && facts.exists;
  selector.notexist_pending = selector.mode == kToRead && (!facts.exists || facts.directory);
  if (!IsConfirming(selector)) return End(kit, true);
  static_cast<void>(Build(kit));
}

// ---- What happens in it

void GoTo(MenuToolkit& kit, std::string_view path) {
  FileSelector& selector = kit.files;
  std::string resolved;
  if (!PathOf(*kit.platform, selector, path, resolved)) {
    SayLine(kit.platform->console, kNoMoreSlashes);
    static_cast<void>(Build(kit));  // the field shows again where we are
    return;
  }
  selector.current_dir = resolved;
  ReadDirectory(kit);
  static_cast<void>(Build(kit));
}

void ClickFile(MenuToolkit& kit, int number) {
  FileSelector& selector = kit.files;
  if (number < 1 || static_cast<std::size_t>(number) > selector.shown.size()) return;
  selector.selected_file = number;
  selector.file_name = selector.shown[static_cast<std::size_t>(number) - 1];
  static_cast<void>(Build(kit));
}

void PressButton(MenuToolkit& kit, int item) {
  FileSelector& selector = kit.files;
  if (item == kSelectOrConfirm) return IsConfirming(selector) ? End(kit, true) : Select(kit);
  if (!IsConfirming(selector)) return End(kit, false);
  selector.overwrite_pending = selector.notexist_pending = false;
  static_cast<void>(Build(kit));
  StartTypeIn(kit, {selector.menu, kFileRow, kField});
}

// Enter in the field of the file is Select; a click elsewhere, or going on to the next field, only takes the name.
void TakeFileName(MenuToolkit& kit, const MenuEvent& event) {
  kit.files.file_name = event.text;
  if (event.entered) Select(kit);
}

void dgFileSelectorInput(void* self, const MenuEvent& event) {
  MenuToolkit& kit = *static_cast<MenuToolkit*>(self);
  FileSelector& selector = kit.files;
  if (event.change == MenuChange::closed) return Free(kit);
  if (event.change == MenuChange::escape) return PressButton(kit, kCancel);
  if (event.element == kButtons) return PressButton(kit, event.item);
  if (IsConfirming(selector)) {
    SayLine(kit.platform->console, kPending);
    static_cast<void>(Build(kit));
    return;
  }
  const bool twice = event.change == MenuChange::list_twice;
  switch (event.element) {
    case kDirRow:
      return GoTo(kit, event.item == kRefresh ? selector.current_dir : event.text);
    case kDirList: {
      if (twice || event.item < 1 || static_cast<std::size_t>(event.item) > selector.directories.size()) return;
      const std::string name = selector.directories[static_cast<std::size_t>(event.item) - 1];
      return GoTo(kit, name);
    }
    case kFileList:
      return twice ? Select(kit) : ClickFile(kit, event.item);
    case kFileRow:
      return TakeFileName(kit, event);
    case kFilterRow:
      selector.filter = event.text;
      FilterFiles(selector);
      static_cast<void>(Build(kit));
      return;
    default:
      return SayLine(kit.platform->console, kLogic);
  }
}

}  // namespace

void dgFileSelector(MenuToolkit& kit, const MenuPoint& caller, int mode, std::string_view name) {
  if (kit.files.menu != 0) return SayLine(kit.platform->console, kOnlyOne);
  if (mode < 0 || mode > kLastMode) {
    Say(kit.platform->console, kBadMode, mode);
    mode = 0;
  }
  FileSelector selector;
  selector.caller = caller;
  selector.mode = mode;
  const Files& files = kit.platform->files;
  const std::string working = files.working_directory(files.self);
  if (working.empty()) SayLine(kit.platform->console, kNoWorkingDirectory);
  const std::size_t slash = name.find_last_of("/\\");
  const std::string_view folder = slash == std::string_view::npos ? std::string_view() : name.substr(0, slash + 1);
  if (!ResolvePath(working.empty() ? "/" : working, folder, selector.current_dir)) selector.current_dir = "/";
  selector.file_name = TrimEnd(name.substr(folder.size()));
  kit.files = std::move(selector);
  ReadDirectory(kit);
  if (!Build(kit)) {
    kit.files = FileSelector{};
    return;
  }
  gksMenuDisable(kit, caller.menu);
  StartTypeIn(kit, {kit.files.menu, kFileRow, kField});
}

bool dgFileSelectorFilter(std::string_view filter, std::string_view name) {
  filter = Trim(filter);
  if (filter.empty()) return true;
  const std::size_t first = filter.find('*'), last = filter.rfind('*');
  if (first == std::string_view::npos) return name == filter;
  const std::string_view wstart = filter.substr(0, first), wend = filter.substr(last + 1);
  if (name.size() < wstart.size() + wend.size() || !name.starts_with(wstart) || !name.ends_with(wend)) return false;
  name = name.substr(wstart.size(), name.size() - wstart.size() - wend.size());
  // Each fixed part between two stars as far to the left as it can be.
  for (std::size_t at = first; at < last;) {
    const std::size_t star = filter.find('*', at + 1);
    const std::string_view part = filter.substr(at + 1, star - at - 1);
    const std::size_t found = name.find(part);
    if (found == std::string_view::npos) return false;
    name.remove_prefix(found + part.size());
    at = star;
  }
  return true;
}

bool ResolvePath(std::string_view base, std::string_view path, std::string& out) {
  const auto is_slash = [](char c) { return c == '/' || c == '\\'; };
  std::vector<std::string_view> parts;
  bool above = false;
  const auto take = [&](std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
      std::size_t end = at;
      while (end < text.size() && !is_slash(text[end])) ++end;
      const std::string_view part = text.substr(at, end - at);
      at = end + 1;
      if (part.empty() || part == ".") continue;
      if (part != kUp) parts.push_back(part);
      else if (parts.empty()) above = true;
      else parts.pop_back();
    }
  };
  if (path.empty() || !is_slash(path.front())) take(base);
  take(path);
  if (above) return false;
  out.clear();
  for (const std::string_view part : parts) out.append("/").append(part);
  if (out.empty()) out = "/";
  return true;
}

bool dgFileGetFileList(const Platform& platform, FileSelector& selector) {
  selector.directories.clear();
  selector.files.clear();
  selector.selected_directory = selector.selected_file = 0;
  std::vector<DirectoryEntry> entries;
  const auto read = [&] {
    const bool listed = platform.files.list(platform.files.self, selector.current_dir, entries);
    selector.directories.emplace_back("../");
    for (DirectoryEntry& entry : entries) {
      if (entry.name == "." || entry.name == kUp) continue;
      if (entry.directory) selector.directories.push_back(entry.name + "/");
      else selector.files.push_back(std::move(entry.name));
    }
    return listed;
  };
  if (!Guarded(read, false)) return false;
  std::sort(selector.directories.begin() + 1, selector.directories.end());
  std::sort(selector.files.begin(), selector.files.end());
  return true;
}

}  // namespace zaview
