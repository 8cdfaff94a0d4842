// What the families of the plot layer share. Private to gks.
#pragma once

#include <string_view>

#include "gks/kernel/gks_transform.h"
#include "gks/plot/plot_layer.h"

namespace zaview {

inline constexpr int kPageTransform = 1, kGraphTransform = 2;

// Alignments of GSTXAL.
inline constexpr int kLeft = 1, kCentre = 2, kRight = 3;
inline constexpr int kTop = 1, kHalf = 3, kBase = 4, kBottom = 5;

// Selects a transformation for one call and the former one again at its end.
class SelectedTransform {
 public:
  SelectedTransform(GksState& gks, int number);
  ~SelectedTransform();
  SelectedTransform(const SelectedTransform&) = delete;
  SelectedTransform& operator=(const SelectedTransform&) = delete;

 private:
  GksState& gks_;
  int before_;
};

// All attributes are at the end what they were.
class SavedAttributes {
 public:
  explicit SavedAttributes(GksState& gks) : gks_(gks), before_(gks.attribute) {}
  ~SavedAttributes() { gks_.attribute = before_; }
  SavedAttributes(const SavedAttributes&) = delete;
  SavedAttributes& operator=(const SavedAttributes&) = delete;

 private:
  GksState& gks_;
  GksAttributes before_;
};

// The text that is drawn: without blanks at its end and without one "$" or NUL behind that.
[[nodiscard]] std::string_view PlotText(std::string_view text);

// On the page: letters of `height` page units, but drawn ones not so small that their strokes run together.
void SetLetterHeight(PlotDraw draw, float height);
// The same for text of the selected transformation.
void SetTextHeight(PlotDraw draw, float height);

// What a text of the selected transformation covers, by the text attributes; world.
[[nodiscard]] GksRectangle PlotTextBox(const GksState& gks, GksPoint at, std::string_view text);

}  // namespace zaview
