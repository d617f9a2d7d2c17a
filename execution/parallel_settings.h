// The parallel settings of the run's argument record: parallel mode, process count, the weight of
// each process, the previous shot; and, for a distributed run, its folders as remote machines reach
// them.
#pragma once

#include "launcher/launcher_context.h"

namespace qvx {

/// Called in every compute mode, before the argument string is built; does nothing for solver
/// classes beyond STRESS. Always returns 0. Texts are cut at their field's width; weights that
/// cannot be allocated are a fault.
int PrepareParallelSettings(LauncherContext& context);

}  // namespace qvx
