// Where things stand in a menu: a menu in, rectangles out. Nothing is drawn or changed here.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/window_system.h"
#include "menu/menu_text.h"
#include "menu/menu_toolkit.h"

namespace zaview {

struct MenuBox {
  int x = 0, y = 0, width = 0, height = 0;  // pixels
  [[nodiscard]] bool Holds(int px, int py) const { return px >= x && px < x + width && py >= y && py < y + height; }
};

// Parts of elements, by number: items of a button row from 1 on, and these.
inline constexpr int kWholeBar = 0, kPlayButton = 1, kBackButton = 2, kOnButton = 3;
[[nodiscard]] std::string_view BarButtonText(int button, bool running);

struct MenuPlaced {
  MenuBox box;
  std::vector<MenuBox> items;  // of a row; play, back and on of a run bar
  int lines = 0, top = 0;      // of a list: lines shown, the first item among them (from 0)
  MenuBox inner;               // lines of a list; track of a run bar; square of a check box
  MenuBox bar, thumb;          // scroll bar, if there is one; of a run bar the slider is the thumb
};

struct MenuLayout {
  int width = 0, height = 0;  // of the content, with its margins
  std::vector<MenuPlaced> elements;
};

// In a window of this size: surplus goes to lists, and what is missing is taken from
// them, down to four lines.
[[nodiscard]] MenuLayout LayOutMenu(const MenuSlot& slot, const MenuFont& font, int width, int height);

struct MenuSize {
  int width = 0, height = 0;
};
// Of the window: what the content needs within the menu's limits and the height of the screen. What is higher still,
// with its lists at four lines, is scrolled.
[[nodiscard]] MenuSize WindowSizeOf(const MenuSlot& slot, const MenuFont& font, const WindowPlace& screen);
[[nodiscard]] int LeastHeight(const MenuSlot& slot, const MenuFont& font);  // with all boxes at four lines

struct MenuCorner {
  int x = 0, y = 0;
};
// Beside the main window if that leaves it on the screen, else at its left edge; each slot a little further on.
[[nodiscard]] MenuCorner CornerOf(int im, const MenuSize& size, const WindowPlace& main, const WindowPlace& screen);
// Moved left and up as far as the size needs it; what is larger than the screen stands in its corner.
[[nodiscard]] MenuCorner OnScreen(const MenuCorner& corner, const MenuSize& size, const WindowPlace& screen);

struct MenuHit {
  int element = 0, item = 0;  // item: of a row, 1 to 3 of a run bar, the line's item of a list
  bool on_bar = false;        // of a list: its scroll bar
};
[[nodiscard]] MenuHit HitMenu(const MenuSlot& slot, const MenuLayout& layout, int x, int y);

[[nodiscard]] int ListLines(const MenuList& list);     // that it likes to show
inline constexpr int kBesideMark = 5;                  // pixels from a check or a chip to its text
[[nodiscard]] bool IsOneChoice(const MenuList& list);  // else each item has a tick of its own
[[nodiscard]] int FirstChosen(const MenuList& list);   // from 1; 0: none
[[nodiscard]] int MarkSide(const MenuFont& font);      // of the square or disc of a check
[[nodiscard]] int TickWidth(const MenuFont& font);     // ahead of its items
[[nodiscard]] int ChipWidth(const MenuFont& font);     // of a colour, ahead of its name
[[nodiscard]] bool IsTypeIn(MenuItemType type);
// What an item shows in its field or on its face.
[[nodiscard]] std::string ShownValue(const MenuRowItem& item);
[[nodiscard]] std::string RunBarTimes(const MenuRunBar& bar);  // "0 .. 120.5"
[[nodiscard]] MenuBox FieldOf(const MenuBox& item);            // of a type-in: where its letters stand

}  // namespace zaview
