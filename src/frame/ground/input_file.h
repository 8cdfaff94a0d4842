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

}  // namespace zaview
