// What a menu looks like, by its pixels.

#include "unit/menu/menu_window.h"

namespace zaview {
namespace {

TEST(MenuPictures, AreReversedWithTheWindow) {
  MenuWindow w;
  const int im = BuildAll(w.kit, "All");
  w.Do({});
  const auto paper = [&] { return w.Picture(im).At(1, 1); };
  EXPECT_EQ(paper(), 0x000000U);
  gksSetReverse(w.gks, true);
  gksMenuRefresh(w.kit, im);
  w.Do({});
  EXPECT_EQ(paper(), 0xFFFFFFU);
}

}  // namespace
}  // namespace zaview
