// What each launch starts, as far as it can be told without starting it.
#pragma once

#include <string>

#include "launcher/launcher_context.h"

namespace qvx {

/// Open the file names of console logs.
constexpr const char* kSerialLogPrefix = "console_redirect_serial_";
constexpr const char* kSmpLogPrefix = "console_redirect_smp_";
constexpr const char* kDmpLogPrefix = "console_redirect_dmp_";

/// What the MPI process launcher finds in its environment.
constexpr const char* kMpiVariable = "I_MPI_SMPD_VERSION_CHECK";
constexpr const char* kMpiVariableValue = "0";

struct LaunchCommand {
  std::string commandLine;
  std::string reportedPath;  ///< the executable that the return-value lines name
};

/// The solver itself.
LaunchCommand SerialCommand(const LauncherContext& context);

/// Which processes the MPI process launcher starts, and from which installation.
struct MpiProcesses {
  std::string options;
  const char* solverHome;
};

MpiProcesses SmpProcesses(const LauncherContext& context);
MpiProcesses DmpProcesses(const LauncherContext& context);

/// Moves the current run path, and with it the log, to the share: what a distributed launch does
/// first.
void MoveRunPathToShare(LauncherContext& context);

struct MpiExecutables {
  char impiexecPath[kPathWidth];
  char solverPath[kPathWidth];
};

/// Reads the MPI installation path anew. `solverHome`: the installation that the solver starts
/// from.
MpiExecutables LocateMpiExecutables(LauncherContext& context, const char* solverHome);

/// `configuration`: options of the MPI tool's, UTF-8.
LaunchCommand MpiCommand(const LauncherContext& context, const MpiExecutables& executables,
                         const MpiProcesses& processes, const std::string& configuration);

}  // namespace qvx
