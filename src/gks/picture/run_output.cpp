#include "gks/picture/run_output.h"

#include <algorithm>
#include <iterator>
#include <new>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include "base/grow.h"
#include "base/message.h"
#include "base/text.h"
#include "frame/ground/output_file.h"
#include "gks/picture/dump_names.h"

namespace zaview {

namespace {

constexpr fmt::string_view kWriting = "DumpWindow - Writing {} file {}";
constexpr fmt::string_view kNoVideo = "ERROR - Video can't be written : {}{}";
constexpr fmt::string_view kTooMany =
    "ERROR - {} picture{}, and not so many numbers in a row are free : STEP_INCREMENT makes fewer of them";
constexpr fmt::string_view kNoProgram = "ERROR - {} not found";
constexpr std::string_view kInPlace = "a video needs a plain file in a folder that takes new ones";
constexpr std::string_view kOtherSize = "the window has another size by now";

constexpr std::string_view kVideoProgram = "ffmpeg";

struct VideoRow {
  std::string_view word;                         // the extension in capitals, as messages have it
  std::string_view container;                    // as the program calls it
  std::vector<std::string> (*more)() = nullptr;  // and what else it is told
};
std::vector<std::string> IndexAhead() {  // a player can begin before it has all
  return {"-movflags", "+faststart"};
}
std::vector<std::string> Quickly() {  // the encoder's own choice takes seconds a picture
  return {"-deadline", "realtime", "-cpu-used", "8", "-b:v", "4M"};
}
const VideoRow kVideos[] = {{"MP4", "mp4", IndexAhead}, {"MKV", "matroska"}, {"WEBM", "webm", Quickly}, {"AVI", "avi"}};

std::string_view ExtensionOf(std::string_view name) {
  const std::size_t dot = name.rfind('.');
  const std::size_t slash = name.rfind('/');
  if (dot == std::string_view::npos || (slash != std::string_view::npos && slash > dot)) return {};
  return name.substr(dot + 1);
}

const VideoRow* VideoOfName(std::string_view name) {
  const std::string end = Capitals(ExtensionOf(name));
  const auto* const found =
      std::find_if(std::begin(kVideos), std::end(kVideos), [&](const VideoRow& row) { return row.word == end; });
  return found == std::end(kVideos) ? nullptr : found;
}

// What is done with the pictures of one kind of run. Null: nothing.
struct OutputRow {
  bool (*begin)(RunOutput& output);    // ahead of all; false has been said, as all that follow but `make`
  bool (*picture)(RunOutput& output);  // one is in hand: its name; for the first its size is known
  bool (*make)(RunOutput& output);     // by the second thread: of what is in hand
  bool (*store)(RunOutput& output);    // what was made
  bool (*end)(RunOutput& output);
};
const OutputRow& RowOf(RunPictures kind);

}  // namespace

struct RunOutput {
  const Platform* platform = nullptr;
  RunOutputOrder order;
  int number = 1;  // of the picture that comes next

  // The picture in hand; the second thread has it until it is joined.
  int width = 0, height = 0;
  std::vector<unsigned char> rgb;
  std::string name, bytes, why;  // why: of what could not be made
  bool in_hand = false, made = false;
  std::thread maker;

