#include "control/record_rows.h"

#include <cmath>

#include "base/message.h"
#include "control/control_text.h"
#include "control/spectrum_check.h"

namespace zaview {
namespace {

using State = RecordState;
using Index = std::size_t;
using C = ControlRecords;

bool IsScale(double value) {
  return value > 0.0 && std::isfinite(value);
}

RecordCheck InputScalesAreGood(const State& s) {
  const C& r = s.records;
  const bool good = IsScale(r.GRAVIN) && IsScale(r.RHOIN) && IsScale(r.LENIN) && IsScale(r.ANGIN);
  return good ? RecordCheck::ok : RecordCheck::bad_record;
}

RecordCheck OutputScalesAreGood(const State& s) {
  const C& r = s.records;
  const bool good = IsScale(r.GRAVOUT) && IsScale(r.RHOOUT) && IsScale(r.LENOUT) && IsScale(r.ANGOUT);
  return good ? RecordCheck::ok : RecordCheck::bad_record;
}

RecordCheck SeawayKindIsKnown(const State& s) {
  const int kind = s.records.seaway.ISEA;
  return kind >= 0 && kind <= 8 ? RecordCheck::ok : RecordCheck::bad_seaway;
}

template <int kind>
std::int64_t IfSeaway(const State& s) {
  return s.records.seaway.ISEA == kind ? 1 : 0;
}

std::int64_t WaveCount(const State& s) {
  if (s.records.seaway.ISEA == 1) return s.NWAVES;
  return s.records.seaway.ISEA == 3 ? 1 : 0;
}

std::int64_t AlternativeWaveCount(const State& s) {
  const SeawayInput& sea = s.records.seaway;
  if (sea.ISEA != 4) return 0;
  if (sea.WAVEDIM1 < 0 || sea.WAVEDIM2 < 0) return -1;
  return std::int64_t{sea.WAVEDIM1} * sea.WAVEDIM2;
}

bool WaveFields(State& s, Index i, FieldList& f) {
  WaveComponentInput* w = EntryAt(s.records.seaway.waves, i);
  return w != nullptr && Fields(f, w->FREQW, w->PHASEW, w->AMPW0, w->HEADW);
}

bool AlternativeWaveFields(State& s, Index i, FieldList& f) {
  AlternativeWaveInput* w = EntryAt(s.records.seaway.alternative, i);
  return w != nullptr && Fields(f, w->KX, w->KY, w->AMP, w->PHASE, w->FREQ, w->HEAD);
}

bool WaveModeFields(State& s, Index i, FieldList& f) {
  WaveModeInput* w = EntryAt(s.records.seaway.modes, i);
  return w != nullptr && Fields(f, w->MODE_AMP, w->MODE_PHASE, w->MODE_FREQ);
}

bool WaveScalingFields(State& s, Index i, FieldList& f) {
  int* step = EntryAt(s.records.seaway.WSCSTP, i);
  double* factor = EntryAt(s.records.seaway.WSCFAC, i);
  return step != nullptr && factor != nullptr && Fields(f, *step, *factor);
}

bool InertiaFields(State& s, Index, FieldList& f) {
  f.Add(s.records.SMA);
  for (Index column = 0; column < 3; ++column) {
    for (Index row = 0; row < 3; ++row) f.Add(s.records.SMI[row][column]);
  }
  return true;
}

bool ComponentFields(State& s, Index i, FieldList& f) {
  GeometryComponentInput* c = EntryAt(s.records.components, i);
  return c != nullptr && Fields(f, c->KCTYPE0, c->NEWWL0, c->KSPWL0, c->SPWL0, c->NEWST0, c->KSPST0, c->SPST0);
}

bool CutFields(State& s, Index i, FieldList& f) {
  Triple* cut = EntryAt(s.records.XMC, i);
  return cut != nullptr && Fields(f, *cut);
}

bool MassPointFields(State& s, Index i, FieldList& f) {
  MassPointInput* m = EntryAt(s.records.mass_points, i);
  return m != nullptr && Fields(f, m->XMS, m->AMS, m->AIS, m->AMI, m->DWS, m->AWS, m->EWS);
}

bool FinFields(State& s, Index i, FieldList& f) {
  AppendageInput* a = EntryAt(s.records.fins, i);
  return a != nullptr && Fields(f, a->centre, a->span, a->chord, a->span_length, a->chord_length, a->deflection);
}

bool BilgeKeelFields(State& s, Index i, FieldList& f) {
  AppendageInput* a = EntryAt(s.records.bilge_keels, i);
  return a != nullptr && Fields(f, a->centre, a->span, a->chord, a->span_length, a->chord_length);
}

template <int State::*count>
std::int64_t Times(const State& s) {
  return s.*count;
}

template <int option>
std::int64_t IfRoll(const State& s) {
  return s.records.IHROLL == option ? 1 : 0;
}

template <int option>
std::int64_t IfLift(const State& s) {
  return s.records.IHLIFT == option ? 1 : 0;
}

using Places = bool (*)(State&, Index, FieldList&);
using Count = std::int64_t (*)(const State&);
using Check = RecordCheck (*)(const State&);

constexpr RecordRow Title(int record, std::string_view comment, std::string C::*text) {
  return {record, comment, text, kTitleLength};
}
constexpr RecordRow Name(int record, std::string_view comment, std::string C::*text) {
  return {record, comment, text, kNameLength};
}
constexpr RecordRow List(int record, std::string_view comment, Places list, Count count = nullptr,
                         Check check = nullptr) {
  return {record, comment, nullptr, 0, list, count, check};
}

using SayNegative = void (*)(const Console&, const State&);

// What is said of counts below 0, where that has a number of its own.
constexpr SayNegative SayNegativeWaves = [](const Console& c, const State& s) { Say(c, kNoWaves, "NWAVES", s.NWAVES); };
constexpr SayNegative SayNegativeGrid = [](const Console& c, const State& s) {
  const SeawayInput& sea = s.records.seaway;
  Say(c, "ERR326 - Dimensions of the seaway WAVEDIM1= {} WAVEDIM2= {} cannot be negative", sea.WAVEDIM1, sea.WAVEDIM2);
};
constexpr SayNegative SayNegativeModes = [](const Console& c, const State& s) {
  Say(c, "ERR326 - Number of modes of the seaway WAVE_NMODE= {} cannot be negative", s.WAVE_NMODE);
};
constexpr SayNegative SayNegativeScaling = [](const Console& c, const State& s) {
  Say(c, "ERR154 - Number of incident wave scale factor times NWSC = {}", s.records.seaway.NWSC);
};
constexpr SayNegative SayNegativeBilgeKeels = [](const Console& c, const State& s) {
  Say(c, "ERR176 - Number of plate-like appendages NBK= {} connot be negative", s.NBK);
};

// A list whose count comes from the text.
constexpr RecordRow Counted(RecordRow row, SayNegative say_negative, int limit = 0, std::string_view limit_name = {}) {
  row.say_negative = say_negative;
  row.limit = limit;
  row.limit_name = limit_name;
  return row;
}
constexpr RecordRow InThrees(RecordRow row) {
  row.a_line = 3;
  return row;
}

// clang-format off
constexpr RecordRow kRows[] = {
    Title(1, "!01 DESCR - Descriptive Title (max 80 char)", &C::DESCR),
    Name(2, "!02 FPROG - Source file for programmer's input (blank for defaults)", &C::FPROG),
    Name(3, "!03 FAPLT - Source file for autopilot input (blank for defaults)", &C::FAPLT),
    Name(4, "!04 FGEOM - Source file for geometry definition", &C::FGEOM),
    Name(5, "!05 FOUT - Destination file for primary output", &C::FOUT),
    List(6, "!06 Output frequency for pressure, geometry, etc.\n"
             "!           POUT              GOUT              SOUT              BOUT",
         [](State& s, Index, FieldList& f) { C& r = s.records; return Fields(f, r.POUT, r.GOUT, r.SOUT, r.BOUT); }),
    List(6, "!06 (cont) XPOUT - node point for pressure output at min/max of point motion",
         [](State& s, Index, FieldList& f) { return Fields(f, s.records.XPOUT); },
         [](const State& s) -> std::int64_t { return s.records.POUT < 0 ? 1 : 0; }),
    Name(7, "!07 FPOUT - File for pressure data output", &C::FPOUT),
    Name(8, "!08 FGOUT - File for geometry output", &C::FGOUT),
    Name(9, "!09 FSOUT - File for balance check output", &C::FSOUT),
    Name(10, "!10 FBOUT - File for elastic beam output", &C::FBOUT),
    List(11, "!11 AUXOUT(20) - Flags for auxiliary output files",
         [](State& s, Index, FieldList& f) { return Fields(f, s.records.AUXOUT); }),
    List(12, "!12 IVEC - Use Non-vectorized (0) or vectorized (1) kernel",
         [](State& s, Index, FieldList& f) { return Fields(f, s.records.IVEC); }),
    List(13, "!13 ZVOTYP (1-4)  MOTYPE (forced/impulsive/free)  MIXED (Rankine/mixed/IRF)",
         [](State& s, Index, FieldList& f) { C& r = s.records; return Fields(f, r.ZVOTYP, r.MOTYPE, r.MIXED); }),
    List(13, "!13 (cont) IFSMIX NXFS NYFS  IMSMIX NXMS NZMS - mixed-source surface points",
         [](State& s, Index, FieldList& f) {
           C& r = s.records;
           return Fields(f, r.IFSMIX, r.NXFS, r.NYFS, r.IMSMIX, r.NXMS, r.NZMS);
         }),
    List(13, "!13 (cont) XMIX  YMIX  ZMIX - mixed-source surface extent",
         [](State& s, Index, FieldList& f) { C& r = s.records; return Fields(f, r.XMIX, r.YMIX, r.ZMIX); }),
    Name(13, "!13 (cont) FIRF0 - Root name for impulse response function files", &C::FIRF0),
    List(14, "!14 TINIT NSTEP DTH IRST - Initial Time, Number of Steps, Time Step, Restart",
         [](State& s, Index, FieldList& f) { C& r = s.records; return Fields(f, r.TINIT, r.NSTEP, r.DTH, r.IRST); }),
    Name(14, "!14 (cont) FRST - Name for restart file", &C::FRST),
    Name(14, "!14 (cont) FBDMEM - Name for body panel TGF influence file", &C::FBDMEM),
    Name(14, "!14 (cont) FWLMEM - Name for waterline TGF influence file", &C::FWLMEM),
    List(15, "!15 USHIP  UCURNT  DCURNT  WDEPTH - Steady speed, current vel/dir, water depth",
         [](State& s, Index, FieldList& f) {
           C& r = s.records;
           return Fields(f, r.USHIP, r.UCURNT, r.DCURNT, r.WDEPTH);
         }),
    List(16, "!16 PMGIN(1:6) Initial position and orientation in global frame",
         [](State& s, Index, FieldList& f) { return Fields(f, s.records.PMGIN); }),
    List(17, "!17 VMGSHP(1:6) Initial Velocity and Rotation rate in ship fixed system",
         [](State& s, Index, FieldList& f) { return Fields(f, s.records.VMGSHP); }),
    List(18, "!18 AMPM(1:6) Amplitude for forced sinusoidal motion (if MOTYPE=0)",
         [](State& s, Index, FieldList& f) { return Fields(f, s.records.AMPM); }),
    List(19, "!19 OMEGM(1:6) Frequency for forced sinusoidal motion (if MOTYPE=0)",
         [](State& s, Index, FieldList& f) { return Fields(f, s.records.OMEGM); }),
    List(20, "!20 SWTCH(1:6) Sets which modes of motion will be considered",
         [](State& s, Index, FieldList& f) { return Fields(f, s.records.SWTCH); }),

    List(21, "!21 ISEA - Seaway specifier",
         [](State& s, Index, FieldList& f) { return Fields(f, s.records.seaway.ISEA); }, nullptr, SeawayKindIsKnown),
    List(21, "!21 (cont) NWAVES  NWSC - linear wave components",
         [](State& s, Index, FieldList& f) { return Fields(f, s.NWAVES, s.records.seaway.NWSC); }, IfSeaway<1>),
    List(21, "!21 (cont) SIGWHT  TMODAL (Bretschneider/Pierson-Moskowitz)",
         [](State& s, Index, FieldList& f) {
           SeawayInput& w = s.records.seaway;
           return Fields(f, w.SIGWHT, w.TMODAL);
         }, IfSeaway<2>),
    List(21, "!21 (cont) WSPEC  NWSC - regular Stokes wave of order WSPEC",
         [](State& s, Index, FieldList& f) {
           SeawayInput& w = s.records.seaway;
           return Fields(f, w.WSPEC, w.NWSC);
         }, IfSeaway<3>),
    Counted(List(21, "!21 (cont) FREQW  PHASEW  AMPW0  HEADW", WaveFields, WaveCount),
            SayNegativeWaves, MXSPEC, "MXSPEC"),
    List(21, "!21 (cont) WAVEDIM1  WAVEDIM2  NWSC - alternative linear waves",
         [](State& s, Index, FieldList& f) {
           SeawayInput& w = s.records.seaway;
           return Fields(f, w.WAVEDIM1, w.WAVEDIM2, w.NWSC);
         }, IfSeaway<4>),
    Counted(List(21, "!21 (cont) KX  KY  AMP  PHASE  FREQ  HEAD", AlternativeWaveFields, AlternativeWaveCount),
            SayNegativeGrid, MXSPEC, "MXSPEC"),
    List(21, "!21 (cont) WAVE_NMODE  WAVE_HEAD  NWSC - long-crested 2nd order Stokes wave",
         [](State& s, Index, FieldList& f) {
           SeawayInput& w = s.records.seaway;
           return Fields(f, s.WAVE_NMODE, w.WAVE_HEAD, w.NWSC);
         }, IfSeaway<5>),
    Counted(List(21, "!21 (cont) MODE_AMP  MODE_PHASE  MODE_FREQ", WaveModeFields, Times<&State::WAVE_NMODE>),
            SayNegativeModes, MXSPEC, "MXSPEC"),
    List(21, "!21 (cont) VWIND10  FETCH  PEAKPRM (JONSWAP from wind)",
         [](State& s, Index, FieldList& f) {
           SeawayInput& w = s.records.seaway;
           return Fields(f, w.VWIND10, w.FETCH, w.PEAKPRM);
         }, IfSeaway<6>),
    List(21, "!21 (cont) SIGWHT1  TMODAL1  SHAPE1  SIGWHT2  TMODAL2  SHAPE2 (Ochi)",
         [](State& s, Index, FieldList& f) {
           SeawayInput& w = s.records.seaway;
           return Fields(f, w.SIGWHT1, w.TMODAL1, w.SHAPE1, w.SIGWHT2, w.TMODAL2, w.SHAPE2);
         }, IfSeaway<7>),
    List(21, "!21 (cont) SIGWHT  TOMODAL  PEAKPRM (JONSWAP)",
         [](State& s, Index, FieldList& f) {
           SeawayInput& w = s.records.seaway;
           return Fields(f, w.SIGWHT, w.TOMODAL, w.PEAKPRM);
         }, IfSeaway<8>),
    List(21, "!21 (cont) SEAHD  SPREAD  NFREQ  NHEAD  IWVRLZ  NWSC",
         [](State& s, Index, FieldList& f) {
           SeawayInput& w = s.records.seaway;
           return Fields(f, w.SEAHD, w.SPREAD, w.NFREQ, w.NHEAD, w.IWVRLZ, w.NWSC);
         }, [](const State& s) -> std::int64_t { return IsSpectrum(s.records.seaway.ISEA) ? 1 : 0; }),
    Counted(List(21, "!21 (cont) WSCSTP(i) WSCFAC(i) - wave scaling step/factor",
                 WaveScalingFields, [](const State& s) -> std::int64_t { return s.records.seaway.NWSC; }),
            SayNegativeScaling),

    List(22, "!22 GRAVIN  RHOIN  LENIN  ANGIN - Scale Factors for Input",
         [](State& s, Index, FieldList& f) {
           C& r = s.records;
           return Fields(f, r.GRAVIN, r.RHOIN, r.LENIN, r.ANGIN);
         }, nullptr, InputScalesAreGood),
    List(23, "!23 GRAVOUT  RHOOUT  LENOUT  ANGOUT - Scale Factors for Output",
         [](State& s, Index, FieldList& f) {
           C& r = s.records;
           return Fields(f, r.GRAVOUT, r.RHOOUT, r.LENOUT, r.ANGOUT);
         }, nullptr, OutputScalesAreGood),
    InThrees(List(24, "!24 GSHIFT(3), GORIG(3), GROT(3) - Input geometry transformation",
                  [](State& s, Index, FieldList& f) {
                    C& r = s.records;
                    return Fields(f, r.GSHIFT, r.GORIG, r.GROT);
                  })),
    List(25, "!25 SMA - Ship mass, SMI(1,1),(2,1),(3,1),(1,2)...(3,3) Mom. of Inertia", InertiaFields),
    List(26, "!26 RGRAV - center of gravity in input system",
         [](State& s, Index, FieldList& f) { return Fields(f, s.records.RGRAV); }),
    List(27, "!27 SYMGEO= 1 for symmetry in calc., SYMINP =1 for symmetry in input",
         [](State& s, Index, FieldList& f) { return Fields(f, s.records.SYMGEO, s.records.SYMINP); }),
    List(28, "!28 NCOMP0 ...",
         [](State& s, Index, FieldList& f) { return Fields(f, s.NCOMP0); }),
    Counted(List(28, "!28 (cont) KCTYPE0 NEWWL0 KSPWL0 SPWL0 NEWST0 KSPST0 SPST0,1->NCOMP0",
                 ComponentFields, Times<&State::NCOMP0>),
            nullptr, MAXCMP, "MAXCMP"),
    List(29, "!29 IVM, IHM, ITM, NBCA, NBMX ...",
         [](State& s, Index, FieldList& f) {
           C& r = s.records;
           return Fields(f, r.IVM, r.IHM, r.ITM, s.NBCA, s.NBMX);
         }),
    Counted(List(29, "!29 (cont) XMC(123,1->NBCA)", CutFields, Times<&State::NBCA>),
            nullptr, MAXBCA, "MAXBCA"),
    Counted(List(29, "!29 (cont) XMS(3,I) AMS(I) AIS(3,I) AMI(3,I) DWS(I) AWS(I) EWS(I) (I=1->NBMX)",
                 MassPointFields, Times<&State::NBMX>),
            nullptr, MAXBMP, "MAXBMP"),
    List(29, "!29 (cont) STRDMP(2,4) structural damping, fraction of critical in 1st 2 modes\n"
             "!          for vertical, horizontal, torsional, and tension vibration",
         [](State& s, Index, FieldList& f) { return Fields(f, s.records.STRDMP); },
         [](const State& s) -> std::int64_t { return s.NBMX > 0 ? 1 : 0; }),
    List(30, "!30 KINVIS (kinematic viscosity)  IHROLL (roll damping option)",
         [](State& s, Index, FieldList& f) { return Fields(f, s.records.KINVIS, s.records.IHROLL); }),
    List(30, "!30 (cont) CRITDAMP - ratio of linear critical damping coefficient",
         [](State& s, Index, FieldList& f) { return Fields(f, s.records.CRITDAMP); }, IfRoll<1>),
    List(30, "!30 (cont) CFROLL CFROLL2 - linear, quadratic roll damping coefficients",
         [](State& s, Index, FieldList& f) { return Fields(f, s.records.CFROLL, s.records.CFROLL2); }, IfRoll<2>),
    List(30, "!30 (cont) CFROLL3 CFROLL4 - added mass, cubic roll damping coefficients",
         [](State& s, Index, FieldList& f) { return Fields(f, s.records.CFROLL3, s.records.CFROLL4); }, IfRoll<3>),
    List(30, "!30 (cont) CFROLL2 - quadratic roll damping coefficient",
         [](State& s, Index, FieldList& f) { return Fields(f, s.records.CFROLL2); }, IfRoll<4>),
    List(30, "!30 (cont) CFROLL3 - cubic roll damping factor (accel/rate^3)",
         [](State& s, Index, FieldList& f) { return Fields(f, s.records.CFROLL3); }, IfRoll<5>),
    List(31, "!31 IHLIFT (hull lift option)",
         [](State& s, Index, FieldList& f) { return Fields(f, s.records.IHLIFT); }),
    List(31, "!31 (cont) ptransom(1-3)  blratio  deadriseang",
         [](State& s, Index, FieldList& f) {
           C& r = s.records;
           return Fields(f, r.ptransom, r.blratio, r.deadriseang);
         }, IfLift<1>),
    List(31, "!31 (cont) cent_hlift(1-3)  fact_hlift",
         [](State& s, Index, FieldList& f) { return Fields(f, s.records.cent_hlift, s.records.fact_hlift); },
         IfLift<2>),
    List(32, "!32 NFIN - Number of wing-like lifting appendages (e.g. rudder, fins)",
         [](State& s, Index, FieldList& f) { return Fields(f, s.NFIN); }),
    Counted(List(32, "!32 (cont) center, span vec, chord vec, span length, chord length, defl angle",
                 FinFields, Times<&State::NFIN>),
            nullptr, MXFIN, "MXFIN"),
    List(33, "!33 NBK - Number of plate-like lifting appendages (e.g. bilge keels)",
         [](State& s, Index, FieldList& f) { return Fields(f, s.NBK); }),
    Counted(List(33, "!33 (cont) center, span vec., chord vec.span length, chord length",
                 BilgeKeelFields, Times<&State::NBK>),
            SayNegativeBilgeKeels, MXBK, "MXBK"),
};
// clang-format on

}  // namespace

std::span<const RecordRow> RecordRows() {
  return kRows;
}

}  // namespace zaview
