// make_reference PROJECT: writes the files of the reference anew.
#include <cstdio>
#include <fstream>
#include <string>

#include "frame/reference_files.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage : make_reference PROJECT\n", stderr);
    return 2;
  }
  for (const zaview::ReferenceFile& file : zaview::ReferenceFiles()) {
    std::ofstream out(std::string(argv[1]) + '/' + std::string(file.name), std::ios::binary);
    out << file.text();
    if (!out.flush()) {
      std::fprintf(stderr, "make_reference: %s/%s can't be written\n", argv[1], std::string(file.name).c_str());
      return 1;
    }
  }
  return 0;
}
