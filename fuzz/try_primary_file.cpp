// A primary output file of any bytes goes through reading, derived data, tables and statistics.
#include <array>
#include <cstdlib>

#include "fake_platform.h"
#include "frame/zaview_main.h"
#include "fuzz/try_input.h"

namespace zaview {

namespace {

// What is refused for a quantity ends a script, so quantities that every case has come first.
constexpr std::string_view kScript =
    "SKIP_STEPS 0\n"
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

}  // namespace

void TryPrimaryFile(std::string_view input) {
  const auto [run, named] = TwoFiles(input);
  FakePlatform fake;
  fake.Put("run.out", std::string(run));
  fake.Put("run.outu", std::string(named));
  fake.Put("named.txt", std::string(named));
  fake.Put("s", std::string(kScript));
  const std::array<std::string, 3> arguments{"run.out", "-script", "s"};
  try {
    (void)zaview_main(fake.Get(), arguments);
  } catch (const FakeExit&) {
    // A fatal stop ends the process: nothing more to check.
    return;
  }
  if (fake.OpenHandles() != 0 || !fake.progress.empty()) std::abort();
}

}  // namespace zaview
