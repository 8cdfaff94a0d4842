// What tables of statistics are made from, of a session.
#pragma once

#include "frame/session.h"
#include "stats/tables/ensemble_data.h"

namespace zaview {

[[nodiscard]] inline StatWork WorkOf(Session& session) {
  return {session.platform, session.output, {session.case_store, session.ensemble}, session.statistics};
}

}  // namespace zaview
