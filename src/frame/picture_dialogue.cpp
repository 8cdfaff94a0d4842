#include "frame/picture_dialogue.h"

#include <string>
#include <string_view>

#include "base/message.h"
#include "base/text.h"
#include "frame/ground/prompts.h"
#include "gks/kernel/gks_control.h"
#include "gks/picture/picture_sheet.h"

namespace zaview {

namespace {

constexpr std::string_view kStyles[] = {"Style of pictures:", " 0 - Classic", " 1 - Report"};
constexpr std::string_view kIllegal = "ERROR - illegal value";
constexpr std::string_view kRows = "Enter number of rows of a page of pictures (0: no page)=>";
constexpr std::string_view kColumns = "Enter number of pictures in a row=>";
constexpr std::string_view kFile = "Enter file name of the page (.svg, .pdf or .png)\n(BLANK or QUIT for no page)";
constexpr std::string_view kBadPage =
    "ERROR - a page has up to {} pictures, and a file that ends in .svg, .pdf or .png";
constexpr std::string_view kOpened = "Press W in a plot to put it onto the page, which is written when it is full";

bool AskStyle(const Console& console, GksState& gks) {
  for (const std::string_view line : kStyles) SayLine(console, line);
  for (;;) {
    int style = static_cast<int>(gks.style);
    if (ask_integer(console, "Select =>", true, style) != Answer::ok) return false;
    if (style == 0 || style == 1) {
      gksSetStyle(gks, static_cast<PictureStyle>(style));
      return true;
    }
    SayLine(console, kIllegal);
  }
}

}  // namespace

void AskPictures(const Platform& platform, GksState& gks) {
  const Console& console = platform.console;
  static_cast<void>(FinishSheet(platform, gks));
  if (!AskStyle(console, gks)) return;
  int rows = 0, columns = 1;
  std::string name;
  if (ask_integer(console, kRows, true, rows) != Answer::ok || rows == 0 ||
      ask_integer(console, kColumns, true, columns) != Answer::ok || ask_text(console, kFile, "", name) != Answer::ok ||
      IsBlank(name))
    return;
  if (BeginSheet(gks, rows, columns, name)) SayLine(console, kOpened);
  else Say(console, kBadPage, kMostCells);
}

}  // namespace zaview
