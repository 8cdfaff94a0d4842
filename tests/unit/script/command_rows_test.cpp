// The columns of the commands that the reference shows, against what the handlers take.
#include <algorithm>

#include <gtest/gtest.h>

#include "script/argument_forms.h"
#include "script/command_table.h"
#include "unit/script/script_run.h"

namespace zaview {
namespace {

using Words = std::vector<std::string>;

std::string ExampleOf(const std::string& name) {
  for (const ArgumentForm& form : ArgumentForms())
    if (form.name == name) return std::string(form.example);
  const bool word =
      !name.empty() && std::none_of(name.begin(), name.end(), [](char c) { return c >= 'a' && c <= 'z'; });
  EXPECT_TRUE(word) << name << " is no argument";
  return name;
}

// What is said of a command of a run with an ensemble of one and all it may need; the last line is a STOP.
std::string SaidOf(const std::string& line) {
  static const std::string run_file = SampleBytes("irregular_head.out");
  ScriptRun run("READ run.out\n" + line + "\nSTOP\n", false);
  run.fake.Put("run.out", run_file);
  run.fake.Put("m.mot", "quay\n0\n0 1 2 3 0 0 0\n1 1 2 3 0 0 0\n");
  run.session.platform.choose_window = [](const Platform&) {
    WindowSystem window;
    window.start = [](void*, const WindowEvents&, std::string&) { return true; };
    return window;
  };
  run.Run();
  return run.fake.output;
}

bool Complains(const std::string& said) {
  for (const char* words : {"nsufficient arg", "left over", "took the command", "nvalid arg", "nvalid value",
                            "nvalid stat", "nvalid quantity", "nrecognized", "llegal value", "parsing value"})
    if (said.find(words) != std::string::npos) return true;
  return false;
}

// Every alternative of every argument is taken, nothing is left over; without its last argument a command asks for
// more.
TEST(CommandRows, ArgumentsAreThoseOfTheHandler) {
  for (const CommandFamily& family : AllCommands())
    for (const Command& command : family) {
      if (command.meaning.empty()) continue;
      Words words = SplitAt(std::string(command.arguments), ' ');
      std::string line(command.names[0]);
      for (std::size_t i = 0; i < words.size(); ++i) {
        const bool optional = words[i][0] == '[';
        if (optional) words[i] = words[i].substr(1, words[i].size() - 2);
        const Words alternatives = SplitAt(words[i], '|');
        if (i + 1 == words.size()) {
          for (const std::string& alternative : alternatives) {
            const std::string whole = line + ' ' + ExampleOf(alternative);
            const std::string said = SaidOf(whole);
            EXPECT_FALSE(Complains(said)) << whole << '\n' << said;
          }
          // The sample has no hull and is no impulsive run.
          const bool refused = (command.needs & (kNeedsGeometry | kNeedsImpulsive)) != 0;
          if (words[i] != "value" && !refused) {  // any word will do for it
            EXPECT_NE(Complains(SaidOf(line)), optional) << line;
          }
        }
        line += ' ' + ExampleOf(alternatives[0]);
      }
      if (words.empty()) {
        EXPECT_FALSE(Complains(SaidOf(line))) << line;
      }
    }
}

}  // namespace
}  // namespace zaview
