// Lines typed at a terminal: editing, the lines of earlier sessions, names of files with the Tab key.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zaview {

inline constexpr int kHistoryLines = 1000;  // kept in the history file; older ones drop out

enum class EditEnd : std::uint8_t {
  line,
  end_of_input,
  interrupted,  // Ctrl-C, see base/interrupt.h
  end_of_run    // the system asks the program to end
};

struct EditorParts;
struct FreeEditorParts {
  void operator()(EditorParts* parts) const;
};
using LineEditor = std::unique_ptr<EditorParts, FreeEditorParts>;

// Standard input and output must be one terminal. Null: it can't move its cursor, or memory is out.
[[nodiscard]] LineEditor MakeLineEditor();

// Shows `prompt` (the whole open line of the console) and edits behind it. Outside of this call the terminal is as it
// was. end_signal: the signal of end_of_run.
[[nodiscard]] EditEnd ReadEditedLine(EditorParts& editor, std::string_view prompt, std::string& line, int& end_signal);

// The text that Tab adds to `typed`, and the names it could become: `typed` up to its end is one name, or its part
// behind the last blank or behind a colon or quote is. A folder that is the only match gets its slash.
struct NameCompletion {
  std::string added;
  std::vector<std::string> names;  // sorted, without their folder
};
[[nodiscard]] NameCompletion CompleteFileName(std::string_view typed);

}  // namespace zaview
