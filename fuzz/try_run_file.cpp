// Run files, or pieces of them, of any bytes go through reading, derived data, tables and statistics.
#include <array>
#include <cstdlib>

#include "base/line_source.h"
#include "control/read_control_records.h"
#include "control/write_control_records.h"
#include "fake_platform.h"
#include "frame/zaview_main.h"
#include "fuzz/try_input.h"
#include "run_writer.h"

namespace zaview {

namespace {

// What is refused for a quantity ends a script, so quantities that every case has come first.
constexpr std::string_view kMotionScript =
    "SKIP_STEPS 0\n"
    "WRITE_CONTROL control.txt\n"
    "WRITE_HISTORY MOT mot.txt\n"
    "WRITE_HISTORY UMOT umot.txt\n"
    "WRITE_HISTORY FTOTS force.txt\n"
    "WRITE_HISTORY ACCG acc.txt:UNFORM\n"
    "WRITE_HISTORY VMNVR maneuver.txt\n"
    "WRITE_HISTORY POINT_ALL 40 0 12 point.txt\n"
    "WRITE_STAT TABLE MOT 3 \"heave\" table.txt\n"
    "WRITE_STAT TABLE_CI MOT 5 \"pitch\" table.txt:APPEND\n"
    "WRITE_CI VEL 1 ci.txt\n"
    "WRITE_AUTOC MOT 3 auto.txt\n"
    "WRITE_HISTORY VSF loads.txt\n"
    "STEP_INC 3\n"
    "WRITE_STAT SIG_AMP MOT 3 \"\" one.txt\n"
    "WRITE_LOAD_DIST VBM 1 dist.txt\n"
    "WRITE_STAT NDTF MOT 3 \"\" ndtf.txt\n";
constexpr std::string_view kResponseScript =
    "WRITE_HISTORY 1 first.txt\n"
    "WRITE_HISTORY 2 second.txt:UNFORM\n"
    "WRITE_HISTORY TADM tadm.txt\n"
    "WRITE_HISTORY FIRF firf.txt\n";

// What was written as control text must read back to records that are written the same.
void CheckControlText(FakePlatform& fake) {
  if (fake.files.count("control.txt") == 0) return;  // no case was read
  const std::string text = fake.Bytes("control.txt");
  const Platform platform = fake.Get();
  BlockStream stream;
  StartStream(stream, platform.files, platform.files.open_read(platform.files.self, "control.txt"));
  LineSource source;
  source.stream = &stream;
  std::string again;
  while (again.size() < text.size()) {
    ControlText control{&source, "control.txt"};
    ControlRecords records;
    if (ReadControlRecords(platform, control, records) != ControlStatus::ok) std::abort();
    if (!WriteControlRecords(records, again)) std::abort();
  }
  if (again != text) std::abort();
}

void RunOn(std::string run, std::string_view named, std::string_view script) {
  FakePlatform fake;
  fake.Put("run.out", std::move(run));
  fake.Put("run.outu", std::string(named));
  fake.Put("named.txt", std::string(named));
  fake.Put("s", std::string(script));
  const std::array<std::string, 3> arguments{"run.out", "-script", "s"};
  try {
    (void)zaview_main(fake.Get(), arguments);
  } catch (const FakeExit&) {
    return;  // a fatal stop ends the process: nothing more to check
  }
  if (fake.OpenHandles() != 0 || !fake.progress.empty()) std::abort();
  CheckControlText(fake);
}

// A sample in two pieces: through the delimiter line that holds `border`, and from the one that holds `behind`.
struct Frame {
  std::string head, tail;
};

Frame FrameOf(std::string_view sample, std::string_view border, std::string_view behind) {
  run_writer::RunSpec spec;
  (void)run_writer::SampleSpec(sample, spec);
  spec.nstep = spec.steps = 12;
  const std::string text = run_writer::RunText(spec);
  Frame frame;
  frame.head = text.substr(0, text.find('\n', text.find(border)) + 1);
  if (!behind.empty()) frame.tail = text.substr(text.rfind('\n', text.find(behind)) + 1);
  return frame;
}

}  // namespace

void TryPrimaryFile(std::string_view input) {
  const auto [run, named] = TwoFiles(input);
  RunOn(std::string(run), named, kMotionScript);
}

void TryControlText(std::string_view input) {
  static const Frame frame = FrameOf("irregular_head", "INPUT_FILE_ECHO", "FILE_PARSING_DATA");
  RunOn(frame.head + std::string(input) + "\n" + frame.tail, {}, kMotionScript);
}

void TryIrfSections(std::string_view input) {
  static const Frame responses = FrameOf("impulse_responses", "END_OF_HEADER", {});
  static const Frame added_mass = FrameOf("transient_added_mass", "END_OF_HEADER", {});
  const bool first = input.empty() || input.front() == '!';
  RunOn((first ? responses : added_mass).head + std::string(input), {}, kResponseScript);
}

}  // namespace zaview
