// The point of ship-fixed quantities, and the coefficients of missiles.
#include "views/menus/option_builder.h"

namespace zaview {

namespace {

constexpr OptionItem kRows[] = {
    Row("Point"),
};

constexpr OptionBlock kBlocks[] = {{kRows}};

}  // namespace

ViewOptions PointOptions(const Session&) {
  return {kBlocks, kAlways};
}

}  // namespace zaview
