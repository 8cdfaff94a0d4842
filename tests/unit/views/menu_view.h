// Somebody at a window with option menus, without a display: items are found by their words and used by real events.
#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "menu/menu_build.h"
#include "menu/menu_window.h"
#include "unit/views/plot_view.h"
#include "views/menus/menus.h"
#include "views/state/start_plot.h"

namespace zaview {

struct ItemAt {               // blank: any
  std::string_view row = {};  // label at the beginning of its row
  std::string_view text = {};
  int nth = 1;  // of those that fit
};

struct MenuView : Views {
  std::set<const OptionItem*> used;

  explicit MenuView(std::initializer_list<const char*> samples) : Views(samples) {
    session.dialogue = [](Session& s) { s.run.exit_requested = true; };
  }

  // Until nothing is left to be done.
  void Loop() {
    const WindowSystem& window = session.platform.window;
    static_cast<void>(StatusOf([&] { window.main_loop(window.self); }));
  }
  void Do(const std::vector<FedEvent>& events) {
    for (const FedEvent& event : events) FeedEvent(*windows, event);
    Loop();
  }
  void Key(int key, unsigned modifiers = 0, int window = 0) {
    Do({FedEvent{FedEvent::Kind::key, window == 0 ? session.gks.window.id : window, key, modifiers}});
  }
  // The view that a plot, or the module, was started for; drawn.
  void Enter() {
    static_cast<void>(Views::Run());
    fake.output.clear();
  }
  void EnterPlot(const PlotRequest& wanted) {
    EXPECT_TRUE(StartPlot(session, wanted, 0)) << fake.output;
    Enter();
  }
  void EnterView(PlotModule module) {
    EXPECT_TRUE(StartView(session, module, 0)) << fake.output;
    Enter();
  }

  [[nodiscard]] int WindowOf(int im) const { return SlotOf(session.menus.kit, im).id; }
  [[nodiscard]] std::string RowLabel(const OptionPlace& place) {
    const MenuElement* const element = gksMenuElementAt(session.menus.kit, place.menu, place.element);
    const bool has = element != nullptr && !element->items.empty() && element->items[0].type == MenuItemType::label;
    return has ? element->items[0].text : std::string();
  }
  [[nodiscard]] const OptionPlace* Find(int im, const ItemAt& at) {
    int left = at.nth;
    for (const OptionPlace& place : session.menus.places)
      if (place.menu == im && (at.text.empty() || place.option->text == at.text) &&
          (at.row.empty() || RowLabel(place) == at.row) && --left == 0)
        return &place;
    return nullptr;
  }
  // What the item shows.
  [[nodiscard]] const MenuRowItem* Shown(int im, const ItemAt& at) {
    const OptionPlace* const place = Find(im, at);
    return place == nullptr ? nullptr : gksMenuItemAt(session.menus.kit, {im, place->element, place->item});
  }
  void PressAt(int im, const MenuBox& box, double part_of_height = 0.5, unsigned modifiers = 0) {
    const int x = box.x + box.width / 2, y = box.y + static_cast<int>(box.height * part_of_height);
    Do({{FedEvent::Kind::mouse, WindowOf(im), 1, modifiers, x, y},
        {FedEvent::Kind::release, WindowOf(im), 1, 0, x, y}});
  }
  // offset: so many items behind it (arrows stand behind their field). A menu higher than the screen is scrolled.
  void Press(int im, const ItemAt& at, int offset = 0, double part_of_height = 0.5) {
    const OptionPlace* const found = Find(im, at);
    ASSERT_NE(found, nullptr) << at.row << " / " << at.text;
    const OptionPlace place = *found;
    used.insert(place.option);
    ShowElement(session.menus.kit, im, place.element);
    const MenuLayout layout = LayoutOf(session.menus.kit, im);
    const MenuPlaced& placed = layout.elements[static_cast<std::size_t>(place.element) - 1];
    PressAt(im, placed.items[static_cast<std::size_t>(place.item + offset) - 1], part_of_height);
  }
  void Type(int im, const ItemAt& at, std::string_view text) {
    constexpr int kSelectAll = 1, kEnter = 13;
    Press(im, at);
    std::vector<FedEvent> keys;
    const auto add = [&](int key) { keys.push_back({FedEvent::Kind::key, WindowOf(im), key, 0}); };
    add(kSelectAll);
    for (const char letter : text) add(letter);
    add(kEnter);
    Do(keys);
  }
  void Arrow(int im, const ItemAt& at, bool up) { Press(im, at, 1, up ? 0.25 : 0.75); }

  // Every item of these tables that sets something was used.
  void ExpectAllUsed(std::span<const OptionBlock> blocks) {
    for (const OptionBlock& block : blocks) {
      for (const OptionItem& item : block.items) {
        const bool tried = item.value.sets == nullptr || used.contains(&item);
        EXPECT_TRUE(tried) << "'" << item.text << "' was not tried";
      }
    }
  }
};

}  // namespace zaview
