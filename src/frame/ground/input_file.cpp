#include "frame/ground/input_file.h"

#include "base/message.h"

namespace zaview {

namespace {

constexpr std::string_view kTooLong = "File name too long";

}  // namespace

FoundFile OpenFirst(const Files& files, std::string_view name, std::span<const std::string_view> endings,
                    std::size_t longest) {
  FoundFile found;
  bool one_is_there = false;
  for (const std::string_view ending : endings) {
    std::string full = std::string(name).append(ending);
    const bool fits = full.size() <= longest;
    if (fits) found.file = files.open_read(files.self, full);
    if (found.file != kNoFile) return {found.file, std::move(full), {}};
    const bool is_there = fits && files.facts(files.self, full).exists;
    if (found.why.empty() || (is_there && !one_is_there)) found.why = fits ? files.why(files.self) : kTooLong;
    one_is_there = one_is_there || is_there;
  }
  return found;
}

std::string_view FolderOf(std::string_view name) {
  return name.substr(0, name.rfind('/') + 1);
}

std::string NamedFile(const Files& files, std::string_view name, std::string_view folder) {
  const auto is_file = [&files](const std::string& path) { return files.facts(files.self, path).plain; };
  std::string here(name);
  if (is_file(here)) return here;
  if (folder.empty() || name.starts_with('/')) return {};
  std::string beside = std::string(folder) + here;
  return is_file(beside) ? beside : std::string{};
}

std::string WhyNoNamedFile(const Files& files, std::string_view name, std::string_view folder) {
  const std::string path = NamedFile(files, name, folder);
  return WhyNotOpened(files, path.empty() ? std::string(name) : path);
}

}  // namespace zaview
