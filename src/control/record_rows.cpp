#include "control/record_rows.h"

#include <cmath>

#include "control/control_text.h"

namespace zaview {
namespace {

using State = RecordState;
using Index = std::size_t;
using C = ControlRecords;

// Entry i of a repeated list; null when memory is out.
template <typename T>
T* EntryAt(std::vector<T>& entries, Index i) {
  if (i >= entries.size() && !Grow(entries, i + 1)) return nullptr;
  return &entries[i];
}

template <typename... T>
bool Fields(FieldList& list, T&... fields) {
  list.AddAll(fields...);
  return true;
}

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

bool IsSpectrum(int kind) {
  return kind == 2 || kind >= 6;
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

constexpr RecordRow Title(int record, std::string C::*text) {
  return {record, text, kTitleLength};
}
constexpr RecordRow Name(int record, std::string C::*text) {
  return {record, text, kNameLength};
}
constexpr RecordRow List(int record, Places list, Count count = nullptr, Check check = nullptr) {
  return {record, nullptr, 0, list, count, check};
}

// clang-format off
constexpr RecordRow kRows[] = {
    Title(1, &C::DESCR), Name(2, &C::FPROG), Name(3, &C::FAPLT), Name(4, &C::FGEOM), Name(5, &C::FOUT),
    List(6, [](State& s, Index, FieldList& f) { C& r = s.records; return Fields(f, r.POUT, r.GOUT, r.SOUT, r.BOUT); }),
    List(6, [](State& s, Index, FieldList& f) { return Fields(f, s.records.XPOUT); },
         [](const State& s) -> std::int64_t { return s.records.POUT < 0 ? 1 : 0; }),
    Name(7, &C::FPOUT), Name(8, &C::FGOUT), Name(9, &C::FSOUT), Name(10, &C::FBOUT),
    List(11, [](State& s, Index, FieldList& f) { return Fields(f, s.records.AUXOUT); }),
    List(12, [](State& s, Index, FieldList& f) { return Fields(f, s.records.IVEC); }),
    List(13, [](State& s, Index, FieldList& f) { C& r = s.records; return Fields(f, r.ZVOTYP, r.MOTYPE, r.MIXED); }),
    List(13, [](State& s, Index, FieldList& f) {
      C& r = s.records;
      return Fields(f, r.IFSMIX, r.NXFS, r.NYFS, r.IMSMIX, r.NXMS, r.NZMS);
    }),
    List(13, [](State& s, Index, FieldList& f) { C& r = s.records; return Fields(f, r.XMIX, r.YMIX, r.ZMIX); }),
    Name(13, &C::FIRF0),
    List(14, [](State& s, Index, FieldList& f) { C& r = s.records; return Fields(f, r.TINIT, r.NSTEP, r.DTH, r.IRST); }),
    Name(14, &C::FRST), Name(14, &C::FBDMEM), Name(14, &C::FWLMEM),
    List(15, [](State& s, Index, FieldList& f) {
      C& r = s.records;
      return Fields(f, r.USHIP, r.UCURNT, r.DCURNT, r.WDEPTH);
    }),
    List(16, [](State& s, Index, FieldList& f) { return Fields(f, s.records.PMGIN); }),
    List(17, [](State& s, Index, FieldList& f) { return Fields(f, s.records.VMGSHP); }),
    List(18, [](State& s, Index, FieldList& f) { return Fields(f, s.records.AMPM); }),
    List(19, [](State& s, Index, FieldList& f) { return Fields(f, s.records.OMEGM); }),
    List(20, [](State& s, Index, FieldList& f) { return Fields(f, s.records.SWTCH); }),

    List(21, [](State& s, Index, FieldList& f) { return Fields(f, s.records.seaway.ISEA); }, nullptr, SeawayKindIsKnown),
    List(21, [](State& s, Index, FieldList& f) { return Fields(f, s.NWAVES, s.records.seaway.NWSC); }, IfSeaway<1>),
    List(21, [](State& s, Index, FieldList& f) {
      SeawayInput& w = s.records.seaway;
      return Fields(f, w.SIGWHT, w.TMODAL);
    }, IfSeaway<2>),
    List(21, [](State& s, Index, FieldList& f) {
      SeawayInput& w = s.records.seaway;
      return Fields(f, w.WSPEC, w.NWSC);
    }, IfSeaway<3>),
    List(21, WaveFields, WaveCount),
    List(21, [](State& s, Index, FieldList& f) {
      SeawayInput& w = s.records.seaway;
      return Fields(f, w.WAVEDIM1, w.WAVEDIM2, w.NWSC);
    }, IfSeaway<4>),
    List(21, AlternativeWaveFields, AlternativeWaveCount),
    List(21, [](State& s, Index, FieldList& f) {
      SeawayInput& w = s.records.seaway;
      return Fields(f, s.WAVE_NMODE, w.WAVE_HEAD, w.NWSC);
    }, IfSeaway<5>),
    List(21, WaveModeFields, [](const State& s) -> std::int64_t { return s.WAVE_NMODE; }),
    List(21, [](State& s, Index, FieldList& f) {
      SeawayInput& w = s.records.seaway;
      return Fields(f, w.VWIND10, w.FETCH, w.PEAKPRM);
    }, IfSeaway<6>),
    List(21, [](State& s, Index, FieldList& f) {
      SeawayInput& w = s.records.seaway;
      return Fields(f, w.SIGWHT1, w.TMODAL1, w.SHAPE1, w.SIGWHT2, w.TMODAL2, w.SHAPE2);
    }, IfSeaway<7>),
    List(21, [](State& s, Index, FieldList& f) {
      SeawayInput& w = s.records.seaway;
      return Fields(f, w.SIGWHT, w.TOMODAL, w.PEAKPRM);
    }, IfSeaway<8>),
    List(21, [](State& s, Index, FieldList& f) {
      SeawayInput& w = s.records.seaway;
      return Fields(f, w.SEAHD, w.SPREAD, w.NFREQ, w.NHEAD, w.IWVRLZ, w.NWSC);
    }, [](const State& s) -> std::int64_t { return IsSpectrum(s.records.seaway.ISEA) ? 1 : 0; }),
    List(21, WaveScalingFields, [](const State& s) -> std::int64_t { return s.records.seaway.NWSC; }),

    List(22, [](State& s, Index, FieldList& f) {
      C& r = s.records;
      return Fields(f, r.GRAVIN, r.RHOIN, r.LENIN, r.ANGIN);
    }, nullptr, InputScalesAreGood),
    List(23, [](State& s, Index, FieldList& f) {
      C& r = s.records;
      return Fields(f, r.GRAVOUT, r.RHOOUT, r.LENOUT, r.ANGOUT);
    }, nullptr, OutputScalesAreGood),
    List(24, [](State& s, Index, FieldList& f) { C& r = s.records; return Fields(f, r.GSHIFT, r.GORIG, r.GROT); }),
    List(25, InertiaFields),
    List(26, [](State& s, Index, FieldList& f) { return Fields(f, s.records.RGRAV); }),
    List(27, [](State& s, Index, FieldList& f) { return Fields(f, s.records.SYMGEO, s.records.SYMINP); }),
    List(28, [](State& s, Index, FieldList& f) { return Fields(f, s.NCOMP0); }),
    List(28, ComponentFields, [](const State& s) -> std::int64_t { return s.NCOMP0; }),
    List(29, [](State& s, Index, FieldList& f) {
      C& r = s.records;
      return Fields(f, r.IVM, r.IHM, r.ITM, s.NBCA, s.NBMX);
    }),
    List(29, CutFields, [](const State& s) -> std::int64_t { return s.NBCA; }),
    List(29, MassPointFields, [](const State& s) -> std::int64_t { return s.NBMX; }),
    List(29, [](State& s, Index, FieldList& f) { return Fields(f, s.records.STRDMP); },
         [](const State& s) -> std::int64_t { return s.NBMX > 0 ? 1 : 0; }),
    List(30, [](State& s, Index, FieldList& f) { return Fields(f, s.records.KINVIS, s.records.IHROLL); }),
    List(30, [](State& s, Index, FieldList& f) { return Fields(f, s.records.CRITDAMP); }, IfRoll<1>),
    List(30, [](State& s, Index, FieldList& f) { return Fields(f, s.records.CFROLL, s.records.CFROLL2); }, IfRoll<2>),
    List(30, [](State& s, Index, FieldList& f) { return Fields(f, s.records.CFROLL3, s.records.CFROLL4); }, IfRoll<3>),
    List(30, [](State& s, Index, FieldList& f) { return Fields(f, s.records.CFROLL2); }, IfRoll<4>),
    List(30, [](State& s, Index, FieldList& f) { return Fields(f, s.records.CFROLL3); }, IfRoll<5>),
    List(31, [](State& s, Index, FieldList& f) { return Fields(f, s.records.IHLIFT); }),
    List(31, [](State& s, Index, FieldList& f) {
      C& r = s.records;
      return Fields(f, r.ptransom, r.blratio, r.deadriseang);
    }, IfLift<1>),
    List(31, [](State& s, Index, FieldList& f) {
      return Fields(f, s.records.cent_hlift, s.records.fact_hlift);
    }, IfLift<2>),
    List(32, [](State& s, Index, FieldList& f) { return Fields(f, s.NFIN); }),
    List(32, FinFields, [](const State& s) -> std::int64_t { return s.NFIN; }),
    List(33, [](State& s, Index, FieldList& f) { return Fields(f, s.NBK); }),
    List(33, BilgeKeelFields, [](const State& s) -> std::int64_t { return s.NBK; }),
};
// clang-format on

}  // namespace

std::span<const RecordRow> RecordRows() {
  return kRows;
}

}  // namespace zaview
