// A script on a small case in memory, and what it says.
#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "case/output_scales.h"
#include "fake_platform.h"
#include "project_places.h"
#include "script/open_script_file.h"

namespace zaview {

inline void FillHistory(StepHistory& history, std::size_t components, std::size_t steps) {
  history.component.assign(components, std::vector<float>(steps, 1.0F));
}

// 100 steps, no cuts.
inline void GiveCase(CaseStore& store) {
  store.file_name = "run.out";
  store.has_case = true;
  store.nstep_expected = store.last_read = store.last_step = 100;
  FillHistory(store.time, 1, 100);
  for (std::size_t i = 0; i < 100; ++i) store.time.component[0][i] = static_cast<float>(i);
  for (StepHistory* history : {&store.pmgg, &store.vmg, &store.acc}) FillHistory(*history, 6, 100);
  FillHistory(store.force, 30, 100);
}

struct ScriptRun {
  FakePlatform fake;
  Session session;
  int status = 0;

  explicit ScriptRun(const std::string& text, bool with_case = true) {
    fake.Put("s", text);
    session.platform = fake.Get();
    set_output_scales(session.output.units, false);
    if (with_case) GiveCase(session.case_store);
  }
  void Run() { status = OpenScriptFile(session, "s"); }
};

inline std::vector<std::string> SplitAt(const std::string& text, char between) {  // a bar at the end ends the last one
  std::vector<std::string> words;
  std::istringstream in(text);
  for (std::string word; std::getline(in, word, between);) words.push_back(word);
  return words;
}

// What is said between "Reading .." and the closing line, echoes left out.
inline std::string Said(const std::string& output) {
  std::string said;
  std::size_t begin = output.find('\n') + 1;
  while (begin < output.size()) {
    const std::size_t end = output.find('\n', begin);
    const std::string line = output.substr(begin, end - begin + 1);
    if (line.rfind("ZAVIEW Scripting: ", 0) != 0) said += line;
    begin = end + 1;
  }
  return said;
}

// The closing line, by status.
inline constexpr const char* kEnd[] = {"\nSuccessfully parsed ZAVIEW script file : s\n",
                                       "",
                                       "",
                                       "ERROR parsing ZAVIEW script file : s\n",
                                       "Argument ERROR in ZAVIEW script file : s\n",
                                       "ERROR executing ZAVIEW script file : s\n"};

// The lines behind the message of a fault.
inline std::string AfterFault(int line_number, const std::string& line, int status) {
  const std::string place = "        at line " + std::to_string(line_number) + " of s : " + line + "\n";
  const std::string command = line.substr(0, line.find(' '));
  return place + (status == kScriptBadArgument ? "        zaview -help " + command + " tells its arguments\n" : "") +
         kEnd[status];
}

}  // namespace zaview
