// Every input that the fuzz targets started from, or once failed on, goes through the whole program again.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "fuzz/try_input.h"
#include "project_places.h"

namespace zaview {
namespace {

void Replay(const std::string& target, void (*attempt)(std::string_view)) {
  std::vector<std::filesystem::path> inputs;
  for (const auto& entry : std::filesystem::directory_iterator(ProjectFile("fuzz/corpus/") + target))
    inputs.push_back(entry.path());
  std::sort(inputs.begin(), inputs.end());
  ASSERT_FALSE(inputs.empty());
  for (const std::filesystem::path& path : inputs) {
    SCOPED_TRACE(path.filename().string());
    std::ifstream file(path, std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    attempt(bytes);
  }
}

// clang-format off
constexpr std::pair<const char*, void (*)(std::string_view)> kTargets[] = {
    {"primary_file", TryPrimaryFile}, {"companion", TryPrimaryFile}, {"control_text", TryControlText},
    {"irf_sections", TryIrfSections}, {"script_text", TryScriptText}, {"kino_motions", TryKinoFiles},
    {"table", TryTable}, {"kino_sea", TryKinoSea}, {"phases", TryPhases}, {"module_text", TryModuleText},
    {"geometry", TryGeometry}, {"crane", TryCrane}, {"network_data", TryNetworkData}};
// clang-format on

TEST(FuzzReplay, EveryTarget) {
  for (const auto& [target, attempt] : kTargets) Replay(target, attempt);
}

}  // namespace
}  // namespace zaview
