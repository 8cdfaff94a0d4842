#include "frame/ground/wildcards.h"

#include <algorithm>
#include <fnmatch.h>

namespace zaview {

namespace {

constexpr std::size_t kMostNames = 100'000;  // a pattern over links that lead back would double without end: no more

bool IsDirectory(const Files& files, const std::string& name) {
  return files.facts(files.self, name).directory;
}

// The entries of `directory` ("" or with its slash) that match one part of a pattern, as whole names.
void MatchPart(const Files& files, const std::string& directory, const std::string& part,
               std::vector<std::string>& names) {
  std::vector<DirectoryEntry> entries;
  const std::string listed = directory.size() > 1 ? directory.substr(0, directory.size() - 1) : directory;
  if (!files.list(files.self, listed, entries)) return;
  for (const DirectoryEntry& entry : entries) {
    const std::string& name = entry.name;
    if (names.size() >= kMostNames) return;
    if (name == "." || name == "..") continue;
    if (::fnmatch(part.c_str(), name.c_str(), FNM_PERIOD | FNM_NOESCAPE) == 0) names.push_back(directory + name);
  }
}

std::vector<std::string> PartsOf(const std::string& path) {  // a leading "/" is a part of its own
  std::vector<std::string> parts;
  if (path[0] == '/') parts.emplace_back("/");
  for (std::size_t at = 0; at < path.size();) {
    const std::size_t slash = std::min(path.find('/', at), path.size());
    if (slash > at) parts.push_back(path.substr(at, slash - at));
    at = slash + 1;
  }
  return parts;
}

}  // namespace

bool has_wildcards(std::string_view name) {
  if (name.find_first_of("*?") != std::string_view::npos) return true;
  const std::size_t open = name.find('[');
  return open != std::string_view::npos && name.find(']', open) != std::string_view::npos;
}

bool is_pattern(const Files& files, const std::string& name) {
  return has_wildcards(name) && !files.facts(files.self, name).exists;
}

void list_matching_files(const Files& files, const std::string& pattern, std::vector<std::string>& names) {
  names.clear();
  if (pattern.empty() || pattern.back() == '/') return;
  const std::vector<std::string> parts = PartsOf(pattern);
  std::vector<std::string> stems = {""};
  for (const std::string& part : parts) {
    std::vector<std::string> next;
    for (const std::string& stem : stems) {
      const std::string directory = stem.empty() || stem.back() == '/' ? stem : stem + "/";
      if (has_wildcards(part)) MatchPart(files, directory, part, next);
      else next.push_back(directory + part);
    }
    // All but the last part must be directories.
    if (&part != &parts.back()) std::erase_if(next, [&](const std::string& name) { return !IsDirectory(files, name); });
    stems = std::move(next);
  }
  for (const std::string& name : stems) {
    const FileFacts facts = files.facts(files.self, name);
    if (facts.exists && !facts.directory) names.push_back(name);
  }
  std::sort(names.begin(), names.end());
}

}  // namespace zaview
