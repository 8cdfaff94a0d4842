// Programs that this one starts and writes to, over pipes and without a shell.
#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

#include "base/platform.h"

namespace zaview {

struct ChildProcess {
  pid_t id = 0;     // 0: it is over
  int input = -1;   // our end of its standard input
  int errors = -1;  // a file in memory: its error output
};
using Children = std::vector<ChildProcess>;  // by ChildHandle

[[nodiscard]] bool IsOnPath(const std::string& name);
[[nodiscard]] ChildHandle StartChild(Children& children, const std::vector<std::string>& words);
[[nodiscard]] int InputOfChild(const Children& children, ChildHandle child);
[[nodiscard]] bool FinishChild(Children& children, ChildHandle child, std::string& said);
void StopChild(Children& children, ChildHandle child);
void StopChildren(const Children& children);  // the run ends: nothing is given back

}  // namespace zaview
