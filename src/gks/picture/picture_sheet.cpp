#include "gks/picture/picture_sheet.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "base/grow.h"
#include "base/message.h"
#include "base/text.h"
#include "frame/ground/output_file.h"
#include "gks/picture/cairo_picture.h"
#include "gks/picture/dump_names.h"
#include "gks/picture/picture_file.h"
#include "gks/picture/recorded_picture.h"

namespace zaview {

namespace {

constexpr fmt::string_view kWriting = "DumpWindow - Writing {} file {}";
constexpr fmt::string_view kOnPage = "Picture {} of page {}";
constexpr std::string_view kEmptySheet = "ERROR - Page has no pictures, nothing is written";
constexpr fmt::string_view kTooLarge =
    "ERROR - Page {} would have {} x {} pixels, of {} a side at most : fewer rows or columns, a smaller window, "
    "or an SVG or PDF file";
constexpr std::string_view kNoLibrary = "the library of PDF files and smooth pictures is not here";

// Told with the first picture, not when the last one is there.
bool Fits(const Platform& platform, const PictureSheet& sheet, const PictureRecording& picture) {
  PictureFormat format{};
  if (FormatOfName(sheet.name, format) && IsVector(format)) return true;
  const std::int64_t width = std::int64_t{picture.width} * sheet.columns;
  const std::int64_t height = std::int64_t{picture.height} * sheet.rows;
  if (std::max(width, height) <= kMostImageSide) return true;
  Say(platform.console, kTooLarge, sheet.name, width, height, kMostImageSide);
  return false;
}

}  // namespace

bool WriteRecordings(const Platform& platform, std::string_view name, const std::vector<const PictureRecording*>& cells,
                     int columns) {
  PictureFormat format = PictureFormat::png;
  static_cast<void>(FormatOfName(name, format));
  const std::string file(name);
  std::string bytes, why;
  Say(platform.console, kWriting, FormatWord(format), file);
  if (!EncodeRecorded(format, {cells, columns}, bytes)) {
    const bool missing = format != PictureFormat::svg && !CanDrawRecorded();
    Say(platform.console, kNotWritten, file, Because(missing ? kNoLibrary : kWhyNoMemory));
    return false;
  }
  if (StorePicture(platform, file, bytes, &why)) return true;
  Say(platform.console, kNotWritten, file, Because(why));
  return false;
}

bool BeginSheet(GksState& gks, int rows, int columns, std::string_view name) {
  PictureFormat format = PictureFormat::png;
  if (rows < 1 || columns < 1 || rows > kMostCells / columns || !FormatOfName(name, format)) return false;
  if (!IsVector(format) && format != PictureFormat::png) return false;
  gks.sheet = PictureSheet{};
  gks.sheet.rows = rows;
  gks.sheet.columns = columns;
  gks.sheet.name = TrimEnd(name);
  return true;
}

bool AddToSheet(const Platform& platform, GksState& gks) {
  PictureSheet& sheet = gks.sheet;
  if (sheet.cells.empty() && !Fits(platform, sheet, gks.recording)) {
    sheet = PictureSheet{};
    return false;
  }
  const auto copy = [&] {
    sheet.cells.push_back(gks.recording);  // a window shows it further on
    return true;
  };
  if (!gks.paint.scalable || !gks.recording.whole || !Guarded(copy, false)) {
    SayLine(platform.console, gks.paint.scalable ? kNoMemory : kNoPicture);
    return false;
  }
  sheet.cells.back().shown = nullptr;
  const std::size_t count = sheet.cells.size();
  Say(platform.console, kOnPage, count, sheet.name);
  const bool full = count == static_cast<std::size_t>(sheet.rows) * static_cast<std::size_t>(sheet.columns);
  return !full || FinishSheet(platform, gks);
}

bool FinishSheet(const Platform& platform, GksState& gks) {
  if (!gks.sheet.open()) return true;
  const PictureSheet sheet = std::exchange(gks.sheet, PictureSheet{});
  std::vector<const PictureRecording*> cells;
  if (!Reserve(cells, sheet.cells.size())) {
    SayLine(platform.console, kNoMemory);
    return false;
  }
  for (const PictureRecording& cell : sheet.cells) cells.push_back(&cell);
  if (!cells.empty()) return WriteRecordings(platform, sheet.name, cells, sheet.columns);
  SayLine(platform.console, kEmptySheet);
  return false;
}

}  // namespace zaview
