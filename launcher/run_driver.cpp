#include "launcher/run_driver.h"

#include <cstring>

#include "execution/argument_string.h"
#include "execution/dmp_launch.h"
#include "execution/mpi_configuration.h"
#include "execution/parallel_settings.h"
#include "execution/serial_launch.h"
#include "execution/smp_launch.h"
#include "launcher/debug_trace.h"
#include "launcher/process_wide_values.h"
#include "support/console.h"

namespace qvx {
namespace {

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

int Launch(LauncherContext& context) {
  switch (context.computeMode) {
    case ComputeMode::Smp:
      return LaunchSmp(context);
    case ComputeMode::Dmp:
      return LaunchDmp(context);
    case ComputeMode::Serial:
    default:
      return LaunchSerial(context);
  }
}

}  // namespace

int RunDriver(LauncherContext& context) {
  context.computeMode = DecideComputeMode(context);
  if (context.computeMode == ComputeMode::Dmp) ConvertMpiAccounts(context);
  if (context.configurationAbortFlag != 0) return -1;
  PrepareParallelSettings(context);
  BuildSolverArgumentString(context);
  if (cancelFlag != 0) {
    // "break" whatever the event was: kept, the front end's users know the line.
    Print("Ctrl-break is captured. Computing is canceled.\n");
    return 0;
  }
  return Launch(context);
}

}  // namespace qvx
