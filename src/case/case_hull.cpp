#include "case/case_hull.h"

#include "frame/ground/input_file.h"
#include "geometry/case_geometry.h"

namespace zaview {

bool EnsureHull(const Platform& platform, CaseStore& case_store) {
  if (!case_store.has_case) return false;
  if (case_store.hull_tried == Tried::not_yet) {
    const bool read = ReadCaseGeometry(platform, case_store.control, FolderOf(case_store.file_name), case_store.hull);
    case_store.hull_tried = read ? Tried::there : Tried::failed;
  }
  return case_store.hull_tried == Tried::there;
}

}  // namespace zaview
