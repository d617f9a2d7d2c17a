// The run driver: one call decides the compute mode and runs one solver execution.
#pragma once

#include "launcher/launcher_context.h"

namespace qvx {

/// Returns the child's exit code; -1 when the MPI accounts are unusable or no process could be
/// started; 0 when the run was cancelled before its start.
int RunDriver(LauncherContext& context);

}  // namespace qvx
