// The numbered records of a case's control text, under the names of their comment lines. Fields hold what is written
// there, in input units, reals as doubles; input_scales.h makes them non-dimensional. Data only.
#pragma once

#include <array>
#include <string>
#include <vector>

namespace zaview {

inline constexpr int MAXDYN = 3;    // ships
inline constexpr int MAXCMP = 100;  // geometry components
inline constexpr int MAXSTA = 121;
inline constexpr int MAXWL = 121;
inline constexpr int MAXFEG = 5000;
inline constexpr int MAXBP = 5000;
inline constexpr int MAXBP0 = 9000;
inline constexpr int MAXFP = 9500;
inline constexpr int MAXMP = 320;
inline constexpr int MAXTP = 10000;
inline constexpr int MXFIN = 100;
inline constexpr int MXBK = 5;
inline constexpr int MXVSTA = 20;
inline constexpr int MXEFOR = 100;
inline constexpr int MXPOTH = 3;
inline constexpr int MAXBCA = 25;     // load cuts
inline constexpr int MAXBMP = 350;    // mass points
inline constexpr int MXSPEC = 10000;  // components of a given sea; as many as a phase file may hold
inline constexpr int MAXGWL = 23;
inline constexpr int MAXGWB = 11;

using Triple = std::array<double, 3>;
using Sextet = std::array<double, 6>;

struct WaveComponentInput {  // one row of ISEA 1 or 3
  double FREQW = 0, PHASEW = 0, AMPW0 = 0, HEADW = 0;
};
struct AlternativeWaveInput {  // ISEA 4
  double KX = 0, KY = 0, AMP = 0, PHASE = 0, FREQ = 0, HEAD = 0;
};
struct WaveModeInput {  // ISEA 5
  double MODE_AMP = 0, MODE_PHASE = 0, MODE_FREQ = 0;
};

struct SeawayInput {  // record 21
  int ISEA = 0;
  std::vector<WaveComponentInput> waves;
  int WSPEC = 0;                                                                      // order of ISEA 3
  double SIGWHT = 0, TMODAL = 0;                                                      // 2
  double VWIND10 = 0, FETCH = 0, PEAKPRM = 0;                                         // 6 (PEAKPRM also 8)
  double SIGWHT1 = 0, TMODAL1 = 0, SHAPE1 = 0, SIGWHT2 = 0, TMODAL2 = 0, SHAPE2 = 0;  // 7
  double TOMODAL = 0;                                                                 // 8
  double SEAHD = 0, SPREAD = 0;
  int NFREQ = 0, NHEAD = 0, IWVRLZ = 0;
  int WAVEDIM1 = 0, WAVEDIM2 = 0;
  std::vector<AlternativeWaveInput> alternative;  // second index fastest
  double WAVE_HEAD = 0;
  std::vector<WaveModeInput> modes;
  int NWSC = 0;
  std::vector<int> WSCSTP;
  std::vector<double> WSCFAC;
};

struct GeometryComponentInput {  // record 28
  int KCTYPE0 = 0, NEWWL0 = 0, KSPWL0 = 0;
  double SPWL0 = 0;
  int NEWST0 = 0, KSPST0 = 0;
  double SPST0 = 0;
};
struct MassPointInput {  // record 29
  Triple XMS{};
  double AMS = 0;
  Triple AIS{}, AMI{};
  double DWS = 0, AWS = 0, EWS = 0;
};
struct AppendageInput {  // records 32, 33 (deflection only 32)
  Triple centre{}, span{}, chord{};
  double span_length = 0, chord_length = 0, deflection = 0;
};

struct ModuleText {                // a $NAME: block, kept as it stands
  std::string name;                // in capitals, without $ and colon
  std::string header;              // the $ line
  std::vector<std::string> lines;  // to the next $ line, comments included
  int entry = -1;                  // of the record that holds its fields; -1: they are not known
  std::size_t rest = 0;            // the first line behind the fields
  bool superseded = false;         // by a later block, while the modules are read
};

struct YCutLoads {  // $YCUTLOADS:
  int IVMY = 0, IHMY = 0, ITMY = 0;
  std::vector<Triple> XMCY;
};

struct AddedSeawayInput {  // $ADDSEA:; -1: not set
  SeawayInput sea;         // ISEA 2, 6, 7 or 8, without wave scaling
  std::array<double, 2> SPEC_FREQ{-1, -1};
  double SPEC_CUTOFF = -1;
  int SPEC_DISTOPT = -1, SPEC_SPREADOPT = -1, SPEC_PHASEOPTION = -1;
  std::string SPEC_PHASEFILE;
};

struct AddedGeometryInput {  // $ADDGEOM:, an entry a block
  std::string CADDGEOMFILE;
  int SYMINP = 0;
  std::vector<GeometryComponentInput> components;
  Triple GSHIFT{}, GORIG{}, GROT{};
};

struct WaveTableInput {  // $IWINTERP:
  int NBASEX = 0, NBASEY = 0, NBASEZ = 0;
  double XINTRP = 0, YINTRP = 0, ZINTRP = 0;
};

struct SurfacePointInput {
  int MPT = 0;
  Triple RFSPT{};
};
struct SurfacePointsInput {  // $IFSINTERP:
  std::vector<SurfacePointInput> points;
};

struct SpeedCommandInput {
  double CMDS_SPD_TIME = 0, CMDS_SPD = 0;
};
struct CommandsInput {  // $COMMANDS:, as far as its first two data sets go
  std::vector<SpeedCommandInput> speeds;
};

struct ExternalForceInput {  // $EXTFOR:, an entry a block
  int EXTFOROPT = 0;
  Sextet EXTFORVAL{};
};

struct RudderRollInput {  // $RRSTAB:
  double RRSTABGAIN1 = 0, RRSTABGAIN2 = 0;
};

struct VortexLatticeInput {  // $PENDA:
  std::string PENDA_GROUPNAME;
};

struct StabilityStepsInput {         // $GZSTAB:, its first data set
  std::array<int, 3> GZSTABSTEPS{};  // first, last, increment
};

struct ControlRecords {
  std::string DESCR, FPROG, FAPLT, FGEOM, FOUT;  // 01 to 05
  int POUT = 0, GOUT = 0, SOUT = 0, BOUT = 0;    // 06
  Triple XPOUT{};
  std::string FPOUT, FGOUT, FSOUT, FBOUT;  // 07 to 10
  std::array<int, 20> AUXOUT{};            // 11; the first is the unformatted mode
  int IVEC = 0;
  int ZVOTYP = 0, MOTYPE = 2, MIXED = 0;  // 13; MOTYPE 0 forced, 1 impulsive, 2 free
  int IFSMIX = 0, NXFS = 0, NYFS = 0, IMSMIX = 0, NXMS = 0, NZMS = 0;
  double XMIX = 0, YMIX = 0, ZMIX = 0;
  std::string FIRF0;
  double TINIT = 0;  // 14
  int NSTEP = 0;
  double DTH = 0;
  int IRST = 0;
  std::string FRST, FBDMEM, FWLMEM;
  double USHIP = 0, UCURNT = 0, DCURNT = 0, WDEPTH = 0;          // 15
  Sextet PMGIN{}, VMGSHP{};                                      // 16, 17
  Sextet AMPM{}, OMEGM{};                                        // 18, 19
  std::array<int, 6> SWTCH{};                                    // 20
  SeawayInput seaway;                                            // 21
  double GRAVIN = 9.81, RHOIN = 1025, LENIN = 1, ANGIN = 1;      // 22
  double GRAVOUT = 9.81, RHOOUT = 1025, LENOUT = 1, ANGOUT = 1;  // 23
  Triple GSHIFT{}, GORIG{}, GROT{};                              // 24
  double SMA = 0;                                                // 25
  std::array<Triple, 3> SMI{};                                   // SMI[i][j]: row i, column j
  Triple RGRAV{};                                                // 26
  int SYMGEO = 0, SYMINP = 0;                                    // 27
  std::vector<GeometryComponentInput> components;                // 28
  int IVM = 0, IHM = 0, ITM = 0;                                 // 29
  std::vector<Triple> XMC;                                       // NBCA cuts
  std::vector<MassPointInput> mass_points;                       // NBMX
  std::array<double, 8> STRDMP{};
  double KINVIS = 0;  // 30
  int IHROLL = 0;
  double CRITDAMP = 0, CFROLL = 0, CFROLL2 = 0, CFROLL3 = 0, CFROLL4 = 0;
  int IHLIFT = 0;  // 31
  Triple ptransom{}, cent_hlift{};
  double blratio = 0, deadriseang = 0, fact_hlift = 0;
  std::vector<AppendageInput> fins, bilge_keels;  // 32, 33
  std::vector<ModuleText> modules;
  YCutLoads ycut;
  std::vector<AddedSeawayInput> added_seaway;  // none or one
  std::vector<AddedGeometryInput> added_geometry;
  std::vector<WaveTableInput> wave_table;          // none or one
  std::vector<SurfacePointsInput> surface_points;  // none or one
  std::vector<CommandsInput> commands;             // none or one
  std::vector<ExternalForceInput> external_forces;
  std::vector<RudderRollInput> rudder_roll;          // none or one
  std::vector<VortexLatticeInput> vortex_lattice;    // none or one
  std::vector<StabilityStepsInput> stability_steps;  // none or one
};

}  // namespace zaview
