// What the real platform keeps between its calls, and its files.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <utility>
#include <vector>

#include "base/child_process.h"
#include "base/line_editor.h"
#include "base/platform.h"

namespace zaview {

struct PosixMachine {
  std::string out;       // console text not yet written
  std::vector<char> in;  // input read: [in_begin, in_end) is not yet taken
  std::size_t in_begin = 0, in_end = 0;
  bool at_terminal = false;  // both standard input and output: lines are edited
  LineEditor editor;         // made for the first line; null where the terminal can't
  bool editor_tried = false;
  bool progress_on_terminal = false;
  bool progress_shown = false;
  std::vector<std::string> unfinished;  // files made new and neither renamed nor removed: a run that is cut off by its
                                        // console takes them away
  std::vector<std::pair<FileHandle, std::string>> made_in_place;  // open files that were made under their own names
  std::vector<std::pair<dev_t, ino_t>> read;                      // plain files that were opened to be read
  int fault = 0;                                                  // of the last call for a file that failed
  Children children;
};

// `self` of the platform's records.
[[nodiscard]] inline PosixMachine& MachineOf(void* self) {
  return *static_cast<PosixMachine*>(self);
}

[[nodiscard]] Files PosixFiles(PosixMachine& machine);

// All bytes or false; what signals interrupt goes on.
bool WriteAll(int file, std::string_view bytes);
[[nodiscard]] ssize_t ReadSome(int file, char* to, std::size_t size);  // as read

// A run that ends before its time: of its files what is not complete goes.
void RemoveUnfinishedFiles(const PosixMachine& machine);

}  // namespace zaview
