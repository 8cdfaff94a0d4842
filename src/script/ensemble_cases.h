// Where the routines of ensembles find the records of a session.
#pragma once

#include "frame/session.h"
#include "stats/tables/ensemble_data.h"

namespace zaview {

[[nodiscard]] inline EnsembleCases CasesOf(Session& session) {
  return {session.case_store, session.ensemble};
}

}  // namespace zaview
