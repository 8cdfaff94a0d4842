#include "case/output_header.h"

#include <cstdint>
#include <cstring>

#include <gtest/gtest.h>

#include "case/version_label.h"
#include "control_draft.h"

namespace zaview {
namespace {

struct HeaderDraft {
  std::string preamble = " VERSION   : 4.1.7 / April 28, 2022\n ZAVO Primary Output File\n";
  ControlDraft control;
  std::string behind_control;  // texts of further ships
  std::string parsing = "1\n1\n1\n1\n3*0.0\n0 0 6.25\n3*0.0\n";
  std::string ship = "0.0028 mass\n1 0 0\n0 2 0\n0 0 3\n0 0 -0.0125\n";
  std::string loads = "8*0\n0\n0\n";
  std::string rest;

  [[nodiscard]] std::string Text() const {
    return preamble + "!---- INPUT_FILE_ECHO ----\n" + control.Text() + behind_control +
           "!---- FILE_PARSING_DATA ----\n" + parsing + "!---- DERIVED_DATA_ECHO ----\n" + ship + loads + rest +
           "!---- END_OF_HEADER ----\n";
  }
  void PutCuts(int x, int y) {
    control.record[29] = {"1 0 1 " + std::to_string(x) + " 0"};
    for (int i = 0; i < x; ++i) control.record[29].push_back("10 0 5");
    control.modules = {"$YCUTLOADS:", "0 1 0 " + std::to_string(y)};
    for (int i = 0; i < y; ++i) control.modules.push_back("0 2.5 5");
  }
};

struct Outcome {
  HeaderStatus status = HeaderStatus::failed;
  CaseStore fresh;
  std::string console;
  std::string behind;  // the line behind the header
};

Outcome Read(const std::string& text) {
  TextFile file(text + "0.0 first step\n");
  Outcome out;
  out.status = ReadOutputHeader(file.platform.console, file.source, "run.out", out.fresh);
  out.console = file.fake.output;
  std::string_view line;
  if (NextRawLine(file.source, line)) out.behind = line;
  return out;
}

TEST(VersionLabel, NumbersAndVariants) {
  const struct {
    const char* line;
    int VERSION;
    bool gyre;
    const char* console;
  } cases[] = {
      {"VERSION   : 4.1.7 / April 28, 2022",  417, false, "Output file is labeled version 417\n"                              },
      {" RELEASE   : 3.5",                    350, false, "Output file is labeled version 350\n"                              },
      {"VERSION   : GYRE 2.1.0",              -1,  true,  "Output file is labeled GYRE version 210\n"                         },
      {"VERSION   : RVM 1.2.3",               293, false, "Output file is labeled RVM version 123\n"                          },
      {"VERSION   : ZAVO-TAMBRINE 4.0.9",     407, false, "Output file is labeled ZAVO-TAMBRINE version 409\n"                },
      {"VERSION   : WEXMARK-2 3.6.1",         361, false, "Output file is labeled WEXMARK version 361\n"                      },
      {"9 VERSION   : 4.1.7",                 417, false, "Output file is labeled version 417\n"                              }, // column 1
      {"VERSION   : 99999999999 99999999999", 0,   false, nullptr                                                             }, // no overflow
      {"VERSION   : 4",                       0,   false, "Version label not found in output file: assuming current version\n"},
      {"VERSION   : WEXMARK-2 3",             0,   false, "Version label not found in output file: assuming current version\n"},
      {"VERSION: 4.1.7",                      0,   false, "Version label not found in output file: assuming current version\n"},
  };
  for (const auto& c : cases) {
    FakePlatform fake;
    VersionLabel label;
    OutputLabels labels;
    ScanPreambleLine(c.line, label, labels.kind);
    AdoptVersionLabel(fake.Get().console, label, labels);
    if (c.console == nullptr) continue;
    EXPECT_EQ(labels.VERSION, c.VERSION) << c.line;
    EXPECT_EQ(labels.gyre, c.gyre) << c.line;
    EXPECT_EQ(fake.output, c.console);
  }
}

TEST(OutputHeader, OrdinaryFile) {
  HeaderDraft draft;
  draft.preamble =
      "VERSION   : 3.0.0\nVERSION   : 4.1.7\nVERSION   : 5\n Primary Output File\n";  // the last usable counts
  draft.PutCuts(2, 1);
  draft.loads = "1 1 0 1 1 0 1 0\n2\n0.1 0 0 cut\n-0.1 0 0\n1\n0 0.025 -0.0125\n";
  draft.rest = "0.0123 2*0.5  further scalars\nno list\n\n7\n";
  const Outcome out = Read(draft.Text());
  ASSERT_EQ(out.status, HeaderStatus::ok) << out.console;
  EXPECT_EQ(out.console, "Output file is labeled version 417\nReading ZAVO input data from output file...\n");
  EXPECT_EQ(out.behind, "0.0 first step");
  EXPECT_EQ(out.fresh.nstep_expected, 100);
  ASSERT_EQ(out.fresh.ships.size(), 1U);
  EXPECT_EQ(out.fresh.ships[0].mass, 0.0028);
  EXPECT_EQ(out.fresh.ships[0].inertia[2], (Triple{0, 0, 3}));
  EXPECT_EQ(out.fresh.ships[0].centre, (Triple{0, 0, -0.0125}));
  ASSERT_EQ(out.fresh.geometry_files.size(), 1U);
  EXPECT_EQ(out.fresh.geometry_files[0].GORIG, (Triple{0, 0, 6.25}));
  EXPECT_EQ(out.fresh.loads.x_kinds, (std::vector<int>{1, 3}));
  EXPECT_EQ(out.fresh.loads.y_kinds, (std::vector<int>{5}));
  EXPECT_EQ(out.fresh.loads.x_cuts[1], (Triple{-0.1, 0, 0}));
  EXPECT_EQ(out.fresh.loads.y_cuts[0], (Triple{0, 0.025, -0.0125}));
  EXPECT_EQ(out.fresh.unnamed_derived, (std::vector<std::vector<double>>{
                                           {0.0123, 0.5, 0.5},
                                           {7  }
  }));
}

TEST(OutputHeader, OlderVersionsLackLists) {
  HeaderDraft draft;
  draft.PutCuts(2, 1);
  const std::string two_cuts = "2\n0.1 0 0\n-0.1 0 0\n";
  const struct {
    const char* version;
    std::string parsing, loads;
    Triple y_cut;
  } cases[] = {
      {"4.0.0", "1\n1\n1\n1\n3*0\n3*0\n3*0\n", "1 1 0 1 1 0 1 0\n" + two_cuts + "1\n0 0.7 0\n", {0, 0.7, 0}     },
      {"3.9.9", "1\n1\n1\n1\n3*0\n3*0\n3*0\n", two_cuts + "1\n0 0.7 0\n",                       {0, 0.7, 0}     },
      {"3.1.2", "1\n1\n1\n3*0\n3*0\n3*0\n",    two_cuts + "1\n0 0.7 0\n",                       {0, 0.7, 0}     },
      {"3.0.7", "1\n1\n1\n3*0\n3*0\n3*0\n",    two_cuts + "1\n9 9 9\n8 8 8\n",                  {0, 0.025, 0.05}},
  };
  for (const auto& c : cases) {
    draft.preamble = std::string("VERSION   : ") + c.version + "\n";
    draft.parsing = c.parsing;
    draft.loads = c.loads;
    const Outcome out = Read(draft.Text());
    ASSERT_EQ(out.status, HeaderStatus::ok) << c.version << out.console;
    EXPECT_EQ(out.fresh.loads.x_kinds, (std::vector<int>{1, 3})) << c.version;
    EXPECT_EQ(out.fresh.loads.y_kinds, (std::vector<int>{5})) << c.version;
    EXPECT_EQ(out.fresh.loads.y_cuts, (std::vector<Triple>{c.y_cut})) << c.version;
    EXPECT_TRUE(out.fresh.unnamed_derived.empty()) << c.version;
  }
}

TEST(OutputHeader, OtherCountsOfShipsAndGeometryFiles) {
  HeaderDraft none;
  none.parsing = "0\n0\n\n\n";  // a blank line in place of the lists does no harm
  none.ship = "";
  Outcome out = Read(none.Text());
  EXPECT_EQ(out.status, HeaderStatus::ok) << out.console;
  EXPECT_TRUE(out.fresh.ships.empty());

  HeaderDraft two;
  two.behind_control = "END_OF_FILE\n\n! ship 2\n" + ControlDraft{}.Text() + "END_OF_FILE\n";
  two.parsing = "2\n2\n1 4\n0 1\n3*0\n3*0\n3*0\n3*1\n3*2\n3*3\n";
  two.ship += two.ship;
  out = Read(two.Text());
  EXPECT_EQ(out.status, HeaderStatus::ok) << out.console;
  EXPECT_EQ(out.fresh.ships.size(), 2U);
  ASSERT_EQ(out.fresh.geometry_files.size(), 2U);
  EXPECT_EQ(out.fresh.geometry_files[1].NCOMPR, 4);
  EXPECT_EQ(out.fresh.geometry_files[1].SYMINPF, 1);
  EXPECT_EQ(out.fresh.geometry_files[1].GROT, (Triple{3, 3, 3}));

  HeaderDraft many;  // the excess shares the last row
  many.parsing = "1\n1002\n1002*1\n1001*0 1\n";
  for (int i = 0; i < 1001; ++i) many.parsing += "3*0\n3*0\n3*0\n";
  many.parsing += "3*0\n3*0\n3*5\n";
  out = Read(many.Text());
  EXPECT_EQ(out.status, HeaderStatus::ok) << out.console;
  ASSERT_EQ(out.fresh.geometry_files.size(), 1000U);
  EXPECT_EQ(out.fresh.geometry_files[999].GROT, (Triple{5, 5, 5}));

  HeaderDraft wide;  // lists on one line, far beyond the columns of a control line
  wide.parsing = "1\n5000\n";
  for (int i = 0; i < 4999; ++i) wide.parsing += "3 ";
  wide.parsing += "4\n5000*0\n15000*0\n";
  for (int i = 1; i < 15000; ++i) wide.parsing += "3*0\n";
  wide.rest = "7" + std::string(1000, ' ') + "8\n";
  out = Read(wide.Text());
  ASSERT_EQ(out.status, HeaderStatus::ok) << out.console;
  EXPECT_EQ(out.fresh.geometry_files[998].NCOMPR, 3);
  EXPECT_EQ(out.fresh.geometry_files[999].NCOMPR, 4);
  EXPECT_EQ(out.fresh.unnamed_derived, (std::vector<std::vector<double>>{
                                           {7, 8}
  }));
}

// A device or a pipe that gives one byte for ever.
template <char byte>
std::int64_t ReadEndless(void*, FileHandle, char* to, std::size_t size) {
  std::memset(to, byte, size);
  return static_cast<std::int64_t>(size);
}

TEST(OutputHeader, EndlessFilesAreGivenUp) {
  for (auto* const read : {ReadEndless<'\n'>, ReadEndless<'\0'>}) {
    TextFile file("");
    file.platform.files.read = read;
    CaseStore fresh;
    EXPECT_EQ(ReadOutputHeader(file.platform.console, file.source, "run.out", fresh), HeaderStatus::failed);
    EXPECT_EQ(file.fake.output.substr(0, 6), "ERR407");
    EXPECT_LT(file.stream.buffer.size(), 200'000U);
  }
}

constexpr std::string_view kParsing407 = "ERR407 - Error reading file parsing data\n";
constexpr std::string_view kDerived407 = "ERR407 - Error reading derived data echo\n";

TEST(OutputHeader, FaultsBehindTheControlText) {
  const struct {
    const char* what;
    void (*spoil)(HeaderDraft&);
    std::string console;
  } cases[] = {
      {"negative NSHIP",                    [](HeaderDraft& d) { d.parsing = "-1\n"; },
       std::string(kParsing407) + "         Illegal NSHIP value\n"                                                                         },
      {"too many ships",                    [](HeaderDraft& d) { d.parsing = "4\n"; },
       "ERR419 - Too many ships (dynamic systems)\n         File has NSHIP= 4 while MAXDYN= 3\n"                                           },
      {"negative NFGEOM",                   [](HeaderDraft& d) { d.parsing = "1\n-2\n"; },
       std::string(kParsing407) + "         Illegal NFGEOM value\n"                                                                        },
      {"hostile NFGEOM",                    [](HeaderDraft& d) { d.parsing = "1\n2000000000\n2000000000*1\n"; },
       "ERR??? - Error allocating arrays for geometry file list\n"                                                                         },
      {"large NFGEOM without files",        [](HeaderDraft& d) { d.parsing = "1\n900000\n900000*1\n900000*0\n"; },
       std::string(kParsing407)                                                                                                            },
      {"negative NCOMPR",                   [](HeaderDraft& d) { d.parsing = "1\n2\n3 -1\n"; },
       std::string(kParsing407) + "         Illegal NCOMPR value\n"                                                                        },
      {"SYMINPF above 1",                   [](HeaderDraft& d) { d.parsing = "1\n2\n3 1\n0 2\n"; },
       std::string(kParsing407) + "         Illegal SYMINPF value\n"                                                                       },
      {"parsing data cut by the delimiter", [](HeaderDraft& d) { d.parsing = "1\n1\n1\n1\n3*0.0\n"; },
       std::string(kParsing407)                                                                                                            },
      {"NBCA differs",                      [](HeaderDraft& d) { d.loads = "8*0\n1\n3*0\n0\n"; },                  std::string(kDerived407)},
      {"Y cut count differs",               [](HeaderDraft& d) { d.loads = "8*0\n0\n1\n3*0\n"; },                  std::string(kDerived407)},
      {"no number",                         [](HeaderDraft& d) { d.ship = "****\n"; },                             std::string(kDerived407)},
      {"derived data cut by the delimiter", [](HeaderDraft& d) { d.loads = ""; },                                  std::string(kDerived407)},
  };
  for (const auto& c : cases) {
    HeaderDraft draft;
    c.spoil(draft);
    const Outcome out = Read(draft.Text());
    EXPECT_EQ(out.status, HeaderStatus::failed) << c.what;
    const std::string said = "Output file is labeled version 417\nReading ZAVO input data from output file...\n";
    EXPECT_EQ(out.console, said + c.console) << c.what;
  }
}

TEST(OutputHeader, PreambleDecidesWhatKindOfFileItIs) {
  const std::string not_found =
      "ERR407 - Input echo section delimiters not found while reading run.out\n"
      "         File is probably not a ZAVO output file\n";
  const std::string current = "Version label not found in output file: assuming current version\n";
  const std::string not_primary = current + "ERR485 - File is not a ZAVO Primary Output File: run.out\n";
  const struct {
    std::string text, console;
  } cases[] = {
      {"",                  not_found                        },
      {std::string(200'000, 'x'),                              not_found},
      {"!-- FILE_PARSING_DATA --\n!-- INPUT_FILE_ECHO --\n",                   not_found},
      {std::string(70,                   ' ') + "INPUT_FILE_ECHO\n",                                       not_found}, // only 80 columns are looked at
      {"ZAVO Elastic Beam Output File\n INPUT_FILE_ECHO\n",          not_primary    },
      {"Standard Output of ZAVO\n INPUT_FILE_ECHO\n",not_primary                           },
      {"Primary Output File\nPressure Output File\n INPUT_FILE_ECHO\n",          not_primary               },
  };
  for (const auto& c : cases) {
    const Outcome out = Read(c.text);
    EXPECT_EQ(out.status, HeaderStatus::failed);
    EXPECT_EQ(out.console, c.console);
  }
  HeaderDraft unlabelled;
  unlabelled.preamble = "Pressure Output File\nStandard Output Output File Primary\n";
  const Outcome out = Read(unlabelled.Text());
  EXPECT_EQ(out.status, HeaderStatus::ok);
  EXPECT_EQ(out.console, current + "Reading ZAVO input data from output file...\n");
}

TEST(OutputHeader, EveryPrefixOfAHeaderIsRefused) {
  HeaderDraft draft;
  draft.PutCuts(1, 1);
  draft.loads = "8*1\n1\n3*0\n1\n3*0\n";
  const std::string text = draft.Text();
  ASSERT_EQ(Read(text).status, HeaderStatus::ok);
  const std::size_t whole = text.find("END_OF_HEADER") + std::string("END_OF_HEADER").size();
  for (std::size_t n = 0; n < whole; ++n) {
    TextFile file(text.substr(0, n));
    CaseStore fresh;
    EXPECT_EQ(ReadOutputHeader(file.platform.console, file.source, "run.out", fresh), HeaderStatus::failed) << n;
  }
}

}  // namespace
}  // namespace zaview
