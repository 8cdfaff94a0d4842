// The help of the data plot: the mouse, then the lines of the keys that act on this kind of plot.
#include <string>
#include <vector>

#include "gks/window/text_screen.h"
#include "views/data_plot/data_plot.h"
#include "views/data_plot/data_plot_keys.h"

namespace zaview {

namespace {

constexpr std::string_view kMouseHelp[] = {
    "The plot is controlled by the mouse and keyboard...",
    "Two LEFT mouse clicks in the picture zooms in to the rectangle defined.",
    "   by the clicks.",
    "A LEFT mouse click outside the picture returns to",
    "   the original view.",
    "A RIGHT mouse click in the picture measures the value of that",
    "   point on the plot.",
    " Key    Function",
};

}  // namespace

void zaviewhelp(const Session& session, std::vector<std::string>& lines) {
  lines.assign(std::begin(kMouseHelp), std::end(kMouseHelp));
  for (const PlotKey& key : DataPlotKeys()) {
    if ((key.kinds & In(session.data_plot.kind)) == 0) continue;
    for (const std::string_view line : key.help)
      if (!line.empty()) lines.emplace_back(line);
  }
}

void ShowPlotHelp(Session& session) {
  std::vector<std::string> lines;
  zaviewhelp(session, lines);
  for (std::size_t i = 0; i < lines.size(); ++i) gksScreenLine(session.gks, lines[i], static_cast<int>(i));
  gksScreenShow(session.platform, session.gks);
}

}  // namespace zaview
