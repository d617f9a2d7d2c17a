// What the shared-memory and the distributed launch share: the solver is started by the MPI process
// launcher, which is the child whose console, exit code and process identifier count.
#pragma once

#include <string>

#include "execution/launch_kind.h"

namespace qvx {

constexpr const char* kParallelBanner = "Launch parallel computing\n";

struct MpiExecutables {
  char impiexecPath[kPathWidth];
  char solverPath[kPathWidth];
};

/// Reads the MPI installation path anew. `solverHome`: the installation that the solver starts
/// from.
MpiExecutables LocateMpiExecutables(LauncherContext& context, const char* solverHome);

/// Names the current user's folder for the MPI tool; cut at 259 UTF-16 units.
std::wstring MpiConfigurationFolder();

/// Options of the MPI tool's for the process launcher, UTF-8; empty when there are none.
std::string MpiConfiguration(LauncherContext& context, const std::wstring& folder);

/// The above in a row, with what the launch does beside them: creates the user's folder and sets
/// `I_MPI_SMPD_VERSION_CHECK` for the child.
/// `processes`: the process launcher's options that say how many processes run where.
LaunchCommand PrepareMpiCommand(LauncherContext& context, const std::string& processes,
                                const char* solverHome);

}  // namespace qvx
