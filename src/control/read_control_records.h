// Reads the control text of one ship: records 01 to 33 in fixed order, then the $NAME: modules as raw text.
// Comment lines never steer the reader.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/line_source.h"
#include "base/platform.h"
#include "control/control_records.h"
#include "control/control_text.h"

namespace zaview {

inline constexpr std::string_view kBadRecord = "ERROR - record {:02} of the control data cannot be read : {}, line {}";
inline constexpr std::string_view kSeawayKind = "ERR104 - Seaway specifier ISEA= {}";
inline constexpr std::string_view kControlTooLong = "ERROR - control data is too long : {}, line {}";
inline constexpr std::string_view kControlMemory = "ERROR - no memory to read the control data : {}, line {}";
inline constexpr std::string_view kSeawayMemory = "ERR325 - No memory for the seaway : {}, line {}";

enum class ControlStatus : std::uint8_t { ok, failed };  // failed: the message has been said

struct ControlText {  // where the text comes from
  LineSource* source = nullptr;
  std::string file_name;  // for messages, and for the folder of the files that it names
  // What ended the text, if a delimiter line did; it has been taken, also where a record can't be read.
  Delimiter delimiter = Delimiter::none;
};

// Reads up to and including the next delimiter line (FILE_PARSING_DATA, DERIVED_DATA_ECHO, END_OF_HEADER), to
// END_OF_FILE, or to the end of the file. On failure says which record of which line can't be read. Arrays grow with
// the lines that come, whatever their counts say; a text above kSectionLines lines or kModuleBytes of modules is
// refused.
[[nodiscard]] ControlStatus ReadControlRecords(const Platform& platform, ControlText& text, ControlRecords& records);

}  // namespace zaview
