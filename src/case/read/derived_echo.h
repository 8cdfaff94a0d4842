// The two sections behind the control text of a run file: how its geometry files are put together (parsing data) and
// what the simulation derived from its input (derived data).
#pragma once

#include <cstdint>
#include <string_view>

#include "base/platform.h"
#include "case/case_store.h"
#include "control/control_text.h"

namespace zaview {

inline constexpr std::string_view kParsingError = "ERR407 - Error reading file parsing data";
inline constexpr std::string_view kIllegalNship = "         Illegal NSHIP value";
inline constexpr std::string_view kIllegalNfgeom = "         Illegal NFGEOM value";
inline constexpr std::string_view kIllegalNcompr = "         Illegal NCOMPR value";
inline constexpr std::string_view kIllegalSyminpf = "         Illegal SYMINPF value";
inline constexpr std::string_view kTooManyShips = "ERR419 - Too many ships (dynamic systems)";
inline constexpr std::string_view kShipLimit = "         File has NSHIP= {} while MAXDYN= {}";
inline constexpr std::string_view kGeometryListMemory = "ERR??? - Error allocating arrays for geometry file list";
inline constexpr std::string_view kDerivedError = "ERR407 - Error reading derived data echo";
inline constexpr std::string_view kDerivedMemory = "ERR??? - Error allocating memory to read derived data echo";

inline constexpr int kGeometryFilesKept = 1000;      // rows kept; all further files of a list share the last row
inline constexpr int kGeometryFilesRead = 1000000;   // a longer list counts as one that can't be allocated
inline constexpr std::size_t kUnnamedKept = 100000;  // values kept behind the cuts; the rest is read and dropped

enum class SectionStatus : std::uint8_t { ok, failed };  // failed: the message has been said

// NSHIP, NFGEOM and the geometry files, by fresh.labels. text begins behind the FILE_PARSING_DATA line.
[[nodiscard]] SectionStatus ReadParsingData(const Console& console, HeaderText& text, CaseStore& fresh);

// Mass, inertia and centre of each ship, the cuts and the unnamed scalars, to END_OF_HEADER; needs fresh.control.
// Switches that an old file lacks come from record 29 and $YCUTLOADS:. Y cuts that it lacks come from there too.
[[nodiscard]] SectionStatus ReadDerivedData(const Console& console, HeaderText& text, CaseStore& fresh);

}  // namespace zaview
