#include "case/read/read_output_file.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/data_fault.h"
#include "base/line_source.h"
#include "base/message.h"
#include "base/number_format.h"
#include "base/text.h"
#include "case/case_hull.h"
#include "case/output_scales.h"
#include "case/read/default_skip.h"
#include "case/read/ensemble_match.h"
#include "case/read/finish_case_read.h"
#include "case/read/irf_sections.h"
#include "case/read/kino_input.h"
#include "case/read/output_header.h"
#include "case/read/read_steps.h"
#include "case/read/restart_combine.h"
#include "case/read/step_columns.h"
#include "case/read/table_input.h"
#include "case/read/time_steps.h"
#include "case/wave_at_cg.h"
#include "frame/ground/file_dialogue.h"
#include "frame/ground/input_file.h"
#include "frame/ground/prompts.h"
#include "geometry/case_geometry.h"

namespace zaview {
namespace {

inline constexpr std::string_view kAskName = "Enter ZAVO output file name (KINO for alternate input, QUIT to abort)";
inline constexpr std::string_view kNotOpened = "ERROR - Error opening ZAVO Output File : {}{}";
inline constexpr std::string_view kAlternateInScript = "ERROR - alternate input needs READ_KINO_FILES in a script";
inline constexpr std::string_view kGeometryOnly = "Specified ZAVO file is for a geometry only (NSTEP=0) run";
inline constexpr std::string_view kNoSteps[] = {"ERR487 - The ZAVO file contains no steps.",
                                                "         Reading as geometry only (NSTEP=0) run"};
inline constexpr std::string_view kStillRunning =
    "         The ZAVO run may still be running or may have terminated prematurely";
inline constexpr std::string_view kNotAscending = "ERR408 - Time step not ascending in ZAVO output file:";
inline constexpr std::string_view kNoMoreSteps = "         Additional steps will not be available";
inline constexpr std::string_view kNoMoreStepsError = "         Additional steps will be not be available";
inline constexpr std::string_view kReadAborted = "         File read aborted";
inline constexpr std::string_view kNotProgrammed = "oops - have not programmed this yet - contact Ned";

constexpr FileHandle kAlternateInput = -2;  // no file: motions, seaway and hull are asked for
constexpr std::size_t kNameField = 256;     // columns; a longer name fails to open, it is never cut
constexpr std::string_view kEndings[] = {"", ".out", ".out.XML", ".XML"};

// Nothing but white space is left. Takes the white space.
bool NoTextLeft(BlockStream& stream) {
  constexpr std::size_t kRoom = 65536;
  const auto blank = [](char c) { return IsWhite(c) || c == '\n'; };
  do {
    while (stream.begin < stream.end && blank(stream.buffer[stream.begin])) {
      ++stream.begin;
      ++stream.offset;
    }
    if (stream.begin < stream.end) return false;
  } while (FillStream(stream, kRoom));
  return true;
}

// Does the file hold what this program reads? Says what doesn't.
bool CheckHeader(const Console& console, const ReadRequest& request, CaseStore& fresh) {
  const ControlRecords& control = fresh.control;
  const int ships = std::max(1, fresh.NSHIP);
  if (ships == 1 && !request.ship_named) fresh.ship = 1;
  if (control.NSTEP < 0) {
    Say(console, "ERR425 - The ZAVO output file has NSTEP= {}", control.NSTEP);
    SayLine(console, "         File may be for an incompatible version of ZAVO");
  } else if (fresh.ship < 1 || fresh.ship > ships) {
    Say(console, "ERROR - ship {} is not in the file (NSHIP= {})", fresh.ship, fresh.NSHIP);
  } else if (control.NSTEP == 0 || fresh.irf_case) {
    return true;  // no steps, so no layout to know
  } else {
    StepColumns columns;
    if (PrepareColumns(fresh, columns)) return true;
    SayLine(console, kNotProgrammed);
  }
  return false;
}

enum class Content : std::uint8_t {
  refused,  // told
  geometry_only,
  header_only,  // the steps are out of reach, told
  impulse_responses,
  steps
};

// Header and steps of an open file into a fresh store.
Content ReadContent(const Platform& platform, const ReadRequest& request, FileHandle file, CaseStore& fresh,
                    StepsRead& steps) {
  const Console& console = platform.console;
  BlockStream stream;
  StartStream(stream, platform.files, file);
  LineSource source;
  source.stream = &stream;
  if (ReadOutputHeader(platform, source, fresh.file_name, fresh) != HeaderStatus::ok) return Content::refused;
  fresh.base_name = BaseName(fresh.file_name);
  SetCaseFlags(fresh);
  if (!CheckHeader(console, request, fresh) || !ReadPhaseLists(platform, fresh)) return Content::refused;
  if (fresh.nstep_expected == 0 && (fresh.time_history() || NoTextLeft(stream))) return Content::geometry_only;
  if (!fresh.time_history() && ReadIrfSections(console, source, fresh) != IrfStatus::ok) return Content::refused;
  if (fresh.irf_case) return Content::impulse_responses;
  if (fresh.nstep_expected == 0) return Content::geometry_only;
  if (CompanionMode(fresh) != 0) return ReadCompanion(platform, fresh, steps) ? Content::steps : Content::header_only;
  if (NoTextLeft(stream)) {
    steps.end = stream.fault ? StepsEnd::bad_value : StepsEnd::no_record;
    return Content::steps;
  }
  steps = ReadFormattedSteps(platform, stream, fresh);
  return Content::steps;
}

// The end of a read that kept at least one step; complete says nothing.
// T: time scale of the output units, in which the two times are shown.
void SayEnd(const Console& console, const StepsRead& steps, float T) {
  const int last = steps.first + steps.kept - 1;
  switch (steps.end) {
    case StepsEnd::not_ascending:
      SayLine(console, kNotAscending);
      Say(console, "  time= {} at step {}", Shown{steps.previous_time * T}, last);
      Say(console, "  time= {} at step {}", Shown{steps.new_time * T}, last + 1);
      SayLine(console, kNoMoreSteps);
      SayLine(console, kReadAborted);
      break;
    case StepsEnd::file_end:
      Say(console, "WRN417 - Unexpected file end after time step {}", last);
      SayLine(console, kNoMoreSteps);
      break;
    case StepsEnd::bad_value:
      Say(console, "WRN416 - Error reading file after time step {}", last);
      SayLine(console, kNoMoreStepsError);
      break;
    default:
      break;
  }
}

void SayEndWithoutSteps(const Console& console, StepsEnd end) {
  SayLine(console, end == StepsEnd::file_end ? "ERR417 - Unexpected file end before any time steps were read"
                                             : "ERR416 - Error reading file before any time steps were read");
  SayLine(console, kStillRunning);
}

struct Held {  // what a read replaces or adds to
  CaseStore& case_store;
  EnsembleStore& ensemble;
};

// Also for impulse response functions, which are a case without steps.
void AcceptWithoutSteps(const Console& console, OutputSettings& settings, CaseStore& fresh, Held& held) {
  fresh.first_read = 1;
  fresh.last_read = 0;
  fresh.has_case = true;
  finish_case_read(console, settings, fresh);
  held.case_store = std::move(fresh);
  reset_ensemble(held.case_store, held.ensemble);
}

void AcceptWithSteps(const Console& console, const ReadRequest& request, const RunState& run, const StepsRead& steps,
                     OutputSettings& settings, CaseStore& fresh, Held& held) {
  AdoptFileScales(settings, fresh);
  SayEnd(console, steps, settings.units.scales.T);
  fresh.first_read = steps.first;
  fresh.last_read = steps.first + steps.kept - 1;
  Say(console, "Time steps {} through {} read from ZAVO output file {}", fresh.first_read, fresh.last_read,
      fresh.file_name);
  OfferCombination(console, request.restart_mode, !run.script_active, held.case_store, fresh);
  (void)ApplyTrim(settings, fresh);  // the default skip stays inside it; its words come behind the skip lines
  ChooseDefaultSkip(console, run, settings, fresh);
  fresh.has_case = true;
  finish_case_read(console, settings, fresh);
  if (run.do_eta) (void)IncidentWaveAtCG(console, fresh);  // it has said what is missing
  match_case_to_ensemble(console, request.ensemble_mode, fresh, held.ensemble, held.case_store);
}

ReadOutcome TakeSteps(const Console& console, const ReadRequest& request, const RunState& run, const StepsRead& steps,
                      OutputSettings& settings, CaseStore& fresh, Held& held) {
  if (steps.end == StepsEnd::out_of_memory) {
    SayLine(console, kReportNoMemory);
    held.case_store = CaseStore{};
    reset_ensemble(held.case_store, held.ensemble);
    return ReadOutcome::failed;
  }
  if (steps.kept > 0) {
    AcceptWithSteps(console, request, run, steps, settings, fresh, held);
    return ReadOutcome::ok;
  }
  if (steps.end == StepsEnd::no_record || steps.end == StepsEnd::complete) {
    SayLines(console, kNoSteps);
    AcceptWithoutSteps(console, settings, fresh, held);
    return ReadOutcome::ok;
  }
  SayEndWithoutSteps(console, steps.end);
  if (!held.case_store.has_case) AcceptWithoutSteps(console, settings, fresh, held);
  return ReadOutcome::failed;
}

ReadOutcome ReadOpenedTable(const Platform& platform, const ReadRequest& request, const std::string& name,
                            FileHandle file, OutputSettings& settings, Held& held) {
  const TableInput input =
      ReadTableFile(platform, file, name, request.ensemble_mode, settings, held.case_store, held.ensemble);
  (void)platform.files.close(platform.files.self, file);  // nothing was written
  return input == TableInput::ok ? ReadOutcome::ok : ReadOutcome::failed;
}

ReadOutcome ReadOpened(const Platform& platform, const ReadRequest& request, const std::string& name, FileHandle file,
                       const RunState& run, OutputSettings& settings, Held held) {
  if (IsTableName(name)) return ReadOpenedTable(platform, request, name, file, settings, held);
  CaseStore fresh;
  fresh.file_name = name;
  fresh.ship = request.ship;
  StepsRead steps;
  const Content content = ReadContent(platform, request, file, fresh, steps);
  (void)platform.files.close(platform.files.self, file);  // nothing was written
  if (content == Content::refused) return ReadOutcome::failed;
  if (content == Content::steps) return TakeSteps(platform.console, request, run, steps, settings, fresh, held);
  if (content == Content::geometry_only && !held.case_store.has_case) SayLine(platform.console, kGeometryOnly);
  AcceptWithoutSteps(platform.console, settings, fresh, held);
  return content == Content::header_only ? ReadOutcome::failed : ReadOutcome::ok;
}

bool AsksForAlternateInput(const std::string& name) {
  constexpr std::array<std::string_view, 4> kWords = {"KINO", "kino", "TEXT", "text"};
  return std::any_of(kWords.begin(), kWords.end(), [&](std::string_view word) { return StartsWith(name, word); });
}

// A name that leads to no file; `none` (told) lets a dialogue ask again.
FileHandle FindFile(const Platform& platform, bool script_active, std::string& name) {
  if (AsksForAlternateInput(name)) {
    if (!script_active) return kAlternateInput;
    SayLine(platform.console, kAlternateInScript);
    return kNoFile;
  }
  const FoundFile found = OpenFirst(platform.files, name, kEndings, kNameField);
  if (found.file == kNoFile) Say(platform.console, kNotOpened, name, Because(found.why));
  else name = found.name;
  return found.file;
}

// Asks until a file opens; no file: the user gave up.
FileHandle AskForFile(const Platform& platform, bool script_active, std::string& name) {
  while (ask_text(platform.console, kAskName, "", name) == Answer::ok) {
    name = std::string(Trim(name));
    if (name.empty()) {
      SayLine(platform.console, kNameWanted);
      continue;
    }
    const FileHandle file = FindFile(platform, script_active, name);
    if (file != kNoFile) return file;
  }
  return kNoFile;
}

}  // namespace

std::string BaseName(std::string_view name) {
  const std::size_t slash = name.rfind('/');
  if (slash != std::string_view::npos) name.remove_prefix(slash + 1);
  for (const std::string_view ending : {".XML", ".out"})
    if (name.size() > ending.size() && name.substr(name.size() - ending.size()) == ending)
      name.remove_suffix(ending.size());
  return std::string(name);
}

ReadOutcome read_output_file(const ReadRequest& request, const Platform& platform, RunState& run,
                             OutputSettings& settings, CaseStore& case_store, EnsembleStore& ensemble) {
  if (run.script_active && run.skip_prompt == SkipPrompt::ask) run.skip_prompt = SkipPrompt::silent;
  std::string name(Trim(request.name));
  const bool named = !name.empty();
  FileHandle file = kNoFile;
  do {  // an alternate input that is given up leads back to the question
    file = named ? FindFile(platform, run.script_active, name) : AskForFile(platform, run.script_active, name);
    if (file != kAlternateInput) break;
    if (AskForKinoFiles(platform, run, settings, case_store, ensemble) == KinoInput::ok) return ReadOutcome::ok;
    file = kNoFile;
  } while (!named);
  if (file == kNoFile && named) return ReadOutcome::failed;
  if (file == kNoFile) {
    run.exit_requested = run.exit_requested || !case_store.has_case;
    return ReadOutcome::aborted;
  }
  const ReadOutcome outcome = ReadOpened(platform, request, name, file, run, settings, {case_store, ensemble});
  if (outcome == ReadOutcome::ok) HoldCaseGeometry(platform.files, case_store.control, FolderOf(case_store.file_name));
  return outcome;
}

}  // namespace zaview
