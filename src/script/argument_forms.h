// The names that stand for arguments in the rows of the commands.
#pragma once

#include <span>
#include <string_view>

namespace zaview {

struct ArgumentForm {
  std::string_view name;
  std::string_view example;
  std::string_view meaning;
};

[[nodiscard]] std::span<const ArgumentForm> ArgumentForms();

}  // namespace zaview
