// The time-step menu: the steps of the run as a bar, trims, and how a run goes.
#include "views/menus/option_builder.h"

namespace zaview {

namespace {

constexpr OptionItem kRows[] = {
    Row("Time step"),
};

constexpr OptionBlock kBlocks[] = {{kRows}};

}  // namespace

ViewOptions TimeStepOptions(const Session&) {
  return {kBlocks, kAlways};
}

}  // namespace zaview
