#include "analysis/frequency_domain/frequency_output.h"

#include <array>
#include <cstddef>
#include <utility>

#include "analysis/do_or_say.h"
#include "analysis/frequency_domain/frequency_plots.h"
#include "base/message.h"
#include "frame/ground/output_set.h"

namespace zaview {
namespace {

constexpr std::string_view kTransformingRadiation = "Transforming impulse response function...";
constexpr std::string_view kTransformingDiffraction = "Transforming diffraction impulse response function(s)...";
constexpr std::string_view kResponseRadiation = "Transforming radiation impulse response function...";
constexpr std::string_view kResponseDiffraction = "Transforming diffraction & FK impulse response functions...";
constexpr std::string_view kSkipped = "WRN434 - Highest of {} frequency components will skipped since";
constexpr std::string_view kSkippedWhy = "         parameter MAXFRQ is set to {}";
constexpr std::string_view kNoMemory = "ERROR allocating memory for the coefficients";
constexpr std::string_view kNothing = "ERROR - no impulse response function to be transformed";

void SaySkipped(const Console& console, int nskip) {
  if (nskip <= 0) return;
  Say(console, kSkipped, nskip);
  Say(console, kSkippedWhy, MAXFRQ);
}

int ShipNumber(const CaseStore& store, int ship) {
  return store.NSHIP > 1 ? ship : 0;
}

void TakeRadiation(const FrequencyWork& work, RadiationTable table, int ship, FrequencyResults& results) {
  SaySkipped(work.platform.console, table.nskip);
  results.radiation.push_back({std::move(table), PartsOf(work.store, ship), ShipNumber(work.store, ship)});
}

void TakeBlock(const FrequencyWork& work, const IrfBlock& block, FrequencyResults& results) {
  const Console& console = work.platform.console;
  switch (WorkOf(block)) {
    case IrfWork::radiation:
      SayLine(console, kTransformingRadiation);
      return TakeRadiation(work, RadiationOf(block), block.ship, results);
    case IrfWork::diffraction:
      SayLine(console, kTransformingDiffraction);
      results.excitation.push_back(ExcitationOf(work.store, block));
      return SaySkipped(console, results.excitation.back().nskip);
    case IrfWork::matrices:
      results.matrices.push_back(PartsOf(work.store, block.ship));
      return;
    case IrfWork::none:
      return;
  }
}

void MakeResults(const FrequencyWork& work, const IrfBlock* block, FrequencyResults& results) {
  results = FrequencyResults{};
  if (block != nullptr) {
    TakeBlock(work, *block, results);
    const IndependentParts parts = PartsOf(work.store, block->ship);
    if (WorkOf(*block) == IrfWork::radiation && parts.read) results.matrices.push_back(parts);
  } else if (work.store.tadm_case) {
    SayLine(work.platform.console, kTransformingRadiation);
    TakeRadiation(work, RadiationOf(work.store), work.store.ship, results);
    if (results.radiation[0].parts.read) results.matrices.push_back(results.radiation[0].parts);
  } else {
    for (const IrfBlock* each : TransformableBlocks(work.store)) TakeBlock(work, *each, results);
  }
}

std::vector<ResponseRow> ResponsesAt(const ResponseModel& model, std::size_t heading, const std::vector<double>& w) {
  std::vector<ResponseRow> rows;
  for (const double each : w) {
    ResponseRow row;
    if (MotionResponse(model, model.headings[heading], each, row)) rows.push_back(row);
  }
  return rows;
}

// ---- The files of the whole case

struct CaseFile {
  std::string name, text;
  std::string_view done;
};

struct Ending {
  std::string_view ending, done;
};
// Three in the order of CoefficientKind.
constexpr Ending kEndings[] = {{".adm", "Added Mass coefficients written to file"},
                               {".dmp", "Damping coefficients written to file"},
                               {".stf", "Stiffness coefficients written to file"},
                               {".exc", "Wave Excitation coefficients written to file"}};

std::vector<CaseFile> FilesOf(const FrequencyWork& work, std::string_view root, const FrequencyResults& results) {
  const FrequencyLooks looks = LooksOf(work.store, work.settings);
  std::vector<CaseFile> files;
  for (std::size_t i = 0; i < std::size(kEndings); ++i) {
    CaseFile file;
    file.name = std::string(root).append(kEndings[i].ending);
    file.text =
        i < 3 ? CoefficientText(looks, static_cast<CoefficientKind>(i), results) : ExcitationText(looks, results);
    file.done = kEndings[i].done;
    if (!file.text.empty()) files.push_back(std::move(file));
  }
  return files;
}

bool WriteFiles(const FrequencyWork& work, const std::vector<CaseFile>& files) {
  const Console& console = work.platform.console;
  std::vector<std::string> names;
  for (const CaseFile& file : files) names.push_back(file.name);
  std::vector<OutputFile> outs;
  if (!OpenAll(work.platform, names, kOutputNotOpen, outs)) return false;
  for (std::size_t i = 0; i < files.size(); ++i) WriteOutput(outs[i], files[i].text);
  return CloseAll(console, outs, [&](std::size_t i) { Say(console, "{} {}", files[i].done, files[i].name); });
}

}  // namespace

bool MakeFrequencyResults(const FrequencyWork& work, const IrfBlock* block, FrequencyResults& results) {
  return DoOrSay(work.platform.console, kNoMemory, [&] {
    MakeResults(work, block, results);
    return true;
  });
}

std::string CoefficientText(const FrequencyLooks& looks, CoefficientKind kind, const FrequencyResults& results) {
  std::string text;
  if (kind == CoefficientKind::stiffness) {
    for (const IndependentParts& parts : results.matrices) {
      if (results.radiation.empty()) AppendIndependent(looks, kind, parts, text);
      else AppendStiffness(looks, parts, text);
    }
    return text;
  }
  for (const RadiationResult& result : results.radiation) AppendRadiation(looks, kind, result, text);
  for (const IndependentParts& parts : results.matrices) AppendIndependent(looks, kind, parts, text);
  return text;
}

std::string ExcitationText(const FrequencyLooks& looks, const FrequencyResults& results) {
  std::string text;
  for (const ExcitationTable& table : results.excitation) AppendExcitation(looks, table, text);
  return text;
}

bool WriteCoefficientFiles(const FrequencyWork& work, std::string_view root, ResultPlot& plot) {
  FrequencyResults results;
  if (!MakeFrequencyResults(work, nullptr, results)) return false;
  std::vector<CaseFile> files;
  const auto make = [&] {
    files = FilesOf(work, root, results);
    plot = CoefficientPlot(LooksOf(work.store, work.settings), results.radiation, results.excitation);
    return true;
  };
  if (!DoOrSay(work.platform.console, kNoMemory, make)) return false;
  if (files.empty()) SayLine(work.platform.console, kNothing);
  return !files.empty() && WriteFiles(work, files);
}

DataFault WriteResponses(const FrequencyWork& work, std::size_t heading, const std::vector<double>& w_out,
                         OutputFile& out, ResultPlot& plot) {
  return MakeOrSay(work.platform.console, kNoMemory, [&] {
    SayLine(work.platform.console, kResponseRadiation);
    SayLine(work.platform.console, kResponseDiffraction);
    const ResponseModel model = ModelOf(work.store);
    const FrequencyLooks looks = LooksOf(work.store, work.settings);
    std::vector<double> w;
    for (const double each : w_out) w.push_back(each * looks.T);
    std::string text;
    const double degrees = model.headings[heading].heading;
    const std::vector<ResponseRow> rows = ResponsesAt(model, heading, w);
    AppendResponses(looks, degrees, rows, text);
    plot = ResponsePlot(looks, degrees, rows);
    WriteOutput(out, out.had_text ? '\n' + text : text);
    return DataFault::none;
  });
}

}  // namespace zaview
