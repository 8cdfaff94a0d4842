// The $NAME: modules: what is read, what is said of faults, what is written.
#include <map>

#include <gtest/gtest.h>

#include "control/module_table.h"
#include "control/options_lookup.h"
#include "control/options_module.h"
#include "control/read_control_records.h"
#include "control/write_control_records.h"
#include "control_draft.h"

namespace zaview {
namespace {

using Lines = std::vector<std::string>;

struct Outcome {
  ControlRecords records;
  std::string console;
};

Outcome ReadText(const std::string& text, const std::map<std::string, std::string>& files = {}) {
  TextFile file(text);
  for (const auto& [name, bytes] : files) file.fake.Put(name, bytes);
  ControlText control{&file.source, "cases/run.out"};
  Outcome out;
  EXPECT_EQ(ReadControlRecords(file.platform, control, out.records), ControlStatus::ok) << file.fake.output;
  out.console = file.fake.output;
  return out;
}

Outcome Read(Lines modules, const std::map<std::string, std::string>& files = {}) {
  ControlDraft draft;
  draft.modules = std::move(modules);
  return ReadText(draft.Text(), files);
}

std::string Written(const ControlRecords& records) {
  std::string text;
  EXPECT_TRUE(WriteControlRecords(records, text));
  return text;
}

std::string WrittenModules(const ControlRecords& records) {
  std::string text;
  WriteModules(records, text);
  return text;
}

// The values of a module with known fields, in their order.
std::vector<double> Numbers(ControlRecords& records, const ModuleForm& form, std::size_t entry, std::string& words) {
  std::vector<double> numbers;
  ModuleState state{records, entry};
  state.count = form.length == nullptr ? 0 : static_cast<int>(form.length(state));
  for (const ModuleField& field : form.fields) {
    const std::int64_t count = field.count == nullptr ? 1 : field.count(state);
    if (field.text != nullptr && count > 0) words += *field.text(state) + '|';
    for (std::int64_t i = 0; field.list != nullptr && i < count; ++i) {
      FieldList fields;
      EXPECT_TRUE(field.list(state, static_cast<std::size_t>(i), fields));
      for (const ListItem& item : fields.items())
        numbers.push_back(std::visit([](const auto* value) { return static_cast<double>(*value); }, item));
    }
  }
  return numbers;
}

struct Known {
  const char* name;
  Lines lines;
  std::vector<double> numbers;
  std::string words;
};

// clang-format off
const Known kKnown[] = {
    {"ADDGEOM", {"!ADDGEOM01 CADDGEOMFILE", "'it''s a hull.geo'", "2 1", "1 2 3 0.4 5 6 0.7", "2*9 3*8 2*7 ! second",
                 "!ADDGEOM04", "0.1 0.2 0.3", "0.4 0.5 0.6 0.7 0.8", "", "0.9"},
     {2, 1, 1, 2, 3, 0.4, 5, 6, 0.7, 9, 9, 8, 8, 8, 7, 7, 0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7, 0.8, 0.9},
     "it's a hull.geo|"},
    {"ADDGEOM", {"a.geo", "0 0", "9*0"}, {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}, "a.geo|"},
    {"ADDSEA", {"2", "1.5 6.0", "90.0 0.0 20 1 7", "-1.0 0.25", "0.1 1 -1 4", "My phases.txt"},
     {2, 1.5, 6, 90, 0, 20, 1, 7, -1, 0.25, 0.1, 1, -1, 4}, "My phases.txt|"},
    {"ADDSEA", {"!ADDSEA01 ISEA", "6", "20 1.D5 3.3", "180 1 2 3 4", "!ADDSEA02 and nothing behind it", ""},
     {6, 20, 100000, 3.3, 180, 1, 2, 3, 4, -1, -1, -1, -1, -1, -1}, "|"},
    {"ADDSEA", {"7", "1 2 3 4 5 6", "0 0 9 9 9", "0.1 0.2"},
     {7, 1, 2, 3, 4, 5, 6, 0, 0, 9, 9, 9, 0.1, 0.2, -1, -1, -1, -1}, "|"},
    {"ADDSEA", {"8", "4 9.5 3.3", "180 0 40 1 1", "/", ",2/"}, {8, 4, 9.5, 3.3, 180, 0, 40, 1, 1, 0, 0, 0, 2, 0, 0}, "|"},
    {"ADDSEA", {"3", "of a kind whose data", "are not known"}, {3}, ""},
    {"COMMANDS", {"2", "0 7.5", "10.5 8", "!COMMANDS03 further", "1 2 3"}, {2, 0, 7.5, 10.5, 8}, ""},
    {"EXTFOR", {"1", "1 2 3*0.1 -4"}, {1, 1, 2, 0.1, 0.1, 0.1, -4}, ""},
    {"GZSTAB", {"10 20 5", "!GZSTAB02 GZSTABFILE_CURVES", "curves.txt"}, {10, 20, 5}, ""},
    {"IFSINTERP", {"2", "1 0.1 0.2 0.3", "2 4 5 6"}, {2, 1, 0.1, 0.2, 0.3, 2, 4, 5, 6}, ""},
    {"IWINTERP", {"10 20 30", "100 -0.0 33.3"}, {10, 20, 30, 100, -0.0, 33.3}, ""},
    {"PENDA", {"  lifting body  ! name"}, {}, "lifting body|"},
    {"PENDA", {"''"}, {}, "|"},
    {"RRSTAB", {"0.3333333333333333", "0.25"}, {0.3333333333333333, 0.25}, ""},
    {"YCUTLOADS", {"1 1 0 2", "0.0 2.5 6.25", "0.0 -2.5 6.25"}, {1, 1, 0, 2, 0, 2.5, 6.25, 0, -2.5, 6.25}, ""},
};
// clang-format on

TEST(Modules, KnownFieldsReadBackAndAreWrittenTheSame) {
  for (const Known& c : kKnown) {
    const ModuleRow* row = FindModule(c.name);
    ASSERT_TRUE(row != nullptr && row->form != nullptr) << c.name;
    Lines text = {"!a comment of somebody", std::string(" $") + c.name + " : DEFAULT ! note"};
    text.insert(text.end(), c.lines.begin(), c.lines.end());
    text.insert(text.end(), {"!" + std::string(row->prefix) + "99 left over", "!Wind force calculation input module",
                             "$WIND:", "1 2"});
    Outcome first = Read(text);
    EXPECT_EQ(first.console, " Reading input module " + std::string(c.name) + "\n Reading input module WIND\n");
    std::string words;
    EXPECT_EQ(Numbers(first.records, *row->form, 0, words), c.numbers) << c.name;
    EXPECT_EQ(words, c.words) << c.name;

    const std::string written = Written(first.records);
    EXPECT_NE(written.find(ModuleHeader(*row) + "\n$" + c.name + ":\n"), std::string::npos) << written;
    EXPECT_NE(written.find("99 left over\n!Wind force calculation input module\n$WIND:\n1 2\n"), std::string::npos);
    Outcome second = ReadText(written);
    std::string words_again;
    EXPECT_EQ(Numbers(second.records, *row->form, 0, words_again), c.numbers) << written;
    EXPECT_EQ(words_again, c.words) << written;
    EXPECT_EQ(Written(second.records), written);
  }
}

TEST(Modules, AllOthersAreKeptByDataSetUnderAnyOfTheirWords) {
  for (const ModuleRow& row : ModuleRows()) {
    if (row.form != nullptr || row.name == kOptionsModule) continue;
    const std::string prefix = "!" + std::string(row.prefix);
    Lines lines = {"! ahead", "1 2.5 ! note", prefix + "01 (cont) C - more", "3", "", prefix + "02 D - next"};
    lines.insert(lines.end(), {"2*0.5 4.5", prefix + "03 E - last", "7"});
    for (const std::string_view word : {row.name, row.also, row.also_too}) {
      if (word.empty()) continue;
      Lines text = {"$" + std::string(word) + ":"};
      text.insert(text.end(), lines.begin(), lines.end());
      const Outcome first = Read(text);
      EXPECT_EQ(first.console, " Reading input module " + std::string(row.name) + "\n");
      ASSERT_EQ(first.records.modules.size(), 1U);
      EXPECT_EQ(first.records.modules[0].name, row.name);
      const std::string written = Written(first.records);
      const Outcome second = ReadText(written);
      EXPECT_EQ(second.records.modules[0].lines, lines);
      EXPECT_EQ(Written(second.records), written);

      std::vector<ModuleDataSet> sets;
      ASSERT_TRUE(SplitDataSets(second.records.modules[0], row.prefix, sets));
      ASSERT_EQ(sets.size(), 3U) << row.name;
      EXPECT_EQ(sets[0].lines, (std::vector<std::string_view>{"1 2.5 ", "3"}));
      EXPECT_EQ(sets[1].lines, (std::vector<std::string_view>{"2*0.5 4.5"}));
      EXPECT_EQ(sets[1].number * 10 + sets[2].number, 23);
    }
  }
}

TEST(Modules, OptionsAreWrittenWithTheirCommentsAndOthersAsTheyStand) {
  // clang-format off
  const Outcome out = Read({"$Options:", "spec_cutoff: 1.D-3 ! ratio", "!SPEC_SPREADOPT - an older comment",
                            "Spec_SpreadOpt=2", "  my_own option", "! why", "IEKZOPT = 1.0", "SPEC_PHASEOPT 4",
                            "SPEC_PHASEFILE ': a''b'", "MOTION_SHIFT 1 2 3", "FAUXOUT Aux File.txt"});
  // clang-format on
  EXPECT_EQ(out.console, " Reading input module OPTIONS\n");
  const std::string text = WrittenModules(out.records);
  EXPECT_EQ(text,
            "!Calculation options input module\n$OPTIONS:\n"
            "!SPEC_CUTOFF - Cutoff ratio for discretizing incident wave spectrum\n"
            "SPEC_CUTOFF                   0.001\n"
            "!SPEC_spreadOPT - Spreading option for spectrum-based incident wave\n"
            "SPEC_SPREADOPT                    2\n"
            "  my_own option\n! why\n"
            "!IEKZOPT  - option for computing exponential incident wave decay term\n"
            "IEKZOPT                           1\n"
            "!SPEC_PHASEOPTION - Phase option for spectrum-based incident wave\n"
            "SPEC_PHASEOPTION                  4\n"
            "!SPEC_PHASEFILE - File of phases for spectrum-based incident wave\n"
            "SPEC_PHASEFILE \": a'b\"\n"
            "!MOTION_SHIFT - Shift of the motions in time\nMOTION_SHIFT 1 2 3\n"
            "!FAUXOUT - File for auxiliary output\nFAUXOUT Aux File.txt\n");
  const Outcome again = ReadText(Written(out.records));
  EXPECT_EQ(WrittenModules(again.records), text);
  EXPECT_EQ(RealOption(again.records, {"SPEC_CUTOFF"}), 0.001);
  std::string name;
  EXPECT_TRUE(FindOption(again.records, {"SPEC_PHASEFILE"}, name));
  EXPECT_EQ(name, ": a'b");
}

constexpr const char* kSomeFailed =
    "WARNING: One or more input modules could not be properly read;\n"
    "         Input for any unrecognized or misread modules will not be\n"
    "         correct in subsequent control file output\n"
    "         Post-processing tasks related to data from unrecognized or misread\n"
    "         modules may not work correctly\n";

TEST(Modules, FaultsAreToldAndTheTextIsKept) {
  const std::string incomplete = "         Data for this module may be incomplete or incorrect\n";
  const auto reading = [](const std::string& name) { return " Reading input module " + name + "\n"; };
  const auto parsing = [&](const std::string& name) { return reading(name) + "ERROR parsing module " + name + "\n"; };
  // clang-format off
  const struct { Lines lines; std::string said; } cases[] = {
      {{"$EXTFOR:", "1", "1 2 x 4 5 6"}, parsing("EXTFOR") + "ERR201 - Error reading data set 2 of input module EXTFOR\n"},
      {{"$YCUTLOADS:", "1 1 0 2", "0 1 2"},
       parsing("YCUTLOADS") + "ERR202 - End-of-file reading data set 2 of input module YCUTLOADS\n" + incomplete},
      {{"$YCUTLOADS:", "1 1 0 2000000000", "0 1 2"},
       parsing("YCUTLOADS") + "ERR202 - End-of-file reading data set 2 of input module YCUTLOADS\n" + incomplete},
      {{"$PENDA:", "! name"}, parsing("PENDA") + "ERR202 - End-of-file reading data set 1 of input module PENDA\n" + incomplete},
      {{"$ADDSEA:", "2", "4 9.5", "180 0 40 1 1", "0.5"},
       parsing("ADDSEA") + "ERR202 - End-of-file reading data set 2 of input module ADDSEA\n" + incomplete},
      {{"$IFSINTERP:", "-1"}, parsing("IFSINTERP") + "ERR226 - Dimension error while parsing input module IFSINTERP\n" + incomplete},
      {{"$OPTIONS:", "SPEC_CUTOFF high", "SPEC_DISTOPT 2"},
       parsing("OPTIONS") + "ERR201 - Error reading data set 1 of input module OPTIONS\n"},
      {{"$ : x", "1 2"}, "WRN225 - Blank module name\n"},
      {{"$sail:", "1 2"}, "WRN225 - Unrecognized input module SAIL\n"},
      {{"$FlapLift:", "1 2"}, "ERROR - FLAPLIFT temporarily disabled.\n        bitch at Ned if you want to use it\n"},
      {{"$PTO: none.txt", "1 2"}, reading("PTO") + "ERR212 - Error opening module file: none.txt\n"},
      {{"$RRSTAB: none.txt", "1", "2"}, reading("RRSTAB") + "ERR212 - Error opening module file: none.txt\n"},
  };
  // clang-format on
  for (const auto& c : cases) {
    Lines text = c.lines;
    text.insert(text.end(), {"$RRSTAB:", "0.5", "0.25"});
    if (c.lines[0] == "$RRSTAB: none.txt") text.resize(3);
    const std::string behind = text.size() == 3 ? "" : reading("RRSTAB");
    const Outcome first = Read(text);
    EXPECT_EQ(first.console, c.said + behind + kSomeFailed) << c.lines[0];
    EXPECT_EQ(first.records.rudder_roll.size(), behind.empty() ? 0U : 1U) << c.lines[0];
    EXPECT_TRUE(first.records.external_forces.empty() && first.records.added_seaway.empty());
    EXPECT_TRUE(first.records.ycut.XMCY.empty() && first.records.ycut.IVMY == 0);
    const std::string written = Written(first.records);
    const bool has_file = c.lines[0].find("none.txt") != std::string::npos;
    for (std::size_t k = 1; k < c.lines.size(); ++k)
      EXPECT_EQ(written.find('\n' + c.lines[k] + '\n') == std::string::npos, has_file) << written;
    EXPECT_EQ(Written(ReadText(written).records), written);
  }
}

TEST(Modules, OneThatMayStandOnceIsTheLastOne) {
  const Outcome out =
      Read({"$RRSTAB:", "1", "2", "$EXTFOR:", "1", "6*1", "$rrstab:", "3", "4", "$EXTFOR:", "2", "6*2"});
  EXPECT_EQ(out.console,
            " Reading input module RRSTAB\n Reading input module EXTFOR\n"
            "ERR213 - Input module RRSTAB specified more than once\n"
            "         Data for this module will be set to *last* specified module\n"
            " Reading input module RRSTAB\n Reading input module EXTFOR\n");
  ASSERT_EQ(out.records.rudder_roll.size(), 1U);
  EXPECT_EQ(out.records.rudder_roll[0].RRSTABGAIN1, 3);
  ASSERT_EQ(out.records.external_forces.size(), 2U);
  EXPECT_EQ(out.records.external_forces[1].EXTFORVAL[5], 2);
  EXPECT_EQ(ReadText(Written(out.records)).console,
            " Reading input module EXTFOR\n Reading input module RRSTAB\n Reading input module EXTFOR\n");
}

TEST(Modules, AFileStandsInPlaceOfTheData) {
  // clang-format off
  const std::map<std::string, std::string> files = {
      {"near.txt", "! about\n\n$RRSTAB:\n1 ! gain\r\n2\n$WIND:\n3\n"},
      {"cases/far.txt", "4\n5\nEND_OF_FILE\n6\n"},
      {"cases/near.txt", "7\n8\n"},
      {"endless", std::string(std::size_t{65} << 20, '\n')},
  };
  const struct { const char* header; double gain; const char* said; } cases[] = {
      {"$RRSTAB: near.txt", 1, ""}, {"$RRSTAB:'far.txt' ! of the run", 4, ""}, {"$RRSTAB: Defaults", 0.5, ""},
      {"$RRSTAB: endless", -1, "ERROR - module file is too long : endless\n"},
      {"$RRSTAB: cases", -1, "ERR212 - Error opening module file: cases\n"}};
  // clang-format on
  for (const auto& c : cases) {
    const Outcome out = Read({c.header, "0.5", "0.6"}, files);
    const std::string said = std::string(" Reading input module RRSTAB\n") + c.said;
    EXPECT_EQ(out.console, *c.said == '\0' ? said : said + kSomeFailed);
    EXPECT_EQ(out.records.rudder_roll.empty() ? -1 : out.records.rudder_roll[0].RRSTABGAIN1, c.gain) << c.header;
    const std::string text = Written(out.records);
    EXPECT_NE(text.find("\n$RRSTAB:\n"), std::string::npos);
    const ControlRecords again = ReadText(text).records;  // without the files
    EXPECT_EQ(again.rudder_roll.empty() ? -1 : again.rudder_roll[0].RRSTABGAIN1, c.gain) << text;
  }
}

TEST(Modules, ChecksCountWhatCannotBe) {
  Lines forces;
  for (int i = 0; i <= MXEFOR; ++i) forces.insert(forces.end(), {"$EXTFOR:", "1", "6*0"});
  const char* row = "180 0 40 1 1";
  const Lines linear = {"1", "1 0", "0.5 0 1 180"};
  const std::string not_linear =
      "ERRADDSEA05 - Additional seaway definition can can only be specified\n"
      "    with linear primary seaway definition (ISEA=1,2,6,7,8)\n";
  // clang-format off
  const struct { Lines modules; Lines seaway; int errors; std::string said; } cases[] = {
      {{"$OPTIONS:", "SPEC_DISTOPT -1", "SPEC_SPREADOPT 2", "SPEC_PHASEOPTION 4"}, {"0"}, 0, ""},
      {{"$OPTIONS:", "SPEC_DISTOPT 4", "SPEC_SPREADOPT 3", "SPEC_PHASEOPT -2"}, {"0"}, 3,
       "ERR??? - Illegal spectral frequency distribution option: SPEC_DISTOPT= 4\n"
       "ERR??? - Illegal spectral spreading option: SPEC_SPREADOPT= 3\n"
       "ERR??? - Illegal spectral phase option: SPEC_PHASEOPTION= -2\n"},
      {{"$ADDGEOM:", "", "0 0", "9*0"}, {"0"}, 1,
       "ERRADDGEOM01 - Blank file name not allowed for additional geometry input\n"},
      {{"$ADDSEA:", "3", "1 2 3"}, {"0"}, 1, "ERRADDSEA01 - Seaway specifier ISEA= 3\n"},
      {{"$ADDSEA:", "2", "-1.5 0", row}, linear, 1,
       "ERRADDSEA02 - Illegal parameter value(s) for incident wave spectrum:\n Significant Wave Height SIGWHT= -1.5\n"},
      {{"$ADDSEA:", "2", "1.5 0", "180 0 1 0 1"}, linear, 2,
       "ERRADDSEA03 - For spectral wave definition NHEAD must be > 0\n"
       "ERRADDSEA03 - For spectral wave definition NFREQ must be > 1\n"},
      {{"$ADDSEA:", "2", "1.5 0", row, "2*-1", "-1 -1 9 -1"}, linear, 1,
       "ERRADDSEA04 - Illegal spectral spreading option: SPEC_SPREADOPT= 9\n"},
      {{"$ADDSEA:", "2", "1.5 0", row}, linear, 0, ""},
      {{"$ADDSEA:", "2", "1.5 0", row}, {"0"}, 1, not_linear},
      {{"$ADDSEA:", "2", "1.5 0", row}, {"4", "1 1 0", "1 0 1 0 1 0"}, 1, not_linear},
      {{"$ADDSEA:", "2", "1.5 0", row}, {"5", "1 180 0", "1 2 3"}, 1, not_linear},
      {forces, {"0"}, 1, "ERREXTFOR01 - Number of user specified external forces NEFOR= 101 is limited\n"
                         "            by dimensioning parameter MXEFOR= 100\n"},
  };
  // clang-format on
  for (const auto& c : cases) {
    ControlDraft draft;
    draft.record[21] = c.seaway;
    draft.modules = c.modules;
    const Outcome out = ReadText(draft.Text());
    FakePlatform fake;
    EXPECT_EQ(CheckModules(fake.Get().console, out.records), c.errors) << c.said;
    EXPECT_EQ(fake.output, c.said);
  }
}

TEST(Modules, ThoseOfTheRunAreIgnoredInLaterTexts) {
  const Outcome out = Read({"$ADDGEOM:", "a.geo", "0 0", "9*0", "$WIND:", "$OPTIONS:"});
  FakePlatform fake;
  SayIgnoredModules(fake.Get().console, out.records, 2);
  EXPECT_EQ(fake.output,
            "WRN??? - OPTIONS module inputs specified in ship 2\n"
            "WRN??? - Module ADDGEOM ignored in input file for 2\n");
}

}  // namespace
}  // namespace zaview
