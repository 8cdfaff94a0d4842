// Reads a geometry file in one of its formats, chosen by a prefix of the name: SIMPLE:, NASTRAN:, HARLEND: or HRL:,
// SHAPE: (each also in lower case); none: ZAVO. Points are in the INPUT system and input lengths.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "base/platform.h"
#include "control/control_records.h"
#include "geometry/hull.h"

namespace zaview {

enum class GeometryFormat : std::uint8_t { none, zavo, simple, nastran, hrl };

struct GeometryName {
  GeometryFormat format = GeometryFormat::none;  // none: NONE or blank
  std::string qualifier;                         // what stood ahead of the colon
  std::string file;
};
// A word ahead of a colon that is no qualifier belongs to the name (ZAVO format).
[[nodiscard]] GeometryName SplitGeometryName(std::string_view name);

struct GeometryRequest {
  std::string_view name;    // with its prefix
  std::string_view folder;  // of the file that names it: looked in behind the working directory
  std::span<const GeometryComponentInput> components;  // of record 28, ZAVO format: as many surfaces are read
  bool to_the_end = false;                             // no record 28: a ZAVO file is read to its end
  double LENIN = 1;                                    // reference length, for what counts as the same node
  int UGEOMNORM = 1;
  bool half = false;           // y = 0 is the open side of a half body
  Vector3 ship_x = {1, 0, 0};  // the ship's X axis in input axes: where the transom is looked for
};

enum class GeometryStatus : std::uint8_t { ok, skipped, cannot_open, failed };  // told: failed only

// What is said of a file that is skipped; of one that can't be opened, with the name and WhyGeometryNotOpened.
inline constexpr std::string_view kGeometrySkipped =
    "NONE or blank name specified for geometry file: skipping geometry input";
inline constexpr std::string_view kGeometryNotOpen = "ERROR opening geometry file: {}{}";

// The path at which that file is; blank: there is none, or no name.
[[nodiscard]] std::string GeometryPath(const Files& files, std::string_view name, std::string_view folder);

// Why that file, or the one of that name here, isn't opened, for the end of a message (message.h).
[[nodiscard]] std::string WhyGeometryNotOpened(const Files& files, std::string_view name, std::string_view folder);

// Fills a fresh hull: one file, not reflected, not transformed. An unstructured surface is cleaned and oriented
// (surface_checks.h). On failure the hull is empty.
[[nodiscard]] GeometryStatus ReadGeometry(const Platform& platform, const GeometryRequest& request, Hull& hull);

}  // namespace zaview
