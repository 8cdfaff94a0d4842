// The program behind its platform: tests call this with a platform of their own.
#pragma once

#include <span>
#include <string>

#include "base/platform.h"

namespace zaview {

// Runs the whole program; the result is the exit status. (A fatal stop leaves through zaview_exit.)
[[nodiscard]] int zaview_main(const Platform& platform, std::span<const std::string> arguments);

}  // namespace zaview
