#include "base/data_fault.h"

namespace zaview {
namespace {

constexpr std::string_view kNotInFile = "ERROR - {} is not in this output file";

struct FaultTexts {
  std::string_view not_valid, no_memory;
};
constexpr FaultTexts kTexts[] = {
    // in the order of Making
    {kNotInFile, "ERROR allocating memory for the time history"},
    {kNotInFile, "ERROR allocating memory for the table"},
    {kNotInFile, "ERROR allocating memory for the plot"},
    {"ERROR - Quantity {} not valid for this output file", kReportNoMemory},
};

}  // namespace

bool SayDataFault(const Console& console, DataFault fault, Making making, std::string_view quantity) {
  const FaultTexts& texts = kTexts[static_cast<std::size_t>(making)];
  if (fault == DataFault::not_valid) Say(console, fmt::runtime(texts.not_valid), quantity);
  if (fault == DataFault::no_memory) SayLine(console, texts.no_memory);
  return fault == DataFault::none;
}

}  // namespace zaview
