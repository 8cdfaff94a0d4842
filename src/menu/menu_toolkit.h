// Menu windows: what stands in them and what is being done to them. Data only. Slots, elements and items count from 1,
// 0 is none; pixels are those of a menu's own window, y down.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace zaview {

struct Platform;
struct GksState;
struct MenuToolkit;

inline constexpr int kMenuSlots = 8, kMostElements = 100;
inline constexpr std::size_t kTypeInLength = 256, kItemText = 40, kMenuTitle = 64;

enum class MenuElementType : std::uint8_t { text = 1, list, check_box, separator, button_row, run_bar };

enum class MenuItemType : std::int8_t {
  tab_columns = -4,  // the next item starts at a column of so many character widths
  tab_pixels = -3,
  gap_columns = -2,
  gap_pixels = -1,
  label = 0,
  button = 1,
  check = 2,
  integer = 3,  // type-ins
  real = 4,
  text = 5,
  colour = 6,  // chip
  file = 7,    // button that opens the file selector and holds the name
  arrows = 8,  // of the type-in ahead of it
};

// Of an item's style.
inline constexpr int kRoundCheck = 1;                // check: one of several
inline constexpr int kButtonDown = 1;                // button: drawn held down, as the one in force
inline constexpr int kChipChosen = 1;                // colour: framed, as the one in force
inline constexpr int kFileWrite = 1, kFileRead = 2;  // file: as dgFileSelector has it
inline constexpr int kItemChosen = 1;                // item of a list with several choices
inline constexpr int kMovedByKeys = 1;  // list, ahead of its items: keys move the mark alone, Return chooses

struct MenuRowItem {
  MenuItemType type = MenuItemType::label;
  std::string text;  // of label and button, beside a check or a chip; value of a text type-in; name of the file
  int value = 0;     // of an integer; on or off; colour of a chip; columns or pixels of gap and tab
  float real = 0;    // value of a real; step of arrows, 0: by the type-in
  int width = 0;     // columns; 0: as wide as it needs
  int capacity = 0;  // bytes of a text; 0: as many as a type-in has
  int colour = 1;    // index of the kernel; 0 background, 1 foreground
  int style = 0;
  bool disabled = false;
  bool operator==(const MenuRowItem&) const = default;
};

// A list is as high as its items, or a box.
enum class ListMode : std::uint8_t { one = 0, several = 1, several_in_box = 2, one_in_box = 3 };

struct MenuListItem {
  std::string text;
  int value = 0;
  int colour = 1;
  bool chosen = false;
  bool operator==(const MenuListItem&) const = default;
};

struct MenuList {
  ListMode mode = ListMode::one;
  int capacity = 0;
  int box_lines = 0;           // of a box
  bool moved_by_keys = false;  // keys move the mark alone, Return chooses
  int columns = 64;  // for the width of the menu a longer item counts as this long; more shows where there is room
  std::vector<MenuListItem> items;
  bool operator==(const MenuList&) const = default;
};

struct MenuRunBar {
  int first_step = 1, last_step = 1, step = 1;
  float first_time = 0, last_time = 0;
  bool running = false;
  bool operator==(const MenuRunBar&) const = default;
};

struct MenuElement {
  MenuElementType type = MenuElementType::text;
  std::string text;  // of a text (lines apart by \n) and a check box
  int value = 0;     // on or off; thickness of a separator, pixels
  int colour = 1;
  bool disabled = false;
  bool centred = false;  // a button row: the row of buttons that ends a dialogue
  int capacity = 0;      // of a button row
  std::vector<MenuRowItem> items;
  MenuList list;
  MenuRunBar run_bar;
  bool operator==(const MenuElement&) const = default;
};

// ---- What an application is told

enum class MenuChange : std::uint8_t {
  button,   // pressed
  check,    // integer: the new state
  integer,  // typed or by arrows
  real,
  text,
  colour,      // a chip was pressed; integer: its colour
  file,        // text: the name chosen
  list,        // item: its number; integer: its value; in lists with several choices it was turned over
  list_twice,  // a list of one choice pressed twice in a row, in place of the second `list`; or by Return
  escape,      // a type-in was given up, in menus that ask for it
  play,
  pause,  // of a run bar
  step,   // integer: the step wanted; item: of which button (menu_layout.h), 0: of the slider
  closed  // the menu is gone, by whomever; its slot is free
};

