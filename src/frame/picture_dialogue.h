// The dialogue of the main menu about pictures: their style, and a page of several.
#pragma once

#include "base/platform.h"
#include "gks/kernel/gks_state.h"

namespace zaview {

// A page that is open is written first. While one is open every picture of a view that is written without a name goes
// onto it.
void AskPictures(const Platform& platform, GksState& gks);

}  // namespace zaview
