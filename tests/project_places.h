// Where the project and its program are: the one place of the tests that knows paths of this build. And files of a
// test.
#pragma once

#include <string>
#include <vector>

[[nodiscard]] std::string ProjectFile(const std::string& name);  // "samples/first.script"
[[nodiscard]] std::string TestedProgram();
[[nodiscard]] int RunTestedProgram(std::vector<std::string> words);  // in a child: it goes on as the program
[[nodiscard]] std::string FileBytes(const std::string& name);        // blank: it can't be read
[[nodiscard]] std::string SampleBytes(const std::string& name);      // of the folder of samples

struct TemporaryFolder {  // gone with its owner
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  [[nodiscard]] std::string Name(const std::string& name) const { return path + "/" + name; }

  std::string path;
};
