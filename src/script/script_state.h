// What a script leaves between lines, and the variable table that lives for the run. Data only.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace zaview {

struct ScriptVariable {
  std::string name;   // at most 80 characters
  std::string value;  // at most 80 characters
};

struct ScriptOrigin {  // where the user wrote a line
  int file = 0;        // index into ScriptState::files
  int line = 0;        // from 1
};

struct ScriptLine {
  std::string text;  // after substitution
  ScriptOrigin origin;
};

struct ScriptState {
  std::vector<ScriptVariable> variables;
  std::vector<std::string> files;      // the script and what it includes
  std::vector<ScriptLine> final_text;  // what the passes left
  std::size_t command_line = 0;        // where the command at hand begins
  std::size_t next_line = 0;           // read position
  std::string name;                    // as opened
  bool open = false;                   // running or suspended at a plot
};

}  // namespace zaview
