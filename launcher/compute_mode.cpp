#include "launcher/compute_mode.h"

#include <cstring>

#include "launcher/debug_trace.h"

namespace qvx {

ComputeMode DecideComputeMode(const LauncherContext& context) {
  if (AlwaysRunsSerially(context.solverClass)) return ComputeMode::Serial;
  if (IsDistributed(context.taskManagerSettings)) {
    Trace(context, "ComputeMode=DMP\n");
    return ComputeMode::Dmp;
  }
  if (std::strcmp(context.taskManagerSettings.ValueLocalNoTask, "1") == 0) {
    Trace(context, "ComputeMode=Serial\n");
    return ComputeMode::Serial;
  }
  Trace(context, "ComputeMode=SMP\n");
  return ComputeMode::Smp;
}

}  // namespace qvx
