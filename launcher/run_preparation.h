// What leads to the passes of a run: command line, configuration, locations, settings.
#pragma once

#include "launcher/launcher_context.h"

namespace qvx {

/// Fills the context up to its first pass. Reads files and changes nothing outside the context but
/// `arguments`, see InterpretCommandLine.
void PrepareRun(LauncherContext& context, int argumentCount, char** arguments);

}  // namespace qvx
