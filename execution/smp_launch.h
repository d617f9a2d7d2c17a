// The shared-memory parallel launch: several MPI processes on this machine.
#pragma once

#include "launcher/launcher_context.h"

namespace qvx {

/// Exit code that the MPI process launcher is ended with when its process manager is not installed.
constexpr int kNoProcessManagerStatus = -7000;

/// Returns the MPI process launcher's exit code, or -1 when it could not be started.
int LaunchSmp(LauncherContext& context);

}  // namespace qvx
