// The impulse response functions of an impulsive run, which stand between header and steps.
#pragma once

#include <cstdint>

#include "base/line_source.h"
#include "base/platform.h"
#include "case/case_store.h"

namespace zaview {

enum class IrfStatus : std::uint8_t { ok, failed };  // failed: the message has been said

// Reads from behind the END_OF_HEADER line into fresh.irfs, and sets rvm. For a transient added mass run the stream is
// left at the first byte behind the end line, where the steps begin; for an IRF run nothing behind that line matters.
[[nodiscard]] IrfStatus ReadIrfSections(const Console& console, LineSource& source, CaseStore& fresh);

}  // namespace zaview
