// The options that the MPI tool has for the MPI process launcher. Nothing is created here.
#pragma once

#include <string>

#include "launcher/launcher_context.h"

namespace qvx {

/// Names the current user's folder for the MPI tool; cut at 259 UTF-16 units.
std::wstring MpiConfigurationFolder();

/// Options of the MPI tool's for the process launcher, UTF-8; empty when there are none.
std::string MpiConfiguration(LauncherContext& context, const std::wstring& folder);

}  // namespace qvx
