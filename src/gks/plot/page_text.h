// Texts, notes and boxes on the page, which every plot has beside its curves. Sizes are in page units.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "gks/plot/plot_layer.h"

namespace zaview {

// A line in the graph, thinned where points are closer than pixels.
void DrawThinned(PlotDraw draw, std::span<const float> x, std::span<const float> y);

// Solid, dashes, dots, chains of both, long dashes, short ones: six that can be told apart.
inline constexpr int kDashes = 6;
void SetDash(PlotDraw draw, int dash);

// At most 8 characters, as many digits as fit: "-12.3457", "1.23e12"; what is no number is 0.
[[nodiscard]] std::string ShortNumber(float value);

[[nodiscard]] float TextWidth(PlotDraw draw, std::string_view text, float height);
[[nodiscard]] float LetterHeight(PlotDraw draw, float height);  // as drawn, with room for descenders
[[nodiscard]] float LinePitch(PlotDraw draw, float height);     // of lines that don't touch
// The text, or as much of it as has room with "..." behind.
[[nodiscard]] std::string CutToWidth(PlotDraw draw, std::string_view text, float height, float width);

enum class TextSide : unsigned char { left, centre, right };  // of the text, at the point
// On the page, baseline at y, over everything. The character height of the page becomes `height`.
void PageText(PlotDraw draw, std::string_view text, float x, float y, float height, TextSide side);

struct PageNote {  // in the foreground colour, behind a dash of the line that it tells of
  std::string text;
  int colour = 0;  // 0: of no line
  int dash = 0;
  float dot = 0;  // size of the dots that it tells of; 0: of a line
};
// What notes in columns below the plot and its axis need; no columns: there are no notes.
struct NotesPlace {
  std::size_t rows = 0, columns = 0;
  float height = 0;  // of their letters: smaller where they would be wider than the page
  float depth = 0;   // from the lower edge of the area to that of the notes
};
// text_size: of the axis between. Of the area as it is: its left edge.
[[nodiscard]] NotesPlace PlaceOfNotes(PlotDraw draw, std::span<const PageNote> notes, float text_size, float height);
void PageNotes(PlotDraw draw, std::span<const PageNote> notes, const NotesPlace& place);
// Lines on paper of their own, their box's top left corner at x, top.
void PaperNotes(PlotDraw draw, std::span<const PageNote> notes, float x, float top, float height);
struct NotesSize {
  float width = 0, height = 0;  // of that box
};
[[nodiscard]] NotesSize SizeOfNotes(PlotDraw draw, std::span<const PageNote> notes, float height);

void PlainPaper(PlotDraw draw, float x, float y, float width, float height);
// A framed rectangle of paper on the page: what is drawn beneath can't be seen.
void PaperBox(PlotDraw draw, float x, float y, float width, float height);

}  // namespace zaview
