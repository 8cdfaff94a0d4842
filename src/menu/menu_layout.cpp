#include "menu/menu_layout.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <string_view>
#include <utility>

#include <fmt/format.h>

#include "base/number_format.h"

namespace zaview {

namespace {

// Pixels.
constexpr int kMargin = 14, kSide = 10;  // above and below; beside
constexpr int kBetween = 4;              // elements
constexpr int kGap = 3;                  // items of a row, and what most item widths have over their text
constexpr int kRowOverLine = 2;          // a row of buttons is higher than a line of text
constexpr int kListFrame = 3;            // on each side
constexpr int kInsideItem = 4;           // of a list, beside its text
constexpr int kScrollBar = 14, kLeastThumb = 12;
constexpr int kField = 4;  // of a type-in, from its edge to its letters
constexpr int kMostLines = 40, kLeastLines = 4;
constexpr int kIntegerColumns = 6, kRealColumns = 10;
constexpr int kChipColumns = 4, kArrowColumns = 2, kThumbColumns = 2, kTrackColumns = 30;

using Kind = MenuItemType;

int RowHeight(const MenuFont& font) {
  return font.pitch + kRowOverLine;
}

int TypeInColumns(const MenuRowItem& item) {
  if (item.width > 0) return item.width;
  if (item.type == Kind::integer) return kIntegerColumns;
  if (item.type == Kind::real) return kRealColumns;
  const int most = static_cast<int>(kItemText);
  return item.capacity > 0 ? std::min(item.capacity, most) : most;
}

int ButtonWidth(const MenuFont& font, std::string_view text) {
  return MenuTextWidth(font, text) + 2 * font.width + kGap;
}

int ItemWidth(const MenuRowItem& item, const MenuFont& font) {
  const int fixed = item.width * font.width;
  switch (item.type) {
    case Kind::gap_columns:
      return item.value * font.width + kGap;
    case Kind::gap_pixels:
      return item.value + kGap;
    case Kind::tab_columns:
    case Kind::tab_pixels:
      return 0;
    case Kind::label:
      return fixed > 0 ? fixed : MenuTextWidth(font, item.text);
    case Kind::button:
    case Kind::file:
      return fixed > 0 ? fixed : ButtonWidth(font, item.text);
    case Kind::check:
      return MarkSide(font) + (item.text.empty() ? 0 : kBesideMark + MenuTextWidth(font, item.text));
    case Kind::integer:
    case Kind::real:
    case Kind::text:
      return (TypeInColumns(item) + 2) * font.width + kGap;
    case Kind::colour:
      return ChipWidth(font) + (item.text.empty() ? 0 : kBesideMark + MenuTextWidth(font, item.text));
    case Kind::arrows:
      return kArrowColumns * font.width;
  }
  return 0;
}

// From the left end of the row; gap and tab hold the distance that others have behind them.
std::vector<MenuBox> PlaceItems(const MenuElement& row, const MenuFont& font) {
  std::vector<MenuBox> boxes;
  int x = 0;
  for (const MenuRowItem& item : row.items) {
    const int column = item.type == Kind::tab_columns ? item.value * font.width : item.value;
    if (item.type == Kind::tab_columns || item.type == Kind::tab_pixels) x = std::max(x, column + kGap);
    const int width = ItemWidth(item, font);
    boxes.push_back({x, 0, width, RowHeight(font)});
    x += width + (item.type < Kind::label ? 0 : kGap);
  }
  return boxes;
}

int RowWidth(const std::vector<MenuBox>& boxes) {
  return boxes.empty() ? 0 : boxes.back().x + boxes.back().width;
}

// By the longer of the two words of the first, so that nothing moves when they change.
int BarButtonWidth(const MenuFont& font, int button) {
  return ButtonWidth(font, BarButtonText(button, /*running=*/true));
}

int RunBarWidth(const MenuRunBar& bar, const MenuFont& font) {
  int width = MenuTextWidth(font, RunBarTimes(bar));
  for (int button = kPlayButton; button <= kOnButton; ++button) width += BarButtonWidth(font, button) + kGap;
  return std::max(width, kTrackColumns * font.width);
}

int ListWidth(const MenuList& list, const MenuFont& font) {
  int longest = 0;
  for (const MenuListItem& item : list.items)
    longest = std::max(
        longest, MenuTextWidth(font, std::string_view(item.text).substr(0, static_cast<std::size_t>(list.columns))));
  const bool scrolls = static_cast<int>(list.items.size()) > ListLines(list);
  return longest + 2 * kListFrame + kInsideItem + (IsOneChoice(list) ? 0 : TickWidth(font)) +
         (scrolls ? kScrollBar : 0);
}

int TextLines(std::string_view text) {
  return 1 + static_cast<int>(std::count(text.begin(), text.end(), '\n'));
}

int TextWidth(std::string_view text, const MenuFont& font) {
  int width = 0;
  for (std::size_t at = 0; at <= text.size();) {
    const std::size_t end = std::min(text.find('\n', at), text.size());
    width = std::max(width, MenuTextWidth(font, text.substr(at, end - at)));
    at = end + 1;
  }
  return width;
}

int ElementWidth(const MenuElement& element, const MenuFont& font) {
  switch (element.type) {
    case MenuElementType::text:
      return TextWidth(element.text, font);
    case MenuElementType::list:
      return ListWidth(element.list, font);
    case MenuElementType::check_box:
      return MarkSide(font) + 2 * kGap + MenuTextWidth(font, element.text);
    case MenuElementType::separator:
      return 0;
    case MenuElementType::button_row:
      return RowWidth(PlaceItems(element, font));
    case MenuElementType::run_bar:
      return RunBarWidth(element.run_bar, font);
  }
  return 0;
}

int ElementHeight(const MenuElement& element, const MenuFont& font, int lines) {
  switch (element.type) {
    case MenuElementType::text:
      return TextLines(element.text) * font.pitch;
    case MenuElementType::list:
      return lines * font.pitch + 2 * kListFrame;
    case MenuElementType::check_box:
      return font.pitch;
    case MenuElementType::separator:
      return std::max(element.value, 1);
    case MenuElementType::button_row:
      return RowHeight(font);
    case MenuElementType::run_bar:
      return font.pitch + kBetween + RowHeight(font);
  }
  return 0;
}

// ---- Heights of lists

bool IsBox(const MenuList& list) {
  return list.mode == ListMode::several_in_box || list.mode == ListMode::one_in_box;
}

std::vector<int> LinesOf(const MenuSlot& slot) {
  std::vector<int> lines;
  for (const MenuElement& element : slot.elements)
    lines.push_back(element.type == MenuElementType::list ? ListLines(element.list) : 0);
  return lines;
}

// Which lists grow and give way: those in a box or with a scroll bar, or the one that is named.
bool IsElastic(const MenuSlot& slot, std::size_t i) {
  const MenuElement& element = slot.elements[i];
  if (element.type != MenuElementType::list) return false;
  if (slot.stretched_list > 0) return static_cast<int>(i) + 1 == slot.stretched_list;
  const MenuList& list = element.list;
  return IsBox(list) || static_cast<int>(list.items.size()) > ListLines(list);
}

int HeightOf(const MenuSlot& slot, const MenuFont& font, const std::vector<int>& lines) {
  int height = 2 * kMargin - kBetween;
  for (std::size_t i = 0; i < slot.elements.size(); ++i)
    height += ElementHeight(slot.elements[i], font, lines[i]) + kBetween;
  return std::max(height, 2 * kMargin);
}

// One line after the other, each list in turn.
void Spread(const MenuSlot& slot, int count, std::vector<int>& lines) {
  const int way = count < 0 ? -1 : 1;
  for (int left = std::abs(count); left > 0;) {
    const int before = left;
    for (std::size_t i = 0; i < lines.size() && left > 0; ++i) {
      if (!IsElastic(slot, i) || (way < 0 && lines[i] <= kLeastLines)) continue;
      lines[i] += way;
      --left;
    }
    if (left == before) return;
  }
}

void FitHeight(const MenuSlot& slot, const MenuFont& font, int height, std::vector<int>& lines) {
  const int surplus = height - HeightOf(slot, font, lines);
  const int count = surplus < 0 ? -((-surplus + font.pitch - 1) / font.pitch) : surplus / font.pitch;
  Spread(slot, count, lines);
}

// ---- Placing

void PlaceList(const MenuElement& element, const MenuFont& font, int top, MenuPlaced& placed) {
  const int count = static_cast<int>(element.list.items.size()), lines = placed.lines;
  const MenuBox& box = placed.box;
  const bool scrolls = count > lines;
  placed.top = std::clamp(top, 0, std::max(count - lines, 0));
  placed.inner = {box.x + kListFrame, box.y + kListFrame,
                  box.width - 2 * kListFrame - (scrolls ? kScrollBar - kListFrame : 0), lines * font.pitch};
  if (!scrolls) return;
  MenuBox& bar = placed.bar;
  bar = {box.x + box.width - kScrollBar, box.y, kScrollBar, box.height};
  const int height = std::max(bar.height * lines / count, kLeastThumb);
  placed.thumb = {bar.x, bar.y + (bar.height - height) * placed.top / (count - lines), bar.width, height};
}

void PlaceRunBar(const MenuRunBar& bar, const MenuFont& font, MenuPlaced& placed) {
  const MenuBox& box = placed.box;
  placed.inner = {box.x, box.y, box.width, font.pitch};
  const int thumb = kThumbColumns * font.width, way = box.width - thumb, steps = bar.last_step - bar.first_step;
  const int at = steps < 1 ? 0 : static_cast<int>(static_cast<long long>(way) * (bar.step - bar.first_step) / steps);
  placed.thumb = {box.x + std::clamp(at, 0, std::max(way, 0)), box.y, thumb, font.pitch};
  int x = box.x;
  for (int button = kPlayButton; button <= kOnButton; ++button) {
    const int width = BarButtonWidth(font, button);
    placed.items.push_back({x, box.y + font.pitch + kBetween, width, RowHeight(font)});
    x += width + kGap;
  }
}

void PlaceRow(const MenuElement& element, const MenuFont& font, MenuPlaced& placed) {
  placed.items = PlaceItems(element, font);
  const int left = element.centred ? std::max((placed.box.width - RowWidth(placed.items)) / 2, 0) : 0;
  for (MenuBox& item : placed.items) {
    item.x += placed.box.x + left;
    item.y = placed.box.y;
  }
}

MenuLayout Place(const MenuSlot& slot, const MenuFont& font, const std::vector<int>& lines, int width, int y) {
  MenuLayout layout;
  layout.width = width;
  for (std::size_t i = 0; i < slot.elements.size(); ++i) {
    const MenuElement& element = slot.elements[i];
    MenuPlaced placed;
    placed.lines = lines[i];
    placed.box = {kSide, y, width - 2 * kSide, ElementHeight(element, font, lines[i])};
    const int square = MarkSide(font);
    if (element.type == MenuElementType::check_box)
      placed.inner = {placed.box.x, y + (font.pitch - square) / 2, square, square};
    if (element.type == MenuElementType::list) PlaceList(element, font, i < slot.top.size() ? slot.top[i] : 0, placed);
    if (element.type == MenuElementType::button_row) PlaceRow(element, font, placed);
    if (element.type == MenuElementType::run_bar) PlaceRunBar(element.run_bar, font, placed);
    y += placed.box.height + kBetween;
    layout.elements.push_back(std::move(placed));
  }
  layout.height = HeightOf(slot, font, lines);
  return layout;
}

int WidthOf(const MenuSlot& slot, const MenuFont& font) {
  int width = 0;
  for (const MenuElement& element : slot.elements) width = std::max(width, ElementWidth(element, font));
  return width + 2 * kSide;
}

int Within(int value, int least, int largest) {
  return std::max(largest > 0 ? std::min(value, largest) : value, least);
}

}  // namespace

int ListLines(const MenuList& list) {
  return std::clamp(IsBox(list) ? list.box_lines : static_cast<int>(list.items.size()), 1, kMostLines);
}

bool IsOneChoice(const MenuList& list) {
  return list.mode == ListMode::one || list.mode == ListMode::one_in_box;
}

int FirstChosen(const MenuList& list) {
  const auto found = std::find_if(list.items.begin(), list.items.end(), [](const auto& item) { return item.chosen; });
  return found == list.items.end() ? 0 : static_cast<int>(found - list.items.begin()) + 1;
}

int MarkSide(const MenuFont& font) {
  return font.height + 2;
}

int TickWidth(const MenuFont& font) {
  return font.height + kBesideMark;
}

int ChipWidth(const MenuFont& font) {
  return kChipColumns * font.width + kGap;
}

bool IsTypeIn(MenuItemType type) {
  return type == Kind::integer || type == Kind::real || type == Kind::text;
}

std::string ShownValue(const MenuRowItem& item) {
  if (item.type == Kind::integer) return fmt::format("{}", item.value);
  if (item.type == Kind::real) return DefaultNumber(item.real);
  return item.text;
}

std::string_view BarButtonText(int button, bool running) {
  if (button == kPlayButton) return running ? "Pause" : "Play";
  return button == kBackButton ? "-Step" : "+Step";
}

std::string RunBarTimes(const MenuRunBar& bar) {
  return fmt::format("{} .. {}", Shown{bar.first_time}, Shown{bar.last_time});
}

MenuBox FieldOf(const MenuBox& item) {
  return {item.x + kField, item.y, std::max(item.width - 2 * kField, 0), item.height};
}

MenuLayout LayOutMenu(const MenuSlot& slot, const MenuFont& font, int width, int height) {
  std::vector<int> lines = LinesOf(slot);
  FitHeight(slot, font, height, lines);
  const int below = std::max(HeightOf(slot, font, lines) - height, 0);
  return Place(slot, font, lines, std::max(width, 2 * kSide + 1), kMargin - std::clamp(slot.scroll, 0, below));
}

int LeastHeight(const MenuSlot& slot, const MenuFont& font) {
  std::vector<int> lines = LinesOf(slot);
  FitHeight(slot, font, 0, lines);
  return HeightOf(slot, font, lines);
}

MenuSize WindowSizeOf(const MenuSlot& slot, const MenuFont& font, const WindowPlace& screen) {
  const int wanted = HeightOf(slot, font, LinesOf(slot));
  const int height = screen.height > 0 ? std::min(wanted, screen.height) : wanted;
  return {Within(WidthOf(slot, font), slot.least_width, slot.largest_width),
          Within(height, slot.least_height, slot.largest_height)};
}

MenuCorner CornerOf(int im, const MenuSize& size, const WindowPlace& main, const WindowPlace& screen) {
  constexpr int kAside = 10, kStepX = 25, kStepY = 50;
  MenuCorner corner = {main.x + main.width + kAside + kStepX * im, main.y + kStepY * (im - 1)};
  if (corner.x + size.width > screen.width) corner.x = kAside * (im - 1);
  return OnScreen(corner, size, screen);
}

MenuCorner OnScreen(const MenuCorner& corner, const MenuSize& size, const WindowPlace& screen) {
  return {std::max(std::min(corner.x, screen.width - size.width), 0),
          std::max(std::min(corner.y, screen.height - size.height), 0)};
}

MenuHit HitMenu(const MenuSlot& slot, const MenuLayout& layout, int x, int y) {
  for (std::size_t i = 0; i < layout.elements.size(); ++i) {
    const MenuPlaced& placed = layout.elements[i];
    if (!placed.box.Holds(x, y)) continue;
    MenuHit hit = {static_cast<int>(i) + 1, 0, placed.bar.Holds(x, y)};
    if (slot.elements[i].type == MenuElementType::list && !hit.on_bar && placed.inner.Holds(x, y)) {
      const int line = (y - placed.inner.y) * placed.lines / placed.inner.height + placed.top + 1;
      hit.item = line <= static_cast<int>(slot.elements[i].list.items.size()) ? line : 0;
    }
    for (std::size_t k = 0; k < placed.items.size(); ++k)
      if (placed.items[k].Holds(x, y)) hit.item = static_cast<int>(k) + 1;
    return hit;
  }
  return {};
}

}  // namespace zaview
