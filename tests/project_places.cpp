#include "project_places.h"

std::string ProjectFile(const std::string& name) {
  return ZAVIEW_SOURCE_DIR "/" + name;
}

std::string TestedProgram() {
  return ZAVIEW_PROGRAM;
}
