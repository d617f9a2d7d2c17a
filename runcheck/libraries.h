// The three closed libraries, which this program loads only when it needs them.
#pragma once

#include "runcheck/diagnostic.h"

namespace qvx::runcheck {

/// Loads them and looks for every function that is used of them. False when something is missing:
/// no launcher's module may be asked then.
bool CheckLibraries(Diagnostics& found);

}  // namespace qvx::runcheck
