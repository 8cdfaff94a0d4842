#include "control/read_control_records.h"

#include <functional>

#include <gtest/gtest.h>

#include "control/input_scales.h"
#include "control_draft.h"

namespace zaview {
namespace {

struct Outcome {
  ControlStatus status = ControlStatus::failed;
  Delimiter delimiter = Delimiter::none;
  ControlRecords records;
  std::string console;
};

Outcome Read(const std::string& text) {
  TextFile file(text);
  Outcome out;
  ControlText control{&file.source, "run.out"};
  out.status = ReadControlRecords(file.platform.console, control, out.records);
  out.delimiter = control.delimiter;
  out.console = file.fake.output;
  return out;
}

Outcome Read(const ControlDraft& draft) {
  return Read(draft.Text() + "! FILE_PARSING_DATA\n");
}

TEST(ReadControlRecords, WholeTextWithSomeCommentLinesLeftOut) {
  const Outcome out = Read(R"(!01 DESCR - Descriptive Title (max 80 char)
Wigley hull, head sea


!04 FGEOM - Source file for geometry definition
wigley.geo
run.out
!06 Output frequency for pressure, geometry, etc.
!           POUT              GOUT              SOUT              BOUT
0 0 0 0




!11 AUXOUT(20) - Flags for auxiliary output files
1 19*0
1
!13 ZVOTYP (1-4)  MOTYPE (forced/impulsive/free)  MIXED (Rankine/mixed/IRF)
1 2 0
6*0
3*0.0

!14 TINIT NSTEP DTH IRST - Initial Time, Number of Steps, Time Step, Restart
0.0 3000 0.25 0
first.rst


!15 USHIP  UCURNT  DCURNT  WDEPTH - Steady speed, current vel/dir, water depth
7.5 0.0 0.0 0.0
!16 PMGIN(1:6) Initial position and orientation in global frame
0.0 0.0 -1.25 3*0.0
7.5 5*0.0
!18 AMPM(1:6) Amplitude for forced sinusoidal motion (if MOTYPE=0)
6*0.0
6*0.0
6*1
!21 ISEA - Seaway specifier
8
!21 (cont) SIGWHT  TOMODAL  PEAKPRM (JONSWAP)
4.0 9.5 3.3
!21 (cont) SEAHD  SPREAD  NFREQ  NHEAD  IWVRLZ  NWSC
180.0 0.0 40 1 1 2
!21 (cont) WSCSTP(i) WSCFAC(i) - wave scaling step/factor
1 0.0
101 1.0
!22 GRAVIN  RHOIN  LENIN  ANGIN - Scale Factors for Input
9.81 1025.0 100.0 57.29578
9.80 1025.0 328.0 1.0
!24 GSHIFT(3), GORIG(3), GROT(3) - Input geometry transformation
1.0 0.0 0.0
0.0 0.0 6.25

0.0 0.0 -3.0
!25 SMA - Ship mass, SMI(1,1),(2,1),(3,1),(1,2)...(3,3) Mom. of Inertia
2846353.0 3.5E7 21.0 31.0 12.0 1.8D9 32.0 13.0 23.0 1.9D9
!26 RGRAV - center of gravity in input system
0.0 0.0 5.0
!27 SYMGEO= 1 for symmetry in calc., SYMINP =1 for symmetry in input
1 0
!28 NCOMP0 ...
1
!28 (cont) KCTYPE0 NEWWL0 KSPWL0 SPWL0 NEWST0 KSPST0 SPST0,1->NCOMP0
1 2 3 0.4 5 6 0.7
!29 IVM, IHM, ITM, NBCA, NBMX ...
1 0 0 2 0
!29 (cont) XMC(123,1->NBCA)
25.0 0.0 6.25
-25.0 0.0 6.25
!30 KINVIS (kinematic viscosity)  IHROLL (roll damping option)
1.19E-6 1
!30 (cont) CRITDAMP - ratio of linear critical damping coefficient
0.05
!31 IHLIFT (hull lift option)
0
!32 NFIN - Number of wing-like lifting appendages (e.g. rudder, fins)
1
!32 (cont) center, span vec, chord vec, span length, chord length, defl angle
-48.0 0.0 2.0 0.0 0.0 -1.0 1.0 0.0 0.0 4.0 2.5 0.5
!33 NBK - Number of plate-like lifting appendages (e.g. bilge keels)
0
)");
  ASSERT_EQ(out.status, ControlStatus::ok) << out.console;
  EXPECT_EQ(out.console, "");
  const ControlRecords& r = out.records;
  EXPECT_EQ(r.DESCR, "Wigley hull, head sea");
  EXPECT_EQ(r.FAPLT, "");
  EXPECT_EQ(r.FGEOM, "wigley.geo");
  EXPECT_EQ(r.FOUT, "run.out");
  EXPECT_EQ(r.AUXOUT[0], 1);
  EXPECT_EQ(r.MOTYPE, 2);
  EXPECT_EQ(r.NSTEP, 3000);
  EXPECT_EQ(r.DTH, 0.25);
  EXPECT_EQ(r.FRST, "first.rst");
  EXPECT_EQ(r.FWLMEM, "");
  EXPECT_EQ(r.PMGIN, (Sextet{0, 0, -1.25, 0, 0, 0}));
  EXPECT_EQ(r.VMGSHP[0], 7.5);
  EXPECT_EQ(r.seaway.SIGWHT, 4.0);
  EXPECT_EQ(r.seaway.TOMODAL, 9.5);
  EXPECT_EQ(r.seaway.NFREQ, 40);
  EXPECT_EQ(r.seaway.WSCSTP, (std::vector<int>{1, 101}));
  EXPECT_EQ(r.seaway.WSCFAC, (std::vector<double>{0.0, 1.0}));
  EXPECT_EQ(r.LENOUT, 328.0);
  EXPECT_EQ(r.GSHIFT, (Triple{1, 0, 0}));
  EXPECT_EQ(r.GROT, (Triple{0, 0, -3}));
  EXPECT_EQ(r.SMI, (std::array<Triple, 3>{
                       Triple{3.5e7, 12,    13   },
                       Triple{21,    1.8e9, 23   },
                       Triple{31,    32,    1.9e9}
  }))
      << "columns come first";
  ASSERT_EQ(r.components.size(), 1U);
  EXPECT_EQ(r.components[0].SPST0, 0.7);
  EXPECT_EQ(r.XMC, (std::vector<Triple>{
                       {25,  0, 6.25},
                       {-25, 0, 6.25}
  }));
  EXPECT_EQ(r.CRITDAMP, 0.05);
  ASSERT_EQ(r.fins.size(), 1U);
  EXPECT_EQ(r.fins[0].span, (Triple{0, 0, -1}));
  EXPECT_EQ(r.fins[0].deflection, 0.5);
}

TEST(ReadControlRecords, LinesFollowTheSwitches) {
  const struct {
    int record;
    std::vector<std::string> lines;
    std::function<bool(const ControlRecords&)> good;
  } cases[] = {
      {6,
       {"-1 0 0 0", "1 2 3"},
       [](auto& r) {
         return r.XPOUT == Triple{1, 2, 3};
       }                                                                                                                            },
      {13, {"1 0 -2", "6*0", "1 2 3", "irf"},                            [](auto& r) { return r.FIRF0 == "irf" && r.ZMIX == 3; }    },
      {21,
       {"1", "2 1", "0.5 1 2 3", "0.6 4 5 6", "7 0.5"},
       [](auto& r) { return r.seaway.waves.size() == 2 && r.seaway.waves[1].HEADW == 6 && r.seaway.WSCSTP[0] == 7; }                },
      {21, {"2", "4 9", "180 0 40 1 1 0"},                               [](auto& r) { return r.seaway.TMODAL == 9; }               },
      {21, {"3", "5 0", "0.5 1 2 3"},                                    [](auto& r) { return r.seaway.waves.size() == 1; }         },
      {21,
       {"4", "1 2 0", "1 2 3 4 5 6", "7 8 9 10 11 12"},
       [](auto& r) { return r.seaway.alternative.size() == 2 && r.seaway.alternative[1].HEAD == 12; }                               },
      {21,
       {"5", "2 180.0 1", "1 2 3", "4 5 6", "1 1"},
       [](auto& r) { return r.seaway.modes.size() == 2 && r.seaway.modes[1].MODE_FREQ == 6 && r.seaway.NWSC == 1; }                 },
      {21, {"6", "15 2E5 3.3", "180 0 40 1 1 0"},                        [](auto& r) { return r.seaway.FETCH == 2e5; }              },
      {21, {"7", "1 2 3 4 5 6", "180 0 40 1 9 0"},                       [](auto& r) { return r.seaway.IWVRLZ == 9; }               },
      {28, {"1", "1 0 0 0.0 2 0 0.5"},                                   [](auto& r) { return r.components[0].NEWST0 == 2; }        },
      {29,
       {"0 0 0 1 1", "1 2 3", "1 2 3 4 5 6 7 8 9 10 11 12 13", "7*0 8"},
       [](auto& r) {
         return r.mass_points[0].AMI == Triple{8, 9, 10} && r.STRDMP[7] == 8;
       }                                                                                                                            },
      {30, {"1E-6 2", "1 2"},                                            [](auto& r) { return r.CFROLL == 1 && r.CFROLL2 == 2; }    },
      {30, {"1E-6 3", "1 2"},                                            [](auto& r) { return r.CFROLL3 == 1 && r.CFROLL4 == 2; }   },
      {30, {"1E-6 4", "1"},                                              [](auto& r) { return r.CFROLL2 == 1; }                     },
      {30, {"1E-6 5", "1"},                                              [](auto& r) { return r.CFROLL3 == 1; }                     },
      {31, {"1", "1 2 3 4 5"},                                           [](auto& r) { return r.deadriseang == 5; }                 },
      {31, {"2", "1 2 3 4"},                                             [](auto& r) { return r.fact_hlift == 4; }                  },
      {13, {"1,,0", "6*0", "3*0", ""},                                   [](auto& r) { return r.MOTYPE == 0; }                      }, // left out: 0, not the usual 2
      {33, {"1", "1 2 3 4 5 6 7 8 9 10 11"},                             [](auto& r) { return r.bilge_keels[0].chord_length == 11; }},
  };
  for (const auto& c : cases) {
    ControlDraft draft;
    draft.record[c.record] = c.lines;
    draft.modules = {"$WIND:", "1 2"};  // a record that takes a line too many or too few would lose it
    const Outcome out = Read(draft);
    ASSERT_EQ(out.status, ControlStatus::ok) << c.record << ' ' << c.lines[0] << out.console;
    EXPECT_TRUE(c.good(out.records)) << c.record << ' ' << c.lines[0];
    EXPECT_EQ(out.records.modules.size(), 1U) << c.record << ' ' << c.lines[0];
    EXPECT_EQ(out.delimiter, Delimiter::file_parsing_data);
  }
}

TEST(ReadControlRecords, FaultsNameRecordAndLine) {
  const struct {
    int record;
    std::vector<std::string> lines;
    const char* console;
  } cases[] = {
      {14,
       {"0.0 many 0.25 0", "", "", ""},
       "ERROR - record 14 of the control data cannot be read : run.out, line 17\n"                                      },
      {21, {"9"},                            "ERR104 - Seaway specifier ISEA= 9\n"                                      },
      {21, {"-1"},                           "ERR104 - Seaway specifier ISEA= -1\n"                                     },
      {21, {"1", "-2 0"},                    "ERROR - record 21 of the control data cannot be read : run.out, line 28\n"},
      {21, {"1", "2000000000 0"},            "ERROR - record 21 of the control data cannot be read"                     }, // must not allocate
      {21, {"4", "2147483647 2147483647 0"}, "ERROR - record 21 of the control data cannot be read"                     },
      {21, {"4", "-2 -2 0"},                 "ERROR - record 21 of the control data cannot be read"                     },
      {22, {"9.81 1025.0 0.0 1.0"},          "ERROR - record 22 of the control data cannot be read"                     },
      {22, {"9.81 NaN 1.0 1.0"},             "ERROR - record 22 of the control data cannot be read"                     },
      {22, {"9.81 1025.0 /"},                "ERROR - record 22 of the control data cannot be read"                     }, // left out: 0
      {23, {"9.81 1025.0 Inf 1.0"},          "ERROR - record 23 of the control data cannot be read"                     },
      {28, {"-1"},                           "ERROR - record 28 of the control data cannot be read"                     },
      {29, {"0 0 0 2000000000 0"},           "ERROR - record 29 of the control data cannot be read"                     },
      {29, {"0 0 0 0 -5"},                   "ERROR - record 29 of the control data cannot be read"                     },
      {32, {"99999999999"},                  "ERROR - record 32 of the control data cannot be read"                     },
      {33, {"3"},                            "ERROR - record 33 of the control data cannot be read"                     },
      {1,  {},                               "ERROR - record 02 of the control data cannot be read"                     }, // one field short
  };
  for (const auto& c : cases) {
    ControlDraft draft;
    draft.record[c.record] = c.lines;
    if (c.record == 1) {
      draft.record = {
          {1, {"Draft"}}
      };
    }
    const Outcome out = Read(draft);
    EXPECT_EQ(out.status, ControlStatus::failed) << c.console;
    EXPECT_EQ(out.console.substr(0, std::string(c.console).size()), c.console);
  }
}

TEST(ReadControlRecords, ModulesAreKeptAsRawTextAndTheLastYCutLoadsCount) {
  ControlDraft draft;
  draft.modules = {"!Wind force calculation input module",
                   "  $wind: DEFAULT ! note",
                   "!WIND01 AREA_PROJ",
                   "850.0 140.0 ! m2",
                   "",
                   "$YCUTLOADS:",
                   "1 0 0 0",
                   "$ycutloads :",
                   "!YCUTLOADS01 IVMY IHMY ITMY NBCY",
                   "0 1 0 2",
                   "!YCUTLOADS02 XMCY(123,1->NBCY)",
                   "0.0 2.5 6.25",
                   "0.0 -2.5 6.25",
                   "END_OF_FILE",
                   "$LATE:"};
  const Outcome out = Read(draft);
  ASSERT_EQ(out.status, ControlStatus::ok) << out.console;
  EXPECT_EQ(out.delimiter, Delimiter::none);
  ASSERT_EQ(out.records.modules.size(), 3U);
  EXPECT_EQ(out.records.modules[0].name, "WIND");
  EXPECT_EQ(out.records.modules[0].header, "  $wind: DEFAULT ! note");
  EXPECT_EQ(out.records.modules[0].lines, (std::vector<std::string>{"!WIND01 AREA_PROJ", "850.0 140.0 ! m2", ""}));
  EXPECT_EQ(out.records.ycut.IHMY, 1);
  ASSERT_EQ(out.records.ycut.XMCY.size(), 2U);
  EXPECT_EQ(out.records.ycut.XMCY[1], (Triple{0, -2.5, 6.25}));
}

TEST(ReadControlRecords, FaultyYCutLoadsAreLeftOut) {
  for (const char* lines : {"1 1 0 2\n0 1 2", "1 1 0 -1", "1 1 0 2000000000", "1 x", ""}) {
    ControlDraft draft;
    draft.modules = {"$YCUTLOADS:", lines};
    const Outcome out = Read(draft);
    EXPECT_EQ(out.status, ControlStatus::ok);
    EXPECT_EQ(out.console, "ERROR parsing module YCUTLOADS\n") << lines;
    EXPECT_TRUE(out.records.ycut.XMCY.empty());
    EXPECT_EQ(out.records.ycut.IVMY, 0) << lines;
  }
}

TEST(ReadControlRecords, EndlessModuleTextIsRefused) {
  std::string text = ControlDraft{}.Text() + "$WIND:\n";
  const std::string line = std::string(255, 'x') + '\n';
  for (int i = 0; i < 300'000; ++i) text += line;
  const Outcome out = Read(text);
  EXPECT_EQ(out.status, ControlStatus::failed);
  EXPECT_EQ(out.console.substr(0, 42), "ERROR - control data is too long : run.out");
}

TEST(InputScales, ArePowersOfLengthGravityAndDensity) {
  ControlRecords r;
  r.LENIN = 4;
  r.GRAVIN = 9;
  r.RHOIN = 2;
  r.ANGIN = 57.29578;
  const InputScales s = InputScalesOf(r);
  EXPECT_DOUBLE_EQ(s.length, 0.25);
  EXPECT_DOUBLE_EQ(s.time, 1.5);
  EXPECT_DOUBLE_EQ(s.frequency, 2.0 / 3.0);
  EXPECT_DOUBLE_EQ(s.velocity, 1.0 / 6.0);
  EXPECT_DOUBLE_EQ(s.angle * 57.29578, 1.0);
  EXPECT_DOUBLE_EQ(s.rate * 57.29578, 2.0 / 3.0);
  EXPECT_DOUBLE_EQ(s.mass, 1.0 / 128.0);
  EXPECT_DOUBLE_EQ(s.inertia, 1.0 / 2048.0);
}

}  // namespace
}  // namespace zaview
