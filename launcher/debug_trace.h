// The debug trace: diagnostic lines on standard output, switched on by a file that somebody puts on
// the machine.
#pragma once

#include "launcher/launcher_context.h"
#include "support/printf_like.h"

namespace qvx {

/// Sets the debug-trace flag when "NelvornSystem\qvxsolverlauncherdebug.txt" exists under the
/// application-data folder that all users share. Always returns 0.
int SwitchDebugTrace(LauncherContext& context);

/// Prints and flushes when the debug-trace flag is set.
void Trace(const LauncherContext& context, const char* format, ...) QVX_PRINTF_LIKE(2, 3);

}  // namespace qvx
