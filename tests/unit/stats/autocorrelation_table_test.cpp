#include "stats/tables/autocorrelation_table.h"

#include <algorithm>
#include <limits>

#include "worked_case.h"

namespace zaview {
namespace {

// Worked record 5 as surge.
CaseStore ShortCase() {
  CaseStore c = WorkedCase();
  c.last_read = c.last_step = 24;
  for (std::size_t i = 0; i < 24; ++i) c.pmgg.component[0][i] = WorkedRecord(5)[i];
  return c;
}

Written Write(const CaseStore& c, const OutputSettings& settings, int iqnt = 1, const std::string& before = {}) {
  QuantityRequest request;
  request.iqnt = iqnt;
  request.curve = 1;
  return WriteWorked([&](const StatWork& work, OutputFile& out) { return WriteAutocorrelation(work, request, out); }, c,
                     settings, "out.txt", before);
}

TEST(AutocorrelationTable, FunctionAndEnvelopes) {
  const std::string begin =
      "Autocorrelation of Position of CG for ZAVO file run.out\n"
      "        dTime            Rx\n"
      "     0.000000      1.000000\n"
      "    0.5000000     0.6606718\n"
      "     1.000000    0.03641257\n";
  const std::string end =
      // clang-format off
      "     11.00000     0.5012329\n" "     11.50000      0.000000\n" "\n" "Upper envelope\n"
      "        dTime            Rx\n" "     4.000000     0.3842421\n" "     8.000000     0.8757797\n"
      "     11.00000     0.5012329\n" "\n" "Lower envelope\n" "        dTime            Rx\n"
      "     2.000000    -0.6502960\n" "     6.000000    -0.7866454\n" "     10.00000    -0.4963130\n";
  // clang-format on
  const std::string text = Write(ShortCase(), {}).text;
  EXPECT_EQ(text.substr(0, begin.size()), begin);
  EXPECT_EQ(text.substr(text.size() - end.size()), end);
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 2 + 24 + 2 * (3 + 3));
  EXPECT_EQ(Write(ShortCase(), {}, 1, "old\n").text, "old\n\n" + text);
}

TEST(AutocorrelationTable, EveryNthSampleBehindTheSkippedOnes) {
  CaseStore c = ShortCase();
  OutputSettings settings;
  c.skip_effective = 20;
  settings.statistics.autocorrelation_rate = 3;  // positions 21 and 24: R(0) is (x(21) - mean)^2
  EXPECT_EQ(Write(c, settings).text,
            "Autocorrelation of Position of CG for ZAVO file run.out\n"
            // clang-format off
            "        dTime            Rx\n" "     0.000000      1.000000\n" "     1.500000      0.000000\n"
            "\nUpper envelope\n" "        dTime            Rx\n" "\nLower envelope\n"
            // clang-format on
            "        dTime            Rx\n");
  settings.statistics.autocorrelation_rate = std::numeric_limits<int>::max();  // one sample: nothing to scale by
  const std::string one = Write(c, settings).text;
  EXPECT_NE(one.find("Rx\n     0.000000      0.000000\n\nUpper"), std::string::npos);
  settings.statistics.autocorrelation_rate = -2;  // as 1
  EXPECT_NE(Write(c, settings).text.find("\n    0.5000000 "), std::string::npos);
}

TEST(AutocorrelationTable, Refusals) {
  CaseStore c = ShortCase();
  c.skip_effective = 24;
  const Written none = Write(c, {});
  EXPECT_EQ(none.fault, DataFault::said);
  EXPECT_EQ(none.console, "ERR495 - Too many steps skipped or trimmed in autocorrelation setup\n");
  EXPECT_EQ(Write(ShortCase(), {}, 14).fault, DataFault::not_valid);
}

}  // namespace
}  // namespace zaview
