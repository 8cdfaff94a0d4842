// Recorded pictures as files (SVG, PDF, PNG), one or several on a page, and as the image of a window. Letters of SVG
// and PDF are text: they can be selected and searched.
#pragma once

#include <string>
#include <vector>

#include "gks/kernel/gks_state.h"
#include "gks/picture/picture_file.h"

namespace zaview {

struct RecordedPage {  // cells in rows, from the top left; all as large as the first
  std::vector<const PictureRecording*> cells;
  int columns = 1;
};

// bytes: the whole file. Pure. False: memory is out, or the format has no library here, or it is no format of these.
[[nodiscard]] bool EncodeRecorded(PictureFormat format, const RecordedPage& page, std::string& bytes);

// Smooth, into an image of the recording's size. False: as above.
[[nodiscard]] bool DrawRecorded(const PictureRecording& recording, PictureImage& image);

// Can smooth pictures be drawn here at all? Opens their library.
[[nodiscard]] bool CanDrawRecorded();

// ---- The picture of the main window

// Is the picture that begins to be recorded: by the style, by the format of the file that is ordered, by an open page?
[[nodiscard]] bool IsRecorded(const GksState& gks);

}  // namespace zaview
