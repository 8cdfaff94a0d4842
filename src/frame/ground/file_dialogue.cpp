#include "frame/ground/file_dialogue.h"

#include "base/message.h"
#include "base/text.h"
#include "frame/ground/prompts.h"

namespace zaview {

namespace {

constexpr std::string_view kMissing = "ERROR - File {} does not exist ... re-specify";
constexpr std::string_view kOpenFailed = "ERROR opening file {} ... re-specify{}";
constexpr std::string_view kExists = "File {} already exists";
constexpr std::string_view kOverwrite = "Overwrite? (y/n/append)";
constexpr std::string_view kNotOverwritten = " file not overwritten ... re-specify";
constexpr std::string_view kInvalidUse = "Programming ERROR - invalid INOUT= {} in OPNFIL";
constexpr std::string_view kContact = "    contact program developer";

enum class Step : std::uint8_t { done, again, aborted, word };

struct Switches {
  bool append = false;
  bool unformatted = false;
};

// Takes the switches off the end of an answer; a name is left over.
Switches TakeSwitches(std::string& name) {
  Switches switches;
  for (;;) {
    const std::size_t blank = name.find_last_of(" \t");
    if (blank == std::string::npos || IsBlank(std::string_view(name).substr(0, blank))) return switches;
    const std::string last = Capitals(std::string_view(name).substr(blank + 1));
    if (last != "APPEND" && last != "UNFORMATTED") return switches;
    (last == "APPEND" ? switches.append : switches.unformatted) = true;
    name = TrimEnd(std::string_view(name).substr(0, blank));
  }
}

bool HasExtension(std::string_view name) {
  const std::size_t slash = name.rfind('/');
  return Contains(slash == std::string_view::npos ? name : name.substr(slash + 1), ".");
}

Step AskOverwrite(const Console& console, const std::string& name, OpenHow& how) {
  Say(console, kExists, name);
  for (;;) {
    std::string answer;
    if (ask_text(console, kOverwrite, "", answer) != Answer::ok) return Step::aborted;
    const std::string word = Capitals(Trim(answer));
    how = StartsWith(word, "A") ? OpenHow::append : OpenHow::replace;
    if (StartsWith(word, "Y") || StartsWith(word, "A")) return Step::done;
    if (!StartsWith(word, "N")) continue;
    SayLine(console, kNotOverwritten);
    return Step::again;
  }
}

Step OpenInput(const Platform& platform, const FileQuestion& question, ChosenFile& chosen) {
  const Switches switches = TakeSwitches(chosen.name);
  const Files& files = platform.files;
  if (!files.facts(files.self, chosen.name).exists) {
    const std::string longer = chosen.name + std::string(question.extension);
    if (!files.facts(files.self, longer).exists) {
      Say(platform.console, kMissing, chosen.name);
      return Step::again;
    }
    chosen.name = longer;
  }
  chosen.unformatted = switches.unformatted || question.form == FileForm::unformatted;
  chosen.file = files.open_read(files.self, chosen.name);
  if (chosen.file != kNoFile) return Step::done;
  Say(platform.console, kOpenFailed, chosen.name, Because(files.why(files.self)));
  return Step::again;
}

Step OpenForOutput(const Platform& platform, const FileQuestion& question, ChosenFile& chosen) {
  const Switches switches = TakeSwitches(chosen.name);
  if (!IsBlank(chosen.name) && !HasExtension(chosen.name)) chosen.name += question.extension;
  OpenHow how = switches.append ? OpenHow::append : OpenHow::replace;
  const FileFacts facts = platform.files.facts(platform.files.self, chosen.name);
  if (facts.exists && facts.plain && !switches.append) {
    const Step step = AskOverwrite(platform.console, chosen.name, how);
    if (step != Step::done) return step;
  }
  chosen.unformatted = switches.unformatted || question.form == FileForm::unformatted;
  if (OpenOutput(platform, chosen.name, how, chosen.out)) return Step::done;
  Say(platform.console, kOpenFailed, chosen.name, Because(chosen.out.why));
  return Step::again;
}

Step AskOnce(const Platform& platform, const FileQuestion& question, ChosenFile& chosen) {
  if (ask_text(platform.console, question.prompt, "", chosen.name) != Answer::ok) return Step::aborted;
  if (!question.word.empty() && Capitals(Trim(chosen.name)) == question.word) return Step::word;
  if (question.use == FileUse::input && !IsBlank(chosen.name)) return OpenInput(platform, question, chosen);
  if (question.use == FileUse::output && !IsBlank(chosen.name)) return OpenForOutput(platform, question, chosen);
  if (question.use == FileUse::output && question.blank_is_console)
    return OpenOutput(platform, "", OpenHow::replace, chosen.out) ? Step::done : Step::aborted;
  SayLine(platform.console, kNameWanted);
  return Step::again;
}

}  // namespace

FileAnswer OPNFIL(const Platform& platform, const FileQuestion& question, ChosenFile& chosen) {
  if (question.use != FileUse::input && question.use != FileUse::output) {
    Say(platform.console, kInvalidUse, static_cast<int>(question.use));
    SayLine(platform.console, kContact);
    return FileAnswer::aborted;
  }
  for (;;) {
    chosen = ChosenFile{};
    const Step step = AskOnce(platform, question, chosen);
    if (step == Step::done) return FileAnswer::opened;
    if (step == Step::aborted) return FileAnswer::aborted;
    if (step == Step::word) return FileAnswer::word;
  }
}

bool AskFormattedFile(const Platform& platform, std::string_view prompt, std::string_view extension,
                      ChosenFile& chosen) {
  const FileQuestion question{
      .use = FileUse::output, .prompt = prompt, .extension = extension, .blank_is_console = true};
  if (OPNFIL(platform, question, chosen) != FileAnswer::opened) return false;
  if (chosen.unformatted) SayLine(platform.console, kFormattedOnly);
  return true;
}

}  // namespace zaview
