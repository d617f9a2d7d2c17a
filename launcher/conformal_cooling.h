// Conformal cooling: a COOL run whose mold has 3D solid cooling channels runs the flow solver
// first, with the cooling run's arguments.
#pragma once

#include "launcher/launcher_context.h"

namespace qvx {

/// Sets the conformal-cooling flag when the CMX file's cooling-channel setting is exactly 1. Leaves
/// it alone, and the file unread, for a solver class that always runs serially. Returns 0.
int ApplyConformalCoolingSetting(LauncherContext& context);

/// Makes the context that of the flow solver's pass, before the cooling solver's own.
void BeginFlowPass(LauncherContext& context);

/// Makes the context that of the cooling solver's pass again.
void BeginCoolPass(LauncherContext& context);

/// Copies the run's arguments from the cooling into the flow record, weights included. Returns 0.
int CopyCoolArgumentToFlowArgument(LauncherContext& context);

}  // namespace qvx
