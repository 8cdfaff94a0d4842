// What must hold before a command reads its arguments.
#pragma once

#include <cstdint>
#include <string>

#include "script/script_call.h"

namespace zaview {

using Needs = std::uint8_t;
inline constexpr Needs kNone = 0;
inline constexpr Needs kNeedsCase = 1;        // D: the last step of a file is in store, or its IRFs
inline constexpr Needs kNeedsMotion = 2;      // R: the case is no impulsive motion or IRF case
inline constexpr Needs kNeedsGraphics = 4;    // G: there is something to draw on
inline constexpr Needs kNeedsEnsemble = 8;    // E: records of one or more files are in store
inline constexpr Needs kShortWords = 16;      // the first words of D and G stand without a colon
inline constexpr Needs kNeedsGeometry = 32;   // M: the hull of the case, which is read now if it wasn't
inline constexpr Needs kNeedsImpulsive = 64;  // an impulsive motion or IRF case, where R is the other ones

// "a run read, graphics"; blank: nothing.
[[nodiscard]] std::string NeedsInWords(Needs needs);

// True: the command may run. Else the first test that fails has said so.
[[nodiscard]] bool PreconditionsMet(const ScriptCall& call, Needs needs);

}  // namespace zaview
