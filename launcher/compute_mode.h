// The compute mode of a run: on one process, on this machine's processors, or on several machines.
#pragma once

#include "launcher/launcher_context.h"

namespace qvx {

/// What the solver class and the task-manager settings ask for. Traces it, except for a solver
/// class that has no choice.
ComputeMode DecideComputeMode(const LauncherContext& context);

}  // namespace qvx
