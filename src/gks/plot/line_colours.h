// Colours of lines that can be told from the background.
#pragma once

#include "gks/plot/plot_layer.h"

namespace zaview {

// Those of the look; others of 2 to 15 that can hardly be seen on their background become darker or lighter, as little
// as it takes. Behind dgFrame(2), for this picture.
void SetCurveColours(PlotDraw draw);

}  // namespace zaview
