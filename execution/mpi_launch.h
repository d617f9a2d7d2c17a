// What the shared-memory and the distributed launch share: the solver is started by the MPI process
// launcher, which is the child whose console, exit code and process identifier count.
#pragma once

#include "execution/launch_kind.h"

namespace qvx {

constexpr const char* kParallelBanner = "Launch parallel computing\n";

/// The command, with what the launch does beside it: creates the user's folder for the MPI tool and
/// sets `kMpiVariable` for the child.
LaunchCommand PrepareMpiCommand(LauncherContext& context, const MpiProcesses& processes);

}  // namespace qvx
