#include "case/read/ship_texts.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

#include "base/grow.h"
#include "base/text.h"
#include "control/check_control_records.h"
#include "control/module_table.h"
#include "control/read_control_records.h"

namespace zaview {
namespace {

// Does a text follow? If none does, `behind` is the delimiter that comes instead.
bool AtText(LineSource& source, Delimiter& behind) {
  HeaderText text{&source};
  std::string_view line;
  for (;;) {
    const TextEvent event = NextDataLine(text, line);
    if (event == TextEvent::end_of_text) {
      text.ended = TextEvent::line;
    } else if (event != TextEvent::line) {
      behind = text.delimiter;
      return false;
    } else if (!IsBlank(line)) {
      source.again = true;
      return true;
    }
  }
}

// What is left of texts that nobody can use.
Delimiter SkipTexts(LineSource& source) {
  HeaderText text{&source};
  std::string_view line;
  for (TextEvent event = NextTextLine(text, line); event == TextEvent::line || event == TextEvent::end_of_text;
       event = NextTextLine(text, line))
    text.ended = TextEvent::line;
  return text.delimiter;
}

Console ConsoleOf(std::string& said) {
  Console console;
  console.self = &said;
  console.write = [](void* self, std::string_view text) { static_cast<std::string*>(self)->append(text); };
  console.flush = [](void*) {};
  return console;
}

void CopyRunRecords(const ControlRecords& run, ControlRecords& own) {
  own.FOUT = run.FOUT;
  own.POUT = run.POUT;
  own.GOUT = run.GOUT;
  own.SOUT = run.SOUT;
  own.BOUT = run.BOUT;
  own.XPOUT = run.XPOUT;
  own.FPOUT = run.FPOUT;
  own.FGOUT = run.FGOUT;
  own.FSOUT = run.FSOUT;
  own.FBOUT = run.FBOUT;
  own.AUXOUT = run.AUXOUT;
  own.IVEC = run.IVEC;
  own.ZVOTYP = run.ZVOTYP;
  own.MOTYPE = run.MOTYPE;
  own.MIXED = run.MIXED;
  own.IFSMIX = run.IFSMIX;
  own.NXFS = run.NXFS;
  own.NYFS = run.NYFS;
  own.IMSMIX = run.IMSMIX;
  own.NXMS = run.NXMS;
  own.NZMS = run.NZMS;
  own.XMIX = run.XMIX;
  own.YMIX = run.YMIX;
  own.ZMIX = run.ZMIX;
  own.FIRF0 = run.FIRF0;
  own.TINIT = run.TINIT;
  own.NSTEP = run.NSTEP;
  own.DTH = run.DTH;
  own.IRST = run.IRST;
  own.FRST = run.FRST;
  own.FBDMEM = run.FBDMEM;
  own.FWLMEM = run.FWLMEM;
  own.USHIP = run.USHIP;
  own.UCURNT = run.UCURNT;
  own.DCURNT = run.DCURNT;
  own.WDEPTH = run.WDEPTH;
  own.seaway = run.seaway;
  own.GRAVIN = run.GRAVIN;
  own.RHOIN = run.RHOIN;
  own.LENIN = run.LENIN;
  own.ANGIN = run.ANGIN;
  own.GRAVOUT = run.GRAVOUT;
  own.RHOOUT = run.RHOOUT;
  own.LENOUT = run.LENOUT;
  own.ANGOUT = run.ANGOUT;
}

// Additional geometry is left out: it is part of the first ship.
bool IsOfRun(const ModuleText& module) {
  const ModuleRow* row = FindModule(module.name);
  return row != nullptr && row->of_run;
}

void CopyRunModules(const ControlRecords& run, ControlRecords& own) {
  std::erase_if(own.modules, IsOfRun);
  std::copy_if(run.modules.begin(), run.modules.end(), std::back_inserter(own.modules),
               [](const ModuleText& module) { return IsOfRun(module) && module.name != kAddedGeometryModule; });
  own.added_geometry.clear();
  own.added_seaway = run.added_seaway;
  own.wave_table = run.wave_table;
  own.surface_points = run.surface_points;
}

}  // namespace

Delimiter ReadFurtherTexts(const Platform& platform, LineSource& source, const std::string& name,
                           FurtherTexts& further) {
  Platform quiet = platform;
  quiet.console = ConsoleOf(further.said);
  Delimiter behind = Delimiter::none;
  for (int i = 2; AtText(source, behind); ++i) {
    if (i > MAXDYN) return SkipTexts(source);
    ControlText text{&source, name};
    ControlRecords records;
    further.failed =
        ReadControlRecords(quiet, text, records) != ControlStatus::ok || !Grow(further.texts, further.texts.size() + 1);
    if (!further.failed) further.texts.back() = std::move(records);
    if (text.delimiter != Delimiter::none) return text.delimiter;
    if (further.failed) return SkipTexts(source);
  }
  return behind;
}

bool AdoptShipText(const Console& console, FurtherTexts& further, CaseStore& fresh) {
  if (fresh.NSHIP <= 1) return true;
  if (!further.said.empty()) console.write(console.self, further.said);
  if (further.failed) return false;
  int errors = 0;
  for (std::size_t i = 0; i < further.texts.size(); ++i) {
    SayIgnoredModules(console, further.texts[i], static_cast<int>(i) + 2);
    errors += CheckShipRecords(console, further.texts[i], fresh.labels.VERSION);
  }
  if (errors > 0) return false;
  fresh.loads = {};
  fresh.ship_texts = std::move(further.texts);
  fresh.ship_texts.insert(fresh.ship_texts.begin(), fresh.control);
  const std::size_t selected = static_cast<std::size_t>(fresh.ship) - 1;
  if (fresh.ship < 2 || selected >= fresh.ship_texts.size()) return true;
  ControlRecords own = fresh.ship_texts[selected];
  CopyRunRecords(fresh.control, own);
  CopyRunModules(fresh.control, own);
  fresh.control = std::move(own);
  return true;
}

}  // namespace zaview
