// The file dialogue, a menu like others. One can be open at a time.
#pragma once

#include <string_view>

#include "menu/menu_toolkit.h"

namespace zaview {

// Opens it for an item of a menu, which is disabled meanwhile. mode 1: a file to write, 2: to read, 0: no check. name:
// the file and its directory to begin with. At its end the full path stands in the item and the menu's handler is told
// MenuChange::file; if it is given up the item stays as it was and nobody is told.
void dgFileSelector(MenuToolkit& kit, const MenuPoint& caller, int mode, std::string_view name);

// ---- Parts of it

// Does a name pass? Only * is special, and stands for any text; a blank filter passes everything.
[[nodiscard]] bool dgFileSelectorFilter(std::string_view filter, std::string_view name);
// A path without "", "." and ".." and with / alone; a relative one starts at `base`. False: .. goes above the root.
[[nodiscard]] bool ResolvePath(std::string_view base, std::string_view path, std::string& out);
// Directories (.. first) and files of the current directory, in order of bytes. False: it can't be read.
[[nodiscard]] bool dgFileGetFileList(const Platform& platform, FileSelector& selector);

}  // namespace zaview
