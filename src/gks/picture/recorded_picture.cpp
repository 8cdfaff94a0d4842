#include "gks/picture/recorded_picture.h"

namespace zaview {

bool EncodeRecorded(PictureFormat, const RecordedPage&, std::string&) {
  return false;
}

bool DrawRecorded(const PictureRecording&, PictureImage&) {
  return false;
}

bool IsRecorded(const GksState&) {
  return false;
}

}  // namespace zaview
