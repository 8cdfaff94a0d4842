// Main menu options that end in a view: their questions, then the plot.
#pragma once

#include "frame/session.h"

namespace zaview {

// Each asks for a quantity and, as the kind of plot needs it, for more; StartPlot makes the view the next thing that
// happens. option: of the main menu.
void MenuHistory(Session& session, int option);
void MenuHistogram(Session& session, int option);
void MenuResult(Session& session, int option);
void MenuTrajectory(Session& session, int option);
void MenuAnimation(Session& session, int option);
void MenuLoads(Session& session, int option);
void MenuIntervals(Session& session, int option);
void MenuAutocorrelation(Session& session, int option);
void MenuSpectrum(Session& session, int option);  // these three: a table, or on the word PLOT the plot
void MenuExtremes(Session& session, int option);
void MenuRainflow(Session& session, int option);
void MenuGeometry(Session& session, int option);  // asks nothing

}  // namespace zaview
