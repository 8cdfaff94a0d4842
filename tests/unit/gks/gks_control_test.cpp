#include "gks/kernel/gks_control.h"

#include <utility>

#include <gtest/gtest.h>

#include "fake_platform.h"

namespace zaview {
namespace {

TEST(Environment, TakesModesAndSizes) {
  const struct {
    const char *reverse, *bitmap, *size;
    bool is_reverse, is_bitmap;
    int width, height;
    const char* said;
  } cases[] = {
      {nullptr, nullptr, nullptr, false, true, 500, 400, ""},
      {"no", "yes", "640x480", false, true, 640, 480, ""},
      {"n", "off", "640x", true, false, 500, 400, "GLGKS ERROR : GLWINDOWSIZE value invalid\n"},
      {"FALSE", "NO", "-1x5", false, false, 500, 400, "GLGKS ERROR : GLWINDOWSIZE value invalid\n"},
      {"        on", "   ", "large", false, true, 500, 400, ""},
      {"False", "OFFICE", " 30 x 20 ", true, false, 30, 20, ""},
      {"", "", "99999999999x1", false, true, 500, 400, "GLGKS ERROR : GLWINDOWSIZE value invalid\n"},
      {"", "", "x", false, true, 500, 400, "GLGKS ERROR : GLWINDOWSIZE value invalid\n"},
  };
  for (const auto& c : cases) {
    FakePlatform fake;
    GksState gks;
    gksTakeEnvironment(fake.Get().console, {c.reverse, c.bitmap, c.size, nullptr}, gks);
    EXPECT_EQ(gks.window.reverse_video, c.is_reverse);
    EXPECT_EQ(gks.window.bitmap_font, c.is_bitmap);
    EXPECT_EQ(gks.window.width, c.width);
    EXPECT_EQ(gks.window.height, c.height);
    EXPECT_EQ(fake.output, c.said);
  }
  FakePlatform fake;
  GksState gks;
  gks.window.size_is_fixed = true;
  gks.dump.name = "x";
  gksTakeEnvironment(fake.Get().console, {nullptr, nullptr, "640x480", "yes"}, gks);
  EXPECT_EQ(gks.window.width, 500);
  EXPECT_TRUE(gks.dump.dump_only && gks.dump.name.empty());
}

// The first letter decides; anything else leaves things as they are.
TEST(Environment, SwitchesDumpOnlyByOneLetter) {
  enum { on, off, as_it_was };
  const std::pair<const char*, int> cases[] = {
      {"T", on},           {"Y", on},       {"true", on},         {"yes", on},       {"F", off},
      {"N", off},          {"false", off},  {"no", off},          {"on", as_it_was}, {"1", as_it_was},
      {" yes", as_it_was}, {"", as_it_was}, {nullptr, as_it_was},
  };
  for (const bool before : {false, true}) {
    for (const auto& [value, effect] : cases) {
      FakePlatform fake;
      GksState gks;
      gks.dump.dump_only = before;
      gksTakeEnvironment(fake.Get().console, {nullptr, nullptr, nullptr, value}, gks);
      EXPECT_EQ(gks.dump.dump_only, effect == as_it_was ? before : effect == on) << (value == nullptr ? "" : value);
    }
  }
}

TEST(Attributes, AreLimitedAndReset) {
  GksState gks;
  GSMK(gks, 23);
  EXPECT_EQ(gks.attribute.marker_type, 1);
  GSMK(gks, -1);
  EXPECT_EQ(gks.attribute.marker_type, 21);
  GSCHUP(gks, -3, 0);
  EXPECT_EQ(gks.attribute.up_x, -1);
  EXPECT_NEAR(gks.attribute.text_rotation, -90, 1e-4);
  GSCHUP(gks, 0, 0);  // changes nothing
  EXPECT_EQ(gks.attribute.up_x, -1);
  EXPECT_NEAR(gks.attribute.text_rotation, -90, 1e-4);
  GSLWSC(gks, -4);
  EXPECT_EQ(gks.attribute.line_width, 1);
  gks.window.width = 300;
  GOPWK(gks);
  EXPECT_EQ(gks.attribute.up_y, 1);
  EXPECT_EQ(gks.ws_viewport.ymax, 300);
}

TEST(Colours, IndicesOutOfRangeAreSaidOnce) {
  FakePlatform fake;
  const Console console = fake.Get().console;
  GksState gks;
  GSMK(gks, 0);
  GSPMCI(console, gks, 257);
  GSPLCI(console, gks, -7);
  EXPECT_EQ(gks.attribute.marker_colour, 256);
  EXPECT_EQ(gks.attribute.polyline_colour, 1);
  EXPECT_EQ(fake.output, "GLGKS WARNING: illegal color index in GSPMCI: 257 > GKS_MAX_COLORS\n");
  fake.output.clear();
  GSCR(console, gks, 256, {1, 0, 0});
  EXPECT_EQ(gks.colour[256].red, 1);
  EXPECT_EQ(fake.output, "");
  for (int i = 0; i < 2; ++i) GSCR(console, gks, 1, {1, 0, 0});
  GSCR(console, gks, 257, {1, 0, 0});
  static_cast<void>(GQCR(console, gks, -1));
  EXPECT_EQ(fake.output,
            "GLGKS WARNING: color indices 0 and 1 not setable in GSCR\n"
            "GLGKS WARNING: color indices 0 and 1 not setable in GSCR\n"
            "GLGKS WARNING: illegal color index in GSCR: 257 > GKS_MAX_COLORS\n"
            "GLGKS WARNING : illegal color index in GQCR: -1 < 0\n");
}

TEST(Colours, StayVisibleOnWhite) {
  const struct {
    GksColour asked, stored;
  } cases[] = {{{0, 0, 0.0005F}, {1, 1, 1}},
               {{1, 1, 0.9995F}, {0, 0, 0}},
               {{1, 0.5F, 0}, {0.8F, 0.4F, 0}},
               {{0.5F, 0.5F, 0.5F}, {0.5F, 0.5F, 0.5F}}};
  FakePlatform fake;
  GksState gks;
  gksSetReverse(gks, true);
  for (const auto& c : cases) {
    GSCR(fake.Get().console, gks, 9, c.asked);
    EXPECT_FLOAT_EQ(gks.colour[9].red, c.stored.red);
    EXPECT_FLOAT_EQ(gks.colour[9].green, c.stored.green);
    EXPECT_FLOAT_EQ(gks.colour[9].blue, c.stored.blue);
  }
  gksSetReverse(gks, false);  // colours are lost
  EXPECT_EQ(gks.colour[9].blue + gks.colour[0].red, 1);
}

TEST(DumpOption, WordsAndNames) {
  const struct {
    const char* word;
    bool dump_only, waiting;
    const char* name;
  } cases[] = {{"on", true, false, ""},         {"ON  ", true, false, ""},
               {"oN", false, true, "oN"},       {"auto", false, true, ""},
               {" ", false, false, "before"},   {"Off", false, false, "before"},
               {"x.png", false, true, "x.png"}, {"only.gif", false, true, "only.gif"}};
  for (const auto& c : cases) {
    GksState gks;
    gks.dump.name = "before";
    gksSetDumpOption(gks, c.word);
    EXPECT_EQ(gks.dump.dump_only, c.dump_only) << c.word;
    EXPECT_EQ(gks.dump.waiting, c.waiting) << c.word;
    EXPECT_EQ(gks.dump.name, c.name) << c.word;
  }
  GksState gks;
  gksSetDumpOption(gks, std::string(200, 'n'));
  EXPECT_EQ(gks.dump.name.size(), 60U);
}

}  // namespace
}  // namespace zaview
