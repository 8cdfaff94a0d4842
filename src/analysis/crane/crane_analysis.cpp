#include "analysis/crane/crane_analysis.h"

#include <string_view>

#include "analysis/crane/crane_files.h"
#include "analysis/do_or_say.h"
#include "base/message.h"
#include "frame/ground/file_dialogue.h"
#include "frame/ground/output_set.h"
#include "frame/ground/prompts.h"

namespace zaview {
namespace {

constexpr std::string_view kAskModel = "Enter name of crane & cargo model input file";
constexpr std::string_view kAskMotions = "Enter name for crane & cargo motion output file (blank to skip)";
constexpr std::string_view kAskGeometry = "Enter name for KINO crane & cable geometry file (blank to skip)";
constexpr std::string_view kAborted = "Option Aborted";
constexpr std::string_view kMotionsDone = "Crane & cargo motions written to {}";
constexpr std::string_view kGeometryDone = "Crane & cable geometry written to {}";

void Print(const Console& console, const std::string& text) {
  console.write(console.self, text);
  console.flush(console.self);
}

void Discard(OutputFile* file) {
  if (file != nullptr) DiscardOutput(*file);
}

bool Close(const Console& console, OutputFile* file, std::string_view done) {
  if (file == nullptr) return true;
  const bool written = CloseOutput(*file);
  if (written) Say(console, fmt::runtime(done), file->name);
  else Say(console, kOutputNotWritten, file->name, Because(file->why));
  return written;
}

bool Simulate(const CraneWork& work, const CraneInput& input, const std::string& name, const CraneFiles& files,
              CraneRun& run) {
  const Console& console = work.platform.console;
  if (!PrepareCrane(work.platform, input, name, work.store, run)) return false;
  Print(console, CraneReport(work.settings, input, run));
  if (SimulateCrane(work.platform, work.store, run) != CraneFault::none) return false;
  Print(console, TensionReport(work.settings, run));
  if (files.motions != nullptr) WriteCraneMotions(work.settings, run, *files.motions);
  if (files.geometry != nullptr) WriteCraneGeometry(work.settings, run, *files.geometry);
  return true;
}

OutputFile* Wanted(ChosenFile& chosen) {
  return chosen.out.to_console ? nullptr : &chosen.out;
}

}  // namespace

bool TakeCraneInput(const Platform& platform, const std::string& name, CraneInput& input) {
  if (!ReadCraneInput(platform, name, input)) return false;
  Print(platform.console, CraneInputText(input));
  return true;
}

bool RunCrane(const CraneWork& work, const CraneInput& input, const std::string& name, CraneFiles files,
              CraneRun& run) {
  const Console& console = work.platform.console;
  if (!DoOrSay(console, kNoCraneMemory, [&] { return Simulate(work, input, name, files, run); })) {
    run.steps.clear();
    Discard(files.motions);
    Discard(files.geometry);
    return false;
  }
  const bool motions = Close(console, files.motions, kMotionsDone);
  return Close(console, files.geometry, kGeometryDone) && motions;
}

void AskCrane(const CraneWork& work, CraneRun& run) {
  const Platform& platform = work.platform;
  const FileQuestion question{.use = FileUse::input, .prompt = kAskModel, .extension = ""};
  ChosenFile model, motions, geometry;
  if (OPNFIL(platform, question, model) != FileAnswer::opened) return SayLine(platform.console, kAborted);
  (void)platform.files.close(platform.files.self, model.file);
  CraneInput input;
  if (!TakeCraneInput(platform, model.name, input)) return;
  if (!AskFormattedFile(platform, kAskMotions, ".crane_out", motions)) return SayLine(platform.console, kAborted);
  if (!AskFormattedFile(platform, kAskGeometry, ".crane_gt", geometry)) {
    DiscardOutput(motions.out);
    return SayLine(platform.console, kAborted);
  }
  if (SpoilEachOther(motions.out, geometry.out)) {
    Say(platform.console, kSameOutput, geometry.name);
    DiscardOutput(motions.out);
    DiscardOutput(geometry.out);
    return SayLine(platform.console, kAborted);
  }
  (void)RunCrane(work, input, model.name, {Wanted(motions), Wanted(geometry)}, run);
  pause_for_return(platform.console);
}

}  // namespace zaview
