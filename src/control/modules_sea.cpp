// Modules of the seaway: the second sea, the table of incident waves, points of the free surface.
#include <array>

#include "base/message.h"
#include "control/module_forms.h"
#include "control/options_module.h"
#include "control/spectrum_check.h"

namespace zaview {
namespace {

using Index = std::size_t;

constexpr std::string_view kSeawayKind = "ERRADDSEA01 - Seaway specifier ISEA= {}";
constexpr SpectrumWords kWords = {"ERRADDSEA02 - Illegal parameter value(s) for incident wave spectrum:",
                                  "ERRADDSEA03 - For spectral wave definition NHEAD must be > 0",
                                  "ERRADDSEA03 - For spectral wave definition NFREQ must be > 1"};
constexpr std::string_view kOption = "ERRADDSEA04 - Illegal {}: {}= {}";
constexpr std::string_view kNotLinear[] = {"ERRADDSEA05 - Additional seaway definition can can only be specified",
                                           "    with linear primary seaway definition (ISEA=1,2,6,7,8)"};

// ---- ADDSEA

AddedSeawayInput& Added(ModuleState& s) {
  return s.records.added_seaway[s.entry];
}

int KindOf(const ModuleState& s) {
  return s.records.added_seaway[s.entry].sea.ISEA;
}

template <int kind>
std::int64_t IfKind(const ModuleState& s) {
  return KindOf(s) == kind ? 1 : 0;
}

// What follows the kind is unknown if that is no spectrum.
std::int64_t IfSpectrum(const ModuleState& s) {
  return IsSpectrum(KindOf(s)) ? 1 : 0;
}

// clang-format off
constexpr ModuleField kAddedSeaway[] = {
    {1, "!ADDSEA01 ISEA - additional seaway specifier", nullptr,
     [](ModuleState& s, Index, FieldList& f) { return Fields(f, Added(s).sea.ISEA); }},
    {1, "!ADDSEA01 (cont)  SIGWHT  TMODAL (Bretschneider/Pierson-Mosk", nullptr,
     [](ModuleState& s, Index, FieldList& f) {
       SeawayInput& w = Added(s).sea;
       return Fields(f, w.SIGWHT, w.TMODAL);
     }, IfKind<2>},
    {1, "!ADDSEA01 (cont)  VWIND10  FETCH  PEAKPRM (JONSWAP from wind)", nullptr,
     [](ModuleState& s, Index, FieldList& f) {
       SeawayInput& w = Added(s).sea;
       return Fields(f, w.VWIND10, w.FETCH, w.PEAKPRM);
     }, IfKind<6>},
    {1, "!ADDSEA01 (cont) SIGWHT1 TMODAL1 SHAPE1 SIGWHT2 TMODAL2 SHAPE2  (OCHI", nullptr,
     [](ModuleState& s, Index, FieldList& f) {
       SeawayInput& w = Added(s).sea;
       return Fields(f, w.SIGWHT1, w.TMODAL1, w.SHAPE1, w.SIGWHT2, w.TMODAL2, w.SHAPE2);
     }, IfKind<7>},
    {1, "!ADDSEA01 (cont)  SIGWHT  TOMODAL  PEAKPRM (JONSWAP)", nullptr,
     [](ModuleState& s, Index, FieldList& f) {
       SeawayInput& w = Added(s).sea;
       return Fields(f, w.SIGWHT, w.TOMODAL, w.PEAKPRM);
     }, IfKind<8>},
    {1, "!ADDSEA01 (cont) SEAHD  SPREAD  NFREQ  NHEAD  IWVRLZ", nullptr,
     [](ModuleState& s, Index, FieldList& f) {
       SeawayInput& w = Added(s).sea;
       return Fields(f, w.SEAHD, w.SPREAD, w.NFREQ, w.NHEAD, w.IWVRLZ);
     }, IfSpectrum},
    {2, "!ADDSEA02 SPEC_FREQ(2) -  frequency range for discretizing wave spectrum", nullptr,
     [](ModuleState& s, Index, FieldList& f) { return Fields(f, Added(s).SPEC_FREQ); }, IfSpectrum, true},
    {2, "!ADDSEA02 (cont) SPEC_CUTOFF SPEC_DISTOPT SPEC_SPREADOPT SPEC_PHASEOPTION", nullptr,
     [](ModuleState& s, Index, FieldList& f) {
       AddedSeawayInput& a = Added(s);
       return Fields(f, a.SPEC_CUTOFF, a.SPEC_DISTOPT, a.SPEC_SPREADOPT, a.SPEC_PHASEOPTION);
     }, IfSpectrum, true},
    {2, "!ADDSEA02 (cont) SPEC_PHASEFILE", [](ModuleState& s) { return &Added(s).SPEC_PHASEFILE; },
     nullptr, IfSpectrum, true},
};
// clang-format on

int CheckAddedOptions(const Console& console, const AddedSeawayInput& added) {
  const std::pair<std::string_view, int> options[] = {{"SPEC_DISTOPT", added.SPEC_DISTOPT},
                                                      {"SPEC_SPREADOPT", added.SPEC_SPREADOPT},
                                                      {"SPEC_PHASEOPTION", added.SPEC_PHASEOPTION}};
  int errors = 0;
  for (const auto& [name, value] : options) {
    const OptionRow* row = FindOptionRow(name);
    if (row == nullptr || (value >= row->low && value <= row->high)) continue;
    Say(console, kOption, row->subject, name, value);
    ++errors;
  }
  return errors;
}

int CheckAddedSeaway(const Console& console, const ControlRecords& records) {
  int errors = 0;
  for (const AddedSeawayInput& added : records.added_seaway) {
    if (!IsSpectrum(added.sea.ISEA)) {
      Say(console, kSeawayKind, added.sea.ISEA);
      return errors + 1;
    }
    const int primary = records.seaway.ISEA;
    if (primary != 1 && !IsSpectrum(primary)) {
      SayLines(console, kNotLinear);
      ++errors;
    }
    errors += CheckSpectrum(console, added.sea, kWords) + CheckAddedOptions(console, added);
  }
  return errors;
}

// ---- IWINTERP, IFSINTERP

constexpr ModuleField kWaveTable[] = {
    {1, "!IWINTERP01 NBASEX NBASEY NBASEZ - points of the incident wave table", nullptr,
     [](ModuleState& s, Index, FieldList& f) {
       WaveTableInput& w = s.records.wave_table[s.entry];
       return Fields(f, w.NBASEX, w.NBASEY, w.NBASEZ);
     }},
    {2, "!IWINTERP02 XINTRP YINTRP ZINTRP - extent of the incident wave table", nullptr,
     [](ModuleState& s, Index, FieldList& f) {
       WaveTableInput& w = s.records.wave_table[s.entry];
       return Fields(f, w.XINTRP, w.YINTRP, w.ZINTRP);
     }},
};

constexpr ModuleField kSurfacePoints[] = {
    {1, "!IFSINTERP01 NFSPT - number of points of the free surface", nullptr,
     [](ModuleState& s, Index, FieldList& f) { return Fields(f, s.count); }},
    {2, "!IFSINTERP02 MPT RFSPT(1:3) - kind and place of each point", nullptr,
     [](ModuleState& s, Index i, FieldList& f) {
       SurfacePointInput* p = EntryAt(s.records.surface_points[s.entry].points, i);
       return p != nullptr && Fields(f, p->MPT, p->RFSPT);
     },
     ModuleCount},
};

using C = ControlRecords;

}  // namespace

const ModuleForm kAddedSeawayForm = {kAddedSeaway, ResizeModule<&C::added_seaway>, ModuleEntries<&C::added_seaway>,
                                     nullptr, CheckAddedSeaway};
const ModuleForm kWaveTableForm = {kWaveTable, ResizeModule<&C::wave_table>, ModuleEntries<&C::wave_table>};
const ModuleForm kSurfacePointsForm = {
    kSurfacePoints, ResizeModule<&C::surface_points>, ModuleEntries<&C::surface_points>,
    [](const ModuleState& s) { return s.records.surface_points[s.entry].points.size(); }};

}  // namespace zaview
