#include "frame/export_dialogue.h"

#include <string>
#include <string_view>

#include "analysis/run_exports/run_netcdf.h"
#include "analysis/run_exports/run_vtk.h"
#include "base/message.h"
#include "base/text.h"
#include "frame/ground/output_file.h"
#include "frame/ground/prompts.h"

namespace zaview {

namespace {

constexpr std::string_view kNetcdfFile = "Enter NetCDF output file name:\n(BLANK or QUIT to abort)";
constexpr std::string_view kVtkRoot = "Enter name that the VTK files begin with:\n(BLANK or QUIT to abort)";

// False: there is none.
bool AskName(const Console& console, std::string_view prompt, std::string& name) {
  return ask_text(console, prompt, "", name) == Answer::ok && !IsBlank(name);
}

}  // namespace

void AskNetcdf(const Platform& platform, const OutputSettings& settings, CaseStore& store) {
  const Console& console = platform.console;
  std::string name;
  if (!AskName(console, kNetcdfFile, name)) return;
  OutputFile out;
  if (!OpenOutput(platform, Trim(name), OpenHow::replace, out)) {
    Say(console, kOutputNotOpen, Trim(name), Because(out.why));
    return;
  }
  if (!WriteRunNetcdf(console, settings, store, out)) return DiscardOutput(out);
  if (CloseOutput(out)) Say(console, "{} {}", kNetcdfWritten, Trim(name));
  else Say(console, kOutputNotWritten, Trim(name), Because(out.why));
}

void AskVtk(const Platform& platform, const OutputSettings& settings, CaseStore& store) {
  std::string root;
  if (AskName(platform.console, kVtkRoot, root) && WriteRunVtk(platform, settings, Trim(root), store))
    Say(platform.console, kVtkWritten, Trim(root));
}

}  // namespace zaview
