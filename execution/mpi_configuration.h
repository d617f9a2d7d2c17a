// Ties the launcher to the MPI installation and to the suite's project-wide configuration: where
// the MPI process launcher lies, which share remote machines reach the installation by, and the MPI
// accounts of a distributed run.
#pragma once

#include "launcher/launcher_context.h"

namespace qvx {

/// Reads `IntelMPI_InstallPath` of "SOFTWARE\NelvornSystem" in the machine's registry into the MPI
/// installation path, less one trailing backslash, and returns that path. Empty, without a message,
/// when the key or the value is missing. Read before every launch, so that a change takes effect at
/// once.
const char* ReadMpiInstallationPath(LauncherContext& context);

/// Reads `QVX_PARALLEL_FOLDER_NAME` of "Bin\QVXProject.ini" in the home folder into the parallel
/// folder name; empty, without a message, when file or key is missing. Returns 0.
int ReadParallelFolderName(LauncherContext& context);

/// Has the MPI tool turn the home folder's `acc.ini` into registry settings and returns its result.
/// `CQVXMPITool::kAccountFileNotUsable` sets the configuration-abort flag, with a message; any
/// other result lets the run go on.
int ConvertMpiAccounts(LauncherContext& context);

}  // namespace qvx
