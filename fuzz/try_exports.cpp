// Models of crane and cargo, and modules of network data, of any bytes: what can be run on a short case is run, and
// what was read reads again from what is written of it.
#include <array>
#include <cstdlib>

#include "analysis/crane/crane_input.h"
#include "fake_platform.h"
#include "frame/zaview_main.h"
#include "fuzz/try_input.h"
#include "run_writer.h"

namespace zaview {

namespace {

const std::string& ShortRun() {
  static const std::string text = [] {
    run_writer::RunSpec spec;
    if (!run_writer::SampleSpec("regular_head", spec)) std::abort();
    spec.nstep = spec.steps = 3;
    return run_writer::RunText(spec);
  }();
  return text;
}

void RunScript(FakePlatform& fake, const std::string& script) {
  fake.Put("run.out", ShortRun());
  fake.Put("s.script", script);
  const std::array<std::string, 3> arguments{"run.out", "-script", "s.script"};
  try {
    (void)zaview_main(fake.Get(), arguments);
  } catch (const FakeExit&) {
    return;
  }
  if (fake.OpenHandles() != 0) std::abort();
}

void CheckNumbers(const FakePlatform& fake, const std::string& name) {
  if (fake.files.count(name) == 0) return;
  const std::string text = fake.Bytes(name);
  if (text.find("nan") != std::string::npos || text.find("inf") != std::string::npos) std::abort();
}

}  // namespace

void TryCrane(std::string_view input) {
  const auto [model, cargo] = TwoFiles(input);
  FakePlatform fake;
  fake.Put("crane", std::string(model));
  fake.Put("cargo", std::string(cargo));
  CraneInput read, again;
  if (ReadCraneInput(fake.Get(), "crane", read)) {
    const std::string text = CraneInputText(read);
    fake.Put("again", text);
    if (!ReadCraneInput(fake.Get(), "again", again) || CraneInputText(again) != text) std::abort();
  }
  RunScript(fake, "CRANE crane lift\n");
  CheckNumbers(fake, "lift.crane_out");
  CheckNumbers(fake, "lift.crane_gt");
}

void TryNetworkData(std::string_view input) {
  FakePlatform fake;
  fake.Put("net", std::string(input));
  RunScript(fake, "NNDATA net\n");
}

}  // namespace zaview
