// The distributed parallel launch: MPI processes on several machines, started from the shared
// installation.
#pragma once

#include "launcher/launcher_context.h"

namespace qvx {

/// Moves the current run path, and with it the log, to the share. Returns the MPI process
/// launcher's exit code, or -1 when it could not be started.
int LaunchDmp(LauncherContext& context);

}  // namespace qvx