  OutputFile file;  // of a video: its place beside the name, until it is whole
  ChildHandle child = kNoChild;
};

namespace {

// ---- Picture files

bool SayFault(const RunOutput& output, fmt::string_view text, std::string_view why) {
  Say(output.platform->console, fmt::runtime(text), output.name, Because(why));
  return false;
}

bool FindNumbers(RunOutput& output) {
  const std::string_view extension = "png";
  output.number = FreeBlock(output.platform->files, extension, output.number, output.order.count);
  if (output.number > 0) return true;
  const Console& console = output.platform->console;
  Say(console, kNoMoreNames, extension);
  Say(console, kTooMany, output.order.count, output.order.count == 1 ? "" : "s");
  return false;
}

// Taken by somebody else meanwhile: the rest of the run goes behind that.
bool TakeNumber(RunOutput& output) {
  const Files& files = output.platform->files;
  for (;;) {
    output.name = DumpName(output.number, "png");
    if (!files.facts(files.self, output.name).exists && TakeName(files, output.name)) break;
    if (!FindNumbers(output)) return false;
  }
  ++output.number;
  --output.order.count;
  Say(output.platform->console, kWriting, "PNG", output.name);
  return true;
}

bool MakeName(RunOutput& output) {
  constexpr std::size_t kLeastDigits = 4;
  const std::string_view name = output.order.name;
  const std::size_t root = name.size() - ExtensionOf(name).size() - 1;
  const std::size_t digits = std::max(kLeastDigits, std::to_string(output.order.count).size());
  output.name = fmt::format("{}{:0{}}{}", name.substr(0, root), output.number++, digits, name.substr(root));
  Say(output.platform->console, kWriting, FormatWord(output.order.format), output.name);
  return true;
}

bool Encode(RunOutput& output) {
  return EncodePicture(output.order.format, output.width, output.height, output.rgb, output.bytes, &output.why);
}

bool Store(RunOutput& output) {
  if (output.made && StorePicture(*output.platform, output.name, output.bytes, &output.why)) return true;
  return SayFault(output, kNotWritten, output.why);
}

bool StoreTaken(RunOutput& output) {
  if (Store(output)) return true;
  const Files& files = output.platform->files;
  static_cast<void>(files.remove(files.self, output.name));
  return false;
}

// ---- Video

bool OpenVideo(RunOutput& output) {
  const Platform& platform = *output.platform;
  const Programs& programs = platform.programs;
  output.name = output.order.name;
  if (programs.there == nullptr || !programs.there(programs.self, std::string(kVideoProgram))) {
    Say(platform.console, kNoProgram, kVideoProgram);
    return false;
  }
  if (!OpenOutput(platform, output.name, OpenHow::replace, output.file))
    return SayFault(output, kNoVideo, output.file.why);
  if (!output.file.beside.empty()) return true;
  DiscardOutput(output.file);
  return SayFault(output, kNoVideo, kInPlace);
}

// Sides are made even, as the usual colours of a video want it; its rows begin at the top.
std::vector<std::string> WordsOf(const RunOutput& output) {
  const VideoRow& row = *VideoOfName(output.order.name);
  std::vector<std::string> words = {std::string(kVideoProgram),
                                    "-loglevel",
                                    "error",
                                    "-y",
                                    "-f",
                                    "rawvideo",
                                    "-pix_fmt",
                                    "rgb24",
                                    "-s",
                                    fmt::format("{}x{}", output.width, output.height),
                                    "-r",
                                    fmt::format("{:.6g}", output.order.rate),
                                    "-i",
                                    "pipe:0",
                                    "-vf",
                                    "vflip,pad=ceil(iw/2)*2:ceil(ih/2)*2",
                                    "-pix_fmt",
                                    "yuv420p"};
  if (row.more != nullptr)
    for (std::string& word : row.more()) words.push_back(std::move(word));
  for (std::string word : {std::string("-f"), std::string(row.container), "file:" + output.file.beside})
    words.push_back(std::move(word));
  return words;
}

// What the program said last tells more than that it reads no more.
bool EndVideoBadly(RunOutput& output, std::string_view why) {
  const Programs& programs = output.platform->programs;
  std::string said;
  if (output.child != kNoChild) static_cast<void>(programs.finish(programs.self, output.child, said));
  output.child = kNoChild;
  DiscardOutput(output.file);
  return SayFault(output, kNoVideo, said.empty() ? why : said);
}

bool FeedVideo(RunOutput& output) {
  const Programs& programs = output.platform->programs;
  if (output.child == kNoChild) {
    Say(output.platform->console, kWriting, VideoOfName(output.name)->word, output.name);
    output.child = programs.start(programs.self, WordsOf(output));
    if (output.child == kNoChild) return EndVideoBadly(output, "");
  }
  return true;
}

bool WriteFrame(RunOutput& output) {
  const Programs& programs = output.platform->programs;
  const std::string_view bytes(reinterpret_cast<const char*>(output.rgb.data()), output.rgb.size());
  return programs.write(programs.self, output.child, bytes);
}

bool FrameWritten(RunOutput& output) {
  return output.made || EndVideoBadly(output, "");
}

bool EndVideo(RunOutput& output) {
  const Programs& programs = output.platform->programs;
  std::string said;
  const bool ended = programs.finish(programs.self, std::exchange(output.child, kNoChild), said);
  const Files& files = output.platform->files;
  const bool written = ended && files.facts(files.self, output.file.beside).size > 0;
  if (written && CloseOutput(output.file)) return true;
  DiscardOutput(output.file);
  return SayFault(output, kNoVideo, said.empty() ? output.file.why : said);
}

// By RunPictures.
constexpr OutputRow kOutputs[] = {
    {FindNumbers, TakeNumber, Encode, StoreTaken, nullptr},
    {nullptr, MakeName, Encode, Store, nullptr},
    {OpenVideo, FeedVideo, WriteFrame, FrameWritten, EndVideo},
};

const OutputRow& RowOf(RunPictures kind) {
  return kOutputs[static_cast<std::size_t>(kind)];
}

// ---- All of them

void Make(RunOutput& output) {
  output.made = RowOf(output.order.kind).make(output);
}

// The picture that the second thread has, if any, is done.
bool TakeMade(RunOutput& output) {
  if (output.maker.joinable()) output.maker.join();
  return !std::exchange(output.in_hand, false) || RowOf(output.order.kind).store(output);
}

void HandOver(RunOutput& output) {
  output.in_hand = true;
  if (output.order.apart && std::thread::hardware_concurrency() > 1) {
    try {
      output.maker = std::thread([&output] { Make(output); });
      return;
    } catch (const std::system_error&) {  // no thread to be had
    }
  }
  Make(output);
}

bool ReadInto(RunOutput& output, int width, int height) {
  const Console& console = output.platform->console;
  if (output.order.kind == RunPictures::video && output.width > 0 && (output.width != width || output.height != height))
    return EndVideoBadly(output, kOtherSize);
  output.width = width;
  output.height = height;
  if (!Grow(output.rgb, static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 3)) {
    SayLine(console, kNoMemory);
    return false;
  }
  const WindowSystem& window = output.platform->window;
  if (window.read_picture(window.self, width, height, output.rgb.data())) return true;
  SayLine(console, kNoPicture);
  return false;
}

}  // namespace

bool OrderOfName(std::string_view name, RunOutputOrder& order) {
  name = TrimEnd(name);
  const bool video = VideoOfName(name) != nullptr;
  if (!video && (!FormatOfName(name, order.format) || IsVector(order.format))) return false;
  order.kind = video ? RunPictures::video : RunPictures::named;
  order.name = name;
  return true;
}

void DropRunOutput::operator()(RunOutput* output) const {
  if (output->maker.joinable()) output->maker.join();
  const Files& files = output->platform->files;
  if (output->in_hand && output->order.kind == RunPictures::numbered)  // its name was taken, no more
    static_cast<void>(files.remove(files.self, output->name));
  const Programs& programs = output->platform->programs;
  if (output->child != kNoChild) programs.stop(programs.self, output->child);
  DiscardOutput(output->file);
  delete output;
}

RunOutputPtr BeginRunOutput(const Platform& platform, const RunOutputOrder& order) {
  RunOutputPtr output(new (std::nothrow) RunOutput);
  if (output == nullptr) {
    SayLine(platform.console, kNoMemory);
    return nullptr;
  }
  output->platform = &platform;
  output->order = order;
  const auto begin = RowOf(order.kind).begin;
  if (begin != nullptr && !begin(*output)) return nullptr;
  return output;
}

bool PutPicture(RunOutput& output, int width, int height) {
  if (width < 1 || height < 1 || !TakeMade(output) || !ReadInto(output, width, height)) return false;
  if (!RowOf(output.order.kind).picture(output)) return false;
  HandOver(output);
  return true;
}

bool FinishRunOutput(RunOutputPtr output) {
  const auto end = RowOf(output->order.kind).end;
  return TakeMade(*output) && (end == nullptr || end(*output));
}

}  // namespace zaview
