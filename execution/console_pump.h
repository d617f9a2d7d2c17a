// The console pump: brings a running child's output to the launcher's console and into the log, one
// chunk of at most 4096 bytes at a time, until the child ends or its output breaks off.
#pragma once

#include "execution/launch_kind.h"

namespace qvx {

/// `output`: the read end of the child's output pipe. The console gets every byte; the log gets
/// each chunk up to its first zero byte. Blocks in the read, without a time limit.
void PumpConsole(LauncherContext& context, const LaunchKind& kind, const RunningChild& child,
                 HANDLE output);

}  // namespace qvx
