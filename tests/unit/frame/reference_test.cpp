// The reference: what a user can name has an entry with a meaning, by topic and by a command's name.
#include "frame/reference.h"

#include <gtest/gtest.h>

#include "fake_platform.h"
#include "frame/reference_files.h"
#include "frame/zaview_main.h"
#include "project_places.h"

namespace zaview {
namespace {

TEST(Reference, EveryEntryHasAMeaning) {
  for (const ReferenceTopic& topic : Reference())
    for (const ReferencePart& part : topic.parts) {
      EXPECT_FALSE(part.rows.empty()) << topic.name;
      for (const ReferenceRow& row : part.rows) {
        EXPECT_FALSE(row.term.empty()) << topic.name;
        EXPECT_TRUE(!row.text.empty() && !row.text[0].empty()) << topic.name << ' ' << row.term;
      }
    }
}

TEST(Reference, Help) {
  // clang-format off
  const struct { std::vector<std::string> line; int status; const char* said; } cases[] = {
      {{"-help"}, 0, "White plot background\n"},
      {{"-help", "-white"}, 0, "   quantities   "},
      {{"-help", "Write_Stats"}, 0, "\n WRITE_STAT stat sel tail text file\n     One statistic"},
      {{"-help", "EXCEEDANCE-RATE"}, 0, "\n EXCEEDANCE.. sel tail threshold dependence file\n"},
      {{"-help", "Environment"}, 0, "\n GLREVERSE=on           Black on white\n"},
      {{"-help", "keys"}, 0, "\n g               Toggle grid lines\n"},
      {{"-help", "quantities"}, 0, "\n MOT, PMG       1. Position of CG: pmgg(1) .. pmgg(6) (m; rad)\n"},
      {{"-help", "statistics"}, 0, "\n 1/nTH_AMP, 1/nTH\n     1/nth Amp Avg\n"},
      {{"-help", "run.out"}, 2, "ERROR - there is no help on run.out\n"},
      {{"-help", "PLTO_CI"}, 2, "\n        the nearest command is PLOT_CI\n"},
  };
  // clang-format on
  for (const auto& c : cases) {
    FakePlatform fake;
    EXPECT_EQ(zaview_main(fake.Get(), c.line), c.status) << c.line.back();
    EXPECT_NE(fake.output.find(c.said), std::string::npos) << c.line.back() << '\n' << fake.output;
  }
}

// The files in the tree are what the tables make of them now.
TEST(Reference, FilesAreUpToDate) {
  for (const ReferenceFile& file : ReferenceFiles()) {
    EXPECT_TRUE(FileBytes(ProjectFile(std::string(file.name))) == file.text())
        << file.name << " is not what the tables say now; make it anew with\n"
        << "cmake --build --preset debug --target reference";
  }
}

}  // namespace
}  // namespace zaview
