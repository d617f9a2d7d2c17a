// The serial launch: the solver itself, as one process on this machine.
#pragma once

#include "launcher/launcher_context.h"

namespace qvx {

/// Returns the solver's exit code, or -1 when it could not be started.
int LaunchSerial(LauncherContext& context);

}  // namespace qvx
