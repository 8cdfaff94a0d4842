// The command that shows the ship moving in its waves, to somebody at the window or, with a word behind it, into files.
#include <string>
#include <vector>

#include "analysis/run_events.h"
#include "base/text.h"
#include "gks/kernel/gks_control.h"
#include "gks/window/gks_window.h"
#include "script/command_table.h"
#include "script/plot_commands.h"
#include "views/state/run_pictures.h"

namespace zaview {

namespace {

constexpr std::string_view kBadWord =
    "ERROR - Invalid argument for {} command : {} (auto, or a name that ends in .png .bmp .gif .mp4 .mkv .webm .avi)";
constexpr std::string_view kNoSeconds = "ERROR - {} {} needs the seconds about it, above 0";

// The next word of this line alone: what stands on the next one is a command. Blank: there is none.
std::string WordOnLine(ScriptCall& call) {
  return RestOfLine(call.words).empty() ? std::string() : NextScriptWord(call.words, kFreeText);
}

// An event and the seconds about it, if the line begins with one.
int ReadEvent(ScriptCall& call, AnimationOrder& order) {
  if (RestOfLine(call.words).empty()) return kScriptOk;
  const RunEventRow* const event = FindRunEvent(Capitals(PeekScriptWord(call.words, kFreeText)));
  if (event == nullptr) return kScriptOk;
  (void)NextScriptWord(call.words, kFreeText);
  std::vector<float> seconds;
  if (!ParseRealList(call.words, -1, seconds) || seconds.empty() || !(seconds[0] > 0))
    return Fail(call, kScriptBadArgument, kNoSeconds, call.command, event->word);
  order.about_event = true;
  order.event = event->kind;
  order.seconds = static_cast<double>(seconds[0]);
  return kScriptOk;
}

// Where the pictures of the run go, if anywhere. "on" and "off" begin and end dump-only mode, as behind plots.
int ReadPictures(ScriptCall& call, AnimationOrder& wanted, bool& ends_dumping) {
  const std::string word = WordOnLine(call);
  const std::string capitals = Capitals(word);
  ends_dumping = capitals == "OFF";
  gksReadEnvironment(call.session.platform, call.session.gks);
  if (capitals == "ON" || ends_dumping) gksSetDumpOption(call.session.gks, word);
  else wanted.pictures = !word.empty();
  if (!wanted.pictures || capitals == "AUTO" || OrderOfName(word, wanted.output)) return kScriptOk;
  return Fail(call, kScriptBadArgument, kBadWord, call.command, word);
}

int RunAnimate(ScriptCall& call) {
  AnimationOrder wanted;
  bool ends_dumping = false;
  if (const int status = ReadEvent(call, wanted); status != kScriptOk) return status;
  if (const int status = ReadPictures(call, wanted, ends_dumping); status != kScriptOk) return status;
  return StartAnimation(call.session, wanted, kFromScript) || ends_dumping ? kScriptOk : kScriptFailed;
}

constexpr Command kAnimate[] = {
    {{"ANIMATE_MOTIONS", "MOTION_ANIMATION", "ANIMATION", "KINO"},
     kNeedsCase | kNeedsMotion | kNeedsGraphics,
     RunAnimate,
     "[event] [seconds] [pictures]",
     "The ship moving in its waves. With a word on the same line nobody needs to watch: auto makes a numbered picture "
     "of each step, name.png (.bmp, .gif) pictures name0001.png and so on, name.mp4 (.mkv, .webm, .avi) a video. An "
     "event ahead of it takes the seconds about it alone"},
};

}  // namespace

CommandFamily AnimateCommands() {
  return kAnimate;
}

}  // namespace zaview