struct MenuEvent {
  int menu = 0, element = 0, item = 0;
  MenuChange change = MenuChange::button;
  int integer = 0;
  float real = 0;
  std::string text;
  bool entered = false;  // a type-in that Return ended
};

struct MenuHandler {
  void* self = nullptr;
  void (*input)(void* self, const MenuEvent& event) = nullptr;
};

// ---- Menus

enum class MenuStatus : std::uint8_t { free, pending, open, disabled };

struct MenuSlot {
  MenuToolkit* kit = nullptr;  // whose it is, and its number there
  int number = 0;
  MenuStatus status = MenuStatus::free;
  int id = 0;  // of the window; 0: none yet
  std::string title = " ";
  MenuHandler handler;
  int width = 0, height = 0;                  // of the window
  int natural_width = 0, natural_height = 0;  // as its content wanted it last
  std::vector<MenuElement> elements;
  std::vector<MenuElement> before;  // while it is built anew
  std::vector<int> top;             // first item shown of each element's list
  int scroll = 0;                   // of a menu that is higher than its window
  int resize_policy = 0;            // 0: always as large as it needs; 1: only grows
  int least_width = 0, least_height = 0, largest_width = 0, largest_height = 0;  // 0: no such limit
  int font_step = 0;                                                             // 0: that of all menus
  int stretched_list = 0;         // element that takes surplus height; 0: all boxes alike
  bool list_keys = false;         // a click gives the keys to the list
  bool escape_tells = false;      // the handler is told of Escape in a type-in
  bool escape_closes = false;     // Escape, where nothing is typed or focused
  bool reshape_answered = false;  // a size too small was answered; not again before the next input
};

struct MenuPoint {  // an item of a row, a part of a run bar, or an element as a whole
  int menu = 0, element = 0, item = 0;
  bool operator==(const MenuPoint&) const = default;
};

// The one caret of the program. Positions are bytes of the buffer, between letters.
struct TypeIn {
  MenuPoint at;  // menu 0: nothing is being typed
  MenuItemType type = MenuItemType::text;
  std::string buffer;
  std::size_t caret = 0, anchor = 0;  // what lies between is selected
  std::size_t first = 0;              // shown
  std::size_t capacity = kTypeInLength;
};

enum class MenuDrag : std::uint8_t { none, slider, scroll_bar, selection };

struct FileSelector {  // the one of the program
  int menu = 0;        // its slot; 0: closed
  MenuPoint caller;
  int mode = 0;  // 1: to write, 2: to read, 0: no check
  std::string current_dir, file_name, filter;
  std::vector<std::string> directories, files;  // all of the directory, in order of bytes
  std::vector<std::string> shown;               // those of the files that pass the filter
  int selected_directory = 0, selected_file = 0;
  bool bad_directory = false, overwrite_pending = false, notexist_pending = false;
};

struct MenuToolkit {             // stays where it is while a menu is open
  Platform* platform = nullptr;  // these three by gksMenuAttach
  GksState* gks = nullptr;
  MenuHandler application;
  std::array<MenuSlot, kMenuSlots> slots;
  int inmenu_pending = 0;  // slot being built
  int sub_menu = 0;        // slot that the others wait for
  int font_step = 2;       // 1 to 3
  TypeIn type_in;
  MenuPoint focus;             // of the keyboard; menu 0: keys are the view's
  bool pressed_lower = false;  // of arrows: the lower one
  MenuPoint pressed;           // drawn so until the button is released
  MenuDrag drag = MenuDrag::none;
  int drag_offset = 0;         // pixels from the thumb's edge to the pointer
  MenuPoint clicked;           // an item of a list, last
  double clicked_at = -1.0e9;  // seconds of the clock
  FileSelector files;
};

}  // namespace zaview
