// Has the closed argument library turn the run's argument record into the solver's arguments.
#pragma once

#include "launcher/launcher_context.h"

namespace qvx {

/// Fills the solver argument string; leaves it for a number that names no solver class. Returns 0.
/// A text of more than 4095 characters from the library is a fault.
int BuildSolverArgumentString(LauncherContext& context);

}  // namespace qvx
