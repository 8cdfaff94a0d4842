// Where the project and its program are: the one place of the tests that knows paths of this build.
#pragma once

#include <string>

[[nodiscard]] std::string ProjectFile(const std::string& name);  // "samples/first.script"
[[nodiscard]] std::string TestedProgram();
