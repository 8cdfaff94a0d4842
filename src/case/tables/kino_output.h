// The KINO file set of the case in store: motions (.mot), seaway (.sea) and the viewer's commands (.kno0).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/platform.h"
#include "case/case_store.h"
#include "case/output_settings.h"
#include "frame/ground/output_file.h"
#include "waves/kino_sea.h"

namespace zaview {

[[nodiscard]] KinoSeaUnits KinoUnitsOf(const OutputSettings& settings);  // of the files that are written

// The bodies of quantities 34 and 35, into an open output. Motions: comment line, LENOUT, then time, x y z, three
// angles in degrees of each step in use, in ZAVO signs. False (told): the seaway can't be built.
void WriteKinoMotions(const OutputSettings& settings, const CaseStore& case_store, OutputFile& out);
[[nodiscard]] bool WriteKinoSeaway(const Console& console, const OutputSettings& settings, CaseStore& case_store,
                                   OutputFile& out);

// How a viewer takes geometry in input coordinates to the motions, which are those of the CG:
// p' = lf_scale (R(grot) (p - gorig) + gshift), gshift from the CG. Says nothing where no geometry is known.
void SayKinoTransformation(const Console& console, const OutputSettings& settings, const CaseStore& case_store);

enum class KinoSet : std::uint8_t { ok, refused, failed };  // told

// All three files; a blank root is the case's base name.
[[nodiscard]] KinoSet write_kino_files(const Platform& platform, std::string_view root, const OutputSettings& settings,
                                       CaseStore& case_store);

}  // namespace zaview
