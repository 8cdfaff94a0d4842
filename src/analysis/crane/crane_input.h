// The crane and cargo model as its input file gives it: groups 01 to 10 of a clean text, each list on lines of its own.
// Lengths, masses and so on in input units of the case, angles in degrees, rates over the time unit of the input.
//   01 CRANE_DOF CRANE_NCBL CRANE_IFRC CRANE_ISTP       06 CRANE_INCARGO; CRANE_SWING or CRANE_RATPT;
//   02 CRANE_MCARGO; CRANE_ICARGO(3,3)                     CRANE_RCARGO; CRANE_ACARGO; CRANE_XCARGO
//   03 CRANE_INCABLE; a line a cable                    07 CRANE_DMPCBL(6)
//   04 CRANE_RBASE0(3), a line a cable                  08 CRANE_ICNTRL; if it isn't 0: CRANE_RTLIM(4); CRANE_ACLIM(4);
//   05 CRANE_INBOOM; a line a cable                        CRANE_LIMIT(8); CRANE_NBANG; CRANE_BANG(4), a line each
//   09 CRANE_GTOPT                                      10 BOAT_FGEOM, which may be missing
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/crane/cargo_motion.h"
#include "base/platform.h"
#include "control/control_records.h"

namespace zaview {

inline constexpr std::string_view kCraneAborted = "Input error for crane & cargo model - Option Aborted";
inline constexpr std::string_view kRigidCables = "Cable(s) are assumed to be rigid";
inline constexpr std::string_view kNoCraneMemory = "ERROR - not enough memory for the crane & cargo model";

enum CableInput : int { kElasticCable = 1, kCableByStretch = 2, kRigidCable = 3 };
enum BoomInput : int { kBoomTip = 1, kBoomAngles = 2 };
enum CargoInput : int { kCargoSwing = 1, kCargoPoint = 2 };

struct CraneInput {
  int DOF = 3, NCBL = 1, IFRC = 0, ISTP = 1;
  double MCARGO = 0;
  std::array<Triple, 3> ICARGO{};  // rows
  int INCABLE = kElasticCable;
  double LCABL0 = 0, ACABL = 0, ECABL = 0, R0 = 0;  // as INCABLE has them; R0: stretch under the static load
  std::array<Triple, kMaxCables> RBASE0{};          // input axes
  int INBOOM = kBoomTip;
  std::array<Triple, kMaxCables> boom{};  // RBOOM0, the tip in input axes; or LBOOM, slew, luff
  int INCARGO = kCargoSwing;
  Triple cargo{};  // SWING: azimuth, elevation, stretch; or RATPT, where the cables end, input axes
  Triple RCARGO{}, ACARGO{}, XCARGO{};
  std::array<double, 6> DMPCBL{};  // fractions of critical damping
  int ICNTRL = 0;
  std::array<double, 4> RTLIM{}, ACLIM{};   // luff, trolley, slew, cable
  std::array<double, 8> LIMIT{};            // low and high of each
  std::vector<std::array<double, 4>> BANG;  // time, slew, luff, cable length
  int GTOPT = 0;
  std::string BOAT_FGEOM;
};

// Tells what it reads, and what is wrong with it. False: the model can't be had.
[[nodiscard]] bool ReadCraneInput(const Platform& platform, const std::string& name, CraneInput& input);

// The model as a text that reads back to the same; its comment lines tell what was chosen.
[[nodiscard]] std::string CraneInputText(const CraneInput& input);

}  // namespace zaview
