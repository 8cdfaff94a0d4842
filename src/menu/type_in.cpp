#include "menu/type_in.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include <fmt/format.h>

#include "base/message.h"
#include "base/number_parse.h"
#include "base/platform.h"
#include "base/text.h"
#include "gks/kernel/fonts.h"
#include "menu/menu_build.h"
#include "menu/menu_window.h"

namespace zaview {

namespace {

constexpr fmt::string_view kTooLong =
    "WARNING in gksMenu routines: {} object length={} is larger than maximum length of type-in data string={}";
constexpr std::string_view kAborted = " Type-in is aborted";

constexpr int kBackspace = 8, kDelete = 127, kSelectAll = 1;

void Select(TypeIn& t, std::size_t caret, bool extend) {
  t.caret = caret;
  if (!extend) t.anchor = caret;
}

// True: something was selected, and is gone.
bool RemoveSelected(TypeIn& t) {
  const auto [from, to] = std::minmax(t.caret, t.anchor);
  if (from == to) return false;
  const std::size_t begin = from;
  t.buffer.erase(begin, to - from);
  t.caret = t.anchor = begin;
  return true;
}

void RemoveTo(TypeIn& t, std::size_t place) {
  t.anchor = place;
  static_cast<void>(RemoveSelected(t));
}

// Letters above 127 come as Latin-1.
bool Insert(TypeIn& t, int key) {
  constexpr int kPlain = 0x80, kFirstLatin = 0xA0, kLast = 0xFF;
  if (key < ' ' || (key >= kDelete && key < kFirstLatin) || key > kLast) return false;
  std::string letter;
  if (key < kPlain) letter = static_cast<char>(key);
  else letter = {static_cast<char>(0xC0 | key >> 6), static_cast<char>(0x80 | (key & 0x3F))};
  static_cast<void>(RemoveSelected(t));
  if (t.buffer.size() + letter.size() > t.capacity) return true;
  t.buffer.insert(t.caret, letter);
  Select(t, t.caret + letter.size(), false);
  return true;
}

// Into the item; false: a bad number.
bool Store(const TypeIn& t, MenuRowItem& item) {
  const std::string_view text = Trim(t.buffer);
  float real = 0;
  if (t.type == MenuItemType::integer) return ParseInteger(text, item.value);
  if (t.type == MenuItemType::real) {
    if (!ParseFloat(text, real) || !std::isfinite(real)) return false;
    item.real = real;
  } else item.text = t.buffer;
  return true;
}

MenuEvent EventOf(const MenuPoint& at, const MenuRowItem& item) {
  MenuEvent event = {at.menu, at.element, at.item, MenuChange::text, item.value, item.real, item.text};
  if (item.type == MenuItemType::integer) event.change = MenuChange::integer;
  if (item.type == MenuItemType::real) event.change = MenuChange::real;
  return event;
}

}  // namespace

void StartTypeIn(MenuToolkit& kit, const MenuPoint& at) {
  const MenuRowItem* const item = gksMenuItemAt(kit, at);
  if (item == nullptr || item->disabled) return;
  const Console& console = kit.platform->console;
  const std::string shown = ShownValue(*item);
  const bool object = item->capacity > static_cast<int>(kTypeInLength), initial = shown.size() > kTypeInLength;
  if (object || initial) {
    const std::size_t length = object ? static_cast<std::size_t>(item->capacity) : shown.size();
    Say(console, kTooLong, object ? "specified maximum" : "initial", length, kTypeInLength);
    return SayLine(console, kAborted);
  }
  kit.type_in = TypeIn{};
  TypeIn& t = kit.type_in;
  t.at = at;
  t.type = item->type;
  t.buffer = shown;
  t.capacity = item->capacity > 0 ? static_cast<std::size_t>(item->capacity) : kTypeInLength;
  Select(t, t.buffer.size(), false);
  ScrollTypeIn(kit);
  PostMenu(kit, at.menu);
}

void gksMenuFinishTypein(MenuToolkit& kit, TypeInEnd how) {
  if (kit.type_in.at.menu == 0) return;
  const TypeIn t = std::exchange(kit.type_in, TypeIn{});
  PostMenu(kit, t.at.menu);
  MenuRowItem* const item = gksMenuItemAt(kit, t.at);
  if (item == nullptr || item->type != t.type) return;
  if (how == TypeInEnd::if_changed && t.buffer == ShownValue(*item)) return;
  if (!Store(t, *item)) return;
  MenuEvent event = EventOf(t.at, *item);
  event.entered = how == TypeInEnd::entered;
  TellApplication(kit, event);
}

void DropTypeIn(MenuToolkit& kit) {
  const int im = std::exchange(kit.type_in, TypeIn{}).at.menu;
  if (im != 0) PostMenu(kit, im);
}

TypeInKey EditTypeIn(TypeIn& t, int key, unsigned modifiers) {
  const bool extend = (modifiers & kShiftKey) != 0;
  const std::size_t end = t.buffer.size();
  if (key == kKeyLeft) Select(t, LetterBefore(t.buffer, t.caret), extend);
  else if (key == kKeyRight) Select(t, NextLetter(t.buffer, t.caret), extend);
  else if (key == kKeyHome) Select(t, 0, extend);
  else if (key == kKeyEnd) Select(t, end, extend);
  else if (key == kSelectAll) {
    t.anchor = 0;
    t.caret = end;
  } else if (key == kBackspace) {
    if (!RemoveSelected(t)) RemoveTo(t, LetterBefore(t.buffer, t.caret));
  } else if (key == kDelete) {
    if (!RemoveSelected(t)) RemoveTo(t, NextLetter(t.buffer, t.caret));
  } else if ((modifiers & (kAltKey | kControlKey)) != 0 || !Insert(t, key)) return TypeInKey::other;
  return TypeInKey::typed;
}

void ScrollTypeIn(MenuToolkit& kit) {
  TypeIn& t = kit.type_in;
  const MenuFont& font = FontOf(kit, t.at.menu);
  const int room = FieldOf(BoxOf(kit, t.at)).width - 1;
  const std::string_view text = t.buffer;
  t.first = std::min({t.first, t.caret, text.size()});
  while (t.first < t.caret && MenuTextWidth(font, text.substr(t.first, t.caret - t.first)) > room)
    t.first = NextLetter(text, t.first);
  // What was removed at the end lets the beginning come back.
  while (t.first > 0 && MenuTextWidth(font, text.substr(LetterBefore(text, t.first))) <= room)
    t.first = LetterBefore(text, t.first);
}

std::size_t TypeInPlace(const MenuToolkit& kit, int x) {
  const TypeIn& t = kit.type_in;
  const MenuFont& font = FontOf(kit, t.at.menu);
  int left = FieldOf(BoxOf(kit, t.at)).x;
  const std::string_view text = t.buffer;
  for (std::size_t at = t.first; at < text.size();) {
    const std::size_t next = NextLetter(text, at);
    const int width = MenuTextWidth(font, text.substr(at, next - at));
    if (x < left + (width + 1) / 2) return at;
    left += width;
    at = next;
  }
  return text.size();
}

}  // namespace zaview
