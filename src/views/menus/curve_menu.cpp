// The menu of curve selection: quantity, curves, records.
#include "views/menus/option_builder.h"

namespace zaview {

namespace {

constexpr OptionItem kRows[] = {
    Row("Curves"),
};

constexpr OptionBlock kBlocks[] = {{kRows}};

}  // namespace

ViewOptions CurveOptions(const Session&) {
  return {kBlocks, kAlways};
}

}  // namespace zaview
