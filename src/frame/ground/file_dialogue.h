// The file dialogue: asks for a name until a file is open or the user gives up.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/platform.h"
#include "frame/ground/output_file.h"

namespace zaview {

enum class FileUse : std::int8_t { input = 1, output = 2 };
enum class FileForm : std::uint8_t { formatted, unformatted };

struct FileQuestion {
  FileUse use = FileUse::input;
  std::string_view prompt;
  std::string_view extension;  // ".out": tried (input) or added (output) where the name has none
  FileForm form = FileForm::formatted;
  bool blank_is_console = false;  // output: a blank answer is the console; else it is asked again
  std::string_view word = {};     // an answer that is no name, in capitals; blank: none
};

struct ChosenFile {
  std::string name;  // as opened, without switches
  bool unformatted = false;
  FileHandle file = kNoFile;  // input
  OutputFile out;             // output
};

// What is said of a blank answer where a file must be named.
inline constexpr std::string_view kNameWanted = " file specification aborted ... re-specify";
// What is said where a file of this form is asked for and there is none.
inline constexpr std::string_view kFormattedOnly = "Option only supports formatted output - UNFORM switch ignored";

// aborted: QUIT or the end of input; word: the question's own word. Nothing is open then.
enum class FileAnswer : std::uint8_t { opened, aborted, word };

// The words APPEND and UNFORMATTED behind the name are switches. An existing file is asked about, unless it is no plain
// file or APPEND is given.
[[nodiscard]] FileAnswer OPNFIL(const Platform& platform, const FileQuestion& question, ChosenFile& chosen);

// An output file for a table, or the console for a blank answer. That UNFORMATTED is ignored is told. False: given up.
[[nodiscard]] bool AskFormattedFile(const Platform& platform, std::string_view prompt, std::string_view extension,
                                    ChosenFile& chosen);

}  // namespace zaview
