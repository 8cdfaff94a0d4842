#include "case/read/output_header.h"

#include "base/message.h"
#include "case/read/derived_echo.h"
#include "case/read/ship_texts.h"
#include "case/version_label.h"
#include "control/check_control_records.h"
#include "control/control_text.h"
#include "control/read_control_records.h"

namespace zaview {
namespace {

constexpr std::size_t kPreambleLine = 80;                  // columns of a preamble line that are looked at
constexpr std::int64_t kPreambleBytes = 16 * 1024 * 1024;  // more is no preamble: an endless pipe or device ends here

// False: the file or what may be preamble ends, or another section begins, ahead of the control text.
bool ScanPreamble(LineSource& source, VersionLabel& label, FileKind& kind) {
  std::string_view line;
  while (source.stream->offset < kPreambleBytes && NextRawLine(source, line)) {
    line = line.substr(0, kPreambleLine);
    const Delimiter delimiter = DelimiterOf(line);
    if (delimiter == Delimiter::input_file_echo) return true;
    if (delimiter == Delimiter::file_parsing_data || delimiter == Delimiter::end_of_header) return false;
    ScanPreambleLine(line, label, kind);
  }
  return false;
}

// Passes over lines to the next delimiter; whether that is the one wanted.
bool SkipTo(HeaderText& text, Delimiter wanted) {
  std::string_view line;
  for (;;) {
    const TextEvent event = NextTextLine(text, line);
    if (event == TextEvent::line) continue;
    if (event != TextEvent::end_of_text) return event == TextEvent::delimiter && text.delimiter == wanted;
    text.ended = TextEvent::line;  // left over from a text
  }
}

}  // namespace

HeaderStatus ReadOutputHeader(const Platform& platform, LineSource& source, const std::string& name, CaseStore& fresh) {
  const Console& console = platform.console;
  VersionLabel label;
  if (!ScanPreamble(source, label, fresh.labels.kind)) {
    Say(console, kNoDelimiters, name);
    SayLine(console, kNotAnOutputFile);
    return HeaderStatus::failed;
  }
  AdoptVersionLabel(console, label, fresh.labels);
  if (fresh.labels.kind != FileKind::unknown && fresh.labels.kind != FileKind::primary) {
    Say(console, kNotPrimary, name);
    return HeaderStatus::failed;
  }

  SayLine(console, kReadingInput);
  ReportVersion(console, fresh.labels.VERSION);
  ControlText control{&source, name};
  if (ReadControlRecords(platform, control, fresh.control) != ControlStatus::ok) return HeaderStatus::failed;
  fresh.nstep_expected = fresh.control.NSTEP;

  FurtherTexts further;
  if (control.delimiter == Delimiter::none) control.delimiter = ReadFurtherTexts(platform, source, name, further);
  if (control.delimiter != Delimiter::file_parsing_data) {
    SayLine(console, kParsingError);
    return HeaderStatus::failed;
  }
  HeaderText parsing{&source};
  parsing.columns = kKeptLine;
  if (ReadParsingData(console, parsing, fresh) != SectionStatus::ok) return HeaderStatus::failed;
  if (!SkipTo(parsing, Delimiter::derived_data_echo)) {
    SayLine(console, kDerivedError);
    return HeaderStatus::failed;
  }
  HeaderText derived{&source};
  derived.columns = kKeptLine;
  if (ReadDerivedData(console, derived, fresh) != SectionStatus::ok) return HeaderStatus::failed;
  if (CheckControlRecords(console, fresh.control, fresh.labels.VERSION) > 0) return HeaderStatus::failed;
  return AdoptShipText(console, further, fresh) ? HeaderStatus::ok : HeaderStatus::failed;
}

}  // namespace zaview
