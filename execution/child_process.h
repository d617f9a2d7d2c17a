// The launch sequence that the serial, shared-memory and distributed launches share: old logs are
// cleaned up, the child starts with its console in a pipe, what arrives there goes to the
// launcher's console and into the log, and the child's exit code is reported. Main thread only; log
// writes are not re-entrant.
#pragma once

#include "execution/launch_kind.h"

namespace qvx {

/// Returns the child's exit code, or -1 when it could not be started.
int Launch(LauncherContext& context, const LaunchKind& kind);

}  // namespace qvx
