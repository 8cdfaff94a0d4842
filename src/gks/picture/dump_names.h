// The numbered names of pictures that were given none: dump0001.png to dump9999.png; and what is said of pictures that
// can't be stored.
#pragma once

#include <string>
#include <string_view>

#include <fmt/format.h>

#include "base/platform.h"

namespace zaview {

inline constexpr int kLastDump = 9999;
inline constexpr fmt::string_view kNoMoreNames = " GKSDUMP failed - no more {} files";
inline constexpr fmt::string_view kNotWritten = "ERROR - Picture can't be written : {}{}";
inline constexpr std::string_view kNoMemory = "GKSDUMP failed - memory allocation error";
inline constexpr std::string_view kNoPicture = "GKSDUMP failed - there is no picture";

[[nodiscard]] std::string DumpName(int number, std::string_view extension);
// The lowest number from `from` on at which so many in a row are free; 0: there is none.
[[nodiscard]] int FreeBlock(const Files& files, std::string_view extension, int from, int count);
// Makes the file, empty, so that programs side by side never take the same. False: it is another's by now. One that
// can't be made at all is taken; it is told by the writing.
[[nodiscard]] bool TakeName(const Files& files, const std::string& name);
// The first free one, always from 1. False: there is none.
[[nodiscard]] bool TakeFreeName(const Files& files, std::string_view extension, std::string& name);

}  // namespace zaview
