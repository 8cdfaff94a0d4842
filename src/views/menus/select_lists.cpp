// The lists of the "Select" menu: quantities, and colours.
#include "menu/menu_build.h"
#include "views/menus/option_builder.h"

namespace zaview {

void BuildQuantities(Session& session) {
  gksMenuText(session.menus.kit, "Quantity");
}

void BuildColours(Session& session) {
  gksMenuText(session.menus.kit, "Color");
}

}  // namespace zaview
