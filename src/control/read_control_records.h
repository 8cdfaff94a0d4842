// Reads the control text of one ship: records 01 to 33 in fixed order, then the $NAME: modules as raw text.
// Comment lines never steer the reader.
#pragma once

#include <cstdint>
#include <string>

#include "base/line_source.h"
#include "base/platform.h"
#include "control/control_records.h"

namespace zaview {

enum class ControlStatus : std::uint8_t { ok, failed };  // failed: the message has been said

struct ControlText {           // where the text comes from
  LineSource* source = nullptr;
  std::string file_name;       // for messages
  // The delimiter line that ended the text, if one was met ("...FILE_PARSING_DATA..."), else blank.
  std::string delimiter;
};

// Reads up to and including the next delimiter line (FILE_PARSING_DATA, DERIVED_DATA_ECHO, END_OF_HEADER), to
// END_OF_FILE, or to the end of the file. On failure says which record of which line can't be read.
[[nodiscard]] ControlStatus ReadControlRecords(const Console& console, ControlText& text, ControlRecords& records);

}  // namespace zaview
