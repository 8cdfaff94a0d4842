// A case in memory whose surge is worked record 1 (its first 64 samples) and whose sway is worked record 2, shown as
// they stand, at t = 0, 0.5, ..; and a table written of it.
#pragma once

#include <functional>
#include <string>

#include <gtest/gtest.h>

#include "case/case_store.h"
#include "case/output_settings.h"
#include "fake_platform.h"
#include "frame/ground/output_file.h"
#include "stats/tables/stat_table.h"
#include "worked_records.h"

namespace zaview {

inline void FillWorked(StepHistory& history, std::size_t n) {
  history.first = 1;
  history.component.assign(6, std::vector<float>(n));
  for (std::size_t i = 0; i < n; ++i) {
    history.component[0][i] = WorkedRecord(1)[i];
    history.component[1][i] = WorkedRecord(2)[i];
  }
}

inline CaseStore WorkedCase() {
  constexpr std::size_t n = 64;
  CaseStore c;
  c.has_case = true;
  c.file_name = "run.out";
  c.last_read = c.last_step = static_cast<int>(n);
  c.control.GRAVIN = c.control.GRAVOUT = 1.0;
  c.time.first = 1;
  c.time.component = {WorkedTimes(n)};
  FillWorked(c.pmgg, n);
  FillWorked(c.vmg, n);
  return c;
}

struct Written {
  DataFault fault = DataFault::none;
  std::string text, console;
};

// name blank: the console. before: what out.txt holds already.
using WriteTableOf = std::function<DataFault(const StatWork&, OutputFile&)>;
inline Written WriteWorked(const WriteTableOf& write, CaseStore c, const OutputSettings& settings,
                           const std::string& name = "out.txt", const std::string& before = {}) {
  FakePlatform fake;
  if (!before.empty()) fake.Put("out.txt", before);
  const Platform platform = fake.Get();
  OutputFile out;
  Written written;
  EXPECT_TRUE(OpenOutput(platform, name, before.empty() ? OpenHow::replace : OpenHow::append, out));
  EnsembleStore none;
  StatisticsState state;
  written.fault = write({platform, settings, {c, none}, state}, out);
  if (written.fault == DataFault::none) {
    EXPECT_TRUE(CloseOutput(out));
    written.text = fake.Bytes("out.txt");
  } else {
    DiscardOutput(out);
  }
  written.console = fake.output;
  return written;
}

}  // namespace zaview
