#include "menu/menu_window.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include <fmt/format.h>

#include "base/grow.h"
#include "base/message.h"
#include "base/platform.h"
#include "gks/window/side_windows.h"
#include "menu/menu_build.h"
#include "menu/menu_draw.h"
#include "menu/menu_keys.h"
#include "menu/menu_mouse.h"
#include "menu/type_in.h"

namespace zaview {

namespace {

constexpr std::string_view kNotPending = "LOGIC ERROR in gksMenuStart - inmenu_pending not set";
constexpr fmt::string_view kReshaped = "gksMenuStart: ReshapeWindow: w={} h={}";
constexpr fmt::string_view kClosing = "gksMenuClose0 : closing im={}";
constexpr std::string_view kClosed = "gksMenuClose: done...";

MenuSlot& Of(void* self) {
  return *static_cast<MenuSlot*>(self);
}

const WindowSystem& Windows(const MenuToolkit& kit) {
  return kit.platform->window;
}

WindowPlace ScreenOf(const MenuToolkit& kit) {
  return Windows(kit).screen(Windows(kit).self);
}

bool IsOpen(const MenuSlot& slot) {
  return slot.id != 0;
}

// ---- What belongs to a menu elsewhere in the toolkit

void DropInput(MenuToolkit& kit, int im) {
  if (kit.type_in.at.menu == im) kit.type_in = TypeIn{};
  if (kit.focus.menu == im) kit.focus = MenuPoint{};
  if (kit.pressed.menu == im) kit.pressed = MenuPoint{};
  if (kit.clicked.menu == im) kit.clicked = MenuPoint{};
}

// Rows of the same items, whatever their values.
bool IsSameRow(const MenuElement& row, const MenuElement& was) {
  const auto same = [](const MenuRowItem& item, const MenuRowItem& before) {
    return item.type == before.type && (item.type != MenuItemType::label || item.text == before.text);
  };
  return std::equal(row.items.begin(), row.items.end(), was.items.begin(), was.items.end(), same);
}

// Does the field where the caret is stand where it stood before its menu was built anew?
bool IsTypedAsBefore(MenuToolkit& kit) {
  const MenuPoint at = kit.type_in.at;
  const MenuRowItem* const typed = gksMenuItemAt(kit, at);
  const MenuSlot& slot = SlotOf(kit, at.menu);
  const auto row = static_cast<std::size_t>(at.element) - 1;
  return typed != nullptr && !typed->disabled && row < slot.before.size() &&
         IsSameRow(slot.elements[row], slot.before[row]);
}

// A menu that is built anew may have other things where the caret and the keys are.
void DropStrayInput(MenuToolkit& kit, int im) {
  if (kit.type_in.at.menu == im && !IsTypedAsBefore(kit)) kit.type_in = TypeIn{};
  if (kit.focus.menu == im && !CanHaveFocus(kit, kit.focus)) kit.focus = MenuPoint{};
}

// The item that the file selector was opened for may stand in another row now; if it is gone there is nobody to choose
// a file for.
void FollowFileItem(MenuToolkit& kit, int im) {
  MenuPoint& caller = kit.files.caller;
  if (kit.files.menu == 0 || caller.menu != im) return;
  const auto is_file = [](const MenuRowItem* item) { return item != nullptr && item->type == MenuItemType::file; };
  if (is_file(gksMenuItemAt(kit, caller))) return;
  const std::vector<MenuElement>& elements = SlotOf(kit, im).elements;
  for (std::size_t e = 0; e < elements.size(); ++e) {
    for (std::size_t i = 0; i < elements[e].items.size(); ++i) {
      if (!is_file(&elements[e].items[i])) continue;
      caller = {im, static_cast<int>(e) + 1, static_cast<int>(i) + 1};
      return;
    }
  }
  gksMenuClose(kit, kit.files.menu);
}

// A list with as many items as before stays where it was scrolled to, unless another item is chosen now.
void KeepTops(MenuToolkit& kit, int im) {
  MenuSlot& slot = SlotOf(kit, im);
  std::vector<int> old = std::move(slot.top);
  slot.top.clear();
  if (!Grow(slot.top, slot.elements.size())) return;
  for (std::size_t i = 0; i < slot.elements.size(); ++i) {
    const MenuList& list = slot.elements[i].list;
    const MenuList* const was = i < slot.before.size() && i < old.size() ? &slot.before[i].list : nullptr;
    const bool same = was != nullptr && was->items.size() == list.items.size();
    if (same) slot.top[i] = old[i];
    if (const int chosen = FirstChosen(list); chosen > 0 && !(same && FirstChosen(*was) == chosen))
      ShowListItem(kit, im, static_cast<int>(i) + 1, chosen);
  }
}

// ---- Called by the window

void OnDisplay(void* self, const GksPaint& paint, int width, int height) {
  DrawMenu(*Of(self).kit, Of(self).number, paint, width, height);
}

// A size that is too small is answered once; a window manager that insists has its way then.
void OnResized(void* self, int width, int height) {
  MenuSlot& slot = Of(self);
  slot.width = width;
  slot.height = height;
  const MenuFont& font = FontOf(*slot.kit, slot.number);
  const MenuSize needed = WindowSizeOf(slot, font, ScreenOf(*slot.kit));
  const int least = std::min(needed.height, LeastHeight(slot, font));
  if ((width >= needed.width && height >= least) || std::exchange(slot.reshape_answered, true)) return;
  const WindowSystem& windows = Windows(*slot.kit);
  windows.reshape_window(windows.self, slot.id, std::max(width, needed.width), std::max(height, least));
}

void Free(MenuToolkit& kit, int im) {
  MenuSlot& slot = SlotOf(kit, im);
  const bool was_open = slot.status == MenuStatus::open || slot.status == MenuStatus::disabled;
  const MenuHandler handler = slot.handler;
  slot = MenuSlot{};
  DropInput(kit, im);
  if (kit.inmenu_pending == im) kit.inmenu_pending = 0;
  if (kit.files.menu != 0 && kit.files.caller.menu == im) gksMenuClose(kit, kit.files.menu);
  if (was_open && handler.input != nullptr) {
    MenuEvent event;
    event.menu = im;
    event.change = MenuChange::closed;
    handler.input(handler.self, event);
  }
}

bool Open(MenuToolkit& kit, int im) {
  MenuSlot& slot = SlotOf(kit, im);
  const WindowSystem& windows = Windows(kit);
  const MenuSize size = WindowSizeOf(slot, FontOf(kit, im), ScreenOf(kit));
  const WindowPlace main = windows.place(windows.self, kit.gks->window.id);
  const MenuCorner corner = CornerOf(im, size, main, ScreenOf(kit));
  GksSideWindow row;
  row.self = &slot;
  row.width = slot.width = slot.natural_width = size.width;
  row.height = slot.height = slot.natural_height = size.height;
  row.display = OnDisplay;
  row.key = [](void* self, int key) { return MenuKey(*Of(self).kit, Of(self).number, key); };
  row.mouse = [](void* self, int button, int x, int y) { MenuPress(*Of(self).kit, Of(self).number, button, x, y); };
  row.release = [](void* self, int, int, int) { MenuRelease(*Of(self).kit); };
  row.drag = [](void* self, int x, int y) { MenuDragTo(*Of(self).kit, Of(self).number, x, y); };
  row.resized = OnResized;
  row.closed = [](void* self) { Free(*Of(self).kit, Of(self).number); };
  slot.id = gksOpenSideWindow(*kit.platform, *kit.gks, slot.title, corner.x, corner.y, row);
  return slot.id != 0;
}

// One that has grown may reach beyond the screen now.
void KeepOnScreen(const MenuToolkit& kit, int im, const MenuSize& size) {
  const int id = SlotOf(kit, im).id;
  const WindowPlace at = Windows(kit).place(Windows(kit).self, id), screen = ScreenOf(kit);
  if (at.x + size.width <= screen.width && at.y + size.height <= screen.height) return;
  const MenuCorner corner = OnScreen({at.x, at.y}, size, screen);
  Windows(kit).move_window(Windows(kit).self, id, corner.x, corner.y);
}

// The window follows its content, unless that wants what it wanted before: the user may have given it another size.
bool FitWindow(MenuToolkit& kit, int im) {
  constexpr int kOnlyGrows = 1;
  MenuSlot& slot = SlotOf(kit, im);
  MenuSize size = WindowSizeOf(slot, FontOf(kit, im), ScreenOf(kit));
  slot.reshape_answered = false;
  const bool same = size.width == slot.natural_width && size.height == slot.natural_height;
  slot.natural_width = size.width;
  slot.natural_height = size.height;
  if (same) return false;
  if (slot.resize_policy == kOnlyGrows) size = {std::max(size.width, slot.width), std::max(size.height, slot.height)};
  if (size.width == slot.width && size.height == slot.height) return false;
  Trace(kit.platform->console, kReshaped, size.width, size.height);
  Windows(kit).reshape_window(Windows(kit).self, slot.id, size.width, size.height);
  KeepOnScreen(kit, im, size);
  return true;
}

}  // namespace

MenuSlot& SlotOf(MenuToolkit& kit, int im) {
  return kit.slots[static_cast<std::size_t>(im) - 1];
}
const MenuSlot& SlotOf(const MenuToolkit& kit, int im) {
  return kit.slots[static_cast<std::size_t>(im) - 1];
}

MenuElement& ElementOf(MenuToolkit& kit, const MenuPoint& at) {
  return SlotOf(kit, at.menu).elements[static_cast<std::size_t>(at.element) - 1];
}

const MenuFont& FontOf(const MenuToolkit& kit, int im) {
  const int own = SlotOf(kit, im).font_step;
  return MenuFontOf(own > 0 ? own : kit.font_step);
}

MenuLayout LayoutOf(const MenuToolkit& kit, int im) {
  const MenuSlot& slot = SlotOf(kit, im);
  return LayOutMenu(slot, FontOf(kit, im), slot.width, slot.height);
}

MenuPlaced PlacedAt(const MenuToolkit& kit, const MenuPoint& at) {
  return LayoutOf(kit, at.menu).elements[static_cast<std::size_t>(at.element) - 1];
}

MenuBox BoxOf(const MenuToolkit& kit, const MenuPoint& at) {
  return PlacedAt(kit, at).items[static_cast<std::size_t>(at.item) - 1];
}

void PostMenu(const MenuToolkit& kit, int im) {
  if (const int id = SlotOf(kit, im).id; id != 0) Windows(kit).post_redisplay(Windows(kit).self, id);
}

void TellApplication(const MenuToolkit& kit, const MenuEvent& event) {
  const MenuHandler handler = SlotOf(kit, event.menu).handler;
  if (handler.input != nullptr) handler.input(handler.self, event);
}

void ShowElement(MenuToolkit& kit, int im, int element) {
  MenuSlot& slot = SlotOf(kit, im);
  const MenuLayout layout = LayoutOf(kit, im);
  const int below = std::max(layout.height - slot.height, 0), pitch = FontOf(kit, im).pitch;
  const MenuBox box = layout.elements[static_cast<std::size_t>(element) - 1].box;
  slot.scroll = std::clamp(slot.scroll, 0, below);
  if (box.y < 0) slot.scroll += box.y - pitch;
  else if (box.y + box.height > slot.height) slot.scroll += box.y + box.height - slot.height + pitch;
  slot.scroll = std::clamp(slot.scroll, 0, below);
}

void ShowListItem(MenuToolkit& kit, int im, int element, int item) {
  MenuSlot& slot = SlotOf(kit, im);
  const auto e = static_cast<std::size_t>(element) - 1;
  if (slot.top.size() < slot.elements.size() && !Grow(slot.top, slot.elements.size())) return;
  const int lines = IsOpen(slot) ? LayoutOf(kit, im).elements[e].lines : ListLines(slot.elements[e].list);
  slot.top[e] = std::clamp(slot.top[e], std::max(item - lines, 0), std::max(item - 1, 0));
}

bool gksMenuStart(MenuToolkit& kit, bool raise) {
  const int im = std::exchange(kit.inmenu_pending, 0);
  if (im == 0) {
    SayLine(kit.platform->console, kNotPending);
    return false;
  }
  MenuSlot& slot = SlotOf(kit, im);
  const bool is_new = !IsOpen(slot);
  if (is_new && !Open(kit, im)) {
    slot = MenuSlot{};
    return false;
  }
  if (is_new) slot.status = MenuStatus::open;
  KeepTops(kit, im);
  DropStrayInput(kit, im);
  const bool resized = !is_new && FitWindow(kit, im);
  if (is_new || resized || !(slot.elements == slot.before)) PostMenu(kit, im);
  slot.before.clear();
  FollowFileItem(kit, im);
  if (raise && !is_new) Windows(kit).raise(Windows(kit).self, slot.id);
  return true;
}

void gksMenuClose(MenuToolkit& kit, int im) {
  if (im == 0) {
    for (int i = 1; i <= kMenuSlots; ++i) gksMenuClose(kit, i);
    return;
  }
  if (im < 1 || im > kMenuSlots || SlotOf(kit, im).status == MenuStatus::free) return;
  Trace(kit.platform->console, kClosing, im);
  if (const int id = SlotOf(kit, im).id; id != 0) gksCloseSideWindow(*kit.platform, *kit.gks, id);
  Free(kit, im);
  if (kit.platform->console.trace) SayLine(kit.platform->console, kClosed);
}

void gksMenuClear(MenuToolkit& kit, int im) {
  if (im < 1 || im > kMenuSlots) return;
  DropInput(kit, im);
  SlotOf(kit, im).elements.clear();
  PostMenu(kit, im);
}

void gksMenuDisable(MenuToolkit& kit, int im) {
  if (!gksMenuIsOpen(kit, im)) return;
  DropInput(kit, im);
  SlotOf(kit, im).status = MenuStatus::disabled;
  PostMenu(kit, im);
}

void gksMenuEnable(MenuToolkit& kit, int im) {
  if (!gksMenuIsOpen(kit, im)) return;
  SlotOf(kit, im).status = MenuStatus::open;
  PostMenu(kit, im);
}

void gksMenuRefresh(MenuToolkit& kit, int im) {
  for (int i = im == 0 ? 1 : im; i <= (im == 0 ? kMenuSlots : im); ++i) {
    if (!gksMenuIsOpen(kit, i) || kit.inmenu_pending == i) continue;
    static_cast<void>(FitWindow(kit, i));
    PostMenu(kit, i);
  }
}

void gksMenuFontUp(MenuToolkit& kit) {
  kit.font_step = std::min(kit.font_step + 1, kMostFont);
  gksMenuRefresh(kit, 0);
}

void gksMenuFontDown(MenuToolkit& kit) {
  kit.font_step = std::max(kit.font_step - 1, kLeastFont);
  gksMenuRefresh(kit, 0);
}

bool gksMenuIsOpen(const MenuToolkit& kit, int im) {
  return im >= 1 && im <= kMenuSlots && IsOpen(SlotOf(kit, im));
}

}  // namespace zaview
