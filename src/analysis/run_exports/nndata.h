// Data for an external model: a record a step of motions, forces, waves at points of the ship and on a grid about it,
// as the module $NNDATA: asks for them.
//   01 NNDATA_FILE                      where it goes; blank: the case's name with .nndata
//   02 points, then NNDATA_RPT(3) each  points of the ship, INPUT axes and units
//   03 NNDATA_FSGT(6)                   x min, max, count, y min, max, count of the grid; output lengths, 0: none
#pragma once

#include <array>
#include <string>
#include <vector>

#include "base/data_fault.h"
#include "base/platform.h"
#include "case/case_store.h"
#include "case/output_settings.h"
#include "control/control_records.h"
#include "frame/ground/output_file.h"

namespace zaview {

inline constexpr int kMostNetworkPoints = 10000;  // of the ship; of the grid

struct NetworkGrid {
  double low[2]{}, high[2]{};
  int count[2]{};
};

struct NetworkInput {
  std::string NNDATA_FILE;
  std::vector<Triple> NNDATA_RPT;
  NetworkGrid NNDATA_FSGT;
};

// The module's file, with or without its $ line, its sets announced by their comment lines or in order. What is missing
// at the end isn't asked for. False: told.
[[nodiscard]] bool ReadNetworkInput(const Platform& platform, const std::string& name, NetworkInput& input);

// A row a step in use: time, motion(6), vmgshp(6), acc(6), Ftotals(6), eta_cg, of each point z and deltaZ, elevations
// of the grid about the CG, turned by the yaw, y fastest. Output units with sign factors. said: the case has
// no such quantity.
[[nodiscard]] DataFault WriteNetworkData(const Console& console, const OutputSettings& settings,
                                         const NetworkInput& input, CaseStore& case_store, OutputFile& out);

}  // namespace zaview
