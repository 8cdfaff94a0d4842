#include "base/line_editor.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <dirent.h>
#include <histedit.h>
#include <sys/stat.h>
#include <unistd.h>

#include "base/interrupt.h"
#include "base/text.h"

namespace zaview {

struct EditorParts {
  ::EditLine* edit = nullptr;
  ::History* history = nullptr;
  std::string history_file;  // blank: nothing is kept
  std::string prompt;
  int end_signal = 0;
};

namespace {

constexpr off_t kLargestHistory = 16 << 20;  // bytes; a file beyond it is not ours
constexpr std::size_t kShownNames = 200;     // of the names that Tab could mean

EditorParts& Of(::EditLine* edit) {
  void* parts = nullptr;
  el_get(edit, EL_CLIENTDATA, &parts);
  return *static_cast<EditorParts*>(parts);
}

char* Prompt(::EditLine* edit) {
  return Of(edit).prompt.data();
}

// False: the line is given up.
bool AnswerSignals(EditorParts& parts) {
  const TerminalEvents events = TakeTerminalEvents();
  parts.end_signal = events.end;
  if (InterruptPending() || events.end != 0) return false;
  if (events.suspend) {
    el_set(parts.edit, EL_PREP_TERM, 0);
    SuspendProgram();
    el_set(parts.edit, EL_PREP_TERM, 1);
  }
  if (events.resized) el_resize(parts.edit);
  if (events.suspend) el_set(parts.edit, EL_REFRESH);
  return true;
}

// One byte: 1, 0 at the end of the input, -1: the line is given up.
int ReadByte(EditorParts& parts, char& byte) {
  for (;;) {
    if (WaitForInput(STDIN_FILENO) == Waited::signal) {
      if (!AnswerSignals(parts)) return -1;
      continue;
    }
    const ssize_t n = ::read(STDIN_FILENO, &byte, 1);
    if (n < 0 && (errno == EINTR || errno == EAGAIN)) continue;
    if (n == 1 && !InterruptPending()) NoteInput();
    return n == 1 ? 1 : 0;
  }
}

// Bytes that are no character in the user's own encoding are passed over.
int ReadCharacter(::EditLine* edit, wchar_t* character) {
  EditorParts& parts = Of(edit);
  std::mbstate_t state{};
  for (;;) {
    char byte = 0;
    const int got = ReadByte(parts, byte);
    if (got != 1) return got;
    const std::size_t size = std::mbrtowc(character, &byte, 1, &state);
    if (size == static_cast<std::size_t>(-1)) state = {};
    else if (size != static_cast<std::size_t>(-2)) return 1;
  }
}

bool HasControlCharacter(std::string_view name) {
  return std::any_of(name.begin(), name.end(), [](unsigned char c) { return c < ' ' || c == 0x7F; });
}

bool IsDirectory(const std::string& name) {
  struct stat facts {};
  return ::stat(name.c_str(), &facts) == 0 && S_ISDIR(facts.st_mode);
}

// The names that begin like the last part of `path`.
std::vector<std::string> NamesLike(std::string_view path) {
  const std::size_t slash = path.rfind('/');
  const std::string folder(slash == std::string_view::npos ? "." : path.substr(0, slash + 1));
  const std::string_view begin = slash == std::string_view::npos ? path : path.substr(slash + 1);
  std::vector<std::string> names;
  DIR* const open = ::opendir(folder.c_str());
  if (open == nullptr) return names;
  while (const dirent* entry = ::readdir(open)) {
    const std::string_view name = entry->d_name;
    const bool hidden = name[0] == '.' && (begin.empty() || name == "." || name == "..");
    if (!hidden && StartsWith(name, begin) && !HasControlCharacter(name)) names.emplace_back(name);
  }
  ::closedir(open);
  std::sort(names.begin(), names.end());
  return names;
}

// What stays of all names behind the first `known` characters.
std::string CommonRest(const std::vector<std::string>& names, std::size_t known) {
  std::string common = names.front();
  for (const std::string& name : names) {
    const auto ends = std::mismatch(common.begin(), common.end(), name.begin(), name.end());
    common.erase(ends.first, common.end());
  }
  // Not a part of a character: bytes 10xxxxxx go on with one.
  const auto goes_on = [&](std::size_t at) {
    return at < names.front().size() && (static_cast<unsigned char>(names.front()[at]) & 0xC0U) == 0x80U;
  };
  while (common.size() > known && goes_on(common.size())) common.pop_back();
  return common.substr(known);
}

void ShowNames(const std::vector<std::string>& names) {
  std::string text = "\n";
  for (std::size_t i = 0; i < std::min(names.size(), kShownNames); ++i) text.append(names[i]).append("  ");
  text += names.size() > kShownNames ? "...\n" : "\n";
  std::fputs(text.c_str(), stdout);
  std::fflush(stdout);
}

unsigned char CompleteAtCursor(::EditLine* edit, int) {
  const ::LineInfo* const info = el_line(edit);
  const NameCompletion completion =
      CompleteFileName(std::string_view(info->buffer, static_cast<std::size_t>(info->cursor - info->buffer)));
  if (!completion.added.empty()) return el_insertstr(edit, completion.added.c_str()) == 0 ? CC_REFRESH : CC_ERROR;
  if (completion.names.size() < 2) return CC_ERROR;
  ShowNames(completion.names);
  return CC_REDISPLAY;
}

// Blank: there is no place for it. What is missing on the way is made for the user alone.
std::string HistoryFile() {
  const char* const state = std::getenv("XDG_STATE_HOME");
  const char* const home = std::getenv("HOME");
  std::string folder;
  if (state != nullptr && state[0] == '/') folder = state;
  else if (home != nullptr && home[0] == '/') folder = std::string(home) + "/.local/state";
  else return {};
  folder += "/zaview/";
  for (std::size_t slash = folder.find('/', 1); slash != std::string::npos; slash = folder.find('/', slash + 1))
    ::mkdir(folder.substr(0, slash).c_str(), 0700);
  return IsDirectory(folder) ? folder + "history" : std::string();
}

// A pipe would make us wait, a device is no history.
bool IsHistory(const std::string& name) {
  struct stat facts {};
  if (::stat(name.c_str(), &facts) != 0) return errno == ENOENT;
  return S_ISREG(facts.st_mode) && facts.st_size <= kLargestHistory;
}

// Kept at once: another session, or a run that is killed, shall not lose it.
void KeepLine(EditorParts& parts, const std::string& line) {
  if (IsBlank(line)) return;
  HistEvent event{};
  history(parts.history, &event, H_ENTER, line.c_str());
  if (!parts.history_file.empty() && IsHistory(parts.history_file))
    history(parts.history, &event, H_SAVE, parts.history_file.c_str());
}

bool StartHistory(EditorParts& parts) {
  parts.history = history_init();
  if (parts.history == nullptr) return false;
  HistEvent event{};
  history(parts.history, &event, H_SETSIZE, kHistoryLines);
  history(parts.history, &event, H_SETUNIQUE, 1);
  parts.history_file = HistoryFile();
  if (!parts.history_file.empty() && IsHistory(parts.history_file))
    history(parts.history, &event, H_LOAD, parts.history_file.c_str());
  return true;
}

}  // namespace

void FreeEditorParts::operator()(EditorParts* parts) const {
  if (parts->edit != nullptr) el_end(parts->edit);
  if (parts->history != nullptr) history_end(parts->history);
  delete parts;
}

LineEditor MakeLineEditor() {
  const char* const terminal = std::getenv("TERM");
  if (terminal == nullptr || terminal[0] == '\0' || std::string_view(terminal) == "dumb") return nullptr;
  static_cast<void>(std::setlocale(LC_CTYPE, ""));
  LineEditor editor(new (std::nothrow) EditorParts);
  if (editor == nullptr || !StartHistory(*editor)) return nullptr;
  editor->edit = el_init("zaview", stdin, stdout, stderr);
  if (editor->edit == nullptr) return nullptr;
  ::EditLine* const edit = editor->edit;
  el_set(edit, EL_CLIENTDATA, editor.get());
  el_set(edit, EL_SIGNAL, 0);
  el_set(edit, EL_EDITOR, "emacs");
  el_set(edit, EL_PROMPT, Prompt);
  el_set(edit, EL_GETCFN, ReadCharacter);
  el_set(edit, EL_HIST, history, editor->history);
  el_wset(edit, EL_ADDFN, L"zaview-complete", L"Complete a file name", CompleteAtCursor);  // keeps no copies
  el_set(edit, EL_BIND, "^I", "zaview-complete", nullptr);
  el_set(edit, EL_BIND, "^R", "em-inc-search-prev", nullptr);
  el_source(edit, nullptr);  // the user's own keys, ~/.editrc
  return editor;
}

EditEnd ReadEditedLine(EditorParts& editor, std::string_view prompt, std::string& line, int& end_signal) {
  const TerminalSignals signals;
  editor.prompt = prompt;
  editor.end_signal = 0;
  el_set(editor.edit, EL_PREP_TERM, 1);  // ahead of the prompt: a Ctrl-D that answers it at once is a key already
  int size = 0;
  const char* const typed = el_gets(editor.edit, &size);
  end_signal = editor.end_signal;
  if (end_signal != 0) return EditEnd::end_of_run;
  if (InterruptPending()) return EditEnd::interrupted;
  if (typed == nullptr || size <= 0) return EditEnd::end_of_input;
  line.assign(typed, static_cast<std::size_t>(size));
  while (!line.empty() && (line.back() == '\n' || line.back() == '\r')) line.pop_back();
  KeepLine(editor, line);
  return EditEnd::line;
}

NameCompletion CompleteFileName(std::string_view typed) {
  typed = TrimStart(typed);
  const std::size_t ends[] = {std::string_view::npos, typed.rfind(' '), typed.find_last_of(":'\"")};
  for (const std::size_t end : ends) {
    const std::string_view path = end == std::string_view::npos ? typed : typed.substr(end + 1);
    NameCompletion completion;
    completion.names = NamesLike(path);
    if (completion.names.empty()) continue;
    const std::size_t slash = path.rfind('/');
    completion.added =
        CommonRest(completion.names, slash == std::string_view::npos ? path.size() : path.size() - slash - 1);
    const bool single = completion.names.size() == 1;
    const std::string folder(slash == std::string_view::npos ? "" : path.substr(0, slash + 1));
    if (single && IsDirectory(folder + completion.names.front())) completion.added += '/';
    return completion;
  }
  return {};
}

}  // namespace zaview
