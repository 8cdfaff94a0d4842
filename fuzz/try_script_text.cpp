// A script of any bytes runs on a small good case; what it includes comes from the same input.
#include <array>
#include <cstdlib>

#include "fake_platform.h"
#include "frame/zaview_main.h"
#include "fuzz/try_input.h"
#include "run_writer.h"

namespace zaview {

namespace {

const std::string& SmallRun() {
  static const std::string text = [] {
    run_writer::RunSpec spec;
    (void)run_writer::SampleSpec("irregular_head", spec);
    spec.nstep = spec.steps = 40;
    return run_writer::RunText(spec);
  }();
  return text;
}

}  // namespace

void TryScriptText(std::string_view input) {
  const auto [script, included] = TwoFiles(input);
  FakePlatform fake;
  fake.Put("run.out", SmallRun());
  fake.Put("s.script", std::string(script));
  fake.Put("inc", std::string(included));
  const std::array<std::string, 3> arguments{"run.out", "-script", "s.script"};
  try {
    (void)zaview_main(fake.Get(), arguments);
  } catch (const FakeExit&) {
    return;
  }
  if (fake.OpenHandles() != 0 || !fake.progress.empty()) std::abort();
}

}  // namespace zaview
