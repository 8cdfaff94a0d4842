// The picture of the main window to a file.
#pragma once

#include "base/platform.h"
#include "gks/kernel/gks_state.h"

namespace zaview {

// option: -1 and 6 numbered PNG, 5 gl.png, 1 gl.gif, 2 numbered GIF, 3 gl.bmp, 4 numbered BMP. A name that was ordered
// comes first, with the format of its extension; it counts once. Without one the picture goes onto the page that is
// open. Beside a GIF or BMP file the same picture stands as gl.png. False: it isn't written, which has been said.
bool GKSDUMP(const Platform& platform, GksState& gks, int option);

}  // namespace zaview
