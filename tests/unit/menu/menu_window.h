// Menus beside a main window in memory, and an application that writes down what it is told.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include "menu/menu_build.h"
#include "menu/menu_window.h"
#include "unit/gks/view_window.h"

namespace zaview {

using Kind = MenuItemType;
using Attribute = MenuAttribute;

inline std::string TextOf(const MenuEvent& e) {
  constexpr std::string_view kChanges[] = {"button", "check", "integer", "real", "text",  "colour", "file",
                                           "list",   "twice", "escape",  "play", "pause", "step",   "closed"};
  return fmt::format("{}.{}.{} {} {} {} '{}'{}; ", e.menu, e.element, e.item,
                     kChanges[static_cast<std::size_t>(e.change)], e.integer, e.real, e.text,
                     e.entered ? " entered" : "");
}

struct MenuWindow : ViewWindow {
  MenuToolkit kit;
  std::string events;

  MenuWindow() {
    gksMenuAttach(kit, platform, gks, {this, [](void* self, const MenuEvent& event) {
                                         static_cast<MenuWindow*>(self)->events += TextOf(event);
                                       }});
    Run({});
    fake.output.clear();
  }
  // What the application is told, and what stands on the console.
  std::string Do(const std::vector<FedEvent>& fed) {
    fake.output.clear();
    Run(fed);
    return std::exchange(events, {}) + fake.output;
  }
  zaview::Picture Picture(int im) {
    zaview::Picture picture;
    picture.width = SlotOf(kit, im).width;
    picture.height = SlotOf(kit, im).height;
    picture.rgb.assign(static_cast<std::size_t>(picture.width * picture.height) * 3, 0);
    EXPECT_TRUE(ReadOffscreenPicture(*windows, SlotOf(kit, im).id, picture.width, picture.height, picture.rgb.data()));
    return picture;
  }
  MenuLayout Layout(int im) { return LayoutOf(kit, im); }
  [[nodiscard]] MenuBox BoxOf(int im, int element, int item) {
    const MenuPlaced placed = Layout(im).elements[static_cast<std::size_t>(element) - 1];
    return item == 0 ? placed.box : placed.items[static_cast<std::size_t>(item) - 1];
  }
  // A press in the middle of an item, and the release.
  std::vector<FedEvent> ClickOn(int im, int element, int item, unsigned modifiers = 0) {
    const MenuBox box = BoxOf(im, element, item);
    return Press(im, box.x + box.width / 2, box.y + box.height / 2, modifiers);
  }
  std::vector<FedEvent> Press(int im, int x, int y, unsigned modifiers = 0, int button = 1) {
    const int id = SlotOf(kit, im).id;
    return {{FedEvent::Kind::mouse, id, button, modifiers, x, y}, {FedEvent::Kind::release, id, button, 0, x, y}};
  }
  std::vector<FedEvent> Keys(int im, const std::vector<int>& keys, unsigned modifiers = 0) {
    std::vector<FedEvent> fed;
    for (const int key : keys) fed.push_back({FedEvent::Kind::key, SlotOf(kit, im).id, key, modifiers});
    return fed;
  }
  std::vector<FedEvent> Type(int im, std::string_view text) {
    return Keys(im, std::vector<int>(text.begin(), text.end()));
  }
};

// One of everything: text, lists of each mode, check boxes, a row of each item, a run bar.
inline int BuildAll(MenuToolkit& kit, std::string_view title, bool disabled = false) {
  const int im = gksMenuInit(kit, title);
  gksMenuText(kit, "Plot Options\nof the current run");
  gksMenuSeparator(kit, 1);
  gksMenuButtonRow(kit, 0, 20);  // 3
  for (const std::string_view word : {"Time History", "Animation", "Geometry"}) gksMenuAddItem(kit, Kind::button, word);
  gksMenuSetAttribute(kit, Attribute::style, kButtonDown);
  gksMenuButtonRow(kit, 0, 20);  // 4
  gksMenuAddItem(kit, Kind::label, "Hull: ");
  gksMenuAddItemI(kit, Kind::check, 1);
  gksMenuAddItem(kit, Kind::label, "Solid");
  gksMenuAddItemI(kit, Kind::gap_columns, 1);
  gksMenuAddItemI(kit, Kind::check, 0);
  gksMenuAddItem(kit, Kind::label, "Wireframe;");
  gksMenuAddItemI(kit, Kind::tab_columns, 30);
  gksMenuAddItemI(kit, Kind::check, 1);
  gksMenuSetAttribute(kit, Attribute::style, kRoundCheck);
  gksMenuAddItem(kit, Kind::label, "one of");
  gksMenuAddItemI(kit, Kind::check, 0);
  gksMenuSetAttribute(kit, Attribute::style, kRoundCheck);
  gksMenuAddItem(kit, Kind::label, "several");
  gksMenuButtonRow(kit, 0, 20);  // 5
  gksMenuAddItem(kit, Kind::label, "Integer", 8);
  gksMenuAddItemI(kit, Kind::integer, 12);
  gksMenuAddItemI(kit, Kind::arrows, 0);
  gksMenuAddItem(kit, Kind::label, " Real");
  gksMenuAddItemF(kit, Kind::real, 0.3F);
  gksMenuAddItemF(kit, Kind::arrows, 0.1F);
  gksMenuButtonRow(kit, 0, 20);  // 6
  gksMenuAddItem(kit, Kind::label, "Text", 8);
  gksMenuAddItem(kit, Kind::text, "G\xC3\xB6teborg", 20);
  gksMenuAddItemI(kit, Kind::colour, 2);
  gksMenuAddItem(kit, Kind::file, "out.txt", 12);
  gksMenuSetAttribute(kit, Attribute::style, kFileWrite);
  gksMenuAddItem(kit, Kind::button, "Greyed");
  gksMenuSetAttribute(kit, Attribute::disabled, 1);
  gksMenuCheckBox(kit, "Keep axis limits when changing quantity", 1);  // 7
  gksMenuCheckBox(kit, "Preserve geometry scale", 0);                  // 8
  if (disabled) gksMenuSetAttribute(kit, Attribute::disabled, 1);
  gksMenuText(kit, "Quantity");
  gksMenuSelectionList(kit, 3, 100, 3, 5);  // 10
  for (int i = 1; i <= 30; ++i) gksMenuAddListItem(kit, fmt::format("Quantity {} with its long name", i), i);
  gksMenuSelectionList(kit, 1, 100, 0);  // 11
  for (int i = 1; i <= 3; ++i) {
    gksMenuAddListItem(kit, fmt::format("Curve {}", i), i);
    gksMenuSetAttribute(kit, Attribute::style, i == 3 ? 0 : kItemChosen);
  }
  gksMenuRunBar(kit, 1, 1000, 0, 249.75F, 300, false);  // 12
  gksMenuButtonRow(kit, 1, 2);                          // 13
  gksMenuAddItem(kit, Kind::button, "Select");
  gksMenuAddItem(kit, Kind::button, "Cancel");
  static_cast<void>(gksMenuStart(kit));
  return im;
}

}  // namespace zaview
