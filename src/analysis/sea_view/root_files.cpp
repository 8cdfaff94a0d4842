#include "analysis/sea_view/root_files.h"

#include <string>

#include "base/message.h"
#include "base/text.h"

namespace zaview {
namespace {

constexpr std::string_view kOpenFault = "ERROR opening output file: {}{}";
constexpr std::string_view kWriteFault = "ERROR writing file {}{}";

void SayOf(const Console& console, std::string_view words, std::string_view name) {
  if (!words.empty()) Say(console, "{}{}", words, name);
}

}  // namespace

bool OpenRootFiles(const Platform& platform, const CaseStore& case_store, std::string_view root,
                   std::span<const RootFile> rows, RootFiles& files) {
  const std::string stem(IsBlank(root) ? std::string_view(case_store.base_name) : Trim(root));
  files.rows.assign(rows.begin(), rows.end());
  files.out.clear();
  for (const RootFile& row : rows) {
    const std::string name = stem + std::string(row.extension);
    files.out.emplace_back();
    if (OpenOutput(platform, name, OpenHow::replace, files.out.back())) continue;
    Say(platform.console, kOpenFault, name, Because(files.out.back().why));
    files.out.pop_back();
    DiscardRootFiles(files);
    return false;
  }
  for (std::size_t i = 0; i < rows.size(); ++i) SayOf(platform.console, rows[i].writing, files.out[i].name);
  return true;
}

bool CloseRootFiles(const Console& console, RootFiles& files) {
  for (std::size_t i = 0; i < files.out.size(); ++i) {
    if (CloseOutput(files.out[i])) continue;
    Say(console, kWriteFault, files.out[i].name, Because(files.out[i].why));
    DiscardRootFiles(files);
    return false;
  }
  for (std::size_t i = 0; i < files.out.size(); ++i) SayOf(console, files.rows[i].written, files.out[i].name);
  return true;
}

void DiscardRootFiles(RootFiles& files) {
  for (OutputFile& out : files.out) DiscardOutput(out);
  files.out.clear();
}

}  // namespace zaview
