#include "analysis/sea_view/root_files.h"

#include <string>

#include "base/message.h"
#include "base/text.h"
#include "frame/ground/output_set.h"

namespace zaview {
namespace {

void SayOf(const Console& console, std::string_view words, std::string_view name) {
  if (!words.empty()) Say(console, "{}{}", words, name);
}

}  // namespace

bool OpenRootFiles(const Platform& platform, const CaseStore& case_store, std::string_view root,
                   std::span<const RootFile> rows, RootFiles& files) {
  const std::string stem(IsBlank(root) ? std::string_view(case_store.base_name) : Trim(root));
  std::vector<std::string> names;
  for (const RootFile& row : rows) names.push_back(stem + std::string(row.extension));
  files.rows.assign(rows.begin(), rows.end());
  if (!OpenAll(platform, names, kOutputNotOpen, files.out)) return false;
  for (std::size_t i = 0; i < rows.size(); ++i) SayOf(platform.console, rows[i].writing, names[i]);
  return true;
}

bool CloseRootFiles(const Console& console, RootFiles& files) {
  const auto written = [&](std::size_t i) { SayOf(console, files.rows[i].written, files.out[i].name); };
  return CloseAll(console, files.out, written, kFileNotWritten);
}

void DiscardRootFiles(RootFiles& files) {
  DiscardAll(files.out);
  files.out.clear();
}

}  // namespace zaview
