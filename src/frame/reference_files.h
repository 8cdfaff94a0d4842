// The reference as files: a page of Markdown, a manual page, the completion of the shell.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace zaview {

[[nodiscard]] std::string ReferencePage();
[[nodiscard]] std::string ManualPage();
[[nodiscard]] std::string ShellCompletion();

struct ReferenceFile {
  std::string_view name;  // in the project
  std::string (*text)();
};
[[nodiscard]] std::span<const ReferenceFile> ReferenceFiles();

}  // namespace zaview
