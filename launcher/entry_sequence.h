// A run from its command line to its exit status, in the one order that the rest relies on.
#pragma once

namespace qvx {

/// Returns the launcher's exit status: the last run driver result, or -1 for fewer than two
/// arguments. Overwrites separators in `arguments`.
int RunEntrySequence(int argumentCount, char** arguments);

}  // namespace qvx
