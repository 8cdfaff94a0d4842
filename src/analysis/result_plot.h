// What an analysis has to show as a picture: panels one below the other, each with axes of its own. Data only, in the
// units of its tables.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace zaview {

enum class ResultStyle : unsigned char { line, points, dashed };

struct ResultCurve {
  std::string name;         // in the legend; blank: not there
  std::vector<float> x, y;  // of one length; what is not finite parts the line
  ResultStyle style = ResultStyle::line;
};

struct ResultPanel {
  std::string x_name, y_name;  // with their units
  std::vector<ResultCurve> curves;
  std::vector<std::pair<float, float>> bands;  // stretches of x that are marked: the range of positive stability
  std::vector<std::string> notes;              // lines beside the curves
  bool log_y = false;                          // y is the logarithm, to base 10, of what the axis shows
};

struct ResultPlot {
  std::string title;
  std::vector<ResultPanel> panels;  // none: there is nothing to be shown
};

}  // namespace zaview
