// The picture of the main window to a file.
#pragma once

#include "base/platform.h"
#include "gks/gks_state.h"

namespace zaview {

// option: -1 and 6 numbered PNG, 5 gl.png, 1 gl.gif, 2 numbered GIF, 3 gl.bmp, 4 numbered BMP. A name that was ordered
// comes first, with the format of its extension; it counts once. Behind a GIF or BMP file stands the same picture as
// gl.png.
void GKSDUMP(const Platform& platform, GksState& gks, int option);

}  // namespace zaview
