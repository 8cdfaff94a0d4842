#include "control/control_text.h"

#include <gtest/gtest.h>

#include "control/check_control_records.h"
#include "control/options_lookup.h"
#include "control_draft.h"
#include "fake_platform.h"

namespace zaview {
namespace {

TEST(ControlText, TextFieldsDropQuotesAndOuterBlanks) {
  // clang-format off
  const struct { const char* line; const char* text; } cases[] = {
      {"  Frigate, sea state 6 \t", "Frigate, sea state 6"}, {"'hull 12.geo'", "hull 12.geo"},
      {" \"it's\" dropped", "it's"}, {"'it''s' 5", "it's"},  // a doubled quote stands for one
      {"'no end", "no end"}, {"'   '", ""}, {"", ""}, {"a\tb", "a b"},
  };
  // clang-format on
  for (const auto& c : cases) EXPECT_EQ(TextField(c.line, kTitleLength), c.text) << c.line;
  EXPECT_EQ(TextField(std::string(100, 'x'), kTitleLength), std::string(80, 'x'));
  EXPECT_EQ(TextField("'" + std::string(100, 'y') + "'", kTitleLength), std::string(80, 'y'));
}

TEST(ControlText, CommentsAreCutAndDelimitersFoundInRawLines) {
  TextFile file(
      "! not there\n"
      "kept 'a!b'\n"
      "   ! a blank line stays\n"
      " END_OF_FILE not in column 1\n" +
      std::string(300, 'x') + "\n! INPUT_FILE_ECHO is a comment here, derived_data_echo too\n" +
      "7 ! ---- DERIVED_DATA_ECHO ----\nbehind\n");
  HeaderText text{&file.source};
  const std::string expected[] = {"kept 'a", "   ", " END_OF_FILE not in column 1", std::string(256, 'x')};
  std::string_view line;
  for (const std::string& wanted : expected) {
    ASSERT_EQ(NextDataLine(text, line), TextEvent::line);
    EXPECT_EQ(line, wanted);
  }
  EXPECT_EQ(NextDataLine(text, line), TextEvent::delimiter);
  EXPECT_EQ(text.delimiter, Delimiter::derived_data_echo);
  EXPECT_EQ(NextDataLine(text, line), TextEvent::delimiter) << "an ended section stays ended";

  HeaderText next{&file.source};
  EXPECT_EQ(NextDataLine(next, line), TextEvent::line);
  EXPECT_EQ(line, "behind");
  EXPECT_EQ(NextDataLine(next, line), TextEvent::end_of_file);
}

TEST(ControlText, EndsAndLimits) {
  // clang-format off
  const struct { const char* text; std::int64_t most; std::vector<TextEvent> events; } cases[] = {
      {"END_OF_FILE and more\nnext\n", 9, {TextEvent::end_of_text}},
      {"1\n2\n3\n", 2, {TextEvent::line, TextEvent::line, TextEvent::too_long}}};
  // clang-format on
  for (const auto& c : cases) {
    TextFile file(c.text);
    HeaderText text{&file.source, c.most};
    std::string_view line;
    for (const TextEvent event : c.events) EXPECT_EQ(NextTextLine(text, line), event) << c.text;
  }
}

ControlRecords WithOptions(std::vector<std::string> lines) {
  ControlRecords records;
  records.modules = {{"WIND", "$WIND:", {"SPEC_CUTOFF 9"}},
                     {"OPTIONS", "$OPTIONS:", {"SPEC_CUTOFF 8"}},
                     {"OPTIONS", "$OPTIONS:", std::move(lines)}};
  return records;
}

TEST(OptionsLookup, SpellingsOfALine) {
  // clang-format off
  const struct { const char* line; double value; } rows[] = {
      {"SPEC_CUTOFF 1.D-3", 0.001}, {"  spec_cutoff: 0.5 ! half", 0.5}, {"Spec_Cutoff = 2", 2},
      {"SPEC_CUTOFF=3, of the peak", 3}, {"SPEC_CUTOFF\t:\t4", 4}, {"SPEC_CUTOFF", -1}, {"SPEC_CUTOFF = high", -1},
      {"! SPEC_CUTOFF 6", -1}, {"SPEC_CUTOFF2 7", -1}, {"= 7", -1},
  };
  // clang-format on
  for (const auto& row : rows) EXPECT_EQ(RealOption(WithOptions({row.line}), {"SPEC_CUTOFF"}), row.value) << row.line;
}

TEST(OptionsLookup, LastOneCountsAndTextKeepsItsCase) {
  const ControlRecords records =
      WithOptions({"SPEC_PHASEOPT 2", "SPEC_PHASEOPTION 4.0", "SPEC_PHASEFILE 'My Phases.txt' of 2021", "FAUXOUT a b"});
  EXPECT_EQ(IntegerOption(records, {"SPEC_PHASEOPTION", "SPEC_PHASEOPT"}), 4);
  std::string text = "as it was";
  EXPECT_FALSE(FindOption(records, {"SPEC_CUTOFF"}, text));
  EXPECT_EQ(text, "as it was");
  EXPECT_TRUE(FindOption(records, {"SPEC_PHASEFILE"}, text));
  EXPECT_EQ(text, "My Phases.txt");
  EXPECT_TRUE(FindOption(records, {"FAUXOUT"}, text));
  EXPECT_EQ(text, "a b");
  EXPECT_EQ(IntegerOption(ControlRecords{}, {"SPEC_DISTOPT"}), -1);
}

ControlRecords Good() {
  ControlRecords records;
  records.ZVOTYP = 1;
  return records;
}

ControlRecords Spectrum(int kind, int NFREQ, int NHEAD, double SPREAD = 0) {
  ControlRecords records = Good();
  SeawayInput& sea = records.seaway;
  sea.ISEA = kind;
  sea.SIGWHT = sea.SIGWHT1 = sea.TMODAL1 = sea.SHAPE1 = sea.TOMODAL = sea.PEAKPRM = sea.VWIND10 = sea.FETCH = 3;
  sea.NFREQ = NFREQ, sea.NHEAD = NHEAD, sea.SPREAD = SPREAD;
  return records;
}

ControlRecords Bent(void (*bend)(ControlRecords& records), ControlRecords records = Good()) {
  bend(records);
  return records;
}

using R = ControlRecords&;

TEST(CheckControlRecords, FaultsAndTheirWords) {
  const std::string illegal = "ERR108 - Illegal parameter value(s) for incident wave spectrum:\n";
  const std::string irf = " cannot be used with IRF-based hydrodynamics (MIXED=-2,2)\n";
  // clang-format off
  const struct { ControlRecords records; int errors; std::string console; } cases[] = {
      {Good(), 0, ""},
      {Bent([](R r) { r.ZVOTYP = 5; }), 1, "ERR100 - Body hydrodynamics type ZVOTYP= 5 invalid : 1<=ZVOTYP<=4\n"},
      {Bent([](R r) { r.MOTYPE = -1; }), 1, "ERR101 - Motion type MOTYPE= -1 invalid : 0<=MOTYPE<=2\n"},
      {Bent([](R r) { r.seaway.ISEA = 9; }), 1, "ERR104 - Seaway specifier ISEA= 9\n"},
      {Bent([](R r) { r.seaway.ISEA = 1; }), 1, "ERR105 - Seaway specified but NWAVES = 0\n"},
      {Bent([](R r) { r.seaway.ISEA = 4; }), 1, "ERR105 - Seaway specified but WAVEDIM1*WAVEDIM2 = 0\n"},
      {Bent([](R r) { r.seaway.ISEA = 5; }), 1, "ERR105 - Seaway specified but WAVE_NMODE = 0\n"},
      {Bent([](R r) { r.seaway.ISEA = 1; r.seaway.waves = {{0.5, 0, 1, 0}, {0, 0, 1, 0}, {-1, 0, 1, 0}}; }), 1,
       "ERR199 - Seaway specified with illegal freqency(s):\n"
       "2 specified component waves have non-positive frequencies\n"},
      {Bent([](R r) { r.seaway.ISEA = 3; r.seaway.WSPEC = 6; r.seaway.waves = {{0.5, 0, 1, 0}};
               r.WDEPTH = 30; r.MIXED = -2; }), 3,
       "ERR198 - Stokes waves (ISEA=3)" + irf + "ERR107 - Stokes wave order WSPEC= 6 invalid : 0<=WSPEC<=5\n"
       "ERR191 - Stokes waves (ISEA=3) can only be used in deep water (WDEPTH=0.0)\n"},
      {Bent([](R r) { r.seaway.ISEA = 3; r.seaway.waves = {{0.5, 0, 1, 0}};
               r.modules.resize(1); r.modules[0].name = "OPTIONS"; r.modules[0].lines = {"nlfs = 1"}; }), 1,
       "ERR192 - Stokes waves cannot currently be used with the 2nd order free surface (NLFS>0)\n"},
      {Bent([](R r) { r.seaway.ISEA = 5; r.seaway.modes.resize(1); r.WDEPTH = 30; r.MIXED = 2; }), 1,
       "ERR198 - 2nd order Stokes waves (ISEA=5)" + irf},
      {Bent([](R r) { r.seaway.NWSC = -1; }), 1, "ERR154 - Number of incident wave scale factor times NWSC = -1\n"},
      {Bent([](R r) { r.IRST = 1; r.FRST = " "; }), 1,
       "ERR173 - A non-blank restart file FRST must be specified for restarts (IRST>0)\n"},
      {Bent([](R r) { r.IRST = 1; r.FRST = "a.rst"; }), 0, ""},
      {Bent([](R r) { r.WDEPTH = -1; }), 1,
       "ERR190 - Water depth, WDEPTH, must be zero (for deep water) or positive\n"},
      {Bent([](R r) { r.components.resize(101); }), 1,
       "ERR141 - Too many components specified in the input control file:\n         MAXCMP= 100  while NCOMP0= 101\n"},
      {Bent([](R r) { r.XMC.resize(26); }), 1,
       "ERR132 - Number of load cuts NBCA= 26 is limited\n         by dimensioning parameter MAXBCA= 25\n"},
      {Bent([](R r) { r.mass_points.resize(351); r.fins.resize(101); r.bilge_keels.resize(6); }), 3,
       "ERR133 - Number of mass points NBMX= 351 is limited\n         by dimensioning parameter MAXBMP= 350\n"
       "ERR175 - Number of wing-like appendages NFIN= 101 is limited\n         by dimensioning parameter MXFIN= 100\n"
       "ERR176 - Number of plate-like appendages NBK= 6 is limited\n         by dimensioning parameter MXBK= 5\n"},
      {Bent([](R r) { r.XMC.resize(25); r.components.resize(100); r.bilge_keels.resize(5); }), 0, ""},
      {Bent([](R r) { r.seaway.SIGWHT = 0; }, Spectrum(2, 40, 1)), 1,
       illegal + " Significant Wave Height SIGWHT= 0\n"},
      {Bent([](R r) { r.seaway.FETCH = -2.5; }, Spectrum(6, 40, 1)), 1, illegal + " Fetch FETCH= -2.5\n"},
      {Bent([](R r) { r.seaway.SIGWHT2 = 1; r.seaway.TMODAL2 = 8; }, Spectrum(7, 40, 1)), 1,
       illegal + " Shape Parameter SHAPE2= 0\n"},
      {Bent([](R r) { r.seaway.TOMODAL = 0; r.seaway.PEAKPRM = 0; }, Spectrum(8, 40, 1)), 1,
       illegal + " Modal Period TOMODAL= 0\n Peakedness Parameter PEAKPRM= 0\n"},
      {Spectrum(7, 1, 0), 0, "WRN139 - For spectral wave definition, NFREQ < 5 will result in a\n"
                             "         very coarse frequency distribution\n"},
      {Spectrum(2, 0, 1), 1, illegal + " Number of frequencies NFREQ= 0\n"},
      {Spectrum(2, 100'000, 0), 0, ""},
      {Spectrum(2, 20'000, 50'001), 1, illegal + " Number of components NFREQ*NHEAD= 1000020000 is limited to 100000\n"},
      {Bent([](R r) { r.seaway.NWSC = 3; r.seaway.WSCSTP = {1, 9, 9}; }), 0, ""},
      {Bent([](R r) { r.seaway.NWSC = 2; r.seaway.WSCSTP = {9, 1}; }), 1,
       "ERR154 - Incident wave scale factor times WSCSTP must ascend\n"},
      {Spectrum(2, 5, 1, 400), 0, ""},  // long-crested
      {Spectrum(2, 40, 9, 40), 0, ""},
      {Spectrum(8, 4, 4, 91), 0,
       "WRN139 - For spectral wave definition, NHEAD must be odd.\n         Specified value will be modified\n"
       "WRN139 - For spectral wave definition, NFREQ < 5 will result in a\n"
       "         very coarse frequency distribution\n"
       "WRN139 - For spectral wave definition, NHEAD < 5 will result in a\n         very coarse heading distribution\n"
       "WRN139 - Short-crested sea definition has NHEAD*SPREAD > 360 degrees\n"
       "         This may result in an unrealistic seaway\n"}};
  // clang-format on
  for (const auto& c : cases) {
    FakePlatform fake;
    EXPECT_EQ(CheckControlRecords(fake.Get().console, c.records, 417), c.errors) << c.console;
    EXPECT_EQ(fake.output, c.console);
  }
}

TEST(CheckControlRecords, OldAndNewFilesAreReported) {
  const std::string origin =
      "WRN260 - Initial transformation rotation origin (GORIG) modified to\n"
      "         accomodate different definition in ZAVO version 3.1.0\n"
      "         Here GORIG is used as it stands: check where the hull is\n";
  // clang-format off
  const std::pair<int, std::string> cases[] = {
      {-1, ""}, {0, ""}, {290, origin}, {309, origin}, {310, ""}, {417, ""},
      {289, "ERR230 - ZAVO version 289 is no longer supported\n         Files from version 290 to 417 are supported\n" + origin},
      {418, "WRN231 - File is from a newer version (418) than this program (417)\n         File read or processing may fail\n"}};
  // clang-format on
  for (const auto& [version, console] : cases) {
    FakePlatform fake;
    ControlRecords records = Good();
    records.GORIG[2] = 6.25;
    ReportVersion(fake.Get().console, version);
    EXPECT_EQ(CheckControlRecords(fake.Get().console, records, version), 0);
    EXPECT_EQ(fake.output, console) << version;
    fake.output.clear();
    records.GORIG = {};
    records.GROT = {0, 0, 180};  // about the origin, whatever the definition
    EXPECT_EQ(CheckShipRecords(fake.Get().console, records, version), 0);
    EXPECT_EQ(fake.output, "");
  }
}

}  // namespace
}  // namespace zaview
