#include <array>
#include <span>
#include <string_view>
#include <vector>

#include "analysis/frequency_domain/frequency_dialogue.h"
#include "base/message.h"
#include "base/number_format.h"
#include "frame/ground/prompts.h"
#include "frame/ground/table_dialogue.h"

namespace zaview {
namespace {

constexpr std::string_view kPurpose[] = {"This option will transform time domain radiation, diffraction, and",
                                         "Froude-Krylov impulse response functions (IRFs) to get frequency domain",
                                         "added mass, damping, and wave excitation coefficients, which will then",
                                         "be used to compute linear Response Amplitude Operators (RAOs) for",
                                         "the motions for which radiation IRFs have been read"};
constexpr std::string_view kRadiationRead = "Radiation IRFs have been read for";
constexpr std::array<std::string_view, kModes> kMotionItems = {" - Surge", " - Sway",  " - Heave",
                                                               " - Roll",  " - Pitch", " - Yaw"};
constexpr std::string_view kOthers = "Note: RAOs for other motions will be 0.0";
constexpr std::string_view kHeadingsRead = "Diffraction and F-K IRFs have been read for the following wave headings:";
constexpr std::string_view kHeading = "{:>2}{} {}";
constexpr std::string_view kHead = " - Head Seas - heading", kFollowing = " - Following Seas - heading";
constexpr std::string_view kMissing = "WRN492 - Following sea diffraction IRF {} missing for heading {}";
constexpr std::string_view kIncomplete = "         Frequency range will be incomplete";

constexpr std::string_view kCount =
    "Enter the number of equally spaced wave frequencies at which to compute RAOs\n"
    "(max={}; enter 0 to specify individual frequencies)";
constexpr std::string_view kBadCount = "ERROR - illegal number of frequencies - re-enter";
constexpr std::string_view kList = "Enter a list of frequencies ended by 0.0(QUIT to abort)";
constexpr std::string_view kOneFrequency = "Enter frequency =>";
constexpr std::string_view kRange = "Enter lowest and highest frequencies =>";
constexpr std::string_view kBadRange = "ERROR - illegal frequency range - re-enter";
constexpr std::string_view kSelectHeading = "Select heading by index (0 to exit) =>";
constexpr std::string_view kBadHeading = "ERROR - illegal heading index - re-enter";
constexpr std::string_view kFile = "Enter file name for motion RAO (BLANK to write to screen)";
constexpr std::string_view kWritten = "Motion RAOs written to file";
constexpr std::string_view kAborted = "RAO calculation aborted...";

void SayMissing(const Console& console, const HeadingGroup& group) {
  if (!group.following) return;
  const int last = group.tau > 0 ? 3 : 1;  // without speed no wave is overtaken
  for (int branch = 1; branch <= last; ++branch) {
    if (group.branch_table[static_cast<std::size_t>(branch - 1)] >= 0) continue;
    Say(console, kMissing, branch, Shown{static_cast<float>(group.heading)});
    SayLine(console, kIncomplete);
  }
}

void SayWhatIsRead(const Console& console, const ResponseModel& outline) {
  for (const std::string_view line : kPurpose) SayLine(console, line);
  SayLine(console, kRadiationRead);
  for (const RadiationTable& table : outline.radiation)
    SayLine(console, kMotionItems[static_cast<std::size_t>(table.motion - 1)]);
  SayLine(console, kOthers);
  SayLine(console, kHeadingsRead);
  for (std::size_t i = 0; i < outline.headings.size(); ++i) {
    const HeadingGroup& group = outline.headings[i];
    Say(console, kHeading, i + 1, group.following ? kFollowing : kHead, Shown{static_cast<float>(group.heading)});
  }
  for (const HeadingGroup& group : outline.headings) SayMissing(console, group);
}

Answer AskList(const Console& console, std::vector<double>& w_out) {
  SayLine(console, kList);
  while (w_out.size() < static_cast<std::size_t>(kMostFrequencies)) {
    float frequency = 0;
    if (const Answer answer = ask_real(console, kOneFrequency, false, frequency); answer != Answer::ok) return answer;
    if (frequency == 0) break;
    if (frequency > 0) w_out.push_back(double{frequency});
  }
  return w_out.empty() ? Answer::quit : Answer::ok;
}

Answer AskFrequencies(const Console& console, std::vector<double>& w_out) {
  int count = 0;
  for (;;) {
    const Answer answer = ask_integer(console, fmt::format(kCount, kMostFrequencies), false, count);
    if (answer != Answer::ok) return answer;
    if (count >= 0 && count <= kMostFrequencies) break;
    SayLine(console, kBadCount);
  }
  if (count == 0) return AskList(console, w_out);
  for (;;) {
    std::array<float, 2> ends{};
    if (const Answer answer = VINPUT(console, kRange, false, ends); answer != Answer::ok) return answer;
    if (ends[0] > 0 && ends[0] <= ends[1]) {
      w_out = EvenFrequencies(double{ends[0]}, double{ends[1]}, count);
      return Answer::ok;
    }
    SayLine(console, kBadRange);
  }
}

// 0: leave.
Answer AskHeading(const Console& console, std::size_t headings, std::size_t& index) {
  for (;;) {
    int number = 0;
    if (const Answer answer = ask_integer(console, kSelectHeading, false, number); answer != Answer::ok) return answer;
    if (number >= 0 && static_cast<std::size_t>(number) <= headings) {
      index = static_cast<std::size_t>(number);
      return Answer::ok;
    }
    SayLine(console, kBadHeading);
  }
}

}  // namespace

void AskResponses(const FrequencyWork& work, ResultPlot& plot) {
  const Console& console = work.platform.console;
  const ResponseModel outline = OutlineOf(work.store);
  SayWhatIsRead(console, outline);
  std::vector<double> w_out;
  if (AskFrequencies(console, w_out) != Answer::ok) return SayLine(console, kAborted);
  for (;;) {
    std::size_t heading = 0;
    if (AskHeading(console, outline.headings.size(), heading) != Answer::ok) return SayLine(console, kAborted);
    if (heading == 0) return;
    TableQuestion question;
    question.file.prompt = kFile;
    question.done = kWritten;
    const FileAnswer answer = AskTable(work.platform, question, [&](ChosenFile& chosen) {
      return WriteResponses(work, heading - 1, w_out, chosen.out, plot);
    });
    if (answer != FileAnswer::opened) return SayLine(console, kAborted);
  }
}

}  // namespace zaview
