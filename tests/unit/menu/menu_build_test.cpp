// Building menus, the sizes that come out, and the windows in which they stand.
#include "menu/menu_build.h"

#include <functional>

#include "unit/menu/menu_window.h"

namespace zaview {
namespace {

using Build = std::function<void(MenuToolkit&)>;

void Row(MenuToolkit& kit) {
  gksMenuButtonRow(kit, 0, 2);
}
void List(MenuToolkit& kit) {
  gksMenuSelectionList(kit, 3, 1, 0);
}
void ManyTimes(MenuToolkit& kit, int count, const Build& build) {
  for (int i = 0; i < count; ++i) build(kit);
}

// clang-format off
const struct { Build build; std::string_view said; } kPendingFaults[] = {
    {[](auto& k) { ManyTimes(k, 11, [](auto& m) { gksMenuText(m, "x"); }); }, "ERROR in gksMenuText: too many text elements..."},
    {[](auto& k) { ManyTimes(k, 5, List); }, "ERROR in gksMenuSelectionList: too many list elements"},
    {[](auto& k) { ManyTimes(k, 101, [](auto& m) { gksMenuCheckBox(m, "x", 0); }); }, "ERROR in gksMenuCheckBox: too many checkbox elements"},
    {[](auto& k) { ManyTimes(k, 21, [](auto& m) { gksMenuSeparator(m, 1); }); }, "ERROR in gksMenuSeparator: too many separator elements..."},
    {[](auto& k) { ManyTimes(k, 101, Row); }, "ERROR in gksMenuButtonRow: too many button row elements"},
    {[](auto& k) { ManyTimes(k, 2, [](auto& m) { gksMenuRunBar(m, 1, 2, 0, 1, 1, false); }); }, "ERROR in gksMenuRunBar: too many run bar elements"},
    {[](auto& k) { ManyTimes(k, 100, Row); gksMenuText(k, "x"); }, "ERROR in gksMenuText: too many elements..."},
    {[](auto& k) { gksMenuSelectionList(k, 4, 1, 0); }, "ERROR in gksMenuSelectionList: invalid value for mode"},
    {[](auto& k) { gksMenuSelectionList(k, 0, 0, 0); }, "ERROR in gksMenuSelectionList: invalid value for mitem"},
    {[](auto& k) { gksMenuButtonRow(k, 0, 0); }, "ERROR in gksMenuButtonRow: invalid value for mitem"},
    {[](auto& k) { gksMenuRunBar(k, 3, 2, 0, 1, 3, false); }, "ERROR in gksMenuRunBar: invalid time step indices"},
    {[](auto& k) { gksMenuRunBar(k, 1, 2, 1, 0, 1, false); }, "ERROR in gksMenuRunBar: invalid time values"},
    {[](auto& k) { Row(k); gksMenuAddItem(k, Kind::gap_pixels, "x"); }, "ERROR in gksMenuAddItem: Invalid itype"},
    {[](auto& k) { Row(k); gksMenuAddItemF(k, Kind::integer, 1); }, "ERROR in gksMenuAddItemF: Invalid itype"},
    {[](auto& k) { Row(k); ManyTimes(k, 3, [](auto& m) { gksMenuAddItemI(m, Kind::check, 1); }); }, "ERROR in gksMenuAddItemI: Too many items"},
    {[](auto& k) { List(k); ManyTimes(k, 2, [](auto& m) { gksMenuAddListItem(m, "x", 1); }); }, "ERROR in gksMenuAddListItem: Too many items"},
    {[](auto& k) { List(k); gksMenuAddItem(k, Kind::label, "x"); }, "LOGIC ERROR in gksMenuAddItem: current item is not a button row"},
    {[](auto& k) { Row(k); gksMenuAddListItem(k, "x", 1); }, "LOGIC ERROR in gksMenuAddListItem: current item is not a selection list"},
    {[](auto& k) { gksMenuAddListItem(k, "x", 1); }, "LOGIC ERROR in gksMenuAddListItem: nelem=0"},
    {[](auto& k) { EXPECT_EQ(gksMenuInit(k, "other"), 0); }, "LOGIC ERROR - gksMenuInit - inmenu_pending already set"},
};
const struct { Build build; std::string_view said; } kLonelyFaults[] = {
    {[](auto& k) { gksMenuText(k, "x"); }, "LOGIC ERROR in gksMenuText: inmenu_pending not set"},
    {Row, "LOGIC ERROR in gksMenuButtonRow: inmenu_pending not set"},
    {[](auto& k) { gksMenuAddItemI(k, Kind::check, 1); }, "LOGIC ERROR in gksMenuAddItemI: inmenu_pending not set"},
    {[](auto& k) { gksMenuSetAttribute(k, Attribute::colour, 1); }, "LOGIC ERROR in gksMenuSetAttribute: inmenu_pending not set"},
    {[](auto& k) { EXPECT_FALSE(gksMenuStart(k)); }, "LOGIC ERROR in gksMenuStart - inmenu_pending not set"},
};
// clang-format on

TEST(MenuBuild, WrongUseIsSaidAndBuildingGoesOn) {
  for (const auto& fault : kPendingFaults) {
    MenuWindow w;
    const int im = gksMenuInit(w.kit, "menu");
    fault.build(w.kit);
    EXPECT_EQ(w.fake.output, fmt::format("{}\n", fault.said));
    EXPECT_TRUE(gksMenuStart(w.kit)) << fault.said;
    EXPECT_LE(SlotOf(w.kit, im).elements.size(), 100U);
  }
  for (const auto& fault : kLonelyFaults) {
    MenuWindow w;
    fault.build(w.kit);
    EXPECT_EQ(w.fake.output, fmt::format("{}\n", fault.said));
  }
}

// ---- Sizes, for columns of 8, lines of 18 pixels

const int kA = MenuTextWidth(MenuFontOf(2), "A"), kWord = MenuTextWidth(MenuFontOf(2), "AAi");

TEST(MenuLayout, ItemsHaveTheirWidths) {
  const struct {
    Build item;
    int width;
  } kItems[] = {
      {[](auto& k) { gksMenuAddItem(k, Kind::label, "AAi"); }, kWord},
      {[](auto& k) { gksMenuAddItem(k, Kind::label, "AAi", 5); }, 40},
      {[](auto& k) { gksMenuAddItem(k, Kind::label, "\xC3\x84"); }, kA},  // one letter, of two bytes
      {[](auto& k) { gksMenuAddItem(k, Kind::button, "AAi"); }, kWord + 16 + 3},
      {[](auto& k) { gksMenuAddItem(k, Kind::file, "AAi", 5); }, 40},
      {[](auto& k) { gksMenuAddItemI(k, Kind::check, 1); }, 14},
      {[](auto& k) { gksMenuAddItemI(k, Kind::integer, 1); }, 8 * 8 + 3},
      {[](auto& k) { gksMenuAddItemF(k, Kind::real, 1); }, 12 * 8 + 3},
      {[](auto& k) { gksMenuAddItem(k, Kind::text, "", 20); }, 22 * 8 + 3},
      {[](auto& k) { gksMenuAddItemI(k, Kind::colour, 1); }, 4 * 8 + 3},
      {[](auto& k) { gksMenuAddItemI(k, Kind::gap_pixels, 7); }, 10},
      {[](auto& k) { gksMenuAddItemI(k, Kind::gap_columns, 2); }, 19},
  };
  for (const auto& c : kItems) {
    MenuWindow w;
    const int im = gksMenuInit(w.kit, "menu");
    Row(w.kit);
    c.item(w.kit);
    gksMenuStart(w.kit);
    EXPECT_EQ(w.BoxOf(im, 1, 1).width, c.width);
  }
}

TEST(MenuLayout, ElementsStandOneBelowTheOther) {
  MenuWindow w;
  const int im = gksMenuInit(w.kit, "menu");
  gksMenuText(w.kit, "A\nAA");
  gksMenuSeparator(w.kit, 3);
  gksMenuCheckBox(w.kit, "A", 1);
  Row(w.kit);
  gksMenuAddItemI(w.kit, Kind::tab_columns, 20);
  gksMenuAddItem(w.kit, Kind::label, "A");
  gksMenuSelectionList(w.kit, 3, 9, 0, 2);
  for (int i = 0; i < 3; ++i) gksMenuAddListItem(w.kit, "AAAA", i);
  gksMenuStart(w.kit);
  const int tops[] = {14, 54, 61, 83, 107};
  for (int i = 0; i < 5; ++i) EXPECT_EQ(w.BoxOf(im, i + 1, 0).y, tops[i]) << i;
  const MenuSlot& slot = SlotOf(w.kit, im);
  EXPECT_EQ(slot.height, 107 + 2 * 18 + 6 + 14);
  EXPECT_EQ(w.BoxOf(im, 4, 2).x, w.BoxOf(im, 4, 0).x + 20 * 8 + 3);
  EXPECT_EQ(slot.width, 2 * w.BoxOf(im, 1, 0).x + 20 * 8 + 3 + kA);
  // What the window has too much goes to the box.
  w.Do({{FedEvent::Kind::reshape, slot.id, 0, 0, slot.width, slot.height + 20}});
  EXPECT_EQ(w.Layout(im).elements[4].lines, 3);
}

TEST(MenuLayout, ListsAreAsHighAsTheirModeSays) {
  const struct { int mode, items, lines; } kLists[] = {{0, 3, 3}, {1, 7, 7}, {0, 60, 40}, {2, 60, 12}, {3, 3, 12}};
  for (const auto& c : kLists) {
    MenuWindow w;
    const int im = gksMenuInit(w.kit, "menu");
    gksMenuSelectionList(w.kit, c.mode, 100, 0, 12);
    for (int i = 1; i <= c.items; ++i) gksMenuAddListItem(w.kit, "x", i);
    gksMenuStart(w.kit);
    const MenuPlaced list = w.Layout(im).elements[0];
    EXPECT_EQ(list.lines, c.lines) << c.mode;
    EXPECT_EQ(list.bar.width > 0, c.items > c.lines) << c.mode;
  }
}

TEST(MenuLayout, MenusStandBesideTheMainWindowAndOnTheScreen) {
  const WindowPlace main = {100, 60, 500, 400}, screen = {0, 0, 1280, 1024};
  const struct {
    int im;
    MenuSize size;
    int x, y;
  } kMenus[] = {
      {1, {300, 200}, 635, 60},  {3, {300, 200}, 685, 160}, {8, {500, 200}, 70, 410},  // right of it, else at the left
      {3, {300, 900}, 685, 124},  // raised, so that its foot is on the screen
      {2, {2000, 1500}, 0, 0},
  };
  for (const auto& c : kMenus) {
    const MenuCorner corner = CornerOf(c.im, c.size, main, screen);
    EXPECT_EQ(std::pair(corner.x, corner.y), std::pair(c.x, c.y)) << c.im;
  }
}

// ---- Windows

TEST(MenuWindows, GrowUpwardsAtTheFootOfTheScreen) {
  MenuWindow w;
  const WindowSystem& system = w.platform.window;
  const int im = BuildAll(w.kit, "menu"), id = SlotOf(w.kit, im).id;
  for (const int x : {0, 1000}) {
    const WindowPlace before = system.place(system.self, id);
    system.move_window(system.self, id, x, kOffscreenHeight - before.height);
    gksMenuFontUp(w.kit);
    w.Do({});
    const WindowPlace grown = system.place(system.self, id);
    EXPECT_GT(grown.height, before.height);
    EXPECT_EQ(grown.x, std::min(x, kOffscreenWidth - grown.width));
    EXPECT_EQ(grown.y, kOffscreenHeight - grown.height);
    gksMenuFontDown(w.kit);
    w.Do({});
    EXPECT_EQ(system.place(system.self, id).y, grown.y);
  }
}

TEST(MenuWindows, OneWindowATitleAndEightAtMost) {
  MenuWindow w;
  const int first = BuildAll(w.kit, "menu 1");
  EXPECT_EQ(BuildAll(w.kit, "menu 1"), first);
  EXPECT_EQ(w.gks.side_windows.size(), 1U);
  for (int i = 2; i <= 8; ++i) EXPECT_EQ(BuildAll(w.kit, fmt::format("menu {}", i)), i);
  w.fake.output.clear();
  EXPECT_EQ(gksMenuInit(w.kit, "menu 9"), 0);
  EXPECT_EQ(w.fake.output, "ERROR - gksMenuInit - no menus available\n");
  gksMenuClose(w.kit, 3);
  EXPECT_EQ(BuildAll(w.kit, "menu 9"), 3);
  w.events.clear();
  gksMenuClose(w.kit, 0);
  EXPECT_TRUE(w.gks.side_windows.empty());
  EXPECT_EQ(w.events.substr(0, 24), "1.0.0 closed 0 0 ''; 2.0");
}

TEST(MenuWindows, AreDrawnAgainOnlyIfTheyShowSomethingElse) {
  MenuWindow w;
  const int im = BuildAll(w.kit, "menu");
  w.Do({});
  const auto before = w.Picture(im);
  SlotOf(w.kit, im).elements[0].text = "changed behind its back";
  const auto build = [&](std::string_view text) {
    EXPECT_EQ(gksMenuInit(w.kit, "menu"), im);
    gksMenuText(w.kit, text);
    gksMenuStart(w.kit, false);
    w.Do({});
    return w.Picture(im).width;
  };
  EXPECT_NE(build("short"), before.width);
  const auto shorter = w.Picture(im);
  EXPECT_EQ(build("short"), shorter.width);
  // A size that the user chose stays as long as the content wants the same.
  w.Do({{FedEvent::Kind::reshape, SlotOf(w.kit, im).id, 0, 0, 300, 200}});
  EXPECT_EQ(build("short"), 300);
  // One that is too small is answered once.
  w.Do({{FedEvent::Kind::reshape, SlotOf(w.kit, im).id, 0, 0, 20, 10}});
  EXPECT_EQ(SlotOf(w.kit, im).width, shorter.width);
  w.Do({{FedEvent::Kind::reshape, SlotOf(w.kit, im).id, 0, 0, 20, 10}});
  EXPECT_EQ(SlotOf(w.kit, im).width, 20);
}

TEST(MenuWindows, FollowTheFontStep) {
  MenuWindow w;
  const int im = BuildAll(w.kit, "menu");
  const int middle = SlotOf(w.kit, im).height;
  for (int i = 0; i < 3; ++i) gksMenuFontUp(w.kit);
  w.Do({});
  EXPECT_EQ(w.kit.font_step, 3);
  EXPECT_GT(SlotOf(w.kit, im).height, middle);
  for (int i = 0; i < 3; ++i) gksMenuFontDown(w.kit);
  w.Do({});
  EXPECT_EQ(w.kit.font_step, 1);
  EXPECT_LT(SlotOf(w.kit, im).height, middle);
}

TEST(MenuWindows, NobodySeesAMenuInMemory) {
  MenuWindow w;
  w.platform.window.offscreen = true;
  EXPECT_EQ(gksMenuInit(w.kit, "menu"), 1);
  EXPECT_FALSE(gksMenuStart(w.kit));
  EXPECT_EQ(SlotOf(w.kit, 1).status, MenuStatus::free);
  EXPECT_EQ(w.fake.output, "");
}

}  // namespace
}  // namespace zaview
