#include "analysis/frequency_domain/frequency_dialogue.h"

#include <string>
#include <string_view>
#include <vector>

#include "analysis/frequency_domain/frequency_plots.h"
#include "base/message.h"
#include "frame/ground/file_dialogue.h"
#include "frame/ground/option_menu.h"
#include "frame/ground/prompts.h"

namespace zaview {
namespace {

constexpr std::string_view kNotFromStart[] = {
    "ERR478 - Added mass and damping coefficients can only be computed for a",
    "         ZAVO outfile history starting with step 1 because such a calculation",
    "         for only the end of the output history would not make sense"};
constexpr std::string_view kImpulse[] = {"This option will transform the computed impulse response function for",
                                         "impulsive acceleration in {} and compute the corresponding frequency",
                                         "domain added mass and damping coefficients"};
constexpr std::string_view kBadMode = "LOGIC error - rvm= {}";
constexpr std::string_view kIrfs[] = {"This option will transform selected computed radiation impulse response",
                                      "functions (IRFs) to get the corresponding frequency domain added mass",
                                      "and damping coefficients -or- transform selected diffraction &",
                                      "Froude-Krylov IRFs to get wave excitation coefficients"};
constexpr std::string_view kNoMatrices[] = {"NOTE: The added mass and damping coefficients will NOT include",
                                            "      frequency independent values, as none were read"};
constexpr std::string_view kMatrices[] = {"Frequency independent",
                                          "added mass, damping, and stiffness matrices will be output"};
constexpr std::string_view kMenu = "IRFs Available for Transformation:";
constexpr std::string_view kSelect = "Select =>";
constexpr std::string_view kReturn = " 0 - Return to main menu";
constexpr std::string_view kResponses = "Motion RAOs";
constexpr std::string_view kAborted = "Impulse response output aborted...";

struct FileRow {
  std::string_view prompt, done;
};
constexpr FileRow kFiles[] = {  // in the order of CoefficientKind
    {"Enter file name for added mass coefficients (BLANK to write to screen)",
     "Added Mass coefficients written to file"},
    {"Enter file name for damping coefficients (BLANK to write to screen)", "Damping coefficients written to file"},
    {"Enter file name for stiffness coefficients (BLANK to write to screen)",
     "Stiffness coefficients written to file"}};
constexpr FileRow kExcitationFile = {"Enter file name for wave excitation coefficients (BLANK to write to screen)",
                                     "Wave Excitation coefficients written to file"};

// False: QUIT.
bool AskFile(const Platform& platform, const FileRow& row, const std::string& text) {
  ChosenFile chosen;
  if (!AskFormattedFile(platform, row.prompt, {}, chosen)) return false;
  WriteOutput(chosen.out, chosen.out.had_text ? '\n' + text : text);
  if (!CloseOutput(chosen.out)) Say(platform.console, kFileNotWritten, chosen.name, Because(chosen.out.why));
  else if (!chosen.out.to_console) Say(platform.console, "{} {}", row.done, chosen.name);
  return true;
}

// block null: the record of a transient added mass run.
bool AskFiles(const FrequencyWork& work, const IrfBlock* block, ResultPlot& plot) {
  FrequencyResults results;
  if (!MakeFrequencyResults(work, block, results)) return true;
  const FrequencyLooks looks = LooksOf(work.store, work.settings);
  plot = CoefficientPlot(looks, results.radiation, results.excitation);
  if (!results.excitation.empty()) return AskFile(work.platform, kExcitationFile, ExcitationText(looks, results));
  for (std::size_t i = 0; i < std::size(kFiles); ++i) {
    const std::string text = CoefficientText(looks, static_cast<CoefficientKind>(i), results);
    if (!text.empty() && !AskFile(work.platform, kFiles[i], text)) return false;
  }
  return true;
}

void AskBlock(const FrequencyWork& work, const IrfBlock* block, ResultPlot& plot) {
  if (!AskFiles(work, block, plot)) return SayLine(work.platform.console, kAborted);
  pause_for_return(work.platform.console);
}

void AskTransient(const FrequencyWork& work, ResultPlot& plot) {
  const Console& console = work.platform.console;
  const int rvm = work.store.rvm;
  if (rvm < 1 || rvm > static_cast<int>(kModes)) return Say(console, kBadMode, rvm);
  SayLine(console, kImpulse[0]);
  Say(console, fmt::runtime(kImpulse[1]), kModeWords[static_cast<std::size_t>(rvm - 1)]);
  SayLine(console, kImpulse[2]);
  AskBlock(work, nullptr, plot);
}

// "radiation in heave, ship 1, 401 steps (..": without what stands behind the ship.
std::string_view ShortLabel(std::string_view label) {
  const std::size_t steps = label.find(" steps");
  if (steps == std::string_view::npos) return label;
  return label.substr(0, label.rfind(',', steps));
}

void AskIrfs(const FrequencyWork& work, ResultPlot& plot) {
  const Console& console = work.platform.console;
  SayLines(console, kIrfs);
  if (PartsOf(work.store, work.store.ship).read) SayLines(console, kMatrices);
  else SayLines(console, kNoMatrices);
  const std::vector<const IrfBlock*> blocks = TransformableBlocks(work.store);
  std::vector<std::string> texts = {std::string(kReturn)};
  for (const IrfBlock* block : blocks)
    texts.push_back(fmt::format("{:>2} - {}", texts.size(), ShortLabel(block->label)));
  if (HasResponses(work.store)) texts.push_back(fmt::format("{:>2} - {}", texts.size(), kResponses));
  std::vector<MenuItem> items;
  for (const std::string& text : texts) items.push_back({text});
  for (;;) {
    int item = 0;
    if (select_option(console, kMenu, kSelect, items, -1, item) != Answer::ok || item == 0) return;
    const auto index = static_cast<std::size_t>(item - 1);
    if (index < blocks.size()) AskBlock(work, blocks[index], plot);
    else AskResponses(work, plot);
  }
}

}  // namespace

void AskFrequencyDomain(const FrequencyWork& work, ResultPlot& plot) {
  if (!work.store.tadm_case) return AskIrfs(work, plot);
  if (work.store.has_steps() && work.store.first_step == 1) return AskTransient(work, plot);
  SayLines(work.platform.console, kNotFromStart);
  pause_for_return(work.platform.console);
}

}  // namespace zaview
