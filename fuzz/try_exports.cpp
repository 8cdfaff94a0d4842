// Models of crane and cargo, and modules of network data, of any bytes: what can be run on a short case is run, and
// what was read reads again from what is written of it.
#include <cstdlib>

#include "analysis/crane/crane_analysis.h"
#include "analysis/crane/crane_files.h"
#include "analysis/run_exports/nndata.h"
#include "case/read/read_output_file.h"
#include "fake_platform.h"
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

struct ShortCase {
  FakePlatform fake;
  RunState run;
  OutputSettings settings;
  CaseStore store;
  EnsembleStore ensemble;

  ShortCase() {
    fake.Put("run.out", ShortRun());
    ReadRequest request;
    request.name = "run.out";
    if (read_output_file(request, fake.Get(), run, settings, store, ensemble) != ReadOutcome::ok) std::abort();
  }
};

void CheckNumbers(const FakePlatform& fake, const std::string& name) {
  if (fake.files.count(name) == 0) return;
  const std::string text = fake.Bytes(name);
  if (text.find("nan") != std::string::npos || text.find("inf") != std::string::npos) std::abort();
}

void CheckEcho(FakePlatform& fake, const CraneInput& input) {
  const std::string text = CraneInputText(input);
  fake.Put("again", text);
  CraneInput again;
  if (!ReadCraneInput(fake.Get(), "again", again) || CraneInputText(again) != text) std::abort();
}

}  // namespace

void TryCrane(std::string_view input) {
  const auto [model, cargo] = TwoFiles(input);
  ShortCase at;
  at.fake.Put("crane", std::string(model));
  at.fake.Put("cargo", std::string(cargo));
  const Platform platform = at.fake.Get();
  CraneInput read;
  if (!TakeCraneInput(platform, "crane", read)) return;
  CheckEcho(at.fake, read);
  OutputFile motions, geometry;
  if (!OpenOutput(platform, "lift.crane_out", OpenHow::replace, motions)) std::abort();
  if (!OpenOutput(platform, "lift.crane_gt", OpenHow::replace, geometry)) std::abort();
  CraneRun run;
  if (RunCrane({platform, at.settings, at.store}, read, "crane", {&motions, &geometry}, run) &&
      CranePlot(at.settings, run).panels.empty())
    std::abort();
  CheckNumbers(at.fake, "lift.crane_out");
  CheckNumbers(at.fake, "lift.crane_gt");
  if (at.fake.OpenHandles() != 0) std::abort();
}

void TryNetworkData(std::string_view input) {
  ShortCase at;
  at.fake.Put("net", std::string(input));
  const Platform platform = at.fake.Get();
  NetworkInput read;
  if (!ReadNetworkInput(platform, "net", read)) return;
  OutputFile out;
  if (!OpenOutput(platform, "net.nndata", OpenHow::replace, out)) std::abort();
  if (WriteNetworkData(platform.console, at.settings, read, at.store, out) == DataFault::none) (void)CloseOutput(out);
  else DiscardOutput(out);
  if (at.fake.OpenHandles() != 0) std::abort();
}

}  // namespace zaview
