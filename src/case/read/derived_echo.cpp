#include "case/read/derived_echo.h"

#include <algorithm>
#include <vector>

#include "base/grow.h"
#include "base/list_item.h"
#include "base/message.h"
#include "base/number_parse.h"
#include "case/version_label.h"
#include "geometry/input_transform.h"

namespace zaview {
namespace {

constexpr int kVersionWithSymmetry = 313;
constexpr int kVersionWithYCuts = 308;
constexpr int kVersionWithSwitches = 400;

bool ReadInteger(HeaderText& text, int& value) {
  const ListItem item[] = {&value};
  return ReadList(ListsOf(text), item) == ListStatus::ok;
}

bool ReadTriple(HeaderText& text, Triple& value) {
  value = {};  // also in the row that many geometry files share
  return ReadReals(ListsOf(text), value) == ListStatus::ok;
}

SectionStatus SayParsingError(const Console& console, std::string_view reason = {}) {
  SayLine(console, kParsingError);
  if (!reason.empty()) SayLine(console, reason);
  return SectionStatus::failed;
}

GeometryFileEntry& GeometryRow(CaseStore& fresh, int i) {
  return fresh.geometry_files[static_cast<std::size_t>(std::min(i, kGeometryFilesKept - 1))];
}

SectionStatus ReadGeometryFiles(const Console& console, HeaderText& text, int NFGEOM, CaseStore& fresh) {
  std::vector<int> values;
  if (NFGEOM > kGeometryFilesRead || !Grow(values, static_cast<std::size_t>(NFGEOM)) ||
      !Grow(fresh.geometry_files, static_cast<std::size_t>(std::min(NFGEOM, kGeometryFilesKept)))) {
    SayLine(console, kGeometryListMemory);
    return SectionStatus::failed;
  }
  if (NFGEOM == 0) return SectionStatus::ok;

  if (ReadIntegers(ListsOf(text), values) != ListStatus::ok) return SayParsingError(console);
  if (*std::min_element(values.begin(), values.end()) < 0) return SayParsingError(console, kIllegalNcompr);
  for (int i = 0; i < NFGEOM; ++i) GeometryRow(fresh, i).NCOMPR = values[static_cast<std::size_t>(i)];

  if (VersionFrom(fresh.labels, kVersionWithSymmetry)) {
    std::fill(values.begin(), values.end(), 0);
    if (ReadIntegers(ListsOf(text), values) != ListStatus::ok) return SayParsingError(console);
    if (*std::max_element(values.begin(), values.end()) > 1) return SayParsingError(console, kIllegalSyminpf);
    for (int i = 0; i < NFGEOM; ++i) GeometryRow(fresh, i).SYMINPF = values[static_cast<std::size_t>(i)];
  }
  for (int i = 0; i < NFGEOM; ++i) {
    GeometryFileEntry& row = GeometryRow(fresh, i);
    if (!ReadTriple(text, row.GSHIFT) || !ReadTriple(text, row.GORIG) || !ReadTriple(text, row.GROT)) {
      return SayParsingError(console);
    }
  }
  return SectionStatus::ok;
}

bool ReadShip(HeaderText& text, DerivedShip& ship) {
  const ListItem mass[] = {&ship.mass};
  if (ReadList(ListsOf(text), mass) != ListStatus::ok) return false;
  for (Triple& row : ship.inertia) {
    if (!ReadTriple(text, row)) return false;
  }
  return ReadTriple(text, ship.centre);
}

bool ReadSwitches(HeaderText& text, const CaseStore& fresh, SectionLoads& loads) {
  if (VersionFrom(fresh.labels, kVersionWithSwitches)) {
    const ListItem items[] = {&loads.ibcax, &loads.IVM,  &loads.IHM,  &loads.ITM,
                              &loads.ibcay, &loads.ivmy, &loads.ihmy, &loads.itmy};
    return ReadList(ListsOf(text), items) == ListStatus::ok;
  }
  const ControlRecords& control = fresh.control;
  loads.ibcax = control.XMC.empty() ? 0 : 1;
  loads.IVM = control.IVM;
  loads.IHM = control.IHM;
  loads.ITM = control.ITM;
  loads.ibcay = control.ycut.XMCY.empty() ? 0 : 1;
  loads.ivmy = control.ycut.IVMY;
  loads.ihmy = control.ycut.IHMY;
  loads.itmy = control.ycut.ITMY;
  return true;
}

// Counts that agree with the control text are as long as its lines: the arrays may be sized by them.
SectionStatus ReadCuts(const Console& console, HeaderText& text, CaseStore& fresh) {
  SectionLoads& loads = fresh.loads;
  const std::vector<Triple>& y_input = fresh.control.ycut.XMCY;
  const auto fault = [&console](std::string_view message) {
    SayLine(console, message);
    return SectionStatus::failed;
  };
  if (!Grow(loads.x_cuts, fresh.control.XMC.size()) || !Grow(loads.y_cuts, y_input.size())) {
    return fault(kDerivedMemory);
  }

  if (!ReadInteger(text, loads.NBCA) || loads.NBCA != static_cast<int>(loads.x_cuts.size()))
    return fault(kDerivedError);
  for (Triple& cut : loads.x_cuts) {
    if (!ReadTriple(text, cut)) return fault(kDerivedError);
  }
  if (!ReadInteger(text, loads.nycut) || loads.nycut != static_cast<int>(loads.y_cuts.size())) {
    return fault(kDerivedError);
  }
  if (VersionFrom(fresh.labels, kVersionWithYCuts)) {
    for (Triple& cut : loads.y_cuts) {
      if (!ReadTriple(text, cut)) return fault(kDerivedError);
    }
    return SectionStatus::ok;
  }
  Triple dropped{};
  for (int i = 0; i < loads.NBCA; ++i) {
    if (!ReadTriple(text, dropped)) return fault(kDerivedError);
  }
  for (std::size_t i = 0; i < y_input.size(); ++i) loads.y_cuts[i] = InputToShip(fresh.control, y_input[i]);
  return SectionStatus::ok;
}

void ListActiveKinds(SectionLoads& loads) {
  const int x_switches[] = {loads.IVM, loads.IHM, loads.ITM};
  const int y_switches[] = {loads.ivmy, loads.ihmy, loads.itmy};
  for (int i = 0; i < 3; ++i) {
    if (loads.ibcax != 0 && loads.NBCA > 0 && x_switches[i] > 0) loads.x_kinds.push_back(i + 1);
    if (loads.ibcay != 0 && loads.nycut > 0 && y_switches[i] > 0) loads.y_kinds.push_back(i + 4);
  }
}

// The numbers at the beginning of a line, at most kUnnamedKept; words behind them are notes.
std::vector<double> LeadingNumbers(std::string_view line) {
  constexpr std::string_view kSeparators = " \t,";
  std::vector<double> numbers;
  std::size_t begin = line.find_first_not_of(kSeparators);
  while (begin != std::string_view::npos) {
    const std::size_t end = std::min(line.find_first_of(kSeparators, begin), line.size());
    RepeatedItem item;
    double value = 0.0;
    if (!SplitRepeat(line.substr(begin, end - begin), item)) break;
    if (!item.null && !ParseDouble(item.value, value)) break;
    const std::size_t size = numbers.size() + static_cast<std::size_t>(item.repeat);
    if (size > kUnnamedKept || !Grow(numbers, size)) break;
    std::fill(numbers.end() - static_cast<std::ptrdiff_t>(item.repeat), numbers.end(), value);
    begin = line.find_first_not_of(kSeparators, end);
  }
  return numbers;
}

// Everything to the next delimiter; true if that is END_OF_HEADER.
bool ReadUnnamed(HeaderText& text, std::vector<std::vector<double>>& unnamed) {
  std::size_t kept = 0;
  std::string_view line;
  TextEvent event = NextDataLine(text, line);
  for (; event == TextEvent::line; event = NextDataLine(text, line)) {
    std::vector<double> numbers = LeadingNumbers(line);
    if (numbers.empty() || kept + numbers.size() > kUnnamedKept) continue;
    if (!Grow(unnamed, unnamed.size() + 1)) return false;
    kept += numbers.size();
    unnamed.back() = std::move(numbers);
  }
  return event == TextEvent::delimiter && text.delimiter == Delimiter::end_of_header;
}

}  // namespace

SectionStatus ReadParsingData(const Console& console, HeaderText& text, CaseStore& fresh) {
  if (!ReadInteger(text, fresh.NSHIP)) return SayParsingError(console);
  if (fresh.NSHIP < 0) return SayParsingError(console, kIllegalNship);
  if (fresh.NSHIP > MAXDYN) {
    SayLine(console, kTooManyShips);
    Say(console, kShipLimit, fresh.NSHIP, MAXDYN);
    return SectionStatus::failed;
  }
  int NFGEOM = 0;
  if (!ReadInteger(text, NFGEOM)) return SayParsingError(console);
  if (NFGEOM < 0) return SayParsingError(console, kIllegalNfgeom);
  return ReadGeometryFiles(console, text, NFGEOM, fresh);
}

SectionStatus ReadDerivedData(const Console& console, HeaderText& text, CaseStore& fresh) {
  const auto fault = [&console] {
    SayLine(console, kDerivedError);
    return SectionStatus::failed;
  };
  fresh.ships.assign(static_cast<std::size_t>(fresh.NSHIP), DerivedShip{});  // at most MAXDYN
  for (DerivedShip& ship : fresh.ships) {
    if (!ReadShip(text, ship)) return fault();
  }
  if (!ReadSwitches(text, fresh, fresh.loads)) return fault();
  if (ReadCuts(console, text, fresh) != SectionStatus::ok) return SectionStatus::failed;
  ListActiveKinds(fresh.loads);
  return ReadUnnamed(text, fresh.unnamed_derived) ? SectionStatus::ok : fault();
}

}  // namespace zaview
