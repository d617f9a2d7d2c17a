// Ties the launcher to the MPI installation and to the suite's project-wide configuration: where
// the MPI process launcher lies, and which share remote machines reach the installation by.
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

}  // namespace qvx
