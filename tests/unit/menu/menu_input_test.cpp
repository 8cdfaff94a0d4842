// Mouse and keys in menus, as the window tells them, and what the application is told.
#include "unit/menu/menu_window.h"

namespace zaview {
namespace {

constexpr int kTab = 9, kReturn = 13, kEscape = 27, kBackspace = 8, kDelete = 127, kAll = 1;
constexpr auto mouse = FedEvent::Kind::mouse, release = FedEvent::Kind::release, drag = FedEvent::Kind::drag;

TEST(MenuMouse, PressesAreToldToTheApplication) {
  const struct {
    int element, item;
    std::string_view told;
    unsigned modifiers = 0;
  } kPresses[] = {
      {3, 2, "1.3.2 button 0 0 ''; "},
      {4, 2, "1.4.2 check 0 0 ''; "},
      {4, 2, "1.4.2 check 1 0 ''; "},
      {4, 3, "1.4.2 check 0 0 ''; "},  // the label behind it
      {4, 1, ""},                      // a label alone
      {4, 8, "1.4.8 check 1 0 ''; "},  // one of several stays on
      {4, 10, "1.4.10 check 1 0 ''; "},
      {5, 3, "1.5.2 integer 11 0 ''; "},
      {5, 3, "1.5.2 integer 1 0 ''; ", kShiftKey},
      {5, 6, "1.5.5 real 0 0.2 ''; "},
      {5, 6, "1.5.5 real 0 0.1 ''; "},
      {5, 6, "1.5.5 real 0 -0.9 ''; ", kShiftKey},
      {6, 3, "1.6.3 colour 2 0 ''; "},
      {6, 5, ""},  // disabled
      {7, 0, "1.7.0 check 0 0 ''; "},
      {8, 0, ""},
      {11, 0, "1.11.2 list 2 0 ''; "},  // several: turned over
      {12, 1, "1.12.0 play 0 0 ''; "},
      {12, 1, "1.12.0 pause 0 0 ''; "},
      {12, 2, "1.12.2 step 299 0 ''; "},
      {12, 3, "1.12.3 step 300 0 ''; "},
      {13, 2, "1.13.2 button 0 0 ''; "},
  };
  MenuWindow w;
  const int im = BuildAll(w.kit, "menu", /*disabled=*/true);
  for (const auto& c : kPresses) EXPECT_EQ(w.Do(w.ClickOn(im, c.element, c.item, c.modifiers)), c.told);
  const auto& curves = SlotOf(w.kit, im).elements[10].list.items;
  EXPECT_TRUE(curves[0].chosen && !curves[1].chosen && !curves[2].chosen);
  // The upper arrow; another button does nothing.
  const MenuBox arrows = w.BoxOf(im, 5, 3);
  EXPECT_EQ(w.Do(w.Press(im, arrows.x + 8, arrows.y + 4)), "1.5.2 integer 2 0 ''; ");
  EXPECT_EQ(w.Do(w.Press(im, arrows.x + 8, arrows.y + 4, 0, 3)), "");
}

TEST(MenuMouse, ButtonsAreDrawnDownUntilTheyAreReleased) {
  MenuWindow w;
  const int im = BuildAll(w.kit, "menu");
  w.Do({});
  const auto up = w.Picture(im).rgb;
  const std::vector<FedEvent> click = w.ClickOn(im, 3, 1);
  w.Do({click[0]});
  EXPECT_NE(w.Picture(im).rgb, up);
  w.Do({click[1], w.ClickOn(im, 6, 5)[0]});  // a disabled one stays up
  EXPECT_EQ(w.Picture(im).rgb, up);
  w.Do({click[1], click[0]});
  w.gks.dump.waiting = true;  // "Write Image File" was it
  FeedEvent(*w.windows, click[1]);
  w.Do({});
  w.gks.dump.waiting = false;
  EXPECT_EQ(w.Picture(im).rgb, up);
}

TEST(MenuMouse, ListsScroll) {
  MenuWindow w;
  const int im = BuildAll(w.kit, "menu"), id = SlotOf(w.kit, im).id;
  const MenuPlaced list = w.Layout(im).elements[9];
  ASSERT_EQ(list.lines, 5);
  const int x = list.inner.x + 5, first = list.inner.y + 2, bar = list.bar.x + 5;
  const auto top = [&] { return w.Layout(im).elements[9].top; };
  EXPECT_EQ(w.Do(w.Press(im, x, first + 18)), "1.10.2 list 2 0 ''; ");
  w.Do(w.Press(im, x, first, 0, kWheelDown));
  EXPECT_EQ(top(), 3);
  EXPECT_EQ(w.Do(w.Press(im, x, first)), "1.10.4 list 4 0 ''; ");
  w.Do(w.Press(im, bar, list.bar.y + list.bar.height - 2));  // below the thumb: a page
  EXPECT_EQ(top(), 8);
  const MenuBox thumb = w.Layout(im).elements[9].thumb;
  w.Do({{mouse, id, 1, 0, bar, thumb.y + 3}, {drag, id, 0, 0, bar, 2000}, {release, id, 1, 0, bar, 2000}});
  EXPECT_EQ(top(), 25);
  w.Do({{drag, id, 0, 0, bar, 0}});  // no button is down
  EXPECT_EQ(top(), 25);
  EXPECT_EQ(w.Do(w.Press(im, x, first)), "1.10.26 list 26 0 ''; ");
  // Twice in a row within 0.4 s; then it begins anew.
  EXPECT_EQ(w.Do(w.Press(im, x, first)), "1.10.26 twice 26 0 ''; ");
  EXPECT_EQ(w.Do(w.Press(im, x, first)), "1.10.26 list 26 0 ''; ");
  w.fake.seconds += 0.5;
  EXPECT_EQ(w.Do(w.Press(im, x, first)), "1.10.26 list 26 0 ''; ");
  // Built anew: it stays where it is.
  BuildAll(w.kit, "menu");
  EXPECT_EQ(w.Layout(im).elements[9].top, 2);  // another item is chosen: that is in view
  w.Do(w.Press(im, x, first, 0, kWheelDown));
  BuildAll(w.kit, "menu");
  EXPECT_EQ(top(), 5);
}

TEST(MenuMouse, TheSliderGoesThroughTheRun) {
  MenuWindow w;
  const int im = BuildAll(w.kit, "menu"), id = SlotOf(w.kit, im).id;
  const MenuPlaced bar = w.Layout(im).elements[11];
  const int y = bar.inner.y + 5, x = bar.thumb.x + 3;
  EXPECT_EQ(w.Do({{mouse, id, 1, 0, x, y}, {drag, id, 0, 0, 5000, y}, {drag, id, 0, 0, -5000, y}, {release, id, 1}}),
            "1.12.0 step 1000 0 ''; 1.12.0 step 1 0 ''; ");
  EXPECT_EQ(w.Do({{drag, id, 0, 0, 200, y}}), "");
  // Half of the way for the middle of the thumb.
  const int middle = bar.inner.x + bar.inner.width / 2;
  const std::string told = w.Do(w.Press(im, middle, y));
  EXPECT_NEAR(SlotOf(w.kit, im).elements[11].run_bar.step, 500, 3) << told;
}

// ---- Type-ins

TEST(MenuTypeIn, KeysEditAndReturnTells) {
  const struct {
    std::vector<int> keys;  // into a field that holds 12
    int value;              // told; 0: nothing is, and the old value stays
  } kTyped[] = {
      {{'3', kReturn}, 123},
      {{kBackspace, kReturn}, 1},
      {{kKeyHome, kDelete, kReturn}, 2},
      {{kKeyLeft, '5', kReturn}, 152},
      {{kAll, '7', kReturn}, 7},
      {{kKeyHome, kKeyRight, kKeyEnd, '0', kReturn}, 120},
      {{'x', kReturn}, 0},
      {{kBackspace, kBackspace, kReturn}, 0},
      {{'9', kEscape}, 0},
  };
  for (const auto& c : kTyped) {
    MenuWindow w;
    const int im = BuildAll(w.kit, "menu");
    w.Do(w.ClickOn(im, 5, 2));
    const std::string told = c.value == 0 ? "" : fmt::format("1.5.2 integer {} 0 '' entered; ", c.value);
    EXPECT_EQ(w.Do(w.Keys(im, c.keys)), told);
    EXPECT_EQ(gksMenuItemAt(w.kit, {im, 5, 2})->value, c.value == 0 ? 12 : c.value);
    EXPECT_EQ(w.kit.type_in.at.menu, 0);
  }
}

TEST(MenuTypeIn, LettersAreWholeOnes) {
  MenuWindow w;
  const int im = BuildAll(w.kit, "menu");
  w.Do(w.ClickOn(im, 6, 2));
  EXPECT_EQ(w.Do(w.Keys(im, {kKeyHome, kKeyRight, kDelete, 0xFC, kReturn})),
            "1.6.2 text 0 0 'G\xC3\xBCteborg' entered; ");
  // As many bytes as it may have.
  w.Do(w.ClickOn(im, 6, 2));
  EXPECT_EQ(w.Do(w.Type(im, "abcdefghijklmnop\r")), "1.6.2 text 0 0 'G\xC3\xBCteborgabcdefghijk' entered; ");
  // Selected with Shift, and replaced.
  w.Do(w.ClickOn(im, 6, 2));
  w.Do(w.Keys(im, {kKeyHome}, kShiftKey));
  EXPECT_EQ(w.Do(w.Type(im, "A\r")), "1.6.2 text 0 0 'A' entered; ");
}

TEST(MenuTypeIn, GoesOnWithTheNextField) {
  MenuWindow w;
  const int im = BuildAll(w.kit, "menu");
  const auto at = [&] { return std::pair(w.kit.type_in.at.element, w.kit.type_in.at.item); };
  w.Do(w.ClickOn(im, 5, 2));
  EXPECT_EQ(w.Do(w.Type(im, "0\t")), "1.5.2 integer 120 0 ''; ");
  EXPECT_EQ(at(), std::pair(5, 5));
  EXPECT_EQ(w.Do(w.Keys(im, {kKeyDown})), "");  // the same value
  EXPECT_EQ(at(), std::pair(6, 2));
  w.Do(w.Keys(im, {kTab}));
  EXPECT_EQ(at(), std::pair(5, 2));
  w.Do(w.Keys(im, {kKeyUp}));
  EXPECT_EQ(at(), std::pair(6, 2));
  // A click elsewhere ends it first.
  w.Do(w.Keys(im, {kAll, 'x'}));
  EXPECT_EQ(w.Do(w.ClickOn(im, 3, 1)), "1.6.2 text 0 0 'x'; 1.3.1 button 0 0 ''; ");
  // A click inside sets the caret.
  w.Do(w.ClickOn(im, 5, 2));
  w.Do(w.Press(im, w.BoxOf(im, 5, 2).x + 1, w.BoxOf(im, 5, 2).y + 5));
  EXPECT_EQ(w.Do(w.Type(im, "9\r")), "1.5.2 integer 9120 0 '' entered; ");
}

TEST(MenuTypeIn, TooLongIsRefused) {
  MenuWindow w;
  const int im = gksMenuInit(w.kit, "menu");
  gksMenuButtonRow(w.kit, 0, 2);
  gksMenuAddItem(w.kit, Kind::text, "", 300);
  gksMenuAddItem(w.kit, Kind::text, std::string(257, 'x'));
  gksMenuStart(w.kit);
  constexpr std::string_view kEnd = " is larger than maximum length of type-in data string=256\n Type-in is aborted\n";
  EXPECT_EQ(w.Do(w.ClickOn(im, 1, 1)),
            fmt::format("WARNING in gksMenu routines: specified maximum object length=300{}", kEnd));
  EXPECT_EQ(w.Do(w.ClickOn(im, 1, 2)), fmt::format("WARNING in gksMenu routines: initial object length=257{}", kEnd));
}

// ---- Keys

TEST(MenuKeys, ReachEverything) {
  const struct {
    std::vector<int> keys;
    std::string_view told;
  } kSteps[] = {
      {{kTab, kKeyRight, kReturn}, "1.3.2 button 0 0 ''; "},
      {{kTab, kTab, ' '}, "1.4.2 check 0 0 ''; "},
      {{kTab, kTab, kTab, kTab, kReturn, '5', kReturn}, "1.5.2 integer 125 0 '' entered; "},
      {{kKeyDown, kKeyDown, kTab, kReturn}, "1.6.3 colour 2 0 ''; "},
      {{kTab, kTab, ' '}, "1.7.0 check 0 0 ''; "},
      {{kTab, kKeyDown}, "1.10.4 list 4 0 ''; "},
      {{kKeyPageDown, kKeyEnd, kKeyHome}, "1.10.9 list 9 0 ''; 1.10.30 list 30 0 ''; 1.10.1 list 1 0 ''; "},
      {{kReturn}, "1.10.1 twice 1 0 ''; "},
      {{kTab, kKeyDown, kKeyDown, ' '}, "1.11.3 list 3 0 ''; "},
      {{kTab, kKeyRight, kKeyEnd, kReturn}, "1.12.3 step 301 0 ''; 1.12.0 step 1000 0 ''; 1.12.0 play 0 0 ''; "},
      {{kTab, kTab, kReturn}, "1.13.2 button 0 0 ''; "},
      {{kTab, kKeyLeft, kReturn}, "1.13.2 button 0 0 ''; "},  // round
  };
  MenuWindow w;
  const int im = BuildAll(w.kit, "menu", /*disabled=*/true);
  for (const auto& c : kSteps) EXPECT_EQ(w.Do(w.Keys(im, c.keys)), c.told);
}

// A menu higher than the screen: the wheel, and keys that leave what is seen, scroll it.
TEST(MenuKeys, HighMenusScroll) {
  MenuWindow w;
  w.platform.window.screen = [](void*) { return WindowPlace{0, 0, 800, 240}; };
  const int im = BuildAll(w.kit, "menu");
  EXPECT_EQ(SlotOf(w.kit, im).height, 240);
  EXPECT_GT(w.BoxOf(im, 13, 0).y, 240);
  w.Do(w.Keys(im, {kTab, kKeyLeft}));  // the last button
  const int seen = w.BoxOf(im, 13, 0).y;
  EXPECT_TRUE(seen > 0 && seen < 240);
  w.Do(w.Press(im, 100, seen, 0, kWheelUp));
  EXPECT_EQ(w.BoxOf(im, 13, 0).y, seen + 3 * 18);
  for (int i = 0; i < 9; ++i) w.Do(w.Press(im, 2, 2, 0, kWheelUp));
  EXPECT_EQ(w.BoxOf(im, 1, 0).y, 14);
}

TEST(MenuKeys, OthersAreTheViews) {
  MenuWindow w;
  const int im = BuildAll(w.kit, "menu");
  const auto seen = [&](int key, unsigned modifiers = 0) {
    return w.Run(w.Keys(im, {key}, modifiers)).find(fmt::format("key {}", key)) != std::string::npos;
  };
  EXPECT_TRUE(seen('z') && seen(kKeyLeft) && seen(kKeyF1 + 1) && seen('o', kAltKey));
  w.Do(w.Keys(im, {kTab}));
  EXPECT_TRUE(seen('z') && seen('o', kAltKey) && !seen(kKeyLeft));
  w.Do(w.Keys(im, {kEscape}));
  EXPECT_TRUE(seen(kKeyLeft));
  w.Do(w.ClickOn(im, 5, 2));
  EXPECT_TRUE(!seen('z') && !seen(kKeyLeft) && seen('o', kAltKey));
}

TEST(MenuKeys, DeafMenusHearNothing) {
  MenuWindow w;
  const int im = BuildAll(w.kit, "menu");
  w.Do({});
  const auto lit = w.Picture(im).rgb;
  gksMenuDisable(w.kit, im);
  EXPECT_EQ(w.Do(w.ClickOn(im, 3, 1)) + w.Do(w.Keys(im, {kTab, kReturn, 'z'})), "");
  EXPECT_EQ(w.Run(w.Keys(im, {'z'})).find("key"), std::string::npos);
  EXPECT_NE(w.Picture(im).rgb, lit);
  gksMenuEnable(w.kit, im);
  EXPECT_EQ(w.Do(w.ClickOn(im, 3, 1)), "1.3.1 button 0 0 ''; ");
  // While the main window asks something, clicks are dropped and keys are its own.
  w.Run({{FedEvent::Kind::key, 1, 'p'}});
  EXPECT_EQ(w.Do(w.ClickOn(im, 3, 1)), "");
  EXPECT_EQ(w.Run(w.Keys(im, {'a', kReturn})).substr(0, 12), "answer 'a'; ");
}

TEST(MenuKeys, AMenuThatGoesTakesItsCaretAlong) {
  MenuWindow w;
  const int im = BuildAll(w.kit, "menu");
  w.Do(w.ClickOn(im, 5, 2));
  EXPECT_EQ(w.Do({{FedEvent::Kind::close, SlotOf(w.kit, im).id}}), "1.0.0 closed 0 0 ''; ");
  EXPECT_EQ(w.kit.type_in.at.menu, 0);
  EXPECT_FALSE(gksMenuIsOpen(w.kit, im));
  // Built anew with something else where the caret was.
  BuildAll(w.kit, "menu");
  w.Do(w.ClickOn(im, 5, 2));
  BuildAll(w.kit, "menu");
  EXPECT_EQ(w.kit.type_in.at.menu, im);
  EXPECT_EQ(gksMenuInit(w.kit, "menu"), im);
  for (int element = 1; element < 5; ++element) gksMenuText(w.kit, "nothing");
  gksMenuButtonRow(w.kit, 0, 2);
  gksMenuAddItem(w.kit, Kind::label, "Another integer");
  gksMenuAddItemI(w.kit, Kind::integer, 12);
  gksMenuStart(w.kit);
  EXPECT_EQ(w.kit.type_in.at.menu, 0);
}

// Another menu shrinks below the row where the caret is in this one.
TEST(MenuKeys, ACaretStaysWhileOtherMenusChange) {
  MenuWindow w;
  const int im = BuildAll(w.kit, "menu");
  BuildAll(w.kit, "other");
  w.Do(w.ClickOn(im, 6, 2));
  static_cast<void>(gksMenuInit(w.kit, "other"));
  gksMenuText(w.kit, "nothing");
  gksMenuStart(w.kit);
  EXPECT_EQ(w.Do(w.Type(im, "!\r")), "1.6.2 text 0 0 'G\xC3\xB6teborg!' entered; ");
}

}  // namespace
}  // namespace zaview
