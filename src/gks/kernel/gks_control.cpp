#include "gks/kernel/gks_control.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>

#include <fmt/format.h>

#include "base/message.h"
#include "base/number_parse.h"
#include "base/text.h"
#include "gks/kernel/primitives.h"

namespace zaview {

namespace {

constexpr std::string_view kBelow = " < 0";
constexpr std::string_view kAbove = " > GKS_MAX_COLORS";
constexpr fmt::string_view kBadIndex = "GLGKS WARNING: illegal color index in {}: {}{}";
constexpr fmt::string_view kBadQuery = "GLGKS WARNING : illegal color index in GQCR: {}{}";
constexpr std::string_view kNotSetable = "GLGKS WARNING: color indices 0 and 1 not setable in GSCR";
constexpr std::string_view kBadWindowSize = "GLGKS ERROR : GLWINDOWSIZE value invalid";

constexpr float kDegrees = 180.0F / 3.1415925F;
constexpr std::size_t kSwitchText = 80, kNotSetColumns = 8;  // columns that are looked at

std::string_view OutOfRange(int index) {
  return index < 0 ? kBelow : kAbove;
}
bool IsColour(int index) {
  return index >= 0 && index <= GKS_MAX_COLORS;
}

int TakeIndex(const Console& console, GksState& gks, std::string_view routine, int index) {
  if (IsColour(index)) return index;
  if (!gks.colour_warned) Say(console, kBadIndex, routine, index, OutOfRange(index));
  gks.colour_warned = true;
  return index < 0 ? 1 : GKS_MAX_COLORS;
}

// A colour chosen for black paper, as it stays visible on white.
GksColour OnWhite(GksColour colour) {
  constexpr float kSame = 0.001F;
  const auto [low, high] = std::minmax({colour.red, colour.green, colour.blue});
  if (high < kSame) return {1.0F, 1.0F, 1.0F};
  if (low > 1.0F - kSame) return {0.0F, 0.0F, 0.0F};
  if (high - low <= kSame) return colour;
  return {colour.red * 0.8F, colour.green * 0.8F, colour.blue * 0.8F};
}

bool BeginsWithAny(std::string_view text, std::initializer_list<std::string_view> words) {
  return std::any_of(words.begin(), words.end(), [text](std::string_view word) { return StartsWith(text, word); });
}

bool IsSwitchedOn(const char* value, bool not_set) {
  const std::string_view text = std::string_view(value == nullptr ? "" : value).substr(0, kSwitchText);
  if (IsBlank(text.substr(0, kNotSetColumns))) return not_set;
  return !BeginsWithAny(text, {"OFF", "off", "FALSE", "false", "NO", "no"});
}

bool ParseSide(std::string_view text, int& side) {
  return ParseInteger(Trim(text), side) && side > 0 && side <= kLargestWindow;
}

void TakeWindowSize(const Console& console, std::string_view text, GksWindow& window) {
  const std::size_t x = text.find('x');
  if (x == std::string_view::npos) return;
  int width = 0, height = 0;
  if (!ParseSide(text.substr(0, x), width) || !ParseSide(text.substr(x + 1), height)) {
    SayLine(console, kBadWindowSize);
    return;
  }
  window.width = width;
  window.height = height;
}

}  // namespace

void GOPKS(GksState& gks) {
  gks.level = GksLevel::open;
}

void GOPWK(GksState& gks) {
  gks.level = GksLevel::workstation;
  gks.attribute = GksAttributes{};
  gks.transform.fill(GksTransform{});
  gks.selected = 1;
  gks.ws_window = GksRectangle{};
  const float side = static_cast<float>(std::min(gks.window.width, gks.window.height));
  gks.ws_viewport = {0.0F, side, 0.0F, side};
}

void GACWK(GksState& gks) {
  gks.level = GksLevel::active;
}
void GDAWK(GksState& gks) {
  gks.level = GksLevel::workstation;
}
void GCLWK(GksState& gks) {
  gks.level = GksLevel::open;
}
void GCLKS(GksState& gks) {
  gks.level = GksLevel::closed;
}

void gksOpenTo(GksState& gks, GksLevel level) {
  if (gks.level < GksLevel::open && level >= GksLevel::open) GOPKS(gks);
  if (gks.level < GksLevel::workstation && level >= GksLevel::workstation) GOPWK(gks);
  if (gks.level >= GksLevel::active || level < GksLevel::active) return;
  GACWK(gks);
  GCLRWK(gks);
}

void gksBeginPicture(const WindowSystem& windows, GksState& gks) {
  PictureImage* const image = windows.begin_image(windows.self, gks.window.id);
  gks.paint = image == nullptr ? GksPaint{} : ImagePaint(*image);
}

bool gksBeginScene(const WindowSystem& windows, const GksState& gks, bool smooth, std::string& why) {
  return windows.begin_scene(windows.self, gks.window.id, smooth, why);
}

bool gksEndScene(const WindowSystem& windows, GksState& gks, std::string& why) {
  PictureImage* const image = windows.end_scene(windows.self, gks.window.id, why);
  if (image != nullptr && gks.paint.scalable) gks.paint.image(gks.paint.self, *image);
  else gks.paint = image == nullptr ? GksPaint{} : ImagePaint(*image);
  return image != nullptr;
}

void GCLRWK(const GksState& gks) {
  gks.paint.clear(gks.paint.self, gks.colour[0]);
}

void GUWK(const WindowSystem& windows, const GksState& gks) {
  gks.paint.finish(gks.paint.self);
  windows.present(windows.self, gks.window.id);
}

void GSPLCI(const Console& console, GksState& gks, int index) {
  gks.attribute.polyline_colour = TakeIndex(console, gks, "GSPLCI", index);
}
void GSPMCI(const Console& console, GksState& gks, int index) {
  gks.attribute.marker_colour = TakeIndex(console, gks, "GSPMCI", index);
}
void GSTXCI(const Console& console, GksState& gks, int index) {
  gks.attribute.text_colour = TakeIndex(console, gks, "GSTXCI", index);
}
void GSFACI(const Console& console, GksState& gks, int index) {
  gks.attribute.fill_colour = TakeIndex(console, gks, "GSFACI", index);
}
void gksSetColours(const Console& console, GksState& gks, int index) {
  GSFACI(console, gks, index);
  GSPLCI(console, gks, index);
  GSPMCI(console, gks, index);
  GSTXCI(console, gks, index);
}

void GSCR(const Console& console, GksState& gks, int index, GksColour colour) {
  if (!IsColour(index)) {
    Say(console, kBadIndex, "GSCR", index, OutOfRange(index));
    return;
  }
  if (index < 2) {
    SayLine(console, kNotSetable);
    return;
  }
  gks.colour[static_cast<std::size_t>(index)] = gksIsWhite(gks) ? OnWhite(colour) : colour;
}

GksColour GQCR(const Console& console, const GksState& gks, int index) {
  if (!IsColour(index)) Say(console, kBadQuery, index, OutOfRange(index));
  return gks.colour[static_cast<std::size_t>(std::clamp(index, 0, GKS_MAX_COLORS))];
}

bool gksIsWhite(const GksState& gks) {
  return gks.window.reverse_video || gks.style == PictureStyle::report;
}

void gksSetStyle(GksState& gks, PictureStyle style) {
  gks.style = style;
  gksSetReverse(gks, gks.window.reverse_video);
}

void gksSetReverse(GksState& gks, bool on) {
  constexpr GksColour kBlack{0.0F, 0.0F, 0.0F}, kWhite{1.0F, 1.0F, 1.0F};
  gks.window.reverse_video = on;
  const bool white = gksIsWhite(gks);
  gks.colour.fill(white ? kBlack : kWhite);
  gks.colour[0] = white ? kWhite : kBlack;
}

void GSLN(GksState& gks, int type) {
  gks.attribute.line_style = type >= 2 && type <= 5 ? type - 1 : 0;
}
void gksLineStyle(GksState& gks, int style) {
  gks.attribute.line_style = style;
}
void GSLWSC(GksState& gks, float scale) {
  gks.attribute.line_width = scale > 1.0F ? scale : 1.0F;
}
void GSMK(GksState& gks, int type) {
  gks.attribute.marker_type = (type % kMarkerTypes + kMarkerTypes) % kMarkerTypes;
}
void GSMKSC(GksState& gks, float scale) {
  gks.attribute.marker_scale = scale;
}
void GSCHH(GksState& gks, float height) {
  gks.attribute.char_height = height;
}

void GSCHUP(GksState& gks, float x, float y) {
  const float length = std::sqrt(x * x + y * y);
  if (!(length > 0.0F) || !std::isfinite(length)) return;
  gks.attribute.up_x = x / length;
  gks.attribute.up_y = y / length;
  gks.attribute.text_rotation = 90.0F - std::atan2(y, x) * kDegrees;
}

void GSTXAL(GksState& gks, int horizontal, int vertical) {
  gks.attribute.align_x = horizontal;
  gks.attribute.align_y = vertical;
}

void GSFAIS(GksState& gks, int style) {
  gks.attribute.fill_style = style;
}
void GSCLIP(GksState& gks, int flag) {
  gks.attribute.clip = flag == 1;
}

void gksTakeEnvironment(const Console& console, const GksEnvironment& environment, GksState& gks) {
  gksSetReverse(gks, IsSwitchedOn(environment.reverse, false));
  gks.window.bitmap_font = IsSwitchedOn(environment.bitmap_font, true);
  if (environment.window_size != nullptr && !gks.window.size_is_fixed)
    TakeWindowSize(console, environment.window_size, gks.window);
  const char first = environment.dump_only == nullptr ? ' ' : environment.dump_only[0];
  if (first == 'T' || first == 'Y' || first == 't' || first == 'y') {
    gks.dump.dump_only = true;
    gks.dump.name.clear();
  }
  if (first == 'F' || first == 'N' || first == 'f' || first == 'n') gks.dump.dump_only = false;
}

void gksSetDumpOption(GksState& gks, std::string_view word) {
  const std::string_view text = TrimEnd(word);
  if (text.empty()) return;
  if (text == "off" || text == "Off" || text == "OFF") {
    gks.dump.dump_only = false;
    return;
  }
  const bool on = text == "on" || text == "On" || text == "ON";
  const bool automatic = text == "auto" || text == "Auto" || text == "AUTO";  // the next picture gets the next number
  gks.dump.name = on || automatic ? std::string_view() : text.substr(0, kDumpName);
  if (on) gks.dump.dump_only = true;
  else gks.dump.waiting = true;
}

}  // namespace zaview
