#include "case/irf_sections.h"

#include <algorithm>

#include <gtest/gtest.h>

#include "case/plot_data.h"
#include "case/quantity_catalogue.h"
#include "control_draft.h"

namespace zaview {
namespace {

constexpr std::string_view kEnd = "!END OF INPUT FILE ECHO\n";
constexpr std::string_view kNoIrfs =
    "ERR490 - No IRF calculations found - The ZAVO output file may ...\n"
    "    ... be from an older version of ZAVO,\n"
    "    ... not have had to compute any IRF's  (i.e. all were up to date),\n";
constexpr std::string_view kNoMatrices =
    "WRN491 - IRF output file did not contain frequency independent added\n"
    "         mass and damping coefficients, so there is nothing to\n"
    "         process for the added mass IRF\n";

std::string Label(std::string_view label) {
  return "!IRF  12        " + std::string(label) + '\n';
}

struct Read {
  TextFile file;
  CaseStore c;
  IrfStatus status = IrfStatus::ok;

  explicit Read(std::string text, bool tadm = false) : file(std::move(text)) {
    c.file_name = "run.out";
    c.control.MOTYPE = 1;
    c.irf_case = !tadm;
    c.tadm_case = tadm;
    c.control.SWTCH = {0, 0, 1, 0, 1, 0};
    status = ReadIrfSections(file.platform.console, file.source, c);
  }
  [[nodiscard]] const std::string& words() const { return file.fake.output; }
};

// Heave with a list over two lines, matrices with their rows numbered, diffraction.
struct Parts {
  std::string heave = Label("radiation in heave, ship 2, 2 steps (no aij, etc.)");
  std::string heave_data = "0.0 1 2 3\n 4 5 6 dropped\n0.5 6*-1.5\n";
  std::string mass = Label("added mass, ship 1, 0 steps (with aij, etc.)");
  std::string mass_data;
  std::string head = Label("diffraction head, heading 170.5, ship 1, 1 steps (no aij, etc.)");
  std::string head_data = "0. 1 2 3 4 5 6, 11 12 13 14 15 16\n";
  Parts() {
    for (int row = 1; row <= 18; ++row) mass_data += std::to_string(row) + " 2*0 7 , 0.25 -2\n";
  }
  [[nodiscard]] std::string Inline() const {
    return heave + heave_data + mass + mass_data + head + head_data + std::string(kEnd);
  }
  [[nodiscard]] std::string Collected() const {
    return heave + mass + head + std::string(kEnd) + heave_data + mass_data + head_data;
  }
};

TEST(IrfSections, LabelsTellKindShipHeading) {
  const struct {
    std::string_view label;
    IrfKind kind;
    int ship;
    double heading;
  } rows[] = {
      {"steady forward speed, ship 1, 0 steps",               IrfKind::steady,               1, 0   },
      {"radiation in surge, ship 3, 0 steps",                 IrfKind::surge,                3, 0   },
      {"radiation in sway, 0 steps",                          IrfKind::sway,                 1, 0   },
      {"radiation in heave, ship  2 , 0 steps",               IrfKind::heave,                2, 0   },
      {"radiation in roll, ship 1,0 steps",                   IrfKind::roll,                 1, 0   },
      {"radiation in pitch, ship 1, 0 step (no aij)",         IrfKind::pitch,                1, 0   },
      {"radiation in yaw, ship=1, 0   steps",                 IrfKind::yaw,                  1, 0   },
      {"diffraction head, ship 1, 0 steps",                   IrfKind::diffraction_head,     1, 180 },
      {"diffraction follow 1, heading 30.5, ship 1, 0 steps", IrfKind::diffraction_follow_1, 1, 30.5},
      {"diffraction follow 2, heading none, ship 1, 0 steps", IrfKind::diffraction_follow_2, 1, 0   },
      {"diffraction follow 3, heading -10, ship 1, 0 steps",  IrfKind::diffraction_follow_3, 1, -10 },
      {"added mass, ship 1, 0 steps (no aij, etc.)",          IrfKind::added_mass,           1, 0   },
      {"air cushion pressure, ship 1, 0 steps",               IrfKind::air_cushion,          1, 0   },
      {"added mass of radiation in yaw, ship 1, 0 steps",     IrfKind::yaw,                  1, 0   }, // first of the order
  };
  for (const auto& row : rows) {
    const Read read(Label(row.label) + std::string(kEnd));
    ASSERT_EQ(read.status, IrfStatus::ok) << row.label << read.words();
    ASSERT_EQ(read.c.irfs.size(), 1U);
    const IrfBlock& irf = read.c.irfs[0];
    EXPECT_EQ(irf.label, row.label);
    EXPECT_EQ(irf.kind, row.kind) << row.label;
    EXPECT_EQ(irf.ship, row.ship) << row.label;
    EXPECT_EQ(irf.heading, row.heading) << row.label;
    EXPECT_EQ(irf.force.components(), 6);
    EXPECT_EQ(irf.froude_krylov.components(), IsDiffraction(row.kind) ? 6 : 0);
    EXPECT_EQ(read.words(), row.kind == IrfKind::added_mass ? kNoMatrices : "");
  }
}

void ExpectParts(const CaseStore& c) {
  ASSERT_EQ(c.irfs.size(), 3U);
  EXPECT_EQ(c.rvm, 3);
  const IrfBlock& heave = c.irfs[0];
  EXPECT_EQ(heave.time.component[0], (std::vector<float>{0.0F, 0.5F}));
  for (int i = 1; i <= 6; ++i) {
    EXPECT_EQ(heave.force.at(i, 1), static_cast<float>(i));
    EXPECT_EQ(heave.force.at(i, 2), -1.5F);
  }
  const IrfBlock& mass = c.irfs[1];
  EXPECT_TRUE(mass.has_matrices);
  EXPECT_TRUE(mass.time.component[0].empty());
  for (std::size_t row = 0; row < 18; ++row) {
    const std::array<float, 6> want = {static_cast<float>(row + 1), 0.0F, 0.0F, 7.0F, 0.25F, -2.0F};
    EXPECT_EQ(mass.matrices[row / 6][row % 6], want);
  }
  const IrfBlock& head = c.irfs[2];
  EXPECT_EQ(head.heading, 170.5);
  for (int i = 1; i <= 6; ++i) {
    EXPECT_EQ(head.force.at(i, 1), static_cast<float>(i));
    EXPECT_EQ(head.froude_krylov.at(i, 1), static_cast<float>(10 + i));
  }
}

std::string WithReturns(const std::string& text) {
  std::string out;
  for (const char c : text) out += c == '\n' ? std::string("\r\n") : std::string(1, c);
  return out;
}

TEST(IrfSections, DataOfEachKindInBothOrders) {
  Parts parts;
  const std::string texts[] = {parts.Inline(), parts.Collected(), WithReturns(parts.Inline()),
                               WithReturns(parts.Collected())};
  for (const std::string& text : texts) {
    const Read read(text);
    ASSERT_EQ(read.status, IrfStatus::ok) << read.words();
    EXPECT_EQ(read.words(), "");
    ExpectParts(read.c);
  }
  parts.heave_data = "\n\n0.0 1 2 3\n 4 5 6\n0.5 6*-1.5\n1.0 6*9\nnot wanted\n";  // more lists than the label says
  ExpectParts(Read(parts.Inline()).c);
  parts = Parts{};
  parts.head = "\n" + parts.head;  // a blank line between the labels
  ExpectParts(Read(parts.Collected()).c);
}

// Where an added mass run goes on: behind the end line, or behind the data that stand there.
TEST(IrfSections, TheStreamStaysAtTheSteps) {
  const Parts parts;
  const std::string steps = "0.0 12*1\n";
  for (const std::string& text : {parts.Inline() + steps, parts.Collected() + steps, std::string(kEnd) + steps}) {
    Read read(text, true);
    ASSERT_EQ(read.status, IrfStatus::ok);
    const std::int64_t lines_ahead = std::count(text.begin(), text.end(), '\n') - 1;
    EXPECT_EQ(read.file.source.line_number, lines_ahead);
    EXPECT_EQ(read.file.stream.offset, static_cast<std::int64_t>(text.size() - steps.size()));
    std::string_view line;
    ASSERT_TRUE(NextRawLine(read.file.source, line));
    EXPECT_EQ(line, "0.0 12*1");
  }
}

TEST(IrfSections, Faults) {
  const Parts parts;
  const std::string no_end = "LOGIC ERROR parsing output file header\n";
  const std::string heave = Label("radiation in heave, ship 1, 2 steps");
  const std::string end(kEnd);
  const struct {
    std::string text;
    std::string words;
  } rows[] = {
      {end,                                                      std::string(kNoIrfs)                                                  },
      {"",                                                       no_end                                                                },
      {"0.0 51*0.5\n",                                           no_end                                                                },
      {parts.heave + parts.heave_data,                           no_end                                                                },
      {heave + "0.0 6*1\n",                                      no_end                                                                },
      {Label("waves, ship 1, 2 steps") + end,                    "ERR489 - Unrecognized IRF : !IRF  12        waves, ship 1, 2 steps\n"},
      {"!x\n" + end,                                             "ERR489 - Unrecognized IRF : !x\n"                                    },
      {Label("radiation in yaw, ship , 401 steps") + end,
       "LOGIC ERROR parsing ship index from IRF label: radiation in yaw, ship , 401 steps\n"                                           },
      {Label("radiation in yaw, ship one, 401 steps") + end,
       "LOGIC ERROR parsing ship index from IRF label: radiation in yaw, ship one, 401 steps\n"                                        },
      {Label("radiation in yaw, ship 1") + end,
       "ERROR - number of steps missing in IRF label : radiation in yaw, ship 1\n"                                                     },
      {Label("radiation in yaw, -3 steps") + end,
       "ERROR - number of steps missing in IRF label : radiation in yaw, -3 steps\n"                                                   },
      {Label("radiation in yaw, 3000000000 steps") + end,
       "ERROR - number of steps missing in IRF label : radiation in yaw, 3000000000 steps\n"                                           },
      {heave + "0.0 6*1\n" + parts.mass + parts.mass_data + end, "ERROR - Error reading IRF data : run.out, line 3\n"                  },
      {heave + "0.0 6*1\n1.0 3 **** 3*1\n" + end,                "ERROR - Error reading IRF data : run.out, line 3\n"                  },
      {parts.mass + "6*0\n6*0\n6*x\n",                           "ERROR - Error reading IRF data : run.out, line 4\n"                  },
      {heave + end + "0.0 6*1\n1.0 6*\n" + parts.heave,          ""                                                                    },
      {heave + end + "0.0 6*1\n1.0 5*1\n",                       "ERROR - Unexpected file end in IRF data : run.out\n"                 },
  };
  for (const auto& row : rows) {
    const Read read(row.text);
    EXPECT_EQ(read.words(), row.words) << row.text;
    EXPECT_EQ(read.status, row.words.empty() ? IrfStatus::ok : IrfStatus::failed) << row.text;
  }
  EXPECT_EQ(Read(std::string(kEnd), true).status, IrfStatus::ok);  // an added mass run needs no blocks
}

// A file that ends too early is told, wherever it is cut; what was read is never taken for more than it is.
TEST(IrfSections, CutAtEveryByte) {
  const Parts parts;
  for (const std::string& text : {parts.Inline(), parts.Collected()}) {
    const std::size_t end_line = text.find(kEnd) + kEnd.size() - 1;  // its last line end may be missing
    for (std::size_t size = 0; size < text.size(); ++size) {
      const Read read(text.substr(0, size));
      const bool whole = size >= end_line && read.status == IrfStatus::ok;
      EXPECT_EQ(read.words().empty(), whole) << size;
      if (!whole) continue;
      EXPECT_EQ(read.c.irfs[2].force.at(1, 1), 1.0F);
    }
  }
}

TEST(IrfSections, LongRecordsAndLongLines) {
  constexpr int kSteps = 9000;
  std::string text = Label("diffraction head, ship 1, 9000 steps");
  for (int i = 0; i < kSteps; ++i) {
    text += std::to_string(i);
    for (int k = 1; k <= 12; ++k) text += (i == 5000 ? std::string(100000, ' ') : " ") + std::to_string(100 * i + k);
    text += '\n';
  }
  const Read read(text + std::string(kEnd));
  ASSERT_EQ(read.status, IrfStatus::ok);
  const IrfBlock& irf = read.c.irfs[0];
  ASSERT_EQ(irf.time.component[0].size(), static_cast<std::size_t>(kSteps));
  for (const int step : {1, 2, 2500, 5001, 9000}) {
    EXPECT_EQ(irf.time.at(1, step), static_cast<float>(step - 1));
    for (int k = 1; k <= 6; ++k) {
      EXPECT_EQ(irf.force.at(k, step), static_cast<float>(100 * (step - 1) + k));
      EXPECT_EQ(irf.froude_krylov.at(k, step), static_cast<float>(100 * (step - 1) + k + 6));
    }
  }
}

// A count that the file can't hold costs no more memory than its lines do.
TEST(IrfSections, CountsAreNotTrusted) {
  const Read read(Label("radiation in heave, 2147483647 steps") + "0.0 6*1\n1.0 6*1\n");
  EXPECT_EQ(read.status, IrfStatus::failed);
  EXPECT_LT(read.c.irfs[0].force.component[5].capacity(), 10000U);
}

// Values of the tables: time x T, the rest as stored with the sign of its mode; trims are for histories.
TEST(IrfSections, ShownValues) {
  Read read(Parts().Inline());
  CaseStore& c = read.c;
  OutputSettings settings;
  settings.scales.T = 2.0F;
  settings.scales.force.fill(1000.0F);
  settings.cnvfac = {1, -1, -1, 1, -1, -1};
  settings.trim_initial = 1;
  PlotData data;
  const auto set = [&](int iqnt, int curve) {
    QuantityRequest request;
    request.iqnt = iqnt;
    request.curve = curve;
    return SetPlotData(read.file.platform.console, settings, request, c, data);
  };
  ASSERT_EQ(set(1, 0), PlotFault::none);
  EXPECT_EQ(data.x, (std::vector<float>{0.0F, 1.0F}));
  EXPECT_EQ(data.y[2], (std::vector<float>{-3.0F, 1.5F}));
  EXPECT_EQ(data.labels, (std::vector<std::string>{"firf(1)", "firf(2)", "firf(3)", "firf(4)", "firf(5)", "firf(6)"}));
  EXPECT_EQ(QuantityLabel(c, 1), "Impulse Response Function");
  ASSERT_EQ(set(3, 9), PlotFault::none);  // Froude-Krylov heave
  EXPECT_EQ(data.labels, (std::vector<std::string>{"firf(9)"}));
  EXPECT_EQ(data.y[0], (std::vector<float>{-13.0F}));
  ASSERT_EQ(set(2, 0), PlotFault::none);  // matrices alone
  EXPECT_EQ(data.n, 0);
  settings.step_stride = 2;
  ASSERT_EQ(set(1, 1), PlotFault::none);
  EXPECT_EQ(data.n, 1);
  for (const auto& [iqnt, curve] : {
           std::pair{0, 0 },
           std::pair{4, 0 },
           std::pair{1, 7 },
           std::pair{3, 13}
  })
    EXPECT_EQ(set(iqnt, curve), PlotFault::not_valid) << iqnt;
}

}  // namespace
}  // namespace zaview
