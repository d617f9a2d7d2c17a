// The rules over the folders and machines of a distributed run, as the launcher's settings hold
// them, without a look at the network.
#pragma once

#include "runcheck/cmx_facts.h"
#include "runcheck/diagnostic.h"
#include "runcheck/prediction.h"

namespace qvx::runcheck {

/// For a run that is meant to be distributed.
void CheckShares(const CmxFacts& facts, const Prediction& prediction, Diagnostics& found);

/// Command lines beyond what the system and the log take.
void CheckCommandLines(const Prediction& prediction, Diagnostics& found);

}  // namespace qvx::runcheck
