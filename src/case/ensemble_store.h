// The records of an ensemble: cases that are realizations of the same conditions. Data only, but for its routines in
// ensemble_match.h.
#pragma once

#include <cstdint>
#include <vector>

#include "case/case_store.h"

namespace zaview {

struct EnsembleStore {
  // record[i - 1] is case i; the current one is in the case store and stands empty here. Of one record there is nothing
  // here at all.
  std::vector<CaseStore> record;
  int nrec = 0;
  int irec = 0;                   // the current one, from 1; 0: none
  std::uint64_t last_serial = 0;  // the last CaseStore::serial that was given
};

}  // namespace zaview
