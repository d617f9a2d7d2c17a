// Where a run lives: its CMX file, its run folder and, for a distributed run, the installation as
// remote machines reach it. Each operation returns 0 and checks nothing on disk; a path of more
// than 259 characters is a fault.
#pragma once

#include "launcher/launcher_context.h"

namespace qvx {

int BuildCmxPath(LauncherContext& context);

/// Also keeps the path as the local run path.
int BuildCurrentRunPath(LauncherContext& context);

/// Writes the current run path from the argument record's project directory and run number, and
/// nothing else. A distributed launch calls it again, when the record's folders have moved to the
/// share.
void FormatCurrentRunPath(LauncherContext& context);

/// Reads the task-manager and remote-machine settings on its way; does nothing at all for a solver
/// class that always runs serially.
int BuildRemoteHomePath(LauncherContext& context);

}  // namespace qvx
