// The impulse response functions of an impulsive run, which stand between header and steps.
#pragma once

#include <cstdint>

#include "base/line_source.h"
#include "base/platform.h"
#include "case/case_store.h"

namespace zaview {

enum class IrfStatus : std::uint8_t { ok, failed };  // failed: the message has been said

// Reads from behind the END_OF_HEADER line into fresh.irfs, and sets rvm: the first mode that SWTCH turns on, 0 if
// there is none. Needs the flags of the case: only an IRF run must have blocks. Behind each label stand its lists (18
// of 6 matrix rows, then one a step); files that put all data behind the end line, in the order of the labels, are read
// as well. For a transient added mass run the stream is left at the first byte behind all that, where the steps begin;
// for an IRF run nothing behind it matters.
[[nodiscard]] IrfStatus ReadIrfSections(const Console& console, LineSource& source, CaseStore& fresh);

[[nodiscard]] bool IsDiffraction(IrfKind kind);  // holds Froude-Krylov forces as well

}  // namespace zaview
