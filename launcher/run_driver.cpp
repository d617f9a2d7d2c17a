#include "launcher/run_driver.h"

#include "execution/argument_string.h"
#include "execution/dmp_launch.h"
#include "execution/mpi_accounts.h"
#include "execution/parallel_settings.h"
#include "execution/serial_launch.h"
#include "execution/smp_launch.h"
#include "launcher/compute_mode.h"
#include "launcher/process_wide_values.h"
#include "support/console.h"

namespace qvx {
namespace {

int LaunchInComputeMode(LauncherContext& context) {
  switch (context.computeMode) {
    case ComputeMode::Smp:
      return LaunchSmp(context);
    case ComputeMode::Dmp:
      return LaunchDmp(context);
    default:  // Serial
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
    // "break" whatever the event was: deliberate, kept.
    Print("Ctrl-break is captured. Computing is canceled.\n");
    return 0;
  }
  return LaunchInComputeMode(context);
}

}  // namespace qvx
