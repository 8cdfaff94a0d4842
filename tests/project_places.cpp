#include "project_places.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <unistd.h>

std::string ProjectFile(const std::string& name) {
  return ZAVIEW_SOURCE_DIR "/" + name;
}

std::string TestedProgram() {
  return ZAVIEW_PROGRAM;
}

int RunTestedProgram(std::vector<std::string> words) {
  words.insert(words.begin(), "zaview");
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  ::execv(ZAVIEW_PROGRAM, arguments.data());
  return 127;
}

std::string FileBytes(const std::string& name) {
  std::ifstream in(name, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

std::string SampleBytes(const std::string& name) {
  return FileBytes(ProjectFile("samples/" + name));
}

TemporaryFolder::TemporaryFolder() : path((std::filesystem::temp_directory_path() / "zaview-test-XXXXXX").string()) {
  if (::mkdtemp(path.data()) == nullptr) std::abort();
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path, ignored);
}
