#include "gks/picture/window_dump.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include "base/grow.h"
#include "base/message.h"
#include "base/text.h"
#include "gks/picture/dump_names.h"
#include "gks/picture/picture_file.h"
#include "gks/picture/picture_sheet.h"

namespace zaview {

namespace {

constexpr fmt::string_view kIllegalOption = "LOGIC error - Illegal Dump_Option={} in GKSDUMP";
constexpr fmt::string_view kUnknownEnding =
    "WARNING - {} : pictures end in .png, .svg, .pdf, .gif or .bmp; this one is written as {}";
constexpr fmt::string_view kWriting = "DumpWindow - Writing PNG file {}";
constexpr fmt::string_view kConverting = "DumpWindow - ppm2gif {} {}";

constexpr std::string_view kStep = "gl.png";  // on the way to the other formats; it stays

struct DumpKind {
  int fixed, numbered;  // options
  PictureFormat format;
  std::string_view extension;
};
constexpr DumpKind kKinds[] = {
    {1, 2, PictureFormat::gif, "gif"},
    {3, 4, PictureFormat::bmp, "bmp"},
    {5, 6, PictureFormat::png, "png"},
};
constexpr int kUsualOption = 6;  // what -1 stands for

const DumpKind* KindOfOption(int option) {
  for (const DumpKind& kind : kKinds)
    if (option == kind.fixed || option == kind.numbered) return &kind;
  return nullptr;
}

const DumpKind* KindOfName(std::string_view name) {
  PictureFormat format{};
  if (!FormatOfName(name, format)) return nullptr;
  for (const DumpKind& kind : kKinds)
    if (kind.format == format) return &kind;
  return nullptr;
}

bool WriteWindow(const Platform& platform, const GksState& gks, const DumpKind& kind, const std::string& name) {
  const int width = gks.window.width, height = gks.window.height;
  if (width < 1 || height < 1) return false;
  std::vector<unsigned char> rgb;
  if (!Grow(rgb, static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 3)) {
    SayLine(platform.console, kNoMemory);
    return false;
  }
  if (!platform.window.read_picture(platform.window.self, width, height, rgb.data())) {
    SayLine(platform.console, kNoPicture);
    return false;
  }
  const auto write = [&](const std::string& file, PictureFormat format) {
    std::string why;
    if (WritePicture(platform, file, format, width, height, rgb, &why)) return true;
    Say(platform.console, kNotWritten, file, Because(why));
    return false;
  };
  if (kind.format == PictureFormat::png) Say(platform.console, kWriting, name);
  else {
    static_cast<void>(write(std::string(kStep), PictureFormat::png));
    Say(platform.console, kConverting, kStep, name);
  }
  return write(name, kind.format);
}

bool WriteVector(const Platform& platform, const GksState& gks, const std::string& name) {
  if (gks.paint.scalable) return WriteRecordings(platform, name, {&gks.recording}, 1);
  SayLine(platform.console, kNoPicture);
  return false;
}

}  // namespace

bool GKSDUMP(const Platform& platform, GksState& gks, int option) {
  const int wanted = option == -1 ? kUsualOption : option;
  const DumpKind* kind = KindOfOption(wanted);
  if (kind == nullptr) {
    Say(platform.console, kIllegalOption, option);
    return false;
  }
  std::string name(TrimEnd(std::exchange(gks.dump.name, {})));
  if (PictureFormat format{}; FormatOfName(name, format) && IsVector(format)) return WriteVector(platform, gks, name);
  if (name.empty() && gks.sheet.open()) return AddToSheet(platform, gks);
  if (!name.empty()) {
    const DumpKind* const named = KindOfName(name);
    if (named == nullptr && name.find('.') != std::string::npos)
      Say(platform.console, kUnknownEnding, name, FormatWord(kind->format));
    return WriteWindow(platform, gks, named == nullptr ? *kind : *named, name);
  }
  if (wanted == kind->fixed) return WriteWindow(platform, gks, *kind, fmt::format("gl.{}", kind->extension));
  if (!TakeFreeName(platform.files, kind->extension, name)) {
    Say(platform.console, kNoMoreNames, kind->extension);
    return false;
  }
  if (WriteWindow(platform, gks, *kind, name)) return true;
  static_cast<void>(platform.files.remove(platform.files.self, name));
  return false;
}

}  // namespace zaview
