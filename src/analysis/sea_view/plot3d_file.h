// The bytes of PLOT3D files of one structured block, as viewers detect them by themselves: little-endian Fortran
// records with 4-byte marks, several blocks allowed, 4-byte reals, i fastest.
//   grid: the count of blocks; ni nj nk; all x, all y, all z
//   functions: the count of blocks; ni nj nk and the count of functions; function after function
// P. P. Walatka and others, PLOT3D User's Manual, NASA TM 101067 (1990).
#pragma once

#include <array>
#include <span>
#include <vector>

#include "frame/ground/output_file.h"

namespace zaview {

struct Plot3dBlock {
  std::array<int, 3> n{};                  // ni nj nk
  std::vector<std::vector<float>> values;  // x, y, z; functions; each ni nj nk long
};

void WritePlot3dGrid(const Plot3dBlock& block, OutputFile& out);
void WritePlot3dFunctions(const Plot3dBlock& block, OutputFile& out);

}  // namespace zaview
