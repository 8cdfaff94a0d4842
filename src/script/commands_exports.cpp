// Commands that write what other programs take from a run, step by step.
#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "analysis/run_exports/moving_mesh.h"
#include "analysis/run_exports/nndata.h"
#include "analysis/run_exports/point_slams.h"
#include "analysis/run_exports/run_netcdf.h"
#include "analysis/run_exports/run_vtk.h"
#include "base/text.h"
#include "script/call_arguments.h"
#include "script/command_table.h"
#include "script/write_table.h"

namespace zaview {

namespace {

constexpr std::string_view kLongName = "ERROR opening NNDATA module file {}";
constexpr std::string_view kNoHistory = "ERROR - {} : there is no time history in store";
constexpr std::string_view kWritingNetwork = "Writing NNDATA output file for all steps...";

int RunPointSlams(ScriptCall& call) {
  Session& session = call.session;
  std::vector<float> values;
  if (const int status = ReadNumbers(call, 3, values); status != kScriptOk) return status;
  std::array<double, 3> point{};
  std::copy(values.begin(), values.end(), point.begin());
  return WriteTable(call, "POINT_REL", "Point slam history written to file", [&](OutputFile& file) {
    return WritePointSlams(call.console(), session.output, point, session.case_store, file);
  });
}

int RunMovingMesh(ScriptCall& call) {
  Session& session = call.session;
  const std::string name(Trim(NextScriptWord(call.words, kFreeText)));
  OutputArgument output;
  output.name = Trim(NextScriptWord(call.words, kFreeText));
  MovingMesh mesh;
  if (!ReadMovingMesh(session.platform, name, session.case_store, mesh)) return kScriptFailed;
  if (const int status = OpenNamedOutput(call, output.name, output.file); status != kScriptOk) return status;
  const bool good = WriteMovingMesh(session.output, session.case_store, mesh, output.file);
  return FinishOutput(call, output, StatusOf(call, "MOT", good ? DataFault::none : DataFault::no_memory),
                      "Moving HRL mesh written to file");
}

int RunNetworkData(ScriptCall& call) {
  Session& session = call.session;
  CaseStore& store = session.case_store;
  std::string name;
  if (const int status = ReadFileName(call, BlankName::refused, name, kLongName); status != kScriptOk) return status;
  NetworkInput input;
  if (!ReadNetworkInput(session.platform, name, input)) return kScriptFailed;
  if (!store.has_steps() || !store.time_history()) return Fail(call, kScriptFailed, kNoHistory, call.command);
  OutputArgument output;
  output.name = IsBlank(input.NNDATA_FILE) ? store.base_name + ".nndata" : std::string(Trim(input.NNDATA_FILE));
  if (const int status = OpenNamedOutput(call, output.name, output.file); status != kScriptOk) return status;
  SayLine(call.console(), kWritingNetwork);
  const DataFault fault = WriteNetworkData(call.console(), session.output, input, store, output.file);
  return FinishOutput(call, output, StatusOf(call, "WAV", fault), "NNDATA output written to file");
}

int RunNetcdf(ScriptCall& call) {
  Session& session = call.session;
  OutputArgument output;
  if (const int status = ReadFileName(call, BlankName::refused, output.name); status != kScriptOk) return status;
  if (const int status = OpenNamedOutput(call, output.name, output.file); status != kScriptOk) return status;
  const bool good = WriteRunNetcdf(call.console(), session.output, session.case_store, output.file);
  return FinishOutput(call, output, good ? kScriptOk : kScriptFailed, kNetcdfWritten);
}

int RunVtk(ScriptCall& call) {
  Session& session = call.session;
  std::string root;
  if (const int status = ReadFileName(call, BlankName::refused, root); status != kScriptOk) return status;
  if (!WriteRunVtk(session.platform, session.output, root, session.case_store)) return kScriptFailed;
  Say(call.console(), kVtkWritten, root);
  return kScriptOk;
}

constexpr Command kExports[] = {
    {{"WRITE_POINT_SLAMS"},
     kNeedsCase | kNeedsMotion,
     RunPointSlams,
     "x y z file",
     "When a point of the ship enters the water, and how fast"},
    {{"WRITE_MOVING_MESH", "WRITE_MOVING_HRL_MESH", "MOVING_MESH", "MOVING_HRL_MESH"},
     kNeedsCase | kNeedsMotion,
     RunMovingMesh,
     "name text",
     "An HRL mesh, or the hull for a blank name, as it moves with the ship: a mesh a step in the file text"},
    {{"WRITE_NETCDF"},
     kNeedsCase | kNeedsMotion,
     RunNetcdf,
     "file",
     "All histories of the run with units and long names, and its control text, as a NetCDF file"},
    {{"WRITE_VTK"},
     kNeedsCase | kNeedsMotion,
     RunVtk,
     "root",
     "The hull on its track and the sea, step by step, as VTK files for a viewer: root.pvd opens them all"},
    {{"NNDATA"},
     kNone,
     RunNetworkData,
     "name",
     "Inputs of a network, a record a step, as the module $NNDATA: in the file asks for them"},
};

}  // namespace

CommandFamily ExportCommands() {
  return kExports;
}

}  // namespace zaview
