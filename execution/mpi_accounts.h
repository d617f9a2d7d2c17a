// The MPI accounts of a distributed run.
#pragma once

#include "launcher/launcher_context.h"

namespace qvx {

/// Has the MPI tool turn the home folder's `acc.ini` into registry settings and returns its result.
/// `CQVXMPITool::kAccountFileNotUsable` sets the configuration-abort flag, with a message; any
/// other result lets the run go on.
int ConvertMpiAccounts(LauncherContext& context);

}  // namespace qvx
