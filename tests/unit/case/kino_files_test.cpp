#include <gtest/gtest.h>

#include "case/tables/kino_output.h"
#include "fake_platform.h"
#include "small_case.h"

namespace zaview {
namespace {

// Two steps 0.0783 sqrt(L/g) apart at a new LENOUT, under MODEL signs: the file keeps the signs of the program's own
// axes and degrees. numpy: x = (0.1 + 0.05 i + 0.01 s) 50 or 180/pi in double from the 4-byte values.
TEST(KinoFiles, Motions) {
  FakePlatform fake;
  const Platform platform = fake.Get();
  CaseStore c = SmallCase(1, 3);
  OutputSettings settings = SettingsFor(c);
  settings.units.LENOUT = 50.0F;
  settings.reading.step_stride = 2;
  set_output_scales(settings.units, false);
  settings.units.cnvfac = {1, -1, -1, 1, -1, -1};
  ASSERT_EQ(write_kino_files(platform, "", settings, c), KinoSet::ok);
  EXPECT_EQ(fake.Bytes(".mot"),
            "!KINO motion data from ZAVO output file run.out\n"
            "50\n"
            "0.176771504 7.99999982 10.4999997 12.9999995 17.7616918 20.6264814 23.4912694\n"
            "0.530314511 9.00000036 11.5000002 14.0000001 18.907608 21.7723959 24.6371856\n");
}

TEST(KinoFiles, ViewerCommands) {
  const struct {
    std::string geometry, option;
  } cases[] = {{"hull.geo", "-zavo hull.geo\n"},
               {"SHAPE:hull.geo", "-zavo hull.geo\n"},
               {"nastran:hull.nas", "-nastran hull.nas\n"},
               {"HARLEND:a b.hrl", "-hrl a b.hrl\n"},
               {"hrl:hull.hrl", "-hrl hull.hrl\n"},
               {" none ", ""},
               {"", ""}};
  for (const auto& row : cases) {
    FakePlatform fake;
    CaseStore c = SmallCase(1, 2);
    c.control.FGEOM = row.geometry;
    c.control.SYMINP = 1;
    c.control.GROT = {0.0, 0.0, 57.29578};  // ANGIN: one radian
    c.control.GRAVOUT = 32.174;
    c.seaway_tried = Tried::there;
    c.seaway.WDEPTH = 0.5;
    c.seaway.scaling.WSCSTP = {1, 41};
    c.seaway.scaling.WSCFAC = {0, 1};
    c.seaway.scaling.DTH = 0.25;
    OutputSettings settings = SettingsFor(c);
    settings.units.LENOUT = 328.0F;
    set_output_scales(settings.units, false);
    ASSERT_EQ(write_kino_files(fake.Get(), " tow ", settings, c), KinoSet::ok);
    // The CG lies at (1, 0, -1.25) in ship axes; the points are turned to it. Step 41: 10 sqrt(328/32.174).
    const std::string hull = row.option.empty() ? ""
                                                : "-mirror_lf\n-gshift -1 0 1.25\n-gorig  0 0 6.25\n"
                                                  "-grot   0 0 57.29578\n-lf_scale 3.28\n";
    EXPECT_EQ(fake.Bytes("tow.kno0"), "!KINO command file for data from ZAVO output file run.out\n" + row.option +
                                          hull +
                                          "-sea tow.sea\n-grav 32.174\n-depth 164\n-wave_scale 0 0 31.92893 1\n");
  }
}

TEST(KinoFiles, Refused) {
  const struct {
    bool tadm, irf;
    std::string refused;  // a file that can't be opened
    KinoSet set;
    std::string_view words;
  } cases[] = {
      {true, false, "", KinoSet::refused, "ERROR - KINO output not relevant for impulsive motion\n"},
      {false, true, "", KinoSet::refused, "ERROR - KINO output not relevant for IRF calculation\n"},
      {false, false, "tow.mot", KinoSet::failed, "ERROR opening KINO motion data file tow.mot (Is a directory)\n"},
      {false, false, "tow.sea", KinoSet::failed, "ERROR opening KINO seaway data file tow.sea (Is a directory)\n"},
      {false, false, "tow.kno0", KinoSet::failed, "ERROR opening KINO command file tow.kno0 (Is a directory)\n"},
  };
  for (const auto& row : cases) {
    FakePlatform fake;
    if (!row.refused.empty()) fake.directories.insert(row.refused);
    CaseStore c = SmallCase(1, 2);
    c.tadm_case = row.tadm;
    c.irf_case = row.irf;
    EXPECT_EQ(write_kino_files(fake.Get(), "tow", SettingsFor(c), c), row.set);
    EXPECT_NE(fake.output.find(row.words), std::string::npos) << fake.output;
    EXPECT_EQ(fake.OpenHandles(), 0U);
  }
}

}  // namespace
}  // namespace zaview
