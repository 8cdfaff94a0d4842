// Files that are found by several names.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "base/platform.h"

namespace zaview {

struct FoundFile {
  FileHandle file = kNoFile;
  std::string name;  // as opened
  std::string why;   // kNoFile: of the first name that is there, or else of the first
};

// Opens the first that can be: the name with each of its endings in turn. One longer than `longest` can't.
[[nodiscard]] FoundFile OpenFirst(const Files& files, std::string_view name, std::span<const std::string_view> endings,
                                  std::size_t longest);

// Directory of a file name with its slash; blank for the working directory.
[[nodiscard]] std::string_view FolderOf(std::string_view name);

// ---- Files that a file names
// As it is named, or else in the folder of the file that names it. Only a plain one: a pipe or terminal would be waited
// for. Blank: there is none.
[[nodiscard]] std::string NamedFile(const Files& files, std::string_view name, std::string_view folder);
// Why that one can't be opened, as WhyNotOpened tells it.
[[nodiscard]] std::string WhyNoNamedFile(const Files& files, std::string_view name, std::string_view folder);

}  // namespace zaview
