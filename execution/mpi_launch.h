// What the shared-memory and the distributed launch share: the solver is started by the MPI process
// launcher, which is the child whose console, exit code and process identifier count.
#pragma once

#include <string>

#include "execution/child_process.h"

namespace qvx {

constexpr const char* kParallelBanner = "Launch parallel computing\n";

/// Reads the MPI installation path anew, creates the user's MPI configuration folder, builds the
/// command line and sets `I_MPI_SMPD_VERSION_CHECK` for the child.
/// `processes`: the launcher options that say how many processes run where.
/// `solverHome`: the installation that the solver starts from.
LaunchCommand BuildMpiCommand(LauncherContext& context, const std::string& processes,
                              const char* solverHome);

}  // namespace qvx
