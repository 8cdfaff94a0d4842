#include "frame/ground/output_set.h"

#include <fmt/format.h>

#include "base/message.h"

namespace zaview {

bool OpenAll(const Platform& platform, std::span<const std::string> names, std::string_view not_open,
             std::vector<OutputFile>& files) {
  files.clear();
  for (const std::string& name : names) {
    OutputFile& out = files.emplace_back();
    if (OpenOutput(platform, name, OpenHow::replace, out)) continue;
    Say(platform.console, fmt::runtime(not_open), name, Because(out.why));
    files.pop_back();
    DiscardAll(files);
    return false;
  }
  return true;
}

bool AreDifferent(const Console& console, std::span<const OutputFile> files, std::string_view same_name) {
  for (std::size_t i = 1; i < files.size(); ++i)
    for (std::size_t k = 0; k < i; ++k) {
      if (!SpoilEachOther(files[i], files[k])) continue;
      Say(console, fmt::runtime(same_name), files[k].name);
      return false;
    }
  return true;
}

bool CloseAll(const Console& console, std::span<OutputFile> files, const std::function<void(std::size_t)>& written,
              std::string_view not_written) {
  for (std::size_t i = 0; i < files.size(); ++i) {
    OutputFile& out = files[i];
    if (out.platform == nullptr) continue;
    if (CloseOutput(out)) {
      if (written) written(i);
      continue;
    }
    Say(console, fmt::runtime(not_written), out.name, Because(out.why));
    DiscardAll(files);
    return false;
  }
  return true;
}

void DiscardAll(std::span<OutputFile> files) {
  for (OutputFile& out : files) DiscardOutput(out);
}

}  // namespace zaview
