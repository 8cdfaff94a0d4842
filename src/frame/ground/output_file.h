// Where a table goes: the console, or a file that appears when it is complete. A file is written beside its target and
// moved over it at close; APPEND is one write. A link is followed and the old file's mode is kept; what is no plain
// file, or stands in a folder that takes no new file, is written in place. A failure leaves the old file whole. A file
// that this run has read is not written, under whatever name.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/platform.h"

namespace zaview {

// What is said of a file: its name, and Because of the reason.
inline constexpr std::string_view kOutputNotOpen = "ERROR opening output file: {}{}";
inline constexpr std::string_view kOutputNotWritten = "ERROR writing output file: {}{}";
inline constexpr std::string_view kFileNotWritten = "ERROR writing file {}{}";

inline constexpr std::string_view kWhyNoMemory = "no memory";  // a reason

enum class OpenHow : std::uint8_t { replace, append };

struct OutputFileParts {
  const Platform* platform = nullptr;
  std::string name;  // as given; blank: the console
  bool to_console = true;
  bool had_text = false;  // appending behind something: tables then set off with an empty line
  bool failed = false;    // a write failed: close will discard
  std::string why;        // of an open, or the first write, that failed, for Because
  // Below: the business of output_file.cpp.
  FileHandle file = kNoFile;
  std::string target;   // behind links
  std::string beside;   // the temporary name, blank if written in place
  std::string pending;  // bytes not yet written (all of them for APPEND)
  OpenHow how = OpenHow::replace;
  bool made = false;       // the target itself was made by the open
  bool cut_first = false;  // in place over an old file, which is still whole: emptied ahead of the first bytes
};

// What ends without having been closed is discarded: the work was given up on its way.
struct OutputFile : OutputFileParts {
  OutputFile() = default;
  ~OutputFile();
  OutputFile(OutputFile&& other) noexcept;
  OutputFile& operator=(OutputFile&& other) noexcept;
};

// False: it can't be opened (nothing is left behind). Told before any computing.
[[nodiscard]] bool OpenOutput(const Platform& platform, std::string_view name, OpenHow how, OutputFile& out);
void WriteOutput(OutputFile& out, std::string_view text);
// After each row of a long table: the rows gathered in text are written, and text is emptied, once they fill a block.
// The rest is the caller's to write.
void WriteGathered(OutputFile& out, std::string& text);
// False: a write failed; the target is as it was, unless it had to be written in place. The console always succeeds.
[[nodiscard]] bool CloseOutput(OutputFile& out);
void DiscardOutput(OutputFile& out);

// Are these two open files one, of which only what is closed last would be left?
[[nodiscard]] bool SpoilEachOther(const OutputFile& one, const OutputFile& other);

}  // namespace zaview
