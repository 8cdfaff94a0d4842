// What a menu looks like, by its pixels.

#include <cstdlib>
#include <set>

#include "gks/kernel/fonts.h"
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

// Grey between paper and ink beside its strokes, at each step; what is smoothed stays within its row.
TEST(MenuPictures, HaveSmoothLetters) {
  if (!gksHasSmoothLetters()) GTEST_SKIP() << "built without outlines";
  MenuWindow w;
  const int im = gksMenuInit(w.kit, "letters");
  gksMenuText(w.kit, "Sgfj\xC3\xA4");
  gksMenuStart(w.kit);
  for (w.kit.font_step = kLeastFont; w.kit.font_step <= kMostFont; ++w.kit.font_step) {
    gksMenuRefresh(w.kit, im);
    w.Do({});
    const zaview::Picture picture = w.Picture(im);
    std::set<unsigned> colours;
    const MenuBox row = w.BoxOf(im, 1, 0);
    for (int y = 0; y < picture.height; ++y)
      for (int x = 0; x < picture.width; ++x) {
        const unsigned colour = picture.At(x, y);
        colours.insert(colour);
        EXPECT_TRUE(colour == 0 || row.Holds(x, y)) << w.kit.font_step << ": " << x << ' ' << y;
      }
    EXPECT_GT(colours.size(), 8U) << w.kit.font_step;
    EXPECT_TRUE(colours.contains(0xFFFFFF)) << w.kit.font_step;
  }
}

// On either paper the one in force stands out from the others, and the thumb from its bar.
TEST(MenuPictures, ShowWhatIsDownAndThatListsScroll) {
  MenuWindow w;
  const int im = BuildAll(w.kit, "All");
  for (const bool reversed : {false, true}) {
    gksSetReverse(w.gks, reversed);
    gksMenuRefresh(w.kit, im);
    w.Do({});
    const zaview::Picture picture = w.Picture(im);
    const auto grey = [&](int x, int y) { return static_cast<int>(picture.At(x, y) & 0xFFU); };
    const MenuBox up = w.BoxOf(im, 3, 1), down = w.BoxOf(im, 3, 3);
    EXPECT_GT(std::abs(grey(up.x + 4, up.y + 4) - grey(down.x + 4, down.y + 4)), 40);
    const MenuPlaced list = w.Layout(im).elements[9];
    EXPECT_GT(
        std::abs(grey(list.thumb.x + 6, list.thumb.y + 6) - grey(list.bar.x + 6, list.bar.y + list.bar.height - 6)),
        60);
    // A tick for each of several choices.
    const MenuBox curves = w.Layout(im).elements[10].inner;
    EXPECT_EQ(grey(curves.x + curves.width - 3, curves.y + 9), grey(1, 1));
  }
}

}  // namespace
}  // namespace zaview
