// The pictures of a run, one a step, and what becomes of each: a numbered file, one with a name of its own, or a part
// of a video. A second thread makes the file or feeds the video while the next picture is drawn; order and failures
// are as if there were none.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "base/platform.h"
#include "gks/picture/picture_file.h"

namespace zaview {

enum class RunPictures : std::uint8_t {
  numbered,  // dump0001.png and so on, the first block of free numbers that holds the run
  named,     // name0001.png and so on, replacing what was there
  video      // by ffmpeg
};

struct RunOutputOrder {
  RunPictures kind = RunPictures::numbered;
  PictureFormat format = PictureFormat::png;
  std::string name;   // with its extension; of pictures, each has a number ahead of it
  int count = 1;      // pictures that will come
  double rate = 1;    // of a video, pictures a second
  bool apart = true;  // a second thread, where there are processors for it
};

// By the extension of a name, in small or capital letters. False: it is none that a run can be stored under.
[[nodiscard]] bool OrderOfName(std::string_view name, RunOutputOrder& order);

struct RunOutput;
struct DropRunOutput {  // a video that isn't finished goes; pictures stay
  void operator()(RunOutput* output) const;
};
using RunOutputPtr = std::unique_ptr<RunOutput, DropRunOutput>;

// Null: it can't be, ahead of any picture; that has been said. platform outlives it.
[[nodiscard]] RunOutputPtr BeginRunOutput(const Platform& platform, const RunOutputOrder& order);
// The picture of the main window, as it is complete. False: this one or one before couldn't be stored, which has been
// said: the run is over.
[[nodiscard]] bool PutPicture(RunOutput& output, int width, int height);
// Waits for the last picture. False: as above.
[[nodiscard]] bool FinishRunOutput(RunOutputPtr output);

}  // namespace zaview
