// The lists of the "Select" menu: quantities, and colours.
#include <algorithm>
#include <cctype>
#include <string>
#include <vector>

#include "case/quantity_catalogue.h"
#include "gks/kernel/gks_control.h"
#include "menu/menu_build.h"
#include "views/menus/option_builder.h"
#include "views/state/plot_selection.h"

namespace zaview {

namespace {

constexpr int kMostShown = 24;
constexpr int kColoursAcross = 3, kColourColumns = 16;
constexpr int kFirstColour = 1;

// What the item that asked has now; 0: it tells nothing.
int Present(Session& s) {
  const OptionTarget& target = s.menus.last_colour_target;
  const bool shows = target.option != nullptr && target.option->value.shows != nullptr;
  return shows ? target.option->value.shows(s, target.index).integer : 0;
}

// Has the case samples of it, and was the point given that it is of?
bool IsOffered(const Session& s, int iqnt) {
  if (!QuantityValid(s.case_store, iqnt) || CurveCount(s.case_store, iqnt) < 1) return false;
  if (!s.case_store.time_history()) return true;
  const QuantityRow* const row = FindQuantity(iqnt);
  return row != nullptr && row->need != QuantityNeed::file_only && PointGiven(s.output.point, iqnt);
}

// "Seagreen". The foreground is what it is now.
std::string ColourName(int index, bool reversed) {
  std::string name(kColourNames[index == 1 && reversed ? 0 : index]);
  std::transform(name.begin() + 1, name.end(), name.begin() + 1,
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return name;
}

}  // namespace

void BuildQuantities(Session& session) {
  MenuToolkit& kit = session.menus.kit;
  int count = 0;
  for (int iqnt = 1; iqnt <= QuantityCount(session.case_store); ++iqnt)
    if (IsOffered(session, iqnt)) ++count;
  gksMenuText(kit, "Quantity");
  gksMenuSelectionList(kit, kOneInBox, std::max(count, 1), Present(session), std::clamp(count, 1, kMostShown));
  for (int iqnt = 1; iqnt <= QuantityCount(session.case_store); ++iqnt)
    if (IsOffered(session, iqnt)) gksMenuAddListItem(kit, QuantityLabel(session.case_store, iqnt), iqnt);
  AddCloseButton(kit);
}

void BuildColours(Session& session) {
  MenuToolkit& kit = session.menus.kit;
  const int present = Present(session), rows = (kColours - kFirstColour) / kColoursAcross;
  gksMenuText(kit, "Color");
  for (int row = 0; row < rows; ++row) {
    gksMenuButtonRow(kit, kPlainRow, 2 * kColoursAcross);
    for (int column = 0; column < kColoursAcross; ++column) {
      const int colour = kFirstColour + column * rows + row;
      if (column > 0) gksMenuAddItemI(kit, MenuItemType::tab_columns, column * kColourColumns);
      gksMenuAddItemI(kit, MenuItemType::colour, colour);
      if (colour == present) gksMenuSetAttribute(kit, MenuAttribute::style, kChipChosen);
      gksMenuSetAttributeS(kit, MenuAttribute::text, ColourName(colour, gksIsWhite(session.gks)));
    }
  }
  AddCloseButton(kit);
}

}  // namespace zaview
