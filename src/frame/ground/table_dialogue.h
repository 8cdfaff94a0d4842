// A table from a dialogue: a file is asked for and written, it is said how that went, and RETURN is awaited.
#pragma once

#include <functional>
#include <string>

#include "base/data_fault.h"
#include "base/platform.h"
#include "frame/ground/file_dialogue.h"

namespace zaview {

struct TableQuestion {
  FileQuestion file{.use = FileUse::output, .prompt = {}, .extension = {}, .blank_is_console = true};
  std::string done;                       // said of a file that was written, ahead of its name
  Making making = Making::table;          // of faults
  std::string quantity = "the quantity";  // as faults name it
  bool formatted_only = true;             // the switch UNFORMATTED is told to be ignored
  std::function<bool()> ask_more;         // once the file is open; false: given up
  std::function<void()> say_more;         // behind `done`
};

// opened: the table was written, or it has been said why not. Else nothing was; the old file is whole then.
FileAnswer AskTable(const Platform& platform, const TableQuestion& question,
                    const std::function<DataFault(ChosenFile&)>& write);

}  // namespace zaview
