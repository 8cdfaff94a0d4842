// What the fuzz targets and the replay test share. An input may hold two files: the second stands behind a line "%%%%".
// Each routine runs the program, or the readers of the file, on a machine in memory and ends the process if a file
// stays open.
#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace zaview {

inline std::pair<std::string_view, std::string_view> TwoFiles(std::string_view input) {
  constexpr std::string_view kBorder = "\n%%%%\n";
  const std::size_t border = input.find(kBorder);
  if (border == std::string_view::npos) return {input, {}};
  return {input.substr(0, border + 1), input.substr(border + kBorder.size())};
}

// input: a primary output file; the second file is what it names: its binary companion, or a module's file.
void TryPrimaryFile(std::string_view input);
// input: the control text of a run whose rest is good.
void TryControlText(std::string_view input);
// input: what stands behind the header of an impulsive run.
void TryIrfSections(std::string_view input);
// input: a script; the second file is what it includes.
void TryScriptText(std::string_view input);
// input: a KINO motions file; the second file is the seaway to it, none: calm.
void TryKinoFiles(std::string_view input);
// input: a table of measured data.
void TryTable(std::string_view input);
// input: a KINO seaway file.
void TryKinoSea(std::string_view input);
// input: a file of wave phases.
void TryPhases(std::string_view input);
// input: the modules of a control text; the second file is what they name.
void TryModuleText(std::string_view input);
// input: a line with the format's letter (small: half a body), UGEOMNORM and the number of surfaces, then a geometry
// file; the second file, of its own such line, is added to it.
void TryGeometry(std::string_view input);
// input: a model of crane and cargo; the second file is the cargo's geometry, "cargo".
void TryCrane(std::string_view input);
// input: a module of network data.
void TryNetworkData(std::string_view input);

}  // namespace zaview
