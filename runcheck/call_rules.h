// The rules over the arguments of a launcher's call, without a look at the disk.
#pragma once

#include "runcheck/call_facts.h"
#include "runcheck/diagnostic.h"

namespace qvx::runcheck {

/// `found` gets what is wrong with the call. False when its tokens are not what they were meant to
/// be, so that there is no use in looking where they lead. `leadsToARun`: they name a run that
/// comes through, however they look.
bool CheckCall(const CallFacts& facts, Diagnostics& found, bool leadsToARun = false);

}  // namespace qvx::runcheck
