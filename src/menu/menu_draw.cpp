#include "menu/menu_draw.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "gks/kernel/fonts.h"
#include "gks/kernel/gks_state.h"
#include "menu/menu_window.h"

namespace zaview {

namespace {

using Type = MenuElementType;
using Kind = MenuItemType;

// All from background and foreground, so that menus are reversed with the window.
struct Inks {
  GksColour paper, ink, face, down, light, dark, groove, thumb, frame, faint;
};

GksColour Mix(GksColour from, GksColour to, float part) {
  const auto mix = [part](float a, float b) { return a + part * (b - a); };
  return {mix(from.red, to.red), mix(from.green, to.green), mix(from.blue, to.blue)};
}

Inks InksOf(const GksState& gks, bool deaf) {
  const GksColour paper = gks.colour[0];
  const bool on_white = paper.red + paper.green + paper.blue > 1.5F;
  const GksColour faint = Mix(paper, gks.colour[1], 0.42F), ink = deaf ? faint : gks.colour[1];
  const GksColour face = Mix(paper, gks.colour[1], on_white ? 0.10F : 0.20F);
  const GksColour darker = Mix(face, {0, 0, 0}, on_white ? 0.30F : 0.55F),
                  lighter = Mix(face, {1, 1, 1}, on_white ? 0.9F : 0.25F);
  const auto part = [&](float of_ink) { return Mix(paper, gks.colour[1], of_ink); };
  const GksColour down = part(on_white ? 0.30F : 0.48F), groove = part(on_white ? 0.06F : 0.14F),
                  thumb = part(on_white ? 0.34F : 0.42F);
  return {paper, ink, face, down, lighter, darker, groove, thumb, part(0.5F), faint};
}

struct Brush {
  const MenuToolkit& kit;
  const MenuSlot& slot;
  const GksPaint& paint;
  const MenuFont& font;
  Inks inks;
};

// ---- Shapes

void Fill(const Brush& b, GksColour colour, const MenuBox& box) {
  if (box.width < 1 || box.height < 1) return;
  const auto x0 = static_cast<float>(box.x), y0 = static_cast<float>(box.y), x1 = static_cast<float>(box.x + box.width),
             y1 = static_cast<float>(box.y + box.height);
  b.paint.fill(b.paint.self, colour, std::array<GksPoint, 4>{{{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}}});
}

MenuBox Inset(const MenuBox& box, int by) {
  return {box.x + by, box.y + by, box.width - 2 * by, box.height - 2 * by};
}

void Edges(const Brush& b, GksColour upper_left, GksColour lower_right, const MenuBox& box) {
  Fill(b, upper_left, {box.x, box.y, box.width, 1});
  Fill(b, upper_left, {box.x, box.y, 1, box.height});
  Fill(b, lower_right, {box.x, box.y + box.height - 1, box.width, 1});
  Fill(b, lower_right, {box.x + box.width - 1, box.y, 1, box.height});
}

void Frame(const Brush& b, GksColour colour, const MenuBox& box) {
  Edges(b, colour, colour, box);
}

void Button(const Brush& b, const MenuBox& box, bool down) {
  Frame(b, b.inks.frame, box);
  Fill(b, down ? b.inks.down : b.inks.face, Inset(box, 1));
  Edges(b, down ? b.inks.dark : b.inks.light, down ? b.inks.light : b.inks.dark, Inset(box, 1));
}

void FocusRing(const Brush& b, GksColour colour, const MenuBox& box) {
  constexpr std::uint16_t kDots = 0x5555;
  const auto x0 = static_cast<float>(box.x), y0 = static_cast<float>(box.y),
             x1 = static_cast<float>(box.x + box.width - 1), y1 = static_cast<float>(box.y + box.height - 1);
  b.paint.line(b.paint.self, {colour, 1, kDots},
               std::array<GksPoint, 5>{{{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}, {x0, y0}}});
}

void Triangle(const Brush& b, GksColour colour, const MenuBox& box, bool up) {
  const float x = static_cast<float>(box.x) + 0.5F * static_cast<float>(box.width),
              y = static_cast<float>(box.y) + 0.5F * static_cast<float>(box.height);
  const float half = 0.5F * static_cast<float>(std::min(box.width - 6, 2 * (box.height - 4)));
  const float tip = 0.5F * half * (up ? -1.0F : 1.0F);
  b.paint.fill(b.paint.self, colour, std::array<GksPoint, 3>{{{x - half, y - tip}, {x + half, y - tip}, {x, y + tip}}});
}

void Disc(const Brush& b, GksColour colour, const MenuBox& box) {
  constexpr int kCorners = 24;
  constexpr float kTurn = 6.2831853F / kCorners;
  std::array<GksPoint, kCorners> ring{};
  const float radius = 0.5F * static_cast<float>(box.width);
  for (std::size_t i = 0; i < ring.size(); ++i) {
    const float angle = kTurn * static_cast<float>(i);
    ring[i] = {static_cast<float>(box.x) + radius * (1 + std::cos(angle)),
               static_cast<float>(box.y) + radius * (1 + std::sin(angle))};
  }
  b.paint.fill(b.paint.self, colour, ring);
}

// ---- Text

// Indices beyond the palette come again from its first colour on.
GksColour ColourOf(const Brush& b, int index, bool disabled) {
  constexpr int kFirst = 2, kLast = 15;
  if (disabled) return b.inks.faint;
  if (index == 1 || index < 0) return b.inks.ink;
  if (index > kLast) index = kFirst + (index - kFirst) % (kLast + 1 - kFirst);
  return b.slot.status == MenuStatus::disabled && index > 0 ? b.inks.faint
                                                            : b.kit.gks->colour[static_cast<std::size_t>(index)];
}

// Letters that the fonts have, in the middle of the box's height.
void Letters(const Brush& b, GksColour colour, int x, const MenuBox& box, std::string_view letters) {
  const int baseline = box.y + (box.height + b.font.cap + 1) / 2;
  gksDrawBitmapText(b.paint, colour, {static_cast<float>(x), static_cast<float>(baseline)}, b.font.font, false,
                    letters);
}

void Text(const Brush& b, GksColour colour, int x, const MenuBox& box, std::string_view text) {
  Letters(b, colour, x, box, FittingText(b.font, text, box.x + box.width - x));
}

void CentredText(const Brush& b, GksColour colour, const MenuBox& box, std::string_view text, int shift) {
  const std::string shown = FittingText(b.font, text, box.width - 4);
  const int width = LettersWidth(b.font, shown);
  const MenuBox place = {box.x + shift, box.y + shift, box.width, box.height};
  Letters(b, colour, place.x + (box.width - width) / 2, place, shown);
}

// ---- Items of rows

bool IsPressed(const Brush& b, int element, int item) {
  return b.kit.pressed == MenuPoint{b.slot.number, element, item};
}

bool IsFocused(const Brush& b, int element, int item) {
  return b.kit.focus == MenuPoint{b.slot.number, element, item};
}

// Two strokes, from the left side over the foot to the upper right corner.
void Tick(const Brush& b, GksColour colour, const MenuBox& square) {
  const auto at = [&](float x, float y) {
    return GksPoint{static_cast<float>(square.x) + x * static_cast<float>(square.width),
                    static_cast<float>(square.y) + y * static_cast<float>(square.height)};
  };
  b.paint.fill(b.paint.self, colour,
               std::array<GksPoint, 6>{{at(0.18F, 0.50F), at(0.30F, 0.40F), at(0.44F, 0.58F), at(0.74F, 0.16F),
                                        at(0.86F, 0.26F), at(0.45F, 0.84F)}});
}

void CheckMark(const Brush& b, const MenuBox& square, bool on, bool round, bool disabled) {
  constexpr int kInside = 3;
  const GksColour edge = disabled ? b.inks.faint : b.inks.ink;
  if (round) {
    Disc(b, edge, square);
    Disc(b, b.inks.paper, Inset(square, 1));
    if (on) Disc(b, edge, Inset(square, kInside + 1));
    return;
  }
  Frame(b, edge, square);
  if (on) Tick(b, edge, square);
}

void DrawCaretAndSelection(const Brush& b, const MenuBox& field) {
  const TypeIn& t = b.kit.type_in;
  const std::string_view text = t.buffer;
  const auto x_of = [&](std::size_t at) {
    return field.x + MenuTextWidth(b.font, text.substr(t.first, std::max(at, t.first) - t.first));
  };
  const int right = field.x + field.width;
  const auto [from, to] = std::minmax(t.caret, t.anchor);
  const int x0 = std::min(x_of(from), right), x1 = std::min(x_of(to), right);
  Fill(b, Mix(b.inks.paper, b.inks.ink, 0.35F), {x0, field.y + 3, x1 - x0, field.height - 6});
  const std::string shown = ScreenText(text.substr(t.first));
  Letters(b, b.inks.ink, field.x, field, std::string_view(shown).substr(0, LettersWithin(b.font, shown, field.width)));
  Fill(b, b.inks.ink, {std::min(x_of(t.caret), right), field.y + 2, 2, field.height - 4});
}

void DrawTypeIn(const Brush& b, const MenuRowItem& item, const MenuBox& box, bool typing) {
  Fill(b, Mix(b.inks.paper, b.inks.face, 0.35F), box);
  Frame(b, typing ? b.inks.ink : item.disabled ? b.inks.groove : b.inks.frame, box);
  const MenuBox field = FieldOf(box);
  if (typing) return DrawCaretAndSelection(b, field);
  Text(b, ColourOf(b, item.colour, item.disabled), field.x, field, ShownValue(item));
}

void DrawArrows(const Brush& b, const MenuBox& box, bool pressed, bool disabled) {
  const int half = box.height / 2;
  const MenuBox upper = {box.x, box.y, box.width, half}, lower = {box.x, box.y + half, box.width, box.height - half};
  const GksColour colour = disabled ? b.inks.faint : b.inks.ink;
  Button(b, upper, pressed && !b.kit.pressed_lower);
  Button(b, lower, pressed && b.kit.pressed_lower);
  Triangle(b, colour, upper, true);
  Triangle(b, colour, lower, false);
}

void DrawChip(const Brush& b, const MenuRowItem& item, const MenuBox& box, bool down) {
  const MenuBox chip = {box.x, box.y, ChipWidth(b.font), box.height};
  Button(b, chip, down);
  Fill(b, ColourOf(b, item.value, false), Inset(chip, 3));
  Frame(b, b.inks.frame, Inset(chip, 3));
  for (int edge = 1; item.style == kChipChosen && edge < 3; ++edge) Frame(b, b.inks.ink, Inset(chip, edge));
  const int x = chip.x + chip.width + kBesideMark;
  if (!item.text.empty()) Text(b, b.inks.ink, x, box, item.text);
}

void DrawItem(const Brush& b, const MenuRowItem& item, const MenuBox& box, const MenuPoint& at, bool row_disabled) {
  const bool disabled = item.disabled || row_disabled;
  const GksColour colour = ColourOf(b, item.colour, disabled);
  const bool down = IsPressed(b, at.element, at.item) || (item.type == Kind::button && item.style == kButtonDown);
  const int square = MarkSide(b.font);
  const MenuBox mark = {box.x, box.y + (box.height - square) / 2, square, square};
  switch (item.type) {
    case Kind::label:
      Text(b, colour, box.x, box, item.text);
      break;
    case Kind::button:
    case Kind::file:
      Button(b, box, down);
      CentredText(b, colour, box, item.text, down ? 1 : 0);
      break;
    case Kind::check:
      CheckMark(b, mark, item.value != 0, item.style == kRoundCheck, disabled);
      if (!item.text.empty()) Text(b, colour, mark.x + square + kBesideMark, box, item.text);
      break;
    case Kind::integer:
    case Kind::real:
    case Kind::text:
      DrawTypeIn(b, item, box, b.kit.type_in.at == at);
      break;
    case Kind::colour:
      DrawChip(b, item, box, down);
      break;
    case Kind::arrows:
      DrawArrows(b, box, down, disabled);
      break;
    default:
      return;
  }
  if (IsFocused(b, at.element, at.item) && item.type != Kind::label) FocusRing(b, b.inks.ink, Inset(box, -2));
}

// ---- Elements

void DrawLines(const Brush& b, const MenuElement& element, const MenuBox& box) {
  MenuBox line = {box.x, box.y, box.width, b.font.pitch};
  const std::string_view text = element.text;
  for (std::size_t at = 0; at <= text.size(); line.y += b.font.pitch) {
    const std::size_t end = std::min(text.find('\n', at), text.size());
    Text(b, ColourOf(b, element.colour, element.disabled), line.x, line, text.substr(at, end - at));
    at = end + 1;
  }
}

void DrawScrollBar(const Brush& b, const MenuPlaced& placed, bool pressed) {
  Fill(b, b.inks.groove, placed.bar);
  Frame(b, b.inks.frame, placed.bar);
  Fill(b, pressed ? b.inks.ink : b.inks.thumb, Inset(placed.thumb, 2));
}

// Of several choices each has a tick of its own; the one choice is reversed.
void DrawListItem(const Brush& b, const MenuElement& element, const MenuListItem& item, const MenuBox& box) {
  const GksColour colour = ColourOf(b, item.colour, element.disabled);
  MenuBox inside = {box.x + 2, box.y, box.width - 4, box.height};
  if (!IsOneChoice(element.list)) {
    const int side = b.font.height;
    CheckMark(b, {inside.x, box.y + (box.height - side) / 2, side, side}, item.chosen, false, element.disabled);
    const int beside = TickWidth(b.font);
    inside = {inside.x + beside, inside.y, inside.width - beside, inside.height};
  } else if (item.chosen) {
    Fill(b, colour, box);
  }
  Text(b, item.chosen && IsOneChoice(element.list) ? b.inks.paper : colour, inside.x, inside, item.text);
}

void DrawList(const Brush& b, const MenuElement& element, const MenuPlaced& placed, int number) {
  Frame(b, element.disabled ? b.inks.groove : b.inks.frame, placed.box);
  const auto count = static_cast<int>(element.list.items.size());
  for (int line = 0; line < placed.lines && placed.top + line < count; ++line) {
    const MenuListItem& item = element.list.items[static_cast<std::size_t>(placed.top + line)];
    const MenuBox box = {placed.inner.x, placed.inner.y + line * b.font.pitch, placed.inner.width, b.font.pitch};
    DrawListItem(b, element, item, box);
    const bool reversed = item.chosen && IsOneChoice(element.list);
    if (IsFocused(b, number, placed.top + line + 1)) FocusRing(b, reversed ? b.inks.paper : b.inks.ink, box);
  }
  if (placed.bar.width > 0) DrawScrollBar(b, placed, IsPressed(b, number, 0));
}

void DrawRunBar(const Brush& b, const MenuElement& element, const MenuPlaced& placed, int number) {
  const MenuBox& track = placed.inner;
  const MenuBox groove = {track.x, track.y + track.height / 2 - 3, track.width, 6};
  Fill(b, b.inks.groove, groove);
  Frame(b, b.inks.frame, groove);
  Button(b, placed.thumb, b.kit.drag == MenuDrag::slider && IsPressed(b, number, 0));
  const int middle = placed.thumb.x + placed.thumb.width / 2;
  Fill(b, b.inks.ink, {middle, placed.thumb.y + 4, 1, placed.thumb.height - 8});
  for (int button = kPlayButton; button <= kOnButton; ++button) {
    const MenuBox& box = placed.items[static_cast<std::size_t>(button) - 1];
    const bool down = IsPressed(b, number, button);
    Button(b, box, down);
    CentredText(b, b.inks.ink, box, BarButtonText(button, element.run_bar.running), down ? 1 : 0);
  }
  const std::string times = RunBarTimes(element.run_bar);
  const MenuBox row = {placed.box.x, placed.items[0].y, placed.box.width, placed.items[0].height};
  Text(b, b.inks.ink, row.x + row.width - MenuTextWidth(b.font, times), row, times);
  if (IsFocused(b, number, 0)) FocusRing(b, b.inks.ink, Inset(track, -2));
}

void DrawElement(const Brush& b, const MenuElement& element, const MenuPlaced& placed, int number, int width) {
  switch (element.type) {
    case Type::text:
      return DrawLines(b, element, placed.box);
    case Type::list:
      return DrawList(b, element, placed, number);
    case Type::separator:
      return Fill(b, b.inks.frame, {0, placed.box.y, width, placed.box.height});
    case Type::run_bar:
      return DrawRunBar(b, element, placed, number);
    case Type::check_box: {
      CheckMark(b, placed.inner, element.value != 0, false, element.disabled);
      const int x = placed.inner.x + placed.inner.width + kBesideMark;
      Text(b, ColourOf(b, element.colour, element.disabled), x, placed.box, element.text);
      if (IsFocused(b, number, 0)) FocusRing(b, b.inks.ink, Inset(placed.inner, -2));
      return;
    }
    case Type::button_row:
      for (std::size_t i = 0; i < placed.items.size(); ++i)
        DrawItem(b, element.items[i], placed.items[i], {b.slot.number, number, static_cast<int>(i) + 1},
                 element.disabled);
      return;
  }
}

// At the right edge, of a menu that is higher than its window: which part of it is seen.
void DrawScrolled(const Brush& b, const MenuLayout& layout, int width, int height) {
  constexpr int kWidth = 5;
  if (layout.height <= height) return;
  const int below = layout.height - height, length = height * height / layout.height;
  const int top = (height - length) * std::clamp(b.slot.scroll, 0, below) / below;
  Fill(b, b.inks.groove, {width - kWidth, 0, kWidth, height});
  Fill(b, b.inks.frame, {width - kWidth, top, kWidth, length});
}

}  // namespace

void DrawMenu(const MenuToolkit& kit, int im, const GksPaint& paint, int width, int height) {
  const MenuSlot& slot = SlotOf(kit, im);
  const Brush b = {kit, slot, paint, FontOf(kit, im), InksOf(*kit.gks, slot.status == MenuStatus::disabled)};
  paint.clear(paint.self, b.inks.paper);
  const MenuLayout layout = LayOutMenu(slot, b.font, width, height);
  for (std::size_t i = 0; i < layout.elements.size(); ++i)
    DrawElement(b, slot.elements[i], layout.elements[i], static_cast<int>(i) + 1, width);
  DrawScrolled(b, layout, width, height);
}

}  // namespace zaview
