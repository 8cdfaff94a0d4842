// The options of the animation: the rows of its menu, in their order.
#include "views/motion/motion_view.h"

namespace zaview {

namespace {

constexpr OptionItem kRows[] = {
    Row(),
    Check("Solid", Flag<&Session::motion_view, &MotionViewState::hull_solid>),
};

constexpr OptionBlock kBlocks[] = {{kRows}};

}  // namespace

ViewOptions MotionOptions(const Session&) {
  return {kBlocks, kAlways};
}

}  // namespace zaview
