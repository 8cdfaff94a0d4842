// The kernel's control functions and attributes, by their GKS names. Nothing is kept of a picture. Pixels count from
// the top left.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/platform.h"
#include "gks/kernel/gks_state.h"

namespace zaview {

// GKS 2 .. closed. GOPWK resets every attribute and transformation; GACWK activates.
void GOPKS(GksState& gks);
void GOPWK(GksState& gks);
void GACWK(GksState& gks);
void GDAWK(GksState& gks);
void GCLWK(GksState& gks);
void GCLKS(GksState& gks);
void gksOpenTo(GksState& gks, GksLevel level);  // only as far as needed; clears on arrival at active
// Begins a picture of the main window, drawn in memory with smooth edges.
void gksBeginPicture(const WindowSystem& windows, GksState& gks);
// Bodies in that picture: what OpenGL draws between these two stands in it behind the second, in place of all that it
// held. Smooth: edges too. False, with the cause: it can't be drawn.
[[nodiscard]] bool gksBeginScene(const WindowSystem& windows, const GksState& gks, bool smooth, std::string& why);
[[nodiscard]] bool gksEndScene(const WindowSystem& windows, GksState& gks, std::string& why);
void GCLRWK(const GksState& gks);                             // to the paper's colour
void GUWK(const WindowSystem& windows, const GksState& gks);  // ends a picture

// Colour indices: below 0 becomes 1, above 256 becomes 256, said once in a run.
void GSPLCI(const Console& console, GksState& gks, int index);
void GSPMCI(const Console& console, GksState& gks, int index);
void GSTXCI(const Console& console, GksState& gks, int index);
void GSFACI(const Console& console, GksState& gks, int index);
void gksSetColours(const Console& console, GksState& gks, int index);  // all four
// 0 and 1 can't be set. On white paper colours are mapped so that they stay visible.
void GSCR(const Console& console, GksState& gks, int index, GksColour colour);
[[nodiscard]] GksColour GQCR(const Console& console, const GksState& gks, int index);
[[nodiscard]] bool gksIsWhite(const GksState& gks);   // the paper: by reverse video, or by the style of pictures
void gksSetStyle(GksState& gks, PictureStyle style);  // colours become the defaults, as below
void gksSetReverse(GksState& gks, bool on);  // background, foreground and all colours become the defaults of the mode

void GSLN(GksState& gks, int type);           // 2 to 5 stippled, any other solid
void gksLineStyle(GksState& gks, int style);  // of the polyline: 0 to 4 by GSLN, 5 long dashes, 6 short ones, 7 dots
void GSLWSC(GksState& gks, float scale);
void GSMK(GksState& gks, int type);  // modulo 22
void GSMKSC(GksState& gks, float scale);
void GSCHH(GksState& gks, float height);
void GSCHUP(GksState& gks, float x, float y);  // a zero vector changes nothing
void GSTXAL(GksState& gks, int horizontal, int vertical);
void GSFAIS(GksState& gks, int style);
void GSCLIP(GksState& gks, int flag);  // on: 1

// GLREVERSE, GLBITFONT and GLWINDOWSIZE as the environment has them; null: not set.
struct GksEnvironment {
  const char* reverse = nullptr;
  const char* bitmap_font = nullptr;
  const char* window_size = nullptr;
  const char* dump_only = nullptr;
};
void gksTakeEnvironment(const Console& console, const GksEnvironment& environment, GksState& gks);

inline constexpr int kLargestWindow = 16384;  // pixels a side; what OpenGL can draw into
inline constexpr std::size_t kDumpName = 60;  // characters of a picture's file name

// "on", "off" set and clear dump-only mode; any other word is the name of the next picture's file.
void gksSetDumpOption(GksState& gks, std::string_view word);

}  // namespace zaview
