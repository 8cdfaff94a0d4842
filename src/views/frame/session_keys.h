// Keys of the session, which act in every view, beside those of the view itself; the help of both.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "views/state/view_key.h"

namespace zaview {

[[nodiscard]] std::span<const ViewKey> SessionKeys();

// The row of the view, else that of the session; true: the picture is to be drawn again.
bool ActOnKey(Session& session, const ViewKeys& view, int key);
// What a view asked for while it handled an event: menus and help.
void ServeAsk(Session& session, const ViewKeys& view);

struct KeyInHelp {
  const ViewKey* row = nullptr;
  bool acts = false;  // now
};
[[nodiscard]] std::vector<KeyInHelp> KeysInOrder(const ViewKeys& view);  // of view and session
// The lines of the keys that act now, in one order.
[[nodiscard]] std::vector<std::string> HelpLines(const ViewKeys& view);

}  // namespace zaview
