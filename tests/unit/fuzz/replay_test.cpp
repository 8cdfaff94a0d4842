// Every input that the fuzz targets started from, or once failed on, goes through the whole program again.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
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

TEST(FuzzReplay, PrimaryFiles) {
  Replay("primary_file", TryPrimaryFile);
}

TEST(FuzzReplay, Companions) {
  Replay("companion", TryPrimaryFile);
}

TEST(FuzzReplay, ControlTexts) {
  Replay("control_text", TryControlText);
}

TEST(FuzzReplay, IrfSections) {
  Replay("irf_sections", TryIrfSections);
}

TEST(FuzzReplay, ScriptTexts) {
  Replay("script_text", TryScriptText);
}

TEST(FuzzReplay, KinoFiles) {
  Replay("kino_motions", TryKinoFiles);
}

TEST(FuzzReplay, KinoSeas) {
  Replay("kino_sea", TryKinoSea);
}

TEST(FuzzReplay, Phases) {
  Replay("phases", TryPhases);
}

TEST(FuzzReplay, ModuleTexts) {
  Replay("module_text", TryModuleText);
}

TEST(FuzzReplay, Geometries) {
  Replay("geometry", TryGeometry);
}

}  // namespace
}  // namespace zaview
